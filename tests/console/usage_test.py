"""Command line of the console: pairs on standard output, the rest on standard error, and the exit statuses."""
import os
import re
import subprocess
import sys
import tempfile

from expectations import expect, finish

console = sys.argv[1]


def run(*arguments, given=b"", cwd=None):
    return subprocess.run([console, *arguments], input=given, capture_output=True, timeout=60, cwd=cwd)


with tempfile.TemporaryDirectory() as root:
    raw_root = os.path.realpath(root).encode()
    program_dir = os.path.join(root, "program")
    os.makedirs(program_dir)
    data = os.path.join(raw_root, b"data")
    os.makedirs(data)
    for name in (b"a", b"line\nbreak", b"star*", b"\xff\xfe", b"n" * 255):
        with open(os.path.join(data, name), "wb") as file:
            file.write(b"equal")
    os.mkfifo(os.path.join(data, b"fifo"))

    found = run("--program-dir", program_dir, os.fsdecode(data))
    lines = found.stdout.split(b"\n")
    expect("status", found.returncode, 0)
    expect("pairs", len(lines) - 1, 4)
    # The centre is the lowest name; each other name stands on a line of its own, whatever bytes it holds.
    expect("centre", {line.split(b"\t")[1] for line in lines[:-1]}, {data + b"/a"})
    expect("lengths", {line.split(b"\t")[0] for line in lines[:-1]}, {b"5"})
    expect("bytes that are no UTF-8", any(line.endswith(data + b"/\xff\xfe") for line in lines), True)
    expect("a sentence on standard error", re.search(rb"^5 files, 4 equal ones, 20 B, \d+\.\d s$", found.stderr, re.M) is not None,
           True)
    expect("no records there", b"message\t" in found.stderr, False)

    expect("relative path", run("--program-dir", program_dir, "data", cwd=root).stdout, found.stdout)
    expect("missing directory", run("--program-dir", program_dir, os.path.join(root, "none")).returncode, 1)
    empty = os.path.join(root, "empty")
    os.mkdir(empty)
    expect("nothing found", run("--program-dir", program_dir, empty).returncode, 1)
    expect("no argument", run().returncode, 2)
    expect("unknown option", run("--frobnicate").returncode, 2)
    expect("script and directory", run("--script", "-", empty).returncode, 2)
    expect("missing script", run("--script", os.path.join(root, "none")).returncode, 2)
    expect("unknown handler", run("--program-dir", program_dir, "--script", "-", given=b"call none\n").returncode, 2)
    expect("unknown control", run("--program-dir", program_dir, "--script", "-", given=b"show none\n").returncode, 2)
    expect("empty script", run("--program-dir", program_dir, "--script", "-").returncode, 0)

    # A program folder that cannot be written: said at start, and the program goes on.
    unwritable = run("--program-dir", "/proc", "--script", "-", given=b"show file_count\n")
    expect("unwritable program folder", unwritable.stdout.count("程序目录不能写入".encode()), 1)
    expect("goes on", unwritable.stdout.count(b"file_count\t0"), 1)
    expect("status", unwritable.returncode, 0)

    found_there = run("--program-dir", "/proc", os.fsdecode(data))
    expect("pairs without a program folder", (found_there.returncode, found_there.stdout), (0, found.stdout))
    expect("said once", found_there.stderr.count("程序目录不能写入".encode()), 1)
    expect("and nothing else fails", found_there.stderr.count(b"/proc/err.txt"), 0)

    # A second instance is told and ends; the first goes on, and killing it frees the folder.
    first = subprocess.Popen([console, "--program-dir", program_dir, "--script", "-"], stdin=subprocess.PIPE,
                             stdout=subprocess.PIPE)
    first.stdin.write(b"show file_count\n")
    first.stdin.flush()
    while not first.stdout.readline().startswith(b"file_count"):
        pass
    second = run("--program-dir", program_dir, os.fsdecode(data))
    expect("second instance", (second.returncode, second.stdout), (1, b""))
    expect("second instance is told", "程序已经运行，不能再次装载。".encode() in second.stderr, True)
    first.stdin.write(b"show file_count\n")
    first.stdin.flush()
    expect("first instance goes on", first.stdout.readline(), b"file_count\t0\n")
    first.kill()
    first.wait()
    first.stdin.close()
    first.stdout.close()
    expect("freed by the kill", run("--program-dir", program_dir, os.fsdecode(data)).returncode, 0)

finish()
