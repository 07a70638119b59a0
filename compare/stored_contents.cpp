#include "compare/stored_contents.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

#include "compare/preparation.h"
#include "core/archives/checksum.h"
#include "core/text/text_file.h"

namespace corvane {

namespace {

// A file has a line: 16 hexadecimal digits, after a sign for what begins with it.
constexpr std::string_view title = "corvane contents 1";
constexpr char new_reading = 'r';
constexpr char new_content = 'c';
constexpr char same_content = 's';
constexpr char closing = 'e';  // the sum of all lines between
constexpr std::size_t digits = 16;

using sum_bytes = std::array<char, 8>;

struct numbered_file {
    std::uint64_t state;
    std::int32_t number;
};

std::uint64_t mixed(std::uint64_t bits) {
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9u;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBu;
    return bits ^ (bits >> 31);
}

// 0 stands for one that is not to be kept.
std::uint64_t number_of(const file_state& state) {
    std::uint64_t bits = 0;
    for (const std::uint64_t part :
         {state.place, static_cast<std::uint64_t>(state.length), static_cast<std::uint64_t>(state.changed_ns),
          std::uint64_t{static_cast<std::uint32_t>(state.date_high)} << 32 |
              static_cast<std::uint32_t>(state.date_low)})
        bits = mixed(bits + 0x9E3779B97F4A7C15u + part);
    return bits;
}

std::uint64_t number_of_listed(const file_columns& files, std::int32_t i) {
    if (!files.file_ok[i] || files.file_in_archive[i]) return 0;
    const file_state state = listed_state(files, i);
    if (state.changed_ns == 0 || state.changed_ns > files.listed_ns - least_age_ns) return 0;
    return number_of(state);
}

class running_sum {
  public:
    void add(std::uint64_t state, char sign) {
        sum_bytes bytes;
        for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(state >> (8 * i));
        sum_.add(std::as_bytes(std::span(bytes)));
        sum_.add(std::as_bytes(std::span(&sign, 1)));
        ++lines_;
    }
    std::uint64_t value() const { return lines_ << 32 | sum_.value(); }

  private:
    checksum_stream sum_;
    std::uint64_t lines_ = 0;
};

// False for a text that is no such number.
bool parse(std::string_view text, std::uint64_t& number) {
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    return text.size() == digits && read.ec == std::errc() && read.ptr == text.data() + text.size();
}

// All that the file holds, and the readings; nothing where it is not whole.
std::vector<numbered_file> read_file(file_system& disk, const std::string& path, known_contents& contents) {
    line_reader reader(disk, path);
    std::string_view line;
    if (!reader.next(line) || line != title) return {};
    std::vector<numbered_file> found;
    std::vector<std::int32_t> firsts;
    running_sum sum;
    std::int32_t number = 0;
    std::uint64_t state = 0;
    while (reader.next(line) && !line.empty() && parse(line.substr(1), state)) {
        const char sign = line[0];
        if (sign == closing) {
            if (state != sum.value() || reader.next(line) || reader.failed()) return {};
            contents.firsts = std::move(firsts);
            contents.next = number + 1;
            return found;
        }
        if (sign != new_reading && (firsts.empty() || (sign != new_content && sign != same_content)))
            return {};
        if (sign != same_content) ++number;
        if (sign == new_reading) firsts.push_back(number);
        sum.add(state, sign);
        found.push_back({state, number});
    }
    return {};
}

// By their states, each in the first free place from its own on.
class state_table {
  public:
    explicit state_table(std::span<const numbered_file> files)
        : places_(std::bit_ceil(2 * files.size() + 1)) {
        for (const numbered_file& each : files) {
            numbered_file& place = place_of(each.state);
            // One that is told twice, and not the same, is not known.
            const bool agrees = place.state == 0 || place.number == each.number;
            place = {each.state, agrees ? each.number : 0};
        }
    }
    std::int32_t find(std::uint64_t state) { return state == 0 ? 0 : place_of(state).number; }

  private:
    numbered_file& place_of(std::uint64_t state) {
        std::size_t at = state & (places_.size() - 1);
        while (places_[at].state != 0 && places_[at].state != state) at = (at + 1) & (places_.size() - 1);
        return places_[at];
    }

    std::vector<numbered_file> places_;
};

std::size_t numbered_files(const known_contents& contents) {
    return static_cast<std::size_t>(std::count_if(contents.numbers.begin(), contents.numbers.end(),
                                                  [](std::int32_t number) { return number != 0; }));
}

// Those that have a number, by it.
std::vector<numbered_file> numbered(const file_columns& files) {
    std::vector<numbered_file> found;
    for (std::int32_t i = 1; i <= files.file_count; ++i) {
        const std::int32_t number = files.file_contents.of(i);
        if (number == 0) continue;
        if (const std::uint64_t state = number_of_listed(files, i); state != 0)
            found.push_back({state, number});
    }
    std::sort(found.begin(), found.end(), [](const numbered_file& a, const numbered_file& b) {
        return a.number != b.number ? a.number < b.number : a.state < b.state;
    });
    return found;
}

void add_line(line_writer& writer, char sign, std::uint64_t state) {
    std::array<char, 1 + digits> line;
    line[0] = sign;
    for (std::size_t i = 0; i < digits; ++i) line[digits - i] = "0123456789abcdef"[state >> (4 * i) & 15];
    writer.line({line.data(), line.size()});
}

}  // namespace

void read_contents(file_system& disk, const std::string& path, file_columns& files) {
    known_contents& contents = files.file_contents;
    contents = {};
    contents.numbers.assign(files.file_count, 0);
    const std::vector<numbered_file> stored = read_file(disk, path, contents);
    contents.stored_files = stored.size();
    contents.stored_next = contents.next;
    if (stored.empty()) return;
    state_table table(stored);
    for (std::int32_t i = 1; i <= files.file_count; ++i)
        contents.numbers[i] = table.find(number_of_listed(files, i));
}

bool write_contents(file_system& disk, const std::string& path, const file_columns& files,
                    std::string& error) {
    const known_contents& contents = files.file_contents;
    if (contents.next == contents.stored_next && numbered_files(contents) == contents.stored_files)
        return true;
    const std::vector<numbered_file> found = numbered(files);
    line_writer writer(disk, path);
    writer.line(title);
    running_sum sum;
    for (std::size_t first = 0; first < found.size();) {
        const std::int32_t last_number = contents.reading_of(found[first].number).second;
        std::size_t end = first;
        while (end < found.size() && found[end].number < last_number) ++end;
        // What is left alone of a reading tells nothing.
        for (std::size_t at = first; at < end && end - first > 1; ++at) {
            const char sign = at == first                                ? new_reading
                              : found[at].number != found[at - 1].number ? new_content
                                                                         : same_content;
            add_line(writer, sign, found[at].state);
            sum.add(found[at].state, sign);
        }
        first = end;
    }
    add_line(writer, closing, sum.value());
    if (writer.finish()) return true;
    error = writer.error();
    return false;
}

}  // namespace corvane
