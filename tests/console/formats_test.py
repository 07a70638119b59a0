"""Each format of the console read back by a reader of its own, and held against groups by the hash of the contents.

formats_test.py CONSOLE
"""
import collections
import csv
import hashlib
import html.parser
import io
import json
import os
import re
import subprocess
import sys
import tempfile
import urllib.parse
import zipfile
import zlib

from expectations import expect, finish
from program_folder import make_program_folder

console = sys.argv[1]
odd_names = [b"plain.txt", b"tab\there", b"line\nbreak", b"cr\r\nlf", b'quo"te', b"apo'strophe", b"<b>&amp;</b>.html",
             b"comma, semi;", b"star*.txt", b"back\\slash", b"\xff\xfe", b"half \xe4\xb8", " 空 白　".encode(), b"  two  blanks ",
             "\ue000\uf02a".encode(), "\u202egpj.exe".encode(), b"\x7f", b"-rf", b"=1+1", b"%41", b"]]>", b"--><script>",
             b"n" * 255, "图片.JPG".encode(), b".hidden", b"a.b.c"]


def run(program_dir, *arguments, status=0):
    done = subprocess.run([console, "--program-dir", program_dir, *arguments], capture_output=True, timeout=300)
    expect(f"status of {arguments[:-1]}", done.returncode, status)
    return done


def accounts(top):
    """Groups of equal files below a directory, by the hash of their contents, as sets of raw paths."""
    groups = collections.defaultdict(set)
    for folder, _, names in os.walk(os.fsencode(top)):
        for name in names:
            path = os.path.join(folder, name)
            if os.path.isfile(path) and not os.path.islink(path):
                with open(path, "rb") as file:
                    groups[hashlib.sha256(file.read()).digest()].add(path)
    return {frozenset(group) for group in groups.values() if len(group) > 1}


def mapped(raw):
    """A name as the program has it: the rule is stated in the manual page."""
    text = b""
    at = 0
    while at < len(raw):
        letter = re.match(rb"\xef[\x80-\x83][\x80-\xbf]", raw[at:])
        if letter:
            text += b"\xef\x80\x80" + letter.group()
            at += 3
        else:
            byte = raw[at]
            text += chr(0xF000 + byte).encode() if byte < 0x20 or byte in (0x7F, 0x2A) else raw[at:at + 1]
            at += 1
    return text


def groups_of_pairs(pairs):
    """Sets of what pairs connect."""
    group_of = {}
    for a, b in pairs:
        joined = group_of.get(a, {a}) | group_of.get(b, {b})
        for path in joined:
            group_of[path] = joined
    return {frozenset(group) for group in group_of.values()}


def read_pairs(output):
    def field(text):
        return re.sub(rb"\\(.)", lambda sign: {b"t": b"\t", b"n": b"\n", b"r": b"\r", b"\\": b"\\"}[sign.group(1)], text)
    rows = [line.split(b"\t") for line in output.split(b"\n")[:-1]]
    expect("three fields a pair", {len(row) for row in rows} <= {3}, True)
    return groups_of_pairs([(field(a), field(b)) for _, a, b in rows])


def read_group_lines(output):
    blocks = output.split(b"\n\n")
    expect("the last group is closed", blocks.pop(), b"")
    return {frozenset(block.split(b"\n")) for block in blocks}


def read_null(output):
    paths = output.split(b"\0")
    expect("closed by a NUL", paths.pop(), b"")
    return groups_of_pairs(list(zip(paths[::2], paths[1::2])))


def raw_of(file):
    if "path_bytes" in file:
        return urllib.parse.unquote_to_bytes(file["path_bytes"])
    return file["path"].encode()


class page_reader(html.parser.HTMLParser):
    """Lists of paths, and what is loaded from elsewhere."""

    def __init__(self):
        super().__init__()
        self.lists, self.outside, self.open, self.elements = [], [], None, []
        self.figures = []

    def handle_starttag(self, tag, attributes):
        self.elements.append(tag)
        for name, value in attributes:
            if name in ("src", "href", "action", "data") or name.startswith("on"):
                self.outside.append((tag, name, value))
        if tag == "ol":
            self.lists.append([])
        if tag == "li":
            self.lists[-1].append("")
            self.open = "li"
        if tag == "dd":
            self.figures.append("")
            self.open = "dd"

    def handle_endtag(self, tag):
        if tag == self.open:
            self.open = None

    def handle_data(self, data):
        if self.open == "li":
            self.lists[-1][-1] += data
        if self.open == "dd":
            self.figures[-1] += data


def on_page(raw):
    """A name as the page shows it: what is no UTF-8 or shows nothing by its number."""
    text = ""
    at = 0
    while at < len(raw):
        for length in (1, 2, 3, 4):
            try:
                letter = raw[at:at + length].decode()
            except UnicodeDecodeError:
                continue
            if letter:
                break
        else:
            text += f"\\x{raw[at]:02X}"
            at += 1
            continue
        code = ord(letter)
        at += length
        if code < 0x20 or code == 0x7F:
            text += f"\\x{code:02X}"
        elif code == 0x202E:
            text += "U+202E"
        elif 0xF000 <= code <= 0xF0FF:
            text += "\uf000" + ("*" if code == 0xF02A else letter)
        else:
            text += letter
    return text


def check_all(program_dir, top):
    wanted = accounts(top)
    spare = sum(len(group) - 1 for group in wanted)
    spare_bytes = sum((len(group) - 1) * os.path.getsize(next(iter(group))) for group in wanted)
    files = sum(len([name for name in names if os.path.isfile(os.path.join(folder, name))])
                for folder, _, names in os.walk(os.fsencode(top)))

    found = run(program_dir, top)
    expect("pairs", read_pairs(found.stdout), {frozenset(map(mapped, group)) for group in wanted})
    sentence = re.search(rb"^(\d+) files, (\d+) equal ones, (.+), \d+\.\d s$", found.stderr, re.M)
    expect("sentence", sentence and (int(sentence[1]), int(sentence[2])), (files, spare))

    found = run(program_dir, "--format", "groups", top)
    expect("groups", read_group_lines(found.stdout), {frozenset(map(mapped, group)) for group in wanted})

    found = run(program_dir, "--format", "null", top)
    expect("null", read_null(found.stdout), wanted)

    found = run(program_dir, "--format=json", top)
    told = json.loads(found.stdout.decode("utf-8", "strict"))
    expect("version", told["version"], run(program_dir, "--version").stdout.split()[1].decode())
    expect("directories", told["directories"], [top])
    expect("totals", told["totals"], {"files": files, "equal": spare, "bytes": spare_bytes})
    expect("json", {frozenset(raw_of(file) for file in group["files"]) for group in told["groups"]}, wanted)
    known = 0
    for group in told["groups"]:
        for file in group["files"]:
            raw = raw_of(file)
            expect("path_bytes only where needed", "path_bytes" in file, raw.decode("utf-8", "replace").encode() != raw)
            expect("path", file["path"], raw.decode("utf-8", "replace") if "path_bytes" not in file else file["path"])
            with open(raw, "rb") as content:
                body = content.read()
            expect("length", group["length"], len(body))
            if "checksum" in group:
                known += 1
                expect("checksum", group["checksum"], f"{zlib.crc32(body):08x}")
            expect("modified", file["modified"], "2001-09-09T01:46:40Z")
    expect("some checksums are known", known > 10, True)

    found = run(program_dir, "--format", "csv", top)
    rows = list(csv.reader(io.StringIO(found.stdout.decode("utf-8", "surrogateescape"), newline=""), strict=True))
    expect("csv heading", rows[0], ["group", "length", "checksum", "modified", "path", "member"])
    groups = collections.defaultdict(set)
    for row in rows[1:]:
        expect("six fields", len(row), 6)
        groups[row[0]].add(row[4].encode("utf-8", "surrogateescape"))
        expect("length", int(row[1]), os.path.getsize(row[4].encode("utf-8", "surrogateescape")))
    expect("csv", {frozenset(group) for group in groups.values()}, wanted)
    expect("line ends", found.stdout.count(b"\r\n") >= len(rows), True)

    found = run(program_dir, "--format", "html", top)
    page = page_reader()
    page.feed(found.stdout.decode("utf-8", "strict"))
    page.close()
    # The page has the hundred that free the most.
    freed = {frozenset(map(on_page, group)): (len(group) - 1) * os.path.getsize(next(iter(group))) for group in wanted}
    shown = [frozenset(group) for group in page.lists]
    expect("html", (set(shown) - freed.keys(), len(set(shown))), (set(), min(100, len(wanted))))
    expect("the largest", sorted((freed[group] for group in shown), reverse=True),
           sorted(freed.values(), reverse=True)[:100])
    expect("largest first", [freed[group] for group in shown], sorted((freed[group] for group in shown), reverse=True))
    expect("nothing from elsewhere", page.outside, [])
    expect("no script", "script" in page.elements or "link" in page.elements, False)
    expect("no element of a name", "b" in page.elements, False)
    expect("figures", page.figures[:3], [f"{files:,}", f"{len(wanted):,}", f"{spare:,}"])


with tempfile.TemporaryDirectory(prefix="corvane_formats_") as root:
    root = os.path.realpath(root)
    program_dir = os.path.join(root, "program")
    make_program_folder(program_dir, False)
    top = os.path.join(root, "data")

    def write(name, content):
        path = os.path.join(os.fsencode(top), name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(content)
        os.utime(path, (1_000_000_000, 1_000_000_000))

    # Stars of three, pairs, empty files, one to five bytes, more than a signature reads; each odd name in one of them.
    for i, name in enumerate(odd_names):
        write(b"one/" + name, b"x" * i)
        write(b"two/" + name, b"x" * i)
        write(b"dir \n" + name[:100] + b"/a", b"%d same for three" % i)
        write(b"b/%d" % i, b"%d same for three" % i)
        write(b"c/%d" % i, b"%d same for three" % i)
    for side in (b"l", b"m", b"n"):
        write(side + b"/long", b"long" * 30_000)
        write(side + b"/block", b"z" * 65536)
        # Up to four bytes are their own signature.
        for tiny in (b"\x00", b"\xff\xff\xff\xff", b"ab", b"\x00\x01\x02"):
            write(side + b"/tiny%d" % len(tiny), tiny)
    write(b"alone", b"nobody else has this")
    check_all(program_dir, top)

    # Again with what the history of the first runs knows; there are enough files for one now.
    for i in range(500):
        write(b"many/%d" % i, b"%d" % (i // 2) * 3)
    check_all(program_dir, top)
    check_all(program_dir, top)

    # Nothing equal: an empty result is whole in each format.
    none = os.path.join(root, "none")
    os.makedirs(none)
    with open(os.path.join(none, "only"), "wb") as file:
        file.write(b"only")
    for form, empty in (("pairs", b""), ("groups", b""), ("null", b""),
                        ("csv", b"group,length,checksum,modified,path,member\r\n")):
        expect(f"empty {form}", run(program_dir, "--format", form, none).stdout, empty)
    told = json.loads(run(program_dir, "--format", "json", none).stdout)
    expect("empty json", (told["totals"], told["groups"]), ({"files": 1, "equal": 0, "bytes": 0}, []))
    expect("empty page", "没有相同文件".encode() in run(program_dir, "--format", "html", none).stdout, True)

    # Directories that are no UTF-8 are told exactly, too.
    odd = os.path.join(os.fsencode(root), b"\xff dir")
    os.makedirs(odd)
    for name in (b"a", b"b"):
        with open(os.path.join(odd, name), "wb") as file:
            file.write(b"same")
    told = json.loads(run(program_dir, "--format", "json", os.fsdecode(odd)).stdout)
    expect("directory", [urllib.parse.unquote_to_bytes(text) for text in told["directories_bytes"]], [odd])

    # Members of archives: named as members, and no disk path is made of them.
    boxed = os.path.join(root, "boxed")
    os.makedirs(boxed)
    with zipfile.ZipFile(os.path.join(boxed, "z.zip"), "w") as box:
        box.writestr("in,side/ä.txt", b"the same in and out")
        box.writestr("long", b"long" * 40_000)
    with open(os.path.join(boxed, "out.txt"), "wb") as file:
        file.write(b"the same in and out")
    with open(os.path.join(boxed, "long"), "wb") as file:
        file.write(b"long" * 40_000)
    arguments = ("--search-archives", boxed)
    archive = os.path.join(boxed, "z.zip")
    told = json.loads(run(program_dir, "--format", "json", *arguments).stdout)
    files = told["groups"][0]["files"]
    member = next(file for file in files if "member" in file)
    expect("member", (member["path"], member["member"], member["modified"]), (archive + "*in,side/ä.txt", "in,side/ä.txt", None))
    expect("its checksum", told["groups"][0]["checksum"], f"{zlib.crc32(b'the same in and out'):08x}")
    expect("of a long one, too", told["groups"][1].get("checksum"), f"{zlib.crc32(b'long' * 40_000):08x}")
    expect("its partner", [file["path"] for file in files if "member" not in file], [os.path.join(boxed, "out.txt")])
    rows = list(csv.reader(io.StringIO(run(program_dir, "--format", "csv", *arguments).stdout.decode(), newline="")))
    expect("member in csv", {(row[4], row[5]) for row in rows[1:]},
           {(archive + "*in,side/ä.txt", "in,side/ä.txt"), (os.path.join(boxed, "out.txt"), ""),
            (archive + "*long", "long"), (os.path.join(boxed, "long"), "")})
    found = run(program_dir, "--format", "null", *arguments)
    expect("no member in null", found.stdout, b"")
    expect("which is said", b"2 pairs with members of archives are left out" in found.stderr, True)
    expect("without the option no member", run(program_dir, "--format", "null", boxed).stdout, b"")

finish()
