#include "tests/forms/window_fixture.h"

#include <fstream>

namespace corvane {

window_fixture::window_fixture(const std::vector<std::string>& directories)
    : corvane({files, desktop, desktop, screen}, folder.path().toStdString() + "/program/"),
      form(corvane.main_form()),
      window(corvane, screen) {
    QDir(folder.path()).mkpath(QStringLiteral("program"));
    QDir(folder.path()).mkpath(QStringLiteral("data"));
    std::ofstream list(path("program/比较文件_目录清单.txt"));
    for (const std::string& directory : directories) list << path(directory) << "\r\n";
    list.close();
    corvane.start();
    window.sync();
}

std::string window_fixture::add_file(const std::string& name, const std::string& content) {
    const std::string place = path(name);
    QDir().mkpath(QString::fromStdString(place.substr(0, place.rfind('/'))));
    std::ofstream(place, std::ios::binary) << content;
    return place;
}

}  // namespace corvane
