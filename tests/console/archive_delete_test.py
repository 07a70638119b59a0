"""Entries of real archives deleted through real tools and through stand-ins: what was marked goes, the rest of the
archive stays as it was, and a tool that fails, hangs or is missing does no harm.

archive_delete_test.py CONSOLE [TOOL [ROUNDS]]: TOOL is the real one that is tried, 7z without it; ROUNDS archives with
names that a tool may misread are made at random.
"""
import collections
import hashlib
import os
import random
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import zipfile
import zlib

from code_page import as_listed, utf8_as_listed
from expectations import expect, finish
from program_folder import lines_of, make_program_folder

console = sys.argv[1]
real_tool = shutil.which(sys.argv[2] if len(sys.argv) > 2 else "7z")
rounds = int(sys.argv[3]) if len(sys.argv) > 3 else 40


class Place:
    """A tree, a program folder, and a folder with the programs that can be found."""

    def __init__(self, root, name):
        self.root = os.path.join(root, name)
        self.data = os.path.join(self.root, "data")
        self.program = os.path.join(self.root, "program folder 程序")
        self.tools = os.path.join(self.root, "tools")
        for folder in (self.data, self.tools):
            os.makedirs(folder)
        make_program_folder(self.program, scan_archives=True)

    def write(self, name, content):
        path = os.path.join(self.data, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(content)
        return path

    def install(self, name, text=None):
        """The real tool, or a shell script."""
        path = os.path.join(self.tools, name)
        if text is None:
            os.symlink(real_tool, path)
        else:
            with open(path, "w") as file:
                file.write("#!/bin/sh\n" + text)
            os.chmod(path, 0o755)

    def seen(self, name):
        with open(os.path.join(self.root, name)) as file:
            return file.read()

    def run(self, marks, road="Picture5_Click", answers=("yes", "no"), before=(), more=(), options=()):
        """Compares the tree, marks cells, and deletes. `marks` are the texts of cells, or say which of all cells, each a
        pair of row and column. Returns status and what was printed."""
        process = subprocess.Popen(
            [console, "--program-dir", self.program, *options, "--script", "-"], stdin=subprocess.PIPE,
            stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
            env=dict(os.environ, PATH=self.tools, TOOL_LOG=self.root, HOME=self.root))

        def send(*lines):
            process.stdin.write("".join(line + "\n" for line in lines).encode("utf-8", "surrogateescape"))
            process.stdin.flush()

        send(f"select {self.data}", "call search_check_m_Click", *before, "show ListView1", "show list_mode")
        columns, line = {}, ""
        while not line.startswith("list_mode"):
            line = process.stdout.readline().decode("utf-8", "surrogateescape").rstrip("\n")
            fields = line.split("\t")
            if fields[0].isdigit():
                # The row, then text and colour of columns 1, 2, 3, 4.
                for column in (3, 4):
                    text = fields[2 * column - 1].replace("\\\\", "\\")
                    columns.setdefault(text, []).append((fields[0], column))
        if callable(marks):
            cells = marks(sorted(cell for places in columns.values() for cell in places))
        else:
            expect("listed", [mark for mark in marks if mark not in columns], [])
            cells = [columns[mark][-1] for mark in marks if mark in columns]
        send(*(f"mouse ListView1 double {row} {column}" for row, column in cells))
        send(*(f"answer {answer}" for answer in answers), *more, f"call {road}", "show archive_del_count")
        output = process.communicate(timeout=300)[0].decode("utf-8", "surrogateescape")
        self.list_file = os.path.join(self.program, "delrarfile.txt")
        return process.returncode, output


def digest(path):
    with open(path, "rb") as file:
        return hashlib.sha256(file.read()).hexdigest()


def contents(archive):
    with zipfile.ZipFile(archive) as opened:
        return {info.filename: opened.read(info) for info in opened.infolist() if not info.is_dir()}


def write_zip(path, members):
    """Members of a raw name, flags, extra data and a content, stored."""
    local, central = b"", b""
    for name, flags, extra, data in members:
        fields = struct.pack("<HHHHIIIHH", flags, 0, 0, 0x21, zlib.crc32(data), len(data), len(data), len(name), len(extra))
        central += (b"PK\1\2" + struct.pack("<HH", 20, 20) + fields + struct.pack("<HHHII", 0, 0, 0, 0, len(local)) + name +
                    extra)
        local += b"PK\3\4" + struct.pack("<H", 20) + fields + name + extra + data
    end = struct.pack("<HHHHIIH", 0, 0, len(members), len(members), len(central), len(local), 0)
    with open(path, "wb") as file:
        file.write(local + central + b"PK\5\6" + end)


def read_zip(path):
    """Raw name, content, and the name as it is listed, of each member; all are stored."""
    with open(path, "rb") as file:
        image = file.read()
    entries, directory = struct.unpack("<H4xI", image[-12:-2])
    members = []
    for _ in range(entries):
        length, name, extra, comment = struct.unpack("<I4xHHH", image[directory + 20:directory + 34])
        flags, = struct.unpack("<H", image[directory + 8:directory + 10])
        local, = struct.unpack("<I", image[directory + 42:directory + 46])
        data = local + 30 + sum(struct.unpack("<HH", image[local + 26:local + 30]))
        behind = directory + 46 + name
        raw = image[directory + 46:behind]
        listed = utf8_as_listed(raw) if flags & 0x800 else as_listed(raw, image[behind:behind + 1])
        members.append((raw, image[data:data + length], listed))
        directory += 46 + name + extra + comment
    return members


def unicode_form(name, form):
    field = struct.pack("<BI", 1, zlib.crc32(name)) + form
    return struct.pack("<HH", 0x7075, len(field)) + field


def report_of(output):
    return [line for line in output.splitlines() if line.startswith("message\t提示\t") and "个文件" in line][-1]


def unlike(number):
    """Contents of lengths that differ."""
    return bytes(f"content {number} ", "ascii") * (number + 2)


def members_with_chinese_names(root):
    place = Place(root, "chinese")
    names = ["plain.txt", "目录/文件.txt", "目录/子目录/深.bin", "目录/子目录/stays.bin", "目录/留下.txt", "b/c/d.txt",
             "b/c/d.txt.old", "b/C/d.txt"]
    for number, name in enumerate(names):
        place.write("source/" + name, unlike(number))
    archive = os.path.join(place.data, "archive 包.zip")
    subprocess.run([real_tool, "a", "-tzip", archive, "."], cwd=os.path.join(place.data, "source"), check=True,
                   stdout=subprocess.DEVNULL)
    os.chmod(archive, 0o640)
    before = contents(archive)
    expect("all are inside", sorted(before), sorted(names))
    place.install("7z")
    gone = ["plain.txt", "目录/文件.txt", "目录/子目录/深.bin", "b/c/d.txt"]
    status, output = place.run([f"{archive}*{name}" for name in gone])
    expect("status", status, 0)
    expect("inside", contents(archive), {name: before[name] for name in names if name not in gone})
    expect("open to the same", oct(os.stat(archive).st_mode & 0o777), oct(0o640))
    expect("on the disk", all(os.path.exists(os.path.join(place.data, "source", name)) for name in names), True)
    expect("runs", [line for line in output.splitlines() if line.startswith("shell")],
           ["\t".join(["shell", "start", os.path.join(place.tools, "7z"), "d", "-spd", archive, "@" + place.list_file])])
    expect("the list is empty again", os.path.getsize(place.list_file), 0)
    expect("report", "删除压缩包内文件:4个" in report_of(output) and "压缩包内仍有" not in output, True)
    expect("count", "archive_del_count\t4" in output, True)
    expect("left in the store", len(lines_of(os.path.join(place.program, "相同文件.txt"))), 2 + 3 * 4)


def names_of_other_forms(root):
    """Names without the flag for UTF-8, with the extra field instead, and names that no list can hold."""
    place = Place(root, "forms")
    place.install("7z")
    archive = os.path.join(place.data, "odd*name\n.zip")
    listed = archive.replace("*", "\uF02A").replace("\n", "\uF00A")
    gbk = "中文.txt".encode("gbk")
    members = [("unflagged 文件.txt".encode(), b""), (gbk, unicode_form(gbk, "中文.txt".encode())),
               ("留下.txt".encode("gbk"), b""), (b"st*r?.txt", b""), (b"start.txt", b""), (b" blank", b""), (b"blank", b""),
               (b"twice", b""), (b"twice", b""), (b"folder", b""), (b"folder/file", b""), (b"back\\slash", b"")]
    for number in range(len(members)):
        place.write(f"copies/{number}", unlike(number))
    write_zip(archive, [(name, 0, extra, unlike(number)) for number, (name, extra) in enumerate(members)])
    gone = [0, 1, 3, 10, 11]
    marked = [name for name, _ in members if name != b"start.txt"]
    status, output = place.run([f"{listed}*{as_listed(name)}" for name in marked])
    expect("status", status, 0)
    with zipfile.ZipFile(archive) as opened:
        kept = [opened.read(info) for info in opened.infolist()]
    expect("kept", sorted(kept), sorted(unlike(number) for number in range(len(members)) if number not in gone))
    expect("report", "压缩包内仍有:" in report_of(output) and "无法删除:" not in report_of(output), True)


def archives_in_turn(root):
    place = Place(root, "turn")
    place.install("7zz")
    archives = [os.path.join(place.data, name) for name in ("a.zip", "b.zip")]
    for number, archive in enumerate(archives):
        with zipfile.ZipFile(archive, "w") as opened:
            for member in range(3):
                opened.writestr(f"m{member}", unlike(2 * member + number))
    for number in range(6):
        place.write(f"copies/{number}", unlike(number))
    # Sorted by length the archives take turns.
    status, output = place.run([f"{archive}*m{member}" for archive in archives for member in (0, 1)],
                               before=["header ListView1 2"])
    expect("status", status, 0)
    expect("runs", output.count("shell\tstart\t"), 4)
    expect("inside", [sorted(contents(archive)) for archive in archives], [["m2"], ["m2"]])


def one_pair(place, archive_name="z.zip"):
    """An archive with a copy of a file and another member; the entry's text in the list."""
    archive = os.path.join(place.data, archive_name)
    with zipfile.ZipFile(archive, "w") as opened:
        opened.writestr("in/a", unlike(1))
        opened.writestr("other", unlike(2))
    place.write("a", unlike(1))
    return archive, f"{archive}*in/a"


def tools_that_fail(root):
    for name, text in (("fails", 'echo "$@" > "$TOOL_LOG/log"; exit 2\n'), ("does nothing", "exit 0\n"),
                       ("dies", "kill -9 $$\n")):
        place = Place(root, name)
        place.install("7za", text)
        archive, entry = one_pair(place)
        before = digest(archive)
        status, output = place.run([entry])
        expect(f"{name}: status", status, 0)
        expect(f"{name}: archive", digest(archive), before)
        expect(f"{name}: report", f"压缩包内仍有:1个 ({entry})" in report_of(output), True)
    place = Place(root, "cannot start")
    place.install("7z", "")
    with open(os.path.join(place.tools, "7z"), "w") as file:
        file.write("#!/no/such/interpreter\n")
    archive, entry = one_pair(place)
    before = digest(archive)
    status, output = place.run([entry], road="Command45_Click")
    expect("cannot start", (status, digest(archive), "archive_del_count\t0" in output), (0, before, True))
    expect("cannot start: report", "无法删除:1 个文件" in report_of(output), True)


def no_tool(root):
    place = Place(root, "none")
    archive, entry = one_pair(place)
    before = digest(archive)
    status, output = place.run([entry])
    expect("no tool", (status, digest(archive), "shell\t" in output, os.path.exists(place.list_file)),
           (0, before, False, False))
    expect("no tool: marks", lines_of(os.path.join(place.program, "winrar_del_file.txt")), [entry])


def rar(root):
    """A rar gets the names as they were read; without one a RAR stays."""
    data = unlike(3)
    blocks = b"Rar!\x1a\x07\0" + struct.pack("<HBHH", 0x90CF, 0x73, 0, 13) + bytes(6)
    for name in (b"dir\\a.txt", b"wild?card"):
        header = struct.pack("<BHHIIBIIBBHI", 0x74, 0x8000, 32 + len(name), len(data), len(data), 2, zlib.crc32(data),
                             0, 29, 0x30, len(name), 0x20) + name
        blocks += struct.pack("<H", zlib.crc32(header) & 0xFFFF) + header + data
        data = unlike(4)
    blocks += b"\xC4\x3D\x7B\x00\x40\x07\x00" + bytes(20)
    for installed in (True, False):
        place = Place(root, f"rar {installed}")
        place.install("7z")
        if installed:
            place.install("rar", 'echo "$@" > "$TOOL_LOG/log"\n/bin/cp "${3#@}" "$TOOL_LOG/list"\n')
        archive = place.write("x.rar", blocks)
        for number in (3, 4):
            place.write(str(number), unlike(number))
        status, output = place.run([f"{archive}*dir\\a.txt", f"{archive}*wild?card"])
        expect("rar: status", status, 0)
        if installed:
            expect("rar: command", place.seen("log"), f"d {archive} @{place.list_file}\n")
            expect("rar: list", place.seen("list"), "dir\\a.txt\n")
        expect("rar: runs", output.count("shell\tstart"), 1 if installed else 0)
        expect("rar: report", "压缩包内仍有:2个" in report_of(output), True)


def closing(root):
    """The program closes while the tool works: it does not wait, and the tool comes to its end."""
    place = Place(root, "closing")
    gate = os.path.join(place.root, "gate")
    os.mkfifo(gate)
    place.install("7z", 'read line < "${4#@}"; read go < "$TOOL_LOG/gate"; read again < "${4#@}"\n'
                        'echo "$line $again" > "$TOOL_LOG/part"; /bin/mv "$TOOL_LOG/part" "$TOOL_LOG/done"\n')
    archive, entry = one_pair(place)
    # The tool stands at its gate: a program that waited for it would not come back.
    status, output = place.run([entry], more=["at_yield 8 quit"])
    expect("closing: status", status, 0)
    expect("closing: started", output.count("shell\tstart"), 1)
    expect("closing: no report", "放入回收站:" in output, False)
    with open(gate, "w") as opened:
        opened.write("go\n")
    deadline = time.monotonic() + 20
    while not os.path.exists(os.path.join(place.root, "done")) and time.monotonic() < deadline:
        time.sleep(0.05)
    expect("closing: the tool has its list to the end", place.seen("done").split(), ["in/a"] * 2)


def random_archives(root):
    """Whatever the names are: only marked members go, and of each content a copy stays."""
    parts = [b"a", b"b", b"A", b"a.txt", b".", b"..", b"", b" ", b"a ", b" a", b'"a"', b'"', b"*", b"?", b"a*", b"-", b"@a",
             b"a\\b", b"\\", "中".encode(), "中".encode("gbk"), "é".encode(), b"\xff", b"\x07", b"\t", "\ufeff".encode(),
             "\ue000".encode(), b"a;b", b"a:b", b"!a", b"#", b"a\x00b", b"&", b"$(a)", b"a\x7f"]
    gone_altogether = 0
    for number in range(rounds):
        dice = random.Random(4711 + number)
        place = Place(root, f"random {number}")
        place.install("7z")
        archive = os.path.join(place.data, "z.zip")
        members = []
        for _ in range(dice.randrange(2, 14)):
            name = dice.choice([b"/", b"/", b"\\"]).join(dice.choices(parts, k=dice.randrange(1, 4))) or b"x"
            if members and dice.random() < 0.15:
                name = dice.choice(members)[0]
            extra = unicode_form(name, dice.choice(parts)) if dice.random() < 0.2 else b""
            members.append((name, dice.choice([0, 0, 0x800]), extra, unlike(dice.randrange(7))))
        write_zip(archive, members)
        for content in range(7):
            if dice.random() < 0.7:
                place.write(f"copy {content}", unlike(content))
        listed = {}
        for name, content, as_seen in read_zip(archive):
            listed.setdefault((name, content), set()).add(as_seen)
        before = [member[:2] for member in read_zip(archive)]
        contents = {content for _, content in before}
        status, output = place.run(lambda cells: [cell for cell in cells if dice.random() < 0.6])
        expect(f"round {number}: status", status, 0)
        list_of_marks = os.path.join(place.program, "winrar_del_file.txt")
        if not os.path.exists(list_of_marks):
            expect(f"round {number}: untouched", [member[:2] for member in read_zip(archive)], before)
            continue
        with open(list_of_marks, "rb") as file:
            marked = {line.partition(b"*")[2].decode("utf-8", "replace") for line in file.read().split(b"\r\n")}
        after = [member[:2] for member in read_zip(archive)]
        gone = collections.Counter(before) - collections.Counter(after)
        gone_altogether += len(gone)
        expect(f"round {number}: nothing new", collections.Counter(after) - collections.Counter(before), {})
        for name, content in gone:
            expect(f"round {number}: {name!r} of {members!r} was marked", bool(listed[name, content] & marked), True)
        alive = {content for _, content in after}
        for name in os.listdir(place.data):
            with open(os.path.join(place.data, name), "rb") as file:
                alive.add(file.read())
        expect(f"round {number}: no content is lost", contents - alive, set())
    expect("some members have gone", gone_altogether > rounds / 4, True)


def dry(root):
    place = Place(root, "dry")
    place.install("7z")
    archive, entry = one_pair(place)
    before = digest(archive)
    status, output = place.run([entry], options=["--dry-shell"])
    expect("dry", (status, digest(archive), output.count("shell\tstart")), (0, before, 1))


with tempfile.TemporaryDirectory(prefix="corvane_archive_delete_") as scratch:
    scratch = os.path.realpath(scratch)
    os.environ["LC_ALL"] = "C.UTF-8"
    for story in (members_with_chinese_names, names_of_other_forms, archives_in_turn, tools_that_fail, no_tool, rar, closing,
                  random_archives, dry):
        story(scratch)

finish()
