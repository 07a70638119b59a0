// The preview: remembered, what a row asks it, and what it reads of a file.
#include "browser/preview.h"

#include <gtest/gtest.h>

#include "browser/file_preview.h"
#include "browser/list_views.h"
#include "platform/machine.h"
#include "tests/browser/list_program.h"

namespace corvane {
namespace {
using texts = std::vector<std::string>;
using namespace std::string_view_literals;

struct reading {
    file_preview of(const std::string& path) {
        return read_preview(files, encodings, path, [this] { return given_up; });
    }
    memory_file_system files;
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
    bool given_up = false;
};

TEST(FilePreview, ATextIsShownWithItsEncodingAndFacts) {
    reading r;
    r.files.add_file("/a", "照片\nzwei\n").link_count = 3;
    const file_preview found = r.of("/a");
    EXPECT_EQ(found.kind, preview_kind::text);
    EXPECT_EQ(found.text, "照片\nzwei\n");
    EXPECT_EQ(found.heading, "文本, UTF-8");
    EXPECT_EQ(found.note, "");
    EXPECT_EQ(found.facts.length, 12);
    EXPECT_EQ(found.facts.link_count, 3u);
    EXPECT_TRUE(found.access.known);
}

TEST(FilePreview, OfALargeFileTheHeadIsRead) {
    reading r;
    memory_file& file = r.files.add_file("/big", std::string(3'000'000, 'x'));
    file.hole = 0;
    const file_preview found = r.of("/big");
    EXPECT_EQ(found.kind, preview_kind::text);
    EXPECT_EQ(found.note, "只显示开头");
    EXPECT_LE(r.files.bytes_read["/big"], 64 * 1024);
    EXPECT_EQ(found.text.size(), 1000u) << "one line of bounded length";
}

TEST(FilePreview, BinaryBytesAreFiguresAndKnownKindsHaveANameOfTheirOwn) {
    reading r;
    r.files.add_file("/x", std::string("\0\1\2", 3));
    EXPECT_EQ(r.of("/x").kind, preview_kind::binary);
    EXPECT_EQ(r.of("/x").heading, "二进制文件");
    EXPECT_EQ(r.of("/x").text.substr(0, 19), "00000000  00 01 02 ");
    r.files.add_file("/pdf", std::string("%PDF-1.7\n\0\xFF", 11));
    EXPECT_EQ(r.of("/pdf").heading, "PDF 文档");
    EXPECT_EQ(r.of("/pdf").kind, preview_kind::document);
    EXPECT_STREQ(r.of("/pdf").picture_format, "pdf");
    EXPECT_EQ(r.of("/pdf").picture.size(), 11u);
    EXPECT_EQ(r.of("/pdf").text.substr(0, 19), "00000000  25 50 44 ");
    r.files.add_file("/mp3", std::string("ID3\3\0\0\0\0\0\x0FTIT2\0\0\0\5\0\0\0Song", 25));
    EXPECT_EQ(r.of("/mp3").heading, "MP3 音频");
    EXPECT_EQ(r.of("/mp3").tags, "Song");
    r.files.add_file("/mp4", std::string("\0\0\0\x20"
                                         "ftypisom",
                                         12));
    EXPECT_EQ(r.of("/mp4").heading, "MP4 音频或视频");
}

TEST(FilePreview, PicturesAreToldByTheirFirstBytesAndNeverByTheirName) {
    EXPECT_STREQ(picture_format("\x89PNG\r\n\x1A\n...."), "png");
    EXPECT_STREQ(picture_format("\xFF\xD8\xFF\xE0"), "jpeg");
    EXPECT_STREQ(picture_format("RIFF....WEBPVP8 "), "webp");
    EXPECT_STREQ(picture_format("BM\x10\0\0\0\0\0\0\0\x36"sv), "bmp");
    EXPECT_STREQ(picture_format("BMW is no picture"), "");
    EXPECT_STREQ(picture_format("....\0\0\0\0\0\0"sv), "");
    EXPECT_STREQ(picture_format("<svg xmlns='http://www.w3.org/2000/svg'/>"), "") << "drawings are texts";
    EXPECT_STREQ(picture_format(""), "");
    reading r;
    r.files.add_file("/text.png", "no picture");
    EXPECT_EQ(r.of("/text.png").kind, preview_kind::text);
    r.files.add_file("/p", "\x89PNG\r\n\x1A\n" + std::string(200'000, 'd'));
    const file_preview found = r.of("/p");
    EXPECT_EQ(found.kind, preview_kind::picture);
    EXPECT_EQ(found.picture.size(), 200'008u) << "the whole file";
}

TEST(FilePreview, APictureBeyondTheBoundIsShownByItsHead) {
    reading r;
    memory_file& file = r.files.add_file("/p", "\x89PNG\r\n\x1A\n");
    file.hole = largest_picture;
    file.hole_at = 8;
    const file_preview found = r.of("/p");
    EXPECT_EQ(found.kind, preview_kind::binary);
    EXPECT_EQ(found.note, "文件太大,只显示开头");
    EXPECT_LE(r.files.bytes_read["/p"], 64 * 1024);
}

TEST(FilePreview, WhatIsNoFileIsNeitherOpenedNorRead) {
    reading r;
    r.files.add_directory("/d");
    r.files.add_file("/fifo").kind = entry_kind::other;
    EXPECT_EQ(r.of("/d").kind, preview_kind::directory);
    EXPECT_EQ(r.of("/fifo").note, "不是普通文件,不打开");
    EXPECT_EQ(r.of("/gone").note, "文件已经不在");
    EXPECT_EQ(r.of("/a.zip*in/x").heading, "压缩包内的文件,不解开");
    EXPECT_TRUE(r.files.opened.empty());
}

TEST(FilePreview, FailuresAreLines) {
    reading r;
    r.files.add_file("/locked", "x").unreadable = true;
    EXPECT_TRUE(r.of("/locked").note.starts_with("不能读: "));
    r.files.add_file("/broken", std::string(1000, 'x')).read_failure = 10;
    EXPECT_EQ(r.of("/broken").note, "读到一半出错");
    r.files.add_file("/empty");
    EXPECT_EQ(r.of("/empty").heading, "空文件");
}

// A disk that changes a file when it is opened.
class changing_disk : public memory_file_system {
  public:
    outcome_with<file_reader> open_file(std::string_view path) override {
        auto file = memory_file_system::open_file(path);
        on_open();
        return file;
    }
    std::function<void()> on_open;
};

TEST(FilePreview, AFileThatChangesWhileItIsReadIsTold) {
    changing_disk disk;
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
    memory_file& file = disk.add_file("/a", "old");
    disk.on_open = [&] { ++file.changed_ns; };
    EXPECT_EQ(read_preview(disk, encodings, "/a", [] { return false; }).note, "文件在读的时候变了");
    disk.on_open = [&] { disk.erase("/a"); };
    const file_preview gone = read_preview(disk, encodings, "/a", [] { return false; });
    EXPECT_EQ(gone.note, "文件在读的时候变了");
}

TEST(FilePreview, AReadingThatIsGivenUpEndsBetweenTwoPieces) {
    reading r;
    r.files.add_file("/p", "\x89PNG\r\n\x1A\n" + std::string(8'000'000, 'd'));
    int asked = 0;
    read_preview(r.files, r.encodings, "/p", [&] { return ++asked > 3; });
    EXPECT_LE(r.files.bytes_read["/p"], 3 << 20);
    // Given up before: the disk is asked for no more than its attributes.
    r.given_up = true;
    r.files.opened.clear();
    EXPECT_EQ(r.of("/p").kind, preview_kind::none);
    EXPECT_TRUE(r.files.opened.empty());
}

struct previewing : test_program {
    void show(std::initializer_list<std::array<const char*, 2>> pairs) {
        list_view& list = form.ListView1;
        set_columns(list, view_of(list_modes::same_files));
        state.list_mode = list_modes::same_files;
        for (const auto& pair : pairs) {
            const std::int32_t row = list.add_row();
            list.set_number(row, 1, row);
            list.set_number(row, 2, 5);
            list.set_text(row, 3, pair[0]);
            list.set_text(row, 4, pair[1]);
        }
        list.visible = true;
    }
};

TEST(Preview, IsShownAndHiddenByItsEntryAndRemembered) {
    {
        test_program p;
        EXPECT_FALSE(preview_shown(p.form));
        p.form.run("preview_m");
        EXPECT_TRUE(preview_shown(p.form));
        EXPECT_EQ(p.files.content_of("/prog/预览.txt"), "preview=1\r\n");
        p.form.run("preview_m");
        EXPECT_FALSE(preview_shown(p.form));
        EXPECT_EQ(p.files.content_of("/prog/预览.txt"), "preview=0\r\n");
    }
    const std::pair<std::string, bool> files[] = {{"preview=1\r\n", true},
                                                  {"preview=1", true},
                                                  {"preview=0\r\n", false},
                                                  {"preview=12\r\n", false},
                                                  {std::string(100'000, '\0'), false},
                                                  {"", false}};
    for (const auto& [content, shown] : files) {
        test_program p;
        p.add_used_folder();
        p.files.add_file("/prog/预览.txt", content);
        p.corvane.start();
        EXPECT_EQ(preview_shown(p.form), shown) << content.substr(0, 20);
    }
}

TEST(Preview, AFullDiskIsToldAndTheEntryHoldsForThisRun) {
    test_program p;
    p.files.write_failure_path = "/prog/预览.txt";
    p.form.run("preview_m");
    EXPECT_TRUE(preview_shown(p.form));
    EXPECT_EQ(p.last_message(), "/prog/预览.txt\r\ndisk full");
}

TEST(Preview, ARowAsksForItsPathsAndNamesTheCopiesElsewhere) {
    previewing p;
    p.show({{"/a", "/b"}, {"/x", "/y"}, {"/a", "/c"}, {"/d", "/a"}, {"/c", "/e"}});
    const preview_question asked = preview_of_row(p.form, 1);
    EXPECT_EQ(asked.paths, (texts{"/a", "/b"}));
    EXPECT_EQ(asked.lengths, (texts{"5", "5"}));
    EXPECT_EQ(asked.other_copies, (texts{"/c", "/d"}));
    EXPECT_TRUE(preview_of_row(p.form, 2).other_copies.empty());
    EXPECT_TRUE(preview_of_row(p.form, 0).paths.empty());
    EXPECT_TRUE(preview_of_row(p.form, 6).paths.empty());
}

TEST(Preview, ABlankCellIsNoFileAndNoCopy) {
    previewing p;
    p.show({{"/a", ""}, {"/a", "/c"}, {"", ""}});
    EXPECT_EQ(preview_of_row(p.form, 1).paths, texts{"/a"});
    EXPECT_EQ(preview_of_row(p.form, 1).other_copies, texts{"/c"});
    EXPECT_TRUE(preview_of_row(p.form, 3).paths.empty());
    EXPECT_TRUE(preview_of_row(p.form, 3).other_copies.empty());
}

TEST(Preview, CopiesAreBounded) {
    previewing p;
    p.show({{"/a", "/b"}});
    list_view& list = p.form.ListView1;
    for (int i = 0; i < 30; ++i) {
        const std::int32_t row = list.add_row();
        list.set_number(row, 2, 5);
        list.set_text(row, 3, "/a");
        list.set_text(row, 4, "/n" + std::to_string(i));
    }
    const preview_question asked = preview_of_row(p.form, 1);
    EXPECT_EQ(asked.other_copies.size(), 20u);
    EXPECT_TRUE(asked.more_copies);
}

TEST(Preview, ViewsOfOnePathAskForOneFile) {
    previewing p;
    list_view& list = p.form.ListView1;
    set_columns(list, view_of(list_modes::empty_directories));
    p.state.list_mode = list_modes::empty_directories;
    const std::int32_t row = list.add_row();
    list.set_text(row, 2, "/empty");
    EXPECT_EQ(preview_of_row(p.form, 1).paths, texts{"/empty"});
    EXPECT_EQ(preview_of_row(p.form, 1).lengths, texts{""});
    EXPECT_TRUE(preview_of_row(p.form, 1).other_copies.empty());
}

}  // namespace
}  // namespace corvane
