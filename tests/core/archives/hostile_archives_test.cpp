// The seeds of the fuzz targets and mutations of them, the same at every run.
#include <gtest/gtest.h>

#include <random>

#include "tests/support/archive_images.h"
#include "tests/support/archive_probe.h"

namespace corvane {
namespace {

using seeds = std::vector<std::pair<std::string, std::string>>;

// One to four changes of bytes, runs and lengths, at places that favour the fields of records.
std::string mutated(std::string bytes, const std::string& other, std::mt19937& random) {
    const auto below = [&random](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    static constexpr std::uint64_t numbers[] = {
        0, 1, 0x16, 0x29, 0x7F, 0xFF, 0x1000, 0x1001, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFF};
    for (std::size_t changes = 1 + below(4); changes > 0 && !bytes.empty(); --changes) {
        const std::size_t at = below(bytes.size());
        switch (below(6)) {
            case 0:
                bytes[at] = static_cast<char>(below(256));
                break;
            case 1: {
                const std::size_t length = std::min<std::size_t>(bytes.size() - at, 1 + below(4));
                bytes.replace(at, length,
                              low_bytes(numbers[below(std::size(numbers))], static_cast<int>(length)));
                break;
            }
            case 2:
                bytes.resize(at);
                break;
            case 3:
                bytes.erase(at, 1 + below(40));
                break;
            case 4:
                bytes.insert(at, other.substr(below(other.size()), 1 + below(80)));
                break;
            default:
                bytes.insert(at, 1 + below(5000), static_cast<char>(below(256)));
        }
    }
    return bytes;
}

void expect_soundness(const std::string& type, const seeds& corpus) {
    archive_probe probe(type);
    std::int64_t members = 0;
    for (const auto& [name, bytes] : corpus) {
        EXPECT_EQ(probe.read(bytes), "") << name;
        members += probe.members();
        // Cut at every place.
        for (std::size_t length = 0; length < std::min<std::size_t>(bytes.size(), 400); ++length)
            EXPECT_EQ(probe.read(bytes.substr(0, length)), "") << name << " cut to " << length;
    }
    EXPECT_GT(members, 120);
    std::mt19937 random(20'240'521);
    for (int round = 0; round < 6'000; ++round) {
        const auto& [name, bytes] = corpus[random() % corpus.size()];
        const std::string& other = corpus[random() % corpus.size()].second;
        EXPECT_EQ(probe.read(mutated(bytes, other, random)), "") << name << " in round " << round;
    }
}

TEST(HostileArchives, NoZipBreaksTheListOrTheReport) {
    expect_soundness("zip", zip_seeds());
}

TEST(HostileArchives, NoRarBreaksTheListOrTheReport) {
    expect_soundness("rar", rar_seeds());
}

TEST(HostileArchives, ADirectoryThatIsNoDirectoryIsReadOnce) {
    // A file of zeros is one header after the other; only its length ends it.
    archive_probe probe("zip");
    std::string bytes(4'600'000, '\0');
    bytes.replace(bytes.size() - 22, 22, zip_end_record(1, 0, 1));
    EXPECT_EQ(probe.read(bytes), "");
    EXPECT_EQ(probe.members(), 100'000);  // one each 46 bytes from 1 on, up to 40 bytes before the end
}

TEST(HostileArchives, TheShortestBlocksAreWalkedOnce) {
    // Blocks of 16 bytes that overlap: each names the next, and none its own end.
    archive_probe probe("rar");
    std::string bytes = rar_marker() + rar_main_header();
    const std::string step =
        std::string(5, '\x74') + low_bytes(16, 2) + low_bytes(0, 4) + std::string(5, '\1');
    for (int i = 0; i < 100'000; ++i) bytes += step;
    EXPECT_EQ(probe.read(bytes), "");
    EXPECT_EQ(probe.members(), 99'999);  // the last 27 bytes hold the start of one
}

}  // namespace
}  // namespace corvane
