#include "tests/forms/window_pictures.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTimer>

#include "core/language/translation.h"
#include "forms/about_window.h"
#include "forms/help_window.h"
#include "forms/main_window.h"
#include "forms/own_words.h"
#include "forms/restore_window.h"
#include "forms/sleep_window.h"
#include "forms/tree_window.h"
#include "forms/warning_window.h"
#include "tests/support/scripted_trash.h"

namespace corvane {

namespace {

// The questions before a deletion and the word after it. `clicked` is the button that answers the first box.
void save_deletion(forms_program& shown, folder_of_pictures& pictures, const char* task, const char* clicked,
                   std::vector<const char*> names) {
    std::size_t next = 0;
    QTimer answers;
    QObject::connect(&answers, &QTimer::timeout, &answers, [&] {
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr || next == names.size()) return;
        pictures.save(shown, box, names[next]);
        for (QAbstractButton* button : box->findChildren<QAbstractButton*>())
            if (next == 0 && button->text()
                                 .remove(QLatin1Char('&'))
                                 .startsWith(own_line(clicked).remove(QLatin1Char('&')))) {
                ++next;
                return button->click();
            }
        ++next;
        box->close();
    });
    answers.start(20);
    shown.form.run(task);
}

}  // namespace

void save_shutdown(forms_program& shown, folder_of_pictures& pictures) {
    // The same picture at any time of day.
    shown.screen.date = local_time{2026, 3, 4, 21, 15, 0};
    shown.form.state.shut_delay_min = 50;
    shown.form.state.shut_action = 4;
    shown.form.run("shut_computer");
    pictures.save(shown, &shown.windows.sleep(), "shutdown");
    shown.form.run("sleep_music.Option2(2)_Click");
    shown.form.run("sleep_music.Command1_Click");
    shown.form.state.countdown_done = 1811;
    shown.form.run("sleep_music.Timer1_Timer");
    pictures.save(shown, &shown.windows.sleep(), "shutdown_counting");
    shown.form.run("显示关机提示");
    for (int second = 0; second < 61; ++second) shown.form.run("shut_msg.Timer1_Timer");
    pictures.save(shown, &shown.windows.warning(), "shutdown_warning");
    shown.form.run("shut_msg.Form_Unload");
    shown.form.run("sleep_music.Form_Unload");
    shown.form.state.shutdown_after_task = 0;
    shown.screen.date.reset();
}

void save_boxes(forms_program& shown, folder_of_pictures& pictures) {
    for (const char* path :
         {"/home/li/照片/原图.jpg", "/home/li/备份/原图.jpg", "/home/li/下载/原图 (1).jpg"})
        shown.files.add_file(path, std::string(5'818, 'p'));
    shown.desktop.on_recycle = [&shown](const std::string& path) {
        if (path.starts_with("/home/li/照片")) return outcome::failure("回收站已满。");
        shown.files.erase(path);
        return outcome::success();
    };
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &closer, [] {
        if (QWidget* box = QApplication::activeModalWidget()) box->close();
    });
    closer.start(20);
    shown.form.run("search_check_m_Click");
    shown.form.run("Picture4_Click");
    closer.stop();
    list_view& list = shown.form.ListView1;
    const auto mark = [&list] {
        for (std::int32_t row = 1; row <= list.row_count(); ++row)
            list.set_colour(row, 4, cell_colour::mark_red);
    };
    mark();
    save_deletion(shown, pictures, "Picture5_Click", "放入回收站", {"question", "report"});
    shown.form.state.delete_prompt_on = 1;
    mark();
    save_deletion(shown, pictures, "Command45_Click", "不删除", {"question_direct"});
}

void save_reports(forms_program& shown, folder_of_pictures& pictures) {
    tree_form& tree = shown.corvane.tree_window();
    run_state& state = shown.form.state;
    std::string lines;
    for (const char* path :
         {"/home/li/文档/报告/第一季度.xlsx", "/home/li/文档/报告/第二季度.xlsx", "/home/li/文档/读我.txt",
          "/home/li/照片/2023/夏天/封面.jpg", "/home/li/照片/2023/夏天/海边_第一天.jpg",
          "/home/li/照片/2023/封面.png", "/home/li/下载/安装程序.deb", "/home/li/下载/说明"}) {
        shown.files.add_file(path, path);
        lines += std::string(path) + "\r\n";
    }
    shown.files.add_file("/prog/文件清单.txt").content = lines;
    shown.form.run("Command21_Click");
    state.tree_levels = 4;
    state.tree_min_kb = 16;
    state.tree_max_kb = 4096;
    state.tree_date_from = 44927;
    state.tree_date_to = 46022;
    state.tree_show_length = state.tree_show_normal = state.tree_length_filter = 1;
    state.tree_only_types = "jpg,png";
    shown.form.run("tree_select_m");
    pictures.save(shown, &shown.windows.tree(), "tree");
    shown.form.run("tree_dir.Text7_DblClick");
    tree.ListView1.selected_row = 4;
    shown.form.run("tree_dir.ListView1_DblClick");
    pictures.save(shown, &shown.windows.tree(), "tree_suffixes");
    tree.ListView1.visible = false;
    tree.List1.visible = true;
    tree.checks[6]->value = 1;
    shown.form.run("tree_dir.Check6_Click");
    shown.form.run("tree_dir.Text5_DblClick");
    tree.ProgressBar1.maximum = 100;
    tree.ProgressBar1.value = 62;
    tree.ProgressBar1.visible = true;
    pictures.save(shown, &shown.windows.tree(), "tree_month");
    tree.ProgressBar1.visible = false;
    shown.form.run("tree_dir.Form_Unload");
    shown.form.run("Command26_Click");
    shown.form.Text3.text = "3";
    shown.form.Text4.text = "GIF/DLL";
    shown.form.run("out_sele");
    pictures.save(shown, &shown.windows.main(), "export_frame");
    shown.form.run("Frame6_DblClick");
}

void save_about(forms_program& shown, folder_of_pictures& pictures) {
    shown.form.run("关于_M");
    pictures.save(shown, &shown.windows.about(), "about");
    shown.form.run("frmAbout.cmdOK_Click");
    shown.windows.sync();
}

// Notes of a run whose files have gone from the bin, but for those that are there.
void save_restoring(forms_program& shown, folder_of_pictures& pictures) {
    scripted_trash bin(shown.files);
    shown.form.outside.bin = &bin;
    std::string notes = "Corvane recycled 1\r\nT\t2026-03-04\t05:06:07\t.\r\n";
    int number = 0;
    for (const char* path : {"/home/li/照片/2023/夏天/IMG_0412 (1).jpg", "/home/li/下载/报告 副本.pdf",
                             "/home/li/备份/报告.pdf", "/home/li/备份/旧/电影.mkv"}) {
        const std::string count = std::to_string(++number);
        notes += "F\tf\t1\t" + count + "\t" + std::to_string(number * 734003) + "\t5\t/home/li\t" + path +
                 "\t.\r\nE\t" + count + "\tentry" + count + "\t/bin\t.\r\n";
        if (number != 3) bin.entries["entry" + count];
    }
    shown.files.add_file("/prog/删除记录/1.txt", notes + "Z\t4\t.\r\n");
    shown.files.add_file("/prog/删除记录/0.txt", notes);
    shown.form.run("restore_deleted");
    shown.corvane.restore_window().List2.check(1, true);
    pictures.save(shown, &shown.windows.restoring(), "restoring");
    shown.form.run("restore_runs.Form_Unload");
    shown.form.outside.bin = nullptr;
    shown.windows.sync();
}

void save_help(forms_program& shown, folder_of_pictures& pictures) {
    const translation* spoken = translation_in_use();
    const translation table = english();
    for (const bool english : {false, true}) {
        use_translation(english ? &table : nullptr);
        const QString folder = QStringLiteral(CORVANE_HELP_DIR) + (english ? "/en" : "/zh_CN");
        help_window help(folder);
        pictures.written &= help.open(QStringLiteral("aux02_Corvane帮助_Link.htm")).ok;
        pictures.save(shown, &help, english ? "help_english" : "help");
        if (english) continue;
        help.open(QStringLiteral("aux15_Corvane帮助_Link.htm"));
        pictures.save(shown, &help, "help_picture");
        help.open(QStringLiteral("aux06_Corvane帮助_Link.htm"));
        pictures.save(shown, &help, "help_messages");
        help.search(QStringLiteral("回收站"));
        pictures.save(shown, &help, "help_search");
    }
    use_translation(spoken);
}

}  // namespace corvane
