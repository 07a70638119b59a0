"""Compares the copy of a tree of this machine and checks the answer against sha256sum: the pairs must give the same
groups, empty files included.

    real_tree.py CONSOLE COPY    as tree_copy.py made it
"""
import collections
import os
import subprocess
import sys
import tempfile

from tree_copy import files_of, listed_name, stored_sums

console, copy = sys.argv[1:]


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


def groups_of_sums(sums):
    by_sum = collections.defaultdict(set)
    for path, digest in sums.items():
        by_sum[digest].add(path)
    return {frozenset(group) for group in by_sum.values() if len(group) > 1}


with tempfile.TemporaryDirectory() as program_dir:
    run = subprocess.run([console, "--program-dir", program_dir, copy], capture_output=True, check=True, timeout=250)
    with open(os.path.join(program_dir, "文件清单.txt"), "rb") as stored:
        listed = [line for line in stored.read().split(b"\r\n") if line]

sums = {listed_name(path): digest for path, digest in stored_sums(copy).items()}
there = {listed_name(path) for path in files_of(copy)}
pairs = [line for line in run.stdout.split(b"\n") if line]
ours, theirs = groups_of_pairs(pairs), groups_of_sums(sums)
# What the walk listed must be what find lists, each file once; links lead to nothing that is not listed anyway.
odd = set(listed) ^ there
print(f"{copy}: {len(listed)} files, {len(pairs)} pairs, {len(ours)} groups; by sha256sum {len(theirs)} groups")
assert len(listed) > 100, "a tree too small to tell anything"
assert set(sums) == there, "the copy is not what it was when its sums were taken"
if odd or len(listed) != len(set(listed)) or ours != theirs or len(pairs) != sum(len(group) - 1 for group in ours):
    print("listed by one only:", sorted(odd)[:10])
    print("differ:", [sorted(group) for group in list(ours ^ theirs)[:5]])
    sys.exit(1)
