#include "forms/result_list.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QFont>
#include <QPalette>
#include <QScrollBar>
#include <cmath>

#include "forms/shown_text.h"

namespace corvane {
namespace {

void add_columns(list_view& list) {
    list.add_column({"", 100, text_alignment::left, cell_content::text});
    list.add_column({"序号", 700, text_alignment::right, cell_content::number});
    list.add_column({"重复文件1", 5000, text_alignment::left, cell_content::text});
}

TEST(ResultList, ShowsTextsAlignmentsAndHeaders) {
    list_view list("ListView1");
    add_columns(list);
    list.add_row();
    list.set_number(1, 1, 42);
    list.set_text(1, 2, "/路径/文件");
    result_list view(list, nullptr);
    view.sync(false);
    const QAbstractItemModel& model = *view.model();
    EXPECT_EQ(model.index(0, 1).data().toString(), QStringLiteral("42"));
    EXPECT_EQ(model.index(0, 2).data().toString(), QStringLiteral("/路径/文件"));
    EXPECT_EQ(model.index(0, 2).data(Qt::ToolTipRole).toString(), QStringLiteral("/路径/文件"));
    EXPECT_TRUE(model.index(0, 1).data(Qt::TextAlignmentRole).toInt() & Qt::AlignRight);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("序号"));
    EXPECT_EQ(view.textElideMode(), Qt::ElideMiddle);
}

TEST(ResultList, AMarkedCellIsStruckThroughAsWellAsRed) {
    list_view list("ListView1");
    add_columns(list);
    list.add_row();
    list.set_text(1, 2, "/a");
    list.set_colour(1, 2, cell_colour::mark_red);
    result_list view(list, nullptr);
    view.sync(false);
    const QModelIndex cell = view.model()->index(0, 2);
    EXPECT_TRUE(cell.data(Qt::FontRole).value<QFont>().strikeOut());
    EXPECT_EQ(cell.data(Qt::ForegroundRole).value<QColor>(), QColor(255, 0, 0));
}

// Contrast ratio of two colours by their relative luminance.
double contrast(const QColor& a, const QColor& b) {
    const auto luminance = [](const QColor& colour) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
    };
    const double first = luminance(a) + 0.05, second = luminance(b) + 0.05;
    return std::max(first, second) / std::min(first, second);
}

TEST(ResultList, ColoursReadOnLightAndDarkGround) {
    QPalette light, dark;
    light.setColor(QPalette::Base, Qt::white);
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    for (const std::uint32_t colour :
         {cell_colour::colour_archive, cell_colour::colour_gray, cell_colour::mark_red,
          cell_colour::mark_blue, cell_colour::colour_found}) {
        EXPECT_GT(contrast(cell_text_colour(colour, light), Qt::white), 3.0) << colour;
        EXPECT_GT(contrast(cell_text_colour(colour, dark), QColor(30, 30, 30)), 4.5) << colour;
    }
}

TEST(ResultList, FollowsChangesOfTheModel) {
    list_view list("ListView1");
    add_columns(list);
    result_list view(list, nullptr);
    view.sync(false);
    EXPECT_EQ(view.model()->rowCount(), 0);
    list.add_row();
    view.sync(false);
    EXPECT_EQ(view.model()->rowCount(), 1);
    list.clear_rows();
    view.sync(false);
    EXPECT_EQ(view.model()->rowCount(), 0);
}

TEST(ResultList, AMillionRowsLoadAndScroll) {
    list_view list("ListView1");
    add_columns(list);
    text_column paths;
    list.share_texts(2, paths);
    for (std::int32_t i = 1; i <= 1'000'000; ++i) {
        paths.push_back("/some/directory/file" + std::to_string(i));
        const std::int32_t row = list.add_row();
        list.set_number(row, 1, i);
        list.set_shared_text(row, 2, paths.entry(i));
    }
    result_list view(list, nullptr);
    view.resize(800, 600);
    QElapsedTimer clock;
    clock.start();
    view.show();
    view.sync(false);
    view.grab();
    for (int at = 0; at <= 100; ++at) {
        view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum() / 100 * at);
        view.grab();
    }
    EXPECT_LT(clock.elapsed(), 10'000);
    EXPECT_EQ(view.model()->index(999'999, 2).data().toString(),
              QStringLiteral("/some/directory/file1000000"));
}

TEST(ShownText, ReplacesWhatCannotBeShownAndKeepsTheRest) {
    EXPECT_EQ(shown_text("a\xFF"), QStringLiteral("a\uFFFD"));
    EXPECT_EQ(shown_text("star\xEF\x80\xAA"), QStringLiteral("star*"));
    EXPECT_EQ(shown_text("line\xEF\x80\x8A"), QStringLiteral("line\u240A"));
    EXPECT_EQ(shown_text("文件"), QStringLiteral("文件"));
}

}  // namespace
}  // namespace corvane
