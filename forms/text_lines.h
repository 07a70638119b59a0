// The lines of a data file, found in slices and read as they come into view, so that a file of a million
// lines is shown at once. Used by text_view.
#pragma once

#include <QString>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace corvane {

class text_lines {
  public:
    explicit text_lines(file_system& files) : files_(files) {}

    // An empty path or a file that cannot be read leaves no lines; reason() then says why.
    void open(const std::string& path);
    const std::string& reason() const { return reason_; }

    // Looks for line ends in the next slice of the file. False once the whole file has been looked through.
    bool find_more();
    bool complete() const { return complete_; }

    // Lines found so far, counted from 0. The last one may still grow while the file is not complete.
    std::int64_t count() const { return static_cast<std::int64_t>(starts_.size()); }
    // Without its line end, cut at the longest length that is worth showing.
    QString line(std::int64_t number) const;

  private:
    void finish();

    file_system& files_;
    std::unique_ptr<file_reader> reader_;
    std::string reason_;
    const data_encoding* encoding_ = nullptr;  // null: as texts are in memory
    std::vector<std::int64_t> starts_;         // where each line begins
    std::int64_t looked_through_ = 0;
    bool complete_ = true;
};

}  // namespace corvane
