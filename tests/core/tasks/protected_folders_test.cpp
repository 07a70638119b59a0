// What lies in a protected folder is found by every road to it.
#include "core/tasks/protected_folders.h"

#include <gtest/gtest.h>

#include "tests/support/test_program.h"

namespace corvane {
namespace {

struct guarded : test_program {
    explicit guarded(std::set<std::string> folders = {"/p/q/"}) {
        for (const char* folder : {"/p/q/r", "/p/other", "/d"}) files.add_directory(folder);
        state.protected_folders = std::move(folders);
        ++state.protection_revision;
    }
    bool covers(const std::string& path) { return protection(form).covers(path); }
};

TEST(Protection, CoversTheFolderAndAllBelowItAndNothingBeside) {
    guarded g;
    EXPECT_TRUE(g.covers("/p/q/a"));
    EXPECT_TRUE(g.covers("/p/q/r/a"));
    EXPECT_TRUE(g.covers("/p/q/z.zip*in/a"));
    EXPECT_TRUE(g.covers("/p/q/"));
    EXPECT_TRUE(g.covers("/p/q/r/"));
    EXPECT_FALSE(g.covers("/p/qq/a"));
    EXPECT_FALSE(g.covers("/p/a"));
    EXPECT_FALSE(g.covers("/p/other/a"));
    EXPECT_FALSE(g.covers("/d/z.zip*/p/q/a"));
    EXPECT_FALSE(g.covers("a"));
}

TEST(Protection, WithoutFoldersNothingIsAsked) {
    guarded g(std::set<std::string>{});
    EXPECT_FALSE(protection(g.form).is_needed());
    EXPECT_FALSE(g.covers("/p/q/a"));
}

TEST(Protection, AFolderThatIsGoneIsStillSpelledProtected) {
    guarded g({"/gone/x/"});
    EXPECT_TRUE(g.covers("/gone/x/a"));
}

TEST(Protection, ByADoubledSeparator) {
    guarded g;
    EXPECT_TRUE(g.covers("/p//q/a"));
}

TEST(Protection, ByALinkToTheFolderIntoItAndAboveIt) {
    guarded g;
    g.files.add_link("/d/to", "/p/q");
    g.files.add_link("/d/into", "/p/q/r");
    g.files.add_link("/d/above", "/p");
    EXPECT_TRUE(g.covers("/d/to/a"));
    EXPECT_TRUE(g.covers("/d/into/a"));
    EXPECT_TRUE(g.covers("/d/above/q/a"));
    EXPECT_FALSE(g.covers("/d/above/other/a"));
}

TEST(Protection, WhereTheChosenFolderIsALinkWhatItLeadsToIsProtected) {
    guarded g({"/d/to/"});
    g.files.add_link("/d/to", "/p/q");
    EXPECT_TRUE(g.covers("/d/to/a"));
    EXPECT_TRUE(g.covers("/p/q/a"));
    EXPECT_TRUE(g.covers("/p/q/r/a"));
}

TEST(Protection, ByAMountOfTheFolderWhichIsTheSameFolder) {
    guarded g;
    memory_file& folder = g.files.add_directory("/p/q");
    memory_file& mount = g.files.add_directory("/mnt/q");
    mount.device = folder.device;
    mount.index = folder.index;
    g.files.add_directory("/mnt/q/r");
    EXPECT_TRUE(g.covers("/mnt/q/a"));
    EXPECT_TRUE(g.covers("/mnt/q/r/a"));
    EXPECT_FALSE(g.covers("/mnt/a"));
}

TEST(Protection, ByAMountOfAPartOfTheFolder) {
    guarded g;
    g.files.trees = {{"/", "/", "8:1"},
                     {"/mnt/part/", "/p/q/r/", "8:1"},
                     {"/mnt/beside/", "/p/other/", "8:1"},
                     {"/mnt/disk/", "/p/q/", "8:2"}};
    for (const char* mount : {"/mnt/part/x", "/mnt/beside/x", "/mnt/disk/x"}) g.files.add_directory(mount);
    EXPECT_TRUE(g.covers("/mnt/part/a"));
    EXPECT_TRUE(g.covers("/mnt/part/x/a"));
    EXPECT_FALSE(g.covers("/mnt/beside/x/a"));
    EXPECT_FALSE(g.covers("/mnt/disk/x/a")) << "another file system";
}

TEST(Protection, OfTwoMountsOfOnePointTheLaterOneCounts) {
    guarded g;
    g.files.trees = {{"/", "/", "8:1"}, {"/mnt/", "/p/q/", "8:1"}, {"/mnt/", "/", "8:7"}};
    g.files.add_directory("/mnt/x");
    EXPECT_FALSE(g.covers("/mnt/x/a"));
}

TEST(Protection, TakesUpAChangedChoiceAtOnce) {
    guarded g;
    protection asked(g.form);
    EXPECT_FALSE(asked.covers("/p/other/a"));
    set_protected_folders(g.form, {"/p/other/"});
    EXPECT_TRUE(asked.covers("/p/other/a"));
    EXPECT_FALSE(asked.covers("/p/q/a"));
}

TEST(Protection, OfWindowsPathsHeedsNoCase) {
    test_program p('\\');
    p.state.protected_folders = {"C:\\Keep\\"};
    ++p.state.protection_revision;
    EXPECT_TRUE(protection(p.form).covers("c:\\KEEP\\a"));
    EXPECT_FALSE(protection(p.form).covers("c:\\KEEPER\\a"));
}

TEST(ProtectedFile, IsWrittenAndReadBack) {
    test_program p;
    p.add_used_folder();
    set_protected_folders(p.form, {"/p/q/", "/a b/"});
    EXPECT_EQ(p.files.content_of("/prog/受保护的目录.txt"),
              "Corvane protected folders 1\r\n 2 \r\n/a b/\r\n/p/q/\r\n");
    test_program next;
    next.files.add_file("/prog/受保护的目录.txt", p.files.content_of("/prog/受保护的目录.txt"));
    read_protected_folders(next.form);
    EXPECT_EQ(next.state.protected_folders, (std::set<std::string>{"/a b/", "/p/q/"}));
    EXPECT_FALSE(next.state.protection_unknown);
    EXPECT_TRUE(next.screen.messages.empty());
}

TEST(ProtectedFile, AMissingOneProtectsNothingAndSaysNothing) {
    test_program p;
    read_protected_folders(p.form);
    EXPECT_FALSE(protection(p.form).is_needed());
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(ProtectedFile, ADamagedOneProtectsEverythingAndSaysSoOnce) {
    const std::string whole = "Corvane protected folders 1\r\n 2 \r\n/p/q/\r\n/r/\r\n";
    for (const std::string& text :
         {std::string(), std::string("Corvane protected folders 2\r\n 0 \r\n"), whole.substr(0, 40),
          whole + "/more/\r\n", std::string("Corvane protected folders 1\r\n 1 \r\nrelative\r\n"),
          std::string("Corvane protected folders 1\r\n -1 \r\n"), std::string(3'000'000, 'x')}) {
        test_program p;
        p.files.add_file("/prog/受保护的目录.txt", text);
        read_protected_folders(p.form);
        EXPECT_TRUE(protection(p.form).covers("/anything")) << text.substr(0, 60);
        ASSERT_EQ(p.screen.messages.size(), 1u);
        EXPECT_EQ(
            p.last_message(),
            "/prog/受保护的目录.txt\r\n受保护的目录读不全。在目录选择中按“确定”之前,什么都不标记、不删除。");
    }
    test_program locked;
    locked.files.add_file("/prog/受保护的目录.txt", whole).unreadable = true;
    read_protected_folders(locked.form);
    EXPECT_TRUE(locked.state.protection_unknown);
}

TEST(ProtectedFile, ADamagedOneIsKeptBesideTheNew) {
    test_program p;
    p.files.add_file("/prog/受保护的目录.txt", "from the future");
    read_protected_folders(p.form);
    set_protected_folders(p.form, {"/p/"});
    EXPECT_EQ(p.files.content_of("/prog/受保护的目录.旧.txt"), "from the future");
    EXPECT_FALSE(p.state.protection_unknown);
    EXPECT_FALSE(protection(p.form).covers("/other"));
    EXPECT_TRUE(protection(p.form).covers("/p/a"));
}

TEST(ProtectedFile, WhereItCannotBeKeptItIsNotReplaced) {
    test_program p;
    p.files.add_file("/prog/受保护的目录.txt", "from the future");
    p.files.write_failure_path = "/prog/受保护的目录.旧.txt";
    read_protected_folders(p.form);
    set_protected_folders(p.form, {"/p/"});
    EXPECT_EQ(p.files.content_of("/prog/受保护的目录.txt"), "from the future");
    EXPECT_EQ(p.last_message(), "/prog/受保护的目录.txt\r\n受保护的目录没有保存。");
    EXPECT_TRUE(protection(p.form).covers("/other")) << "still unknown";
}

TEST(ProtectedFile, AWriteFailureIsToldAndTheChoiceHoldsForThisRun) {
    test_program p;
    p.files.write_failure_path = "/prog/受保护的目录.txt";
    set_protected_folders(p.form, {"/p/"});
    EXPECT_EQ(p.last_message(), "/prog/受保护的目录.txt\r\ndisk full");
    EXPECT_TRUE(protection(p.form).covers("/p/a"));
}

// Data files that can say ASCII alone.
struct ascii_files : data_encoding {
    void append_bytes(std::string& out, std::string_view text) const override {
        for (const char unit : text) out += static_cast<unsigned char>(unit) < 0x80 ? unit : '?';
    }
    void append_text(std::string& out, std::string_view bytes) const override { out += bytes; }
};

TEST(ProtectedFile, AFolderThatItCannotSayIsToldAndNotWrittenAsAnother) {
    const ascii_files encoding;
    test_program p;
    p.files.encoding = &encoding;
    set_protected_folders(p.form, {"/照片/"});
    EXPECT_EQ(p.last_message(), "/prog/受保护的目录.txt\r\n受保护的目录没有保存。");
    EXPECT_FALSE(p.files.has("/prog/受保护的目录.txt"));
    EXPECT_TRUE(protection(p.form).covers("/照片/a")) << "it holds for this run";
    set_protected_folders(p.form, {"/d/"});
    EXPECT_TRUE(p.files.has("/prog/受保护的目录.txt"));
}

}  // namespace
}  // namespace corvane
