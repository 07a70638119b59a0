#include "core/model/main_layout.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

// The screen of the test is 15360 x 11520 twips.
struct laid_out : test_program {
    laid_out() {
        form.place = {100, 200, 9000, 7000};
        form.layout.inner_width = 8800;
        form.layout.inner_height = 6500;
        form.StatusBar1.place = {0, 6200, 8800, 300};
        form.listleft.place = {1600, 50, 2000, 100};
        form.pic_gressbar1.place.height = 240;
        form.Command28.place = {0, 0, 1800, 400};
    }
};

TEST(FormResize, KeepsTheFormOnTheScreen) {
    laid_out f;
    f.form.place = {-5, -300, 20000, 12000};
    Form_Resize(f.form);
    EXPECT_EQ(f.form.place, (rectangle{1, 1, 15360, 11520 - 300}));
    f.form.place = {0, 0, 15360, 11220};
    Form_Resize(f.form);
    EXPECT_EQ(f.form.place, (rectangle{0, 0, 15360, 11220}));
}

TEST(FormResize, LeavesAMaximisedFormToTheSystem) {
    laid_out f;
    f.form.window = window_state::maximised;
    f.form.place = {-5, -5, 20000, 12000};
    Form_Resize(f.form);
    EXPECT_EQ(f.form.place, (rectangle{-5, -5, 20000, 12000}));
}

TEST(FormResize, SharesOutTheInside) {
    laid_out f;
    Form_Resize(f.form);
    const rectangle list{1600, 50, 8750, 6500 - 50 - 300 + 80};
    EXPECT_EQ(f.form.listleft.place, list);
    EXPECT_EQ(f.form.RichTextBox2.place, list);
    EXPECT_EQ(f.form.pic_gressbar1.place, (rectangle{1600, 6200 - 240 + 50, 8700, 240}));
    EXPECT_EQ(f.form.Command28.place,
              (rectangle{1600 + 8750 - 1800, 50 + 6230 - 240 - 400 - 100, 1800, 400}));
    EXPECT_EQ(f.form.ListView1.place.height, 6230);
    EXPECT_EQ(f.form.ListView1.place.left + f.form.ListView1.place.width, 8800);
}

TEST(Splitter, StandsAtTheRightEdgeOfTheLeftListAfterStart) {
    laid_out f;
    lay_out_halves(f.form);
    EXPECT_EQ(f.form.Splitter.place.left, 3600);
    EXPECT_EQ(f.form.Splitter.place.width, 5);
    EXPECT_EQ(f.form.Splitter.back_colour, 0x808080);
    EXPECT_EQ(f.form.ListView1.place.left, 3605);
}

TEST(Splitter, MovesByThePointersDifferenceAndSetsBothHalvesOnRelease) {
    laid_out f;
    lay_out_halves(f.form);
    Splitter_MouseMove(f.form, 5000);
    EXPECT_EQ(f.form.Splitter.place.left, 3600) << "no drag is running";
    Splitter_MouseDown(f.form, 3602);
    Splitter_MouseMove(f.form, 3702);
    Splitter_MouseMove(f.form, 4102);
    EXPECT_EQ(f.form.Splitter.place.left, 4100);
    EXPECT_EQ(f.form.listleft.place.width, 2000) << "until the release";
    Splitter_MouseUp(f.form);
    EXPECT_EQ(f.form.listleft.place.width, 2500);
    EXPECT_EQ(f.form.ListView1.place.left, 4105);
    EXPECT_EQ(f.form.ListView1.place.width, 8800 - 4105);
    EXPECT_EQ(f.form.layout.split_last_x, 0x7FFFFFFF);
    Splitter_MouseMove(f.form, 100);
    EXPECT_EQ(f.form.Splitter.place.left, 4100);
}

}  // namespace
}  // namespace corvane
