// The Linux disk on a real temporary folder.
#include "platform/linux/linux_file_system.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>

#include "platform/name_mapping.h"
#include "tests/support/scratch_folder.h"

namespace corvane {
namespace {

namespace disk = std::filesystem;

class LinuxFileSystem : public scratch_folder {
  protected:
    std::string write(const std::string& name, const std::string& content) {
        std::ofstream(root + name, std::ios::binary) << content;
        return root + name;
    }
    std::string read(const std::string& name) {
        std::ifstream file(root + name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::map<std::string, entry_kind> list() {
        std::map<std::string, entry_kind> entries;
        const auto reader = files.open_directory(root);
        std::string_view name;
        entry_kind kind;
        while (reader && reader->next(name, kind)) entries.emplace(name, kind);
        return entries;
    }

    linux_file_system files;
};

TEST_F(LinuxFileSystem, TellsFilesDirectoriesLinksAndTheRest) {
    write("file", "x");
    disk::create_directory(root + "directory");
    disk::create_symlink(root + "file", root + "link_to_file");
    disk::create_symlink(root + "directory", root + "link_to_directory");
    disk::create_symlink(root + "gone", root + "dangling");
    mkfifo((root + "fifo").c_str(), 0600);
    const std::map<std::string, entry_kind> expected = {
        {"file", entry_kind::file},          {"directory", entry_kind::directory},
        {"link_to_file", entry_kind::other}, {"link_to_directory", entry_kind::link_to_directory},
        {"dangling", entry_kind::other},     {"fifo", entry_kind::other}};
    EXPECT_EQ(list(), expected);
}

TEST_F(LinuxFileSystem, NamesThatLinesCannotHoldAreMappedAndStillFound) {
    for (const std::string name : {"line\nbreak", "star*", "\xFF\xFEno utf-8", "\xEF\x80\xAA"}) {
        write(name, "content");
        const std::string text = root + to_text(name);
        EXPECT_EQ(text.find_first_of("\n*"), std::string::npos);
        EXPECT_EQ(files.facts(text).length, 7);
        std::byte buffer[16];
        EXPECT_EQ(files.read_start(text, buffer, 16), 7);
        EXPECT_EQ(list().count(to_text(name)), 1u);
    }
}

TEST_F(LinuxFileSystem, ATextWithAStarNamesNoFile) {
    // "*" marks an archive entry; the file of that raw name must not be opened in its place.
    write("a.zip*in", "content");
    EXPECT_FALSE(files.facts(root + "a.zip*in").exists);
    EXPECT_FALSE(files.open_file(root + "a.zip*in"));
    EXPECT_FALSE(files.attributes(root + "a.zip*in").exists);
}

TEST_F(LinuxFileSystem, LongNamesAndLongPathsAreHandled) {
    const std::string name(255, 'n');
    write(name, "x");
    EXPECT_TRUE(files.facts(root + name).exists);
    EXPECT_EQ(list().count(name), 1u);
    std::string deep = root;
    while (deep.size() + 202 < 4095) {
        deep += std::string(200, 'd') + "/";
        ASSERT_TRUE(disk::create_directory(deep));
    }
    std::ofstream(deep + "f") << "x";
    EXPECT_TRUE(files.facts(deep + "f").exists);
    EXPECT_FALSE(files.facts(deep + std::string(5000, 'x')).exists);
}

TEST_F(LinuxFileSystem, FactsAreThoseOfARegularFileOnly) {
    const std::string path = write("f", "12345");
    const timespec times[2] = {{0, 0}, {1, 500}};
    utimensat(AT_FDCWD, path.c_str(), times, 0);
    const file_facts facts = files.facts(path);
    EXPECT_TRUE(facts.exists);
    EXPECT_EQ(facts.length, 5);
    // 11,644,473,601 seconds after 1601 in units of 100 ns, and 500 ns more.
    const std::uint64_t ticks = 116'444'736'010'000'005ull;
    EXPECT_EQ(facts.date_high, static_cast<std::int32_t>(ticks >> 32));
    EXPECT_EQ(facts.date_low, static_cast<std::int32_t>(static_cast<std::uint32_t>(ticks)));
    EXPECT_EQ(facts.link_count, 1u);
    disk::create_hard_link(path, root + "g");
    EXPECT_EQ(files.facts(root + "g").link_count, 2u);
    EXPECT_EQ(files.facts(root + "g").identity, facts.identity);
    file_identity identity;
    EXPECT_TRUE(files.identity(path, identity));
    EXPECT_EQ(identity, facts.identity);
    disk::create_symlink(path, root + "link");
    mkfifo((root + "fifo").c_str(), 0600);
    for (const char* other : {"link", "fifo", "", "gone"})
        EXPECT_FALSE(files.facts(root + other).exists) << other;
}

TEST_F(LinuxFileSystem, FactsTellBothTimesInNanoseconds) {
    const std::string path = write("f", "12345");
    const timespec times[2] = {{0, 0}, {1, 523}};
    utimensat(AT_FDCWD, path.c_str(), times, 0);
    const file_facts before = files.facts(path);
    EXPECT_EQ(before.modified_ns, 1'000'000'523);
    struct stat stated;
    ASSERT_EQ(stat(path.c_str(), &stated), 0);
    EXPECT_EQ(before.changed_ns, stated.st_ctim.tv_sec * 1'000'000'000 + stated.st_ctim.tv_nsec);
    // 100 ns of the stated time hold both; the state does not.
    const timespec later[2] = {{0, 0}, {1, 599}};
    utimensat(AT_FDCWD, path.c_str(), later, 0);
    const file_facts after = files.facts(path);
    EXPECT_EQ(before.date_low, after.date_low);
    EXPECT_FALSE(same_state(before, after));
}

TEST_F(LinuxFileSystem, LengthsBeyondTwoGibibytesAreExact) {
    const std::string path = write("big", "");
    ASSERT_EQ(truncate(path.c_str(), 5'000'000'001), 0);
    EXPECT_EQ(files.facts(path).length, 5'000'000'001);
    const auto reader = files.open_file(path);
    std::byte buffer[4];
    EXPECT_EQ(reader->read_at(5'000'000'000, buffer), 1);
}

TEST_F(LinuxFileSystem, AFifoOrADirectoryIsNeverOpenedAsAFile) {
    mkfifo((root + "fifo").c_str(), 0600);
    for (const outcome& opened :
         {outcome(files.open_file(root + "fifo")), outcome(files.open_file(root)),
          outcome(files.overwrite_file(root + "fifo")), outcome(files.replace_file(root))}) {
        EXPECT_FALSE(opened);
        EXPECT_FALSE(opened.reason.empty());
    }
}

TEST_F(LinuxFileSystem, PseudoFileSystemsAreUnreadable) {
    for (const char* path : {"/proc", "/sys"})
        if (disk::exists(path)) {
            const outcome opened = files.open_directory(path);
            EXPECT_FALSE(opened);
            EXPECT_FALSE(opened.reason.empty());
        }
    EXPECT_TRUE(files.open_directory("/"));
}

TEST_F(LinuxFileSystem, AReadErrorIsToldFromTheEndOfADirectory) {
    disk::create_directory(root + "ends");
    disk::create_directory(root + "breaks");
    const auto ends = files.open_directory(root + "ends");
    const auto breaks = files.open_directory(root + "breaks");
    disk::remove(root + "breaks");  // a removed directory can no longer be read
    std::string_view name;
    entry_kind kind;
    EXPECT_FALSE(ends->next(name, kind));
    EXPECT_FALSE(ends->failed());
    EXPECT_FALSE(breaks->next(name, kind));
    EXPECT_TRUE(breaks->failed());
}

TEST_F(LinuxFileSystem, AttributesTellHiddenAndReadOnly) {
    write(".hidden", "x");
    chmod(write("locked", "x").c_str(), 0444);
    EXPECT_TRUE(files.attributes(root + ".hidden").hidden);
    const auto reader = files.open_directory(root);
    std::string_view name;
    entry_kind kind;
    while (reader->next(name, kind)) EXPECT_EQ(reader->hidden(), name == ".hidden") << name;
    EXPECT_FALSE(files.attributes(root + "locked").hidden);
    EXPECT_TRUE(files.attributes(root + "locked").read_only);
    EXPECT_FALSE(files.attributes(root + ".hidden").read_only);
    EXPECT_TRUE(files.attributes(root).directory);
    EXPECT_FALSE(files.attributes(root + "gone").exists);
}

TEST_F(LinuxFileSystem, TheUsersTrashIsARecycleDirectory) {
    disk::create_directories(root + "data/Trash/files");
    disk::create_directories(root + "other/Trash");
    const char* const before = std::getenv("XDG_DATA_HOME");
    const std::string kept = before ? before : "";
    setenv("XDG_DATA_HOME", (root + "data").c_str(), 1);
    linux_file_system with_home;
    before ? setenv("XDG_DATA_HOME", kept.c_str(), 1) : unsetenv("XDG_DATA_HOME");
    EXPECT_TRUE(with_home.is_recycle_directory(root + "data/Trash/"));
    EXPECT_FALSE(with_home.is_recycle_directory(root + "other/Trash/"));
    disk::create_directory(root + ".Trash");
    EXPECT_FALSE(with_home.is_recycle_directory(root + ".Trash/"));  // not at the top of a volume
    EXPECT_TRUE(with_home.is_recycle_directory("/.Trash-" + std::to_string(getuid()) + "/"));
}

TEST_F(LinuxFileSystem, ReplacingIsSeenOnlyAfterTheCommit) {
    write("f", "old");
    {
        const auto writer = files.replace_file(root + "f");
        ASSERT_TRUE(writer);
        EXPECT_TRUE(writer->write("new text"));
        EXPECT_TRUE(writer->write_at(0, "NEW"));
        EXPECT_EQ(read("f"), "old");
        EXPECT_TRUE(writer->commit());
    }
    EXPECT_EQ(read("f"), "NEW text");
    EXPECT_EQ(list().size(), 1u);
}

TEST_F(LinuxFileSystem, SettlingPutsNothingInItsPlaceAndMoreMayFollow) {
    write("f", "old");
    {
        const auto writer = files.replace_file(root + "f");
        writer->settle();
        EXPECT_TRUE(writer->write("new"));
        writer->settle();
        EXPECT_EQ(read("f"), "old");
        EXPECT_TRUE(writer->write(" text"));
        writer->settle();
        writer->settle();
        EXPECT_TRUE(writer->commit());
    }
    EXPECT_EQ(read("f"), "new text");
    { files.replace_file(root + "f")->settle(); }
    EXPECT_EQ(read("f"), "new text");
    EXPECT_EQ(list().size(), 1u);
}

TEST_F(LinuxFileSystem, AWriterWithoutCommitLeavesNothing) {
    write("f", "old");
    { files.replace_file(root + "f")->write("half"); }
    EXPECT_EQ(read("f"), "old");
    EXPECT_EQ(list().size(), 1u);
}

TEST_F(LinuxFileSystem, AFullDiskFailsWithTheSystemsWordsAndTheOldFileStays) {
    // A file size limit gives the same refusal as a full disk, without filling one.
    write("f", "old");
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{4096, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    {
        const auto writer = files.replace_file(root + "f");
        const outcome written = writer->write(std::string(10'000, 'x'));
        EXPECT_FALSE(written);
        EXPECT_FALSE(written.reason.empty());
    }
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(read("f"), "old");
    EXPECT_EQ(list().size(), 1u);
}

TEST_F(LinuxFileSystem, OverwritingIsSeenWhileItGrows) {
    write("f", "old");
    const auto writer = files.overwrite_file(root + "f");
    EXPECT_TRUE(writer->write("new"));
    EXPECT_EQ(read("f"), "new");
}

TEST_F(LinuxFileSystem, AClaimedDirectoryIsFreeAgainWhenItsHolderIsGone) {
    {
        linux_file_system holder;
        EXPECT_TRUE(holder.claim_directory(root));
        EXPECT_FALSE(files.claim_directory(root));
        EXPECT_TRUE(list().empty());
    }
    EXPECT_TRUE(files.claim_directory(root));
}

TEST_F(LinuxFileSystem, RemovingAMissingDataFileIsNoFailure) {
    EXPECT_TRUE(files.remove_data_file(write("f", "x")));
    EXPECT_TRUE(files.remove_data_file(root + "f"));
    EXPECT_FALSE(files.remove_data_file(root));
}

TEST_F(LinuxFileSystem, ReadStartStopsAtTheExpectedLength) {
    const std::string path = write("f", "12345");
    std::byte buffer[6];
    EXPECT_EQ(files.read_start(path, buffer, 5), 5);
    EXPECT_EQ(files.read_start(root + "gone", buffer, 5), -1);
    EXPECT_EQ(files.read_start(root, buffer, 5), -1);
}

TEST_F(LinuxFileSystem, TheMountTableIsReadWithItsBlanksAndRoots) {
    const std::string table = write("mountinfo",
                                    "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
                                    "40 22 8:1 /home/a\\040b /mnt/x\\011y rw - ext4 /dev/sda1 rw\n"
                                    "broken\n");
    const std::vector<mounted_tree> mounts = linux_mounts(table);
    ASSERT_EQ(mounts.size(), 2u);
    EXPECT_EQ(mounts[0].point, "/");
    EXPECT_EQ(mounts[0].root, "/");
    EXPECT_EQ(mounts[0].device, "8:1");
    EXPECT_EQ(mounts[1].point, to_text("/mnt/x\ty/"));
    EXPECT_EQ(mounts[1].root, "/home/a b/");
    EXPECT_TRUE(linux_mounts(root + "none").empty());
}

}  // namespace
}  // namespace corvane
