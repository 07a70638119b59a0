"""One file that several paths lead to is no pair: through an overlay, a bind mount, a directory that became a link, and
as an archive that is reached by two paths. A true copy beside it is one.

one_file_test.py CONSOLE: mounts in a mount namespace of its own; where the machine does not allow that, says so and
tries what needs no mount.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import zipfile

from expectations import expect, finish
from mount_namespace import run_inside
from program_folder import make_program_folder

console = os.path.abspath(sys.argv[1])
inside = "--inside" in sys.argv
mounted = []


def mount(*arguments):
    subprocess.run(["mount", *arguments], check=True)
    mounted.append(arguments[-1])


def write(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "wb") as file:
        file.write(content)
    return path


def write_archive(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with zipfile.ZipFile(path, "w") as archive:
        archive.writestr("member.txt", content)
    return path


def pairs(root, directories):
    """The pairs that a run finds, as sets of paths below root."""
    program = os.path.join(root, "program")
    shutil.rmtree(program, ignore_errors=True)
    make_program_folder(program, scan_archives=True)
    done = subprocess.run([console, "--program-dir", program, *(os.path.join(root, name) for name in directories)],
                          capture_output=True, text=True, timeout=120)
    expect("exit status", done.returncode, 0)
    return told(root, [line.split("\t")[1:] for line in done.stdout.splitlines()])


def told(root, rows):
    return sorted(sorted(os.path.relpath(path, root) for path in row) for row in rows)


def run_script(program, script):
    done = subprocess.run([console, "--program-dir", program, "--script", "-"], input=script, capture_output=True,
                          text=True, timeout=120)
    expect("exit status of the script", done.returncode, 0)
    return [line.split("\t") for line in done.stdout.splitlines()]


def overlay(root):
    # A disk of its own below: what lies under the scratch folder may be an overlay already.
    mount("-t", "tmpfs", "none", root)
    for name in ("lower", "upper", "work", "merged"):
        os.mkdir(os.path.join(root, name))
    write(os.path.join(root, "lower", "base"), b"of the lower side" * 1000)
    layers = ",".join(f"{side}dir={os.path.join(root, side)}" for side in ("lower", "upper", "work"))
    mount("-t", "overlay", "none", "-o", layers, os.path.join(root, "merged"))
    write(os.path.join(root, "merged", "made"), b"of the upper side" * 1000)
    expect("the upper side has it", os.path.exists(os.path.join(root, "upper", "made")), True)
    expect("a file and what the overlay shows of it", pairs(root, ["lower", "upper", "merged"]), [])
    write(os.path.join(root, "elsewhere", "copy"), b"of the lower side" * 1000)
    expect("a true copy of the lower file", pairs(root, ["lower", "elsewhere"]), [["elsewhere/copy", "lower/base"]])
    expect("a true copy of the shown file", pairs(root, ["merged", "elsewhere"]), [["elsewhere/copy", "merged/base"]])
    write(os.path.join(root, "merged", "twin"), b"of the lower side" * 1000)
    expect("two files of one overlay", pairs(root, ["merged"]), [["merged/base", "merged/twin"]])


def bind_mount(root):
    write(os.path.join(root, "real", "file"), b"content" * 1000)
    write_archive(os.path.join(root, "real", "a.zip"), b"in the archive" * 1000)
    os.mkdir(os.path.join(root, "bound"))
    mount("--bind", os.path.join(root, "real"), os.path.join(root, "bound"))
    expect("a directory that is mounted twice", pairs(root, ["real", "bound"]), [])
    write_archive(os.path.join(root, "other", "b.zip"), b"in the archive" * 1000)
    found = pairs(root, ["real", "bound", "other"])
    expect("members of another archive pair",
           [pair for pair in found if "other/b.zip*member.txt" not in pair and "other/b.zip" not in pair], [])
    expect("with members", any("other/b.zip*member.txt" in pair for pair in found), True)


def hard_links(root):
    first = write(os.path.join(root, "d", "first"), b"linked" * 1000)
    os.link(first, os.path.join(root, "d", "second"))
    expect("two links are two files", pairs(root, ["d"]), [["d/first", "d/second"]])


def directory_that_became_a_link(root):
    for name in ("a", "b"):
        write(os.path.join(root, "data", name, "file"), b"content" * 1000)
        write_archive(os.path.join(root, "data", name, "x.zip"), b"in the archive" * 1000)
    program = os.path.join(root, "program")
    make_program_folder(program, scan_archives=True)
    run_script(program, f"select {root}/data\ncall picture2_Click\nquit\n")
    shutil.rmtree(os.path.join(root, "data", "b"))
    os.symlink("a", os.path.join(root, "data", "b"))
    rows = run_script(program, "call Picture3_Click\nshow result_count\nquit\n")
    expect("one directory under two names", rows[-1][-1], "0")


def in_a_scratch_folder(*cases):
    for case in cases:
        with tempfile.TemporaryDirectory(prefix="corvane_one_file_") as root:
            try:
                case(root)
            finally:
                while mounted:
                    subprocess.run(["umount", mounted.pop()], check=True)


if inside:
    in_a_scratch_folder(overlay, bind_mount)
    finish()

in_a_scratch_folder(hard_links, directory_that_became_a_link)
run_inside(os.path.abspath(__file__), console)
finish()
