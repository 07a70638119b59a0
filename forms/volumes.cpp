#include "forms/volumes.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <algorithm>

#include "forms/path_names.h"
#include "forms/screen_text.h"

namespace corvane {

namespace {

std::string closed_path(const QString& path) {
    std::string closed = program_path(path);
    if (!closed.ends_with('/')) closed += '/';
    return closed;
}

// Mounts that belong to the system's own working, not to the user's files.
bool is_system_mount(const QStorageInfo& mount) {
    const QString root = mount.rootPath();
    if (root == QLatin1String("/")) return false;
    for (const char* inner : {"/boot", "/dev", "/proc", "/sys", "/run", "/snap", "/var/lib"}) {
        const QString path = QLatin1String(inner);
        if (root == path || root.startsWith(path + QLatin1Char('/')))
            return !root.startsWith(QLatin1String("/run/media/"));
    }
    return !QFileInfo(root).isDir();
}

}  // namespace

std::vector<volume> volumes() {
    std::vector<volume> found;
    for (const QStorageInfo& mount : QStorageInfo::mountedVolumes()) {
        if (!mount.isValid() || !mount.isReady() || is_system_mount(mount)) continue;
        const std::string path = closed_path(mount.rootPath());
        QString label = path == "/" ? QStringLiteral("计算机  /") : screen_line(path);
        if (path != "/" && !mount.name().isEmpty()) label = mount.name() + QStringLiteral("  ") + label;
        found.push_back({label, path});
    }
    std::sort(found.begin(), found.end(), [](const volume& a, const volume& b) { return a.path < b.path; });
    found.erase(std::unique(found.begin(), found.end(),
                            [](const volume& a, const volume& b) { return a.path == b.path; }),
                found.end());
    const std::string home = closed_path(QDir::homePath());
    found.insert(found.begin(), {QStringLiteral("主目录  ") + screen_line(home), home});
    return found;
}

}  // namespace corvane
