#include "core/model/main_form.h"

#include <stdexcept>

#include "core/model/export_frames.h"
#include "core/model/main_menu.h"
#include "core/model/phase_words.h"
#include "core/model/task_table.h"
#include "core/settings/data_files.h"
#include "core/settings/environment_table.h"

namespace corvane {

namespace {

// Controls that nothing shows: the check of the menu as a button, and the choice of master files for a search
// for similar files, behind which there is no search.
void add_hidden_controls(Tavrel& form) {
    struct hidden_control {
        control_kind kind;
        const char* name;
        const char* caption;
    };
    static constexpr hidden_control hidden[] = {
        {control_kind::button, "Command44", "查异常文件"}, {control_kind::button, "Command30", "查相似文件"},
        {control_kind::frame, "Frame3", "相似性设置"},     {control_kind::button, "Command31", "主文件选择"},
        {control_kind::button, "Command32", "确定"},
    };
    for (const hidden_control& each : hidden) {
        control& added = form.add<control>(each.kind, each.name);
        added.caption = each.caption;
        added.visible = false;
    }
    form.add<list_box>("rela_file_list").visible = false;
}

}  // namespace

Tavrel::Tavrel(ports given, std::string program_dir)
    : form_model("Tavrel"),
      outside(given),
      Picture11(add<control>(control_kind::picture, "Picture11")),
      StatusBar1(add<status_bar>("StatusBar1")),
      ListView1(add<list_view>("ListView1")),
      listleft(add<list_box>("listleft")),
      List1(add<list_box>("List1")),
      RichTextBox2(add<text_pane>("RichTextBox2")),
      pic_gressbar1(add<colour_bar>("pic_gressbar1")),
      Command28(add<control>(control_kind::button, "Command28")),
      Label4(add<control>(control_kind::label, "Label4")),
      Frame4(add<control>(control_kind::frame, "Frame4")),
      Picture10(add<control>(control_kind::picture, "Picture10")),
      samefile_disp1(add<control>(control_kind::text_box, "samefile_disp1")),
      samefile_disp2(add<control>(control_kind::text_box, "samefile_disp2")),
      Text3(add<control>(control_kind::text_box, "Text3")),
      Text4(add<control>(control_kind::text_box, "Text4")),
      Frame6(add<control>(control_kind::frame, "Frame6")),
      Frame_err(add<control>(control_kind::frame, "Frame_err")),
      txt_disp_err_file(add<control>(control_kind::text_box, "txt_disp_err_file")),
      Check1(add<control>(control_kind::check_box, "Check1")),
      Command46(add<control>(control_kind::button, "Command46")),
      Command47(add<control>(control_kind::button, "Command47")),
      Frame1(add<control>(control_kind::frame, "Frame1")),
      Text1(add<control>(control_kind::text_box, "Text1")),
      Text2(add<control>(control_kind::text_box, "Text2")),
      Command7(add<control>(control_kind::button, "Command7")),
      Command26(add<control>(control_kind::button, "Command26")),
      Splitter(add<control>(control_kind::splitter, "Splitter")),
      tiptext(add<control>(control_kind::text_box, "tiptext")),
      Timer2(add<timer_control>("Timer2", 10)),
      debug_err(add<control>(control_kind::menu_item, "debug_err")) {
    for (std::size_t number = 1; number < pictures.size(); ++number)
        pictures[number] = &add<control>(control_kind::picture, "Picture" + std::to_string(number));
    for (std::size_t index = 0; index < labels.size(); ++index)
        labels[index] = &add<control>(control_kind::label, "Label3(" + std::to_string(index) + ")");
    for (const menu_entry& entry : main_menu()) {
        control* known = find(entry.name);
        control& item = known ? *known : add<control>(control_kind::menu_item, entry.name);
        item.caption = entry.caption;
        item.visible = entry.visible;
    }
    for (const task_entry& task : task_table()) {
        if (control* picture = find(task.picture)) picture->tooltip = task.tooltip;
        if (task.label >= 0) labels[static_cast<std::size_t>(task.label)]->caption = task.caption;
    }

    add_hidden_controls(*this);
    add_export_frames(*this);

    caption = "Corvane";
    help_context = 1001;
    StatusBar1.tooltip = "点击最右端的当前任务,弹出相应的帮助条目.";
    Command28.caption = phase_words::cancel_comparing;
    Frame4.caption = "显示内容相同的文件名";
    samefile_disp1.tooltip = samefile_disp2.tooltip = "CTRL+左键进入目录资源管理器";
    List1.tooltip = "右键存为文件temp.txt";
    Frame_err.caption = "上次运行时,出错的文件";
    Check1.caption = "比对时避开该文件";
    Command46.caption = "打开目录";
    Command47.caption = "确定";
    Frame1.caption = "[文件2]栏按序号删除";
    Command7.caption = "删除";
    Command7.tooltip = "[在文件2栏]中删除";
    Command26.caption = "关闭";
    Splitter.back_colour = 0x808080;
    Splitter.place.width = 5;
    ListView1.place = {0, 0, 12000, 6000};  // until a front end says how large it is
    for (control* hidden : {static_cast<control*>(&ListView1), static_cast<control*>(&pic_gressbar1),
                            &Command28, &Label4, &Frame4, static_cast<control*>(&List1),
                            static_cast<control*>(&listleft), &Frame_err, &Frame1, &tiptext})
        hidden->visible = false;

    set_defaults(state);
    state.program_dir = std::move(program_dir);
    state.shared_dir = state.program_dir;
    tooltip = place_words();
    state.same_file_path = data_path(data_file::same_files);
    state.history_path = data_path(data_file::history);
    state.archive_del_path = data_path(data_file::archive_deletions);
}

form_model* Tavrel::child(std::string_view name) const {
    for (form_model* each : children_)
        if (folded_name(each->name()) == folded_name(name)) return each;
    return nullptr;
}

void Tavrel::bind(handler added) {
    std::string key = folded_name(added.name);
    handlers_[std::move(key)] = std::move(added);
}

void Tavrel::bind(const handler_table& table) {
    for (const handler& each : table) bind(each);
}

void Tavrel::bind(std::string_view name, std::function<void()> procedure) {
    bind({std::string(name), [procedure = std::move(procedure)](Tavrel&) { procedure(); }});
}

void Tavrel::expect(std::string_view name) {
    bind({std::string(name), {}});
}

const handler* Tavrel::find_handler(std::string_view name) const {
    const auto found = handlers_.find(folded_name(name));
    return found == handlers_.end() ? nullptr : &found->second;
}

bool Tavrel::has_handler(std::string_view name) const {
    const handler* found = find_handler(name);
    return found != nullptr && found->procedure;
}

bool Tavrel::is_expected(std::string_view name) const {
    const handler* found = find_handler(name);
    return found != nullptr && !found->procedure;
}

class Tavrel::running_handler {
  public:
    running_handler(Tavrel& form, const handler& running)
        : form_(form), name_(running.name), is_task_(running.starts_task), yields_(form.yields_) {
        ++form_.running_handlers_;
        if (is_task_) ++form_.running_tasks_;
        if (form_.trace) start_ = form_.outside.screen.seconds();
    }
    ~running_handler() {
        --form_.running_handlers_;
        if (is_task_) --form_.running_tasks_;
        if (form_.trace) form_.trace(name_, form_.outside.screen.seconds() - start_, form_.yields_ - yields_);
    }
    running_handler(const running_handler&) = delete;
    running_handler& operator=(const running_handler&) = delete;

  private:
    Tavrel& form_;
    std::string name_;
    bool is_task_;
    std::int64_t yields_;
    double start_ = 0;
};

bool Tavrel::run(std::string_view name) {
    if (!has_handler(name)) return false;
    // A copy: the handler may be bound anew while it runs.
    const handler found = *find_handler(name);
    if (found.starts_task && task_runs()) return true;
    {
        const running_handler running(*this, found);
        found.procedure(*this);
    }
    if (when_idle && !handler_runs()) when_idle();
    return true;
}

void Tavrel::start(handler_name name) {
    if (!run(name.text) && !is_expected(name.text))
        throw std::logic_error(std::string("no handler ") + name.text);
}

void Tavrel::call(handler_name name) {
    if (has_handler(name.text)) {
        const std::function<void(Tavrel&)> procedure = find_handler(name.text)->procedure;
        procedure(*this);
    } else if (!is_expected(name.text)) {
        throw std::logic_error(std::string("no handler ") + name.text);
    }
}

void Tavrel::inform(const std::string& words, int context) {
    message box;
    box.title = "提示";
    box.text = words;
    box.icon = box_icon::information;
    box.help_context = context;
    outside.screen.show_message(box);
}

void Tavrel::complain(const std::string& words, int context, bool help_button) {
    message box;
    box.title = "提示";
    box.text = words;
    box.icon = box_icon::exclamation;
    box.help_context = context;
    box.help_button = help_button;
    box.failure = true;
    outside.screen.show_message(box);
}

box_answer Tavrel::ask(message question) {
    question.title = "提示";
    question.buttons = box_buttons::yes_no;
    question.icon = box_icon::question;
    return outside.screen.show_message(question);
}

bool Tavrel::confirm(const std::string& words) {
    message question;
    question.text = words;
    return ask(std::move(question)) == box_answer::yes;
}

}  // namespace corvane
