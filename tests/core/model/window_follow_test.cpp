#include "core/model/window_follow.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

struct following : test_program {
    following() {
        form.place = {1000, 1000, 6000, 4000};
        form.add_child(about);
        for (form_model* window : {&tree, &shutdown, &about, &warning}) window->place = {500, 600, 3000, 2000};
        options.place = {500, 600, 3000, 2000};
    }
    void open_all() {
        corvane.directory_window().place = {7100, 1200, 3000, 2500};
        for (form_model* window : form.children()) open_following(form, *window);
    }
    void tick() { form.run("Timer2_Timer"); }

    form_model about{"frmAbout"};
    form_model& shutdown = corvane.sleep_window();
    form_model& warning = corvane.warning_window();
    form_model& options = corvane.options_window();
    form_model& tree = corvane.tree_window();
};

TEST(WindowFollow, MovesByTheMoveAndTheChangeOfWidth) {
    following f;
    f.open_all();
    f.form.place = {1300, 950, 6200, 4500};
    f.tick();
    EXPECT_EQ(f.corvane.directory_window().place, (rectangle{7100 + 300 + 200, 1200 - 50, 3000, 2500}));
    EXPECT_EQ(f.shutdown.place, (rectangle{1000, 550, 3000, 2000}));
    EXPECT_EQ(f.options.place, (rectangle{1000, 550, 3000, 2000}));
    for (const form_model* stays : std::initializer_list<const form_model*>{&f.tree, &f.about, &f.warning})
        EXPECT_EQ(stays->place, (rectangle{500, 600, 3000, 2000})) << stays->name();
    f.tick();
    EXPECT_EQ(f.shutdown.place.left, 1000) << "one move moves once";
}

TEST(WindowFollow, AStoredWordMakesTheOthersFollow) {
    following f;
    f.open_all();
    f.state.treepos_follow = 1;
    f.state.aboutpos_follow = 2;
    f.form.place.left += 100;
    f.tick();
    EXPECT_EQ(f.tree.place.left, 600);
    EXPECT_EQ(f.about.place.left, 500);
    EXPECT_EQ(f.warning.place.left, 500);
}

TEST(WindowFollow, TheWordsAreSetWhenTheirWindowsAreHandled) {
    following f;
    f.tick();
    EXPECT_EQ(f.state.dirpos_follow, 1);
    f.open_all();
    f.tick();
    EXPECT_EQ(f.state.shutpos_follow, 0);
    f.form.place.top += 5;
    f.tick();
    EXPECT_EQ(f.state.shutpos_follow, 1);
    EXPECT_EQ(f.state.optpos_follow, 1);
    EXPECT_EQ(f.state.treepos_follow, 0);
}

TEST(WindowFollow, LeavesWindowsAloneThatAreNotPlacedOrNotNormal) {
    following f;
    open_following(f.form, f.shutdown);
    f.shutdown.window = window_state::minimised;
    f.form.place.left += 100;
    f.tick();
    EXPECT_EQ(f.shutdown.place.left, 500);
    EXPECT_EQ(f.options.place.left, 500);
}

TEST(WindowFollow, TheIntervalIsShortWhileTheFormMovesAndLongAfterOneSecondOfRest) {
    following f;
    EXPECT_EQ(f.form.Timer2.interval, 10);
    EXPECT_FALSE(f.form.Timer2.enabled);
    f.open_all();
    EXPECT_TRUE(f.form.Timer2.enabled);
    f.form.place.left += 100;
    f.tick();
    EXPECT_EQ(f.form.Timer2.interval, 1);
    f.screen.clock += 1;
    f.tick();
    EXPECT_EQ(f.form.Timer2.interval, 1);
    f.screen.clock += 0.5;
    f.tick();
    EXPECT_EQ(f.form.Timer2.interval, 100);
}

TEST(WindowFollow, AMinimisedMainFormMovesNothing) {
    following f;
    f.open_all();
    f.form.window = window_state::minimised;
    f.form.place = {-32000, -32000, 100, 100};
    f.tick();
    EXPECT_EQ(f.shutdown.place.left, 500);
    EXPECT_EQ(f.form.follow.last_left, 1000);
}

TEST(WindowFollow, ATickInsideATickDoesNothing) {
    following f;
    f.open_all();
    for (std::int64_t yield = 1; yield < 10; ++yield)
        f.screen.acts[f.screen.yields + yield] = [&] { f.tick(); };
    f.form.place.left += 100;
    f.tick();
    EXPECT_EQ(f.options.place.left, 600);
    EXPECT_EQ(f.corvane.directory_window().place.left, 7200);
}

TEST(FollowingWindow, OpensAtItsStoredPlace) {
    following f;
    f.state.shutpos_left = 700;
    f.state.shutpos_top = 800;
    f.state.shutpos_width = 4000;
    f.state.shutpos_height = 3000;
    open_following(f.form, f.shutdown);
    EXPECT_EQ(f.shutdown.place, (rectangle{700, 800, 4000, 3000}));
    f.shutdown.place.left = 1;
    open_following(f.form, f.shutdown);
    EXPECT_EQ(f.shutdown.place.left, 1) << "placed once";
    f.shutdown.window = window_state::minimised;
    open_following(f.form, f.shutdown);
    EXPECT_EQ(f.shutdown.place.left, 700);
}

TEST(FollowingWindow, AStoredPlaceOffTheScreenBecomesZero) {
    following f;
    // The screen is 15360 x 11520: a quarter of 4000 must be left of it, a quarter of 3000 above.
    for (const auto& [stored, expected] :
         {std::pair(rectangle{-1, -1, 4000, 3000}, rectangle{0, 0, 4000, 3000}),
          std::pair(rectangle{14361, 10771, 4000, 3000}, rectangle{0, 0, 4000, 3000}),
          std::pair(rectangle{14360, 10770, 4000, 3000}, rectangle{14360, 10770, 4000, 3000})}) {
        f.state.warnpos_left = stored.left;
        f.state.warnpos_top = stored.top;
        f.state.warnpos_width = stored.width;
        f.state.warnpos_height = stored.height;
        f.form.follow.placed = {};
        open_following(f.form, f.warning);
        EXPECT_EQ(f.warning.place, expected);
    }
}

TEST(FollowingWindow, WithoutAStoredSizeStaysWhereItIs) {
    following f;
    f.state.aboutpos_left = 4;
    f.state.aboutpos_width = 1;
    f.state.aboutpos_height = 1;
    open_following(f.form, f.about);
    EXPECT_EQ(f.about.place, (rectangle{500, 600, 3000, 2000}));
}

TEST(FollowingWindow, ClosingTheMainFormStoresThePlacesOfWindowsThatWereOpened) {
    following f;
    f.state.treepos_left = 77;
    f.corvane.directory_window().place = {11, 12, 13, 14};
    open_following(f.form, f.corvane.directory_window());
    open_following(f.form, f.options);
    f.corvane.close();
    EXPECT_EQ(f.state.dirpos_left, 11);
    EXPECT_EQ(f.state.dirpos_height, 14);
    EXPECT_EQ(f.state.optpos_left, 500);
    EXPECT_EQ(f.state.optform_width, 3000);
    EXPECT_EQ(f.state.treepos_left, 77);
    EXPECT_EQ(f.form.follow.placed, (std::array<std::int16_t, 6>{}));
    EXPECT_EQ(f.stored_lines("Tavrel环境.txt")[63], " 11 ");
}

}  // namespace
}  // namespace corvane
