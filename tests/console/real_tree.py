"""Compares a tree of this machine and checks the answer against sha256sum: the pairs must give the same groups,
empty files included."""
import collections
import os
import subprocess
import sys
import tempfile

console, tree, source = sys.argv[1:]
# Of the source tree everything but what a build or a test may be writing at this moment.
places = {"usr_share": ["/usr/share"], "usr_lib": ["/usr/lib"],
          "source": sorted(entry.path for entry in os.scandir(source)
                           if entry.is_dir() and not entry.name.startswith(("build", ".")))}[tree]


def groups_of_pairs(lines):
    parent = {}

    def root_of(path):
        while parent.setdefault(path, path) != path:
            parent[path] = parent[parent[path]]
            path = parent[path]
        return path

    for line in lines:
        _, first, second = line.split(b"\t")
        parent[root_of(first)] = root_of(second)
    found = collections.defaultdict(set)
    for path in list(parent):
        found[root_of(path)].add(path)
    return {frozenset(group) for group in found.values()}


def groups_of_sums(files):
    by_sum = collections.defaultdict(set)
    listing = subprocess.run(["xargs", "-0", "-r", "sha256sum", "--zero", "--"], input=b"\0".join(files),
                             capture_output=True, check=True).stdout
    for record in listing.split(b"\0"):
        if record:
            by_sum[record[:64]].add(record[66:])
    return {frozenset(group) for group in by_sum.values() if len(group) > 1}


with tempfile.TemporaryDirectory() as program_dir:
    run = subprocess.run([console, "--program-dir", program_dir, *places], capture_output=True, check=True, timeout=900)
    with open(os.path.join(program_dir, "文件清单.txt"), "rb") as stored:
        files = [line for line in stored.read().split(b"\r\n") if line]

pairs = [line for line in run.stdout.split(b"\n") if line]
ours, theirs = groups_of_pairs(pairs), groups_of_sums(files)
# What the walk listed must be what find lists; links to directories may only add to it.
found = set(subprocess.run(["find", *places, "-type", "f", "-print0"], capture_output=True).stdout.split(b"\0")) - {b""}
missing = {path for path in found - set(files) if os.path.exists(path)}
print(f"{tree}: {len(files)} files, {len(pairs)} pairs, {len(ours)} groups; by sha256sum {len(theirs)} groups")
if missing or ours != theirs or len(pairs) != sum(len(group) - 1 for group in ours):
    print("not listed:", sorted(missing)[:10])
    print("differ:", [sorted(group) for group in list(ours ^ theirs)[:5]])
    sys.exit(1)
