# Builds for 64-bit Windows with Debian's mingw-w64 (POSIX threads). Programs are self-contained: no library of the
# compiler has to stand beside them. Tests run under Wine, by way of tests/windows/emulator.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
# CORVANE_TOOLKIT: where packaging/windows/build_qt has installed Qt; without it there are no windows.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES CORVANE_TOOLKIT)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32 ${CORVANE_TOOLKIT})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Without the time of the link, so that the same sources make the same bytes.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -Wl,--no-insert-timestamp")
get_filename_component(corvane_emulator "${CMAKE_CURRENT_LIST_DIR}/../tests/windows/emulator" ABSOLUTE)
set(CMAKE_CROSSCOMPILING_EMULATOR "${corvane_emulator}")
