#include "reports/result_page.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "reports/escaped_text.h"
#include "reports/page_style.h"
#include "reports/result_shares.h"
#include "reports/size_words.h"

namespace corvane {

namespace {

constexpr std::size_t most_bars = 12;

std::string html(std::string_view text) {
    std::string escaped;
    append_html_text(escaped, text);
    return escaped;
}

// A path as text: its own direction of writing does not reach what stands beside it.
std::string html_path(std::string_view path) {
    return "<bdi>" + html(path) + "</bdi>";
}

class page_writer {
  public:
    page_writer(line_writer& out, const result_groups& result, const page_facts& facts)
        : out_(out), result_(result), facts_(facts) {}

    void write() {
        head();
        totals();
        if (!result_.groups.empty()) {
            bars("按类型", shares_by_suffix(result_, facts_.separator), "（无后缀）");
            bars("按目录", shares_by_directory(result_, facts_.separator), "");
            largest_groups();
        }
        add("</main>\n</body>\n</html>\n");
    }

  private:
    void add(std::string_view text) { out_.add(text); }
    std::string say(const std::string& words) const {
        return facts_.words != nullptr ? facts_.words->translated(words) : words;
    }
    // A line of lesser weight.
    void remark(const std::string& words) { add("<p class=\"soft\">" + say(words) + "</p>\n"); }

    void head() {
        add(std::string("<!DOCTYPE html>\n<html lang=\"") + (facts_.words != nullptr ? "en" : "zh-CN") +
            "\">\n<head>\n<meta charset=\"utf-8\">\n"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
            "<title>" +
            say("相同文件报告") + "</title>\n<style>");
        add(page_style);
        add("</style>\n</head>\n<body>\n<main>\n<header>\n<h1>" + say("相同文件报告") +
            "</h1>\n<p class=\"soft\">");
        add(html(facts_.made) + " · Corvane V" + html(facts_.version) + "</p>\n");
        for (const std::string& directory : facts_.directories)
            add("<p>" + say("搜索目录：") + html_path(directory) + "</p>\n");
        add("</header>\n");
    }

    void total(const char* name, const std::string& figure) {
        add("<div><dt>" + say(name) + "</dt><dd>" + figure + "</dd></div>\n");
    }

    void totals() {
        add("<dl>\n");
        if (facts_.files) total("检查的文件", grouped_number(*facts_.files));
        total("相同文件组", grouped_number(static_cast<std::int64_t>(result_.groups.size())));
        total("多余的文件", grouped_number(result_.spare_count()));
        total("多余文件占用", size_words(result_.spare_bytes()));
        add("</dl>\n");
        remark(result_.groups.empty() ? "没有相同文件。" : "多余：每组相同文件除一个以外的全部文件。");
    }

    void bar(const std::string& label, const byte_share& share, std::int64_t largest, std::int64_t sum) {
        char width[32];
        // The widest bar fills its place; one that is not empty is seen.
        const double part = largest > 0 ? static_cast<double>(share.bytes) / static_cast<double>(largest) : 0;
        std::snprintf(width, sizeof width, "%.2f", share.bytes > 0 ? std::max(0.4, part * 100) : 0.0);
        char percent[32];
        std::snprintf(percent, sizeof percent, "%.1f%%",
                      sum > 0 ? 100 * static_cast<double>(share.bytes) / static_cast<double>(sum) : 0.0);
        add("<tr><th scope=\"row\">" + label +
            "</th><td><svg viewBox=\"0 0 100 10\" preserveAspectRatio=\"none\" aria-hidden=\"true\">"
            "<rect class=\"track\" width=\"100\" height=\"10\"/><rect class=\"bar\" width=\"" +
            width + "\" height=\"10\"/></svg></td>" + figure(size_words(share.bytes)) +
            figure(percent, "figure soft") +
            figure(say(grouped_number(share.files) + " 个文件"), "figure soft") + "</tr>\n");
    }

    static std::string figure(const std::string& text, const char* kind = "figure") {
        return std::string("<td class=\"") + kind + "\">" + text + "</td>";
    }

    void bars(const char* title, const std::vector<byte_share>& shares, const char* without_label) {
        add("<section>\n<h2>" + say(std::string("相同文件的字节：") + title) + "</h2>\n<table>\n");
        std::int64_t sum = 0;
        for (const byte_share& share : shares) sum += share.bytes;
        const std::size_t own = std::min(shares.size(), most_bars);
        byte_share rest;
        for (std::size_t i = own; i < shares.size(); ++i) {
            rest.bytes += shares[i].bytes;
            rest.files += shares[i].files;
        }
        const std::int64_t largest = std::max(rest.bytes, shares[0].bytes);
        for (std::size_t i = 0; i < own; ++i)
            bar(shares[i].label.empty() ? say(without_label) : html_path(shares[i].label), shares[i], largest,
                sum);
        if (rest.files > 0)
            bar(say("其余 " + grouped_number(static_cast<std::int64_t>(shares.size() - own)) + " 项"), rest,
                largest, sum);
        add("</table>\n</section>\n");
    }

    void largest_groups() {
        std::vector<const equal_group*> groups;
        for (const equal_group& group : result_.groups) groups.push_back(&group);
        const std::size_t shown = std::min(groups.size(), page_groups);
        // Pointers into one vector: where two groups free the same, the earlier one comes first.
        std::partial_sort(groups.begin(), groups.begin() + static_cast<std::ptrdiff_t>(shown), groups.end(),
                          [](const equal_group* a, const equal_group* b) {
                              const std::int64_t bytes_a = a->spare_bytes();
                              const std::int64_t bytes_b = b->spare_bytes();
                              return bytes_a != bytes_b ? bytes_a > bytes_b : a < b;
                          });
        add("<section>\n<h2>");
        add(say(shown < groups.size() ? "最大的 " + std::to_string(shown) + " 组（共 " +
                                            grouped_number(static_cast<std::int64_t>(groups.size())) + " 组）"
                                      : std::string("全部相同文件组")));
        add("</h2>\n");
        for (std::size_t i = 0; i < shown && !out_.failed(); ++i) group(*groups[i]);
        add("</section>\n");
    }

    void group(const equal_group& shown) {
        add("<article>\n<h3>" + size_words(shown.spare_bytes()) + " <span>" +
            say(grouped_number(shown.count) + " 个文件，每个 " + size_words(shown.length)) +
            "</span></h3>\n<ol>\n");
        const std::int32_t listed = std::min(shown.count, page_paths);
        for (std::int32_t i = shown.first; i < shown.first + listed; ++i)
            add("<li>" + html_path(result_.paths[i]) + "</li>\n");
        add("</ol>\n");
        if (listed < shown.count) remark("还有 " + grouped_number(shown.count - listed) + " 个文件");
        add("</article>\n");
    }

    line_writer& out_;
    const result_groups& result_;
    const page_facts& facts_;
};

}  // namespace

std::string page_moment(const local_time& moment) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d", moment.year, moment.month, moment.day,
                  moment.hour, moment.minute);
    return text.data();
}

void write_result_page(line_writer& out, const result_groups& result, const page_facts& facts) {
    page_writer(out, result, facts).write();
}

}  // namespace corvane
