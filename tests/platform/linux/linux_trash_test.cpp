// The way into a recycle bin and back, over a bin of the test's own on the real disk.
#include "platform/linux/linux_trash.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>

#include "platform/name_mapping.h"
#include "tests/support/scratch_folder.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

class linux_trash_test : public scratch_folder {
  protected:
    linux_trash_test() {
        root = fs::canonical(root).string() + "/";
        if (const char* value = std::getenv("XDG_DATA_HOME")) before_ = value;
        setenv("XDG_DATA_HOME", (root + "home").c_str(), 1);
        bin_folder = root + "home/Trash";
        fs::create_directories(bin_folder + "/files");
        fs::create_directories(bin_folder + "/info");
        fs::create_directories(root + "d");
    }
    ~linux_trash_test() override {
        if (before_)
            setenv("XDG_DATA_HOME", before_->c_str(), 1);
        else
            unsetenv("XDG_DATA_HOME");
    }

    static void write(const std::string& path, const std::string& text) {
        std::ofstream(path, std::ios::binary) << text;
    }
    static std::string read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static std::string encoded(const std::string& path) {
        static constexpr char digits[] = "0123456789ABCDEF";
        std::string text;
        for (const char unit : path) {
            const auto byte = static_cast<unsigned char>(unit);
            if (std::isalnum(byte) != 0 || unit == '/' || unit == '.')
                text += unit;
            else
                ((text += '%') += digits[byte >> 4]) += digits[byte & 15];
        }
        return text;
    }
    // What a desktop does with a file that is thrown away; `name` is the bin's own.
    void throw_away(const std::string& path, const std::string& name) {
        write(bin_folder + "/info/" + name + ".trashinfo",
              "[Trash Info]\nPath=" + encoded(path) + "\nDeletionDate=2026-03-04T05:06:07\n");
        fs::rename(path, bin_folder + "/files/" + name);
    }
    // A file that has gone into the bin.
    recycled_item gone(const std::string& name, const std::string& text = "content") {
        const std::string path = root + "d/" + name;
        write(path, text);
        const std::optional<recycled_item> item = bin.look(to_text(path));
        EXPECT_TRUE(item);
        throw_away(path, name);
        return item.value_or(recycled_item());
    }
    trash_entry find(const recycled_item& item) { return bin.find(std::span(&item, 1)).front(); }

    linux_trash bin;
    std::string bin_folder;

  private:
    std::optional<std::string> before_;
};

TEST_F(linux_trash_test, AFileIsFoundByItsNameAndComesBack) {
    const recycled_item item = gone("a.txt");
    const trash_entry entry = find(item);
    EXPECT_EQ(entry.place, bin_folder);
    EXPECT_EQ(entry.name, "a.txt");
    EXPECT_EQ(bin.state(item, entry), trash_state::there);
    EXPECT_FALSE(bin.stands_at(item, item.path));
    const restoring back = bin.restore(item, entry);
    ASSERT_TRUE(back.ok()) << back.reason;
    EXPECT_EQ(back.path, root + "d/a.txt");
    EXPECT_EQ(read(root + "d/a.txt"), "content");
    EXPECT_FALSE(fs::exists(bin_folder + "/info/a.txt.trashinfo")) << "its note goes afterwards";
    EXPECT_EQ(bin.state(item, entry), trash_state::gone);
    EXPECT_TRUE(bin.stands_at(item, item.path));
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::gone) << "a second time there is nothing";
    EXPECT_EQ(read(root + "d/a.txt"), "content");
}

TEST_F(linux_trash_test, FilesOfOneBaseNameAreToldApart) {
    fs::create_directories(root + "e");
    std::vector<recycled_item> items;
    for (const char* folder : {"d", "e"}) {
        const std::string path = root + folder + "/same.txt";
        write(path, folder);
        items.push_back(*bin.look(path));
        throw_away(path, std::string(folder) == "d" ? "same.txt" : "same.2.txt");
    }
    const std::vector<trash_entry> found = bin.find(items);
    EXPECT_EQ(found[0].name, "same.txt");
    EXPECT_EQ(found[1].name, "same.2.txt");
    ASSERT_TRUE(bin.restore(items[1], found[1]).ok());
    EXPECT_EQ(read(root + "e/same.txt"), "e");
    EXPECT_FALSE(fs::exists(root + "d/same.txt"));
}

TEST_F(linux_trash_test, TwoNamesOfOneFileGoBackToTheirOwnPlaces) {
    write(root + "d/one", "x");
    fs::create_directories(root + "e");
    fs::create_hard_link(root + "d/one", root + "e/one");
    const std::vector<recycled_item> items = {*bin.look(root + "d/one"), *bin.look(root + "e/one")};
    // The second one has the first one's number of the file system.
    throw_away(root + "e/one", "one");
    throw_away(root + "d/one", "one.2");
    const std::vector<trash_entry> found = bin.find(items);
    EXPECT_EQ(found[0].name, "one.2");
    EXPECT_EQ(found[1].name, "one");
}

TEST_F(linux_trash_test, ANameThatNobodyGuessesIsFoundByReadingTheBinOnce) {
    const std::string path = root + "d/a.txt";
    write(path, "x");
    const recycled_item item = *bin.look(path);
    throw_away(path, "quite another name");
    EXPECT_EQ(find(item).name, "quite another name");
}

TEST_F(linux_trash_test, AThousandFilesOfOneNameAreFoundByTheirNumbers) {
    std::vector<recycled_item> items;
    for (int i = 1; i <= 1000; ++i) {
        const std::string folder = root + "d/" + std::to_string(i);
        fs::create_directories(folder);
        write(folder + "/a.txt", std::to_string(i));
        items.push_back(*bin.look(folder + "/a.txt"));
        throw_away(folder + "/a.txt", i == 1 ? "a.txt" : "a." + std::to_string(i) + ".txt");
    }
    const std::vector<trash_entry> found = bin.find(items);
    EXPECT_EQ(found[0].name, "a.txt");
    for (std::size_t i = 1; i < 1000; ++i) ASSERT_EQ(found[i].name, "a." + std::to_string(i + 1) + ".txt");
    // Emptied: the bin counts from the start, and so does the guess.
    fs::remove_all(bin_folder + "/files");
    fs::create_directories(bin_folder + "/files");
    EXPECT_EQ(find(gone("a.txt", "anew")).name, "a.txt");
}

TEST_F(linux_trash_test, WhatIsNotInTheBinIsNotFound) {
    const recycled_item item = gone("a.txt");
    fs::remove(bin_folder + "/files/a.txt");
    EXPECT_FALSE(find(item).is_known());
    // Another file of that name, from another place.
    write(bin_folder + "/files/a.txt", "content");
    EXPECT_FALSE(find(item).is_known()) << "another file with another time";
    fs::remove_all(root + "home");
    EXPECT_FALSE(find(item).is_known()) << "no bin at all";
}

TEST_F(linux_trash_test, NamesOfAnyBytesComeBack) {
    for (const std::string& name : std::vector<std::string>{"with space", "line\nbreak", "star*", "100%",
                                                            "\xff\xfe no utf-8", "中文 (1).txt", "-dash"}) {
        const recycled_item item = gone(name);
        const trash_entry entry = find(item);
        ASSERT_TRUE(entry.is_known()) << to_text(name);
        const restoring back = bin.restore(item, entry);
        ASSERT_TRUE(back.ok()) << to_text(name);
        EXPECT_EQ(back.path, to_text(root + "d/" + name));
        EXPECT_EQ(read(root + "d/" + name), "content");
    }
}

TEST_F(linux_trash_test, WhatStandsThereIsNeverOverwritten) {
    const recycled_item first = gone("a.txt", "first");
    const trash_entry first_entry = find(first);
    write(root + "d/a.txt", "newcomer");
    write(root + "d/a (恢复).txt", "another");
    const restoring back = bin.restore(first, first_entry);
    ASSERT_TRUE(back.ok());
    EXPECT_EQ(back.path, root + "d/a (恢复 2).txt");
    EXPECT_EQ(read(root + "d/a.txt"), "newcomer");
    EXPECT_EQ(read(root + "d/a (恢复).txt"), "another");
    EXPECT_EQ(read(root + "d/a (恢复 2).txt"), "first");
}

TEST_F(linux_trash_test, ALinkOrADirectoryInThePlaceCountsAsTaken) {
    const recycled_item item = gone("a.txt");
    fs::create_symlink(root + "nowhere", root + "d/a.txt");
    fs::create_directory(root + "d/a (恢复).txt");
    const restoring back = bin.restore(item, find(item));
    ASSERT_TRUE(back.ok());
    EXPECT_EQ(back.path, root + "d/a (恢复 2).txt");
    EXPECT_FALSE(fs::exists(root + "nowhere"));
}

TEST_F(linux_trash_test, MissingFoldersAreMade) {
    fs::create_directories(root + "d/deep/er");
    const std::string path = root + "d/deep/er/a.txt";
    write(path, "x");
    const recycled_item item = *bin.look(path);
    throw_away(path, "a.txt");
    const trash_entry entry = find(item);
    fs::remove_all(root + "d");
    const restoring back = bin.restore(item, entry);
    ASSERT_TRUE(back.ok()) << back.reason;
    EXPECT_EQ(read(path), "x");
}

TEST_F(linux_trash_test, AFolderThatIsAFileNowIsInTheWay) {
    const recycled_item item = gone("a.txt");
    const trash_entry entry = find(item);
    fs::remove_all(root + "d");
    write(root + "d", "a file");
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::file_in_way);
    EXPECT_EQ(bin.state(item, entry), trash_state::there) << "it stays in the bin";
    EXPECT_TRUE(fs::exists(bin_folder + "/info/a.txt.trashinfo"));
}

TEST_F(linux_trash_test, AFolderThatIsALinkNowIsNotFollowed) {
    const recycled_item item = gone("a.txt");
    const trash_entry entry = find(item);
    fs::remove_all(root + "d");
    fs::create_directory(root + "elsewhere");
    fs::create_directory_symlink(root + "elsewhere", root + "d");
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::link_in_way);
    EXPECT_TRUE(fs::is_empty(root + "elsewhere"));
    EXPECT_EQ(bin.state(item, entry), trash_state::there);
}

TEST_F(linux_trash_test, ALinkThatWasThereBeforeIsTheWayBack) {
    fs::create_directory(root + "real");
    fs::create_directory_symlink(root + "real", root + "linked");
    write(root + "real/a.txt", "x");
    const recycled_item item = *bin.look(root + "linked/a.txt");
    EXPECT_EQ(item.folder, root + "real");
    throw_away(root + "linked/a.txt", "a.txt");
    const trash_entry entry = find(item);
    ASSERT_TRUE(entry.is_known());
    const restoring back = bin.restore(item, entry);
    ASSERT_TRUE(back.ok());
    EXPECT_EQ(back.path, root + "linked/a.txt");
    // A link that leads elsewhere meanwhile does not lead the file there.
    throw_away(root + "linked/a.txt", "a.txt");
    fs::create_directory(root + "elsewhere");
    fs::remove(root + "linked");
    fs::create_directory_symlink(root + "elsewhere", root + "linked");
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::link_in_way);
    EXPECT_TRUE(fs::is_empty(root + "elsewhere"));
    EXPECT_TRUE(fs::is_empty(root + "real"));
}

TEST_F(linux_trash_test, AnEntryThatIsAnotherOneNowStaysWhereItIs) {
    const recycled_item item = gone("a.txt");
    const trash_entry entry = find(item);
    fs::remove(bin_folder + "/files/a.txt");
    write(bin_folder + "/files/a.txt", "longer than before");
    EXPECT_EQ(bin.state(item, entry), trash_state::other);
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::other);
    // Of the same length, but not the same file.
    write(bin_folder + "/files/a.txt", "CONTENT");
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::other);
    fs::remove(bin_folder + "/files/a.txt");
    fs::create_symlink("/etc/passwd", bin_folder + "/files/a.txt");
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::other) << "a link is no entry";
    EXPECT_FALSE(fs::exists(fs::symlink_status(root + "d/a.txt")));
}

TEST_F(linux_trash_test, TheBinsOwnNoteMustAgree) {
    const recycled_item item = gone("a.txt");
    const trash_entry entry = find(item);
    const std::string info = bin_folder + "/info/a.txt.trashinfo";
    for (const std::string& text : std::vector<std::string>{
             std::string("[Trash Info]\nPath=/somewhere/else\n"), std::string("nonsense"), std::string(),
             "[Trash Info]\nPath=" + root + "d/../d/a.txt\n"}) {
        write(info, text);
        EXPECT_EQ(bin.restore(item, entry).why, obstacle::strange_note) << text;
    }
    fs::remove(info);
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::strange_note) << "without a note";
    fs::create_symlink(root + "d", info);
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::strange_note) << "a link is no note";
    EXPECT_EQ(bin.state(item, entry), trash_state::there);
}

TEST_F(linux_trash_test, AnEntryOutsideOfABinIsNotFollowed) {
    const recycled_item item = gone("a.txt");
    fs::create_directories(root + "fake/files");
    fs::create_directories(root + "fake/info");
    fs::copy_file(bin_folder + "/info/a.txt.trashinfo", root + "fake/info/a.txt.trashinfo");
    fs::rename(bin_folder + "/files/a.txt", root + "fake/files/a.txt");
    const std::string user = std::to_string(geteuid());
    // Not at the top of a volume.
    fs::copy(root + "fake", root + ".Trash-" + user, fs::copy_options::recursive);
    for (const std::string& place :
         std::vector<std::string>{root + "fake", root + ".Trash-" + user, std::string(), std::string("/"),
                                  bin_folder + "/", bin_folder + "/../Trash", std::string("relative")})
        EXPECT_EQ(bin.restore(item, {place, "a.txt"}).why, obstacle::strange_place) << place;
    for (const char* name : {"../info/a.txt.trashinfo", "..", ".", "/etc/passwd", "x/y"})
        EXPECT_EQ(bin.restore(item, {bin_folder, name}).why, obstacle::strange_place) << name;
    EXPECT_TRUE(fs::exists(root + "fake/files/a.txt"));
}

TEST_F(linux_trash_test, ABinWhosePartsAreLinksIsNone) {
    const recycled_item item = gone("a.txt");
    const trash_entry entry = find(item);
    fs::rename(bin_folder + "/files", root + "files elsewhere");
    fs::create_directory_symlink(root + "files elsewhere", bin_folder + "/files");
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::strange_place);
    EXPECT_FALSE(find(item).is_known());
    fs::remove(bin_folder + "/files");
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::out_of_reach);
    EXPECT_EQ(bin.state(item, entry), trash_state::out_of_reach);
}

TEST_F(linux_trash_test, ABinOfAVolumeThatIsNotMountedIsOutOfReach) {
    const recycled_item item = gone("a.txt");
    const trash_entry entry{root + "not mounted/.Trash-" + std::to_string(geteuid()), "a.txt"};
    EXPECT_EQ(bin.state(item, entry), trash_state::out_of_reach);
    EXPECT_EQ(bin.restore(item, entry).why, obstacle::out_of_reach);
}

TEST_F(linux_trash_test, ADirectoryComesBackAsOne) {
    const std::string path = root + "d/empty";
    fs::create_directory(path);
    const recycled_item item = *bin.look(path + "/");
    EXPECT_TRUE(item.directory);
    throw_away(path, "empty");
    const trash_entry entry = find(item);
    ASSERT_TRUE(entry.is_known());
    ASSERT_TRUE(bin.restore(item, entry).ok());
    EXPECT_TRUE(fs::is_directory(path));
}

TEST_F(linux_trash_test, OnlyFilesAndDirectoriesAreLookedAt) {
    fs::create_symlink(root + "d", root + "link");
    ASSERT_EQ(mkfifo((root + "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(bin.look(root + "link"));
    EXPECT_FALSE(bin.look(root + "pipe"));
    EXPECT_FALSE(bin.look(root + "missing"));
}

TEST_F(linux_trash_test, AFolderThatTheOldPathDoesNotLeadToIsRefused) {
    recycled_item item = gone("a.txt");
    const trash_entry entry = find(item);
    fs::create_directory(root + "other");
    for (const std::string& folder :
         std::vector<std::string>{root + "other", root + "d/../d", std::string(), "d"}) {
        item.folder = folder;
        EXPECT_EQ(bin.restore(item, entry).why, obstacle::link_in_way) << folder;
    }
    EXPECT_TRUE(fs::is_empty(root + "other"));
    EXPECT_EQ(bin.state(item, entry), trash_state::there);
}

}  // namespace
}  // namespace corvane
