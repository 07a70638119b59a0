#!/usr/bin/env python3
"""Times the output of a directory tree with lengths and dates beside `find -printf` on the same files."""
import argparse
import os
import subprocess
import sys
import tempfile
import time

LIMIT = 1.5


class Console:
    def __init__(self, program, program_dir):
        self.process = subprocess.Popen([program, "--program-dir", program_dir, "--dry-shell", "--script", "-"],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def run(self, *commands):
        """Runs commands and returns the seconds until the number of files is shown behind them, and it."""
        start = time.monotonic()
        self.process.stdin.write("".join(line + "\n" for line in commands + ("show file_count",)).encode())
        self.process.stdin.flush()
        for line in self.process.stdout:
            if line.startswith(b"file_count\t"):
                return time.monotonic() - start, int(line.split(b"\t")[1])
        raise RuntimeError(f"no answer to {commands}")

    def close(self):
        self.process.stdin.close()
        self.process.wait()


def find(root, target):
    with open(target, "wb") as file:
        start = time.monotonic()
        subprocess.run(["find", root, "-printf", "%s %T@ %p\\n"], stdout=file, check=True)
        return time.monotonic() - start


def count_files(root):
    return subprocess.run(["find", root, "-type", "f", "-printf", "x"], stdout=subprocess.PIPE, check=True).stdout.count(b"x")


def files_of(path):
    """File lines of a tree: those with a length and a date."""
    with open(path, "rb") as file:
        return sum(line.count(b"\t") == 2 for line in file)


def tree(options, root, program_dir):
    """Seconds of the search, of the first output and of one more, and whether every file has its line."""
    console = Console(options.program, program_dir)
    searched, count = console.run(f"select {root}", "call picture2_Click")
    opened, _ = console.run("call tree_select_m", "set tree_dir.Text1 40", "set tree_dir.Check1 1",
                            "set tree_dir.Check2 1")
    written, kept = console.run("call tree_dir.Command1_Click")
    again, _ = console.run("call tree_dir.Command1_Click")
    with open(f"/proc/{console.process.pid}/status", encoding="ascii") as status:
        peak = next(int(line.split()[1]) // 1024 for line in status if line.startswith("VmHWM"))
    console.close()
    right = count == kept == files_of(os.path.join(program_dir, "tree_file_list.txt"))
    return {"search": searched, "window": opened, "written": written, "again": again, "count": count,
            "peak": peak, "right": right}


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--program", default="build/bin/corvane-console")
    parser.add_argument("--make-sets", default="build/bin/make_sets")
    parser.add_argument("--directory", default="bench-data", help="where the files of W4 are or are made")
    parser.add_argument("--scale", type=float, default=1, help="of a million files")
    parser.add_argument("--runs", type=int, default=3, help="takes the best of so many runs, in turn")
    options = parser.parse_args()
    root = os.path.join(os.path.abspath(options.directory), "W4" + ("" if options.scale == 1 else f"-{options.scale}"))
    if not os.path.exists(root + ".answer"):
        print(f"making {root}", file=sys.stderr)
        subprocess.run([options.make_sets, root, "W4", str(options.scale)], check=True)
    found, trees = [], []
    with tempfile.TemporaryDirectory(prefix="corvane-bench-", dir=options.directory) as place:
        listing = os.path.join(place, "find.txt")
        find(root, listing)
        for _ in range(options.runs):
            found.append(find(root, listing))
            trees.append(tree(options, root, place))
        listed = count_files(root)
    best = min(trees, key=lambda run: run["written"])
    least = min(found)
    ratio = best["written"] / least
    right = all(run["right"] and run["count"] == listed for run in trees)
    print(f"{'find -printf':28} {least:7.3f} s for {listed:,} files")
    print(f"{'output, length and date':28} {best['written']:7.3f} s, ratio {ratio:.2f} (limit {LIMIT})")
    print(f"{'the same once more':28} {min(run['again'] for run in trees):7.3f} s")
    whole = min(run["search"] + run["window"] + run["written"] for run in trees)
    print(f"{'search, window, output':28} {whole:7.3f} s, search {min(run['search'] for run in trees):.3f} s, "
          f"peak {best['peak']} MiB")
    print("every file has its line" if right else "WRONG: files without a line")
    sys.exit(0 if right and ratio <= LIMIT else 1)


main()
