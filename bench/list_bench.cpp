// A million rows in the list: how long sorting, a Shift range, find and a filter take. Prints seconds beside
// the limits and ends with status 1 when one is passed.
#include <chrono>
#include <cstdio>
#include <functional>
#include <random>
#include <string>

#include "tests/browser/list_program.h"

namespace {

constexpr int rows = 1'000'000;

double seconds_of(const std::function<void()>& act) {
    const auto start = std::chrono::steady_clock::now();
    act();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::vector<corvane::list_program::pair> made_pairs() {
    std::mt19937 dice(7);
    std::vector<corvane::list_program::pair> pairs;
    pairs.reserve(rows);
    for (int i = 0; i < rows; ++i) {
        std::string first("/home/user/documents/projects/");
        first.append(std::to_string(dice() % 400'000)).append("/report of the year.pdf");
        std::string second("/media/backup/old machine/Documents/");
        second.append(std::to_string(dice())).append("/Report ").append(std::to_string(i)).append(".PDF");
        pairs.push_back({static_cast<std::int64_t>(dice() % 100'000'000), first, second});
    }
    return pairs;
}

}  // namespace

int main() {
    corvane::list_program p;
    const double load = seconds_of([&] { p.show(made_pairs()); });
    std::printf("load and fill        %6.2f s\n", load);
    bool within = true;
    const auto measure = [&](const char* name, double limit, const std::function<void()>& act) {
        const double taken = seconds_of(act);
        within &= taken <= limit;
        std::printf("%-20s %6.2f s  limit %.1f s%s\n", name, taken, limit,
                    taken <= limit ? "" : "  over the limit");
    };
    const char* const names[] = {"", "number", "length", "first path", "second path"};
    for (const int column : {4, 2, 3, 1})
        for (const char* direction : {"up", "down"})
            measure((std::string("sort by ") + names[column] + " " + direction).c_str(), 2.0,
                    [&] { p.header(column); });
    measure("sort by freed bytes", 2.0, [&] { p.form.run("sort_by_freed"); });
    p.press(1, 4);
    measure("Shift over all rows", 0.5, [&] { p.press(rows, 4, true); });
    p.screen.texts = {"no such file anywhere"};
    measure("find to the end", 0.5, [&] { p.form.run("search_in_result"); });
    p.screen.texts = {"*.pdf"};
    measure("filter on a type", 2.0, [&] { p.form.run("only_disp"); });
    return within ? 0 : 1;
}
