// A column of texts, counted from 1, for lists of millions of paths. The texts of one or several columns lie
// in a shared arena; an entry is one pointer, so columns are sorted, shared and copied without touching a
// text. Used for the file list, the result columns, the history names and the cells of the list view.
#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace corvane {

// Append-only storage of texts. Texts stay valid and in place until the arena is destroyed.
class text_arena {
  public:
    const char* store(std::string_view text);

    static std::string_view text_at(const char* entry) {
        std::uint32_t length;
        std::memcpy(&length, entry, sizeof length);
        return {entry + sizeof length, length};
    }

  private:
    std::vector<std::unique_ptr<char[]>> blocks_;
    char* free_ = nullptr;
    std::size_t left_ = 0;
    std::size_t next_block_ = 4096;
};

class text_column {
  public:
    text_column() : arena_(std::make_shared<text_arena>()) {}

    // Number of entries; they have the indexes 1 to size().
    std::int32_t size() const { return static_cast<std::int32_t>(entries_.size()) - 1; }

    // The text stays valid as long as any column shares the arena, even when the entry is set anew.
    std::string_view operator[](std::int32_t index) const {
        return text_arena::text_at(entries_[static_cast<std::size_t>(index)]);
    }
    void set(std::int32_t index, std::string_view text) {
        entries_[static_cast<std::size_t>(index)] = arena_->store(text);
    }
    void push_back(std::string_view text) { entries_.push_back(arena_->store(text)); }

    // Drops all entries and this column's hold on the arena.
    void clear();
    // Drops the entries and shares the arena of `other`, so that entries can be taken over from it.
    void clear_and_share(const text_column& other);
    void reserve(std::int32_t count) { entries_.reserve(static_cast<std::size_t>(count) + 1); }
    // Entries that fit without new memory.
    std::size_t capacity() const { return entries_.capacity(); }
    // Entries beyond the old size are empty texts.
    void resize(std::int32_t count) { entries_.resize(static_cast<std::size_t>(count) + 1, empty_entry); }

    // The entry itself, to be moved within this column or into a column that shares its arena.
    const char* entry(std::int32_t index) const { return entries_[static_cast<std::size_t>(index)]; }
    void set_entry(std::int32_t index, const char* entry) {
        entries_[static_cast<std::size_t>(index)] = entry;
    }
    void push_entry(const char* entry) { entries_.push_back(entry); }
    // Its entries in another order, by their indexes: what swap_entries takes.
    std::vector<const char*> in_order(std::span<const std::int32_t> indexes) const {
        std::vector<const char*> entries;
        entries.reserve(indexes.size() + 1);
        entries.push_back(empty_entry);
        for (const std::int32_t index : indexes) entries.push_back(entry(index));
        return entries;
    }
    void swap_entries(std::vector<const char*>& entries) { entries_.swap(entries); }
    // Direct access for sorting to the entries first to last, both included.
    std::span<const char*> range(std::int32_t first, std::int32_t last) {
        return std::span(entries_).subspan(static_cast<std::size_t>(first),
                                           static_cast<std::size_t>(last - first + 1));
    }

  private:
    static const char empty_entry[sizeof(std::uint32_t)];

    std::shared_ptr<text_arena> arena_;
    std::vector<const char*> entries_{empty_entry};
};

}  // namespace corvane
