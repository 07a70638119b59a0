#!/bin/sh
# 在此查找重复文件: a script of the Files menu. Nautilus hands over the selected folders, a line each; without a
# selection it is the folder that is shown, which is the working directory.
set -f
IFS='
'
set --
for path in ${NAUTILUS_SCRIPT_SELECTED_FILE_PATHS:-}; do
    [ -d "$path" ] && set -- "$@" "$path"
done
[ $# -gt 0 ] || set -- "$PWD"
exec corvane -- "$@"
