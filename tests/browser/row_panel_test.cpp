#include "browser/row_panel.h"

#include <gtest/gtest.h>

#include "tests/browser/stored_rows.h"

namespace corvane {
namespace {

TEST(RowPanel, ShowsBothPathsWithDateAndLength) {
    test_program p;
    // 1970-01-01 01:02:03 UTC in 100 ns since 1601.
    const std::uint64_t ticks = (11'644'473'600ull + 3723) * 10'000'000;
    for (const char* path : {"/d/a", "/d/long"}) {
        memory_file& file = p.files.add_file(path, "12345");
        file.date_high = static_cast<std::int32_t>(ticks >> 32);
        file.date_low = static_cast<std::int32_t>(static_cast<std::uint32_t>(ticks));
    }
    store(p, {{5, "/d/a", "/d/long"}});
    p.form.run("Picture4_Click");
    show_row_panel(p.form, 1);
    EXPECT_TRUE(p.form.Frame4.visible);
    EXPECT_EQ(p.form.Frame4.caption, "显示第 1 条");
    EXPECT_EQ(p.form.samefile_disp1.text, "/d/a       1899-12-30 1:2:3\t5");
    EXPECT_EQ(p.form.samefile_disp2.text, "/d/long    1899-12-30 1:2:3\t5");
}

TEST(RowPanel, DatesStandBelowEachOtherWhateverTheLettersTakeInBytes) {
    test_program p;
    for (const char* path : {"/照片/海边", "/backup/x"}) p.files.add_file(path, "12345");
    store(p, {{5, "/backup/x", "/照片/海边"}});
    p.form.run("Picture4_Click");
    show_row_panel(p.form, 1);
    // Nine columns against ten.
    EXPECT_EQ(p.form.samefile_disp1.text.substr(0, 14), "/backup/x     ");
    const std::string& second = p.form.samefile_disp2.text;
    const std::string path = "/照片/海边";
    ASSERT_EQ(second.substr(0, path.size()), path);
    EXPECT_EQ(second.substr(path.size(), 4), "    ");
    EXPECT_EQ(p.form.samefile_disp1.text.substr(14), second.substr(path.size() + 4));
}

TEST(RowPanel, AMemberTakesItsLengthFromTheRowAndHasNoDate) {
    test_program p;
    p.files.add_file("/d/a", "12345");
    store(p, {{5, "/d/a", "/d/z.zip*m"}});
    p.form.run("Picture4_Click");
    show_row_panel(p.form, 1);
    EXPECT_EQ(p.form.samefile_disp2.text, "/d/z.zip*m    \t5");
}

TEST(RowPanel, AVanishedFileShowsItsPathAlone) {
    test_program p;
    p.state.same_fresh_flag = -1;
    store(p, {{5, "/gone", "/gone2"}});
    p.form.run("Picture4_Click");
    show_row_panel(p.form, 1);
    EXPECT_EQ(p.form.samefile_disp1.text, "/gone     \t");
    show_row_panel(p.form, 2);  // no such row
    EXPECT_EQ(p.form.Frame4.caption, "显示第 1 条");
}

}  // namespace
}  // namespace corvane
