"""Archives made by zip, 7z and zipfile, listed by the console and by zipfile; then a tree compared with its archive."""
import collections
import os
import random
import struct
import subprocess
import sys
import tempfile
import zipfile

from code_page import as_listed, utf8_as_listed
from expectations import expect, finish
from program_folder import lines_of, make_program_folder

console = sys.argv[1]


class Listing:
    """What one run makes of a directory."""

    def __init__(self, root, directory, task="picture2_Click"):
        self.program_dir = tempfile.mkdtemp(dir=root)
        os.rmdir(self.program_dir)
        make_program_folder(self.program_dir, scan_archives=True)
        script = f"select {directory}\ncall {task}\nshow scan_archives\n"
        run = subprocess.run([console, "--program-dir", self.program_dir, "--dry-shell", "--script", "-"],
                             input=script.encode(), capture_output=True, timeout=300)
        self.output = run.stdout.decode("utf-8", "surrogateescape")
        expect(f"{directory}: status", (run.returncode, "scan_archives\t1" in self.output), (0, True))
        self.entries = lines_of(os.path.join(self.program_dir, "文件清单.txt"))
        self.report = lines_of(os.path.join(self.program_dir, "err.txt"))

    def members(self, archive):
        return sorted(entry[len(archive) + 1:] for entry in self.entries if entry.startswith(archive + "*"))


def listed_name(info):
    if info.flag_bits & 0x800:
        return utf8_as_listed(info.orig_filename.encode("utf-8"))
    return as_listed(info.orig_filename.encode("cp437"))


def members_by_zipfile(archive):
    with zipfile.ZipFile(archive) as opened:
        return sorted(f"{listed_name(info)}*{info.CRC:08X}*{info.file_size}" for info in opened.infolist()
                      if not (info.CRC == 0 and info.orig_filename.endswith("/")))


class CodePageInfo(zipfile.ZipInfo):
    """A member whose name is stored in code page 936."""

    def _encodeFilenameFlags(self):
        return self.filename.encode("gbk"), self.flag_bits & ~0x800


class SparseFile:
    """A file in which blocks of zeros become holes."""

    def __init__(self, path):
        self.file = open(path, "wb")

    def __enter__(self):
        return self

    def __exit__(self, *reason):
        self.file.close()

    def write(self, data):
        if len(data) > 1 << 20 and data.count(0) == len(data):
            self.file.seek(len(data), os.SEEK_CUR)
            return len(data)
        return self.file.write(data)

    def __getattr__(self, name):
        return getattr(self.file, name)


def write_files(directory, names):
    for name, content in names.items():
        place = os.path.join(directory, name)
        os.makedirs(os.path.dirname(place), exist_ok=True)
        with open(place, "wb") as file:
            file.write(content)


def archives_of_tools(root):
    source = os.path.join(root, "source")
    directory = os.path.join(root, "tools")
    os.makedirs(directory)
    names = {"plain.txt": b"plain", "empty": b"", "folder/deep/a b (c).bin": os.urandom(70000),
             "folder/中文.txt": "中文".encode(), "st*r\nline": b"odd", "last.zip~": b"x" * 300000}
    write_files(source, names)
    os.makedirs(os.path.join(source, "hollow"))

    def tool(*command, text=b""):
        run = subprocess.run(command, cwd=source, input=text, capture_output=True)
        expect(" ".join(command), run.returncode, 0)

    tool("zip", "-qr", os.path.join(directory, "zip.zip"), ".")
    tool("zip", "-qr", "-z", os.path.join(directory, "zip commented.ZIP"), ".", text=b"a comment of the archive\n")
    tool("zip", "-qr", "-0", os.path.join(directory, "zip stored.zip"), ".")
    tool("7z", "a", "-tzip", "-bso0", "-bsp0", os.path.join(directory, "7z.zip"), ".")
    tool("7z", "a", "-tzip", "-mx0", "-bso0", "-bsp0", os.path.join(directory, "7z stored.zip"), ".")
    with zipfile.ZipFile(os.path.join(directory, "python.zip"), "w", zipfile.ZIP_DEFLATED) as archive:
        archive.comment = b"c" * 100
        archive.writestr("folder/", b"")
        for name, content in names.items():
            archive.writestr(name, content)
    with zipfile.ZipFile(os.path.join(directory, "code page.zip"), "w") as archive:
        archive.writestr(CodePageInfo("文件夹/"), b"")
        for name in ("文件夹/中文.txt", "文件夹/啊齄.bin", "plain"):
            archive.writestr(CodePageInfo(name), name)
    with zipfile.ZipFile(os.path.join(directory, "many.zip"), "w") as archive:
        for number in range(70000):
            archive.writestr(f"member {number % 31}/{number}", str(number))
    with zipfile.ZipFile(os.path.join(directory, "none.zip"), "w"):
        pass
    with zipfile.ZipFile(os.path.join(directory, "long names.zip"), "w") as archive:
        for length in (1, 255, 511, 512):
            archive.writestr("n" * length, b"")

    listing = Listing(root, directory)
    for name in sorted(os.listdir(directory)):
        place = os.path.join(directory, name)
        expect(name, listing.members(place), members_by_zipfile(place))
        expect(f"{name} itself", place in listing.entries, True)
    expect("many", len(listing.members(os.path.join(directory, "many.zip"))), 70000)
    expect("names are those on the disk",
           [entry.split("*")[0] for entry in listing.members(os.path.join(directory, "code page.zip"))],
           sorted(["文件夹/中文.txt", "文件夹/啊齄.bin", "plain"]))
    expect("order", listing.entries, sorted(listing.entries, key=lambda entry: entry.encode("utf-8", "surrogateescape")))
    expect("no problems", listing.report, ["压缩包错误清单"])
    expect("no report opened", "shell\t" in listing.output, False)


def large_archives(root):
    """More than 2 GiB in one member, stored as a hole; with and without the fields of large archives."""
    directory = os.path.join(root, "large")
    os.makedirs(directory)
    size, piece = 2_200_000_000, bytes(100_000_000)
    limit = zipfile.ZIP64_LIMIT
    for name, changed_limit in (("fields.zip", limit), ("plain.zip", 0xFFFFFFFE)):
        zipfile.ZIP64_LIMIT = changed_limit
        with SparseFile(os.path.join(directory, name)) as file, zipfile.ZipFile(file, "w", zipfile.ZIP_STORED) as archive:
            archive.writestr("first", b"1")
            with archive.open(zipfile.ZipInfo("large"), "w", force_zip64=changed_limit == limit) as member:
                for _ in range(size // len(piece)):
                    member.write(piece)
            archive.writestr("last", b"2")
    zipfile.ZIP64_LIMIT = limit
    listing = Listing(root, directory)
    for name in ("fields.zip", "plain.zip"):
        place = os.path.join(directory, name)
        found = listing.members(place)
        expect(name, found, members_by_zipfile(place))
        expect(f"{name} has the length", any(entry.endswith(f"*{size}") for entry in found), True)


def odd_archives(root):
    directory = os.path.join(root, "odd")
    os.makedirs(directory)
    place = os.path.join(directory, "good.zip")
    with zipfile.ZipFile(place, "w") as archive:
        for name in ("a", "b", "c"):
            archive.writestr(name, name * 50)
    with open(place, "rb") as file:
        good = file.read()
    members = members_by_zipfile(place)
    end = len(good) - 22
    start = struct.unpack("<I", good[end + 16:end + 20])[0]
    second = good.index(b"PK\1\2", start + 4)
    noted = zipfile.ZipInfo("noted")
    noted.comment = b"a note"
    with zipfile.ZipFile(os.path.join(directory, "noted.zip"), "w") as archive:
        archive.writestr(noted, b"x")
    write_files(directory, {"block.zip": good[:second] + b"SD" + bytes(15) + good[second:],
                            "tail.zip": good + bytes(4_900_000),
                            "far.zip": good + bytes(6_000_000),
                            "no archive.zip": b"these bytes are no archive",
                            "short.zip": b"short",
                            "no archive.rar": b"these bytes are no archive",
                            "later.rar": b"Rar!\x1a\x07\x01\x00" + bytes(100),
                            "cut.zip": good[:-1]})
    listing = Listing(root, directory)
    for name, wanted in {"good.zip": members, "block.zip": members, "tail.zip": members, "far.zip": [],
                         "no archive.zip": [], "short.zip": [], "no archive.rar": [], "later.rar": [],
                         "cut.zip": members, "noted.zip": ["noted*8CDC1683*1"]}.items():
        expect(name, listing.members(os.path.join(directory, name)), wanted)
        expect(f"{name} itself", os.path.join(directory, name) in listing.entries, True)
    expect("header", listing.report[0], "压缩包错误清单")
    expect("problems", sorted(listing.report[1:6]),
           sorted([os.path.join(directory, name) for name in
                   ("far.zip  已损坏,请检查", "no archive.zip  已损坏,请检查", "no archive.rar  已损坏,无法打开,请检查",
                    "later.rar  已损坏,无法打开,请检查", "noted.zip  *noted   有附加的信息,可疑")]))
    expect("advice", listing.report[6:], ["", "压缩包错误的验证方法", "1.选中所列的一个文件", "2.复制",
                                          "3.放在地址栏,或者贴到 <开始\\运行>,回车,即可运行."])
    report = os.path.join(listing.program_dir, "err.txt")
    expect("the report is opened once", [line for line in listing.output.splitlines() if line.startswith("shell\t")],
           [f"shell\topen\t{report}"])


def tree_and_archive(root):
    """Half of a tree is zipped; each of these files whose length is its own finds its member."""
    directory = os.path.join(root, "tree")
    dice = random.Random(7)
    names = {}
    for number in range(400):
        length = number % 9 if number < 40 else dice.randrange(200_000) if number % 10 else 65536
        if number % 7 == 3 and number > 50:
            content = names[f"d{(number - 40) % 5}/file {number - 40}"]
        else:
            content = dice.randbytes(length)
        names[f"d{number % 5}/file {number}"] = content
    write_files(directory, names)
    archive_path = os.path.join(directory, "half.zip")
    zipped = list(names)[::2]
    with zipfile.ZipFile(archive_path, "w", zipfile.ZIP_DEFLATED) as archive:
        for name in zipped:
            archive.writestr(name, names[name])

    listing = Listing(root, directory, "search_check_m_Click")
    lines = lines_of(os.path.join(listing.program_dir, "相同文件.txt"))[2:]
    content_of = {os.path.join(directory, name): content for name, content in names.items()}
    content_of.update({f"{archive_path}*{name}": names[name] for name in zipped})
    group = {}
    for length, one, other in zip(lines[0::3], lines[1::3], lines[2::3]):
        expect(f"{one} and {other}", content_of[one] == content_of[other], True)
        expect(f"length of {one}", int(length), len(content_of[one]))
        merged = group.get(one, {one}) | group.get(other, {other})
        group.update(dict.fromkeys(merged, merged))
    contents_of_length = collections.defaultdict(set)
    for content in names.values():
        contents_of_length[len(content)].add(content)
    found = 0
    for name in zipped:
        if len(contents_of_length[len(names[name])]) > 1 or not names[name]:
            continue
        found += 1
        path = os.path.join(directory, name)
        expect(f"{name} finds its member", f"{archive_path}*{name}" in group.get(path, ()), True)
    expect("many files were asked for", found > 120, True)


with tempfile.TemporaryDirectory(prefix="corvane_archives_") as scratch:
    scratch = os.path.realpath(scratch)
    os.environ["HOME"] = os.environ["XDG_DATA_HOME"] = os.path.join(scratch, "home")
    os.environ["LC_ALL"] = "C.UTF-8"
    archives_of_tools(scratch)
    large_archives(scratch)
    odd_archives(scratch)
    tree_and_archive(scratch)

finish()
