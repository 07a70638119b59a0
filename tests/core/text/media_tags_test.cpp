// Tags of music, and what hostile ones do.
#include "core/text/media_tags.h"

#include <gtest/gtest.h>

#include "platform/machine.h"

namespace corvane {
namespace {
using namespace std::string_literals;
using namespace std::string_view_literals;

std::string big(std::uint32_t number, int bytes, int bits = 8) {
    std::string text;
    for (int i = bytes - 1; i >= 0; --i) text += static_cast<char>(number >> (bits * i) & ((1u << bits) - 1));
    return text;
}
std::string little(std::uint32_t number) {
    const std::string text = big(number, 4);
    return {text.rbegin(), text.rend()};
}
std::string joined(std::initializer_list<std::string> pieces) {
    std::string text;
    for (const std::string& each : pieces) text.append(each);
    return text;
}
std::uint32_t size_of(std::string_view text) {
    return static_cast<std::uint32_t>(text.size());
}
std::string frame(const char* name, std::string_view content) {
    return joined({name, big(size_of(content), 4), std::string(2, '\0'), std::string(content)});
}
std::string id3(char version, const std::string& frames) {
    return joined({"ID3", std::string(1, version), std::string(2, '\0'), big(size_of(frames), 4, 7), frames});
}
std::string comments(std::initializer_list<std::string> lines) {
    std::string text = joined({little(3), "lib", little(static_cast<std::uint32_t>(lines.size()))});
    for (const std::string& line : lines) text.append(little(size_of(line))).append(line);
    return text;
}

struct tags {
    std::string of(std::string_view head) { return media_tags(head, encodings); }
    const std::unique_ptr<text_encoding> own_encodings = make_text_encoding();
    text_encoding& encodings = *own_encodings;
};

TEST(MediaTags, FramesOfAllEncodingsAreToldInTheirOrder) {
    tags t;
    const std::string all = joined({frame("TALB", "\0Album"sv), frame("TPE1", "\1\xFF\xFE\x67\x71"sv),
                                    frame("TIT2", "\3照片\0"sv),
                                    frame("TYER",
                                          "\0"
                                          "1999"sv)});
    EXPECT_EQ(t.of(id3(3, all)), "照片 — \u7167 — Album — 1999");
    EXPECT_EQ(t.of(id3(4, frame("TIT2", "\2\x71\x67"sv))), "\u7167") << "without a mark";
    EXPECT_EQ(t.of(id3(3, frame("TIT2", "\0\xD5\xD5\xC6\xAC"sv))), "照片") << "the writer's own code page";
    EXPECT_EQ(t.of(id3(2, joined({"TT2", big(4, 3), "\0abc"s}))), "abc");
}

TEST(MediaTags, CommentsOfFlacAndOgg) {
    tags t;
    const std::string block = comments({"title=照片", "Artist=Li", "x=y", "DATE=2001", "TITLE=second"});
    EXPECT_EQ(t.of(joined({"fLaC", big(0, 1), big(2, 3), "ii", big(0x84, 1), big(size_of(block), 3), block})),
              "照片 — Li — 2001");
    EXPECT_EQ(t.of(joined({"OggS......\3vorbis", block})), "照片 — Li — 2001");
    EXPECT_EQ(t.of(joined({"OggS......OpusTags", block})), "照片 — Li — 2001");
}

TEST(MediaTags, OtherBytesHaveNone) {
    tags t;
    for (const std::string_view head : {""sv, "ID"sv, "ID3"sv, "fLaC"sv, "OggS"sv, "plain text"sv})
        EXPECT_EQ(t.of(head), "");
}

TEST(MediaTags, SizesThatLieAreBounded) {
    tags t;
    EXPECT_EQ(t.of(id3(3, joined({"TIT2", big(0xFFFFFFFF, 4), "\0\0\0abc"s}))), "");
    EXPECT_EQ(t.of(joined({"ID3\3\0\x40"s, big(20, 4, 7), big(0xFFFFFFF0, 4), frame("TIT2", "\0abc"sv)})),
              "");
    EXPECT_EQ(t.of(joined({"OggS\3vorbis", little(0xFFFFFFFF), "x"})), "");
    EXPECT_EQ(t.of(joined({"OggS\3vorbis", little(0), little(0xFFFFFFFF), little(9), "TITLE=abc"})), "abc");
    EXPECT_EQ(t.of(joined({"fLaC", big(4, 1), big(0xFFFFFF, 3), little(1)})), "");
    const std::string lengthy = std::string(1, '\3').append(5000, 'x');
    EXPECT_EQ(t.of(id3(3, frame("TIT2", lengthy))), std::string(100, 'x').append("…"));
    // Every beginning of a good one is read without harm.
    const std::string good = id3(3, joined({frame("TIT2", "\0abc"sv), frame("TPE1", "\1\xFF\xFEx\0"sv)}));
    for (std::size_t length = 0; length < good.size(); ++length)
        t.of(std::string_view(good).substr(0, length));
    EXPECT_EQ(t.of(good), "abc — x");
}

}  // namespace
}  // namespace corvane
