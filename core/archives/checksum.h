// The CRC-32 of Ethernet and ZIP files, at the speed of memory, and a weaker sum that weights bytes with
// their positions. Used to tell contents apart before they are compared byte by byte.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace corvane {

// What a byte does to a remainder modulo the reflected polynomial, by the byte's value.
class crc_table {
  public:
    static constexpr std::uint32_t polynomial = 0xEDB88320;

    // `index` is 0 to 256. No byte leads to entry 256.
    static constexpr std::uint32_t entry(std::size_t index) { return entries[index]; }

  private:
    static constexpr std::array<std::uint32_t, 257> entries = [] {
        std::array<std::uint32_t, 257> made{};
        for (std::uint32_t index = 0; index < made.size(); ++index) {
            std::uint32_t remainder = index;
            for (int bit = 0; bit < 8; ++bit) {
                remainder = (remainder & 1) != 0 ? (remainder >> 1) ^ polynomial : remainder >> 1;
            }
            made[index] = remainder;
        }
        return made;
    }();
};

// The CRC-32 of the bytes; 0 for none. Takes the fastest way that the processor has.
std::uint32_t checksum(std::span<const std::byte> bytes);

// The same for bytes that come in pieces of any length.
class checksum_stream {
  public:
    void add(std::span<const std::byte> bytes);
    // The CRC-32 of all bytes added so far; more may be added afterwards.
    std::uint32_t value() const { return ~remainder_; }

  private:
    std::uint32_t remainder_ = 0xFFFFFFFF;
};

// The two ways to the same result, for tests and measurements. The one by carry-less multiplication may be
// called only where it is available.
std::uint32_t checksum_by_table(std::span<const std::byte> bytes);
bool carryless_multiply_available();
std::uint32_t checksum_by_carryless_multiply(std::span<const std::byte> bytes);

// The sum of each byte's value times its position, counted from 1, modulo 2^32.
std::uint32_t weighted_byte_sum(std::span<const std::byte> bytes);

}  // namespace corvane
