"""The console for Windows on real files of drive D:, whole roads: Chinese names, data files byte for byte, exclusions,
attributes, the recycle bin, archives with backslashes.

roads_test.py EMULATOR CONSOLE, within tests/windows/wine.sh: D: is the folder CORVANE_DRIVE_D, the bin is the trash below
HOME.
"""
import json
import os
import stat
import subprocess
import sys
import tempfile
import zipfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "console"))
from expectations import expect, finish  # noqa: E402
from program_folder import make_program_folder, option_lists  # noqa: E402

emulator, console = sys.argv[1:]
drive = os.path.realpath(os.environ["CORVANE_DRIVE_D"])


class place:
    """A folder of the drive with a program folder and data of its own."""

    def __init__(self, root, scan_archives=False):
        self.root = os.path.realpath(root)
        self.data = os.path.join(self.root, "data")
        self.program = os.path.join(self.root, "program")
        os.makedirs(self.data)
        make_program_folder(self.program, scan_archives)
        settings = os.path.join(self.program, "Tavrel环境.txt")
        with open(settings, "rb") as file:
            content = file.read()
        with open(settings, "wb") as file:
            file.write(content.decode().encode("gb18030"))

    def path(self, *names):
        return "D:\\" + os.path.relpath(os.path.join(self.root, *names), drive).replace("/", "\\")

    def write(self, name, content):
        path = os.path.join(self.data, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(content)
        return path

    def store(self, name, text):
        with open(os.path.join(self.program, name), "wb") as file:
            file.write(text.encode("gb18030"))

    def stored(self, name):
        with open(os.path.join(self.program, name), "rb") as file:
            return file.read()

    def command(self, *arguments, input=b""):
        return subprocess.run([emulator, console, "--program-dir", self.path("program"), *arguments], input=input,
                              capture_output=True, timeout=300)

    def run(self, *arguments):
        done = self.command(*arguments)
        expect("status " + " ".join(arguments), (done.returncode, done.stderr if done.returncode else b""), (0, b""))
        return done.stdout.decode()

    def script(self, text):
        done = self.command("--script", "-", input=text.encode())
        expect("status of a script", (done.returncode, done.stderr), (0, b""))
        return done.stdout.decode()

    def left(self):
        return sorted(os.path.relpath(os.path.join(folder, name), self.data)
                      for folder, _, found in os.walk(self.data) for name in found)


def folder():
    return tempfile.TemporaryDirectory(prefix="corvane_road_", dir=drive)


with folder() as root:
    # Names of the code page, of beyond it, and of signs that other programs stumble over.
    here = place(root)
    names = ["照片 é.jpg", "\U0001F600.txt", "㐀𠀀.dat", "a&b (1).txt", "100%.txt"]
    for name in names:
        here.write("甲/" + name, name.encode())
        here.write("乙/" + name, name.encode())
    here.write("另/alone.txt", b"alone")
    output = here.run(here.path("data"))
    expect("pairs", sorted(output.splitlines()),
           sorted("\t".join([str(len(name.encode())), here.path("data", "乙", name).replace("\\", "\\\\"),
                             here.path("data", "甲", name).replace("\\", "\\\\")]) for name in names))
    listed = sorted([here.path("data", top, name) for top in ("甲", "乙") for name in names]
                    + [here.path("data", "另", "alone.txt")], key=lambda path: path.encode())
    expect("the file list byte for byte", here.stored("文件清单.txt"),
           "".join(path + "\r\n" for path in listed).encode("gb18030"))
    expect("files without a twin", here.stored("不相同文件.txt").decode("gb18030").split("\r\n")[-2],
           here.path("data", "另", "alone.txt"))
    store = here.stored("相同文件.txt")
    expect("the store is that of the code page", "内容相同文件清单".encode("gb18030") in store
           and here.path("data", "甲", "\U0001F600.txt").encode("gb18030") in store, True)
    found = json.loads(here.run("--format", "json", here.path("data").replace("\\", "/")))
    expect("in other formats names are UTF-8", here.path("data", "甲", "照片 é.jpg") in json.dumps(found, ensure_ascii=False)
           .replace("\\\\", "\\"), True)
    # The stored result is read back and shown; nothing of it is written anew.
    shown = here.script("call Picture4_Click\nshow ListView1\n")
    expect("rows of the stored result", shown.splitlines()[0].split("\t")[:2], ["rows", str(len(names))])
    expect("the store stays", here.stored("相同文件.txt"), store)

with folder() as root:
    # What a person has typed: another case, a drive in small letters, characters of the code page.
    here = place(root)
    for top in ("in", "Skip Me", "不要"):
        for name in "ab":
            here.write(top + "/" + name + ".txt", b"equal")
    excluded = ["1" + here.path("data", "sKIP mE").replace("D:", "d:") + "\\", "1" + here.path("data", "不要"), "1E:\\",
                "1" + here.path("data", "i"), "0" + here.path("data", "in")]
    here.store(option_lists[0], "".join(line + "\r\n" for line in excluded))
    output = here.run(here.path("data").upper())
    expect("excluded folders are left out", [field.split("\\\\")[-2:] for field in output.rstrip("\n").split("\t")[1:]],
           [["in", "a.txt"], ["in", "b.txt"]])
    expect("one pair alone", len(output.splitlines()), 1)
    here.store(option_lists[0], "1D:\\\r\n")
    done = here.command(here.path("data"))
    expect("an excluded drive is its root and not what is selected below it", len(done.stdout.splitlines()) > 1, True)
    here.store(option_lists[0], "")
    here.store(option_lists[1], "1.TXT\r\n")
    done = here.command(here.path("data"))
    expect("types in any case", (done.returncode, done.stdout, "没搜索到文件" in done.stderr.decode()), (1, b"", True))

with folder() as root:
    # The bin: what goes lies in the trash with its content; the last copy stays.
    here = place(root)
    for name in ("照片.jpg", "b c.txt", "d"):
        here.write("keep/" + name, name.encode())
        here.write("zopy/" + name, name.encode())
    output = here.script(f"select {here.path('data')}\ncall search_check_m_Click\nmouse ListView1 down 1 4 right\n"
                         "call all_select\nanswer yes\ncall Picture5_Click\n")
    expect("report", "放入回收站:3 个文件" in output, True)
    expect("keepers stay", here.left(), ["keep/b c.txt", "keep/d", "keep/照片.jpg"])
    trash = os.path.join(os.environ["HOME"], ".local/share/Trash/files")
    tops = [os.path.join(top, "files") for top in (os.path.dirname(trash),
                                                   os.path.join(drive, ".Trash-%d" % os.getuid()))]
    binned = {open(os.path.join(top, name), "rb").read() for top in tops if os.path.isdir(top)
              for name in os.listdir(top)}
    expect("the bin has them", {"照片.jpg".encode(), b"b c.txt", b"d"} <= binned, True)

with folder() as root:
    # For good: a read-only file turns blue and goes on a second run; a copy that has gone is none.
    here = place(root)
    for name in ("a/1", "b/1", "a/2", "b/2"):
        here.write(name, name[-1:].encode())
    protected = os.path.join(here.data, "b/1")
    os.chmod(protected, stat.S_IRUSR | stat.S_IRGRP)
    here.script(f"select {here.path('data')}\ncall search_check_m_Click\n")
    os.remove(os.path.join(here.data, "a/2"))
    here.script("call Picture4_Click\nmouse ListView1 down 1 4 right\ncall all_select\nanswer no\nanswer no\n"
                "call Picture5_Click\n")
    expect("the read-only one stays at first", here.left(), ["a/1", "b/1", "b/2"])
    here.script("call Picture4_Click\nmouse ListView1 down 1 4 right\ncall all_select\nanswer no\nanswer yes\n"
                "call Picture5_Click\nanswer no\ncall Picture5_Click\n")
    expect("and goes when that is wanted", here.left(), ["a/1", "b/2"])

with folder() as root:
    # Members with backslashes, a name of code page 936 without a flag; their twins lie beside the archive.
    here = place(root, scan_archives=True)
    with zipfile.ZipFile(os.path.join(here.data, "包.zip"), "w") as archive:
        archive.writestr("sub\\inner.txt", b"the content of a member")
        archive.writestr("plain.txt", b"another content of a member")
    here.write("twin.txt", b"the content of a member")
    output = here.run(here.path("data"))
    expect("a member is the twin of a file", [line.split("\t")[0] for line in output.splitlines()], ["23"])
    expect("named as the archive has it", "包.zip*" in output and "inner.txt" in output and "twin.txt" in output, True)

finish()
