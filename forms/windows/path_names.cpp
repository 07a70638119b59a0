#include "forms/path_names.h"

#include <QDir>

#include "platform/windows/windows_names.h"

namespace corvane {

// By their units, not by way of UTF-8: a half of a pair that stands alone comes back as it was.

std::string program_path(const QString& path) {
    return text_of(QDir::toNativeSeparators(path).toStdWString());
}

QString system_path(const std::string& path) {
    std::wstring units;
    units_of(path, units);
    return QString::fromStdWString(units);
}

}  // namespace corvane
