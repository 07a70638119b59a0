#include <gtest/gtest.h>

#include "core/text/path_text.h"
#include "names/name_pairs.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

TEST(NameKeys, AFileNameIsTheTextBehindTheLastSeparator) {
    EXPECT_EQ(file_name_of("/d/sub/a.txt", '/'), "a.txt");
    EXPECT_EQ(file_name_of("a.txt", '/'), "a.txt") << "no separator: the whole text";
    EXPECT_EQ(file_name_of("D:\\d\\a.txt", '\\'), "a.txt");
    EXPECT_EQ(file_name_of("/d/back\\slash", '/'), "back\\slash") << "on this disk a letter like any other";
    EXPECT_EQ(file_name_of("/d/", '/'), "");
}

TEST(NameKeys, AnArchiveMemberIsCutLikeAPath) {
    EXPECT_EQ(file_name_of("/d/x.zip*docs/a.txt*1A2B3C4D*7", '/'), "a.txt*1A2B3C4D*7");
    EXPECT_EQ(file_name_of("/d/x.zip*a.txt*1A2B3C4D*7", '/'), "x.zip*a.txt*1A2B3C4D*7");
    EXPECT_EQ(file_name_of("/d/x.rar*docs\\a.txt*1A2B3C4D*7", '/'), "x.rar*docs\\a.txt*1A2B3C4D*7");
    EXPECT_EQ(file_name_of("D:\\x.rar*docs\\a.txt*1A2B3C4D*7", '\\'), "a.txt*1A2B3C4D*7");
}

TEST(NameKeys, TheStricterKeyHoldsTheParentDirectory) {
    EXPECT_EQ(parent_and_file_name_of("D:\\a\\x.txt", '\\'), "a\\x.txt");
    EXPECT_EQ(parent_and_file_name_of("/b/a/x.txt", '/'), "a/x.txt");
    EXPECT_EQ(parent_and_file_name_of("D:\\x.txt", '\\'), "D:\\x.txt") << "one separator: the whole text";
    EXPECT_EQ(parent_and_file_name_of("/x.txt", '/'), "/x.txt");
    EXPECT_EQ(parent_and_file_name_of("x.txt", '/'), "x.txt");
    EXPECT_EQ(parent_and_file_name_of("/a/x.txt", '/'), "a/x.txt") << "the second one stands at the start";
}

TEST(NameKeys, ADirectoryHasItsOwnNameAndARootTheWholePath) {
    EXPECT_EQ(directory_name_of("/d/sub/", '/'), "sub");
    EXPECT_EQ(directory_name_of("/d/", '/'), "d");
    EXPECT_EQ(directory_name_of("/", '/'), "/");
    EXPECT_EQ(directory_name_of("D:\\", '\\'), "D:\\");
    EXPECT_EQ(directory_name_of("D:\\sub\\", '\\'), "sub");
}

TEST(NameKeys, CaseIsFoldedInEveryScriptAndOtherBytesStay) {
    test_program p;
    text_column paths;
    for (const char* path : {"/d/straße.Txt", "/d/ÄÖ", "/d/äö", "/d/привет", "/d/\xff\xfe q", "/d/说明a"})
        paths.push_back(path);
    build_name_keys(p.state, paths, 6, file_name_of, '/');
    const char* expected[] = {"STRAßE.TXT", "ÄÖ", "ÄÖ", "ПРИВЕТ", "\xff\xfe Q", "说明A"};
    for (std::int32_t i = 1; i <= 6; ++i) {
        EXPECT_EQ(p.state.name_key[i], expected[i - 1]);
        EXPECT_EQ(p.state.name_index[i], i);
    }
}

TEST(NameKeys, TheSortKeepsTheOrderOfEqualKeysAndMovesKeyAndIndexTogether) {
    test_program p;
    text_column paths;
    // By the bytes of the keys "A" stands before "B", and "B" before "_" and "中".
    for (const char* path : {"/1/b", "/2/a", "/3/中", "/4/B", "/5/_", "/6/A", "/7/b", "/8/a"})
        paths.push_back(path);
    build_name_keys(p.state, paths, 8, file_name_of, '/');
    sort_name_keys(p.state, 1, 8);
    EXPECT_EQ(p.state.name_index, (column<std::int32_t>{2, 6, 8, 1, 4, 7, 5, 3}));
    EXPECT_EQ(p.state.name_key[1], "A");
    EXPECT_EQ(p.state.name_key[4], "B");
    EXPECT_EQ(p.state.name_key[8], "中");
}

TEST(NameKeys, TheSortTakesARangeAndLeavesTheRest) {
    test_program p;
    text_column paths;
    for (const char* path : {"/d/z", "/d/c", "/d/b", "/d/a"}) paths.push_back(path);
    build_name_keys(p.state, paths, 4, file_name_of, '/');
    sort_name_keys(p.state, 2, 3);
    EXPECT_EQ(p.state.name_index, (column<std::int32_t>{1, 3, 2, 4}));
    sort_name_keys(p.state, 3, 2);
    EXPECT_EQ(p.state.name_index, (column<std::int32_t>{1, 3, 2, 4})) << "an empty range";
}

TEST(NameKeys, TheScanShowsItsStateAtEachStepAndEveryNinthPair) {
    test_program p;
    text_column paths;
    // 1600 files of one name: the step is 3, the pairs are 1598, the last status at 1599, the last ninth pair
    // 1593.
    for (int number = 1000; number < 2600; ++number) paths.push_back(std::to_string(number).append("/n"));
    build_name_keys(p.state, paths, 1600, file_name_of, '/');
    p.form.pic_gressbar1.set_scale(1600);
    EXPECT_TRUE(scan_name_keys(p.form, paths, 1600));
    EXPECT_EQ(p.state.result_count, 1598);
    EXPECT_EQ(p.form.StatusBar1.panel(5), "已检查:1599个文件");
    EXPECT_EQ(p.form.StatusBar1.panel(3), "相同_文件名:1593");
    EXPECT_EQ(p.screen.yields, 0) << "the scan does not yield";
    EXPECT_EQ(p.state.same_pair[1].size(), 1598);
    EXPECT_EQ(p.state.same_pair[1].back(), 1);
    EXPECT_EQ(p.state.same_pair[2].back(), 1599);
}

}  // namespace
}  // namespace corvane
