// The disk of Windows on real files of a drive.
#include "platform/windows/windows_file_system.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
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
        while (reader->next(name, kind)) found.emplace(name, kind);
        EXPECT_FALSE(reader->failed());
        return found;
    }
    std::string read(const std::string& path) {
        std::array<std::byte, 64> buffer;
        const std::int64_t count = files.read_start(path, buffer, buffer.size());
        return count < 0 ? "no file"
                         : std::string(reinterpret_cast<const char*>(buffer.data()),
                                       static_cast<std::size_t>(count));
    }
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
    EXPECT_EQ(read(path), "deep");
    EXPECT_EQ(files.facts(path).length, 4);
    EXPECT_EQ(list(root + text_of(folder)), (kinds{{"深.txt", entry_kind::file}}));
    EXPECT_TRUE(files.remove_file(path));
    EXPECT_FALSE(is_there(folder + L"深.txt"));
}

TEST_F(WindowsDisk, NamesThatOtherProgramsCannotOpenAreFilesAsAnyOther) {
    for (const wchar_t* name : {L"dot.", L"blank ", L"NUL", L"con.txt"}) {
        make_file(name, "here");
        EXPECT_EQ(read(root + text_of(name)), "here");
        EXPECT_TRUE(files.attributes(root + text_of(name)).exists);
        EXPECT_TRUE(files.remove_file(root + text_of(name)));
        EXPECT_FALSE(is_there(name));
    }
}

TEST_F(WindowsDisk, ANameThatIsNoUtf16IsListedReadAndRemoved) {
    const std::wstring name = {L'h', 0xD800, L'x'};
    make_file(name, "half");
    ASSERT_EQ(list(root), (kinds{{"h\uF100x", entry_kind::file}}));
    EXPECT_EQ(read(root + "h\uF100x"), "half");
    EXPECT_TRUE(files.remove_file(root + "h\uF100x"));
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
    const FILETIME time{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    const HANDLE file =
        CreateFileW((wide_root + L"f").c_str(), FILE_WRITE_ATTRIBUTES, 7, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_TRUE(SetFileTime(file, nullptr, nullptr, &time));
    CloseHandle(file);
    const file_facts facts = files.facts(root + "f");
    EXPECT_TRUE(facts.exists);
    EXPECT_EQ(facts.length, 5);
    EXPECT_EQ(static_cast<std::uint32_t>(facts.date_low), time.dwLowDateTime);
    EXPECT_EQ(static_cast<std::uint32_t>(facts.date_high), time.dwHighDateTime);
    EXPECT_EQ(facts.modified_ns, 981'173'106'765'432'100);
}

TEST_F(WindowsDisk, WhatIsNoRegularFileHasNoFactsAndIsNotRead) {
    make_directory(L"d");
    for (const char* path : {"d", "missing", "a*b", "f:stream"}) {
        EXPECT_FALSE(files.facts(root + path).exists) << path;
        EXPECT_EQ(read(root + path), "no file") << path;
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
    EXPECT_TRUE(files.hides(root, "d"));
    EXPECT_TRUE(files.hides(root, "kept"));
    EXPECT_FALSE(files.hides(root, "plain"));
    EXPECT_FALSE(files.hides(root, "missing"));
}

TEST_F(WindowsDisk, ALeadingDotHidesNothing) {
    make_file(L".dot");
    EXPECT_FALSE(files.attributes(root + ".dot").hidden);
    EXPECT_FALSE(files.hides(root, ".dot"));
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

TEST_F(WindowsDisk, AReadOnlyFileStays) {
    make_file(L"f");
    set_attributes(L"f", FILE_ATTRIBUTE_READONLY);
    const outcome removed = files.remove_file(root + "f");
    EXPECT_FALSE(removed);
    EXPECT_NE(removed.reason, "");
    EXPECT_TRUE(is_there(L"f"));
}

TEST_F(WindowsDisk, OnlyFilesAreRemoved) {
    make_directory(L"d");
    make_file(L"f");
    EXPECT_FALSE(files.remove_file(root + "d"));
    EXPECT_FALSE(files.remove_file(root + "d\\"));
    EXPECT_FALSE(files.remove_file(root + "missing"));
    EXPECT_FALSE(files.remove_file(root + "*"));
    EXPECT_FALSE(files.remove_file(root + "?"));
    EXPECT_TRUE(is_there(L"d"));
    EXPECT_TRUE(is_there(L"f"));
    EXPECT_TRUE(files.remove_file(root + "f"));
    EXPECT_FALSE(is_there(L"f"));
    EXPECT_TRUE(files.remove_data_file(root + "f"));
}

TEST_F(WindowsDisk, AFileThatSomebodyHoldsStaysAndIsStillThere) {
    make_file(L"f", "held");
    const HANDLE held =
        CreateFileW((wide_root + L"f").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    EXPECT_FALSE(files.remove_file(root + "f"));
    EXPECT_TRUE(files.attributes(root + "f").exists);
    EXPECT_EQ(read(root + "f"), "no file");
    CloseHandle(held);
    EXPECT_EQ(read(root + "f"), "held");
}

TEST_F(WindowsDisk, AReplacedFileIsTheOldOneUntilTheCommit) {
    make_file(L"清单.txt", "old");
    {
        const outcome_with<file_writer> writer = files.replace_file(root + "清单.txt");
        ASSERT_TRUE(writer);
        EXPECT_TRUE(writer->write("new text"));
        EXPECT_TRUE(writer->write_at(0, "N"));
        EXPECT_EQ(content_of(L"清单.txt"), "old");
        writer->settle();
        EXPECT_TRUE(writer->commit());
        EXPECT_EQ(content_of(L"清单.txt"), "New text");
    }
    {
        const outcome_with<file_writer> dropped = files.replace_file(root + "清单.txt");
        ASSERT_TRUE(dropped);
        EXPECT_TRUE(dropped->write("lost"));
    }
    EXPECT_EQ(content_of(L"清单.txt"), "New text");
    EXPECT_EQ(count_entries(), 1u);
}

TEST_F(WindowsDisk, AHiddenFileStaysHiddenAndAReadOnlyOneIsNotReplaced) {
    make_file(L"h", "old");
    make_file(L"r", "old");
    set_attributes(L"h", FILE_ATTRIBUTE_HIDDEN);
    set_attributes(L"r", FILE_ATTRIBUTE_READONLY);
    const outcome_with<file_writer> hidden = files.replace_file(root + "h");
    ASSERT_TRUE(hidden && hidden->write("new") && hidden->commit());
    EXPECT_TRUE(files.attributes(root + "h").hidden);
    EXPECT_EQ(content_of(L"h"), "new");
    const outcome_with<file_writer> kept = files.replace_file(root + "r");
    EXPECT_FALSE(kept && kept->write("new") && kept->commit());
    EXPECT_EQ(content_of(L"r"), "old");
    EXPECT_EQ(count_entries(), 2u);
}

TEST_F(WindowsDisk, AnOverwrittenFileIsSeenWhileItGrows) {
    make_file(L"f", "a longer old text");
    const outcome_with<file_writer> writer = files.overwrite_file(root + "f");
    ASSERT_TRUE(writer);
    EXPECT_EQ(content_of(L"f"), "");
    EXPECT_TRUE(writer->write("one "));
    EXPECT_EQ(content_of(L"f"), "one ");
    EXPECT_TRUE(writer->write("two"));
    EXPECT_TRUE(writer->commit());
    EXPECT_EQ(content_of(L"f"), "one two");
    EXPECT_FALSE(files.overwrite_file(root));
}

TEST_F(WindowsDisk, ASmallTextTakesThePlaceOfALongerOne) {
    EXPECT_TRUE(files.put_text(root + "t", "a long text"));
    EXPECT_TRUE(files.put_text(root + "t", "short"));
    EXPECT_EQ(content_of(L"t"), "short");
    EXPECT_FALSE(files.put_text(root + "missing\\t", "x"));
}

TEST_F(WindowsDisk, ReadsAtAnyPlaceAndLessOnlyAtTheEnd) {
    make_file(L"f", "0123456789");
    const outcome_with<file_reader> reader = files.open_file(root + "f");
    ASSERT_TRUE(reader);
    std::array<std::byte, 4> buffer;
    EXPECT_EQ(reader->read_at(2, buffer), 4);
    EXPECT_EQ(buffer[0], std::byte{'2'});
    EXPECT_EQ(reader->read_at(8, buffer), 2);
    EXPECT_EQ(reader->read_at(10, buffer), 0);
    EXPECT_EQ(reader->read_at(std::int64_t{1} << 40, buffer), 0);
}

TEST_F(WindowsDisk, ReadsOneAfterTheOtherAreWhereEachOfThemSays) {
    make_file(L"f", "0123456789");
    const outcome_with<file_reader> reader = files.open_file(root + "f");
    ASSERT_TRUE(reader);
    std::array<std::byte, 3> buffer;
    const auto text_at = [&](std::int64_t offset) {
        const std::int64_t count = reader->read_at(offset, buffer);
        return count < 0 ? "no file"
                         : std::string(reinterpret_cast<const char*>(buffer.data()),
                                       static_cast<std::size_t>(count));
    };
    EXPECT_EQ(text_at(0), "012");
    EXPECT_EQ(text_at(3), "345");
    EXPECT_EQ(text_at(3), "345");
    EXPECT_EQ(text_at(0), "012");
    EXPECT_EQ(text_at(6), "678");
    EXPECT_EQ(text_at(9), "9");
    EXPECT_EQ(text_at(10), "");
    EXPECT_EQ(text_at(1), "123");
    EXPECT_EQ(text_at(100), "");
    EXPECT_EQ(text_at(4), "456");
}

TEST_F(WindowsDisk, WhatComesToAFileIsReadBehindItsOldEnd) {
    make_file(L"f", "old");
    const outcome_with<file_reader> reader = files.open_file(root + "f");
    ASSERT_TRUE(reader);
    std::array<std::byte, 8> buffer;
    EXPECT_EQ(reader->read_at(0, buffer), 3);
    EXPECT_EQ(reader->read_at(3, buffer), 0);
    const HANDLE file =
        CreateFileW((wide_root + L"f").c_str(), FILE_APPEND_DATA, 7, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, "new", 3, &written, nullptr));
    CloseHandle(file);
    EXPECT_EQ(reader->read_at(3, buffer), 3);
    EXPECT_EQ(buffer[0], std::byte{'n'});
}

TEST_F(WindowsDisk, AStartIsReadToItsEndOrToWhatIsExpected) {
    make_file(L"f", "0123456789");
    std::array<std::byte, 16> wide;
    std::array<std::byte, 4> narrow;
    EXPECT_EQ(files.read_start(root + "f", wide, 10), 10);
    EXPECT_EQ(files.read_start(root + "f", wide, 9), 10);
    EXPECT_EQ(files.read_start(root + "f", wide, 16), 10);
    EXPECT_EQ(wide[9], std::byte{'9'});
    EXPECT_EQ(files.read_start(root + "f", narrow, 4), 4);
    make_file(L"empty");
    EXPECT_EQ(files.read_start(root + "empty", wide, 1), 0);
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
    const FILETIME time{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
    const HANDLE file = CreateFileW((wide_root + L"f").c_str(), GENERIC_WRITE | FILE_WRITE_ATTRIBUTES, 7,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    DWORD written = 0;
    EXPECT_TRUE(WriteFile(file, "1234567", 7, &written, nullptr));
    EXPECT_TRUE(SetFileTime(file, nullptr, nullptr, &time));
    CloseHandle(file);
    const file_facts after = files.facts(root + "f");
    EXPECT_EQ(after.length, 7);
    EXPECT_EQ(after.modified_ns, 981'173'106'000'000'000);
    EXPECT_EQ(after.identity, before.identity);
    EXPECT_FALSE(same_state(before, after));
}

TEST_F(WindowsDisk, ManyQuestionsAreAnsweredAsOneByOne) {
    make_file(L"a", "1");
    make_file(L"b", "22");
    const std::string a = root + "a", b = root + "b", none = root + "none";
    const std::vector<std::string_view> paths{a, none, b};
    std::vector<file_facts> facts(3);
    std::vector<std::uint8_t> there(3, 7);
    for (std::size_t done = 0; done < 3;) {
        const std::size_t count =
            files.many_facts(std::span(paths).subspan(done), std::span(facts).subspan(done));
        ASSERT_GT(count, 0u);
        done += count;
    }
    EXPECT_EQ(facts[0].length, 1);
    EXPECT_FALSE(facts[1].exists);
    EXPECT_EQ(facts[2].length, 2);
    for (std::size_t done = 0; done < 3;)
        done += files.many_exist(std::span(paths).subspan(done), std::span(there).subspan(done));
    EXPECT_EQ(there, (std::vector<std::uint8_t>{1, 0, 1}));
}

// More than one thread takes at once.
TEST_F(WindowsDisk, ManyFilesAreReadAndAskedAboutAsEachAlone) {
    std::vector<std::string> paths;
    for (const wchar_t* folder : {L"一", L"two"}) {
        make_directory(folder);
        for (int i = 0; i < 90; ++i) {
            const std::wstring name = std::wstring(folder) + L"\\f" + std::to_wstring(i);
            if (i % 9 != 4) make_file(name, "content " + std::to_string(i * i));
            paths.push_back(root + text_of(name));
        }
    }
    const std::vector<std::string_view> asked(paths.begin(), paths.end());
    std::vector<file_facts> told(paths.size());
    for (std::size_t done = 0; done < asked.size();) {
        const std::size_t count =
            files.many_facts(std::span(asked).subspan(done), std::span(told).subspan(done));
        ASSERT_GT(count, 0u);
        done += count;
    }
    std::vector<std::array<std::byte, 16>> buffers(paths.size());
    std::vector<start_request> requests;
    for (std::size_t i = 0; i < paths.size(); ++i) requests.push_back({asked[i], buffers[i], 16});
    for (std::size_t done = 0; done < requests.size();) {
        const std::size_t count = files.read_starts(std::span(requests).subspan(done));
        ASSERT_GT(count, 0u);
        done += count;
    }
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const bool is_there = i % 90 % 9 != 4;
        const std::string content = "content " + std::to_string(i % 90 * (i % 90));
        EXPECT_EQ(told[i].exists, is_there) << paths[i];
        EXPECT_EQ(requests[i].count, is_there ? static_cast<std::int64_t>(content.size()) : -1) << paths[i];
        if (!is_there) continue;
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(buffers[i].data()), content.size()), content);
        const file_facts alone = files.facts(paths[i]);
        EXPECT_TRUE(same_state(told[i], alone)) << paths[i];
        EXPECT_EQ(told[i].link_count, alone.link_count);
    }
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
