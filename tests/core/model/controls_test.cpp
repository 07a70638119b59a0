#include "core/model/controls.h"

#include <gtest/gtest.h>

#include "core/model/list_view.h"
#include "core/model/main_menu.h"
#include "core/tasks/progress.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

TEST(ColourBar, RunsBetweenItsColoursWhicheverCameFirstTheyOrTheScale) {
    colour_bar bar("bar");
    bar.set_colours(0, 0, 0);
    bar.set_scale(4);
    bar.set_colours(0, 0x102030, 0x506070);
    bar.draw(2);
    EXPECT_EQ(bar.fill_colour(), 0x304050);
    bar.draw(4);
    EXPECT_EQ(bar.fill_colour(), 0x506070);
}

TEST(ColourBar, RunsFromTheStartColourIntoTheEndColour) {
    colour_bar bar("bar");
    bar.set_colours(0xC0C0C0, 0x400040, 0x0000FF);
    bar.set_scale(4);
    bar.draw(0);
    EXPECT_EQ(bar.fill_colour(), 0x400040);
    bar.draw(4);
    EXPECT_EQ(bar.fill_colour(), 0x0000FF);
    EXPECT_EQ(bar.filled(), 1.0);
    bar.draw(2);
    // Red 64 + 191 / 2 = 159.5 cut to 159, blue 64 - 32 = 32.
    EXPECT_EQ(bar.fill_colour(), 0x20009F);
    EXPECT_EQ(bar.filled(), 0.5);
}

TEST(ColourBar, AComponentThatRunsOutOfRangeJumpsToZero) {
    colour_bar bar("bar");
    bar.set_colours(0, 0, 0xFF);
    bar.set_scale(10);
    bar.draw(11);
    EXPECT_EQ(bar.fill_colour(), 0);
}

TEST(ColourBar, ATotalBelowOneOnlyClears) {
    colour_bar bar("bar");
    bar.set_colours(0, 0, 0xFF);
    bar.set_scale(10);
    bar.draw(5);
    bar.set_scale(0);
    EXPECT_EQ(bar.filled(), 0);
    EXPECT_EQ(bar.total(), 0);
}

TEST(LockTasks, DisablesTheTasksAndUnlockEnablesThemAgain) {
    test_program p;
    lock_tasks(p.form);
    for (std::size_t number = 1; number <= 8; ++number) EXPECT_FALSE(p.form.pictures[number]->enabled);
    EXPECT_FALSE(p.form.find("文件操作_m")->enabled);
    EXPECT_FALSE(p.form.find("目录操作_m")->enabled);
    EXPECT_FALSE(p.form.find("文件清单_M")->enabled);
    unlock_tasks(p.form);
    for (std::size_t number = 1; number <= 4; ++number) EXPECT_TRUE(p.form.pictures[number]->enabled);
    EXPECT_TRUE(p.form.find("文件操作_m")->enabled);
    EXPECT_TRUE(p.form.find("目录操作_m")->enabled);
}

TEST(TaskTable, PictureLabelAndMenuRunOneEntry) {
    test_program p;
    for (const char* way : {"Picture2_Click", "Label3(1)_Click", "目录搜索_M"}) {
        p.screen.messages.clear();
        EXPECT_TRUE(p.form.run(way)) << way;
        EXPECT_EQ(p.last_message(), "请选择要清理的目录") << way;
    }
}

TEST(TaskTable, EntriesWhoseTaskIsMissingAreDisabled) {
    test_program p;
    Tavrel bare(p.form.outside, "/bare/");
    wire_tasks(bare);
    EXPECT_FALSE(bare.find("del_dir")->enabled);
    EXPECT_FALSE(bare.run("del_dir"));
    EXPECT_TRUE(p.form.find("目录搜索_M")->enabled);
}

TEST(PointerGlide, GoesInFortyStepsOfAHundredthAndEndsOnTheCentre) {
    test_program p;
    p.screen.pointer_place = screen_point{0, 0};
    pointer_glide(p.form, "Tavrel", "Picture3");
    ASSERT_EQ(p.screen.pointer_path.size(), 41u);
    EXPECT_EQ(p.screen.pointer_path[19].x, 200);
    EXPECT_EQ(p.screen.pointer_path[19].y, 40);
    EXPECT_EQ(p.screen.pointer_path.back().x, 400);
    EXPECT_NEAR(p.screen.waited, 0.4, 1e-9);
}

TEST(PointerGlide, DoesNothingWithoutAPointer) {
    test_program p;
    pointer_glide(p.form, "Tavrel", "Picture3");
    EXPECT_TRUE(p.screen.pointer_path.empty());
}

TEST(ListBox, CheckMarkAndSelectionAreTwoThings) {
    list_box list("list");
    list.add_checked("a", true);
    list.add("b");
    const std::uint64_t before = list.revision();
    list.check(1, true);
    list.select(0, true);
    EXPECT_EQ(list.revision(), before + 2);
    EXPECT_TRUE(list.rows()[0].checked && list.rows()[0].selected);
    EXPECT_TRUE(list.rows()[1].checked && !list.rows()[1].selected);
    list.check(0, false);
    EXPECT_TRUE(list.rows()[0].selected && !list.rows()[0].checked);
}

TEST(ListView, HoldsTextsNumbersAndColours) {
    list_view list("list");
    list.add_column({"", 100, text_alignment::left, cell_content::text});
    list.add_column({"n", 100, text_alignment::right, cell_content::number});
    list.add_column({"t", 100, text_alignment::left, cell_content::text});
    EXPECT_EQ(list.add_row(), 1);
    list.set_number(1, 1, 4'000'000'000);
    list.set_text(1, 2, "路径");
    list.set_colour(1, 2, cell_colour::mark_red);
    EXPECT_EQ(list.add_row(), 2);
    EXPECT_EQ(list.cell(1, 1), "4000000000");
    EXPECT_EQ(list.cell(1, 2), "路径");
    EXPECT_EQ(list.colour(1, 2), 255u);
    EXPECT_EQ(list.colour(2, 2), 0u);
    EXPECT_EQ(list.cell(2, 2), "");
    list.clear_rows();
    EXPECT_EQ(list.row_count(), 0);
    EXPECT_EQ(list.column_count(), 3);
}

TEST(ListView, CountsTheRedCellsThatHoldAText) {
    list_view list("list");
    for (const char* header : {"", "one", "two"})
        list.add_column({header, 100, text_alignment::left, cell_content::text});
    for (int row = 1; row <= 3; ++row) {
        list.add_row();
        list.set_text(row, 1, "a");
        list.set_text(row, 2, "b");
    }
    EXPECT_EQ(list.marked_cells(), 0);
    list.set_colour(1, 1, cell_colour::mark_red);
    list.set_colour(1, 1, cell_colour::mark_red);
    list.set_colour(3, 2, cell_colour::mark_red);
    list.set_colour(2, 1, cell_colour::mark_blue);
    EXPECT_EQ(list.marked_cells(), 2);
    list.reorder({3, 2, 1});
    EXPECT_EQ(list.marked_cells(), 2);
    list.set_text(1, 2, "");
    EXPECT_EQ(list.marked_cells(), 1) << "a blank cell is nothing to delete";
    list.set_text(1, 2, "c");
    EXPECT_EQ(list.marked_cells(), 2);
    list.set_colour(1, 2, cell_colour::colour_text);
    EXPECT_EQ(list.marked_cells(), 1);
    const std::uint64_t filled = list.fill_revision();
    list.clear_rows();
    EXPECT_EQ(list.marked_cells(), 0);
    EXPECT_NE(list.fill_revision(), filled);
}

TEST(ListView, AMarkThatComesWhileAnOrderIsGatheredMovesWithItsRow) {
    list_view list("list");
    list.add_column({"", 100, text_alignment::left, cell_content::text});
    list.add_column({"length", 100, text_alignment::right, cell_content::number});
    list.add_column({"path", 100, text_alignment::left, cell_content::text});
    for (int row = 1; row <= 3; ++row) {
        list.add_row();
        list.set_number(row, 1, 10 * std::int64_t{row});
        list.set_text(row, 2, std::string(1, static_cast<char>('a' + row - 1)));
    }
    list.selected_row = 2;
    list_view::gathered_rows rows = list.gather({3, 1, 2});
    list.set_colour(1, 2, cell_colour::mark_red);
    const list_revisions before = list.revisions();
    list.take_over(std::move(rows));
    EXPECT_NE(list.revisions().order, before.order);
    EXPECT_EQ(list.revisions().fill, before.fill);
    EXPECT_EQ(list.cell(1, 2) + list.cell(2, 2) + list.cell(3, 2), "cab");
    EXPECT_EQ(list.number_cell(1, 1), 30);
    EXPECT_EQ(list.colour(2, 2), cell_colour::mark_red);
    EXPECT_EQ(list.colour(1, 2), cell_colour::colour_text);
    EXPECT_EQ(list.selected_row, 3);
    list.set_colours(2, {cell_colour::mark_red, cell_colour::colour_gray, cell_colour::mark_red});
    EXPECT_EQ(list.marked_cells(), 2);
    list.set_colours(2, std::vector<std::uint32_t>(3, cell_colour::colour_text));
    EXPECT_EQ(list.marked_cells(), 0);
    EXPECT_EQ(list.colour(2, 2), cell_colour::colour_text);
}

}  // namespace
}  // namespace corvane
