#include "tests/support/memory_file_system.h"

#include <algorithm>
#include <cstring>

namespace corvane {

class memory_reader : public file_reader {
  public:
    memory_reader(memory_file_system& files, std::string path) : files_(files), path_(std::move(path)) {
        ++files_.open_now;
    }
    ~memory_reader() override { --files_.open_now; }

    std::int64_t read_at(std::int64_t offset, std::span<std::byte> buffer) override {
        const memory_file* file = files_.find(path_);
        if (file == nullptr || file->unreadable) return -1;
        const auto length = file->hole + static_cast<std::int64_t>(file->content.size());
        const auto left = static_cast<std::size_t>(length - std::min(offset, length));
        const std::size_t count = std::min(buffer.size(), left);
        if (file->read_failure >= 0 && offset + static_cast<std::int64_t>(count) > file->read_failure)
            return -1;
        // What stands in front of the hole, the hole, what stands behind it.
        const std::int64_t hole_end = file->hole_at + file->hole;
        for (std::size_t done = 0; done < count;) {
            const std::int64_t at = offset + static_cast<std::int64_t>(done);
            const std::int64_t end = at < file->hole_at ? file->hole_at : at < hole_end ? hole_end : length;
            const std::size_t part = std::min(count - done, static_cast<std::size_t>(end - at));
            if (at >= file->hole_at && at < hole_end)
                std::memset(buffer.data() + done, 0, part);
            else
                std::memcpy(buffer.data() + done,
                            file->content.data() + (at < hole_end ? at : at - file->hole), part);
            done += part;
        }
        files_.bytes_read[path_] += static_cast<std::int64_t>(count);
        note(false, offset, static_cast<std::int64_t>(count));
        return static_cast<std::int64_t>(count);
    }
    void will_read(std::int64_t) override {}
    void fetch(std::int64_t offset, std::int64_t length) override { note(true, offset, length); }

  private:
    void note(bool is_fetch, std::int64_t offset, std::int64_t length) {
        if (files_.read_events) files_.read_events->push_back({path_, is_fetch, offset, offset + length});
    }

    memory_file_system& files_;
    std::string path_;
};

class memory_writer : public file_writer {
  public:
    memory_writer(memory_file_system& files, std::string path, bool in_place)
        : files_(files), path_(std::move(path)), in_place_(in_place) {
        if (in_place_) put({});
    }
    outcome write(std::string_view bytes) override {
        if (path_ == files_.write_failure_path) return outcome::failure(files_.write_failure_words);
        content_ += bytes;
        if (in_place_) put(content_);
        return outcome::success();
    }
    outcome write_at(std::int64_t offset, std::string_view bytes) override {
        content_.replace(static_cast<std::size_t>(offset), bytes.size(), bytes);
        return outcome::success();
    }
    outcome commit() override {
        put(content_);
        if (files_.on_commit) files_.on_commit(path_);
        return outcome::success();
    }

  private:
    void put(std::string content) {
        memory_file& file = files_.place(path_);
        file.content = std::move(content);
        file.modified_ns = file.changed_ns = ++files_.clock_ns;
    }

    memory_file_system& files_;
    std::string path_;
    std::string content_;
    bool in_place_;
};

namespace {

class memory_directory_reader : public directory_reader {
  public:
    struct entry {
        std::string name;
        entry_kind kind;
        bool hidden;
    };

    memory_directory_reader(std::vector<entry> entries, file_identity identity, std::size_t breaks_after)
        : entries_(std::move(entries)), identity_(identity), breaks_after_(breaks_after) {}
    bool next(std::string_view& name, entry_kind& kind) override {
        failed_ = at_ >= breaks_after_;
        if (failed_) return false;
        if (at_ >= entries_.size()) return false;
        name = entries_[at_].name;
        kind = entries_[at_++].kind;
        return true;
    }
    bool failed() const override { return failed_; }
    bool hidden() const override { return entries_[at_ - 1].hidden; }
    file_identity identity() const override { return identity_; }

  private:
    std::vector<entry> entries_;
    file_identity identity_;
    std::size_t breaks_after_;
    std::size_t at_ = 0;
    bool failed_ = false;
};

}  // namespace

// Without a closing separator, doubled separators as one, links in the path followed.
std::string memory_file_system::key(std::string_view path) const {
    std::string plain;
    for (const char unit : path)
        if (unit != separator_ || plain.empty() || plain.back() != separator_) plain += unit;
    if (plain.size() > 1 && plain.back() == separator_) plain.pop_back();
    for (std::size_t end = 1; end <= plain.size(); ++end) {
        if (end != plain.size() && plain[end] != separator_) continue;
        const auto found = entries_.find(plain.substr(0, end));
        if (found != entries_.end() && found->second.kind == entry_kind::link_to_directory &&
            end != plain.size())
            return key(found->second.link_target + plain.substr(end));
    }
    return plain;
}

memory_file* memory_file_system::find(std::string_view path) {
    const auto found = entries_.find(key(path));
    return found == entries_.end() ? nullptr : &found->second;
}

memory_file& memory_file_system::place(const std::string& path) {
    memory_file& file = entries_[key(path)];
    if (file.index == 0) file.index = next_index_++;
    return file;
}

memory_file& memory_file_system::add_file(const std::string& path, std::string content) {
    const std::size_t cut = path.rfind(separator_);
    if (cut != std::string::npos && cut > 0) add_directory(path.substr(0, cut));
    memory_file& file = place(path);
    file.content = std::move(content);
    return file;
}

memory_file& memory_file_system::add_directory(const std::string& path) {
    const std::string plain = key(path);
    const std::size_t cut = plain.rfind(separator_);
    if (cut != std::string::npos && cut > 0) add_directory(plain.substr(0, cut));
    memory_file& directory = place(plain);
    directory.kind = entry_kind::directory;
    return directory;
}

memory_file& memory_file_system::add_link(const std::string& path, const std::string& target_directory) {
    memory_file& link = place(path);
    link.kind = entry_kind::link_to_directory;
    link.link_target = target_directory;
    return link;
}

std::string memory_file_system::content_of(const std::string& path) const {
    const auto found = entries_.find(key(path));
    return found == entries_.end() ? std::string() : found->second.content;
}

std::int64_t memory_file_system::total_opened() const {
    std::int64_t total = 0;
    for (const auto& [path, count] : opened) total += count;
    return total;
}

outcome_with<directory_reader> memory_file_system::open_directory(const std::string& path) {
    const memory_file* directory = find(path);
    std::string base = key(path);
    if (directory != nullptr && directory->kind == entry_kind::link_to_directory) {
        base = key(directory->link_target);
        directory = find(base);
    }
    if (directory == nullptr || directory->kind != entry_kind::directory || directory->unreadable)
        return outcome::failure(directory == nullptr ? "no such directory" : "access denied");
    if (base.back() != separator_) base += separator_;
    std::vector<memory_directory_reader::entry> entries;
    for (const auto& [name, file] : entries_)
        if (name.size() > base.size() && name.starts_with(base) &&
            name.find(separator_, base.size()) == std::string::npos)
            entries.push_back({name.substr(base.size()), file.kind,
                               names_tell_hidden ? name[base.size()] == '.' : file.hidden});
    return std::make_unique<memory_directory_reader>(
        std::move(entries), file_identity{directory->device, directory->index}, directory->breaks_after);
}

path_attributes memory_file_system::attributes(const std::string& path) {
    ++attribute_questions;
    const memory_file* file = find(path);
    path_attributes result;
    if (file == nullptr) return result;
    result.link = file->kind == entry_kind::link_to_directory;
    result.directory = file->kind == entry_kind::directory || result.link;
    if (path.size() > 1 && path.back() == separator_ && !result.directory) return {};
    result.exists = true;
    result.hidden = file->hidden && unhidden_.count(key(path)) == 0;
    result.read_only = file->read_only;
    return result;
}

outcome memory_file_system::clear_attributes(const std::string& path) {
    memory_file* file = find(path);
    if (file == nullptr || file->keeps_attributes)
        return outcome::failure(file == nullptr ? "no such file" : "operation not permitted");
    if (file->kind != entry_kind::link_to_directory) file->read_only = false;
    unhidden_.insert(key(path));
    return outcome::success();
}

file_facts memory_file_system::facts(std::string_view path) {
    ++fact_questions;
    const memory_file* file = path.find('*') == std::string_view::npos ? find(path) : nullptr;
    file_facts result;
    if (file == nullptr || file->kind != entry_kind::file) return result;
    result.exists = true;
    result.length = file->stated_length >= 0 ? file->stated_length
                                             : file->hole + static_cast<std::int64_t>(file->content.size());
    result.date_high = file->date_high;
    result.date_low = file->date_low;
    result.link_count = file->link_count;
    result.identity = {file->device, file->index};
    result.modified_ns = file->modified_ns;
    result.changed_ns = file->changed_ns;
    result.stacked = file->stacked;
    return result;
}

std::string memory_file_system::resolve(const std::string& path) {
    const memory_file* file = find(path);
    if (file != nullptr && file->kind == entry_kind::link_to_directory) return file->link_target;
    return key(path);
}

bool memory_file_system::identity(const std::string& path, file_identity& identity) {
    const memory_file* file = find(resolve(path));
    if (file == nullptr) return false;
    identity = {file->device, file->index};
    return true;
}

std::int64_t memory_file_system::read_start(std::string_view path, std::span<std::byte> buffer, std::size_t) {
    const outcome_with<file_reader> reader = open_file(path);
    return reader ? reader->read_at(0, buffer) : -1;
}

outcome_with<file_reader> memory_file_system::open_file(std::string_view path) {
    const memory_file* file = path.find('*') == std::string_view::npos ? find(path) : nullptr;
    if (file == nullptr || file->kind != entry_kind::file || file->unreadable)
        return outcome::failure(file == nullptr ? "no such file" : "access denied");
    ++opened[std::string(path)];
    return std::make_unique<memory_reader>(*this, std::string(path));
}

outcome_with<file_writer> memory_file_system::replace_file(const std::string& path) {
    return std::make_unique<memory_writer>(*this, key(path), false);
}

outcome_with<file_writer> memory_file_system::overwrite_file(const std::string& path) {
    return std::make_unique<memory_writer>(*this, key(path), true);
}

outcome memory_file_system::put_text(const std::string& path, std::string_view text) {
    const outcome_with<file_writer> writer = overwrite_file(path);
    const outcome written = writer->write(text);
    return written ? writer->commit() : written;
}

outcome memory_file_system::make_directory(const std::string& path) {
    if (attributes(path).directory) return outcome::success();
    if (folder_locked || locked_folders.count(path) != 0) return outcome::failure("read-only");
    made_directories.push_back(path);
    add_directory(path);
    return outcome::success();
}

outcome memory_file_system::remove_file(const std::string& path, const file_facts& expected) {
    if (before_removal) before_removal(path);
    const memory_file* file = find(path);
    if (file == nullptr || file->kind != entry_kind::file || file->keeps_itself)
        return outcome::failure("cannot be deleted");
    if (!same_state(expected, facts(path))) return outcome::failure("is another file");
    removed.push_back(path);
    entries_.erase(key(path));
    return outcome::success();
}

outcome memory_file_system::remove_data_file(const std::string& path) {
    erase(path);
    return outcome::success();
}

}  // namespace corvane
