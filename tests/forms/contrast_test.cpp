// Texts read easily: at least 4.5 by the Web Content Accessibility Guidelines, in the light and the dark
// palette.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <cmath>

#include "core/model/list_view.h"
#include "forms/colours.h"
#include "forms/list_box_view.h"
#include "forms/list_model.h"
#include "forms/list_table.h"
#include "forms/main_window.h"
#include "tests/forms/forms_program.h"

namespace corvane {
namespace {

// By the guidelines, written down a second time.
double measured(const QColor& a, const QColor& b) {
    const auto light = [](const QColor& colour) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
    };
    const double high = std::max(light(a), light(b)), low = std::min(light(a), light(b));
    return (high + 0.05) / (low + 0.05);
}

class readable : public testing::TestWithParam<bool> {
  protected:
    const QPalette palette_ = GetParam() ? dark_palette() : light_palette();
};

// The two ends of the scale, and a gray that the guidelines name as just enough on white.
TEST(contrast, is_that_of_the_guidelines) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(contrast(Qt::white, Qt::white), 1, 1e-9);
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST_P(readable, words_of_every_colour_in_every_row_of_the_list) {
    using namespace cell_colour;
    for (const std::uint32_t cell :
         {colour_text, window_text, colour_archive, colour_gray, mark_red, mark_blue, colour_found})
        for (const bool selected : {false, true})
            for (const bool second : {false, true}) {
                const QColor background = row_background(palette_, selected, second);
                const QColor words = readable_on(cell_text_colour(cell, palette_), background);
                EXPECT_GE(measured(words, background), 4.5) << cell << selected << second;
            }
}

// Also in a selected row that the keys do not go to, and of what both paths begin with.
TEST_P(readable, a_path_and_its_weaker_root_in_a_selected_row) {
    using namespace cell_colour;
    QApplication::setPalette(palette_);
    {
        forms_program shown;
        shown.show_pairs(8);
        list_view& rows = shown.form.ListView1;
        const std::uint32_t cells[] = {colour_text, colour_archive, colour_gray,
                                       mark_red,    mark_blue,      colour_found};
        for (std::int32_t row = 1; row <= 6; ++row) rows.set_colour(row, 3, cells[row - 1]);
        list_table& table = shown.windows.main().list();
        for (std::int32_t selected = 1; selected <= 6; ++selected)
            for (const bool keys : {true, false}) {
                rows.selected_row = selected;
                shown.windows.sync();
                (keys ? static_cast<QWidget*>(&table) : shown.widget("Picture1"))
                    ->setFocus(Qt::OtherFocusReason);
                const QColor ground = row_background(
                    palette_, true, shown.windows.main().list().cells().bands.is_second(selected),
                    table.hasFocus());
                const QColor ink = readable_on(cell_text_colour(cells[selected - 1], palette_), ground);
                EXPECT_GE(measured(readable_on(blend(ground, ink, 0.62), ground), ground), 4.5)
                    << selected << keys;
                EXPECT_GE(measured(ink, ground), 4.5) << selected << keys;
            }
    }
    QApplication::setPalette(light_palette());
}

// Blue and found have a sign beside their colour, as red has: the pixels differ also without it.
TEST_P(readable, red_blue_and_found_are_told_apart_without_colours) {
    using namespace cell_colour;
    QApplication::setPalette(palette_);
    {
        forms_program shown;
        shown.show_pairs(4);
        list_table& table = shown.windows.main().list();
        const auto painted = [&](std::uint32_t colour) {
            shown.form.ListView1.set_colour(3, 3, colour);
            shown.windows.sync();
            const QRect cell = table.visualRect(table.model()->index(2, 3));
            QImage image = table.viewport()->grab(cell).toImage().convertToFormat(QImage::Format_Grayscale8);
            const int ground = qGray(image.pixel(image.width() - 1, 1));
            std::vector<bool> ink;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width() / 2; ++x)
                    ink.push_back(std::abs(qGray(image.pixel(x, y)) - ground) > 60);
            return ink;
        };
        const auto apart = [](const std::vector<bool>& a, const std::vector<bool>& b) {
            int count = 0;
            for (std::size_t i = 0; i < a.size(); ++i) count += a[i] != b[i];
            return count;
        };
        const auto plain = painted(colour_text), red = painted(mark_red), blue = painted(mark_blue),
                   found = painted(colour_found);
        for (const auto* mark : {&red, &blue, &found}) EXPECT_GT(apart(plain, *mark), 60);
        EXPECT_GT(apart(red, blue), 60);
        EXPECT_GT(apart(red, found), 60);
        EXPECT_GT(apart(blue, found), 60);
    }
    QApplication::setPalette(light_palette());
}

TEST_P(readable, the_colours_of_the_list_stay_apart) {
    using namespace cell_colour;
    const std::uint32_t cells[] = {colour_text, colour_archive, colour_gray,
                                   mark_red,    mark_blue,      colour_found};
    for (const bool selected : {false, true}) {
        const QColor background = row_background(palette_, selected, false);
        std::vector<QColor> words;
        for (const std::uint32_t cell : cells)
            words.push_back(readable_on(cell_text_colour(cell, palette_), background));
        for (std::size_t a = 0; a < words.size(); ++a)
            for (std::size_t b = a + 1; b < words.size(); ++b) {
                const int apart = std::abs(words[a].red() - words[b].red()) +
                                  std::abs(words[a].green() - words[b].green()) +
                                  std::abs(words[a].blue() - words[b].blue());
                EXPECT_GT(apart, 60) << cells[a] << " and " << cells[b];
            }
    }
}

TEST_P(readable, words_of_the_windows) {
    const QColor window = palette_.color(QPalette::Window);
    EXPECT_GE(measured(palette_.color(QPalette::WindowText), window), 4.5);
    EXPECT_GE(measured(palette_.color(QPalette::ButtonText), palette_.color(QPalette::Button)), 4.5);
    EXPECT_GE(measured(palette_.color(QPalette::Text), palette_.color(QPalette::Base)), 4.5);
    EXPECT_GE(measured(palette_.color(QPalette::ToolTipText), palette_.color(QPalette::ToolTipBase)), 4.5);
    EXPECT_GE(measured(quiet_text(palette_), window), 4.5);
    EXPECT_GE(measured(quiet_text(palette_), palette_.color(QPalette::Base)), 4.5);
    EXPECT_GE(measured(accent(palette_), window), 4.5);
}

// What is no text needs 3.
TEST_P(readable, the_frame_of_a_check_mark_in_a_list) {
    list_box box("rows");
    box.add({"/d"});
    list_box_view list(box, nullptr, true);
    list.setPalette(palette_);
    list.sync();
    list.resize(200, 60);
    const QImage shown = list.grab().toImage();
    QStyleOptionViewItem option;
    const QRect row = list.visualRect(list.model()->index(0, 0)).translated(list.viewport()->pos());
    const int mark = list.style()->pixelMetric(QStyle::PM_IndicatorWidth, &option, &list);
    double most = 0;
    for (int x = row.left(); x < row.left() + mark; ++x)
        most =
            std::max(most, measured(shown.pixelColor(x, row.center().y()), palette_.color(QPalette::Base)));
    EXPECT_GE(most, GetParam() ? 3 : 1.5) << "a light palette leaves it to the style";
}

INSTANTIATE_TEST_SUITE_P(palettes, readable, testing::Bool(),
                         [](const auto& each) { return each.param ? "dark" : "light"; });

}  // namespace
}  // namespace corvane
