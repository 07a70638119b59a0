#!/usr/bin/env bash
# Links corvane.exe anew, with another Qt in the place of the one that it holds.
#
#   relink.sh QT [PROGRAM]      QT: where a static Qt 6 for mingw-w64 is installed (the folder with lib and plugins);
#                               PROGRAM: default corvane.exe, here
#
# On Debian 12: apt-get install g++-mingw-w64-x86-64-posix. On Windows: the same in MSYS2's shell, with CXX set to its
# g++ (GCC 12 or later, POSIX threads). The Qt must be one that takes programs compiled for 6.4.2: 6.4.2 itself with your
# changes, configured with -static and without OpenGL, or a later 6.x with the same features.
set -euo pipefail
qt=$(cd "$1" && pwd)
program=$(realpath -m "${2:-corvane.exe}")
cd "$(dirname "$0")"
sed "s|@QT@|$qt|g" link.txt >link.rsp
"${CXX:-x86_64-w64-mingw32-g++-posix}" @link.rsp -o "$program"
rm link.rsp
echo "$program"
