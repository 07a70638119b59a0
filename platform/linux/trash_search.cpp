#include "platform/linux/trash_search.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>

#include "platform/name_mapping.h"
#include "platform/linux/trash_info.h"

namespace corvane {

namespace {

constexpr int guesses = 3;  // of the name, before the whole bin is read
constexpr std::size_t longest_info =
    16 * std::size_t{1024};  // bytes; a path has at most 4096, encoded three times that

std::string base_of(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

// One search over the bins of its items.
class search {
  public:
    search(std::span<const recycled_item> gone, std::map<std::string, int>& numbers)
        : gone_(gone), numbers_(numbers), found_(gone.size()) {}

    std::vector<trash_entry> run() {
        for (std::size_t i = 0; i < gone_.size(); ++i)
            if (!guess(i)) missing_.push_back(i);
        if (!missing_.empty()) read_bins();
        return std::move(found_);
    }

  private:
    struct bin_state {
        open_trash bin;
        bool usable = false;
        std::set<std::string, std::less<>> taken;  // entries that items of this search have
    };

    const std::vector<std::string>& places_of(const std::string& folder) {
        const auto [place, is_new] = places_.try_emplace(folder);
        if (is_new) place->second = trash_places_for(folder);
        return place->second;
    }
    bin_state& bin_of(const std::string& place) {
        const auto [found, is_new] = bins_.try_emplace(place);
        if (is_new) found->second.usable = open_trash_place(place, found->second.bin) == opened_trash::yes;
        return found->second;
    }
    // The entry is the item's, and no other one's.
    bool take(std::size_t i, const std::string& place, bin_state& state, const std::string& name) {
        struct stat facts;
        if (state.taken.contains(name) ||
            fstatat(state.bin.files.number(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0)
            return false;
        const recycled_item& item = gone_[i];
        // Its number of the file system may be another one's by now.
        if (!is_same_item(item, facts) || !info_names(state.bin, name, item)) return false;
        state.taken.insert(name);
        found_[i] = {to_text(place), to_text(name)};
        return true;
    }
    bool guess(std::size_t i) {
        const std::string base = base_of(to_raw(gone_[i].path));
        for (const std::string& place : places_of(to_raw(gone_[i].folder))) {
            bin_state& state = bin_of(place);
            if (!state.usable) continue;
            int& number = numbers_[place + "/" + base];
            for (int next = number + 1; next <= number + guesses; ++next) {
                if (!take(i, place, state, trash_name(base, next))) continue;
                number = next;
                return true;
            }
            // The bin may have been emptied, and counts anew.
            if (number > 0 && take(i, place, state, base)) {
                number = 1;
                return true;
            }
        }
        return false;
    }
    // All names of a bin, each by its number of the file system: only those of a missing item are looked at.
    void read_bins() {
        std::unordered_multimap<std::uint64_t, std::size_t> wanted;
        for (const std::size_t i : missing_) wanted.emplace(gone_[i].identity.index, i);
        for (auto& [place, state] : bins_) {
            if (!state.usable) continue;
            const int copy = openat(state.bin.files.number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            const std::unique_ptr<DIR, int (*)(DIR*)> names(copy < 0 ? nullptr : fdopendir(copy), closedir);
            if (names == nullptr) {
                if (copy >= 0) close(copy);
                continue;
            }
            while (const dirent* entry = readdir(names.get())) {
                const auto [first, last] = wanted.equal_range(entry->d_ino);
                for (auto each = first; each != last; ++each)
                    if (!found_[each->second].is_known() && take(each->second, place, state, entry->d_name))
                        break;
            }
        }
    }

    std::span<const recycled_item> gone_;
    std::map<std::string, int>& numbers_;
    std::vector<trash_entry> found_;
    std::vector<std::size_t> missing_;
    std::map<std::string, std::vector<std::string>> places_;  // by folder
    std::map<std::string, bin_state> bins_;                   // by place
};

}  // namespace

bool is_same_item(const recycled_item& item, const struct stat& facts) {
    const std::int64_t modified = facts.st_mtim.tv_sec * 1'000'000'000 + facts.st_mtim.tv_nsec;
    if (item.directory) return S_ISDIR(facts.st_mode) && item.modified_ns == modified;
    return S_ISREG(facts.st_mode) && item.length == facts.st_size && item.modified_ns == modified;
}

bool info_names(const open_trash& bin, const std::string& name, const recycled_item& item) {
    const descriptor file = descriptor::open_at(bin.info.number(), (name + trash_info_end).c_str(),
                                                O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY);
    struct stat facts;
    if (!file || fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode)) return false;
    std::string text(longest_info, '\0');
    const ssize_t count = read(file.number(), text.data(), text.size());
    if (count <= 0) return false;
    text.resize(static_cast<std::size_t>(count));
    const std::optional<std::string> noted = path_in_info(text, bin.top);
    if (!noted) return false;
    const std::string path = to_raw(item.path);
    const std::string plain = plain_path(*noted);
    return plain == plain_path(path) || plain == plain_path(to_raw(item.folder) + "/" + base_of(path));
}

std::vector<trash_entry> search_trash(std::span<const recycled_item> gone,
                                      std::map<std::string, int>& numbers) {
    return search(gone, numbers).run();
}

}  // namespace corvane
