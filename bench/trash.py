#!/usr/bin/env python3
"""Deletion to the trash beside `gio trash`: the same number of files, each on a fresh copy of the tree, by turns.

    python3 bench/trash.py [--files 10000] [--runs 3] [--directory bench-trash] [--program build/bin/corvane-console]
"""
import argparse
import os
import shutil
import subprocess
import time

arguments = argparse.ArgumentParser()
arguments.add_argument("--files", type=int, default=10000)
arguments.add_argument("--runs", type=int, default=3)
arguments.add_argument("--directory", default="bench-trash")
arguments.add_argument("--program", default="build/bin/corvane-console")
given = arguments.parse_args()
whole = os.path.abspath(given.directory)
top = whole
lists = ("不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt")


def fresh():
    # A folder of its own for each run, removed at the end: ext4 is slow to make files for some seconds after many
    # were deleted.
    global top
    top = f"{whole}/{len(os.listdir(whole))}"
    for name in ("keep", "copy"):
        os.makedirs(f"{top}/data/{name}")
        for i in range(given.files):
            with open(f"{top}/data/{name}/{i:06}", "w") as file:
                file.write(f"content {i}")
    os.makedirs(f"{top}/program")
    os.makedirs(f"{top}/home")
    for name in lists:
        open(f"{top}/program/{name}", "w").close()
    return dict(os.environ, HOME=f"{top}/home", XDG_DATA_HOME=f"{top}/home/.local/share")


def copies(environment):
    names = [f"{top}/data/keep/{i:06}" for i in range(given.files)]
    start = time.monotonic()
    subprocess.run(["gio", "trash", *names], env=environment, stderr=subprocess.DEVNULL)
    return time.monotonic() - start


def ours(environment):
    command = [given.program, "--program-dir", f"{top}/program", "--script", "-"]
    prepare = f"select {top}/data\ncall search_check_m_Click\n"
    subprocess.run(command, input=prepare.encode(), env=environment, check=True, capture_output=True)
    run = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE, env=environment)
    run.stdin.write("call Picture4_Click\nmouse ListView1 down 1 4 right\ncall all_select\nanswer yes\n"
                    "show file_count\n".encode())
    run.stdin.flush()
    while not run.stdout.readline().startswith(b"file_count"):
        pass
    start = time.monotonic()
    run.stdin.write(b"call Picture5_Click\nshow same_count\n")
    run.stdin.flush()
    while not run.stdout.readline().startswith(b"same_count"):
        pass
    taken = time.monotonic() - start
    run.stdin.close()
    run.stdout.read()
    run.wait()
    return taken


shutil.rmtree(whole, ignore_errors=True)
os.makedirs(whole)
best = {}
for _ in range(given.runs):
    for name, act in (("gio trash", copies), ("corvane", ours)):
        taken = act(fresh())
        trashed = len(os.listdir(f"{top}/home/.local/share/Trash/files"))
        assert trashed == given.files, (name, trashed)
        best[name] = min(taken, best.get(name, taken))
shutil.rmtree(whole)
for name, taken in best.items():
    print(f"{name:10} {taken:6.2f} s  {given.files / taken:8.0f} files/s")
print(f"ratio {best['corvane'] / best['gio trash']:.2f}, limit 1.5")
