#include "reports/result_formats.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "reports/escaped_text.h"
#include "reports/size_words.h"
#include "tests/reports/result_case.h"

namespace corvane {
namespace {

// "2001-09-09T01:46:40Z" and half a second.
constexpr std::int64_t moment = 1'000'000'000'500'000'000;

result_case small_case() {
    result_case c;
    c.keep({{3, "/d/a+b", "/d/c,\"d"}, {4, "/d/z.zip*m/n", "/d/x"}});
    for (const char* path : {"/d/a+b", "/d/c,\"d", "/d/x"}) c.files.add_file(path).modified_ns = moment;
    return c;
}

TEST(ResultFormats, GroupsAreLinesWithAnEmptyOneAfterEach) {
    result_case c = small_case();
    EXPECT_EQ(c.written([&](line_writer& out) { write_group_lines(out, c.read()); }),
              "/d/a+b\n/d/c,\"d\n\n/d/x\n/d/z.zip*m/n\n\n");
}

TEST(ResultFormats, JsonIsOneObject) {
    result_case c = small_case();
    const result_groups result = read_result_groups(c.files, result_case::store, {-1, 0xABC});
    EXPECT_EQ(c.written([&](line_writer& out) { write_json(out, c.files, result, c.facts); }),
              "{\n  \"version\": \"9.8.7\",\n  \"directories\": [\"/d\"],\n"
              "  \"totals\": {\"files\": 12, \"equal\": 2, \"bytes\": 7},\n  \"groups\": [\n"
              "    {\"length\": 3, \"files\": [\n"
              "      {\"path\": \"/d/a\\u000Ab\", \"modified\": \"2001-09-09T01:46:40Z\"},\n"
              "      {\"path\": \"/d/c,\\\"d\", \"modified\": \"2001-09-09T01:46:40Z\"}]},\n"
              "    {\"length\": 4, \"checksum\": \"00000abc\", \"files\": [\n"
              "      {\"path\": \"/d/x\", \"modified\": \"2001-09-09T01:46:40Z\"},\n"
              "      {\"path\": \"/d/z.zip*m/n\", \"member\": \"m/n\", \"modified\": null}]}\n  ]\n}\n");
}

TEST(ResultFormats, AFileThatHasGoneHasNoTime) {
    result_case c;
    c.keep({{3, "/d/gone", "/d/too"}});
    const std::string text =
        c.written([&](line_writer& out) { write_json(out, c.files, c.read(), c.facts); });
    EXPECT_NE(text.find("{\"path\": \"/d/gone\", \"modified\": null}"), std::string::npos);
    EXPECT_EQ(c.written([&](line_writer& out) { write_csv(out, c.files, c.read(), c.facts); }),
              "group,length,checksum,modified,path,member\r\n1,3,,,/d/gone,\r\n1,3,,,/d/too,\r\n");
}

TEST(ResultFormats, CsvHasARowAFile) {
    result_case c = small_case();
    EXPECT_EQ(c.written([&](line_writer& out) { write_csv(out, c.files, c.read(), c.facts); }),
              "group,length,checksum,modified,path,member\r\n"
              "1,3,,2001-09-09T01:46:40Z,\"/d/a\nb\",\r\n"
              "1,3,,2001-09-09T01:46:40Z,\"/d/c,\"\"d\",\r\n"
              "2,4,,2001-09-09T01:46:40Z,/d/x,\r\n2,4,,,/d/z.zip*m/n,m/n\r\n");
}

TEST(ResultFormats, NullLeavesOutMembersAndAPathPairedWithItself) {
    result_case c;
    c.keep(
        {{3, "/d/a+b", "/d/c"}, {4, "/d/z.zip*m", "/d/x"}, {5, "/d/y", "/d/z.zip*n"}, {6, "/d/s", "/d/s"}});
    std::int64_t left_out = 0;
    EXPECT_EQ(c.written([&](line_writer& out) {
        left_out = write_null_pairs(out, c.files, result_case::store, c.facts);
    }),
              std::string("/d/a\nb\0/d/c\0", 12));
    EXPECT_EQ(left_out, 3);
}

TEST(ResultFormats, AFailedWriteEndsEachOfThem) {
    result_case c = small_case();
    c.files.write_failure_path = result_case::output;
    EXPECT_EQ(c.written([&](line_writer& out) { write_group_lines(out, c.read()); }), "failed: disk full");
    EXPECT_EQ(c.written([&](line_writer& out) { write_csv(out, c.files, c.read(), c.facts); }),
              "failed: disk full");
    EXPECT_EQ(c.written([&](line_writer& out) { write_json(out, c.files, c.read(), c.facts); }),
              "failed: disk full");
}

// Rows of CSV by a reader of its own; 0 when one is broken.
std::int64_t csv_rows(std::string_view text, int fields) {
    std::int64_t rows = 0;
    int field = 1;
    bool quoted = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '"') quoted = !quoted;
        if (quoted) continue;
        if (text[at] == ',') ++field;
        if (text[at] != '\n') continue;
        if (field != fields || text[at - 1] != '\r') return 0;
        ++rows;
        field = 1;
    }
    return quoted ? 0 : rows;
}

TEST(ResultFormats, AMillionRowsAreWholeInEachFormat) {
    constexpr int pairs = 1'000'000;
    const char* const names[] = {"plain", "line+break", "quo\"te", "<&>", "\xFF\xFE", "a,b"};
    result_case c;
    std::string text = "内容相同文件清单            \r\n " + std::to_string(pairs) + " \r\n";
    for (int i = 0; i < pairs; ++i) {
        // Stars of five: four pairs each.
        const std::string directory = "/d/" + std::to_string(i / 4) + "/";
        text += " " + std::to_string(i / 4) + " \r\n" + directory + names[i / 4 % 6] + "\r\n" + directory +
                names[i % 6] + std::to_string(i % 4) + "\r\n";
    }
    c.files.add_file(result_case::store, std::move(text));
    const result_groups result = c.read();
    constexpr std::int64_t groups = pairs / 4;
    constexpr std::int64_t paths = groups * 5;
    EXPECT_EQ(std::int64_t(result.groups.size()), groups);
    EXPECT_EQ(result.spare_count(), pairs);

    const std::string blocks = c.written([&](line_writer& out) { write_group_lines(out, result); });
    EXPECT_EQ(std::count(blocks.begin(), blocks.end(), '\n'), paths + groups);
    const std::string rows = c.written([&](line_writer& out) { write_csv(out, c.files, result, c.facts); });
    EXPECT_EQ(csv_rows(rows, 6), paths + 1);
    const std::string nulls = c.written(
        [&](line_writer& out) { EXPECT_EQ(write_null_pairs(out, c.files, result_case::store, c.facts), 0); });
    EXPECT_EQ(std::count(nulls.begin(), nulls.end(), '\0'), 2 * pairs);
    const std::string object =
        c.written([&](line_writer& out) { write_json(out, c.files, result, c.facts); });
    // One line a file, one a group, seven of the frame; a stray line break would be one more.
    EXPECT_EQ(std::count(object.begin(), object.end(), '\n'), paths + groups + 7);
    EXPECT_TRUE(object.ends_with("]}\n  ]\n}\n"));
}

TEST(EscapedText, JsonEscapesWhatItMust) {
    const auto json = [](std::string_view text) {
        std::string out;
        append_json_text(out, text);
        return out;
    };
    EXPECT_EQ(json(""), "\"\"");
    EXPECT_EQ(json("a\"b\\c/"), "\"a\\\"b\\\\c/\"");
    EXPECT_EQ(json(std::string_view("\0\t\n\x1F\x7F", 5)), "\"\\u0000\\u0009\\u000A\\u001F\x7F\"");
    EXPECT_EQ(json("图片 \U0001F600"), "\"图片 \U0001F600\"");
    // Stray bytes, a cut letter, one that is too long, a surrogate: one sign for each byte.
    EXPECT_EQ(json("\xFF\xE4\xB8x"), "\"\uFFFD\uFFFD\uFFFDx\"");
    EXPECT_EQ(json("\xC0\xAF"), "\"\uFFFD\uFFFD\"");
    EXPECT_EQ(json("\xED\xA0\x80"), "\"\uFFFD\uFFFD\uFFFD\"");
}

TEST(EscapedText, PercentKeepsEveryByte) {
    std::string out;
    append_percent_text(out, "/aZ9-._~ %+\xFF\n?");
    EXPECT_EQ(out, "/aZ9-._~%20%25%2B%FF%0A%3F");
}

TEST(EscapedText, CsvQuotesWhatItMust) {
    const auto field = [](std::string_view text) {
        std::string out;
        append_csv_field(out, text);
        return out;
    };
    EXPECT_EQ(field("plain text;'\t"), "plain text;'\t");
    EXPECT_EQ(field("a,b"), "\"a,b\"");
    EXPECT_EQ(field("\""), "\"\"\"\"");
    EXPECT_EQ(field("a\rb"), "\"a\rb\"");
    EXPECT_EQ(field("a\nb\xFF"), "\"a\nb\xFF\"");
}

TEST(EscapedText, HtmlShowsEverySignAndRunsNone) {
    const auto html = [](std::string_view text) {
        std::string out;
        append_html_text(out, text);
        return out;
    };
    EXPECT_EQ(html("<a href=\"x\">&amp;'"), "&lt;a href=&quot;x&quot;&gt;&amp;amp;'");
    EXPECT_EQ(html("\xFFx\xE4\xB8"), "<i>\\xFF</i>x<i>\\xE4</i><i>\\xB8</i>");
    // Mapped bytes of names: a line break, an asterisk.
    EXPECT_EQ(html("a\uF00Ab\uF02Ac\uF07F"), "a<i>\\x0A</i>b*c<i>\\x7F</i>");
    EXPECT_EQ(html("\u202Egpj.exe\u200B\u2028\uFEFF\u0085"),
              "<i>U+202E</i>gpj.exe<i>U+200B</i><i>U+2028</i><i>U+FEFF</i><i>U+0085</i>");
    EXPECT_EQ(html("图片"), "图片");
}

TEST(EscapedText, TimesAreUtcAndRoundedDown) {
    EXPECT_EQ(iso_time(moment), "2001-09-09T01:46:40Z");
    EXPECT_EQ(iso_time(0), "1970-01-01T00:00:00Z");
    EXPECT_EQ(iso_time(-1), "1969-12-31T23:59:59Z");
    EXPECT_EQ(iso_time(951'782'400'000'000'000), "2000-02-29T00:00:00Z");
    EXPECT_EQ(iso_time(4'107'542'399'999'999'999), "2100-02-28T23:59:59Z");
}

TEST(SizeWords, HaveThreeDigitsAndADecimalUnit) {
    EXPECT_EQ(size_words(0), "0 B");
    EXPECT_EQ(size_words(999), "999 B");
    EXPECT_EQ(size_words(1000), "1.00 kB");
    EXPECT_EQ(size_words(9'994), "9.99 kB");
    EXPECT_EQ(size_words(9'996), "10.0 kB");
    EXPECT_EQ(size_words(99'960), "100 kB");
    EXPECT_EQ(size_words(344'000'000), "344 MB");
    EXPECT_EQ(size_words(999'499), "999 kB");
    EXPECT_EQ(size_words(999'500), "1.00 MB");
    EXPECT_EQ(size_words(9'223'372'036'854'775'807), "9.22 EB");
    EXPECT_EQ(grouped_number(0), "0");
    EXPECT_EQ(grouped_number(999), "999");
    EXPECT_EQ(grouped_number(1000), "1,000");
    EXPECT_EQ(grouped_number(-123'456), "-123,456");
}

}  // namespace
}  // namespace corvane
