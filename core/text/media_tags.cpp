#include "core/text/media_tags.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "core/text/decoded_text.h"
#include "core/text/text_case.h"

namespace corvane {

namespace {

constexpr int longest_part = 100;  // letters

// In the order in which they are told.
enum tag_part { title, artist, album, year, parts };
using tag_texts = std::array<std::string, parts>;

std::uint32_t figure(std::string_view bytes, std::size_t width, bool big_end, int bits = 8) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < width; ++i)
        number = number << bits | static_cast<unsigned char>(bytes[big_end ? i : width - 1 - i]);
    return number;
}

void take(tag_texts& tags, tag_part part, std::string_view utf8) {
    bool shortened = false;
    std::string text = first_lines(utf8.substr(0, utf8.find('\0')), 1, longest_part, shortened);
    if (shortened) text += "…";
    if (tags[part].empty()) tags[part] = std::move(text);
}

// The text of a frame: a byte for its encoding, then its letters.
std::string frame_text(std::string_view frame, text_encoding& encodings) {
    const char encoding = frame.front();
    frame.remove_prefix(1);
    // Units of two bytes without a mark stand in the order of the network.
    if (encoding == 2) return decode_text(std::string("\xFE\xFF").append(frame), false, encodings).utf8;
    if (encoding == 1) return decode_text(frame, false, encodings).utf8;
    // Bytes of one byte a letter are, more often than Latin ones, of the writer's own code page.
    while (!frame.empty() && frame.back() == '\0') frame.remove_suffix(1);
    return decode_text(frame.substr(0, frame.find('\0')), false, encodings).utf8;
}

void read_frames(std::string_view head, tag_texts& tags, text_encoding& encodings) {
    struct frame_name {
        std::string_view name;
        tag_part part;
    };
    static constexpr frame_name names[] = {{"TIT2", title}, {"TPE1", artist}, {"TALB", album},
                                           {"TYER", year},  {"TDRC", year},   {"TT2", title},
                                           {"TP1", artist}, {"TAL", album},   {"TYE", year}};
    constexpr std::size_t head_size = 10;
    if (head.size() < head_size) return;
    const int version = static_cast<unsigned char>(head[3]);
    // Frames that are changed as a whole are left alone.
    if (version < 2 || version > 4 || (head[5] & 0x80) != 0) return;
    const std::size_t name_size = version == 2 ? 3 : 4;
    const std::size_t frame_head = version == 2 ? 6 : head_size;
    std::string_view rest = head.substr(head_size, figure(head.substr(6), 4, true, 7));
    if ((head[5] & 0x40) != 0) {
        if (rest.size() < 4) return;
        const std::size_t extended = figure(rest, 4, true, version == 4 ? 7 : 8) + (version == 4 ? 0 : 4);
        rest.remove_prefix(std::min(extended, rest.size()));
    }
    while (rest.size() > frame_head && rest.front() != '\0') {
        const std::string_view name = rest.substr(0, name_size);
        const std::size_t size = figure(rest.substr(name_size), name_size, true, version == 4 ? 7 : 8);
        rest.remove_prefix(frame_head);
        const auto known = std::find_if(std::begin(names), std::end(names),
                                        [&](const frame_name& each) { return each.name == name; });
        if (known != std::end(names) && size > 1 && size <= rest.size())
            take(tags, known->part, frame_text(rest.substr(0, size), encodings));
        rest.remove_prefix(std::min(size, rest.size()));
    }
}

// A block of comments: the writer's name, a count, then "NAME=text" each with its length before it.
void read_comments(std::string_view block, tag_texts& tags) {
    struct comment_name {
        std::string_view name;
        tag_part part;
    };
    static constexpr comment_name names[] = {
        {"TITLE=", title}, {"ARTIST=", artist}, {"ALBUM=", album}, {"DATE=", year}, {"YEAR=", year}};
    const auto next = [&block](std::string_view& text) {
        if (block.size() < 4) return false;
        const std::size_t size = figure(block, 4, false);
        block.remove_prefix(4);
        text = block.substr(0, size);
        block.remove_prefix(text.size());
        return text.size() == size;
    };
    std::string_view text;
    if (!next(text) || block.size() < 4) return;
    std::uint32_t left = figure(block, 4, false);
    block.remove_prefix(4);
    for (; left > 0 && next(text); --left)
        for (const comment_name& each : names)
            if (text.size() > each.name.size() && upper_case(text.substr(0, each.name.size())) == each.name)
                take(tags, each.part, text.substr(each.name.size()));
}

void read_flac(std::string_view head, tag_texts& tags) {
    head.remove_prefix(4);
    while (head.size() > 4) {
        const unsigned kind = static_cast<unsigned char>(head.front());
        const std::size_t size = figure(head.substr(1), 3, true);
        head.remove_prefix(4);
        if ((kind & 0x7F) == 4) return read_comments(head.substr(0, size), tags);
        if ((kind & 0x80) != 0) return;
        head.remove_prefix(std::min(size, head.size()));
    }
}

}  // namespace

std::string media_tags(std::string_view head, text_encoding& encodings) {
    tag_texts tags;
    if (head.starts_with("ID3")) {
        read_frames(head, tags, encodings);
    } else if (head.starts_with("fLaC")) {
        read_flac(head, tags);
    } else if (head.starts_with("OggS")) {
        for (const std::string_view mark : {std::string_view("\3vorbis"), std::string_view("OpusTags")})
            if (const std::size_t place = head.find(mark); place != std::string_view::npos)
                read_comments(head.substr(place + mark.size()), tags);
    }
    std::string words;
    for (const std::string& each : tags) {
        if (each.empty()) continue;
        if (!words.empty()) words += " — ";
        words += each;
    }
    return words;
}

}  // namespace corvane
