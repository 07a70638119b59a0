"""A protected folder on a real disk, reached by links and by mounts: nothing of it goes, and nothing is lost. And the
marks of one run of the program are there in the next.

Usage: protected_real_test.py CONSOLE [--inside]
"""
import os
import subprocess
import sys
import tempfile

from expectations import expect, finish
from mount_namespace import run_inside
from program_folder import make_program_folder

console = sys.argv[1]
inside = "--inside" in sys.argv


def write(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(content)


def run(root, *script):
    environment = dict(os.environ, HOME=root, XDG_DATA_HOME=os.path.join(root, "share"))
    done = subprocess.run([console, "--program-dir", os.path.join(root, "program"), "--script", "-"],
                          input="\n".join(script).encode(), capture_output=True, env=environment, timeout=60)
    expect("exit status", (done.returncode, done.stderr), (0, b""))
    return done.stdout.decode().splitlines()


def store(root, pairs):
    """The stored result; the program reads it as that of an earlier run."""
    lines = ["内容相同文件清单            ", f" {len(pairs)} "]
    for first, second in pairs:
        lines += [f" {os.path.getsize(second)} ", first, second]
    with open(os.path.join(root, "program", "相同文件.txt"), "wb") as file:
        file.write("".join(line + "\r\n" for line in lines).encode())


def protect(root, folder):
    """By the window, as the user does."""
    run(root, f"select {folder}", "call Picture1_Click", "set 目录选择.list_selected_dir 1 1",
        "call 目录选择.Command34_Click")


def delete_all(root, pairs):
    """Every second path is to go, first by its mark, then with the mark set at the moment of the question."""
    store(root, pairs)
    marks = [f"mouse ListView1 double {row} 4" for row in range(1, len(pairs) + 1)]
    return run(root, "call Picture4_Click", *marks, "call Command45_Click", "show ListView1")


def by_links(root):
    write(f"{root}/out/a", "the same bytes")
    for name in ("keep/a", "keep/deep/er/a", "else/a"):
        write(f"{root}/{name}", "the same bytes")
    os.symlink(f"{root}/keep", f"{root}/to")
    os.symlink(f"{root}/keep/deep", f"{root}/into")
    os.symlink(root, f"{root}/else/above")
    protect(root, f"{root}/to")
    delete_all(root, [(f"{root}/out/a", f"{root}/{path}") for path in
                      ("keep/a", "to/a", "into/er/a", "else/above/keep/a", "out/../keep/a", "else/a")])
    for name in ("keep/a", "keep/deep/er/a", "out/a"):
        expect(name, os.path.exists(f"{root}/{name}"), True)
    expect("what is not protected", os.path.exists(f"{root}/else/a"), False)


def by_mounts(root):
    write(f"{root}/out/a", "the same bytes")
    for name in ("keep/a", "keep/deep/a b/a"):
        write(f"{root}/{name}", "the same bytes")
    for point in ("whole", "part", "nested"):
        os.makedirs(f"{root}/{point}")
    mounted = []
    try:
        for what, where in (("keep", "whole"), ("keep/deep/a b", "part"), ("keep/deep", "nested")):
            subprocess.run(["mount", "--bind", f"{root}/{what}", f"{root}/{where}"], check=True)
            mounted.append(f"{root}/{where}")
        protect(root, f"{root}/keep")
        delete_all(root, [(f"{root}/out/a", f"{root}/{path}") for path in ("part/a", "nested/a b/a", "whole/a")])
    finally:
        while mounted:
            subprocess.run(["umount", mounted.pop()], check=True)
    for name in ("keep/a", "keep/deep/a b/a", "out/a"):
        expect(name, os.path.exists(f"{root}/{name}"), True)


def marks_survive(root):
    for name in "abcd":
        write(f"{root}/d/{name}", "the same bytes")
    store(root, [(f"{root}/d/a", f"{root}/d/{name}") for name in "bcd"])
    first = run(root, "call Picture4_Click", "answer yes", "call keep_longest", "show ListView1")
    again = run(root, "call Picture4_Click", "show ListView1")
    expect("marks", again, first[1:])
    expect("how many", "\n".join(again).count("\t255"), 3)
    # A store that another comparison has written has no marks.
    run(root, f"select {root}/d", "call search_check_m_Click")
    expect("after a comparison", "\n".join(run(root, "call Picture4_Click", "show ListView1")).count("\t255"), 0)


def in_a_scratch_folder(*cases):
    for case in cases:
        with tempfile.TemporaryDirectory(prefix="protected_") as root:
            root = os.path.realpath(root)
            make_program_folder(os.path.join(root, "program"), False)
            case(root)


if inside:
    in_a_scratch_folder(by_mounts)
    finish()

in_a_scratch_folder(by_links, marks_survive)
run_inside(os.path.abspath(__file__), console)
finish()
