// Which folder the program keeps its files in: asked for, beside the program, or the user's own.
#include "app/program_place.h"

#include <gtest/gtest.h>

#include "tests/support/memory_file_system.h"

namespace corvane {
namespace {

constexpr char list[] = "仅搜索的文件类型.txt";
constexpr char data_home[] = "/home/li/.local/share/";
constexpr char users[] = "/home/li/.local/share/corvane/";

struct machine : memory_file_system {
    // The program in a folder with the lists beside it.
    void unpack(const std::string& folder) { add_file(folder + list, "0.ABC\r\n"); }
    program_place asked(const std::string& own_folder, const std::string& program_dir = {}) {
        return find_program_place(*this, {program_dir, own_folder, data_home, 1000});
    }
};

TEST(ProgramPlace, WhatIsAskedForGoesBeforeAllElse) {
    machine disk;
    disk.unpack("/home/li/corvane/");
    const program_place place = disk.asked("/home/li/corvane/", "/somewhere/");
    EXPECT_EQ(place.kind, place_kind::asked);
    EXPECT_EQ(place.folder, "/somewhere/");
    EXPECT_EQ(place.shared, "/home/li/corvane/") << "the help is still that of the program";
    EXPECT_TRUE(place.earlier.empty());
    EXPECT_FALSE(disk.has("/somewhere"));
}

TEST(ProgramPlace, AFolderOfTheUsersOwnIsPortable) {
    machine disk;
    disk.unpack("/home/li/corvane/");
    const program_place place = disk.asked("/home/li/corvane/");
    EXPECT_EQ(place.kind, place_kind::beside);
    EXPECT_EQ(place.folder, "/home/li/corvane/");
    EXPECT_EQ(place.shared, "/home/li/corvane/");
}

TEST(ProgramPlace, AFolderThatCannotBeWrittenSendsTheFilesHome) {
    machine disk;
    disk.unpack("/media/disk/corvane/");
    disk.locked_folders.insert("/media/disk/corvane/");
    const program_place place = disk.asked("/media/disk/corvane/");
    EXPECT_EQ(place.kind, place_kind::user);
    EXPECT_EQ(place.folder, users);
    EXPECT_EQ(place.shared, "/media/disk/corvane/");
    EXPECT_TRUE(disk.made_directories.empty()) << "made at the start, not by the question";
}

TEST(ProgramPlace, AFolderOfSomebodyElseIsNotPortableEvenWhereItMayBeWritten) {
    machine disk;
    disk.unpack("/srv/tools/corvane/");
    disk.folders_of_others.insert("/srv/tools/corvane/");
    EXPECT_EQ(disk.asked("/srv/tools/corvane/").folder, users);
}

TEST(ProgramPlace, BelowASystemPrefixNothingIsWrittenByTheSuperuserEither) {
    for (const char* folder : {"/usr/bin/", "/usr/local/lib/corvane/", "/opt/corvane/", "/usr/lib/corvane/",
                               "/app/bin/", "/nix/store/x/bin/", "/bin/"}) {
        machine disk;
        disk.unpack(folder);
        const program_place place = disk.asked(folder);
        EXPECT_EQ(place.kind, place_kind::user) << folder;
        EXPECT_EQ(place.shared, folder);
    }
    for (const char* folder : {"/home/li/usr/bin/", "/usrx/", "/home/opt/", "/options/"})
        EXPECT_FALSE(is_system_prefix(folder)) << folder;
}

TEST(ProgramPlace, AnInstalledProgramHasItsListsInShareAndItsFilesAtHome) {
    machine disk;
    disk.add_directory("/home/li/.local/bin/");
    disk.unpack("/home/li/.local/share/corvane/");
    // Its prefix is a folder of the user's own, and the data home lies in it: still not among the programs.
    const program_place place = disk.asked("/home/li/.local/bin/");
    EXPECT_EQ(place.kind, place_kind::user);
    EXPECT_EQ(place.shared, "/home/li/.local/share/corvane/");
    machine system;
    system.add_directory("/usr/bin/");
    system.unpack("/usr/share/corvane/");
    EXPECT_EQ(system.asked("/usr/bin/").shared, "/usr/share/corvane/");
    EXPECT_EQ(system.asked("/usr/bin/").folder, users);
}

TEST(ProgramPlace, ADataFolderOfSomebodyElseIsNotShared) {
    machine disk;
    disk.add_directory("/usr/bin/");
    disk.add_directory(users);
    disk.folders_of_others.insert(users);
    EXPECT_EQ(disk.asked("/usr/bin/").folder, "/home/li/.local/share/corvane-1000/");
    disk.folders_of_others.clear();
    EXPECT_EQ(disk.asked("/usr/bin/").folder, users);
    // A file of that name is none of ours either.
    machine other;
    other.add_file("/home/li/.local/share/corvane");
    EXPECT_EQ(other.asked("/usr/bin/").folder, "/home/li/.local/share/corvane-1000/");
}

TEST(ProgramPlace, EarlierPlacesAreThoseOfEarlierInstallations) {
    machine disk;
    disk.add_directory("/usr/bin/");
    EXPECT_EQ(disk.asked("/usr/bin/").earlier,
              (std::vector<std::string>{"/usr/bin/", "/usr/lib/corvane/", "/home/li/.local/lib/corvane/"}));
}

TEST(ProgramPlace, WithoutAHomeTheFilesStayBesideTheProgram) {
    machine disk;
    disk.add_directory("/usr/bin/");
    const program_place place = find_program_place(disk, {"", "/usr/bin/", "", 1000});
    EXPECT_EQ(place.folder, "/usr/bin/") << "where it cannot be written, the start says so";
}

TEST(ProgramPlace, AFolderWithSettingsStaysThePlaceThoughItCannotBeWrittenForOnce) {
    machine disk;
    disk.unpack("/home/li/corvane/");
    disk.add_file("/home/li/corvane/Tavrel环境.txt");
    disk.locked_folders.insert("/home/li/corvane/");
    EXPECT_EQ(disk.asked("/home/li/corvane/").kind, place_kind::beside);
    EXPECT_EQ(disk.asked("/home/li/corvane/").folder, "/home/li/corvane/");
    disk.folders_of_others.insert("/home/li/corvane/");
    EXPECT_EQ(disk.asked("/home/li/corvane/").folder, users) << "still not in somebody else's";
}

}  // namespace
}  // namespace corvane
