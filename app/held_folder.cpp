#include "app/held_folder.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "core/settings/data_files.h"

namespace corvane {

namespace {

using text = std::shared_ptr<std::string>;

class held_reader : public file_reader {
  public:
    explicit held_reader(text content) : content_(std::move(content)) {}
    std::int64_t read_at(std::int64_t offset, std::span<std::byte> buffer) override {
        const std::size_t from = std::min(static_cast<std::size_t>(offset), content_->size());
        const std::size_t count = std::min(buffer.size(), content_->size() - from);
        if (count > 0) std::memcpy(buffer.data(), content_->data() + from, count);
        return static_cast<std::int64_t>(count);
    }
    void will_read(std::int64_t) override {}
    void fetch(std::int64_t, std::int64_t) override {}

  private:
    text content_;
};

class held_writer : public file_writer {
  public:
    // `place` takes the content at commit.
    held_writer(text& place, text content) : place_(place), content_(std::move(content)) {}
    outcome write(std::string_view bytes) override {
        content_->append(bytes);
        return outcome::success();
    }
    outcome write_at(std::int64_t offset, std::string_view bytes) override {
        content_->replace(static_cast<std::size_t>(offset), bytes.size(), bytes);
        return outcome::success();
    }
    outcome commit() override {
        place_ = content_;
        return outcome::success();
    }

  private:
    text& place_;
    text content_;
};

}  // namespace

bool held_folder::is_held_place(std::string_view path) const {
    if (folder_.empty() || path.size() <= folder_.size() || !path.starts_with(folder_)) return false;
    const std::string_view name = path.substr(folder_.size());
    return name.find(disk_.separator()) == std::string_view::npos &&
           std::find(std::begin(data_file::exports), std::end(data_file::exports), name) ==
               std::end(data_file::exports);
}

const held_folder::held_text* held_folder::find(std::string_view path) const {
    if (!is_held_place(path)) return nullptr;
    const auto found = texts_.find(path);
    return found == texts_.end() ? nullptr : &found->second;
}

path_attributes held_folder::attributes(const std::string& path) {
    const held_text* held = find(path);
    if (held == nullptr) return disk_.attributes(path);
    path_attributes found;
    found.exists = *held != nullptr;
    return found;
}

file_facts held_folder::facts(std::string_view path) {
    const held_text* held = find(path);
    if (held == nullptr) return disk_.facts(path);
    file_facts found;
    found.exists = *held != nullptr;
    if (found.exists) found.length = static_cast<std::int64_t>((*held)->size());
    return found;
}

bool held_folder::any_held(std::span<const std::string_view> paths) const {
    return std::any_of(paths.begin(), paths.end(),
                       [this](std::string_view path) { return is_held_place(path); });
}

std::size_t held_folder::many_exist(std::span<const std::string_view> paths,
                                    std::span<std::uint8_t> answers) {
    return any_held(paths) ? file_system::many_exist(paths, answers) : disk_.many_exist(paths, answers);
}

std::size_t held_folder::many_facts(std::span<const std::string_view> paths, std::span<file_facts> answers) {
    return any_held(paths) ? file_system::many_facts(paths, answers) : disk_.many_facts(paths, answers);
}

std::size_t held_folder::many_states(std::span<const std::string_view> paths, std::span<file_facts> answers) {
    return any_held(paths) ? many_facts(paths, answers) : disk_.many_states(paths, answers);
}

outcome_with<file_reader> held_folder::open_file(std::string_view path) {
    const held_text* held = find(path);
    if (held == nullptr) return disk_.open_file(path);
    if (*held == nullptr) return outcome::failure(std::string(path) + "  不存在");
    return std::make_unique<held_reader>(*held);
}

outcome_with<file_writer> held_folder::replace_file(const std::string& path) {
    if (!is_held_place(path)) return disk_.replace_file(path);
    // Until commit the file is as it was, be that the disk's: no entry is made before.
    class replacing_writer : public held_writer {
      public:
        replacing_writer(std::map<std::string, held_text, std::less<>>& texts, std::string path)
            : held_writer(made_, std::make_shared<std::string>()), texts_(texts), path_(std::move(path)) {}
        outcome commit() override {
            outcome done = held_writer::commit();
            texts_[path_] = made_;
            return done;
        }

      private:
        held_text made_;
        std::map<std::string, held_text, std::less<>>& texts_;
        std::string path_;
    };
    return std::make_unique<replacing_writer>(texts_, path);
}

outcome_with<file_writer> held_folder::overwrite_file(const std::string& path) {
    if (!is_held_place(path)) return disk_.overwrite_file(path);
    held_text& place = texts_[path];
    place = std::make_shared<std::string>();
    return std::make_unique<held_writer>(place, place);
}

outcome held_folder::put_text(const std::string& path, std::string_view words) {
    if (!is_held_place(path)) return disk_.put_text(path, words);
    texts_[path] = std::make_shared<std::string>(words);
    return outcome::success();
}

outcome held_folder::remove_data_file(const std::string& path) {
    if (!is_held_place(path)) return disk_.remove_data_file(path);
    texts_[path] = nullptr;
    return outcome::success();
}

}  // namespace corvane
