// Random acts on the list against a second, plain account of the rules: after each, the colours of both agree
// and the promises to the user hold.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tests/browser/list_program.h"

namespace corvane {
namespace {

using namespace cell_colour;

struct plain_row {
    std::int64_t number, length;
    std::string path[2];
    std::uint32_t colour[2];
    bool by_double_click[2] = {false, false};  // red by a double click, and not changed since
};

bool in_archive(const std::string& path) {
    return path.find('*') != std::string::npos;
}

// The rules of marking, said a second time, over rows that hold everything themselves.
struct plain_list {
    std::vector<plain_row> rows;
    int anchor = 0;
    std::string sorted_by;

    static void set(plain_row& row, int side, std::uint32_t colour) {
        row.colour[side] = colour;
        row.by_double_click[side] = false;
    }
    void double_click(int number, int side) {
        plain_row& row = rows[static_cast<std::size_t>(number - 1)];
        if (!(row.path[0] > " ") || !(row.path[1] > "  ")) return;
        if (row.colour[side] == mark_red) {
            set(row, side, in_archive(row.path[side]) ? colour_archive : 0);
        } else if (row.colour[side] != colour_gray) {
            set(row, side, mark_red);
            row.by_double_click[side] = true;
        }
        const int other = 1 - side;
        if (other == 1 || row.colour[0] != colour_gray)
            set(row, other, in_archive(row.path[other]) ? colour_archive : 0);
    }
    void range(int number, int side) {
        if (anchor == 0) return;
        if (anchor != number) {
            for (int at = std::min(anchor, number); at <= std::max(anchor, number); ++at) {
                plain_row& row = rows[static_cast<std::size_t>(at - 1)];
                if (row.colour[1 - side] != colour_gray) set(row, 1 - side, 0);
                if (row.colour[side] != colour_gray)
                    set(row, side, row.colour[side] == mark_red ? 0 : mark_red);
            }
        }
        anchor = number;
    }
    void select_all(int side, bool marks) {
        anchor = 1;
        for (plain_row& row : rows) {
            if (marks) {
                if (row.colour[0] != colour_gray) set(row, 0, side == 0 ? mark_red : 0);
                set(row, 1, side == 1 ? mark_red : 0);
            } else if (side == 1 || row.colour[0] != colour_gray) {
                set(row, side, 0);
            }
        }
    }
    void sort(const std::string& header) {
        const bool down = header == sorted_by;
        std::stable_sort(rows.begin(), rows.end(), [&](const plain_row& a, const plain_row& b) {
            if (header == "序号") return a.number < b.number;
            if (header == "长度") return a.length < b.length;
            const int side = header == "重复文件1" ? 0 : 1;
            return a.path[side] < b.path[side];
        });
        if (down) std::reverse(rows.begin(), rows.end());
        sorted_by = down ? "" : header;
        std::string previous;
        for (plain_row& row : rows) {
            set(row, 0, row.path[0] == previous ? colour_gray : 0);
            previous = row.path[0];
            if (in_archive(row.path[0])) set(row, 0, colour_archive);
            if (in_archive(row.path[1])) set(row, 1, colour_archive);
        }
    }
};

constexpr const char* headers[] = {"", "序号", "长度", "重复文件1", "重复文件2"};

TEST(RandomActs, KeepTheRulesOverAHundredThousandActs) {
    std::mt19937 dice(20);
    const auto roll = [&dice](int sides) { return static_cast<int>(dice() % static_cast<unsigned>(sides)); };
    int marked_by_double_click = 0, refused = 0;
    for (int round = 0; round < 20; ++round) {
        list_program p;
        std::vector<list_program::pair> pairs;
        for (int i = 0; i < 40; ++i) {
            std::string first("/d/");
            first.append(std::to_string(roll(12))).append(roll(5) == 0 ? ".zip*m" : "");
            std::string second("/e/");
            second.append(std::to_string(i)).append(roll(6) == 0 ? ".rar*n" : "");
            pairs.push_back({roll(9), first, second});
        }
        p.show(pairs);
        plain_list plain;
        for (std::int32_t row = 1; row <= p.list().row_count(); ++row)
            plain.rows.push_back({p.list().number_cell(row, 1),
                                  p.list().number_cell(row, 2),
                                  {p.list().cell(row, 3), p.list().cell(row, 4)},
                                  {p.list().colour(row, 3), p.list().colour(row, 4)}});
        const int count = p.list().row_count();
        for (int act = 0; act < 5'000; ++act) {
            const int row = 1 + roll(count);
            const int side = roll(2);
            const std::uint32_t before = p.list().colour(row, 3 + side);
            const std::size_t messages = p.screen.messages.size();
            switch (roll(12)) {
                case 0:
                    p.press(row, 3 + side, true);
                    plain.range(row, side);
                    break;
                case 1:
                    p.right_press(row, 3 + side);
                    plain.anchor = row;
                    if (roll(8) == 0) {
                        const bool marks = roll(3) == 0;
                        p.form.run(marks ? "all_select" : "all_not_select");
                        plain.select_all(side, marks);
                    }
                    break;
                case 2:
                    if (roll(10) == 0) {
                        const int column = 1 + roll(4);
                        p.header(column);
                        plain.sort(headers[column]);
                    }
                    break;
                case 3:
                    if (roll(60) == 0) {  // as a deletion leaves it
                        p.list().set_text(row, 3 + side, "");
                        plain.rows[static_cast<std::size_t>(row - 1)].path[side].clear();
                    }
                    break;
                case 4:
                    p.press(row, 3 + side);
                    plain.anchor = row;
                    break;
                default: {
                    p.double_click(row, 3 + side);
                    const plain_row& target = plain.rows[static_cast<std::size_t>(row - 1)];
                    if (target.path[0].empty() || target.path[1].empty()) {
                        ++refused;
                        ASSERT_EQ(p.screen.messages.size(), messages + 1);
                        ASSERT_EQ(p.list().colour(row, 3 + side), before);
                    } else {
                        ASSERT_EQ(p.screen.messages.size(), messages);
                    }
                    plain.double_click(row, side);
                }
            }
            for (int at = 1; at <= count; ++at) {
                const plain_row& expected = plain.rows[static_cast<std::size_t>(at - 1)];
                ASSERT_EQ(p.list().colour(at, 3), expected.colour[0]) << "act " << act << " row " << at;
                ASSERT_EQ(p.list().colour(at, 4), expected.colour[1]) << "act " << act << " row " << at;
                ASSERT_FALSE(expected.by_double_click[0] && expected.by_double_click[1])
                    << "a pair without a keeper";
                marked_by_double_click += expected.by_double_click[0] || expected.by_double_click[1];
            }
        }
    }
    EXPECT_GT(marked_by_double_click, 100'000);
    EXPECT_GT(refused, 1'000);
}

}  // namespace
}  // namespace corvane
