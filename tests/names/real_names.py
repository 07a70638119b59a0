"""Runs the three name checks over a tree of this machine and holds their pairs against an account of its own: names
grouped by python, directories listed by find."""
import collections
import os
import subprocess
import sys
import tempfile

console, place = sys.argv[1:]
place = os.path.realpath(place)


def shown(raw):
    """A path as the program's text: what would break a line, and the star, as U+F000 + byte."""
    text = raw.decode("utf-8", "surrogateescape")
    return "".join(chr(0xF000 + ord(c)) if ord(c) < 0x20 or c in "\x7f*" else c for c in text)


def upper(text):
    """One letter of one letter; a letter whose upper case is several stays."""
    return "".join(c.upper() if len(c.upper()) == 1 else c for c in text)


def code(text):
    return text.encode("utf-8", "surrogateescape")


def rows_of(lines, columns, first):
    rows, wanted = [], 0
    for line in lines:
        fields = line.split("\t")
        if fields[0] == "rows":
            wanted = int(fields[1])
        elif wanted > 0:
            assert len(fields) == 1 + 2 * columns, line
            cells = [cell.replace("\\\\", "\\") for cell in fields[1::2]]
            rows.append((cells[first - 1], cells[first], int(fields[2 * first])))
            wanted -= 1
    return rows


def star_pairs(files, key_of):
    """Every file with the first of its name, but for the last file in the order of the names."""
    in_order = sorted(range(len(files)), key=lambda i: (code(key_of(files[i])), i))
    first, pairs = {}, []
    for i in in_order[:-1]:
        key = key_of(files[i])
        if key in first:
            pairs.append((files[first[key]], files[i]))
        first.setdefault(key, i)
    return pairs


def groups_of(pairs):
    parent = {}

    def root_of(path):
        while parent.setdefault(path, path) != path:
            parent[path] = parent[parent[path]]
            path = parent[path]
        return path

    for one, other in pairs:
        parent[root_of(one)] = root_of(other)
    groups = collections.defaultdict(set)
    for path in list(parent):
        groups[root_of(path)].add(path)
    return list(groups.values())


def run(script):
    with tempfile.TemporaryDirectory() as program_dir:
        output = subprocess.run([console, "--program-dir", program_dir, "--dry-shell", "--script", "-"],
                                input=f"select {place}\n{script}show ListView1\n".encode(), capture_output=True,
                                check=True, timeout=300).stdout
        stored = os.path.join(program_dir, "文件清单.txt")
        files = []
        if os.path.exists(stored):
            with open(stored, "rb") as file:
                files = [line.decode("utf-8", "surrogateescape") for line in file.read().split(b"\r\n") if line]
        return output.decode("utf-8", "surrogateescape").split("\n"), files


def check_files(handler, key_of):
    lines, files = run(f"call {handler}\n")
    listing = subprocess.run(["find", place, "-type", "f", "-print0"], capture_output=True).stdout
    missing = {shown(raw) for raw in listing.split(b"\0") if raw} - set(files)
    assert not missing, ("not listed", sorted(missing)[:5])
    rows, pairs = rows_of(lines, 4, 3), star_pairs(files, key_of)
    print(f"{handler}: {len(files)} files, {len(rows)} pairs")
    assert [row[:2] for row in rows] == pairs, ("pairs", set(pairs) ^ {row[:2] for row in rows})
    previous = None
    for first, _, colour in rows:
        assert (colour == 0x80000011) == (first == previous), ("gray", first)
        previous = first
    return len(rows)


def check_directories():
    lines, _ = run("call search_repeat_dir_name\n")
    listing = subprocess.run(["find", place, "-type", "d", "-print0"], capture_output=True).stdout
    found = {shown(raw) + "/" for raw in listing.split(b"\0") if raw}
    rows = rows_of(lines, 3, 2)
    assert all(code(first) <= code(second) for first, second, _ in rows), "order in a pair"
    groups = groups_of([row[:2] for row in rows])
    assert len(rows) == sum(len(group) - 1 for group in groups), "a pair too many"
    linked = {path for group in groups for path in group} - found
    assert all(os.path.realpath(path) + "/" != path for path in linked), ("not there", linked)

    def key_of(path):
        return upper(path.rstrip("/").rpartition("/")[2])

    by_key = collections.defaultdict(set)
    for path in found | linked:
        by_key[key_of(path)].add(path)
    wanted = {key: paths for key, paths in by_key.items() if len(paths) > 1}
    got = {key_of(next(iter(group))): group for group in groups}
    last = max(by_key, key=code)
    for key in wanted.keys() | got.keys():
        lost = wanted.get(key, set()) - got.get(key, set())
        assert not got.get(key, set()) - wanted.get(key, set()), ("no equal", key)
        # Which of the last name's directories comes last depends on the order of the disk.
        assert not lost or key == last and len(lost) <= max(1, 2 * (len(wanted[key]) == 2)), ("lost", key, lost)
    print(f"search_repeat_dir_name: {len(found)} directories, {len(rows)} pairs in {len(groups)} groups")
    return len(rows)


plain = check_files("mnu_same_filename", lambda path: upper(path.rpartition("/")[2]))
strict = check_files("check_same_1dir_filename", lambda path: upper("/".join(path.split("/")[-2:])))
assert 0 < strict < plain
assert check_directories() > 0
