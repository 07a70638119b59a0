#!/usr/bin/env python3
"""Measures the search of archive directories: makes a tree of ZIP archives, searches it with the archive option on,
and prints entries a second by the best of several runs. The time is that of the whole search: the walk, the order of the
list and the two list files; the start of the program is measured apart and taken off."""
import argparse
import os
import subprocess
import sys
import tempfile
import time
import zipfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../tests/console"))
from program_folder import make_program_folder  # noqa: E402


def make_tree(directory, archives, entries):
    for number in range(archives):
        place = os.path.join(directory, f"{number // 100:03}")
        os.makedirs(place, exist_ok=True)
        with zipfile.ZipFile(os.path.join(place, f"archive {number:05}.zip"), "w") as archive:
            for entry in range(entries):
                archive.writestr(f"folder {entry % 7}/document {number:05} {entry:05}.txt", f"{number} {entry}")


def run(console, program_dir, script):
    start = time.perf_counter()
    done = subprocess.run([console, "--program-dir", program_dir, "--dry-shell", "--script", "-"],
                          input=script.encode(), capture_output=True, check=True)
    return time.perf_counter() - start, done.stdout.decode()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", default="build/bin/corvane-console")
    parser.add_argument("--archives", type=int, default=2000)
    parser.add_argument("--entries", type=int, default=200, help="in each archive")
    parser.add_argument("--runs", type=int, default=5)
    parser.add_argument("--directory", help="a tree made before; it is made there when it is missing")
    given = parser.parse_args()
    console = os.path.abspath(given.program)
    with tempfile.TemporaryDirectory() as root:
        tree = given.directory or os.path.join(root, "tree")
        if not os.path.isdir(tree):
            make_tree(tree, given.archives, given.entries)
        program_dir = os.path.join(root, "program")
        make_program_folder(program_dir, scan_archives=True)
        selection = f"select {os.path.abspath(tree)}\n"
        base = min(run(console, program_dir, selection)[0] for _ in range(given.runs))
        search = selection + "call picture2_Click\nshow file_count\n"
        times = []
        for _ in range(given.runs + 1):  # the first run warms up
            seconds, output = run(console, program_dir, search)
            times.append(seconds - base)
        expected = given.archives * (given.entries + 1)
        if f"file_count\t{expected}\n" not in output:
            sys.exit(f"expected {expected} entries: {output}")
        best = min(times[1:])
        members = given.archives * given.entries
        print(f"{given.archives} archives, {members} entries: {best:.3f} s, {members / best:,.0f} entries/s "
              f"(worst {max(times[1:]):.3f} s, start {base:.3f} s)")


main()
