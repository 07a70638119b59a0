// Every window on screens small and large, at each scale, in both palettes and languages: it is no larger
// than the screen, no caption is cut, every text reads easily. The screen and the scale are set from outside.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTest>

#include "core/language/translation.h"
#include "forms/about_window.h"
#include "forms/colours.h"
#include "forms/directory_window.h"
#include "forms/elided_label.h"
#include "forms/main_window.h"
#include "forms/options_window.h"
#include "forms/own_words.h"
#include "forms/sleep_window.h"
#include "forms/task_button.h"
#include "forms/tree_window.h"
#include "forms/warning_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

const translation& english_table() {
    static const translation table = english();
    return table;
}

// Palette and language of an application stand before its windows are made.
struct look {
    explicit look(bool dark, bool in_english) {
        QApplication::setPalette(dark ? dark_palette() : light_palette());
        use_translation(in_english ? &english_table() : nullptr);
    }
    ~look() {
        use_translation(nullptr);
        QApplication::setPalette(light_palette());
    }
    look(const look&) = delete;
    look& operator=(const look&) = delete;
};

class fit : public testing::TestWithParam<std::tuple<bool, bool>> {
  protected:
    fit() {
        shown.add_used_folder();
        for (const char* directory : {"/home/li/pictures", "/home/li/documents"})
            shown.files.add_directory(directory);
        shown.files.add_file("/prog/常用文件扩展名.txt", ".txt text\r\n");
        shown.files.mounted = {{"/home/li/", "", volume_kind::home, 3'000'000'000, 9'000'000'000}};
        shown.files.add_file("/prog/文件清单.txt", "/home/li/a.txt\r\n");
        shown.files.add_file("/home/li/a.txt", "a");
        shown.windows.main().resize(QSize(1100, 700).boundedTo(room()));
        shown.settle();
    }
    QSize room() const { return QApplication::primaryScreen()->availableGeometry().size(); }

    std::vector<QWidget*> open_all() {
        for (const char* opener : {"Picture1_Click", "select_m_Click", "shut_computer", "显示关机提示",
                                   "关于_M", "tree_select_m"}) {
            shown.form.run(opener);
            shown.windows.sync();
            shown.settle();
        }
        return {&shown.windows.directory(), &shown.windows.options(), &shown.windows.sleep(),
                &shown.windows.warning(),   &shown.windows.tree(),    &shown.windows.about()};
    }
    // The list with everything that can stand around it.
    void show_result() {
        shown.form.state.summary_words =
            "找到 3 个多余的文件, 分 2 组; 每组留一个, 可以释放 5.7 MB。\r\n"
            "占得最多的组: movie.mkv ×3 5.7 MB";
        shown.show_pairs(40);
        shown.form.samefile_disp1.text = "/a/b.txt    2024-1-2 3:4:5\t77";
        shown.form.samefile_disp2.text = "/a/c.txt    2024-1-2 3:4:5\t77";
        shown.form.Frame4.visible = true;
        shown.windows.sync();
        shown.settle();
    }

    const look look_{std::get<0>(GetParam()), std::get<1>(GetParam())};
    forms_program shown;
};

std::string told(const QWidget& part) {
    return part.window()->objectName().toStdString() + "." + part.objectName().toStdString() + ": " +
           part.property("text").toString().toStdString();
}

TEST_P(fit, no_window_is_larger_than_the_screen) {
    const int title = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    EXPECT_LE(shown.windows.main().minimumSizeHint().width(), room().width());
    EXPECT_LE(shown.windows.main().minimumSizeHint().height(), room().height() - title);
    for (const QWidget* window : open_all()) {
        EXPECT_LE(window->width(), room().width()) << window->objectName().toStdString();
        EXPECT_LE(window->height(), room().height() - title) << window->objectName().toStdString();
        EXPECT_LE(window->minimumSizeHint().width(), room().width()) << window->objectName().toStdString();
    }
}

// What has no room is reached by scrolling, not by luck.
TEST_P(fit, every_button_of_a_window_lies_in_it_or_in_what_scrolls) {
    int count = 0;
    for (const QWidget* window : open_all())
        for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
            if (!button->isVisible() || button->text().isEmpty()) continue;
            ++count;
            const QRect place(button->mapTo(window, QPoint(0, 0)), button->size());
            const bool scrolls = window->findChild<QScrollArea*>(QStringLiteral("window_scroll")) != nullptr;
            EXPECT_TRUE(scrolls || window->rect().contains(place)) << told(*button);
        }
    EXPECT_GT(count, 30);
}

TEST_P(fit, no_caption_is_cut) {
    show_result();
    std::vector<QWidget*> windows = open_all();
    windows.push_back(&shown.windows.main());
    int count = 0;
    for (QWidget* window : windows)
        for (QWidget* part : window->findChildren<QWidget*>()) {
            if (!part->isVisible()) continue;
            if (const auto* label = qobject_cast<QLabel*>(part); label && !label->text().isEmpty()) {
                ++count;
                if (label->wordWrap())
                    EXPECT_LE(label->heightForWidth(label->width()), label->height()) << told(*part);
                else
                    EXPECT_LE(label->minimumSizeHint().width(), label->width()) << told(*part);
            } else if (const auto* task = dynamic_cast<task_button*>(part)) {
                ++count;
                EXPECT_LE(task->sizeHint().width(), task->width()) << told(*part);
            } else if (const auto* button = qobject_cast<QAbstractButton*>(part);
                       button && !button->text().isEmpty()) {
                ++count;
                EXPECT_LE(button->minimumSizeHint().width(), button->width()) << told(*part);
            } else if (const auto* line = dynamic_cast<elided_label*>(part)) {
                ++count;
                EXPECT_EQ(line->is_cut(), !line->toolTip().isEmpty()) << "what is cut stands in the tip";
            }
        }
    EXPECT_GT(count, 60);
}

// The colour behind a part: that of the nearest one that fills itself.
QColor ground_of(const QWidget* part) {
    for (; part != nullptr; part = part->parentWidget())
        if (part->isWindow() || part->autoFillBackground())
            return part->palette().color(part->backgroundRole());
    return {};
}

TEST_P(fit, every_text_reads_easily) {
    show_result();
    std::vector<QWidget*> windows = open_all();
    windows.push_back(&shown.windows.main());
    int count = 0;
    for (QWidget* window : windows)
        for (QWidget* part : window->findChildren<QWidget*>()) {
            if (!part->isVisible() || !part->isEnabled()) continue;
            QColor ink, ground;
            if (qobject_cast<QLabel*>(part) != nullptr || dynamic_cast<elided_label*>(part) != nullptr) {
                ink = part->palette().color(part->foregroundRole());
                ground = ground_of(part);
            } else if (qobject_cast<QLineEdit*>(part) != nullptr ||
                       qobject_cast<QAbstractScrollArea*>(part)) {
                ink = part->palette().color(QPalette::Text);
                ground = part->palette().color(QPalette::Base);
            } else if (qobject_cast<QAbstractButton*>(part) != nullptr) {
                ink = part->palette().color(part->foregroundRole());
                ground = part->palette().color(part->backgroundRole());
            } else {
                continue;
            }
            ++count;
            EXPECT_GE(contrast(ink, ground), readable_contrast) << told(*part);
        }
    EXPECT_GT(count, 80);
}

INSTANTIATE_TEST_SUITE_P(looks, fit, testing::Combine(testing::Bool(), testing::Bool()),
                         [](const auto& each) {
                             return std::string(std::get<0>(each.param) ? "dark" : "light") +
                                    (std::get<1>(each.param) ? "_english" : "");
                         });

}  // namespace
}  // namespace corvane
