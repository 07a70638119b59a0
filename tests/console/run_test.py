"""A run over directories as a script sees it: its options and what they leave behind, progress on a terminal, interrupts,
closed pipes, full disks, standard streams that are not there.

run_test.py CONSOLE
"""
import os
import pty
import re
import signal
import subprocess
import sys
import tempfile
import time
import zipfile

from expectations import expect, finish
from program_folder import make_program_folder

console = os.path.abspath(sys.argv[1])


def run(*arguments, **more):
    more.setdefault("stdout", subprocess.PIPE)
    return subprocess.run([console, *arguments], stderr=subprocess.PIPE, timeout=120, **more)


def names_in(output):
    return {os.path.basename(path).decode() for line in output.splitlines() for path in line.split(b"\t")[1:]}


class terminal_run:
    """A run with standard error on a terminal of its own, and standard output in a file."""

    def __init__(self, output, *arguments):
        master, slave = pty.openpty()
        self.process = subprocess.Popen([console, *arguments], stdout=output, stderr=slave)
        os.close(slave)
        self.master = master
        self.text = b""

    def read(self):
        """More of what it shows; False at the end."""
        try:
            some = os.read(self.master, 65536)
        except OSError:
            some = b""
        self.text += some
        return some != b""

    def wait_for(self, pattern):
        while not re.search(pattern, self.text):
            if not self.read():
                expect(f"{pattern} is shown", self.text, "")
                break

    def end(self):
        while self.read():
            pass
        os.close(self.master)
        return self.process.wait(timeout=120)


with tempfile.TemporaryDirectory(prefix="corvane_run_") as root:
    root = os.path.realpath(root)
    program_dir = os.path.join(root, "program")
    make_program_folder(program_dir, False)
    lists = {name: open(os.path.join(program_dir, name), "rb").read() for name in os.listdir(program_dir)}
    top = os.path.join(root, "data")
    with_folder = ("--program-dir", program_dir)

    def write(name, content):
        path = os.path.join(top, name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        with open(path, "wb") as file:
            file.write(content)
        return path

    for side in ("in", "Out", "deep/out"):
        for name in ("a.jpg", "b.PNG", "c.txt", "d"):
            write(f"{side}/{name}", name.encode() * 100 + name.encode()[:1] * ord(name[0]))
    write("in/same.txt", b"one content, two suffixes")
    write("in/same.doc", b"one content, two suffixes")
    with zipfile.ZipFile(write("in/z.zip", b""), "w") as box:
        box.writestr("member", b"d" * 200)

    # What an option does, and that it is gone with the run.
    expect("all", names_in(run(*with_folder, top).stdout), {"a.jpg", "b.PNG", "c.txt", "d", "same.txt", "same.doc"})
    for types in ("--types=.jpg,.png", "--types=JPG,png"):
        expect("types", names_in(run(*with_folder, types, top).stdout), {"a.jpg", "b.PNG"})
    found = run(*with_folder, "--types", ".jpg", "--types", ".txt", top)
    expect("types twice", names_in(found.stdout), {"a.jpg", "c.txt"})
    found = run(*with_folder, "--same-suffix", top)
    expect("same suffix", names_in(found.stdout), {"a.jpg", "b.PNG", "c.txt", "d"})
    found = run(*with_folder, "--exclude", os.path.join(top, "Out"), "--exclude", "deep", top, cwd=top)
    expect("exclude", names_in(found.stdout), {"same.txt", "same.doc"})
    found = run(*with_folder, "--exclude", os.path.join(top, "o"), top)
    expect("a part of a name leaves out nothing", b"/Out/" in found.stdout, True)
    found = run(*with_folder, "--search-archives", top)
    expect("archives", b"z.zip*member\t" in found.stdout or b"z.zip*member\n" in found.stdout, True)
    expect("no archives after that", b"*member" in run(*with_folder, top).stdout, False)
    settings = open(os.path.join(program_dir, "Tavrel环境.txt"), encoding="utf-8").read().split("\n")
    expect("stored settings", (settings[10].strip(), settings[54].strip()), ("0", "0"))
    for name, content in lists.items():
        if name.startswith(("不参加", "仅搜索")):
            expect(name, open(os.path.join(program_dir, name), "rb").read(), content)

    # Settings of the program's own hold where no option speaks.
    other = os.path.join(root, "with archives")
    make_program_folder(other, True)
    expect("archives by the settings", b"z.zip*member" in run("--program-dir", other, top).stdout, True)
    run("--program-dir", other, "--search-archives", "--same-suffix", top)
    settings = open(os.path.join(other, "Tavrel环境.txt"), encoding="utf-8").read().split("\n")
    expect("still stored", (settings[10].strip(), settings[54].strip()), ("0", "1"))

    # Signatures: a list that is long enough for a history.
    for i in range(600):
        write(f"many/{i}", b"%d" % (i // 3) * 20)
    history = os.path.join(program_dir, "run_history.txt")
    expect("no history", (run(*with_folder, "--no-history", top).returncode, os.path.exists(history)), (0, False))
    found = run(*with_folder, top)
    expect("history", os.path.exists(history), True)
    with open(history, "rb") as file:
        kept = file.read()
    with open(os.path.join(top, "many/0"), "wb") as file:
        file.write(b"changed")
    run(*with_folder, "--no-history", top)
    expect("history is left alone", open(history, "rb").read(), kept)

    # Sentences, quiet, failures.
    found = run(*with_folder, "--quiet", top)
    expect("quiet", (found.returncode, found.stderr), (0, b""))
    found = run(*with_folder, "--quiet", os.path.join(root, "none\nhere"))
    expect("a failure is said in one line", (found.returncode, found.stderr),
           (1, f"corvane-console: {root}/none here: no such directory\n".replace(f"{root}/", f"{root}/").encode()))
    found = run(*with_folder, "--help")
    expect("help", (found.returncode, found.stdout.startswith(b"Finds files"), found.stderr), (0, True, b""))
    expect("help before what is wrong", run("--help", "--frobnicate").returncode, 0)
    for wrong in ((), ("--format", "xml", top), ("--format",), ("--types", "", top), ("--types", ".tar.gz", top),
                  ("--types", ".a,,.b", top), ("--quiet=yes", top), ("--script", "-", "--format", "json"), ("",), ("-q", top),
                  ("--script", "-", top), ("--exclude=", top), ("--frob\nnicate", top)):
        found = run(*wrong)
        expect(f"wrong usage {wrong}", (found.returncode, found.stdout, found.stderr.count(b"\n")), (2, b"", 1))
    expect("a directory with a dash", run(*with_folder, "--", "-d", cwd=top).returncode, 1)
    os.makedirs(os.path.join(root, "empty"))
    found = run(*with_folder, "--format", "json", os.path.join(root, "empty"))
    expect("nothing found", (found.returncode, found.stdout, found.stderr.count(b"\n")), (1, b"", 1))

    # A store that cannot be written: the old result is not passed off as the new one.
    before = open(os.path.join(program_dir, "相同文件.txt"), "rb").read()
    os.rename(os.path.join(program_dir, "不相同文件.txt"), os.path.join(root, "away"))
    os.mkdir(os.path.join(program_dir, "不相同文件.txt"))
    found = run(*with_folder, top)
    expect("a failed store", (found.returncode, found.stdout), (1, b""))
    os.rmdir(os.path.join(program_dir, "不相同文件.txt"))

    # Output that goes nowhere.
    for form in ("pairs", "groups", "json", "csv", "null", "html"):
        with open("/dev/full", "wb") as full:
            found = run(*with_folder, "--format", form, "--quiet", top, stdout=full)
        expect(f"full disk, {form}", (found.returncode, found.stderr),
               (1, b"corvane-console: standard output: No space left on device\n"))
        reader, writer = os.pipe()
        os.close(reader)
        found = run(*with_folder, "--format", form, "--quiet", top, stdout=writer)
        os.close(writer)
        expect(f"closed pipe, {form}", (found.returncode, found.stderr), (141, b""))
    with open("/dev/full", "wb") as full:
        found = run("--help", stdout=full)
    expect("help to a full disk", (found.returncode, found.stderr.count(b"\n")), (1, 1))
    with open("/dev/full", "wb") as full:
        found = subprocess.run([console, *with_folder, "--script", "-"], input=b"show file_count\n", stdout=full,
                               stderr=subprocess.PIPE, timeout=120)
    expect("a script's output to a full disk", (found.returncode, found.stderr),
           (1, b"corvane-console: standard output could not be written\n"))
    head = subprocess.run(["bash", "-c", '"$0" "$@" | head -1; exit ${PIPESTATUS[0]}', console, *with_folder, "--quiet", top],
                          capture_output=True, timeout=120)
    expect("head", (head.returncode in (0, 141), head.stdout.count(b"\n"), head.stderr), (True, 1, b""))
    for gone, status in ((">&-", 1), ("<&-", 0), ("2>&-", 0), (">&- 2>&-", 1)):
        program_files = {name: os.path.getsize(os.path.join(program_dir, name)) for name in os.listdir(program_dir)}
        found = subprocess.run(["bash", "-c", f'"$0" "$@" {gone}', console, *with_folder, top], capture_output=True,
                               timeout=120)
        expect(f"with {gone}", found.returncode, status)
        store = open(os.path.join(program_dir, "相同文件.txt"), "rb").read()
        expect("the store is the program's own", store.startswith("内容相同文件清单".encode()) and b"\t" not in store, True)

    # A script ends with 1 after a failure message; a plain notice is none.
    script = lambda text: subprocess.run([console, *with_folder, "--dry-shell", "--script", "-"], input=text.encode(),
                                         capture_output=True, timeout=120).returncode
    expect("a notice", script(f"select {top}\ncall search_check_m_Click\n"), 0)
    expect("a failure", script("call Picture5_Click\n"), 1)
    expect("a failure and an unknown command", script("call Picture5_Click\nfrobnicate\n"), 2)
    expect("a failure and a question", script(f"call Picture5_Click\nselect {top}\ncall search_check_m_Click\n"
                                              "mouse ListView1 down 1 4 right\ncall all_select\ncall Picture5_Click\n"), 3)

with tempfile.TemporaryDirectory(prefix="corvane_run_") as root:
    # Holes: long to read, nothing to store. Each pair has a length of its own.
    root = os.path.realpath(root)
    program_dir = os.path.join(root, "program")
    make_program_folder(program_dir, False)
    top = os.path.join(root, "data")
    os.makedirs(top)
    pairs = 300
    for i in range(pairs):
        for side in "ab":
            with open(os.path.join(top, f"{side}{i:03d}"), "wb") as file:
                file.truncate((64 << 20) + i)
    place = os.path.join(root, "output")

    # Interrupted once when some are found: they are kept and printed, and they are equal.
    with open(place, "wb") as output:
        began = time.monotonic()
        here = terminal_run(output, "--program-dir", program_dir, "--progress", top)
        here.wait_for(rb"comparing  ([2-9]|\d\d) %[^\r]* left")
        here.process.send_signal(signal.SIGINT)
        expect("status of an interrupt", here.end(), 130)
        shown_for = time.monotonic() - began
    with open(place, "rb") as file:
        lines = file.read().splitlines()
    expect("some pairs", 0 < len(lines) < pairs, True)
    for line in lines:
        length, first, second = line.split(b"\t")
        expect("a pair", (os.path.basename(first)[1:], os.path.getsize(first)), (os.path.basename(second)[1:], int(length)))
    with open(os.path.join(program_dir, "相同文件.txt"), encoding="utf-8") as file:
        expect("they are kept", file.read().split("\n")[1].strip(), str(len(lines)))
    text = here.text.decode()
    expect("sentence", re.search(rf"interrupted; until then {pairs * 2} files, {len(lines)} equal ones, [\d.]+ .B, [\d.]+ s\r\n$",
                                 text) is not None, True)
    progress = re.findall("\r\033\\[K(comparing[^\r]*|checking[^\r]*|searching[^\r]*)", text)
    expect("some lines of progress", len(progress) > 1, True)
    expect("at most ten a second", len(progress) <= shown_for * 10 + 1, True)
    expect("what they say", re.search(r"comparing  \d+ %  [\d.]+ .?B/s  \d+:\d\d left", text) is not None, True)
    expect("cleared before the sentence", re.search("\r\033\\[Kinterrupted", text) is not None, True)

    # A second one ends the run at once, in the middle of a file.
    for side in "xy":
        with open(os.path.join(top, side), "wb") as file:
            file.truncate(1 << 40)
    for name in os.listdir(top):
        if name not in ("x", "y"):
            os.remove(os.path.join(top, name))
    with open(place, "wb") as output:
        here = terminal_run(output, "--program-dir", program_dir, "--progress", top)
        here.wait_for(rb"comparing")
        while here.process.poll() is None:
            here.process.send_signal(signal.SIGINT)
            try:
                here.process.wait(timeout=0.2)
            except subprocess.TimeoutExpired:
                pass
        expect("the second interrupt", here.end(), -signal.SIGINT)
    with open(os.path.join(program_dir, "相同文件.txt"), encoding="utf-8") as file:
        expect("the old result is whole", file.read().split("\n")[1].strip(), str(len(lines)))

    # No terminal, no progress; and none without the option.
    for name in ("x", "y"):
        with open(os.path.join(top, name), "wb") as file:
            file.truncate(1 << 30)
    found = run("--program-dir", program_dir, "--progress", "--quiet", top)
    expect("progress in a pipe", (found.returncode, found.stderr), (0, b""))
    with open(place, "wb") as output:
        here = terminal_run(output, "--program-dir", program_dir, "--quiet", top)
        expect("quiet on a terminal", (here.end(), here.text), (0, b""))
    # Interrupts that were ignored when it was started are ignored.
    held = subprocess.Popen([console, "--program-dir", program_dir, "--quiet", top], stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE, preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_IGN))
    held.send_signal(signal.SIGINT)
    out, _ = held.communicate(timeout=120)
    expect("ignored", (held.returncode, out.count(b"\n")), (0, 1))

finish()
