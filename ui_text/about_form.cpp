#include "ui_text/about_form.h"

#include "core/model/main_form.h"
#include "ui_text/system_information.h"

namespace corvane {

about_form::about_form(Tavrel& main, const std::string& version, std::string web_page)
    : form_model("frmAbout"),
      cmdOK(add<control>(control_kind::button, "cmdOK")),
      cmdSysInfo(add<control>(control_kind::button, "cmdSysInfo")),
      lblTitle(add<control>(control_kind::label, "lblTitle")),
      lblVersion(add<control>(control_kind::label, "lblVersion")),
      lblDescription(add<control>(control_kind::label, "lblDescription")),
      lblDisclaimer(add<control>(control_kind::label, "lblDisclaimer")),
      picIcon(add<control>(control_kind::label, "picIcon")),
      lblPlace(add<control>(control_kind::label, "lblPlace")),
      Label1(add<control>(control_kind::label, "Label1")),
      Label2(add<control>(control_kind::label, "Label2")),
      Label3(add<control>(control_kind::label, "Label3")),
      Label4(add<control>(control_kind::label, "Label4")),
      Label5(add<control>(control_kind::label, "Label5")),
      Text1(add<control>(control_kind::text_box, "Text1")),
      main_(main),
      web_page_(std::move(web_page)) {
    caption = "关于 Corvane ";
    help_context = 1064;
    cmdOK.caption = "确定";
    cmdSysInfo.caption = "系统信息(&S)...";
    lblTitle.caption = "Corvane";
    lblVersion.caption = "版本 " + version;
    lblVersion.tooltip = "主版本.次版本.修订号";
    lblDescription.caption = "查找内容相同的文件，清理磁盘。";
    lblDisclaimer.caption = "每个文件删除之前都要证实另有一份内容相同的文件。重要的资料仍请先备份。";
    picIcon.tooltip = "Corvane";
    lblPlace.caption = lblPlace.tooltip = main.place_words();
    Label1.caption = "使用的程序库";
    Label2.caption = "Corvane 网页";
    Label3.caption = "许可和源代码";
    Label4.caption = "问题和建议";
    Label5.caption = "这些程序库以动态链接的方式使用，可以换成您自己编译的版本。";
    Label2.tooltip = Label4.tooltip = "双击进入";
    Label2.visible = Label4.visible = !web_page_.empty();
}

void about_form::set_libraries(const std::vector<used_library>& libraries, const std::string& replacing) {
    replacing_ = replacing;
    Text1.text.clear();
    for (const used_library& library : libraries) {
        if (!Text1.text.empty()) Text1.text += "\r\n\r\n";
        Text1.text += library.name + " " + library.version;
        Text1.text += "\r\n版权：" + library.holders;
        Text1.text += "\r\n许可：" + library.licence;
        Text1.text += "\r\n源代码：" + library.source;
    }
}

bool about_form::open_web_page() {
    if (web_page_.empty()) return false;
    const outcome result = main_.outside.desktop.open_document(web_page_);
    if (!result) main_.complain(result.reason);
    return true;
}

void about_form::open() {
    // A table of a language has words of its own there.
    if (!replacing_.empty()) Label5.caption = replacing_;
    open_following(main_, *this);
    visible = true;
}

handler_table about_form::handlers() {
    const std::string prefix = name() + ".";
    return {
        {"关于_M", [this](Tavrel&) { open(); }},
        {prefix + "cmdOK_Click", [this](Tavrel&) { visible = false; }},
        {prefix + "cmdSysInfo_Click", StartSysInfo},
        {prefix + "Label2_DblClick", [this](Tavrel&) { open_web_page(); }},
        {prefix + "Label4_DblClick", [this](Tavrel&) { open_web_page(); }},
        {prefix + "Form_Unload", [this](Tavrel&) { visible = false; }},
    };
}

}  // namespace corvane
