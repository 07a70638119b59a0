# Wine with the code page 936, in a folder of its own: home, locale, prefix, one server that is kept alive.
# shellcheck shell=bash

# start_wine FOLDER: makes there what is missing, sets the environment that tests/windows/emulator runs in, and starts
# the server. Drive D: is FOLDER/drive_d, a disk to work on.
start_wine() {
    local folder=$1
    mkdir -p "$folder/home/.local/share" "$folder/locale" "$folder/drive_d"
    # Without a locale of its own Wine takes no Chinese name.
    [ -d "$folder/locale/zh_CN.UTF-8" ] || localedef -i zh_CN -f UTF-8 "$folder/locale/zh_CN.UTF-8"
    unset DISPLAY WAYLAND_DISPLAY XDG_DATA_HOME
    # A program that falls ends at once, without a debugger.
    export HOME="$folder/home" WINEPREFIX="$folder/prefix" LOCPATH="$folder/locale" WINEDEBUG=-all
    export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe,winedbg.exe=" CORVANE_DRIVE_D="$folder/drive_d"
    if [ ! -e "$WINEPREFIX/dosdevices/d:" ]; then
        LC_ALL=zh_CN.UTF-8 /usr/lib/wine/wine64 wineboot -i >"$folder/wineboot.log" 2>&1
        ln -s "$folder/drive_d" "$WINEPREFIX/dosdevices/d:"
    fi
    # The server ends with the last program; this one waits for the end of its input, which comes with that of this shell.
    rm -f "$folder/held"
    mkfifo "$folder/held"
    exec 9<>"$folder/held"
    LC_ALL=zh_CN.UTF-8 /usr/lib/wine/wine64 cmd.exe <"$folder/held" >/dev/null 2>&1 9<&- &
    trap stop_wine EXIT
}

# Ends the server of this prefix with all that it has started.
stop_wine() {
    /usr/lib/wine/wineserver64 -k || true
}
