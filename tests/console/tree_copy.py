"""Copies of trees of this machine, which others change while tests run: what is compared is the copy, and the sums
against which answers are held are taken of it once. Used by real_tree.py and real_names.py.

    tree_copy.py FOLDER NAME=PLACE...    makes FOLDER/NAME of each place, where it is not there yet
"""
import fcntl
import os
import re
import shutil
import stat
import subprocess
import sys
import zlib

most_files = 20_000
most_bytes = 120_000_000
largest_file = 2_000_000


def chosen_directories(place):
    """Whole directories in an order of chance that is always the same, until the limits are reached, as
    (path below the place, names of its files, names of its links)."""
    found = []
    for folder, folders, names in os.walk(place):
        if folder == place:  # of a source tree not what is built in it
            folders[:] = [name for name in folders if not name.startswith((b"build", b"."))]
        below = os.path.relpath(folder, place)
        links = [name for name in folders + names if os.path.islink(os.path.join(folder, name))]
        found.append((b"" if below == b"." else below, sorted(set(names) - set(links)), sorted(links)))
    found.sort(key=lambda directory: (zlib.crc32(directory[0]), directory[0]))
    files = length = 0
    for below, names, links in found:
        kept = []
        for name in names:
            try:
                entry = os.lstat(os.path.join(place, below, name))
            except OSError:
                continue
            if stat.S_ISREG(entry.st_mode) and entry.st_size <= largest_file:
                kept.append(name)
                files += 1
                length += entry.st_size
        yield below, kept, links
        if files >= most_files or length >= most_bytes:
            return


def copy_link(path, target, place, copy):
    """A link within the place leads to the same place of the copy. One that leads out is left out: behind it the
    machine goes on changing."""
    leads_to = os.path.realpath(path)
    if leads_to.startswith(place + b"/"):
        goal = os.path.join(copy, os.path.relpath(leads_to, place))
        os.symlink(os.path.relpath(goal, os.path.dirname(target)), target)


def copy_tree(place, copy):
    place, copy = os.path.realpath(os.fsencode(place)), os.fsencode(copy)
    first_of = {}
    for below, names, links in chosen_directories(place):
        os.makedirs(os.path.join(copy, below), exist_ok=True)
        for name in names:
            path, target = os.path.join(place, below, name), os.path.join(copy, below, name)
            try:
                entry = os.lstat(path)
                # Two names of one file stay two names of one file.
                first = first_of.setdefault((entry.st_dev, entry.st_ino), target)
                if first is not target:
                    os.link(first, target)
                else:
                    shutil.copyfile(path, target, follow_symlinks=False)
            except (FileNotFoundError, PermissionError):
                continue  # gone since it was listed, or not ours to read
        for name in links:
            copy_link(os.path.join(place, below, name), os.path.join(copy, below, name), place, copy)


def sums_of(files):
    """sha256 by path, for the paths that are files."""
    listing = subprocess.run(["xargs", "-0", "-r", "sha256sum", "--zero", "--"], input=b"\0".join(files),
                             capture_output=True, check=True).stdout
    return {record[66:]: record[:64] for record in listing.split(b"\0") if record}


def files_of(folder):
    """What find lists: an account that is not the program's."""
    return [path for path in subprocess.run(["find", folder, "-type", "f", "-print0"], capture_output=True,
                                            check=True).stdout.split(b"\0") if path]


def listed_name(path):
    """A path as the program writes it: what would break a line, and the star, as U+F000 + byte."""
    return re.sub(rb"[\x01-\x1f\x7f*]", lambda found: chr(0xF000 + found[0][0]).encode(), path)


def make_copy(folder, name, place):
    copy = os.path.join(folder, name)
    if os.path.exists(copy):
        return
    growing = copy + ".growing"
    shutil.rmtree(growing, ignore_errors=True)
    os.makedirs(growing)
    copy_tree(place, growing)
    with open(copy + ".sums", "wb") as sums:
        for path, digest in sums_of(files_of(growing)).items():
            sums.write(digest + b" " + os.path.relpath(path, os.fsencode(growing)) + b"\0")
    os.rename(growing, copy)  # only what is whole bears the name


def stored_sums(copy):
    copy = os.fsencode(copy)
    with open(copy + b".sums", "rb") as sums:
        return {os.path.join(copy, record[65:]): record[:64] for record in sums.read().split(b"\0") if record}


if __name__ == "__main__":
    trees = sys.argv[1]
    os.makedirs(trees, exist_ok=True)
    with open(os.path.join(trees, "lock"), "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        for tree in sys.argv[2:]:
            make_copy(trees, *tree.split("="))
