// Writes a picture of each window: screenshots SHADE SCALE FOLDER. The scale is set by QT_SCALE_FACTOR.
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QPalette>
#include <QStandardPaths>
#include <QStyleFactory>
#include <cstdio>

#include "browser/same_view.h"
#include "core/progress.h"
#include "forms/directory_window.h"
#include "tests/forms/window_fixture.h"

namespace {

QPalette dark_palette() {
    QPalette palette(QColor(49, 54, 59));
    palette.setColor(QPalette::Base, QColor(35, 38, 41));
    palette.setColor(QPalette::AlternateBase, QColor(42, 46, 50));
    palette.setColor(QPalette::Highlight, QColor(61, 124, 184));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, QColor(239, 240, 241));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(125, 130, 135));
    return palette;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) return 2;
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(count, arguments);
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    const QString shade = QString::fromLocal8Bit(arguments[1]);
    if (shade == QLatin1String("dark")) QApplication::setPalette(dark_palette());
    const QString folder = QString::fromLocal8Bit(arguments[3]);
    QDir().mkpath(folder);
    bool written = true;
    corvane::window_fixture f;
    const auto save = [&](QWidget& window, const char* name) {
        // Two turns: the first lays out, the second lets the window follow the new sizes.
        for (int turn = 0; turn < 2; ++turn) {
            QApplication::processEvents();
            f.window.sync();
        }
        const QString path =
            QStringLiteral("%1/%2_%3_%4.png")
                .arg(folder, QLatin1String(name), shade, QString::fromLocal8Bit(arguments[2]));
        written = window.grab().save(path) && written;
    };

    save(f.window, "start");
    for (int i = 0; i < 60; ++i)
        f.add_file("data/照片/" + std::to_string(2000 + i / 4) +
                       "年/一个相当长的目录名称，用来看路径怎样省略/图片" + std::to_string(i) + ".jpg",
                   std::string(1000 + static_cast<std::size_t>(i) / 3 * 100'000, 'x'));
    f.window.act("picture2_Click");
    save(f.window, "search");
    f.window.act("Picture3_Click");
    corvane::list_view& list = f.form.ListView1;
    list.set_colour(2, 4, corvane::cell_colour::mark_red);
    list.set_colour(3, 4, corvane::cell_colour::mark_blue);
    list.set_colour(4, 4, corvane::cell_colour::colour_archive);
    list.set_colour(5, 4, corvane::cell_colour::colour_found);
    f.window.sync();
    save(f.window, "list");
    corvane::show_row_panel(f.form, 1);
    save(f.window, "panel");
    corvane::lock_tasks(f.form);
    f.form.Command28.visible = true;
    f.form.Label4.visible = true;
    f.form.Label4.caption = "/home/user/照片/2019年/正在读取的文件.jpg";
    corvane::bar_colours(f.form, 255, 0xC080FF, 0xAAF0F0);
    corvane::bar_scale(f.form, 100);
    f.form.pic_gressbar1.draw(60);
    save(f.window, "running");
    f.window.act("Picture1_Click");
    QWidget* const directories = f.widget<QWidget>("目录选择");
    save(*directories, "directories");
    return written ? 0 : 1;
}
