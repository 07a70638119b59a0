#include "compare/content_classes.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <unordered_map>

#include "core/archives/checksum.h"

namespace corvane {

namespace {

constexpr std::int64_t edge_block = 65536;       // first and last bytes, read before what lies between
constexpr std::int64_t largest_block = 65536;    // two of these stay in a core's own cache
constexpr std::int64_t block_memory = 32 << 20;  // for the blocks of all classes of one step
constexpr std::size_t open_file_limit = 200;     // more candidates are opened block by block
// How much of the files is asked for ahead. It grows, for what has been equal so far mostly stays so.
constexpr std::int64_t first_fetch = 512 * std::int64_t{1024};
constexpr std::int64_t largest_fetch = 16 << 20;  // of all members of a set together
constexpr std::size_t kept_buffers = 32;          // stay for the next block, the rest is freed

class content_sorter {
  public:
    content_sorter(file_system& files, std::span<const content_candidate> candidates, std::int64_t length,
                   const std::function<bool()>& keep_going,
                   const std::function<void(std::string_view)>& before_read, bool fetches,
                   const std::function<void(std::int64_t)>& has_read)
        : files_(files),
          candidates_(candidates),
          length_(length),
          keep_going_(keep_going),
          before_read_(before_read),
          has_read_(has_read),
          fetches_(fetches && candidates.size() <= open_file_limit),
          readers_(candidates.size()),
          classes_(candidates.size(), unreadable_content) {}

    std::vector<std::int32_t> run() {
        std::vector<std::size_t> all(candidates_.size());
        for (std::size_t i = 0; i < all.size(); ++i) all[i] = i;
        // The start and the end tell files apart more often than what lies between.
        const std::int64_t head = std::min(length_, edge_block);
        const std::int64_t tail = std::max(head, length_ - edge_block);
        for (auto& by_head : split(all, 0, head))
            for (auto& by_tail : split(by_head, tail, length_))
                for (auto& alike : split(by_tail, head, tail)) {
                    for (const std::size_t i : alike) classes_[i] = next_class_;
                    ++next_class_;
                }
        return std::move(classes_);
    }

  private:
    using member_set = std::vector<std::size_t>;

    // Members that agree up to `at`, and how far the disk has been asked for their bytes.
    struct stretch {
        member_set members;
        std::int64_t at;
        std::int64_t fetched;
        std::int64_t window;
    };

    // The members by equal bytes in the range from to end; what cannot be read drops out. A set of one is
    // read only where that shows whether the file is still there, at the end of the road.
    std::vector<member_set> split(const member_set& members, std::int64_t from, std::int64_t end) {
        std::vector<member_set> done;
        std::vector<stretch> open;
        open.push_back({members, from, from, window_of(first_fetch, members.size())});
        while (!open.empty()) {
            stretch next = std::move(open.back());
            open.pop_back();
            member_set& set = next.members;
            if (next.at >= end || set.size() < 2) {
                for (const std::size_t i : set)
                    if (set.size() < 2) readers_[i].reset();
                done.push_back(std::move(set));
                continue;
            }
            if (!keep_going_()) continue;
            fetch_ahead(next, end);
            const std::int64_t block = block_size(set.size(), end - next.at);
            for (member_set& part : split_block(set, next.at, block))
                open.push_back({std::move(part), next.at + block, next.fetched, next.window});
        }
        return done;
    }

    // The next window is fetched while the rest of the one before is compared; of all members at once, so
    // that the disk answers them side by side.
    void fetch_ahead(stretch& next, std::int64_t end) {
        if (!fetches_) return;
        while (next.fetched < end && next.at >= next.fetched - next.window / 4) {
            const std::int64_t length = std::min(next.window, end - next.fetched);
            for (const std::size_t i : next.members)
                if (static_cast<std::size_t>(next.fetched + length) > candidates_[i].head.size() &&
                    opened(i, next.at))
                    readers_[i]->fetch(next.fetched, length);
            next.fetched += length;
            next.window = window_of(next.window * 2, next.members.size());
        }
    }

    // Of each member, bounded for all of them.
    static std::int64_t window_of(std::int64_t wanted, std::size_t members) {
        return std::max(std::min(wanted, largest_fetch / static_cast<std::int64_t>(members)), largest_block);
    }

    bool opened(std::size_t i, std::int64_t at) {
        if (readers_[i]) return true;
        if (before_read_ && last_read_ != i) before_read_(candidates_[i].path);
        last_read_ = i;
        readers_[i] = files_.open_file(candidates_[i].path).object;
        if (!readers_[i]) return false;
        readers_[i]->will_read(at);
        return true;
    }

    std::int64_t block_size(std::size_t members, std::int64_t left) const {
        const std::int64_t share =
            std::max<std::int64_t>(block_memory / static_cast<std::int64_t>(members), 4096);
        return std::min({left, largest_block, share});
    }

    // A file is read into the first buffer that no sample uses: what equals a sample leaves it to the next
    // file, what equals none has become a sample in its place. Nothing is copied.
    std::vector<member_set> split_block(const member_set& set, std::int64_t at, std::int64_t block) {
        const auto size = static_cast<std::size_t>(block);
        std::vector<member_set> parts;
        std::vector<const std::byte*> samples;
        std::unordered_multimap<std::uint32_t, std::size_t> by_checksum;
        std::size_t used = 0;
        for (const std::size_t i : set) {
            const std::byte* bytes = block_of(i, at, size, used);
            if (bytes == nullptr) {
                readers_[i].reset();
                continue;
            }
            // The first sample alone decides most blocks; sums are taken only once there is a second one.
            if (!samples.empty() && std::memcmp(samples[0], bytes, size) == 0) {
                parts[0].push_back(i);
                continue;
            }
            const std::uint32_t sum = samples.empty() ? 0 : checksum(std::span(bytes, size));
            bool found = false;
            const auto range = by_checksum.equal_range(sum);
            for (auto match = range.first; match != range.second && !found; ++match) {
                if (match->second == 0 || std::memcmp(samples[match->second], bytes, size) != 0) continue;
                parts[match->second].push_back(i);
                found = true;
            }
            if (found) continue;
            if (!samples.empty()) by_checksum.emplace(sum, samples.size());
            samples.push_back(bytes);
            parts.push_back({i});
            if (used < buffers_.size() && buffers_[used].bytes.get() == bytes) ++used;
        }
        if (buffers_.size() > kept_buffers) buffers_.resize(kept_buffers);
        return parts;
    }

    // What the candidate holds already, or the block read into the buffer of this number. Null when the block
    // cannot be read whole, or the file goes on behind its length.
    const std::byte* block_of(std::size_t i, std::int64_t at, std::size_t size, std::size_t number) {
        const content_candidate& candidate = candidates_[i];
        if (static_cast<std::size_t>(at) + size <= candidate.head.size()) return candidate.head.data() + at;
        if (before_read_ && last_read_ != i) before_read_(candidate.path);
        last_read_ = i;
        if (!opened(i, at)) return nullptr;
        // One byte more at the end: a file that has grown is not the one that was listed.
        const bool last = at + static_cast<std::int64_t>(size) == length_;
        const std::span<std::byte> buffer = buffer_of(number, size + 1).first(size + (last ? 1 : 0));
        const std::int64_t count = readers_[i]->read_at(at, buffer);
        if (has_read_ && count > 0) has_read_(count);
        if (candidates_.size() > open_file_limit) readers_[i].reset();
        return count == static_cast<std::int64_t>(size) ? buffer.data() : nullptr;
    }

    std::span<std::byte> buffer_of(std::size_t number, std::size_t size) {
        if (number == buffers_.size()) buffers_.emplace_back();
        block_buffer& buffer = buffers_[number];
        if (buffer.size < size) buffer = {std::make_unique_for_overwrite<std::byte[]>(size), size};
        return {buffer.bytes.get(), size};
    }

    struct block_buffer {
        std::unique_ptr<std::byte[]> bytes;
        std::size_t size = 0;
    };

    file_system& files_;
    std::span<const content_candidate> candidates_;
    std::int64_t length_;
    const std::function<bool()>& keep_going_;
    const std::function<void(std::string_view)>& before_read_;
    const std::function<void(std::int64_t)>& has_read_;
    const bool fetches_;
    std::size_t last_read_ = static_cast<std::size_t>(-1);
    std::vector<std::unique_ptr<file_reader>> readers_;
    std::vector<std::int32_t> classes_;
    std::vector<block_buffer> buffers_;
    std::int32_t next_class_ = 0;
};

}  // namespace

std::vector<std::int32_t> classify_contents(file_system& files, std::span<const content_candidate> candidates,
                                            std::int64_t length, const std::function<bool()>& keep_going,
                                            const std::function<void(std::string_view)>& before_read,
                                            bool fetches, const std::function<void(std::int64_t)>& has_read) {
    return content_sorter(files, candidates, length, keep_going, before_read, fetches, has_read).run();
}

}  // namespace corvane
