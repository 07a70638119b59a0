// The disk of Windows on real files of a drive.
#include "platform/windows/windows_file_system.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <vector>

#include "core/walk/directory_filter.h"
#include "platform/file_time.h"
#include "tests/platform/windows/scratch_drive.h"

namespace corvane {
namespace {

class WindowsDisk : public scratch_drive {
  protected:
    std::map<std::string, entry_kind> list(const std::string& folder) {
        std::map<std::string, entry_kind> found;
        const outcome_with<directory_reader> reader = files.open_directory(folder);
        EXPECT_TRUE(reader) << reader.reason;
        if (!reader) return found;
        std::string_view name;
        entry_kind kind;
        while (reader->next(name, kind)) {
            found.emplace(name, kind);
            if (reader->hidden()) hidden.insert(std::string(name));
        }
        EXPECT_FALSE(reader->failed());
        return found;
    }
    std::set<std::string> hidden;  // of what was listed
};

using kinds = std::map<std::string, entry_kind>;

TEST_F(WindowsDisk, ListsFilesAndDirectoriesUnderTheirNames) {
    make_file(L"照片.jpg", "x");
    make_file(L"\xD83D\xDE00 a.txt");
    make_directory(L"子目录");
    EXPECT_EQ(list(root), (kinds{{"照片.jpg", entry_kind::file},
                                 {"\U0001F600 a.txt", entry_kind::file},
                                 {"子目录", entry_kind::directory}}));
    EXPECT_EQ(list(root + "子目录"), kinds());
}

TEST_F(WindowsDisk, ListsMoreThanOneBufferOfEntriesEachOnce) {
    for (int i = 0; i < 1500; ++i)
        make_file(L"file_with_a_long_name_so_that_buffers_fill_" + std::to_wstring(i));
    const kinds found = list(root);
    EXPECT_EQ(found.size(), 1500u);
    EXPECT_EQ(found.count("file_with_a_long_name_so_that_buffers_fill_1499"), 1u);
}

TEST_F(WindowsDisk, WhatIsNoDirectoryIsNotListed) {
    make_file(L"f");
    EXPECT_FALSE(files.open_directory(root + "f"));
    EXPECT_FALSE(files.open_directory(root + "missing"));
    EXPECT_FALSE(files.open_directory("relative"));
    EXPECT_NE(files.open_directory(root + "missing").reason, "");
}

TEST_F(WindowsDisk, PathsBeyond260AreFilesAsAnyOther) {
    std::wstring folder;
    for (int i = 0; i < 8; ++i) {
        folder += std::wstring(49, static_cast<wchar_t>(L'a' + i));
        make_directory(folder);
        folder += L'\\';
    }
    make_file(folder + L"深.txt", "deep");
    const std::string path = root + text_of(folder) + "深.txt";
    ASSERT_GT(path.size(), 400u);
    EXPECT_EQ(start_of(path), "deep");
    EXPECT_EQ(files.facts(path).length, 4);
    EXPECT_EQ(list(root + text_of(folder)), (kinds{{"深.txt", entry_kind::file}}));
    EXPECT_TRUE(files.remove_file(path, files.facts(path)));
    EXPECT_FALSE(is_there(folder + L"深.txt"));
}

TEST_F(WindowsDisk, NamesThatOtherProgramsCannotOpenAreFilesAsAnyOther) {
    for (const wchar_t* name : {L"dot.", L"blank ", L"NUL", L"con.txt"}) {
        make_file(name, "here");
        EXPECT_EQ(start_of(root + text_of(name)), "here");
        EXPECT_TRUE(files.attributes(root + text_of(name)).exists);
        EXPECT_TRUE(files.remove_file(root + text_of(name), files.facts(root + text_of(name))));
        EXPECT_FALSE(is_there(name));
    }
}

TEST_F(WindowsDisk, ANameThatIsNoUtf16IsListedReadAndRemoved) {
    const std::wstring name = {L'h', 0xD800, L'x'};
    make_file(name, "half");
    ASSERT_EQ(list(root), (kinds{{"h\uF100x", entry_kind::file}}));
    EXPECT_EQ(start_of(root + "h\uF100x"), "half");
    EXPECT_TRUE(files.remove_file(root + "h\uF100x", files.facts(root + "h\uF100x")));
    EXPECT_EQ(count_entries(), 0u);
}

TEST_F(WindowsDisk, NamesThatDifferInCaseAreOneFile) {
    make_file(L"Photo.JPG", "x");
    file_identity a, b;
    ASSERT_TRUE(files.identity(root + "Photo.JPG", a));
    ASSERT_TRUE(files.identity(root + "photo.jpg", b));
    EXPECT_EQ(a, b);
    EXPECT_EQ(files.facts(root + "PHOTO.jpg").identity, a);
    EXPECT_TRUE(files.ignores_case());
}

TEST_F(WindowsDisk, TwoNamesOfOneFileAreOneAndTwoFilesAreTwo) {
    make_file(L"a", "same");
    make_file(L"b", "same");
    ASSERT_TRUE(CreateHardLinkW((wide_root + L"c").c_str(), (wide_root + L"a").c_str(), nullptr));
    const file_facts a = files.facts(root + "a"), b = files.facts(root + "b"), c = files.facts(root + "c");
    EXPECT_EQ(a.identity, c.identity);
    EXPECT_FALSE(a.identity == b.identity);
    EXPECT_EQ(a.link_count, 2u);
    EXPECT_EQ(b.link_count, 1u);
    EXPECT_TRUE(same_state(a, files.facts(root + "a")));
}

TEST_F(WindowsDisk, TimesAreExactTo100Nanoseconds) {
    make_file(L"f", "12345");
    // 2001-02-03 04:05:06.7654321 UTC
    const std::uint64_t units = (std::uint64_t{981'173'106} + seconds_1601_to_1970) * 10'000'000 + 7'654'321;
    set_written(L"f", units);
    const file_facts facts = files.facts(root + "f");
    EXPECT_TRUE(facts.exists);
    EXPECT_EQ(facts.length, 5);
    EXPECT_EQ(static_cast<std::uint32_t>(facts.date_low), static_cast<std::uint32_t>(units));
    EXPECT_EQ(static_cast<std::uint32_t>(facts.date_high), units >> 32);
    EXPECT_EQ(facts.modified_ns, 981'173'106'765'432'100);
}

TEST_F(WindowsDisk, WhatIsNoRegularFileHasNoFactsAndIsNotRead) {
    make_directory(L"d");
    for (const char* path : {"d", "missing", "a*b", "f:stream"}) {
        EXPECT_FALSE(files.facts(root + path).exists) << path;
        EXPECT_EQ(start_of(root + path), "no file") << path;
        EXPECT_FALSE(files.open_file(root + path)) << path;
    }
    EXPECT_FALSE(files.facts("\\\\.\\C:").exists);
    EXPECT_FALSE(files.open_file("NUL"));
}

TEST_F(WindowsDisk, AttributesAreThoseOfTheDisk) {
    make_file(L"plain");
    make_file(L"kept");
    make_directory(L"d");
    set_attributes(L"kept", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    set_attributes(L"d", FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(files.attributes(root + "plain").hidden);
    EXPECT_FALSE(files.attributes(root + "plain").read_only);
    EXPECT_TRUE(files.attributes(root + "kept").hidden);
    EXPECT_TRUE(files.attributes(root + "kept").read_only);
    const path_attributes directory = files.attributes(root + "d\\");
    EXPECT_TRUE(directory.exists && directory.directory && directory.hidden);
    EXPECT_FALSE(directory.read_only);
    EXPECT_FALSE(files.attributes(root + "kept\\").exists);
    EXPECT_FALSE(files.attributes(root + "missing").exists);
    list(root);
    EXPECT_EQ(hidden, (std::set<std::string>{"d", "kept"}));
}

TEST_F(WindowsDisk, ALeadingDotHidesNothing) {
    make_file(L".dot");
    EXPECT_FALSE(files.attributes(root + ".dot").hidden);
    EXPECT_EQ(list(root).count(".dot"), 1u);
    EXPECT_TRUE(hidden.empty());
}

TEST_F(WindowsDisk, ClearingTakesReadOnlyAndHiddenAway) {
    make_file(L"f");
    set_attributes(L"f", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    EXPECT_TRUE(files.clear_attributes(root + "f"));
    EXPECT_FALSE(files.attributes(root + "f").read_only);
    EXPECT_FALSE(files.attributes(root + "f").hidden);
    EXPECT_FALSE(files.clear_attributes(root + "missing"));
}

TEST_F(WindowsDisk, AccessComesBackAsItWas) {
    make_file(L"f");
    set_attributes(L"f", FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    const file_access before = files.access(root + "f");
    ASSERT_TRUE(before.known);
    files.clear_attributes(root + "f");
    files.restore_access(root + "f", before);
    EXPECT_TRUE(files.attributes(root + "f").read_only);
    EXPECT_TRUE(files.attributes(root + "f").hidden);
    EXPECT_FALSE(files.access(root + "missing").known);
}

TEST_F(WindowsDisk, AWriteInPlaceShowsInTheFacts) {
    make_file(L"f", "12345");
    const file_facts before = files.facts(root + "f");
    ASSERT_TRUE(before.exists);
    EXPECT_EQ(before.length, 5);
    EXPECT_FALSE(before.stacked);
    file_identity known;
    ASSERT_TRUE(files.identity(root + "f", known));
    EXPECT_EQ(before.identity, known);
    // Another time, far from the present one: no clock is asked to have moved on.
    const std::uint64_t units = (std::uint64_t{981'173'106} + seconds_1601_to_1970) * 10'000'000;
    append(L"f", "67");
    set_written(L"f", units);
    const file_facts after = files.facts(root + "f");
    EXPECT_EQ(after.length, 7);
    EXPECT_EQ(after.modified_ns, 981'173'106'000'000'000);
    EXPECT_EQ(after.identity, before.identity);
    EXPECT_FALSE(same_state(before, after));
}

TEST_F(WindowsDisk, MakesADirectoryWithAllAboveIt) {
    EXPECT_TRUE(files.make_directory(root + "a\\b\\子"));
    EXPECT_TRUE(files.make_directory(root + "a\\b\\子\\"));
    EXPECT_TRUE(files.attributes(root + "a\\b\\子").directory);
    make_file(L"f");
    EXPECT_FALSE(files.make_directory(root + "f"));
    EXPECT_FALSE(files.make_directory(root + "f\\g"));
}

TEST_F(WindowsDisk, ATrialOfWritingLeavesNothing) {
    EXPECT_TRUE(files.can_write_into(root));
    EXPECT_EQ(count_entries(), 0u);
    EXPECT_FALSE(files.can_write_into(root + "missing\\"));
}

TEST_F(WindowsDisk, TheUsersOwnFolderIsTheirs) {
    EXPECT_TRUE(files.is_own_directory(root));
    make_file(L"f");
    EXPECT_FALSE(files.is_own_directory(root + "f"));
    EXPECT_FALSE(files.is_own_directory(root + "missing"));
}

TEST_F(WindowsDisk, AFolderIsClaimedByOneUntilThatOneEnds) {
    make_directory(L"Folder");
    windows_file_system other;
    {
        windows_file_system first;
        EXPECT_TRUE(first.claim_directory(root + "Folder\\"));
        EXPECT_FALSE(other.claim_directory(root + "folder"));
        EXPECT_TRUE(other.claim_directory(root));
    }
    EXPECT_TRUE(other.claim_directory(root + "folder"));
    EXPECT_EQ(count_entries(), 1u);
}

TEST_F(WindowsDisk, ResolvesToTheNameOnTheDisk) {
    make_directory(L"Folder");
    EXPECT_EQ(files.resolve(root + "missing"), root + "missing");
    const std::string resolved = files.resolve(root + "Folder");
    file_identity a, b;
    EXPECT_TRUE(files.identity(root + "Folder", a) && files.identity(resolved, b));
    EXPECT_EQ(a, b);
    EXPECT_FALSE(resolved.starts_with("\\\\?\\"));
}

TEST_F(WindowsDisk, TheRecycleBinOfAVolumeIsPassedOver) {
    EXPECT_TRUE(files.is_recycle_directory("D:\\$RECYCLE.BIN\\"));
    EXPECT_TRUE(files.is_recycle_directory("D:\\$Recycle.Bin"));
    EXPECT_TRUE(files.is_recycle_directory("\\\\server\\share\\$RECYCLE.BIN\\"));
    EXPECT_TRUE(files.is_recycle_directory("D:\\mounted\\disk\\$RECYCLE.BIN\\"));
    EXPECT_FALSE(files.is_recycle_directory("D:\\$RECYCLE.BIN2\\"));
    EXPECT_FALSE(files.is_recycle_directory("D:\\"));
    EXPECT_TRUE(skip_directory(files, "", "D:\\$RECYCLE.BIN\\"));
    EXPECT_FALSE(skip_directory(files, "", "D:\\data\\"));
}

TEST_F(WindowsDisk, VolumesAreLettersWithSpace) {
    const std::vector<volume> found = files.volumes();
    ASSERT_FALSE(found.empty());
    bool has_system = false;
    for (const volume& each : found) {
        EXPECT_TRUE(each.path.ends_with('\\')) << each.path;
        if (each.kind == volume_kind::home) continue;
        EXPECT_EQ(each.path.size(), 3u) << each.path;
        if (each.path == "C:\\") {
            has_system = each.kind == volume_kind::root;
            EXPECT_GT(each.free_bytes, 0);
            EXPECT_GE(each.total_bytes, each.free_bytes);
        }
    }
    EXPECT_TRUE(has_system);
}

}  // namespace
}  // namespace corvane
