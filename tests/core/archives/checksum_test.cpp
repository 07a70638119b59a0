#include "core/archives/checksum.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string_view>
#include <vector>

namespace corvane {
namespace {

std::span<const std::byte> bytes_of(std::string_view text) {
    return std::as_bytes(std::span(text));
}

// Division with remainder, one bit after the other.
std::uint32_t checksum_bit_by_bit(std::span<const std::byte> bytes) {
    std::uint32_t remainder = 0xFFFFFFFF;
    for (const std::byte byte : bytes) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            const std::uint32_t incoming = static_cast<std::uint32_t>(byte) >> bit & 1;
            const bool subtract = ((remainder ^ incoming) & 1) != 0;
            remainder >>= 1;
            if (subtract) remainder ^= 0xEDB88320;
        }
    }
    return remainder ^ 0xFFFFFFFF;
}

std::uint32_t weighted_sum_one_by_one(std::span<const std::byte> bytes) {
    std::uint32_t sum = 0;
    std::uint32_t position = 0;
    for (const std::byte byte : bytes) sum += ++position * static_cast<std::uint32_t>(byte);
    return sum;
}

std::vector<std::byte> random_bytes(std::size_t count, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::vector<std::byte> made(count);
    for (std::byte& byte : made) byte = static_cast<std::byte>(random() & 0xFF);
    return made;
}

TEST(checksum, known_values_are_met) {
    EXPECT_EQ(checksum({}), 0x00000000u);
    EXPECT_EQ(checksum(bytes_of("a")), 0xE8B7BE43u);
    EXPECT_EQ(checksum(bytes_of("123456789")), 0xCBF43926u);
    EXPECT_EQ(checksum(bytes_of("The quick brown fox jumps over the lazy dog")), 0x414FA339u);
    EXPECT_EQ(checksum(std::vector<std::byte>(32, std::byte{0})), 0x190A55ADu);
    EXPECT_EQ(checksum(std::vector<std::byte>(32, std::byte{0xFF})), 0xFF6CAB0Bu);
}

TEST(checksum, the_table_has_the_classic_entries_and_one_more) {
    EXPECT_EQ(crc_table::entry(0), 0x00000000u);
    EXPECT_EQ(crc_table::entry(1), 0x77073096u);
    EXPECT_EQ(crc_table::entry(2), 0xEE0E612Cu);
    EXPECT_EQ(crc_table::entry(128), 0xEDB88320u);
    EXPECT_EQ(crc_table::entry(255), 0x2D02EF8Du);
    EXPECT_EQ(crc_table::entry(256), 0x00000001u);
}

TEST(checksum, all_ways_agree_with_division_bit_by_bit_at_every_length_and_alignment) {
    const std::vector<std::byte> source = random_bytes(1200, 1);
    for (std::size_t start = 0; start < 17; ++start) {
        for (std::size_t length = 0; length <= 700; ++length) {
            const std::span<const std::byte> bytes(source.data() + start, length);
            const std::uint32_t expected = checksum_bit_by_bit(bytes);
            ASSERT_EQ(checksum(bytes), expected) << length;
            ASSERT_EQ(checksum_by_table(bytes), expected) << length;
            if (carryless_multiply_available()) {
                ASSERT_EQ(checksum_by_carryless_multiply(bytes), expected) << length;
            }
        }
    }
}

TEST(checksum, all_ways_agree_on_long_inputs) {
    for (const std::size_t length : {4096u, 65536u, 65537u, 999'999u}) {
        const std::vector<std::byte> bytes = random_bytes(length, static_cast<std::uint32_t>(length));
        const std::uint32_t expected = checksum_bit_by_bit(bytes);
        EXPECT_EQ(checksum(bytes), expected);
        EXPECT_EQ(checksum_by_table(bytes), expected);
        if (carryless_multiply_available()) {
            EXPECT_EQ(checksum_by_carryless_multiply(bytes), expected);
        }
    }
}

TEST(checksum, every_single_bit_counts) {
    std::vector<std::byte> bytes(300, std::byte{0});
    for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
        bytes[bit / 8] = static_cast<std::byte>(1u << bit % 8);
        ASSERT_EQ(checksum(bytes), checksum_bit_by_bit(bytes)) << bit;
        bytes[bit / 8] = std::byte{0};
    }
}

TEST(checksum, pieces_of_any_length_give_the_value_of_the_whole) {
    const std::vector<std::byte> bytes = random_bytes(20'000, 2);
    std::mt19937 random(3);
    for (int round = 0; round < 50; ++round) {
        checksum_stream stream;
        EXPECT_EQ(stream.value(), 0u);
        std::size_t done = 0;
        while (done < bytes.size()) {
            const std::size_t piece = std::min<std::size_t>(random() % 400, bytes.size() - done);
            stream.add({bytes.data() + done, piece});
            done += piece;
            ASSERT_EQ(stream.value(), checksum({bytes.data(), done}));
        }
        ASSERT_EQ(stream.value(), checksum_bit_by_bit(bytes));
    }
}

TEST(weighted_byte_sum, a_byte_counts_as_often_as_its_position) {
    EXPECT_EQ(weighted_byte_sum({}), 0u);
    EXPECT_EQ(weighted_byte_sum(bytes_of("a")), 97u);
    EXPECT_EQ(weighted_byte_sum(bytes_of("ab")), 97u + 2 * 98u);
    EXPECT_EQ(weighted_byte_sum(bytes_of("ba")), 98u + 2 * 97u);
}

TEST(weighted_byte_sum, all_lengths_agree_with_the_sum_one_by_one) {
    const std::vector<std::byte> source = random_bytes(600, 4);
    const std::vector<std::byte> highest(600, std::byte{0xFF});
    for (std::size_t length = 0; length <= source.size(); ++length) {
        ASSERT_EQ(weighted_byte_sum({source.data(), length}),
                  weighted_sum_one_by_one({source.data(), length}));
        ASSERT_EQ(weighted_byte_sum({highest.data(), length}),
                  weighted_sum_one_by_one({highest.data(), length}));
    }
}

TEST(weighted_byte_sum, the_sum_wraps_around) {
    const std::vector<std::byte> bytes(100'000, std::byte{0xFF});
    // 255 * (1 + 2 + ... + 100000) modulo 2^32.
    EXPECT_EQ(weighted_byte_sum(bytes), static_cast<std::uint32_t>(255ull * 5'000'050'000ull));
    EXPECT_EQ(weighted_byte_sum(bytes), weighted_sum_one_by_one(bytes));
}

}  // namespace
}  // namespace corvane
