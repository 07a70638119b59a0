"""The program killed at random moments of the whole road, from the search to the deletion, on both ways out: every content
is still there, whole, in its place or in the trash, and every stored file is the old one or the new one.

kill_road_test.py CONSOLE SCRATCH [KILLS]: SCRATCH lies on a disk that has a trash, which a tmpfs has not.
"""
import os
import random
import shutil
import sys
import tempfile
import time

from expectations import expect, finish
from trash_place import place

console, scratch = sys.argv[1:3]
kills = int(sys.argv[3]) if len(sys.argv) > 3 else 4
copies = 520

os.makedirs(scratch, exist_ok=True)


def script_of(here, direct):
    answers = "answer no\nanswer yes\n" if direct else "answer yes\n"
    return (f"select {here.data}\nshow file_count\ncall search_check_m_Click\nmouse ListView1 down 1 4 right\n"
            f"call all_select\n{answers}call Picture5_Click\ncall Picture6_Click\n")


def whole_file(path):
    """A stored file ends in a line end, and says as many rows as it has."""
    if not os.path.exists(path):
        return True
    with open(path, "rb") as file:
        lines = file.read().split(b"\r\n")
    if lines[-1] != b"":
        return False
    name = os.path.basename(path)
    if name == "相同文件.txt":
        return len(lines) - 1 == 2 + 3 * int(lines[1])
    if name == "run_history.txt":
        return len(lines) - 2 == int(lines[0])
    if name == "run_contents.txt":
        return lines[-2].startswith(b"e")
    return True


def try_once(direct, wait):
    """Runs the road, killed after `wait` seconds unless that is None. Returns its length and whether it was killed."""
    with tempfile.TemporaryDirectory(dir=scratch) as root:
        here = place(console, os.path.realpath(root))
        contents = {}
        for i in range(copies):
            content = b"content %d" % i * (1 + i % 40)
            for side in ("keep", "zopy"):
                contents[here.write(f"{side}/{i:05d}", content)] = content
        run = here.start(script_of(here, direct))
        while not run.stdout.readline().startswith(b"file_count"):
            pass
        began = time.monotonic()
        if wait is not None:
            time.sleep(wait)
            run.kill()
        run.stdout.read()
        run.stdout.close()
        was_killed = run.wait() == -9
        length = time.monotonic() - began
        alive = set()
        for path, content in contents.items():
            if os.path.exists(path):
                with open(path, "rb") as file:
                    expect(f"{path}: whole", file.read() == content, True)
                alive.add(content)
        for path, content in here.trashed().items():
            expect(f"{path}: whole in the trash", content == contents[path], True)
            expect(f"{path}: in one place", os.path.exists(path), False)
        expect("every content has a copy in its place", len(alive), copies)
        for name in os.listdir(here.program):
            if name.endswith(".txt") and name not in ("err.txt", "err_rec.txt"):
                expect(f"{name}: whole", whole_file(os.path.join(here.program, name)), True)
        shutil.rmtree(here.home, ignore_errors=True)
        return length, was_killed


dice = random.Random(200)
lengths = {}
for direct in (False, True):
    lengths[direct] = try_once(direct, None)[0]
hits = 0
for kill in range(kills):
    way = kill % 2 == 1
    hits += try_once(way, dice.random() * lengths[way])[1]
print(f"{hits} of {kills} kills came before the end; whole roads take {lengths[False]:.2f} and {lengths[True]:.2f} s")
expect("kills that came in time", hits >= kills // 2, True)
finish()
