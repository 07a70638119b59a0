#!/usr/bin/env python3
"""Times the name checks: a list of many file names, and a tree of many directories beside `find -type d`."""
import argparse
import os
import random
import subprocess
import sys
import tempfile
import time

FILES_A_DIRECTORY = 1000


def make_files(root, count):
    """Three tenths of the names in groups, a tenth one single name, the rest unique; one in ten is Chinese."""
    chance = random.Random(1)
    for start in range(0, count, FILES_A_DIRECTORY):
        # A file of the single name needs a directory of its own among 1000 others.
        place = os.path.join(root, f"d{start // FILES_A_DIRECTORY:06}")
        os.makedirs(place)
        for number in range(start, min(start + FILES_A_DIRECTORY, count)):
            kind = number % 10
            if kind == 0:
                folder = os.path.join(place, f"s{number:07}")
                os.mkdir(folder)
                path = os.path.join(folder, "Index.html" if number % 20 else "index.HTML")
            elif kind < 4:
                path = os.path.join(place, f"IMG_{number % FILES_A_DIRECTORY:04}_{chance.randrange(10):03}.JPG")
            elif kind == 4:
                path = os.path.join(place, f"第{number}号文件 说明书.doc")
            else:
                path = os.path.join(place, f"report-{chance.getrandbits(48):012x}-final version.txt")
            os.close(os.open(path, os.O_WRONLY | os.O_CREAT))


def make_directories(root, count):
    names = ["src", "test", "Docs", "docs", "图片", "include", "build", "data", "lib", "cache"]
    made, level = 0, [root]
    while made < count:
        below = []
        for parent in level:
            for name in names:
                if made == count:
                    return
                below.append(os.path.join(parent, name if made % 3 else f"{name}{made}"))
                os.makedirs(below[-1])
                made += 1
        level = below


class Console:
    def __init__(self, program, program_dir):
        self.process = subprocess.Popen([program, "--program-dir", program_dir, "--dry-shell", "--script", "-"],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def run(self, command, then="show result_count"):
        """Runs a command and returns its seconds and the value shown behind it."""
        name = then.removeprefix("show ").encode() + b"\t"
        start = time.monotonic()
        self.process.stdin.write(f"{command}\n{then}\n".encode())
        self.process.stdin.flush()
        for line in self.process.stdout:
            if line.startswith(name):
                return time.monotonic() - start, int(line.split(b"\t")[1])
        raise RuntimeError(f"no answer to {command}")

    def close(self):
        self.process.stdin.close()
        self.process.wait()


def best(runs, measure):
    return min((measure() for _ in range(runs)), key=lambda measured: measured[0])


def measure_files(options, root, program_dir):
    # A console a run: the list in memory is used up by a check.
    def once(check):
        console = Console(options.program, program_dir)
        console.run(f"select {root}", "show selected_dir_count")
        walked, count = console.run("call picture2_Click", "show file_count")
        seconds, pairs = console.run(f"call {check}")
        console.close()
        return seconds, walked, count, pairs

    for check in ("mnu_same_filename", "check_same_1dir_filename"):
        seconds, walked, count, pairs = best(options.runs, lambda: once(check))
        print(f"{check:26} {seconds:7.3f} s for {count:,} files, {pairs:,} pairs (search {walked:.3f} s)")


def measure_directories(options, root, program_dir):
    def find():
        start = time.monotonic()
        listing = subprocess.run(["find", root, "-type", "d"], capture_output=True, check=True).stdout
        return time.monotonic() - start, listing.count(b"\n")

    def check():
        console = Console(options.program, program_dir)
        console.run(f"select {root}", "show selected_dir_count")
        measured = console.run("call search_repeat_dir_name")
        console.close()
        return measured

    found, count = best(options.runs, find)
    seconds, pairs = best(options.runs, check)
    print(f"{'search_repeat_dir_name':26} {seconds:7.3f} s for {count:,} directories, {pairs:,} pairs")
    print(f"{'find -type d':26} {found:7.3f} s, ratio {seconds / found:.2f}")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", default="build/bin/corvane-console")
    parser.add_argument("--directory", default="bench-data", help="where the trees are or are made")
    parser.add_argument("--files", type=int, default=1_000_000)
    parser.add_argument("--directories", type=int, default=100_000)
    parser.add_argument("--runs", type=int, default=3, help="takes the best of so many runs")
    options = parser.parse_args()
    options.program = os.path.abspath(options.program)
    for name, count, make, measure in (("names", options.files, make_files, measure_files),
                                       ("tree", options.directories, make_directories, measure_directories)):
        root = os.path.join(os.path.abspath(options.directory), f"{name}-{count}")
        if not os.path.exists(root + ".made"):
            print(f"making {root}", file=sys.stderr)
            make(root, count)
            open(root + ".made", "w", encoding="ascii").close()
        with tempfile.TemporaryDirectory(prefix="corvane-bench-") as program_dir:
            measure(options, root, program_dir)


main()
