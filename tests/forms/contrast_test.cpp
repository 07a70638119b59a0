// Texts read easily: at least 4.5 by the Web Content Accessibility Guidelines, in the light and the dark
// palette.
#include <gtest/gtest.h>

#include <QImage>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <cmath>

#include "core/model/list_view.h"
#include "forms/colours.h"
#include "forms/list_box_view.h"
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
