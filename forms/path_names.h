// Paths between Qt's texts and the program's. Used where Qt hands a path over: drops, file dialogs, volumes.
#pragma once

#include <QFile>
#include <QString>
#include <string>

#include "platform/name_mapping.h"

namespace corvane {

inline std::string program_path(const QString& path) {
    return to_text(QFile::encodeName(path).toStdString());
}

inline QString system_path(const std::string& path) {
    return QFile::decodeName(QByteArray::fromStdString(to_raw(path)));
}

}  // namespace corvane
