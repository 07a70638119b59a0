#include <gtest/gtest.h>

#include "core/model/main_menu.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;
using namespace std::string_literals;

struct similar_program : test_program {
    using test_program::test_program;

    texts choose(const std::string& answer) {
        screen.texts.push_back(answer);
        form.run("Command31_Click");
        texts found;
        for (const list_box::row& row : static_cast<list_box&>(*form.find("rela_file_list")).rows())
            found.push_back(row.text);
        return found;
    }
};

TEST(SimilarFiles, SeveralFilesArePartedByNul) {
    similar_program p;
    EXPECT_EQ(p.choose("/my files\0a b.txt\0说明.doc"s), (texts{"/my files/", "a b.txt", "说明.doc"}));
    EXPECT_EQ(p.state.similar_main_file, "/my files/");
}

TEST(SimilarFiles, OrByBlanks) {
    similar_program p('\\');
    EXPECT_EQ(p.choose("C:\\DIR A.TXT B.TXT"), (texts{"C:\\DIR\\", "A.TXT", "B.TXT"}));
}

TEST(SimilarFiles, ATextWithNeitherIsOnePath) {
    similar_program windows('\\');
    EXPECT_EQ(windows.choose("C:\\DIR\\A.TXT"), (texts{"C:\\DIR\\", "A.TXT"}));
    similar_program linux_disk;
    EXPECT_EQ(linux_disk.choose("/d/back\\slash"), (texts{"/d/", "back\\slash"}));
    EXPECT_EQ(linux_disk.choose("/file"), (texts{"/", "file"}));
}

TEST(SimilarFiles, AsksWithItsWordsFromTheDirectoryUsedLast) {
    similar_program p;
    p.state.similar_main_file = "/before/";
    p.choose("/d/a");
    ASSERT_EQ(p.screen.questions.size(), 1u);
    EXPECT_EQ(p.screen.questions[0].title, "选择相似主文件");
    EXPECT_EQ(p.screen.questions[0].prompt, "(*.*)|*.*");
    EXPECT_EQ(p.screen.questions[0].initial, "/before/");
}

TEST(SimilarFiles, ANewChoiceReplacesTheRowsAndADismissedBoxKeepsThem) {
    similar_program p;
    p.choose("/d/a");
    EXPECT_EQ(p.choose("/e/b"), (texts{"/e/", "b"}));
    EXPECT_EQ(p.choose(""), (texts{"/e/", "b"}));
    EXPECT_EQ(p.state.similar_main_file, "/e/");
}

TEST(SimilarFiles, NothingShowsItsControls) {
    similar_program p;
    EXPECT_EQ(p.form.find("Command30")->caption, "查相似文件");
    EXPECT_EQ(p.form.find("Frame3")->caption, "相似性设置");
    EXPECT_EQ(p.form.find("Command31")->caption, "主文件选择");
    EXPECT_EQ(p.form.find("Command32")->caption, "确定");
    for (const char* name : {"Command30", "Frame3", "Command31", "Command32", "rela_file_list"})
        EXPECT_FALSE(p.form.find(name)->visible) << name;
    for (const menu_entry& entry : main_menu()) EXPECT_NE(entry.name, std::string("Command31"));
    EXPECT_FALSE(p.form.has_handler("Command30_Click"));
    EXPECT_FALSE(p.form.has_handler("Command32_Click"));
    p.form.find("Frame3")->visible = true;
    p.form.run("Frame3_DblClick");
    EXPECT_FALSE(p.form.find("Frame3")->visible);
}

}  // namespace
}  // namespace corvane
