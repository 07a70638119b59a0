#include "search/walker.h"

#include <gtest/gtest.h>

#include "core/walk/directory_filter.h"
#include "search/search_task.h"
#include "tests/support/archive_images.h"
#include "tests/support/test_program.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(Walk, ListsFilesSortedByCode) {
    test_program p;
    for (const char* path : {"/d/b.txt", "/d/Z.txt", "/d/sub/a.txt", "/d/sub-x/c.txt"})
        p.files.add_file(path);
    p.search({"/d"});
    EXPECT_EQ(p.listed(), (texts{"/d/Z.txt", "/d/b.txt", "/d/sub-x/c.txt", "/d/sub/a.txt"}));
    EXPECT_EQ(p.form.StatusBar1.panel(1), "搜索出:4");
    EXPECT_EQ(p.form.StatusBar1.panel(7), "文件搜索");
    EXPECT_EQ(p.state.file_list_loaded, -1);
}

TEST(Walk, ASelectedDirectoryMayMissItsClosingSeparator) {
    test_program with, without;
    for (test_program* p : {&with, &without}) p->files.add_file("/d/s/f");
    with.search({"/d/"});
    without.search({"/d"});
    EXPECT_EQ(with.listed(), without.listed());
    EXPECT_EQ(with.state.first_root, "/d/");
    EXPECT_EQ(without.state.first_root, "/d/");
}

TEST(Walk, QueuesLevelByLevel) {
    test_program p;
    for (const char* path : {"/d/a/x/1", "/d/b/2", "/d/a/3"}) p.files.add_file(path);
    p.search({"/d"});
    EXPECT_EQ(p.state.dir_queue, (column<std::string>{"/d/", "/d/a/", "/d/b/", "/d/a/x/"}));
}

TEST(Walk, OverlappingSelectionsListAFileTwice) {
    test_program p;
    p.files.add_file("/d/s/f");
    p.search({"/d", "/d/s"});
    EXPECT_EQ(p.listed(), (texts{"/d/s/f", "/d/s/f"}));
}

TEST(Walk, AnEmptySelectedEntryIsSkipped) {
    test_program p;
    p.files.add_file("/d/f");
    p.search({"", "   ", "/d"});
    EXPECT_EQ(p.listed(), texts{"/d/f"});
}

TEST(Walk, AnUnreadableDirectoryIsPassedOverSilently) {
    test_program p;
    p.files.add_file("/d/f");
    p.files.add_file("/d/locked/g");
    p.files.add_directory("/d/locked").unreadable = true;
    p.search({"/d", "/gone"});
    EXPECT_EQ(p.listed(), texts{"/d/f"});
    EXPECT_TRUE(p.screen.messages.empty());
}

TEST(Walk, FifosAndDevicesAreNotListed) {
    test_program p;
    p.files.add_file("/d/f");
    p.files.add_file("/d/pipe").kind = entry_kind::other;
    p.search({"/d"});
    EXPECT_EQ(p.listed(), texts{"/d/f"});
}

TEST(Walk, ALinkToADirectoryIsVisitedLastAndOnlyIfNew) {
    test_program p;
    p.files.add_file("/d/z/f");
    p.files.add_file("/other/g");
    p.files.add_link("/d/a_seen", "/d/z");
    p.files.add_link("/d/b_new", "/other");
    p.files.add_link("/d/c_again", "/other");
    p.files.add_link("/d/z/loop", "/d");
    p.search({"/d"});
    EXPECT_EQ(p.listed(), (texts{"/d/b_new/g", "/d/z/f"}));
    EXPECT_EQ(p.state.dir_queue.back(), "/d/b_new/");
}

TEST(Walk, ALinkToADirectoryAboveTheSelectionIsNotFollowed) {
    test_program p;
    p.files.add_file("/top/d/f");
    p.files.add_file("/top/secret");
    p.files.add_link("/top/d/up", "/top");
    p.search({"/top/d"});
    EXPECT_EQ(p.listed(), texts{"/top/d/f"});
}

TEST(Walk, ASelectedLinkDoesNotListItsTargetTwice) {
    test_program p;
    p.files.add_file("/real/f");
    p.files.add_link("/link", "/real");
    p.search({"/link", "/real"});
    EXPECT_EQ(p.listed(), texts{"/real/f"});
    p.search({"/link"});
    EXPECT_EQ(p.listed(), texts{"/link/f"});
}

TEST(Walk, TellsThatTheCurrentDirectoryCannotBeListedAndSearchesAllTheSame) {
    test_program p;
    p.files.add_file("/d/f");
    p.files.add_directory("/locked").unreadable = true;
    p.state.current_dir = "/locked/";
    p.search({"/d"});
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.screen.messages[0].title, "Deferred Error Test,请选择新的目录");
    EXPECT_EQ(p.screen.messages[0].text, "access denied");
    EXPECT_FALSE(p.screen.messages[0].failure);
    EXPECT_EQ(p.listed(), texts{"/d/f"});
}

TEST(Walk, ASelectedLinkToADirectoryAboveListsEachFileOnce) {
    for (const bool link_first : {true, false}) {
        test_program p;
        for (const char* path : {"/a/b/f", "/a/b/c/g", "/a/e", "/a/k/h"}) p.files.add_file(path);
        p.files.add_link("/link", "/a");
        p.files.add_link("/a/k/loop", "/a");
        if (link_first)
            p.search({"/link", "/a/b"});
        else
            p.search({"/a/b", "/link"});
        EXPECT_EQ(p.listed(), (texts{"/a/b/c/g", "/a/b/f", "/link/e", "/link/k/h"}));
    }
}

TEST(Walk, ASelectedLinkBelowAnotherSelectedLinkListsEachFileOnce) {
    test_program p;
    for (const char* path : {"/a/b/f", "/a/e"}) p.files.add_file(path);
    p.files.add_link("/below", "/a/b");
    p.files.add_link("/link", "/a");
    p.search({"/below", "/link"});
    EXPECT_EQ(p.listed(), (texts{"/below/f", "/link/e"}));
}

TEST(Walk, AReportThatCannotBeWrittenIsToldWithTheSystemsWordsAndStopsNothing) {
    test_program p;
    p.files.add_file("/d/f");
    p.files.write_failure_path = "/prog/err.txt";
    p.state.scan_archives = 1;
    p.search({"/d"});
    EXPECT_EQ(p.listed(), texts{"/d/f"});
    EXPECT_EQ(p.state.file_list_loaded, -1);
    ASSERT_EQ(p.screen.messages.size(), 1u);
    EXPECT_EQ(p.last_message(), "/prog/err.txt\r\ndisk full");
}

TEST(Walk, StopsAtTheLimitsAndSaysSoOnce) {
    test_program p;
    for (int i = 0; i < 20; ++i) p.files.add_file("/d/" + std::to_string(10 + i) + "/f");
    p.state.limits.files = 5;
    p.search({"/d"});
    EXPECT_EQ(p.state.file_count, 5);
    EXPECT_EQ(p.screen.messages.size(), 1u);
    p.state.limits.files = 1000;
    p.state.limits.directories = 4;
    p.search({"/d"});
    EXPECT_EQ(p.state.dir_queue.size(), 4);
    EXPECT_EQ(p.state.file_count, 3);
    EXPECT_EQ(p.screen.messages.size(), 2u);
    for (const message& said : p.screen.messages) EXPECT_FALSE(said.failure) << "the list stands";
}

TEST(Walk, ShowsTheCountAndYieldsAtEachMultipleOf561) {
    test_program p;
    for (int i = 0; i < 1200; ++i) p.files.add_file("/d/" + std::to_string(10000 + i));
    p.select({"/d"});
    texts shown;
    for (std::int64_t yield = 1; yield < 60; ++yield)
        p.screen.acts[yield] = [&] { shown.push_back(p.form.StatusBar1.panel(1)); };
    walk_directories(p.form);
    EXPECT_EQ(shown, (texts{"561", "1122"}));
}

TEST(Walk, DirectoriesThatVanishOrGrowMeanwhileAreSurvived) {
    test_program p;
    for (int i = 0; i < 600; ++i) p.files.add_file("/d/a/" + std::to_string(i));
    p.files.add_file("/d/b/f");
    p.files.add_file("/d/c/g");
    p.select({"/d"});
    p.screen.acts[1] = [&] {
        p.files.erase("/d/b");
        p.files.erase("/d/b/f");
        p.files.add_file("/d/c/new");
    };
    walk_directories(p.form);
    EXPECT_EQ(p.state.walk_count, 602);
}

TEST(Walk, ThePathInTheStatusBarChangesOnlyAfterMoreThan100NewFiles) {
    test_program p;
    for (int i = 0; i < 101; ++i) p.files.add_file("/d/a/" + std::to_string(1000 + i));
    p.files.add_file("/d/b/f");
    p.files.add_file("/d/c/f");
    p.state.scan_archives = 0;
    p.select({"/d/a", "/d/b", "/d/c"});
    walk_directories(p.form);
    EXPECT_EQ(p.form.StatusBar1.panel(2), "正在搜索/d/b/");
}

TEST(Walk, TakesARejectedFileIntoAccountForItsYield) {
    test_program p;
    p.state.exclude_type_text = ".TMP ";
    p.state.exclude_type_length = 5;
    for (int i = 0; i < 4; ++i) p.files.add_file("/d/" + std::to_string(i) + ".tmp");
    p.select({"/d"});
    walk_directories(p.form);
    EXPECT_EQ(p.screen.yields, 4);  // the count stands at 0, a multiple
}

TEST(Filter, OnlySearchTypesOutrankExcludedTypes) {
    test_program p;
    for (const char* name : {"/d/a.gif", "/d/b.txt", "/d/none"}) p.files.add_file(name);
    p.state.only_type_text = ".GIF ";
    p.state.only_type_length = 5;
    p.state.exclude_type_text = ".GIF ";
    p.state.exclude_type_length = 5;
    p.search({"/d"});
    EXPECT_EQ(p.listed(), texts{"/d/a.gif"});
}

TEST(Filter, WithExcludedTypesOnlyAFileWithoutADotIsKept) {
    test_program p;
    for (const char* name : {"/d/a.GIF", "/d/b.gifx", "/d/none"}) p.files.add_file(name);
    p.state.exclude_type_text = ".GIF .DLL ";
    p.state.exclude_type_length = 10;
    p.search({"/d"});
    EXPECT_EQ(p.listed(), (texts{"/d/b.gifx", "/d/none"}));
}

TEST(Filter, ADotInADirectoryNameMatchesNoType) {
    test_program p;
    p.files.add_file("/d.gif/none");
    p.state.exclude_type_text = ".GIF ";
    p.state.exclude_type_length = 5;
    p.search({"/d.gif"});
    EXPECT_EQ(p.listed(), texts{"/d.gif/none"});
}

TEST(Filter, FoldsLettersBeyondAscii) {
    test_program p;
    p.files.add_file("/d/a.été");
    p.state.exclude_type_text = ".ÉTÉ ";
    p.state.exclude_type_length = 7;
    p.search({"/d"});
    EXPECT_EQ(p.state.file_count, 0);
}

TEST(SkipDirectory, AnExcludedEntryMatchesWholeAndLeavesOutWhatLiesUnderIt) {
    test_program p;
    for (const char* path : {"/c/temp/f", "/c/temp/s/g", "/c/temp2/h"}) p.files.add_file(path);
    p.state.exclude_dir_text = "/C/TEMP/ ";
    p.search({"/c"});
    EXPECT_EQ(p.listed(), texts{"/c/temp2/h"});
}

TEST(SkipDirectory, AnExclusionMatchesAWholeEntryFromItsBeginning) {
    for (const char separator : {'/', '\\'}) {
        test_program p(separator);
        file_system& files = p.form.outside.files;
        const auto path = [&](std::string text) {
            std::replace(text.begin(), text.end(), '/', separator);
            return text;
        };
        const std::string excluded = path("/VAR/TMP/ /A/X /TMP/ /LAST/ ");
        for (const char* out : {"/var/tmp/", "/a/x /tmp/", "/Last/"})
            EXPECT_TRUE(skip_directory(files, excluded, path(out))) << out;
        for (const char* in : {"/tmp/", "/", "/x /tmp/", "/var/", "/ast/"})
            EXPECT_FALSE(skip_directory(files, excluded, path(in))) << in;
        EXPECT_TRUE(skip_directory(files, path("/VAR/ / "), path("/")));
    }
}

TEST(SkipDirectory, AHiddenRecyclerAtTheTopOfADriveIsPassedOver) {
    test_program p('\\');
    p.files.add_directory("D:\\RECYCLER").hidden = true;
    p.files.add_directory("E:\\RECYCLER");
    p.files.add_directory("D:\\DATA\\RECYCLER").hidden = true;
    p.files.add_directory("D:\\recycled").hidden = true;
    EXPECT_TRUE(skip_directory(p.form.outside.files, p.form.state.exclude_dir_text, "D:\\RECYCLER\\"));
    EXPECT_TRUE(skip_directory(p.form.outside.files, p.form.state.exclude_dir_text, "D:\\recycled\\"));
    EXPECT_FALSE(skip_directory(p.form.outside.files, p.form.state.exclude_dir_text, "E:\\RECYCLER\\"));
    EXPECT_FALSE(skip_directory(p.form.outside.files, p.form.state.exclude_dir_text, "D:\\DATA\\RECYCLER\\"));
}

TEST(SkipDirectory, TheBinThatADiskNamesIsPassedOverOnADriveToo) {
    test_program p('\\');
    p.files.add_file("D:\\$RECYCLE.BIN\\S-1\\f");
    p.files.add_file("D:\\data\\f");
    p.files.recycle_directories.insert("D:\\$RECYCLE.BIN\\");
    p.search({"D:\\"});
    EXPECT_EQ(p.listed(), texts{"D:\\data\\f"});
}

TEST(SkipDirectory, TheDesktopsTrashIsPassedOver) {
    test_program p;
    p.files.add_file("/v/.Trash-0/files/f");
    p.files.add_file("/v/f");
    p.files.recycle_directories.insert("/v/.Trash-0/");
    p.search({"/v"});
    EXPECT_EQ(p.listed(), texts{"/v/f"});
}

TEST(Walk, WorksWithBackslashesUnchanged) {
    test_program p('\\');
    p.files.add_file("D:\\data\\s\\f.txt");
    p.search({"D:\\data"});
    EXPECT_EQ(p.listed(), texts{"D:\\data\\s\\f.txt"});
}

// A ZIP with one member, listed as "<path>*in.txt*00C0FFEE*77".
std::string one_member_zip(const std::string& comment = {}) {
    return zip_image({{.name = "in.txt", .crc = 0x00C0FFEE, .size = 77, .comment = comment}});
}

TEST(Archives, AreReadOnlyWhileTheOptionIsOn) {
    test_program p;
    p.files.add_file("/d/a.ZIP", one_member_zip());
    p.files.add_file("/d/b.rar", rar_image({{.name = "r.txt", .crc = 0x1234, .size = 5, .data = "hello"}}));
    p.select({"/d"});
    list_files(p.form);
    EXPECT_EQ(p.files.total_opened(), 0);
    EXPECT_EQ(p.listed(), (texts{"/d/a.ZIP", "/d/b.rar"}));
    p.state.scan_archives = 1;
    list_files(p.form);
    EXPECT_EQ(p.listed(),
              (texts{"/d/a.ZIP", "/d/a.ZIP*in.txt*00C0FFEE*77", "/d/b.rar", "/d/b.rar*r.txt*00001234*5"}));
}

TEST(Archives, AnExcludedArchiveStillAddsItsEntries) {
    test_program p;
    p.files.add_file("/d/a.zip", one_member_zip());
    p.select({"/d"});
    p.state.scan_archives = 1;
    p.state.exclude_type_text = ".ZIP ";
    p.state.exclude_type_length = 5;
    list_files(p.form);
    EXPECT_EQ(p.listed(), texts{"/d/a.zip*in.txt*00C0FFEE*77"});
}

TEST(Archives, TheDisplayListIsCutAndKeepsRepeats) {
    test_program p;
    p.files.add_file("/d/a.zip", one_member_zip());
    p.select({"/d"});
    p.state.scan_archives = 1;
    picture2_Click(p.form);
    EXPECT_EQ(p.stored_lines("文件清单.txt"), (texts{"/d/a.zip", "/d/a.zip*in.txt*00C0FFEE*77"}));
    EXPECT_EQ(p.stored_lines("temp.txt"), (texts{"/d/a.zip", "/d/a.zip"}));
    EXPECT_EQ(p.form.RichTextBox2.path(), "/prog/temp.txt");
}

TEST(Archives, TheErrorReportIsEmptiedByEverySearchAndHeadedWhileTheOptionIsOn) {
    test_program p;
    p.files.add_file("/d/f");
    p.files.add_file("/prog/err.txt", "old");
    p.search({"/d"});
    EXPECT_EQ(p.files.content_of("/prog/err.txt"), "");
    p.state.scan_archives = 1;
    p.search({"/d"});
    EXPECT_EQ(p.files.content_of("/prog/err.txt"), "压缩包错误清单\r\n");
    EXPECT_TRUE(p.desktop.calls.empty());
}

TEST(Archives, AReportWithErrorsGetsTheAdviceAndIsOpened) {
    test_program p;
    p.files.add_file("/d/a.zip", one_member_zip("a comment"));
    p.select({"/d"});
    p.state.scan_archives = 1;
    walk_directories(p.form);
    EXPECT_EQ(p.stored_lines("err.txt"),
              (texts{"压缩包错误清单", "/d/a.zip  *in.txt   有附加的信息,可疑", "", "压缩包错误的验证方法",
                     "1.选中所列的一个文件", "2.复制", "3.放在地址栏,或者贴到 <开始\\运行>,回车,即可运行."}));
    EXPECT_EQ(p.desktop.calls, texts{"open /prog/err.txt"});
}

}  // namespace
}  // namespace corvane
