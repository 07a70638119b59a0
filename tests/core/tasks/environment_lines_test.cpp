// What single lines of the settings may hold.
#include "core/settings/environment_table.h"

#include <gtest/gtest.h>

#include "core/tasks/environment.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

constexpr char settings_path[] = "/prog/Tavrel环境.txt";

struct number_case {
    const char* text;
    long long value;
};

TEST(Environment, EachNumericLineTakesTheLeadingNumber) {
    const number_case cases[] = {{"letters", 0},      {"", 0},      {"    ", 0}, {"12abc", 12},
                                 {"   34  ", 34},     {"-5", -5},   {"1.5", 2},  {"2.5", 2},
                                 {"+7", 7},           {"1e2", 100}, {"nan", 0},  {"1e-999", 0},
                                 {" -32768 ", -32768}};
    for (int line = 1; line <= 122; ++line) {
        const char type = settings_line_type(line);
        if (type != 's' && type != 'l') continue;
        for (const number_case& given : cases) {
            settings values;
            EXPECT_TRUE(take_environment_line(values, line, given.text)) << line << given.text;
            EXPECT_EQ(setting_number(values, line), given.value) << line << given.text;
        }
    }
}

TEST(Environment, ANumberTooLargeForItsLineDeletesTheFile) {
    for (int line = 1; line <= 122; ++line) {
        const char type = settings_line_type(line);
        if (type != 's' && type != 'l') continue;
        for (const std::string& number : type == 's'
                                             ? texts{"70000", " 32768 ", "-32769", "1e999"}
                                             : texts{"2147483648", "-2147483649", std::string(400, '9')}) {
            test_program p;
            texts lines = fresh_settings_lines();
            lines[static_cast<std::size_t>(line - 1)] = number;
            p.add_used_folder(lines);
            p.corvane.start();
            EXPECT_FALSE(p.files.has(settings_path)) << line << " " << number;
            EXPECT_TRUE(p.screen.messages.empty());
            settings values;
            EXPECT_TRUE(take_environment_line(values, line, type == 's' ? " 32767 " : " 2147483647 "));
        }
    }
}

TEST(Environment, ADateLineThatIsNoDateDeletesTheFile) {
    for (const char* text :
         {"", "soon", "2024-02-30", "2024-13-01", "2024-1", "2024-1-1x", "99-1-1", "-2024-1-1"}) {
        test_program p;
        texts lines = fresh_settings_lines();
        lines[34] = text;
        p.add_used_folder(lines);
        p.corvane.start();
        EXPECT_FALSE(p.files.has(settings_path)) << text;
    }
}

TEST(Environment, DatesComeBackAsTheyWereWritten) {
    settings values;
    ASSERT_TRUE(take_environment_line(values, 34, "2026/3/4"));
    EXPECT_EQ(values.tree_date_from, 46085);  // 36526 for 2000-01-01, and 9559 days
    EXPECT_EQ(environment_text(values, 34), "2026-03-04");
    ASSERT_TRUE(take_environment_line(values, 34, "1899-12-31"));
    EXPECT_EQ(values.tree_date_from, 1);
    ASSERT_TRUE(take_environment_line(values, 34, "0:00:00"));
    EXPECT_EQ(values.tree_date_from, 0);
}

TEST(Environment, FontSizesOutOfRangeAreMended) {
    for (const auto& [stored, mended] : {std::pair(" 5 ", 9), std::pair(" 80 ", 50), std::pair(" 14 ", 14)}) {
        test_program p;
        texts lines = fresh_settings_lines();
        lines[50] = stored;
        p.add_used_folder(lines);
        p.corvane.start();
        EXPECT_EQ(p.state.list_font_size, mended);
    }
}

TEST(Environment, ThePhraseOfTheActionFollowsItsNumber) {
    const char* const phrases[] = {"关闭程序.",       "关闭程序.",   "关闭所有程序,重启windows.",
                                   "重新启动计算机.", "关闭计算机.", ""};
    for (int action = 0; action <= 5; ++action) {
        test_program p;
        texts lines = fresh_settings_lines();
        lines[43] = std::string(" ").append(std::to_string(action)) += ' ';
        p.add_used_folder(lines);
        p.corvane.start();
        EXPECT_EQ(p.state.shutdown_action_text, phrases[action]);
        EXPECT_EQ(p.state.shut_action, action == 0 ? 1 : action);
    }
}

TEST(Environment, SpareLinesSurviveWhateverTheyHold) {
    test_program p;
    texts lines = fresh_settings_lines();
    lines[93] = "\xFF\xFE\x01";
    lines[94] = std::string(70'000, 'x');
    lines[95] = std::string("a\0b", 3);
    lines[96] = "  中文  ";
    lines[121] = "last";
    p.add_used_folder(lines);
    p.corvane.start();
    p.corvane.close();
    lines[13] = "2026-03-04  05:06:07";
    lines[28] = " 4 ";
    lines[43] = " 1 ";
    lines[50] = " 9 ";
    lines[67] = p.stored_lines("Tavrel环境.txt")[67];
    const texts stored = p.stored_lines("Tavrel环境.txt");
    EXPECT_EQ(texts(stored.begin() + 93, stored.end()), texts(lines.begin() + 93, lines.end()));
    EXPECT_EQ(stored.size(), 122u);
}

TEST(Environment, ALineBreakInASettingDoesNotShiftTheLines) {
    test_program p;
    p.state.find_text = "a\r\nb";
    p.form.run("写Tavrel环境文件");
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt").size(), 122u);
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[19], "a  b");
}

TEST(Environment, ASettingOfOneRunIsNotStored) {
    test_program p;
    std::vector<std::string> lines = fresh_settings_lines();
    lines[10] = " 1 ";
    p.add_used_folder(lines);
    p.corvane.start();
    set_for_this_run(p.state, "same_suffix_only", 0);
    set_for_this_run(p.state, "scan_archives", 1);
    set_for_this_run(p.state, "scan_archives", 0);
    set_for_this_run(p.state, "scan_archives", 1);
    EXPECT_EQ(p.state.same_suffix_only, 0);
    EXPECT_EQ(p.state.scan_archives, 1);
    写Tavrel环境文件(p.form);
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[10], " 1 ");
    EXPECT_EQ(p.stored_lines("Tavrel环境.txt")[54], " 0 ");
    EXPECT_THROW(set_for_this_run(p.state, "no such setting", 1), std::logic_error);
}

}  // namespace
}  // namespace corvane
