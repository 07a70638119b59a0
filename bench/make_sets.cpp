// Writes a set of files for measuring, always the same for the same seed, and the true answer beside it.
// Used by bench/run.py, which compares the answers of several programs with it.
//
//     make_sets DIRECTORY SET [SCALE] [--seed NUMBER]
//
// SET is one of W1 to W5, SCALE lies in (0..1]. DIRECTORY must not exist or be empty. The answer is written
// to DIRECTORY.answer, when the set is complete: "content id TAB path below DIRECTORY", a line for each file
// that has an equal.

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <tuple>
#include <utility>
#include <vector>

namespace corvane {
namespace {

static_assert(std::endian::native == std::endian::little, "the contents are written as little-endian words");

constexpr std::uint64_t golden_step = 0x9E3779B97F4A7C15;
constexpr std::uint64_t head_length = 65536;
constexpr std::uint64_t files_in_directory = 200;
constexpr std::uint64_t directories_in_directory = 100;

// Every bit of the result depends on every bit of the value; distinct values have distinct results.
constexpr std::uint64_t mix(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EB;
    return value ^ (value >> 31);
}

class random_source {
  public:
    explicit random_source(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() { return mix(state_ += golden_step); }
    // A number in low..high, both included.
    std::uint64_t between(std::uint64_t low, std::uint64_t high) { return low + next() % (high - low + 1); }

    template <typename item>
    void shuffle(std::vector<item>& items) {
        for (std::size_t left = items.size(); left > 1; --left) {
            std::swap(items[left - 1], items[static_cast<std::size_t>(next() % left)]);
        }
    }

  private:
    std::uint64_t state_;
};

// What a file holds. Two recipes of one set that differ and are longer than 64 bytes make different contents:
// every word depends one-to-one on the seed, every word of the tail on the tail seed, and a patch changes one
// byte.
struct recipe {
    std::uint64_t length = 0;
    std::uint64_t seed = 0;
    // When not 0, what follows the first 64 KiB comes from this seed.
    std::uint64_t tail_seed = 0;
    // When not 0, this is added to the byte at patch_at, which is below length.
    std::uint8_t patch = 0;
    std::uint64_t patch_at = 0;
    // Only the first 64 bytes are written, the others are a hole.
    bool sparse = false;

    auto operator<=>(const recipe&) const = default;
};

// Fills `target` with what the recipe holds from byte `from` on; `from` is a multiple of 64 KiB.
void make_content(const recipe& made, std::uint64_t from, char* target, std::size_t length) {
    const bool tail = made.tail_seed != 0 && from >= head_length;
    const std::uint64_t base = (tail ? made.tail_seed : made.seed) + from / 8 * golden_step;
    const std::size_t words = length / 8;
    for (std::size_t index = 0; index < words; ++index) {
        const std::uint64_t word = mix(base + index * golden_step);
        std::memcpy(target + index * 8, &word, 8);
    }
    const std::uint64_t last = mix(base + words * golden_step);
    std::memcpy(target + words * 8, &last, length % 8);
    if (made.patch != 0 && made.patch_at >= from && made.patch_at - from < length) {
        char& patched = target[made.patch_at - from];
        patched = static_cast<char>(static_cast<unsigned char>(patched) + made.patch);
    }
}

std::uint64_t scaled(std::uint64_t count, double scale) {
    return std::max<std::uint64_t>(
        1, static_cast<std::uint64_t>(std::llround(static_cast<double>(count) * scale)));
}

// Appends groups of low..high files of one new recipe each, `total` files in all.
template <typename new_recipe>
void add_groups(std::vector<recipe>& files, random_source& random, std::uint64_t total, std::uint64_t low,
                std::uint64_t high, new_recipe make) {
    while (total >= low) {
        std::uint64_t size = std::min(random.between(low, high), total);
        // What would be left is too small for a group of its own.
        if (total - size < low && total <= high) size = total;
        files.insert(files.end(), static_cast<std::size_t>(size), make());
        total -= size;
    }
}

std::vector<recipe> small_files(random_source& random, double scale) {
    const std::uint64_t count = scaled(200'000, scale);
    const auto make = [&] {
        const std::uint64_t length = random.between(3584, 4608);
        return recipe{.length = length, .seed = random.next()};
    };
    std::vector<recipe> files;
    add_groups(files, random, count * 3 / 10, 2, 20, make);
    while (files.size() < count) files.push_back(make());
    return files;
}

std::vector<recipe> photographs(random_source& random, double scale) {
    constexpr std::uint64_t least = 3 * 1024 * 1024 / 10;
    constexpr std::uint64_t most = std::uint64_t{12} * 1024 * 1024;
    const std::uint64_t count = scaled(4'000, scale);
    const auto make = [&] {
        // The sixth power of an even spread: many short files, few long ones.
        const double even = static_cast<double>(random.next() >> 11) * 0x1p-53;
        const double cube = even * even * even;
        const std::uint64_t length =
            least + static_cast<std::uint64_t>(static_cast<double>(most - least) * cube * cube);
        return recipe{.length = length, .seed = random.next()};
    };
    std::vector<recipe> files;
    add_groups(files, random, count * 4 / 10, 2, 4, make);
    // Files that look equal for 64 KiB and longer: some have another tail, some differ in one byte.
    const std::uint64_t look_alikes = count / 10;
    std::uint64_t made = 0;
    while (made + 2 <= look_alikes) {
        const std::uint64_t size = std::min(random.between(2, 3), look_alikes - made);
        const std::uint64_t kind = random.next() % 3;
        recipe twin = make();
        for (std::uint64_t index = 0; index < size; ++index) {
            if (kind == 0) {
                twin.tail_seed = random.next();
            } else {
                twin.patch = static_cast<std::uint8_t>(index);
                // Positions are in 1/1024 of what follows the first 64 KiB until the lengths are settled.
                twin.patch_at = kind == 1 ? 1023 : random.next() % 1024;
            }
            files.push_back(twin);
        }
        made += size;
    }
    while (files.size() < count) files.push_back(make());

    // Bring the whole to 2 MB a file.
    double excess = 0;
    for (const recipe& file : files) excess += static_cast<double>(file.length - least);
    const double wanted = (2'000'000.0 - static_cast<double>(least)) * static_cast<double>(count);
    for (recipe& file : files) {
        const double length = static_cast<double>(file.length - least) * wanted / excess;
        file.length = std::min(most, least + static_cast<std::uint64_t>(length));
        if (file.patch == 0) {
            file.patch_at = 0;
        } else {
            const std::uint64_t tail = file.length - head_length;
            file.patch_at =
                file.patch_at == 1023 ? file.length - 1 : head_length + tail / 1024 * file.patch_at;
        }
    }
    return files;
}

std::vector<recipe> long_files(random_source& random, double scale) {
    const std::uint64_t length = scaled(700'000'000, scale);
    const recipe base{.length = length, .seed = random.next()};
    const auto patched = [&](std::uint64_t at, std::uint8_t patch) {
        recipe made = base;
        made.patch_at = at;
        made.patch = patch;
        return made;
    };
    const recipe middle = patched(length / 2, 1);
    const recipe end = patched(length - 1, 1);
    return {base,
            base,
            base,
            middle,
            middle,
            end,
            end,
            patched(0, 1),
            patched(0, 2),
            patched(length / 2, 2),
            patched(length - 1, 2),
            recipe{.length = length, .seed = random.next()}};
}

std::vector<recipe> tiny_files(random_source& random, double scale) {
    const std::uint64_t count = scaled(1'000'000, scale);
    const auto make = [&] {
        // 200 lengths of 0 to 200 bytes: 199 is left out.
        const std::uint64_t length = random.between(0, 199);
        return recipe{.length = length == 199 ? 200 : length, .seed = random.next()};
    };
    std::vector<recipe> files;
    add_groups(files, random, count * 3 / 10, 2, 10, make);
    while (files.size() < count) files.push_back(make());
    return files;
}

std::vector<recipe> unequal_files(random_source& random, double scale) {
    const std::uint64_t count = scaled(100'000, scale);
    std::vector<recipe> files;
    for (std::uint64_t length = 1; length <= count; ++length) {
        files.push_back(recipe{.length = length, .seed = random.next(), .sparse = true});
    }
    return files;
}

[[noreturn]] void fail(const std::string& path) {
    throw std::system_error(errno, std::generic_category(), path);
}

class set_writer {
  public:
    explicit set_writer(std::string directory) : directory_(std::move(directory)) {
        std::filesystem::create_directories(directory_);
        if (!std::filesystem::is_empty(directory_)) throw std::runtime_error(directory_ + " is not empty");
    }

    // Writes the files, then the answer.
    void write(const std::vector<recipe>& files) {
        for (std::size_t index = 0; index < files.size(); ++index) write_file(path_of(index), files[index]);
        write_answer(files);
    }

  private:
    static std::string path_of(std::size_t index) {
        const std::size_t folder = index / files_in_directory;
        std::array<char, 96> text{};
        std::snprintf(text.data(), text.size(), "part%02zu/folder%04zu/file%07zu.dat",
                      folder / directories_in_directory, folder, index);
        return text.data();
    }

    void write_file(const std::string& path, const recipe& file) {
        const std::string full_path = directory_ + '/' + path;
        const std::string folder = full_path.substr(0, full_path.rfind('/'));
        if (folder != last_folder_) {
            std::filesystem::create_directories(folder);
            last_folder_ = folder;
        }
        const int handle = open(full_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
        if (handle < 0) fail(full_path);
        const std::uint64_t written = file.sparse ? std::min<std::uint64_t>(file.length, 64) : file.length;
        for (std::uint64_t from = 0; from < written; from += head_length) {
            const auto part = static_cast<std::size_t>(std::min(head_length, written - from));
            make_content(file, from, buffer_.data(), part);
            if (::write(handle, buffer_.data(), part) != static_cast<ssize_t>(part)) fail(full_path);
        }
        if (file.sparse && ftruncate(handle, static_cast<off_t>(file.length)) != 0) fail(full_path);
        if (close(handle) != 0) fail(full_path);
    }

    void write_answer(const std::vector<recipe>& files) const {
        // Short contents may be equal by chance, so they are told apart by what they hold, not by their
        // recipe.
        using content_key = std::tuple<recipe, std::string>;
        std::map<content_key, std::vector<std::size_t>> groups;
        for (std::size_t index = 0; index < files.size(); ++index) {
            const recipe& file = files[index];
            if (file.length <= 64) {
                std::string content(static_cast<std::size_t>(file.length), '\0');
                make_content(file, 0, content.data(), content.size());
                groups[{recipe{.length = file.length}, content}].push_back(index);
            } else {
                groups[{file, {}}].push_back(index);
            }
        }
        const std::string path = directory_ + ".answer";
        const std::string unfinished = path + ".unfinished";
        std::FILE* output = std::fopen(unfinished.c_str(), "w");
        if (output == nullptr) fail(unfinished);
        std::size_t content_id = 0;
        for (const auto& [key, members] : groups) {
            if (members.size() < 2) continue;
            ++content_id;
            for (const std::size_t index : members) {
                std::fprintf(output, "%zu\t%s\n", content_id, path_of(index).c_str());
            }
        }
        const bool bad = std::ferror(output) != 0;
        if (std::fclose(output) != 0 || bad) fail(unfinished);
        std::filesystem::rename(unfinished, path);
    }

    std::string directory_;
    std::string last_folder_;
    std::array<char, head_length> buffer_{};
};

struct set_kind {
    std::string_view name;
    std::vector<recipe> (*make)(random_source&, double);
};

constexpr std::array<set_kind, 5> set_kinds{{{"W1", small_files},
                                             {"W2", photographs},
                                             {"W3", long_files},
                                             {"W4", tiny_files},
                                             {"W5", unequal_files}}};

int usage() {
    std::fputs("usage: make_sets DIRECTORY W1|W2|W3|W4|W5 [SCALE] [--seed NUMBER]\n", stderr);
    return 2;
}

template <typename number>
bool read_number(std::string_view text, number& value) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size();
}

int run(const std::vector<std::string_view>& arguments) {
    std::vector<std::string_view> plain;
    std::uint64_t seed = 0;
    bool seed_given = false;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        if (arguments[index] != "--seed") {
            plain.push_back(arguments[index]);
        } else if (++index < arguments.size() && read_number(arguments[index], seed)) {
            seed_given = true;
        } else {
            return usage();
        }
    }
    if (plain.size() < 2 || plain.size() > 3) return usage();
    double scale = 1;
    if (plain.size() == 3 && (!read_number(plain[2], scale) || !(scale > 0 && scale <= 1))) return usage();
    const auto kind = std::find_if(set_kinds.begin(), set_kinds.end(),
                                   [&](const set_kind& candidate) { return candidate.name == plain[1]; });
    if (kind == set_kinds.end()) return usage();

    if (!seed_given) seed = static_cast<std::uint64_t>(kind - set_kinds.begin()) + 1;
    std::string directory(plain[0]);
    while (directory.size() > 1 && directory.back() == '/') directory.pop_back();

    random_source random(mix(seed));
    std::vector<recipe> files = kind->make(random, scale);
    random.shuffle(files);
    set_writer(std::move(directory)).write(files);
    return 0;
}

}  // namespace
}  // namespace corvane

int main(int count, char** values) {
    try {
        return corvane::run({values + 1, values + count});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "make_sets: %s\n", failure.what());
        return 1;
    }
}
