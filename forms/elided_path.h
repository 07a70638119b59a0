// A path as a narrow cell shows it beside another one: what both begin with is told from what differs, and is
// the first to be shortened. Used by the painter of the list.
#pragma once

#include <QString>
#include <functional>

namespace corvane {

// How many characters of both paths are the same leading directories, the separator included. 0 where it is
// the separator alone.
qsizetype common_root(const QString& a, const QString& b, QChar separator);

struct elided_path {
    QString root;  // with its place taken by "…" as far as need be
    QString rest;
};

// The path cut to `room`, first in its root of `root` characters, then in the middle of the rest.
// `width_of` measures a text.
elided_path elide_path(const QString& path, qsizetype root, int room,
                       const std::function<int(const QString&)>& width_of);

}  // namespace corvane
