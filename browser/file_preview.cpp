#include "browser/file_preview.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "core/archives/archive_entry.h"
#include "core/text/decoded_text.h"
#include "core/text/media_tags.h"

namespace corvane {

namespace {

using namespace std::string_view_literals;

constexpr std::size_t head_length = 65'536;
constexpr std::size_t hex_length = 2'048;
constexpr std::size_t piece_length = 1 << 20;
constexpr int most_lines = 400;
constexpr int longest_line = 1000;

struct signature {
    std::size_t place;
    std::string_view bytes;
    const char* name;
};

constexpr signature pictures[] = {{0, "\x89PNG\r\n\x1A\n"sv, "png"},
                                  {0, "\xFF\xD8\xFF"sv, "jpeg"},
                                  {0, "GIF87a"sv, "gif"},
                                  {0, "GIF89a"sv, "gif"},
                                  {8, "WEBPVP8"sv, "webp"},
                                  {6, "\0\0\0\0"sv, "bmp"},
                                  {0, "\0\0\1\0"sv, "ico"}};

// Others that a reader would like to know by name.
constexpr signature kinds[] = {{0, "%PDF-"sv, "PDF 文档"},
                               {0, "PK\3\4"sv, "ZIP 压缩包"},
                               {0, "Rar!\x1A\7"sv, "RAR 压缩包"},
                               {0, "7z\xBC\xAF\x27\x1C"sv, "7z 压缩包"},
                               {0, "\x1F\x8B"sv, "gzip 压缩"},
                               {0, "ID3"sv, "MP3 音频"},
                               {0, "fLaC"sv, "FLAC 音频"},
                               {0, "OggS"sv, "Ogg 音频或视频"},
                               {4, "ftyp"sv, "MP4 音频或视频"},
                               {8, "WAVEfmt"sv, "WAV 音频"},
                               {8, "AVI "sv, "AVI 视频"},
                               {0, "\x1A\x45\xDF\xA3"sv, "Matroska 视频"},
                               {0,
                                "\x7F"
                                "ELF"sv,
                                "程序"},
                               {0, "MZ"sv, "Windows 程序"},
                               {0, "SQLite format 3\0"sv, "SQLite 数据库"}};

bool begins(std::string_view head, const signature& each) {
    return head.size() >= each.place + each.bytes.size() && head.substr(each.place).starts_with(each.bytes);
}

std::string_view as_text(const std::vector<std::byte>& bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Up to `length` bytes from the start; false on a read error.
bool read_up_to(file_reader& file, std::int64_t length, std::vector<std::byte>& bytes,
                const std::function<bool()>& given_up) {
    while (static_cast<std::int64_t>(bytes.size()) < length && !given_up()) {
        const std::size_t from = bytes.size();
        const auto left = static_cast<std::size_t>(length) - from;
        bytes.resize(from + std::min(left, piece_length));
        const std::int64_t count =
            file.read_at(static_cast<std::int64_t>(from), std::span(bytes).subspan(from));
        bytes.resize(from + static_cast<std::size_t>(std::max<std::int64_t>(count, 0)));
        if (count < 0) return false;
        if (count == 0) return true;
    }
    return true;
}

void show_bytes(file_preview& found, std::string_view head) {
    found.kind = preview_kind::binary;
    found.text = hex_lines(head.substr(0, hex_length));
    found.heading = "二进制文件";
    for (const signature& each : kinds)
        if (begins(head, each)) {
            found.heading = each.name;
            break;
        }
}

void show_head(file_preview& found, const std::vector<std::byte>& bytes, text_encoding& encodings) {
    const std::string_view head = as_text(bytes);
    const bool cut = found.facts.length > static_cast<std::int64_t>(bytes.size());
    bool shortened = cut;
    const decoded_text text = decode_text(head, cut, encodings);
    // A document may look like a text for a while.
    if (text.is_text && !head.starts_with("%PDF-")) {
        found.kind = preview_kind::text;
        found.text = first_lines(text.utf8, most_lines, longest_line, shortened);
        found.heading = std::string("文本, ") + text.encoding;
    } else {
        show_bytes(found, head);
        found.tags = media_tags(head, encodings);
        shortened = found.facts.length > static_cast<std::int64_t>(hex_length);
    }
    if (shortened) found.note = "只显示开头";
}

}  // namespace

const char* picture_format(std::string_view head) {
    for (const signature& each : pictures) {
        const bool is_bitmap = each.name == "bmp"sv;
        if (is_bitmap && !head.starts_with("BM")) continue;
        if (each.name == "webp"sv && !head.starts_with("RIFF")) continue;
        if (begins(head, each)) return each.name;
    }
    return "";
}

file_preview read_preview(file_system& files, text_encoding& encodings, const std::string& path,
                          const std::function<bool()>& given_up) {
    file_preview found;
    if (is_archive_member(path)) {
        found.heading = "压缩包内的文件,不解开";
        return found;
    }
    // The disk is asked for nothing any more once that is not wanted: it may have gone meanwhile.
    const path_attributes attributes = files.attributes(path);
    if (given_up()) return found;
    if (attributes.directory) {
        found.kind = preview_kind::directory;
        found.heading = "这是一个目录";
        return found;
    }
    found.facts = files.facts(path);
    if (given_up()) return found;
    if (!found.facts.exists) {
        found.note = attributes.exists ? "不是普通文件,不打开" : "文件已经不在";
        return found;
    }
    found.access = files.access(path);
    if (given_up()) return found;
    const auto file = files.open_file(path);
    if (!file) {
        found.note = "不能读: " + file.reason;
        return found;
    }
    if (given_up()) return found;
    std::vector<std::byte> bytes;
    bool whole = read_up_to(*file, head_length, bytes, given_up);
    const char* format = picture_format(as_text(bytes));
    const bool is_document = as_text(bytes).starts_with("%PDF-");
    if (is_document) format = "pdf";
    const bool is_picture = *format != '\0' && found.facts.length <= largest_picture;
    if (is_picture && whole) whole = read_up_to(*file, found.facts.length, bytes, given_up);
    if (!whole) {
        found.note = "读到一半出错";
    } else if (found.facts.length == 0 && bytes.empty()) {
        found.heading = "空文件";
    } else if (is_picture) {
        found.kind = is_document ? preview_kind::document : preview_kind::picture;
        if (is_document) {
            found.text = hex_lines(as_text(bytes).substr(0, hex_length));
            found.heading = "PDF 文档";
        }
        found.picture_format = format;
        found.picture = std::move(bytes);
    } else {
        show_head(found, bytes, encodings);
        if (*format != '\0') found.note = "文件太大,只显示开头";
    }
    if (given_up()) return found;
    if (!same_state(files.facts(path), found.facts)) found.note = "文件在读的时候变了";
    return found;
}

}  // namespace corvane
