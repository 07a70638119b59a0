#include "core/archives/checksum.h"

#if defined(__x86_64__) && defined(__GNUC__)
#define CORVANE_CARRYLESS_MULTIPLY 1
#include <immintrin.h>
#else
#define CORVANE_CARRYLESS_MULTIPLY 0
#endif

namespace corvane {

namespace {

constexpr std::size_t slice_count = 16;

// slices[n][value]: what a byte does to the remainder when n further bytes follow it.
constexpr auto slices = [] {
    std::array<std::array<std::uint32_t, 256>, slice_count> made{};
    for (std::size_t value = 0; value < 256; ++value) {
        made[0][value] = crc_table::entry(value);
        for (std::size_t slice = 1; slice < slice_count; ++slice) {
            const std::uint32_t before = made[slice - 1][value];
            made[slice][value] = (before >> 8) ^ crc_table::entry(before & 0xFF);
        }
    }
    return made;
}();

// The compilers make one load of these on little-endian machines.
inline std::uint32_t load_32(const std::byte* from) {
    return static_cast<std::uint32_t>(from[0]) | static_cast<std::uint32_t>(from[1]) << 8 |
           static_cast<std::uint32_t>(from[2]) << 16 | static_cast<std::uint32_t>(from[3]) << 24;
}

inline std::uint64_t load_64(const std::byte* from) {
    return load_32(from) | static_cast<std::uint64_t>(load_32(from + 4)) << 32;
}

// What four bytes do to the remainder when `following` further bytes follow them.
inline std::uint32_t four_bytes(std::uint32_t word, std::size_t following) {
    return slices[following + 3][word & 0xFF] ^ slices[following + 2][word >> 8 & 0xFF] ^
           slices[following + 1][word >> 16 & 0xFF] ^ slices[following][word >> 24];
}

std::uint32_t advance_by_table(std::uint32_t remainder, const std::byte* from, std::size_t length) {
    for (; length >= 16; from += 16, length -= 16) {
        remainder = four_bytes(load_32(from) ^ remainder, 12) ^ four_bytes(load_32(from + 4), 8) ^
                    four_bytes(load_32(from + 8), 4) ^ four_bytes(load_32(from + 12), 0);
    }
    if (length >= 8) {
        remainder = four_bytes(load_32(from) ^ remainder, 4) ^ four_bytes(load_32(from + 4), 0);
        from += 8;
        length -= 8;
    }
    if (length >= 4) {
        remainder = four_bytes(load_32(from) ^ remainder, 0);
        from += 4;
        length -= 4;
    }
    for (; length > 0; ++from, --length) {
        remainder = (remainder >> 8) ^ slices[0][(remainder ^ static_cast<std::uint32_t>(*from)) & 0xFF];
    }
    return remainder;
}

#if CORVANE_CARRYLESS_MULTIPLY

// x^exponent modulo the polynomial. The coefficient of x^0 is the highest bit.
constexpr std::uint32_t power_of_x(unsigned exponent) {
    std::uint32_t remainder = 0x80000000;
    for (unsigned step = 0; step < exponent; ++step) {
        remainder = (remainder & 1) != 0 ? (remainder >> 1) ^ crc_table::polynomial : remainder >> 1;
    }
    return remainder;
}

// A register of 16 bytes is a polynomial whose first bit in memory is the coefficient of x^127. To move it
// on by `bits` is to multiply its first half with x^(bits + 64) and its second half with x^bits. The product
// of two halves comes out one place too low, which is one factor x too many; the exponents make up for it.
// A factor of less than degree 32 fills the upper half of its 64 bits.
constexpr std::uint64_t first_half_factor(unsigned bits) {
    return static_cast<std::uint64_t>(power_of_x(bits + 63)) << 32;
}
constexpr std::uint64_t second_half_factor(unsigned bits) {
    return static_cast<std::uint64_t>(power_of_x(bits - 1)) << 32;
}

// Below this the multiplication gains nothing over the tables.
constexpr std::size_t least_length_to_multiply = 32;

#define CORVANE_MULTIPLYING __attribute__((target("pclmul,sse4.1")))

template <unsigned bits>
CORVANE_MULTIPLYING inline __m128i factors() {
    constexpr std::uint64_t first = first_half_factor(bits);
    constexpr std::uint64_t second = second_half_factor(bits);
    return _mm_set_epi64x(static_cast<long long>(second), static_cast<long long>(first));
}

// `value` moved on by as many bits as `by` stands for, plus `next`.
CORVANE_MULTIPLYING inline __m128i fold(__m128i value, __m128i by, __m128i next) {
    const __m128i first = _mm_clmulepi64_si128(value, by, 0x00);
    const __m128i second = _mm_clmulepi64_si128(value, by, 0x11);
    return _mm_xor_si128(_mm_xor_si128(first, second), next);
}

CORVANE_MULTIPLYING inline __m128i load_128(const std::byte* from) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

// `length` is at least 16.
CORVANE_MULTIPLYING std::uint32_t advance_by_multiplying(std::uint32_t remainder, const std::byte* from,
                                                         std::size_t length) {
    const __m128i start = _mm_cvtsi32_si128(static_cast<int>(remainder));
    __m128i folded = _mm_xor_si128(load_128(from), start);
    const __m128i by_16_bytes = factors<128>();
    if (length >= 128) {
        // Four folds that do not wait for each other.
        __m128i folded_1 = load_128(from + 16);
        __m128i folded_2 = load_128(from + 32);
        __m128i folded_3 = load_128(from + 48);
        const __m128i by_64_bytes = factors<512>();
        for (from += 64, length -= 64; length >= 64; from += 64, length -= 64) {
            folded = fold(folded, by_64_bytes, load_128(from));
            folded_1 = fold(folded_1, by_64_bytes, load_128(from + 16));
            folded_2 = fold(folded_2, by_64_bytes, load_128(from + 32));
            folded_3 = fold(folded_3, by_64_bytes, load_128(from + 48));
        }
        folded = fold(folded, by_16_bytes, folded_1);
        folded = fold(folded, by_16_bytes, folded_2);
        folded = fold(folded, by_16_bytes, folded_3);
    } else {
        from += 16;
        length -= 16;
    }
    for (; length >= 16; from += 16, length -= 16) folded = fold(folded, by_16_bytes, load_128(from));

    const auto first = static_cast<std::uint64_t>(_mm_cvtsi128_si64(folded));
    const auto second = static_cast<std::uint64_t>(_mm_extract_epi64(folded, 1));
    const std::uint32_t left = four_bytes(static_cast<std::uint32_t>(first), 12) ^
                               four_bytes(static_cast<std::uint32_t>(first >> 32), 8) ^
                               four_bytes(static_cast<std::uint32_t>(second), 4) ^
                               four_bytes(static_cast<std::uint32_t>(second >> 32), 0);
    return advance_by_table(left, from, length);
}

bool find_carryless_multiply() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("pclmul") && __builtin_cpu_supports("sse4.1");
}

// Set before main; a checksum taken earlier uses the tables.
const bool can_multiply = find_carryless_multiply();

#endif

std::uint32_t advance(std::uint32_t remainder, std::span<const std::byte> bytes) {
#if CORVANE_CARRYLESS_MULTIPLY
    if (bytes.size() >= least_length_to_multiply && can_multiply) {
        return advance_by_multiplying(remainder, bytes.data(), bytes.size());
    }
#endif
    return advance_by_table(remainder, bytes.data(), bytes.size());
}

}  // namespace

std::uint32_t checksum(std::span<const std::byte> bytes) {
    return ~advance(0xFFFFFFFF, bytes);
}

void checksum_stream::add(std::span<const std::byte> bytes) {
    remainder_ = advance(remainder_, bytes);
}

std::uint32_t checksum_by_table(std::span<const std::byte> bytes) {
    return ~advance_by_table(0xFFFFFFFF, bytes.data(), bytes.size());
}

bool carryless_multiply_available() {
#if CORVANE_CARRYLESS_MULTIPLY
    return can_multiply;
#else
    return false;
#endif
}

std::uint32_t checksum_by_carryless_multiply(std::span<const std::byte> bytes) {
#if CORVANE_CARRYLESS_MULTIPLY
    if (bytes.size() >= 16) return ~advance_by_multiplying(0xFFFFFFFF, bytes.data(), bytes.size());
#endif
    return checksum_by_table(bytes);
}

std::uint32_t weighted_byte_sum(std::span<const std::byte> bytes) {
    std::uint32_t sum = 0;
    std::size_t done = 0;
    // Eight bytes at once, in lanes of 16 bits that cannot run over: a product's highest lane is the sum of
    // the four lanes, each times its own lane of the factor.
    constexpr std::uint64_t low_bytes = 0x00FF00FF00FF00FF;
    for (; bytes.size() - done >= 8; done += 8) {
        const std::uint64_t word = load_64(bytes.data() + done);
        const std::uint64_t odd_positions = word & low_bytes;
        const std::uint64_t even_positions = word >> 8 & low_bytes;
        const std::uint64_t plain = (odd_positions + even_positions) * 0x0001000100010001 >> 48;
        const std::uint64_t weighted =
            (odd_positions * 0x0001000300050007 >> 48) + (even_positions * 0x0002000400060008 >> 48);
        sum += static_cast<std::uint32_t>(weighted + plain * done);
    }
    for (; done < bytes.size(); ++done) {
        sum += static_cast<std::uint32_t>(bytes[done]) * static_cast<std::uint32_t>(done + 1);
    }
    return sum;
}

}  // namespace corvane
