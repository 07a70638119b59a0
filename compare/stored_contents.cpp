#include "compare/stored_contents.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstddef>
#include <functional>
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
constexpr std::size_t line_size = 1 + digits + 2;  // with its end
constexpr std::size_t most_lines = 4'000'000;      // as many as a list can have files

std::uint64_t mixed(std::uint64_t bits) {
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9u;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBu;
    return bits ^ (bits >> 31);
}

std::uint64_t number_of(std::string_view path, const file_state& state) {
    std::uint64_t bits = std::hash<std::string_view>()(path);
    for (const std::uint64_t part :
         {state.place, static_cast<std::uint64_t>(state.length), static_cast<std::uint64_t>(state.changed_ns),
          std::uint64_t{static_cast<std::uint32_t>(state.date_high)} << 32 |
              static_cast<std::uint32_t>(state.date_low)})
        bits = mixed(bits + 0x9E3779B97F4A7C15u + part);
    return bits == 0 ? 1 : bits;
}

// A change time in such steps may be the other date once more, or that of several changes. Hardly any that a
// finer clock tells looks like one.
bool is_coarse(std::int64_t changed_ns) {
    constexpr std::int64_t coarse_step_ns = 10'000'000;
    return changed_ns % coarse_step_ns == 0;
}

// 0: it is not to be kept. Archive members have no change time.
std::uint64_t number_of_listed(const file_columns& files, std::int32_t i) {
    const std::int64_t changed_ns = files.file_changed[i];
    if (!files.file_ok[i] || is_coarse(changed_ns) || changed_ns > files.listed_ns - least_age_ns) return 0;
    return number_of(files.file_list[i], listed_state(files, i));
}

class running_sum {
  public:
    void add(std::uint64_t state, char sign) {
        std::array<char, sizeof state> bytes;
        for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(state >> (8 * i));
        sum_.add(std::as_bytes(std::span(bytes)));
        sum_.add(std::as_bytes(std::span(&sign, 1)));
        ++lines_;
    }
    std::uint64_t value() const { return std::uint64_t{lines_} << 32 | sum_.value(); }
    std::size_t lines() const { return lines_; }

  private:
    checksum_stream sum_;
    std::uint32_t lines_ = 0;
};

// False for a text that is no such number.
bool parse(std::string_view text, std::uint64_t& number) {
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number, 16);
    return text.size() == digits && read.ec == std::errc() && read.ptr == text.data() + text.size();
}

// Numbers by state, each in the first free place from its state's own on.
class state_table {
  public:
    explicit state_table(std::size_t most)
        : states_(std::bit_ceil(most + most / 2 + 1)), numbers_(states_.size()) {}

    // One that comes twice, and not with the same number, is not known.
    void add(std::uint64_t state, std::int32_t number) {
        const std::size_t at = place_of(state);
        numbers_[at] = states_[at] == 0 || numbers_[at] == number ? number : 0;
        states_[at] = state;
    }
    // 0: not known.
    std::int32_t find(std::uint64_t state) const { return state == 0 ? 0 : numbers_[place_of(state)]; }

  private:
    std::size_t place_of(std::uint64_t state) const {
        std::size_t at = state & (states_.size() - 1);
        while (states_[at] != 0 && states_[at] != state) at = (at + 1) & (states_.size() - 1);
        return at;
    }

    std::vector<std::uint64_t> states_;  // 0: free
    std::vector<std::int32_t> numbers_;
};

// Reads the stored file into a table for `most` states. False where it is not whole.
bool read_file(file_system& disk, const std::string& path, std::size_t most, state_table& table,
               known_contents& contents) {
    line_reader reader(disk, path);
    std::string_view line;
    if (!reader.next(line) || line != title) return false;
    running_sum sum;
    std::int32_t number = 0;
    std::uint64_t state = 0;
    while (reader.next(line) && !line.empty() && parse(line.substr(1), state)) {
        const char sign = line[0];
        if (sign == closing) {
            contents.next = contents.stored_next = number + 1;
            contents.stored_files = sum.lines();
            return state == sum.value() && !reader.next(line) && !reader.failed();
        }
        const bool is_first = contents.firsts.empty();
        if (state == 0 || sum.lines() == most || (sign != new_reading && is_first)) return false;
        if (sign != new_reading && sign != new_content && sign != same_content) return false;
        if (sign != same_content) ++number;
        if (sign == new_reading) contents.firsts.push_back(number);
        sum.add(state, sign);
        table.add(state, number);
    }
    return false;
}

std::size_t numbered_files(const known_contents& contents) {
    return static_cast<std::size_t>(std::count_if(contents.numbers.begin(), contents.numbers.end(),
                                                  [](std::int32_t number) { return number != 0; }));
}

struct numbered_file {
    std::uint64_t state;
    std::int32_t number;
};

// Of the files of one length from i on, those that have a number, by it. Puts i behind them.
std::vector<numbered_file> numbered(const file_columns& files, std::int32_t& i) {
    std::vector<numbered_file> found;
    const std::int64_t length = files.file_len[i];
    for (; i <= files.file_count && files.file_len[i] == length; ++i) {
        const std::int32_t number = files.contents_known.of(i);
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

// A reading lies within one length.
void add_readings(line_writer& writer, running_sum& sum, const known_contents& contents,
                  std::span<const numbered_file> files) {
    while (!files.empty()) {
        const std::int32_t behind = contents.reading_of(files.front().number).second;
        const auto end = std::find_if(files.begin(), files.end(),
                                      [&](const numbered_file& each) { return each.number >= behind; });
        const auto reading = files.first(static_cast<std::size_t>(end - files.begin()));
        files = files.subspan(reading.size());
        // What is left alone of a reading tells nothing.
        if (reading.size() < 2) continue;
        std::int32_t number = 0;
        for (const numbered_file& each : reading) {
            const char sign = number == 0 ? new_reading : number != each.number ? new_content : same_content;
            number = each.number;
            add_line(writer, sign, each.state);
            sum.add(each.state, sign);
        }
    }
}

}  // namespace

void read_contents(file_system& disk, const std::string& path, file_columns& files) {
    known_contents& contents = files.contents_known;
    contents = {};
    contents.numbers.assign(files.file_count, 0);
    const auto lines = static_cast<std::size_t>(disk.facts(path).length) / line_size;
    if (lines > most_lines) return;
    state_table table(lines);
    known_contents stored;
    if (!read_file(disk, path, lines, table, stored)) return;
    stored.numbers = std::move(contents.numbers);
    contents = std::move(stored);
    for (std::int32_t i = 1; i <= files.file_count; ++i)
        contents.numbers[i] = table.find(number_of_listed(files, i));
}

outcome write_contents(file_system& disk, const std::string& path, const file_columns& files) {
    const known_contents& contents = files.contents_known;
    if (contents.numbers.empty()) return outcome::success();
    if (contents.next == contents.stored_next && numbered_files(contents) == contents.stored_files)
        return outcome::success();
    line_writer writer(disk, path);
    writer.line(title);
    running_sum sum;
    for (std::int32_t i = 1; i <= files.file_count;) add_readings(writer, sum, contents, numbered(files, i));
    add_line(writer, closing, sum.value());
    writer.finish();
    return writer.result();
}

}  // namespace corvane
