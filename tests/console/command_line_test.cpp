#include <gtest/gtest.h>

#include <set>

#include "console/option_table.h"
#include "console/option_texts.h"

namespace corvane {
namespace {

struct reading {
    command_line read;
    std::string wrong;
};

reading read(std::vector<const char*> arguments) {
    reading result;
    result.wrong = read_command_line(arguments, result.read);
    return result;
}

TEST(CommandLine, DirectoriesAndDefaults) {
    const reading r = read({"a", "b"});
    EXPECT_EQ(r.wrong, "");
    EXPECT_EQ(r.read.directories, (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(r.read.format, "pairs");
    EXPECT_FALSE(r.read.script);
}

TEST(CommandLine, AValueStandsBehindABlankOrAnEqualsSign) {
    for (const auto& arguments : {std::vector<const char*>{"--format", "json", "d"}, {"--format=json", "d"}})
        EXPECT_EQ(read(arguments).read.format, "json");
    EXPECT_EQ(read({"--exclude=a=b", "d"}).read.excluded, std::vector<std::string>{"a=b"});
    // What looks like an option is a value where one is due.
    EXPECT_EQ(read({"--exclude", "--quiet", "d"}).read.excluded, std::vector<std::string>{"--quiet"});
}

TEST(CommandLine, OptionsMayFollowDirectoriesUntilTwoDashes) {
    const reading r = read({"a", "--quiet", "--", "--progress"});
    EXPECT_EQ(r.wrong, "");
    EXPECT_TRUE(r.read.quiet);
    EXPECT_FALSE(r.read.progress);
    EXPECT_EQ(r.read.directories, (std::vector<std::string>{"a", "--progress"}));
}

TEST(CommandLine, TypesAreSuffixesWithTheirDots) {
    EXPECT_EQ(read({"--types", ".jpg,png,C", "--types=.x", "d"}).read.types,
              (std::vector<std::string>{".jpg", ".png", ".C", ".x"}));
    for (const char* wrong : {",", ".", "a,", ",a", "a,,b", "a b", ".tar.gz", "a.b", "a/b", " "})
        EXPECT_NE(read({"--types", wrong, "d"}).wrong, "") << wrong;
}

TEST(CommandLine, WrongUsageIsSaidInWords) {
    EXPECT_EQ(read({}).wrong, "no directory to search");
    EXPECT_EQ(read({"--quiet"}).wrong, "no directory to search");
    EXPECT_EQ(read({"--frobnicate", "d"}).wrong, "unknown option --frobnicate");
    EXPECT_EQ(read({"-"}).wrong, "unknown option -");
    EXPECT_EQ(read({"d", "--format"}).wrong, "--format needs a value");
    EXPECT_EQ(read({"d", "--format="}).wrong, "--format needs a value");
    EXPECT_EQ(read({"--format", "xml", "d"}).wrong, "--format: not a format: 'xml'");
    EXPECT_EQ(read({"--quiet=1", "d"}).wrong, "--quiet takes no value");
    EXPECT_EQ(read({""}).wrong, "a directory has no name");
    EXPECT_EQ(read({"--script", "-", "d"}).wrong, "--script takes no directories");
    EXPECT_EQ(read({"--script", "-", "--quiet"}).wrong, "--quiet does not go with --script");
    EXPECT_EQ(read({"--script", "-", "--dry-shell", "--program-dir", "p"}).wrong, "");
}

TEST(CommandLine, HelpAndVersionComeBeforeWhatFollowsThem) {
    EXPECT_TRUE(read({"--help", "--frobnicate"}).read.help);
    EXPECT_EQ(read({"--version", "--format"}).wrong, "");
    EXPECT_NE(read({"--frobnicate", "--help"}).wrong, "");
}

TEST(OptionTexts, EachOptionAndFormatStandsInAllOfThem) {
    const std::string help = help_text();
    const std::string bash = bash_completion();
    const std::string zsh = zsh_completion();
    const std::string manual = manual_page();
    std::set<std::string> names;
    for (const option_entry& option : option_table()) {
        const std::string name = option.name;
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_NE(help.find("  " + name), std::string::npos) << name;
        EXPECT_NE(bash.find(name), std::string::npos) << name;
        EXPECT_NE(zsh.find(name), std::string::npos) << name;
        std::string escaped;
        for (const char unit : name) escaped += unit == '-' ? std::string("\\-") : std::string(1, unit);
        EXPECT_NE(manual.find(escaped), std::string::npos) << name;
        // The quotes and brackets of zsh.
        EXPECT_EQ(std::string(option.summary).find_first_of("'[]:\\"), std::string::npos) << name;
        EXPECT_EQ(*option.value_name == '\0', option.value == option_value::none) << name;
    }
    for (const format_entry& format : format_table()) {
        EXPECT_NE(help.find(std::string("  ") + format.name), std::string::npos) << format.name;
        EXPECT_NE(manual.find(std::string(".B ") + format.name), std::string::npos) << format.name;
        EXPECT_NE(zsh.find(format.name), std::string::npos) << format.name;
    }
}

TEST(OptionTexts, LinesOfHelpFitATerminal) {
    std::string_view help;
    const std::string text = help_text();
    help = text;
    while (!help.empty()) {
        const std::size_t end = help.find('\n');
        ASSERT_NE(end, std::string_view::npos);
        EXPECT_LE(end, 100u) << help.substr(0, end);
        help.remove_prefix(end + 1);
    }
}

}  // namespace
}  // namespace corvane
