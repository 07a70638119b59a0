#include "forms/linked_libraries.h"

#include <_mingw.h>

#include <QtGlobal>

namespace corvane {

namespace {
// Within the archive and the installed folder.
const std::string licences = "licences\\";
const std::string in_qt = "qtbase/src/3rdparty";
}  // namespace

std::vector<used_library> libraries_in_use() {
    const std::string qt = qVersion();
    return {
        {"Qt (Core, Gui, Widgets)", qt, "The Qt Company Ltd. and other contributors",
         "GNU LGPL 3 (" + licences + "LGPL-3.0-only.txt)",
         "https://download.qt.io/archive/qt/ ; apt-get source qt6-base"},
        {"zlib, libpng, libjpeg-turbo, FreeType, HarfBuzz, PCRE2, double-conversion, md4c, TinyCBOR, BLAKE2",
         "(Qt " + qt + ")", "their authors (" + licences + "qt-third-party.txt)",
         "zlib, libpng, IJG, FTL, MIT, BSD, CC0 (" + licences + "qt-third-party.txt)", in_qt},
        {"mingw-w64, winpthreads", __MINGW64_VERSION_STR, "the mingw-w64 project",
         "ZPL 2.1, MIT, public domain (" + licences + "mingw-w64.txt)",
         "https://www.mingw-w64.org/ ; apt-get source mingw-w64"},
        {"GNU libstdc++, libgcc", std::to_string(_GLIBCXX_RELEASE), "Free Software Foundation, Inc.",
         "GNU GPL 3 with the GCC Runtime Library Exception 3.1 (" + licences + "gcc.txt)",
         "https://ftp.gnu.org/gnu/gcc/ ; apt-get source gcc-mingw-w64"},
    };
}

std::string replacing_words() {
    return "这些程序库以静态链接的方式使用。可以换成您自己编译的版本，所需的目标文件和说明在 relink "
           "压缩包中。";
}

}  // namespace corvane
