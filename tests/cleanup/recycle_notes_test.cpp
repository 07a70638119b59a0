// What a run to the recycle bin notes while it runs, and how the notes are read back.
#include "cleanup/recycle_notes.h"

#include <gtest/gtest.h>

#include "cleanup/recycled_run.h"
#include "tests/cleanup/restoring.h"

namespace corvane {
namespace {

using texts = std::vector<std::string>;

TEST(RecycleNotes, ARunNotesPairsFilesAndPlaces) {
    restoring_program p;
    p.show_files({{3, "/d/a", "/e/a"}, {3, "/d/a", "/f/a"}, {5, "/d/b", "/e/b"}});
    p.delete_cells({{1, 4}, {2, 4}});
    const recycled_run run = read_recycled_run(p.files, p.note_path(1));
    EXPECT_TRUE(run.known);
    EXPECT_TRUE(run.complete);
    EXPECT_EQ(run.time, "2026-03-04 05:06:07");
    ASSERT_EQ(run.files.size(), 2u);
    EXPECT_EQ(run.files[0].item.path, "/e/a");
    EXPECT_EQ(run.files[0].item.folder, "/e");
    EXPECT_EQ(run.files[0].item.length, 3);
    EXPECT_EQ(run.files[0].entry.name, "entry1");
    EXPECT_EQ(run.files[1].item.path, "/f/a");
    EXPECT_EQ(run.files[1].entry.name, "entry2");
    EXPECT_EQ(run.count(), 2u);
    EXPECT_EQ(run.bytes(), 6);
    ASSERT_EQ(run.pairs.size(), 2u) << "the third pair loses nothing";
    EXPECT_EQ(run.pairs[1].second, "/f/a");
    EXPECT_EQ(run.pairs[1].length, 3);
}

TEST(RecycleNotes, APathIsNotedBeforeItGoes) {
    restoring_program p;
    p.show_files({{3, "/d/a", "/e/a"}});
    std::string noted;
    const auto recycle = p.desktop.on_recycle;
    p.desktop.on_recycle = [&](const std::string& path) {
        noted = p.files.content_of(p.note_path(1));
        return recycle(path);
    };
    p.delete_cells({{1, 4}});
    EXPECT_NE(noted.find("\t/e/a\t."), std::string::npos) << noted;
    EXPECT_NE(noted.find("P\t3\t/d/a\t/e/a\t."), std::string::npos) << noted;
}

TEST(RecycleNotes, TwoRunsOfOneSecondHaveTwoFiles) {
    restoring_program p;
    p.show_files({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}});
    p.delete_cells({{1, 4}});
    p.delete_cells({{2, 4}});
    EXPECT_EQ(recycled_runs(p.files, p.program_dir + "删除记录"), (texts{p.note_path(2), p.note_path(1)}))
        << "the newest first";
    EXPECT_EQ(read_recycled_run(p.files, p.note_path(1)).files[0].item.path, "/e/a");
    EXPECT_EQ(read_recycled_run(p.files, p.note_path(2)).files[0].item.path, "/e/b");
}

TEST(RecycleNotes, WhatTheBinRefusedHasStayed) {
    restoring_program p;
    p.show_files({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}});
    p.refused.insert("/e/a");
    p.delete_cells({{1, 4}, {2, 4}});
    const recycled_run run = read_recycled_run(p.files, p.note_path(1));
    ASSERT_EQ(run.files.size(), 2u);
    EXPECT_TRUE(run.files[0].stayed);
    EXPECT_FALSE(run.files[1].stayed);
    EXPECT_EQ(run.count(), 1u);
    EXPECT_TRUE(run.complete);
}

TEST(RecycleNotes, ADirectDeletionNotesNothing) {
    restoring_program p;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.mark(1, 4);
    p.run_direct({box_answer::yes});
    EXPECT_FALSE(p.files.has("/e/a"));
    EXPECT_TRUE(recycled_runs(p.files, p.program_dir + "删除记录").empty());
}

TEST(RecycleNotes, WithoutAWayBackNothingIsNoted) {
    restoring_program p;
    p.form.outside.bin = nullptr;
    p.show_files({{3, "/d/a", "/e/a"}});
    p.delete_cells({{1, 4}});
    EXPECT_EQ(p.recycled, texts{"/e/a"});
    EXPECT_FALSE(p.files.has(p.note_path(1)));
    EXPECT_EQ(p.bin.finds, 0u);
}

TEST(RecycleNotes, NotesThatCannotBeWrittenAreSaidOnceAndTheFilesGoAllTheSame) {
    restoring_program p;
    p.show_files({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}});
    p.files.write_failure_path = p.note_path(1);
    p.screen.messages.clear();
    p.delete_cells({{1, 4}, {2, 4}});
    EXPECT_EQ(p.recycled.size(), 2u);
    int said = 0;
    for (const message& each : p.screen.messages) said += each.text.find("disk full") != std::string::npos;
    EXPECT_EQ(said, 1);
    EXPECT_NE(p.last_message().find("放入回收站:2 个文件"), std::string::npos)
        << "the report is the last word";
    EXPECT_EQ(p.stored_pairs(), texts{});
}

TEST(RecycleNotes, APairThatAFilterHidesIsNoted) {
    restoring_program p;
    p.show_files({{3, "/d/a.x", "/e/a.x"}, {3, "/e/a.x", "/f/a.y"}});
    p.screen.texts = {"*.y"};
    p.form.run("not_list");
    ASSERT_EQ(p.list().row_count(), 1);
    p.delete_cells({{1, 4}});
    const recycled_run run = read_recycled_run(p.files, p.note_path(1));
    ASSERT_EQ(run.files.size(), 1u);
    EXPECT_EQ(run.pairs.size(), 2u);
}

TEST(RecycleNotes, ARunThatTheProgramEndsIsNotedSoFar) {
    restoring_program p;
    p.show_files({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}});
    const auto recycle = p.desktop.on_recycle;
    p.desktop.on_recycle = [&](const std::string& path) {
        p.form.run("exit_sub");
        return recycle(path);
    };
    p.delete_cells({{1, 4}, {2, 4}});
    EXPECT_EQ(p.recycled, texts{"/e/a"});
    const recycled_run run = read_recycled_run(p.files, p.note_path(1));
    ASSERT_EQ(run.files.size(), 1u);
    EXPECT_EQ(run.files[0].entry.name, "entry1");
    EXPECT_TRUE(run.complete);
}

TEST(RecycledRun, EachPrefixGivesWhatIsWhole) {
    restoring_program p;
    p.show_files({{3, "/d/a", "/e/a"}, {3, "/d/b", "/e/b"}});
    p.delete_cells({{1, 4}, {2, 4}});
    const std::string all = p.files.content_of(p.note_path(1));
    const recycled_run whole = read_recycled_run(p.files, p.note_path(1));
    ASSERT_TRUE(whole.complete);
    const std::string path = p.program_dir + "cut.txt";
    const std::string end_mark = "Z\t2\t.";
    for (std::size_t length = 0; length < all.size(); ++length) {
        p.files.add_file(path, all.substr(0, length));
        const recycled_run cut = read_recycled_run(p.files, path);
        ASSERT_LE(cut.files.size(), whole.files.size()) << length;
        for (std::size_t i = 0; i < cut.files.size(); ++i) {
            if (cut.files[i].stayed) continue;
            ASSERT_EQ(cut.files[i].item.path, whole.files[i].item.path) << length;
            ASSERT_EQ(cut.files[i].item.modified_ns, whole.files[i].item.modified_ns) << length;
            if (cut.files[i].entry.is_known()) {
                ASSERT_EQ(cut.files[i].entry.name, whole.files[i].entry.name) << length;
                ASSERT_EQ(cut.files[i].entry.place, whole.files[i].entry.place) << length;
            }
        }
        for (std::size_t i = 0; i < cut.pairs.size(); ++i)
            ASSERT_EQ(cut.pairs[i].second, whole.pairs[i].second) << length;
        ASSERT_EQ(cut.complete, length >= all.find(end_mark) + end_mark.size()) << length;
    }
}

TEST(RecycledRun, HostileLinesAreNone) {
    memory_file_system files;
    const auto read = [&](const std::string& body) {
        files.add_file("/n.txt", std::string(recycle_notes_title) + "\r\n" + body);
        return read_recycled_run(files, "/n.txt");
    };
    const std::string good = "F\tf\t1\t2\t3\t4\t/d\t/d/a\t.\r\n";
    EXPECT_EQ(read(good).count(), 1u);
    for (const char* wrong : {"F\tf\t1\t2\t3\t4\t/d\t/d/b\r\n",
                              "F\tf\t1\t2\t-3\t4\t/d\t/d/b\t.\r\n",
                              "F\tq\t1\t2\t3\t4\t/d\t/d/b\t.\r\n",
                              "F\tf\tx\t2\t3\t4\t/d\t/d/b\t.\r\n",
                              "F\tf\t1\t2\t3\t4\t/d\t\t.\r\n",
                              "F\tf\t1\t.\r\n",
                              "F\tf\t1\t2\t99999999999999999999\t4\t/d\t/d/b\t.\r\n",
                              "F\tf\t1\t2\t3\t4\t/d\t/d/b\tmore\t.\r\n",
                              "E\t0\tn\tp\t.\r\n",
                              "E\t7\tn\tp\t.\r\n",
                              "E\t-1\tn\tp\t.\r\n",
                              "E\t1\t\tp\t.\r\n",
                              "E\t1\tn\t.\r\n",
                              "X\t99\t.\r\n",
                              "R\t2\t/x\t.\r\n",
                              "P\tx\t/a\t/b\t.\r\n",
                              "P\t1\t/a\t.\r\n",
                              "Q\t1\t.\r\n",
                              "\t.\r\n",
                              ".\r\n",
                              "\r\n",
                              "Z\t1\r\n",
                              "\x01\x02\xff\r\n"}) {
        const recycled_run run = read(good + wrong + "Z\t1\t.\r\n");
        EXPECT_EQ(run.count(), 1u) << wrong;
        EXPECT_EQ(run.files[0].item.path, "/d/a") << wrong;
        EXPECT_FALSE(run.files[0].entry.is_known()) << wrong;
        EXPECT_TRUE(run.pairs.empty()) << wrong;
        EXPECT_FALSE(run.complete) << wrong;
    }
}

TEST(RecycledRun, AnUnreadableFileLineKeepsItsNumber) {
    memory_file_system files;
    files.add_file("/n.txt",
                   std::string(recycle_notes_title) +
                       "\r\nF\tf\twrong\t.\r\nF\tf\t1\t2\t3\t4\t/d\t/d/a\t.\r\nE\t2\tname\t/bin\t.\r\n");
    const recycled_run run = read_recycled_run(files, "/n.txt");
    ASSERT_EQ(run.files.size(), 2u);
    EXPECT_TRUE(run.files[0].stayed);
    EXPECT_EQ(run.files[1].item.path, "/d/a");
    EXPECT_EQ(run.files[1].entry.name, "name");
}

TEST(RecycledRun, AnotherVersionIsNotRead) {
    memory_file_system files;
    for (const char* text : {"", "Corvane recycled 2\r\nF\tf\t1\t2\t3\t4\t/d\t/d/a\t.\r\n",
                             "F\tf\t1\t2\t3\t4\t/d\t/d/a\t.\r\n"}) {
        files.add_file("/n.txt", text);
        const recycled_run run = read_recycled_run(files, "/n.txt");
        EXPECT_FALSE(run.known) << text;
        EXPECT_TRUE(run.files.empty()) << text;
    }
    EXPECT_FALSE(read_recycled_run(files, "/missing").known);
}

TEST(RecycledRun, AddedLinesKeepWhatStands) {
    memory_file_system files;
    const std::string old = std::string(recycle_notes_title) + "\r\nsomething of another hand\r\nF\tf\t1";
    files.add_file("/n.txt", old);
    ASSERT_TRUE(add_to_recycled_run(files, "/n.txt", {restored_line(1, "/x")}));
    EXPECT_EQ(files.content_of("/n.txt"), old + "\r\nR\t1\t/x\t.\r\n");
    files.write_failure_path = "/n.txt";
    const std::string before = files.content_of("/n.txt");
    EXPECT_FALSE(add_to_recycled_run(files, "/n.txt", {restored_line(2, "/y")}));
    EXPECT_EQ(files.content_of("/n.txt"), before);
}

}  // namespace
}  // namespace corvane
