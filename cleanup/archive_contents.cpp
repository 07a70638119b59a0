#include "cleanup/archive_contents.h"

#include <array>
#include <charconv>
#include <span>

#include "core/archives/rar_reader.h"
#include "core/archives/zip_reader.h"
#include "core/model/main_form.h"
#include "core/text/text_case.h"

namespace corvane {

namespace {

constexpr std::size_t most_shelved = 1'000'000;  // members of all archives on the shelf
constexpr std::int64_t empty_zip_length = 22;    // an end record and nothing else

// The reader of the walk asks for more than an empty archive has.
bool is_empty_zip(file_system& files, const std::string& path) {
    if (files.facts(path).length != empty_zip_length) return false;
    std::array<std::byte, 4> start;
    if (files.read_start(path, start, start.size()) != static_cast<std::int64_t>(start.size())) return false;
    return std::string_view(reinterpret_cast<const char*>(start.data()), start.size()) == "PK\5\6";
}

}  // namespace

bool is_rar_archive(std::string_view path) {
    constexpr std::string_view type = ".RAR";
    return path.size() >= type.size() && upper_case(path.substr(path.size() - type.size())) == type;
}

archive_contents::archive_contents(Tavrel& form, const std::string& path)
    : most_members_(static_cast<std::size_t>(form.state.limits.files)) {
    if (!form.outside.files.facts(path).exists) return;
    const archive_context context{form.outside.files, form.outside.encodings, form.state};
    whole_ = is_rar_archive(path) ? read_rar(context, path, *this)
                                  : is_empty_zip(form.outside.files, path) || read_zip(context, path, *this);
    numbers_.reserve(members_.size());
    for (std::size_t number = 0; number < members_.size(); ++number)
        if (!members_[number].directory) numbers_.emplace(members_[number].name, number);
}

bool archive_contents::take(const archive_record& record) {
    if (members_.size() >= most_members_) return false;
    archive_member member;
    member.name = record.name;
    member.raw_name = record.raw_name;
    std::from_chars(record.crc_text.data(), record.crc_text.data() + record.crc_text.size(), member.crc, 16);
    member.length = record.length;
    member.directory = record.directory;
    members_.push_back(std::move(member));
    return true;
}

bool archive_contents::has(std::string_view name) const {
    return numbers_.find(name) != numbers_.end();
}

const archive_member* archive_contents::file(std::string_view name) const {
    const auto [first, last] = numbers_.equal_range(name);
    return first != last && std::next(first) == last ? &members_[first->second] : nullptr;
}

const archive_contents& archive_shelf::contents(const std::string& path) {
    const file_facts facts = form_.outside.files.facts(path);
    const auto known = shelf_.find(path);
    if (known != shelf_.end()) {
        if (same_state(known->second.facts, facts)) return *known->second.contents;
        members_ -= known->second.contents->members().size();
        shelf_.erase(known);
    }
    if (members_ > most_shelved) {
        shelf_.clear();
        members_ = 0;
    }
    shelved& place = shelf_[path];
    place.facts = facts;
    place.contents = std::make_unique<archive_contents>(form_, path);
    members_ += place.contents->members().size();
    return *place.contents;
}

}  // namespace corvane
