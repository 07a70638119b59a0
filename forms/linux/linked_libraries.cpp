#include "forms/linked_libraries.h"

#include <QtGlobal>

#include "platform/desktop/desktop_versions.h"

namespace corvane {

std::vector<used_library> libraries_in_use() {
    return {
        {"Qt (Core, Gui, Widgets, Svg)", qVersion(), "The Qt Company Ltd. and other contributors",
         "GNU LGPL 3 (/usr/share/common-licenses/LGPL-3)",
         "https://download.qt.io/archive/qt/ ; apt-get source qt6-base qt6-svg"},
        {"GLib, GIO", glib_version(), "the GLib authors",
         "GNU LGPL 2.1+ (/usr/share/common-licenses/LGPL-2.1)",
         "https://download.gnome.org/sources/glib/ ; apt-get source glib2.0"},
        {"GNU C Library", c_library_version(), "Free Software Foundation, Inc. and others",
         "GNU LGPL 2.1+ (/usr/share/common-licenses/LGPL-2.1)",
         "https://ftp.gnu.org/gnu/glibc/ ; apt-get source glibc"},
        {"GNU libstdc++", cpp_library_version(), "Free Software Foundation, Inc.",
         "GNU GPL 3 with the GCC Runtime Library Exception 3.1 (/usr/share/common-licenses/GPL-3)",
         "https://ftp.gnu.org/gnu/gcc/ ; apt-get source gcc-12"},
    };
}

std::string replacing_words() {
    return {};
}

}  // namespace corvane
