// How a typed path goes on.
#include "search/path_completion.h"

#include <gtest/gtest.h>

#include "tests/support/memory_file_system.h"

namespace corvane {
namespace {
using texts = std::vector<std::string>;

struct typing {
    typing() {
        for (const char* path : {"/home/li/照片", "/home/li/Music", "/home/li/mail", "/home/li/.config",
                                 "/home/li/line\uF00Abreak", "/home/li/bad\xFF"})
            files.add_directory(path);
        files.add_file("/home/li/music.txt", "x");
        files.add_link("/home/li/more", "/home/li/照片");
        files.mounted = {{"/home/li/", "", volume_kind::home}};
    }
    texts after(const char* typed, std::size_t most = 100) { return path_completions(files, typed, most); }
    memory_file_system files;
};

TEST(PathCompletion, DirectoriesThatBeginSoWithoutCaseAndWithoutFiles) {
    typing t;
    EXPECT_EQ(t.after("/home/li/m"), (texts{"/home/li/Music/", "/home/li/mail/", "/home/li/more/"}));
    EXPECT_EQ(t.after("/home/li/照"), texts{"/home/li/照片/"});
    EXPECT_EQ(t.after("/home/li/m", 1).size(), 1u);
    EXPECT_EQ(t.after("/home/l"), texts{"/home/li/"});
}

TEST(PathCompletion, HiddenOnesOnDemandAndNoNamesThatCannotBeTyped) {
    typing t;
    EXPECT_EQ(t.after("/home/li/"),
              (texts{"/home/li/Music/", "/home/li/mail/", "/home/li/more/", "/home/li/照片/"}));
    EXPECT_EQ(t.after("/home/li/."), texts{"/home/li/.config/"});
}

TEST(PathCompletion, WhatWasTypedStaysAsItWasTyped) {
    typing t;
    EXPECT_EQ(t.after("~/mu"), texts{"~/Music/"});
}

TEST(PathCompletion, NothingWhereNoDirectoryIs) {
    typing t;
    for (const char* typed : {"", "word", "home/l", "/gone/x", "/home/li/music.txt/", "'/home/'/l"})
        EXPECT_EQ(t.after(typed), texts{}) << typed;
}

}  // namespace
}  // namespace corvane
