#include "forms/path_names.h"

#include <QFile>

#include "platform/name_mapping.h"

namespace corvane {

std::string program_path(const QString& path) {
    return to_text(QFile::encodeName(path).toStdString());
}

QString system_path(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(to_raw(path)));
}

}  // namespace corvane
