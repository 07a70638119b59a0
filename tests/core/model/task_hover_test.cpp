#include "core/model/task_hover.h"

#include <gtest/gtest.h>

#include "core/text/text_format.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

struct hovering : test_program {
    hovering() {
        form.place = {0, 0, 9000, 6000};
        form.pictures[3]->place = {200, 1000, 1500, 600};
        form.pictures[3]->tooltip = "检查内容相同的文件";
        keep_resting_places(form);
        form.hover.tip_char_width = 100;
        form.hover.tip_line_height = 300;
        state.tip_help_on = 1;
    }
    rectangle tip() const { return form.tiptext.place; }
};

TEST(TipBox, CountsBytesOfCodePage936) {
    EXPECT_EQ(code_page_length("abc 1"), 5);
    EXPECT_EQ(code_page_length("中文ab"), 6);
    EXPECT_EQ(code_page_length("€"), 1);
    EXPECT_EQ(code_page_length(""), 0);
}

TEST(TipBox, OfFortyBytesHasOneLineOfFortyOneTwo) {
    hovering h;
    tip_show(h.form, std::string(40, 'x'), {200, 1000, 1500, 600});
    EXPECT_EQ(h.tip(), (rectangle{200, 1610, 4000, 300}));
    h.form.tiptext.visible = false;
    tip_show(h.form, std::string(41, 'x'), {200, 1000, 1500, 600});
    EXPECT_EQ(h.tip(), (rectangle{200, 1610, 4000, 420}));  // 300 * 2 * 0.7
    h.form.tiptext.visible = false;
    // 40 Chinese characters are 80 bytes: two whole lines, no rest.
    std::string words;
    for (int i = 0; i < 40; ++i) words += "字";
    tip_show(h.form, words, {200, 1000, 1500, 600});
    EXPECT_EQ(h.tip().height, 420);
    h.form.tiptext.visible = false;
    tip_show(h.form, words + "x", {200, 1000, 1500, 600});
    EXPECT_EQ(h.tip().height, 630);
}

TEST(TipBox, IsAsWideAsItsText) {
    hovering h;
    tip_show(h.form, "  删除a  ", {200, 1000, 1500, 600});
    EXPECT_EQ(h.tip(), (rectangle{200, 1610, 500, 300}));
    EXPECT_EQ(h.form.tiptext.text, "删除a");
}

TEST(TipBox, OpensAboveWhereThereIsNoRoomBelow) {
    hovering h;
    // Below: 4940 + 600 + 10 = 5550, and 5550 + 450 is not beyond 6000.
    tip_show(h.form, "tip", {200, 4940, 1500, 600});
    EXPECT_EQ(h.tip().top, 5550);
    h.form.tiptext.visible = false;
    tip_show(h.form, "tip", {200, 4941, 1500, 600});
    EXPECT_EQ(h.tip().top, 4941 - 300 - 10);
}

TEST(TipBox, MovesLeftWhereItWouldLeaveTheForm) {
    hovering h;
    tip_show(h.form, std::string(20, 'x'), {8000, 100, 900, 600});
    EXPECT_EQ(h.tip().left, 8000 + 900 - 2000);
}

TEST(TipBox, AnEmptyTextOrTheOneThatIsUpChangesNothing) {
    hovering h;
    tip_show(h.form, "   ", {0, 0, 10, 10});
    EXPECT_FALSE(h.form.tiptext.visible);
    tip_show(h.form, "tip", {0, 0, 10, 10});
    tip_show(h.form, " tip ", {500, 500, 10, 10});
    EXPECT_EQ(h.tip().left, 0);
}

TEST(TaskPicture, LiftsUnderThePointerAndShowsItsTip) {
    hovering h;
    picture_moved(h.form, 3, 5, 5);
    EXPECT_EQ(h.form.pictures[3]->place, (rectangle{210, 1010, 1500, 600}));
    EXPECT_EQ(h.form.hover.captured, "Picture3");
    EXPECT_TRUE(h.form.tiptext.visible);
    EXPECT_EQ(h.form.tiptext.text, "检查内容相同的文件");
    EXPECT_EQ(h.tip().top, 1010 + 600 + 10);
    EXPECT_EQ(h.form.hover.tip_shown, -1);
    picture_moved(h.form, 3, 1501, 5);
    EXPECT_EQ(h.form.pictures[3]->place, (rectangle{200, 1000, 1500, 600}));
    EXPECT_EQ(h.form.hover.captured, "");
    EXPECT_FALSE(h.form.tiptext.visible);
    EXPECT_EQ(h.form.hover.tip_shown, 0);
}

TEST(TaskPicture, ShowsItsTipAgainWhenThePointerComesBack) {
    hovering h;
    for (int time = 0; time < 2; ++time) {
        picture_moved(h.form, 3, 5, 5);
        EXPECT_TRUE(h.form.tiptext.visible);
        picture_moved(h.form, 3, -1, 5);
        EXPECT_FALSE(h.form.tiptext.visible);
    }
}

TEST(TaskPicture, WithoutTooltipsOnlyLifts) {
    hovering h;
    h.state.tip_help_on = 0;
    picture_moved(h.form, 3, 5, 5);
    EXPECT_EQ(h.form.pictures[3]->place.left, 210);
    EXPECT_FALSE(h.form.tiptext.visible);
}

TEST(TaskPicture, SinksUnderAPressAndStaysThereUntilItsRelease) {
    hovering h;
    picture_moved(h.form, 3, 5, 5);
    picture_pressed(h.form, 3);
    EXPECT_EQ(h.form.pictures[3]->place, (rectangle{250, 1050, 1500, 600}));
    EXPECT_EQ(h.form.hover.pic_pressed, 1);
    picture_moved(h.form, 3, -500, 5);
    EXPECT_EQ(h.form.pictures[3]->place.left, 250);
    picture_released(h.form, 3);
    EXPECT_EQ(h.form.pictures[3]->place, (rectangle{200, 1000, 1500, 600}));
    EXPECT_EQ(h.form.hover.pic_pressed, 0);
}

TEST(ChildButton, LightsUpUnderThePointer) {
    hovering h;
    control& button = h.corvane.directory_window().Command34;
    EXPECT_EQ(button.back_colour, static_cast<std::int32_t>(0x8000000F));
    button_moved(h.form, button, true);
    EXPECT_EQ(button.back_colour, 10025880);
    EXPECT_EQ(h.form.hover.captured, "Command34");
    button_moved(h.form, button, false);
    EXPECT_EQ(button.back_colour, static_cast<std::int32_t>(0x8000000F));
    EXPECT_EQ(h.form.hover.captured, "");
}

}  // namespace
}  // namespace corvane
