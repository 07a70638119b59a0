"""Deletion on a real disk and a real trash: what goes can be restored, what is the last copy stays, and a run killed
at any moment leaves every file in its place or in the trash, whole.

delete_real_test.py CONSOLE SCRATCH [KILLS [FILES]]: SCRATCH lies on a disk that has a trash, which a tmpfs has not.
"""
import os
import random
import shutil
import sys
import tempfile
import time

from expectations import expect, finish
from trash_place import place as make_place

console, scratch = sys.argv[1:3]
kills = int(sys.argv[3]) if len(sys.argv) > 3 else 6
many = int(sys.argv[4]) if len(sys.argv) > 4 else 3000


os.makedirs(scratch, exist_ok=True)
with tempfile.TemporaryDirectory(dir=scratch) as root:
    # Names that are mapped, no UTF-8, percent signs: each can be restored by what the trash says.
    here = make_place(console, os.path.realpath(root))
    names = [b"plain", "中文 名字".encode(), b"line\nbreak", b"star*", b"\xff\xfe", b"100%25", b"quote'\"", b"-rf"]
    copies = []
    for i, name in enumerate(names):
        here.write(b"keep/%d" % i, b"content %d" % i)
        copies.append(here.write(b"zopy/%d/" % i + name, b"content %d" % i))
    last = [here.write("one/a", b"the last"), here.write("two/a", b"the last")]
    output = here.run(f"select {here.data}\ncall search_check_m_Click\nmouse ListView1 down 1 4 right\ncall all_select\n"
                      "answer yes\ncall Picture5_Click\n")
    expect("report", "放入回收站:9 个文件" in output, True)
    expect("trashed", here.trashed(), {**{path: b"content %d" % i for i, path in enumerate(copies)}, last[1]: b"the last"})
    expect("keepers stay", sorted(os.listdir(os.path.join(here.data, "keep"))), [str(i) for i in range(len(names))])
    for path, content in here.trashed().items():  # as a file manager restores
        expect("gone from its place", os.path.exists(path), False)

with tempfile.TemporaryDirectory(dir=scratch) as root:
    # The direct road, with a file of which the copy has gone and one that was changed since the search.
    here = make_place(console, os.path.realpath(root))
    kept = {here.write("a/1", b"one"): b"one", here.write("a/3", b"three"): b"three"}
    for name, content in (("b/1", b"one"), ("b/2", b"two"), ("b/3", b"three")):
        here.write(name, content)
    here.write("a/2", b"two")
    here.run(f"select {here.data}\ncall search_check_m_Click\n")
    os.remove(os.path.join(here.data, "a/2"))
    with open(os.path.join(here.data, "b/3"), "wb") as file:
        file.write(b"THREE")
    # The store is fresh no more: the row of the vanished file falls out, the changed one is caught by its content.
    output = here.run("call Picture4_Click\nmouse ListView1 down 1 4 right\ncall all_select\nanswer no\nanswer no\n"
                      "call Picture5_Click\nshow ListView1\n")
    expect("direct report", "已删除:1 个文件" in output and "保留 1 个文件: 比对后已变化 1 个" in output, True)
    expect("no second run is offered", "无法删除" in output, False)
    left = sorted(os.path.relpath(os.path.join(folder, name), here.data)
                  for folder, _, found in os.walk(here.data) for name in found)
    expect("left", left, ["a/1", "a/3", "b/2", "b/3"])
    expect("no trash is used", here.trashed(), {})

with tempfile.TemporaryDirectory(dir=scratch) as root, tempfile.TemporaryDirectory(dir="/dev/shm") as memory:
    # Where there is no trash, as on a tmpfs, the files stay.
    here = make_place(console, os.path.realpath(root), os.path.realpath(memory))
    for name in ("a", "b", "c"):
        here.write(name, b"equal")
    here.run(f"select {here.data}\ncall search_check_m_Click\nmouse ListView1 down 1 4 right\ncall all_select\n"
             "answer yes\ncall Picture5_Click\n")
    expect("nothing is lost", sorted(os.listdir(here.data)), ["a", "b", "c"])

with tempfile.TemporaryDirectory(dir=scratch) as root:
    # Killed at random moments of a run over many files.
    dice = random.Random(50)
    here = make_place(console, os.path.realpath(root))
    contents = {}
    for i in range(many):
        contents[here.write("keep/%05d" % i, b"content %d" % i)] = b"content %d" % i
        contents[here.write("zopy/%05d" % i, b"content %d" % i)] = b"content %d" % i
    here.run(f"select {here.data}\ncall search_check_m_Click\n")
    store = os.path.join(here.program, "相同文件.txt")
    with open(store, "rb") as file:
        before = file.read()
    script = ("call Picture4_Click\nmouse ListView1 down 1 4 right\ncall all_select\nshow file_count\nanswer yes\n"
              "call Picture5_Click\nshow same_count\n")
    whole = None
    hits = 0
    for kill in range(kills + 1):
        run = here.start(script)
        while not run.stdout.readline().startswith(b"file_count"):
            pass
        began = time.monotonic()
        if kill > 0:
            time.sleep(dice.random() * whole)
            run.kill()
        run.stdout.read()
        run.stdout.close()
        if run.wait() == -9:
            hits += 1
        if whole is None:
            whole = time.monotonic() - began
        trashed = here.trashed()
        for path, content in contents.items():
            if os.path.exists(path):
                with open(path, "rb") as file:
                    found = file.read()
                if path in trashed:
                    expect("in one place", path, None)
            else:
                found = trashed.get(path)
            if found != content:
                expect(f"kill {kill}: {path}", found, content)
        with open(store, "rb") as file:
            after = file.read()
        expect(f"kill {kill}: a valid store", after == before or after.startswith("内容相同文件清单".encode()), True)
        if after != before:
            number = int(after.splitlines()[1])
            expect(f"kill {kill}: the store's count", len(after.splitlines()), 2 + 3 * number)
        # All back in their places for the next run.
        for path in trashed:
            with open(path, "wb") as file:
                file.write(trashed[path])
        shutil.rmtree(here.trash, ignore_errors=True)
        with open(store, "wb") as file:
            file.write(before)
    print(f"{hits} of {kills} kills came before the end, a whole run takes {whole:.2f} s")
    expect("kills that came in time", hits > kills // 3, True)

finish()
