"""Empty directories end to end with a real trash: what the search lists is what find calls empty, what is deleted
lies in the trash with its record, what is not empty stays, and the parents are found by the next search.

Usage: empty_real_test.py CONSOLE SCRATCH    SCRATCH lies on a disk whose trash the desktop's rules allow.
"""
import os
import shutil
import socket
import stat
import subprocess
import sys
import tempfile
import urllib.parse

from expectations import expect, finish
from program_folder import option_lists

console, scratch = sys.argv[1:]


def make(path, content=None):
    os.makedirs(path if content is None else os.path.dirname(path), exist_ok=True)
    if content is not None:
        with open(path, "w", encoding="utf-8") as file:
            file.write(content)


def text_of(raw):
    """The path as the program writes it: control bytes and stars moved out of the way."""
    return "".join(chr(0xF000 + ord(each)) if each < " " or each in "\x7f*" else each for each in raw)


def empty_by_find(place):
    done = subprocess.run(["find", place, "-type", "d", "-empty", "-print0"], capture_output=True, check=True)
    return sorted(text_of(path.decode()) + "/" for path in done.stdout.split(b"\0") if path)


def everything(place):
    return sorted(os.path.join(at, name) for at, directories, files in os.walk(place) for name in directories + files)


os.makedirs(scratch, exist_ok=True)
root = os.path.realpath(tempfile.mkdtemp(prefix="empty_real_", dir=scratch))
try:
    data, program_dir, home = (os.path.join(root, name) for name in ("data", "program", "home"))
    share = os.path.join(home, "share")
    for place in (program_dir, share):
        os.makedirs(place)
    for name in option_lists:
        make(os.path.join(program_dir, name), "")
    environment = dict(os.environ, HOME=home, XDG_DATA_HOME=share)
    for name in ("DBUS_SESSION_BUS_ADDRESS", "GIO_USE_PORTALS"):
        environment.pop(name, None)

    def run(*script):
        done = subprocess.run([console, "--program-dir", program_dir, "--script", "-"],
                              input="\n".join(script).encode(), capture_output=True, env=environment, timeout=120)
        expect("exit status", (done.returncode, done.stderr), (0, b""))
        return done.stdout.decode().splitlines()

    def stored():
        with open(os.path.join(program_dir, "spasedir.txt"), "rb") as file:
            return sorted(file.read().decode().splitlines())

    for name in ("plain", "chain/middle/end", "  blanks  ", "line\nbreak", "star*", "空 目录", "back\\slash", ".hidden",
                 "a?b", "%41 percent"):
        make(os.path.join(data, name))
    make(os.path.join(data, "full", "file"), "text")
    make(os.path.join(data, "hidden file", ".keep"), "")
    make(os.path.join(data, "protected"))
    os.chmod(os.path.join(data, "protected"), 0o555)
    make(os.path.join(data, "pipe"))
    os.mkfifo(os.path.join(data, "pipe", "fifo"))
    make(os.path.join(data, "socket"))
    # Bound by a short name: the address has room for little more than a hundred bytes.
    before = os.getcwd()
    os.chdir(os.path.join(data, "socket"))
    listener = socket.socket(socket.AF_UNIX)
    listener.bind("s")
    os.chdir(before)
    make(os.path.join(data, "dangling"))
    os.symlink("nowhere", os.path.join(data, "dangling", "link"))
    make(os.path.join(data, "loop"))
    os.symlink(data, os.path.join(data, "loop", "up"))
    make(os.path.join(root, "outside", "precious"), "text")
    make(os.path.join(data, "swapped"))
    make(os.path.join(data, "became a file"))

    empty = empty_by_find(data)
    run(f"select {data}", "call Picture6_Click")
    expect("the search lists what find calls empty", stored(), empty)
    expect("there is something to find", len(empty), 13)

    # Between the search and the deletion two of them become something else.
    os.rmdir(os.path.join(data, "swapped"))
    os.symlink(os.path.join(root, "outside"), os.path.join(data, "swapped"))
    os.rmdir(os.path.join(data, "became a file"))
    make(os.path.join(data, "became a file"), "text")
    lines = run("call Picture7_Click", "call all_select", "answer no", "call Picture8_Click")
    stays = {os.path.join(data, name) + "/" for name in (".hidden", "protected", "swapped", "became a file")}
    gone = [path for path in empty if path not in stays]
    expect("handed to the trash", sorted(line.split("\t")[2].replace("\\\\", "\\") for line in lines
                                         if line.startswith("shell\t")), gone)
    expect("reported", [line.split("\t")[2].split("\\r")[0] for line in lines if line.startswith("message")],
           ["放入回收站:9 个空目录"])

    trash = os.path.join(share, "Trash")
    records = []
    for name in os.listdir(os.path.join(trash, "info")):
        with open(os.path.join(trash, "info", name), "rb") as file:
            path = next(line for line in file.read().decode().splitlines() if line.startswith("Path="))
        records.append(text_of(urllib.parse.unquote(path[5:])) + "/")
        taken = os.path.join(trash, "files", name.removesuffix(".trashinfo"))
        expect(f"{name}: an empty directory", (os.path.isdir(taken), os.listdir(taken)), (True, []))
    expect("the records of the trash", sorted(records), gone)
    left = {os.path.relpath(path, data) for path in everything(data)}
    expect("what stays", left, {
        ".hidden", "protected", "swapped", "became a file", "chain", "chain/middle", "full", "full/file", "hidden file",
        "hidden file/.keep", "pipe", "pipe/fifo", "socket", "socket/s", "dangling", "dangling/link", "loop", "loop/up"})
    expect("what a link leads to stays", os.listdir(os.path.join(root, "outside")), ["precious"])
    expect("the stored list is not rewritten", stored(), empty)

    # The parent of what has gone is empty now, and the protected two go after a yes.
    lines = run(f"select {data}", "call Command43_Click", "call all_select", "answer yes", "call Picture8_Click",
                "call Picture8_Click")
    expect("the second search", stored(), [os.path.join(data, name) + "/" for name in (".hidden", "chain/middle",
                                                                                      "protected")])
    for name in (".hidden", "chain/middle", "protected"):
        expect(f"{name} is gone", os.path.exists(os.path.join(data, name)), False)
    mode = stat.S_IMODE(os.lstat(os.path.join(trash, "files", "protected")).st_mode)
    expect("write permission was given to the owner alone", oct(mode), oct(0o755))
    run(f"select {data}", "call Picture6_Click")
    expect("the third search", stored(), [os.path.join(data, "chain") + "/"])
    expect("find agrees", empty_by_find(data), [os.path.join(data, "chain") + "/"])
finally:
    shutil.rmtree(root)

finish()
