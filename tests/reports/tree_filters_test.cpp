// What the tree leaves out: bounds, types, the hidden attribute; and settings that are wrong.
#include "tests/reports/tree_program.h"

namespace corvane {
namespace {

TEST(TreeFilters, LengthBoundsAreExclusive) {
    tree p;
    for (const std::int64_t bytes : {2047, 2048, 2049, 4095, 4096, 4097})
        p.add("/" + std::to_string(bytes), bytes);
    p.list({"/2047", "/2048", "/2049", "/4095", "/4096", "/4097"});
    p.open();
    p.check("Check5");
    p.set("Text3", "2");
    p.set("Text4", "4");
    EXPECT_EQ(p.written(), (texts{"2049", "4095"}));
}

TEST(TreeFilters, LengthBoundsBeyondTwoGibibytesAreExact) {
    tree p;
    p.add("/small", 5);
    p.add("/big", (std::int64_t{3} << 30) + 1);
    p.list({"/big", "/small"});
    p.open();
    p.check("Check5");
    p.set("Text3", "3145728");
    p.set("Text4", "2147483647");
    EXPECT_EQ(p.written(), texts{"big"});
}

TEST(TreeFilters, DateBoundsAreExclusive) {
    tree p;
    p.list_files({"/midnight", "/morning"});
    p.written_at("/midnight", 86400);
    p.written_at("/morning", 86400 + 1);
    p.open();
    p.check("Check6");
    p.set("Text5", day);  // the day of both
    p.set("Text6", "1899-12-31");
    EXPECT_EQ(p.written(), texts{"morning"});
}

TEST(TreeFilters, OnlyTypesAreExactAlsoInCase) {
    tree p;
    p.list_files({"/PHOTO.JPG", "/a.jpg", "/b.jpg.txt", "/c.xjpg", "/jpg", "/none"});
    p.open();
    p.set("Text7", "jpg,png");
    EXPECT_EQ(p.written(), texts{"a.jpg"});
    p.set("Text7", "");
    p.set("Text8", "jpg,txt");
    EXPECT_EQ(p.written(), (texts{"PHOTO.JPG", "c.xjpg", "jpg", "none"}));
}

TEST(TreeFilters, TypesLeftOutDoNotCountBesideOnlyTypes) {
    tree p;
    p.list_files({"/a.jpg", "/b.txt"});
    p.open();
    p.set("Text7", "jpg");
    p.set("Text8", "jpg");
    EXPECT_EQ(p.written(), texts{"a.jpg"});
}

TEST(TreeFilters, AnEmptyTypeIsThatOfANameWithoutADot) {
    tree p;
    p.list_files({"/a.jpg", "/b", "/c.", "/d.txt"});
    p.open();
    p.set("Text7", "jpg,");
    EXPECT_EQ(p.written(), (texts{"a.jpg", "b", "c."}));
}

TEST(TreeFilters, HiddenAndNormalFilesAreToldApartOnlyWhereTheBoxesDiffer) {
    tree p;
    p.list_files({"/hidden", "/plain"});
    p.files.add_file("/hidden", "1").hidden = true;
    p.open();
    EXPECT_EQ(p.written(), (texts{"hidden", "plain"}));
    p.check("Check3");
    EXPECT_EQ(p.written(), texts{"plain"});
    p.check("Check4");
    EXPECT_EQ(p.written(), (texts{"hidden", "plain"}));
    p.check("Check3", 0);
    EXPECT_EQ(p.written(), texts{"hidden"});
}

TEST(TreeFilters, WrongBoundsAreToldWithTheirFigures) {
    tree p;
    p.list_files({"/a"});
    p.open();
    p.check("Check5");
    p.set("Text3", "7");
    p.set("Text4", "7");
    p.form.run("tree_dir.Command1_Click");
    EXPECT_EQ(p.messages(), texts{"提示|文件长度设置有误,左边长度7应小于右边长度7 ,请重新设置"});
    p.check("Check5", 0);
    p.check("Check6");
    p.screen.messages.clear();
    for (const auto& [from, to] :
         {std::pair("2026-03-04", "2026-03-04"), std::pair("2026-03-05", "2026-03-04"),
          std::pair("no date", "2026-03-04")}) {
        p.set("Text5", from);
        p.set("Text6", to);
        p.form.run("tree_dir.Command1_Click");
        EXPECT_EQ(p.last_message(),
                  "文件日期设置有误,左边" + std::string(from) + "应小于右边" + to + " ,请重新设置");
    }
    EXPECT_FALSE(p.files.has("/prog/tree_file_list.txt"));
    EXPECT_FALSE(p.form.task_runs());
}

TEST(TreeFilters, EveryControlGoesIntoItsSetting) {
    tree p;
    p.list_files({"/a"});
    p.open();
    p.set("Text1", "70000");
    p.set("Text3", "5");
    p.set("Text4", "6");
    p.set("Text5", "2026/3/4");
    p.set("Text6", "2026-03-05");
    p.set("Text7", "a,b");
    p.set("Text8", "c");
    for (const char* box : {"Check1", "Check3", "Check4", "Check6", "Option1(1)"}) p.check(box);
    p.form.run("tree_dir.Command1_Click");
    const run_state& s = p.state;
    EXPECT_EQ(s.tree_levels, 32767);
    EXPECT_EQ(std::vector<int>({s.tree_min_kb, s.tree_max_kb}), std::vector<int>({5, 6}));
    EXPECT_EQ(s.tree_date_to - s.tree_date_from, 1);
    EXPECT_EQ(s.tree_only_types + "|" + s.tree_not_types, "a,b|c");
    EXPECT_EQ(std::vector<int>({s.tree_show_length, s.tree_show_date, s.tree_show_normal, s.tree_show_hidden,
                                s.tree_length_filter, s.tree_date_filter, s.tree_format}),
              std::vector<int>({1, 0, 1, 1, 0, 1, 1}));
}

}  // namespace
}  // namespace corvane
