// The question before a deletion: what it says, and what an answer that is none does.
#include <gtest/gtest.h>

#include "tests/cleanup/deleting.h"

namespace corvane {
namespace {

using namespace cell_colour;

constexpr auto no = box_answer::no;

TEST(DeleteQuestion, ABoxThatIsDismissedDeletesNothingAndFreesTheTasks) {
    for (const int prompt : {0, 1}) {
        deleting p;
        p.show_files({{10, "/d/a", "/e/a"}});
        p.state.delete_prompt_on = static_cast<std::int16_t>(prompt);
        p.double_click(1, 4);
        p.run_recycle({box_answer::dismissed});
        p.run_recycle({});
        EXPECT_TRUE(p.recycled.empty());
        EXPECT_TRUE(p.files.removed.empty());
        EXPECT_EQ(p.list().colour(1, 4), mark_red);
        EXPECT_TRUE(p.form.pictures[5]->enabled);
        if (prompt == 0) continue;
        // The second question, before what cannot be taken back.
        p.run_recycle({no, box_answer::dismissed});
        EXPECT_TRUE(p.files.removed.empty());
        EXPECT_TRUE(p.form.pictures[5]->enabled);
    }
}

TEST(DeleteQuestion, TheQuestionSaysWhatIsAtStakeAndWhatItsButtonsDo) {
    deleting p;
    p.show_files({{10'000, "/d/a", "/e/a"}, {7'000, "/d/a", "/e/b"}, {800, "/d/c", "/z.zip*in/c"}});
    // The same path twice counts once: 10,000 + 7,000 + 800 bytes are 17.4 KB.
    p.list().set_text(2, 3, "/e/a");
    p.list().set_colour(2, 3, mark_red);
    for (const int row : {1, 2, 3}) p.mark(row, 4);
    p.run_recycle({box_answer::dismissed});
    const message& box = p.screen.messages.front();
    EXPECT_EQ(box.detail, "3 个文件, 17.4 KB; 其中压缩包内 1 个, 不能恢复");
    EXPECT_EQ(box.yes_words, "放入回收站");
    EXPECT_EQ(box.no_words, "直接删除");
    EXPECT_EQ(box.cancel_words, "取消");
    EXPECT_EQ(box.default_answer, box_answer::yes);
    p.state.delete_prompt_on = 1;
    p.run_direct({no});
    const message& second = p.screen.messages.back();
    EXPECT_EQ(second.yes_words, "直接删除");
    EXPECT_EQ(second.no_words, "不删除");
    EXPECT_EQ(second.default_answer, no);
}

}  // namespace
}  // namespace corvane
