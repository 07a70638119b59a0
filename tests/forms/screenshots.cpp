// Writes a picture of each window: corvane_screenshots FOLDER light|dark SCALE. The scale is set from
// outside, by QT_SCALE_FACTOR, and only names the files.
#include <QApplication>
#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QMenu>
#include <QPainter>
#include <QTest>
#include <QTimer>
#include <cstdio>

#include "core/language/translation.h"
#include "core/tasks/progress.h"
#include "forms/directory_window.h"
#include "forms/fonts.h"
#include "forms/main_window.h"
#include "forms/options_window.h"
#include "forms/own_words.h"
#include "forms/preview_pane.h"
#include "forms/preview_side.h"
#include "forms/row_panel.h"
#include "tests/forms/forms_program.h"
#include "tests/forms/window_pictures.h"

namespace {

using corvane::folder_of_pictures;
using corvane::forms_program;

void fill_panels(forms_program& shown) {
    const char* texts[] = {"文件数:12,480", "字节:18,204 M", "相同文件:1,326", "相同文件长度:3,871 M",
                           "读入:100%",     "0:1:27",        "查相同文件"};
    for (int number = 1; number <= 7; ++number) shown.form.panel(number, texts[number - 1]);
}

void show_marks(forms_program& shown) {
    using namespace corvane::cell_colour;
    shown.show_pairs(200);
    corvane::list_view& list = shown.form.ListView1;
    list.set_colour(2, 4, mark_red);
    list.set_colour(3, 3, mark_red);
    list.set_text(5, 3, "/home/li/归档/旧照片.zip*夏天/图片_5.jpg");
    list.set_colour(5, 3, colour_archive);
    list.set_colour(6, 3, colour_gray);
    list.set_colour(7, 3, colour_gray);
    list.set_colour(9, 4, mark_blue);
    list.set_colour(11, 3, colour_found);
    list.set_text(13, 4, "");
    list.set_number(8, 2, 123'456'789'012);
    list.selected_row = 3;
    shown.windows.sync();
}

// A picture as a camera might have taken it: sky, sea and a sun.
std::string beach_file() {
    QImage image(640, 400, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, 640, 240, QColor(150, 200, 235));
    painter.fillRect(0, 240, 640, 160, QColor(40, 110, 150));
    painter.setBrush(QColor(250, 220, 120));
    painter.drawEllipse(440, 50, 90, 90);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return bytes.toStdString();
}

// The preview of a row, when both of its files have been read.
bool show_preview(forms_program& shown, std::int32_t row) {
    shown.form.ListView1.selected_row = row;
    shown.windows.sync();
    corvane::preview_pane& pane = shown.windows.main().preview();
    const std::string path = shown.form.ListView1.cell(row, 4);
    return QTest::qWaitFor([&] { return pane.side(1).path() == path && !pane.side(1).facts().isEmpty(); },
                           20'000);
}

void fill_options(forms_program& shown) {
    const std::pair<const char*, const char*> lists[] = {
        {"不参加搜索的目录.txt",
         "1/PROC/\r\n1/SYS/\r\n0/USR/SHARE/DOC/\r\n1/HOME/LI/备份/旧电脑/我的文档/下载的安装程序和更新包/"
         "2019年以前/"
         "不再需要的版本/临时/\r\n0/VAR/CACHE/\r\n"},
        {"不参加比较的文件类型.txt", "1.tmp\r\n1.bak\r\n0.lnk\r\n0.o\r\n"},
        {"仅搜索的文件类型.txt", "0.jpg\r\n0.png\r\n0.mp3\r\n"}};
    for (const auto& [name, lines] : lists) shown.files.add_file(std::string("/prog/") + name, lines);
    std::string common;
    for (const char* line : {".ani 动画鼠标", ".csv 逗号分隔表格", ".docx Word新格式文档", ".epub EPUB电子书",
                             ".md Markdown文本", ".pdf PDF文档", ".psd Photoshop分层图像", ".txt 纯文本",
                             ".wps WPS文字文档", ".xls Excel工作簿", ".xlsx Excel新格式工作簿"})
        common.append(line).append("\r\n");
    shown.files.add_file("/prog/常用文件扩展名.txt", common);
    for (const char* reader : {"读不参加搜索的目录", "读不参加比较的文件类型", "读仅搜索的文件类型"})
        shown.form.run(reader);
    shown.form.state.show_run_filename = shown.form.state.tip_help_on = 1;
    shown.form.run("select_m_Click");
    shown.corvane.options_window().List1.select(1, true);
    shown.corvane.options_window().List2.select(1, true);
    shown.corvane.options_window().List4.select(3, true);
}

// The views of the name checks and of the empty directories, over a small disk.
void save_other_views(forms_program& shown, folder_of_pictures& pictures) {
    corvane::run_state& state = shown.form.state;
    shown.form.RichTextBox2.visible = false;
    shown.settle();
    for (const char* path :
         {"/home/li/照片/2023/夏天/封面.jpg", "/home/li/备份/旧电脑/我的文档/2023/夏天/封面.jpg",
          "/home/li/照片/2023/夏天/读我.txt", "/home/li/文档/报告/读我.txt", "/home/li/下载/读我.txt",
          "/home/li/文档/报告/第一季度.xlsx", "/home/li/备份/旧电脑/第一季度.xlsx"})
        shown.files.add_file(path, path);
    for (const char* path : {"/home/li/下载/空的", "/home/li/下载/空的/更空的", "/home/li/备份/旧电脑/临时",
                             "/home/li/照片/待整理"})
        shown.files.add_directory(path);
    // Each closing message is answered at once.
    QTimer closer;
    QObject::connect(&closer, &QTimer::timeout, &closer, [] {
        if (QWidget* box = QApplication::activeModalWidget()) box->close();
    });
    closer.start(20);
    state.selected_dirs = {"/home/li"};
    state.selected_dir_count = 1;
    shown.form.run("picture2_Click");
    shown.form.run("mnu_same_filename_Click");
    pictures.save(shown, &shown.windows.main(), "names_files");
    shown.form.run("search_repeat_dir_name_Click");
    pictures.save(shown, &shown.windows.main(), "names_directories");
    shown.form.run("Picture6_Click");
    shown.form.run("Picture7_Click");
    shown.form.run("按序号删除_m");
    pictures.save(shown, &shown.windows.main(), "empty_directories");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setFont(corvane::interface_font(QApplication::font()));
    const QString palette = QString::fromLocal8Bit(argv[2]);
    QApplication::setPalette(palette == QLatin1String("dark") ? corvane::dark_palette()
                                                              : corvane::light_palette());
    folder_of_pictures pictures{QString::fromLocal8Bit(argv[1]),
                                QStringLiteral("_%1_%2.png").arg(palette, QString::fromLocal8Bit(argv[3]))};
    QDir().mkpath(pictures.folder);

    // CORVANE_LANGUAGE=en: the same windows in English.
    const corvane::translation english = corvane::english();
    if (qEnvironmentVariable("CORVANE_LANGUAGE") == QLatin1String("en")) corvane::use_translation(&english);
    forms_program shown;
    QWidget* main = &shown.windows.main();
    pictures.save(shown, main, "start");

    save_about(shown, pictures);
    save_restoring(shown, pictures);

    shown.files.add_file("/prog/err_rec.txt", "/home/li/照片/2023/夏天/读不出来的图片_0417.jpg\r\n");
    shown.form.run("debug_err_anly");
    pictures.save(shown, main, "error_frame");
    shown.form.Frame_err.visible = false;
    shown.form.state.tip_help_on = 1;
    corvane::tip_show(shown.form, "显示最近一次[查相同文件]的结果，再显示一遍也可以，很长的提示分成两行。",
                      shown.form.pictures[4]->place);
    pictures.save(shown, main, "tip");
    shown.form.tiptext.visible = false;

    for (const char* path : {"/home/li/照片/2023/夏天", "/home/li/文档/报告", "/home/li/音乐",
                             "/home/li/下载", "/home/li/备份/旧电脑", "/home/li/.config"})
        shown.files.add_directory(path);
    shown.files.mounted = {{"/home/li/", "", corvane::volume_kind::home, 3'000'000'000, 9'000'000'000},
                           {"/", "", corvane::volume_kind::root, 20'000'000'000, 90'000'000'000},
                           {"/media/照相机/", "EOS_DIGITAL", corvane::volume_kind::other, 500, 1000}};
    shown.form.run("Picture1_Click");
    shown.windows.sync();
    corvane::directory_window& directories = shown.windows.directory();
    pictures.save(shown, &directories, "directories_empty");
    shown.corvane.directory_window().add_paths({"/home/li/照片", "/home/li/备份/旧电脑"});
    pictures.save(shown, &directories, "directories");
    shown.corvane.directory_window().confirm_selection();
    shown.corvane.directory_window().visible = false;

    fill_options(shown);
    pictures.save(shown, &shown.windows.options(), "options");
    QMenu* menu = shown.windows.options().findChild<QMenu*>(QStringLiteral("file_type_list"));
    menu->popup({});
    pictures.save(shown, menu, "options_menu");
    menu->close();
    for (int i = 0; i < 9; ++i) shown.form.run("Form_no_dire.Command2(0)_Click");
    shown.form.state.list_back_color = 0xE0F4F4;
    shown.form.state.list_fore_color = 0x703000;
    shown.form.run("Form_no_dire.Command2(1)_Click");
    pictures.save(shown, &shown.windows.options(), "options_colours");
    shown.form.run("Form_no_dire.Form_Unload");

    fill_panels(shown);
    shown.form.state.file_count = 100;
    for (int i = 1; i <= 100; ++i) shown.form.state.file_len.push_back(i / 2 * std::int64_t{41'943'040});
    corvane::lock_tasks(shown.form);
    corvane::offer_cancel(shown.form, "查相同文件");
    shown.form.pic_gressbar1.set_colours(0xC0C0C0, 0x400040, 0xFF);
    shown.form.pic_gressbar1.set_scale(100);
    shown.form.pic_gressbar1.draw(62);
    shown.form.Command28.visible = true;
    shown.form.Label4.visible = true;
    shown.form.Label4.caption = "/home/li/照片/2023/夏天/很长的名字_海边_第一天_上午_和朋友们在一起_原图.jpg";
    pictures.save(shown, main, "running");
    corvane::unlock_tasks(shown.form);
    shown.form.state.file_count = 0;
    shown.form.state.file_len.resize(0);
    shown.form.pic_gressbar1.visible = shown.form.Command28.visible = shown.form.Label4.visible = false;

    show_marks(shown);
    pictures.save(shown, main, "list");
    shown.files.add_file("/home/li/照片/2023/夏天/图片_10.jpg", beach_file());
    shown.files.add_file("/home/li/备份/旧电脑/我的文档/图片_10 (副本).jpg", beach_file());
    shown.files.add_file("/home/li/照片/2023/夏天/图片_12.jpg",
                         "第一行\n第二行，长一些的文字，看得出不换行\nThird line\n");
    shown.form.run("preview_m");
    pictures.written &= show_preview(shown, 10);
    pictures.save(shown, main, "preview");
    pictures.written &= show_preview(shown, 12);
    pictures.save(shown, main, "preview_text");
    shown.form.run("preview_m");
    shown.form.ListView1.selected_row = 3;
    shown.windows.sync();
    shown.form.Frame4.caption = "显示第 3 条";
    shown.form.samefile_disp1.text = "/home/li/照片/2023/夏天/图片_3.jpg            2023-8-2 10:4:31\t23757";
    shown.form.samefile_disp2.text =
        "/home/li/备份/旧电脑/我的文档/图片_3 (副本).jpg    2023-8-2 10:4:31\t23757";
    shown.form.Frame4.visible = true;
    pictures.save(shown, main, "row_panel");
    shown.form.Frame4.visible = false;

    std::string lines;
    for (int i = 1; i <= 400; ++i) lines += "/home/li/照片/2023/夏天/图片_" + std::to_string(i) + ".jpg\r\n";
    shown.files.add_file("/prog/文件清单.txt", lines);
    shown.form.RichTextBox2.load_file("/prog/文件清单.txt");
    shown.form.RichTextBox2.visible = true;
    pictures.save(shown, main, "text_and_list");
    save_other_views(shown, pictures);
    save_shutdown(shown, pictures);
    save_boxes(shown, pictures);
    save_reports(shown, pictures);
    save_help(shown, pictures);
    if (!pictures.written) std::fputs("a picture could not be written\n", stderr);
    return pictures.written ? 0 : 1;
}
