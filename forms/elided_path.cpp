#include "forms/elided_path.h"

#include <algorithm>

namespace corvane {

namespace {

const QString dots = QStringLiteral("…");

// No half of a character outside the basic plane stays alone.
qsizetype whole(const QString& text, qsizetype at) {
    return at > 0 && at < text.size() && text.at(at).isLowSurrogate() ? at - 1 : at;
}

// The greatest count for which `made(count)` fits, by halving; 0 where none does.
qsizetype most_that_fits(qsizetype most, int room, const std::function<QString(qsizetype)>& made,
                         const std::function<int(const QString&)>& width_of) {
    qsizetype low = 0;
    while (low < most) {
        const qsizetype middle = (low + most + 1) / 2;
        if (width_of(made(middle)) <= room)
            low = middle;
        else
            most = middle - 1;
    }
    return low;
}

// The end weighs more: there stands the name of the file.
QString cut_middle(const QString& text, qsizetype kept) {
    const qsizetype head = whole(text, kept * 2 / 5);
    return text.left(head) + dots + text.mid(whole(text, text.size() - (kept - head)));
}

}  // namespace

qsizetype common_root(const QString& a, const QString& b, QChar separator) {
    const auto apart = std::mismatch(a.begin(), a.begin() + std::min(a.size(), b.size()), b.begin());
    const qsizetype same = apart.first - a.begin();
    // Where both are the same path, its name is not part of the root.
    const qsizetype last = same == 0 ? -1 : a.lastIndexOf(separator, same - 1);
    return last <= 0 ? 0 : last + 1;
}

elided_path elide_path(const QString& path, qsizetype root, int room,
                       const std::function<int(const QString&)>& width_of) {
    elided_path shown{path.left(root), path.mid(root)};
    if (width_of(path) <= room) return shown;
    if (root > 0) {
        const QString gap = dots + path.at(root - 1);  // the separator before the rest stays
        const auto shortened = [&](qsizetype kept) { return path.left(whole(path, kept)) + gap; };
        const qsizetype kept = most_that_fits(
            root - 1, room, [&](qsizetype count) { return shortened(count) + shown.rest; }, width_of);
        shown.root = shortened(kept);
        if (kept > 0 || width_of(gap + shown.rest) <= room) return shown;
    }
    const QString rest = shown.rest;
    const qsizetype kept = most_that_fits(
        rest.size() - 1, room, [&](qsizetype count) { return shown.root + cut_middle(rest, count); },
        width_of);
    shown.rest = cut_middle(rest, kept);
    return shown;
}

}  // namespace corvane
