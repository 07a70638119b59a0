"""The search for empty directories beside "find -type d -empty" on one tree, warm, three times each in turn.

Usage: empty.py CONSOLE [DIRECTORY]    the tree of 100,000 directories is made in DIRECTORY (default /var/tmp) and
removed at the end. Prints the times, the best of each and their ratio; status 1 when the two lists differ or the
ratio is above 1.5.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time

RUNS = 3
WIDTH = (10, 100, 100)  # 10 of 100 of 100 directories


def make_tree(root):
    """Every third leaf holds a file, every third two links, the rest is empty. Returns the number of directories."""
    count = 0
    for a in range(WIDTH[0]):
        for b in range(WIDTH[1]):
            middle = os.path.join(root, f"part {a}", f"group {b}")
            os.makedirs(middle)
            count += 1
            for c in range(WIDTH[2] - 1):
                leaf = os.path.join(middle, f"leaf {c}")
                os.mkdir(leaf)
                count += 1
                if c % 3 == 0:
                    open(os.path.join(leaf, "file"), "w").close()
                elif c % 3 == 1:
                    os.symlink("nowhere", os.path.join(leaf, "link 1"))
                    os.symlink("nowhere", os.path.join(leaf, "link 2"))
    return count + WIDTH[0]


def timed(command, **options):
    start = time.monotonic()
    done = subprocess.run(command, stdout=subprocess.PIPE, check=True, **options)
    return time.monotonic() - start, done.stdout


def main():
    console = sys.argv[1]
    place = tempfile.mkdtemp(prefix="corvane_empty_", dir=sys.argv[2] if len(sys.argv) > 2 else "/var/tmp")
    try:
        root = os.path.join(place, "tree")
        program_dir = os.path.join(place, "program")
        os.mkdir(program_dir)
        for name in ("不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt"):
            open(os.path.join(program_dir, name), "w").close()
        print(f"{make_tree(root)} directories")
        script = f"select {root}\ncall Picture6_Click\n"
        search = [console, "--program-dir", program_dir, "--dry-shell", "--script", "-"]
        find = ["find", root, "-type", "d", "-empty", "-fprint", os.path.join(place, "found")]
        ours, theirs = [], []
        timed(find)
        for _ in range(RUNS):
            ours.append(timed(search, input=script.encode())[0])
            theirs.append(timed(find)[0])
        ratio = min(ours) / min(theirs)
        print("search and show", *(f"{each:.3f}" for each in ours), "s")
        print("find           ", *(f"{each:.3f}" for each in theirs), "s")
        print(f"ratio of the best: {ratio:.2f}")
        with open(os.path.join(place, "found"), "rb") as file:
            found = {line + b"/" for line in file.read().splitlines()}
        with open(os.path.join(program_dir, "spasedir.txt"), "rb") as file:
            listed = file.read().splitlines()
        same = len(listed) == len(found) and set(listed) == found
        print(f"{len(found)} empty," + (" the same list" if same else " THE LISTS DIFFER"))
        return 0 if same and ratio <= 1.5 else 1
    finally:
        shutil.rmtree(place)


sys.exit(main())
