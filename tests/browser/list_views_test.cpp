// The table of views: what must hold of every row, whatever it says.
#include "browser/list_views.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

TEST(ListViews, StandInTheOrderOfTheirMode) {
    std::int16_t mode = 0;
    for (const list_view_row& view : list_views()) EXPECT_EQ(view.list_mode, mode++);
    EXPECT_EQ(mode, 5);
}

TEST(ListViews, EveryColumnThatARowNamesIsThere) {
    for (const list_view_row& view : list_views()) {
        const int count = static_cast<int>(view.columns.size());
        for (const int column : {view.first_path, view.second_path, view.length_column, view.property_column,
                                 view.right_opens_column})
            EXPECT_LT(column, count) << view.list_mode;
        for (const int path : {view.first_path, view.second_path}) {
            if (path == 0) continue;
            EXPECT_EQ(view.columns[static_cast<std::size_t>(path)].content, cell_content::text);
            EXPECT_EQ(view.columns[static_cast<std::size_t>(path)].width, view_column::shared_width);
        }
        if (view.length_column != 0) {
            EXPECT_EQ(view.columns[static_cast<std::size_t>(view.length_column)].content,
                      cell_content::number);
        }
        EXPECT_EQ(view.marks == mark_rule::pairs, view.holds_copies) << view.list_mode;
    }
}

TEST(ListViews, EveryMenuEntryExists) {
    test_program p;
    for (const list_view_row& view : list_views())
        for (const auto& entries : {view.menu_on, view.menu_off, view.left_off})
            for (const char* entry : entries) EXPECT_NE(p.form.find(entry), nullptr) << entry;
}

TEST(ListViews, PathColumnsShareWhatTheOthersLeave) {
    // Widths by hand for a list of 12,000 twips.
    const std::vector<std::vector<int>> at_once = {{100, 700, 900, 4950, 4950},
                                                   {100, 700, 11000},
                                                   {100, 700, 1000, 2100, 8050},
                                                   {100, 700, 2000, 4400, 4400},
                                                   {100, 700, 5400, 5400}};
    const std::vector<int> path_after_layout = {4950, 11000, 7950, 4400, 5400};
    test_program p;
    list_view& list = p.form.ListView1;
    list.place.width = 12000;
    for (const list_view_row& view : list_views()) {
        const auto mode = static_cast<std::size_t>(view.list_mode);
        set_columns(list, view);
        std::vector<int> widths;
        for (const list_column& column : list.columns()) widths.push_back(column.width);
        EXPECT_EQ(widths, at_once[mode]) << mode;
        p.state.list_mode = view.list_mode;
        layout_list(p.form);
        EXPECT_EQ(list.columns()[static_cast<std::size_t>(view.first_path)].width, path_after_layout[mode])
            << mode;
    }
}

}  // namespace
}  // namespace corvane
