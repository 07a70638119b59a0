#include "tests/forms/forms_program.h"

#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <utility>

#include "forms/directory_window.h"
#include "forms/main_window.h"

namespace corvane {

forms_program::forms_program(std::unique_ptr<memory_file_system> disk)
    : own_disk(std::move(disk)),
      files(*own_disk),
      corvane({files, desktop, desktop, screen, encodings, &instances, &notice}, "/prog/"),
      form(corvane.main_form()),
      windows(corvane, screen) {
    files.add_directory("/prog/");
    form.caption = "Corvane";
    form.visible = true;
    windows.main().resize(1100, 700);
    windows.sync();
    settle();
}

forms_program::~forms_program() = default;

QWidget* forms_program::widget(const char* name, QWidget* owner) {
    if (!owner) owner = &windows.main();
    return owner->findChild<QWidget*>(QString::fromUtf8(name));
}

QAction* forms_program::action(const char* name) {
    return windows.main().findChild<QAction*>(QString::fromUtf8(name));
}

int& forms_program::count_runs(const std::string& handler) {
    int& runs = runs_[handler];
    form.bind(handler, [&runs] { ++runs; });
    return runs;
}

void forms_program::settle() {
    for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
}

void forms_program::show_pairs(std::int32_t rows) {
    list_view& list = form.ListView1;
    list.clear_columns();
    list.add_column({"", 100, text_alignment::left, cell_content::text});
    list.add_column({"序号", 700, text_alignment::right, cell_content::number});
    list.add_column({"长度", 900, text_alignment::right, cell_content::number});
    list.add_column({"重复文件1", 6000, text_alignment::left, cell_content::text});
    list.add_column({"重复文件2", 6000, text_alignment::left, cell_content::text});
    list.reserve_rows(rows);
    for (std::int32_t i = 1; i <= rows; ++i) {
        const std::int32_t row = list.add_row();
        list.set_number(row, 1, i);
        list.set_number(row, 2, std::int64_t{i} * 7919 % 90'000'000);
        list.set_text(row, 3, "/home/li/照片/2023/夏天/图片_" + std::to_string(i) + ".jpg");
        list.set_text(row, 4, "/home/li/备份/旧电脑/我的文档/图片_" + std::to_string(i) + " (副本).jpg");
    }
    form.state.list_mode = 0;
    form.RichTextBox2.visible = false;
    list.visible = true;
    windows.sync();
    settle();
    windows.sync();
}

void forms_program::add_used_folder(const std::vector<std::string>& settings_lines) {
    files.add_file("/prog/Tavrel环境.txt", with_line_ends(settings_lines));
    for (const char* list : {"不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt"})
        files.add_file(std::string("/prog/") + list);
    files.add_directory("/home");
    files.add_file("/prog/比较文件_目录清单.txt", "/home\r\n");
}

QImage forms_program::picture(QWidget* window) {
    settle();
    return window->grab().toImage();
}

QPalette light_palette() {
    QPalette palette(QColor(239, 239, 239));
    palette.setColor(QPalette::Highlight, QColor(48, 140, 198));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

QPalette dark_palette() {
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, QColor(236, 236, 236));
        palette.setColor(QPalette::Disabled, role, QColor(127, 127, 127));
    }
    palette.setColor(QPalette::ToolTipBase, QColor(60, 60, 60));
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

}  // namespace corvane
