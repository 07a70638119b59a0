// A column of plain values, counted from 1 and indexed by the 32-bit numbers that files and rows have. Stands
// beside text_column; parallel columns share their index.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

namespace corvane {

template <class Value>
class column {
  public:
    using value_type = Value;
    using iterator = typename std::vector<Value>::iterator;
    using const_iterator = typename std::vector<Value>::const_iterator;

    column() = default;
    column(std::initializer_list<Value> values) : values_(values) {}

    // Number of entries; they have the indexes 1 to size().
    std::int32_t size() const { return static_cast<std::int32_t>(values_.size()); }
    bool empty() const { return values_.empty(); }
    bool has(std::int64_t index) const { return index >= 1 && index <= size(); }

    // The index lies within 1 to size(); a debug build ends the program otherwise.
    Value& operator[](std::int32_t index) { return values_[slot(index)]; }
    const Value& operator[](std::int32_t index) const { return values_[slot(index)]; }
    const Value& back() const { return values_.back(); }

    void push_back(Value value) { values_.push_back(std::move(value)); }
    void assign(std::int32_t count, const Value& value) {
        values_.assign(static_cast<std::size_t>(count), value);
    }
    // Entries beyond the old size are empty values.
    void resize(std::int32_t count) { values_.resize(static_cast<std::size_t>(count)); }
    void reserve(std::int32_t count) { values_.reserve(static_cast<std::size_t>(count)); }
    // Keeps the memory.
    void clear() { values_.clear(); }

    auto begin() { return values_.begin(); }
    auto end() { return values_.end(); }
    auto begin() const { return values_.begin(); }
    auto end() const { return values_.end(); }

    // The entries first to last, both included; `last` may be first - 1.
    std::span<Value> range(std::int32_t first, std::int32_t last) {
        assert(first >= 1 && last >= first - 1 && last <= size());
        return std::span(values_).subspan(static_cast<std::size_t>(first - 1),
                                          static_cast<std::size_t>(last - first + 1));
    }

    bool operator==(const column&) const = default;

  private:
    std::size_t slot(std::int32_t index) const {
        assert(has(index));
        return static_cast<std::size_t>(index - 1);
    }

    std::vector<Value> values_;
};

}  // namespace corvane
