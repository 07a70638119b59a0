// Lists to search and to filter, and what comes at the yields of such a run.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/browser/list_program.h"

namespace corvane {

struct four_rows : list_program {
    four_rows() {
        show({{1'000'000, "/d/One.JPG", "/e/x.png"},
              {2'000'000, "/d/One.JPG", "/e/ONE.gif"},
              {30, "/d/z.tar.gz", "/e/none"},
              {4, "/d/zip.zip*in/p.JPG", "/e/q.dat"}});
    }
    void find(const std::string& term) {
        screen.texts = {term};
        form.run("search_in_result");
    }
};

// 1,000 rows of which the last one alone is sought.
struct thousand_rows : list_program {
    thousand_rows() {
        std::vector<pair> pairs;
        for (int i = 1000; i < 2000; ++i) {
            pairs.push_back({1, "/d/" + std::to_string(i) + ".jpg", "/e/" + std::to_string(i) + ".jpg"});
            files.add_file(pairs.back().path1);
            files.add_file(pairs.back().path2);
        }
        show(pairs);
    }
    // How many yields a run has. At each of them a task is locked, and these handlers and clicks come.
    int yields_of(const std::string& handler, const std::string& answer,
                  const std::vector<std::string>& handlers, int header_column) {
        int yields = 0;
        screen.on_yield = [&] {
            ++yields;
            EXPECT_TRUE(state.tasks_locked);
            for (const std::string& each : handlers) form.run(each);
            header(header_column);
            header(header_column);
        };
        screen.texts = {answer};
        form.run(handler);
        EXPECT_FALSE(state.tasks_locked);
        return yields;
    }
    void close_at_the_first_yield_of(const std::string& handler, const std::string& answer) {
        screen.on_yield = [&] { form.run("exit_sub"); };
        screen.texts = {answer};
        form.run(handler);
        EXPECT_TRUE(screen.ended);
    }
};

}  // namespace corvane
