#include "platform/linux/disk_sweep.h"

#include <fcntl.h>
#include <linux/fiemap.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/linux/descriptor.h"
#include "platform/linux/raw_path.h"

namespace corvane {

namespace {

constexpr double sweep_seconds = 0.035;   // of the 50 ms of a call; the rest is for what is handed over
constexpr double measured_seconds = 2;    // a judgement waits no longer
constexpr double clear_gain = 1.15;       // else the threads are as good
constexpr std::size_t most_known = 4096;  // files; those that nobody has asked for again are forgotten then

}  // namespace

disk_sweep::disk_sweep(place_of place, reader read, clock seconds)
    : place_(std::move(place)), read_(std::move(read)), seconds_(std::move(seconds)) {}

bool disk_sweep::is_wanted(request_pace& pace) {
    if (state_ != state::rests) judge(pace);
    if (state_ != state::rests) return true;
    if (pace.settled_rate() <= 0 || pace.settled_rate() > slow_rate) return false;
    if (rest_ > 0) {
        --rest_;
        return false;
    }
    state_ = state::is_tried;
    starts_ = 0;
    time_ = 0;
    return true;
}

void disk_sweep::judge(request_pace& pace) {
    if (starts_ < measured_starts && time_ < measured_seconds) return;
    const double rate = time_ > 0 ? static_cast<double>(starts_) / time_ : memory_rate;
    starts_ = 0;
    time_ = 0;
    if (rate >= memory_rate) {
        pace.forget();
        state_ = state::rests;
        rest_ = 0;
    } else if (rate > pace.settled_rate() * (state_ == state::is_kept ? 1 : clear_gain)) {
        state_ = state::is_kept;
    } else {
        state_ = state::rests;
        rest_ = rest_calls;
    }
}

std::size_t disk_sweep::read(std::span<start_request> requests) {
    const double start = seconds_();
    if (known_.size() > most_known) known_.clear();
    is_answered_.assign(requests.size(), 0);
    if (find_places(requests, start + sweep_seconds)) sweep(requests, start + sweep_seconds);
    const std::size_t answered = answer(requests);
    time_ += seconds_() - start;
    return answered;
}

// False when the time did not suffice for all: nothing is read before it is known what lies first.
bool disk_sweep::find_places(std::span<const start_request> requests, double end) {
    for (const start_request& each : requests) {
        const auto [found, is_new] = known_.try_emplace(std::string(each.path));
        if (!is_new) continue;
        found->second.place = place_(each.path);
        if (seconds_() >= end) return &each == &requests.back();
    }
    return true;
}

void disk_sweep::sweep(std::span<start_request> requests, double end) {
    std::vector<std::pair<std::uint64_t, std::size_t>> ahead;
    for (std::size_t i = 0; i < requests.size(); ++i) {
        const known_file& file = known_[std::string(requests[i].path)];
        if (!file.is_read) ahead.emplace_back(file.place, i);
    }
    std::sort(ahead.begin(), ahead.end());
    // On from where the arm is, then from the start again.
    const auto next = std::lower_bound(ahead.begin(), ahead.end(), std::pair(arm_, std::size_t{0}));
    std::rotate(ahead.begin(), next, ahead.end());
    for (const auto& [place, i] : ahead) {
        if (seconds_() >= end) return;
        read_(requests[i]);
        is_answered_[i] = 1;
        known_[std::string(requests[i].path)].is_read = true;
        arm_ = place;
        ++starts_;
    }
}

// From the first on, as far as the sweep has been, in this call or an earlier one.
std::size_t disk_sweep::answer(std::span<start_request> requests) {
    std::size_t i = 0;
    for (; i < requests.size(); ++i) {
        const auto found = known_.find(std::string(requests[i].path));
        if (found == known_.end() || !found->second.is_read) break;
        if (is_answered_[i] == 0) read_(requests[i]);
    }
    for (const start_request& each : requests.first(i)) known_.erase(std::string(each.path));
    return i;
}

std::uint64_t place_on_disk(std::string_view path) {
    const descriptor file =
        descriptor::open(raw_path(path).c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_NOFOLLOW);
    struct stat facts;
    if (!file || fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode)) return 0;
    // The system fills in the extent behind the head.
    alignas(fiemap) char memory[sizeof(fiemap) + sizeof(fiemap_extent)] = {};
    fiemap asked{};
    asked.fm_length = 65536;
    asked.fm_extent_count = 1;
    std::memcpy(memory, &asked, sizeof asked);
    if (ioctl(file.number(), FS_IOC_FIEMAP, memory) != 0) return facts.st_ino;
    std::memcpy(&asked, memory, sizeof asked);
    fiemap_extent extent;
    std::memcpy(&extent, memory + sizeof(fiemap), sizeof extent);
    const bool is_known = asked.fm_mapped_extents > 0 && extent.fe_physical != 0 &&
                          (extent.fe_flags & FIEMAP_EXTENT_UNKNOWN) == 0;
    return is_known ? extent.fe_physical : facts.st_ino;
}

}  // namespace corvane
