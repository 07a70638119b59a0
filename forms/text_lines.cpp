#include "forms/text_lines.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "forms/screen_text.h"

namespace corvane {

namespace {

constexpr std::size_t slice_size = std::size_t{4} << 20;
constexpr std::int64_t longest_shown = 8192;  // bytes of one line
constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

}  // namespace

void text_lines::open(const std::string& path) {
    reader_.reset();
    reason_.clear();
    starts_.clear();
    encoding_ = files_.data_files();
    looked_through_ = 0;
    complete_ = true;
    if (path.empty()) return;
    outcome_with<file_reader> file = files_.open_file(path);
    if (!file) {
        reason_ = file.reason.empty() ? path + "  不存在" : file.reason;
        return;
    }
    reader_ = std::move(file.object);
    complete_ = false;
    find_more();
}

bool text_lines::find_more() {
    if (complete_) return false;
    std::vector<char> slice(slice_size);
    const std::int64_t got =
        reader_->read_at(looked_through_, std::as_writable_bytes(std::span(slice.data(), slice.size())));
    if (got <= 0) {
        finish();
        return false;
    }
    if (looked_through_ == 0) {
        const std::string_view start(slice.data(), static_cast<std::size_t>(got));
        const bool is_marked = start.starts_with(byte_order_mark);
        if (is_marked) encoding_ = nullptr;
        starts_.push_back(is_marked ? 3 : 0);
    }
    const char* const begin = slice.data();
    const char* const end = begin + got;
    for (const char* at = begin; at < end;) {
        const auto* line_end =
            static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
        if (!line_end) break;
        at = line_end + 1;
        starts_.push_back(looked_through_ + (at - begin));
    }
    looked_through_ += got;
    if (got < static_cast<std::int64_t>(slice_size)) finish();
    return !complete_;
}

void text_lines::finish() {
    complete_ = true;
    // What follows the last line end is a line only if it is not empty.
    if (!starts_.empty() && starts_.back() >= looked_through_) starts_.pop_back();
}

QString text_lines::line(std::int64_t number) const {
    if (number < 0 || number >= count() || !reader_) return {};
    const auto at = static_cast<std::size_t>(number);
    const std::int64_t start = starts_[at];
    const std::int64_t end = at + 1 < starts_.size() ? starts_[at + 1] : looked_through_;
    const std::int64_t length = std::min(end - start, longest_shown);
    std::string bytes(static_cast<std::size_t>(std::max<std::int64_t>(length, 0)), '\0');
    const std::int64_t got =
        reader_->read_at(start, std::as_writable_bytes(std::span(bytes.data(), bytes.size())));
    bytes.resize(static_cast<std::size_t>(std::max<std::int64_t>(got, 0)));
    while (!bytes.empty() && (bytes.back() == '\n' || bytes.back() == '\r')) bytes.pop_back();
    std::string text;
    if (encoding_ != nullptr)
        encoding_->append_text(text, bytes);
    else
        text = std::move(bytes);
    QString shown = screen_text(text);
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const char16_t unit = shown.at(i).unicode();
        if (unit < 0x20 && unit != '\t') shown[i] = QChar(static_cast<char16_t>(0x2400 + unit));
    }
    if (end - start > longest_shown) shown += QStringLiteral(" …");
    return shown;
}

}  // namespace corvane
