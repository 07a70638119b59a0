"""Taking deletions back from a real trash: names of any bytes, a run that was killed, what stands in the old place, the
trash of another volume, and notes that lie.

restore_real_test.py CONSOLE SCRATCH [KILLS [FILES]]: SCRATCH lies on a disk that has a trash, which a tmpfs has not.
"""
import os
import random
import sys
import tempfile
import time

from expectations import expect, finish
from mount_namespace import run_inside
from trash_place import place as make_place

arguments = [each for each in sys.argv[1:] if each != "--inside"]
console, scratch = arguments[:2]
kills = int(arguments[2]) if len(arguments) > 2 else 4
many = int(arguments[3]) if len(arguments) > 3 else 2000

search = "call search_check_m_Click\n"
delete_all = "mouse ListView1 down 1 4 right\ncall all_select\nanswer yes\ncall Picture5_Click\n"
restore_all = "call restore_deleted\ncall restore_runs.Command2_Click\n"


def contents(folder):
    found = {}
    for above, _, names in os.walk(os.fsencode(folder)):
        for name in names:
            with open(os.path.join(above, name), "rb") as file:
                found[os.path.join(above, name)] = file.read()
    return found


def notes_of(here):
    folder = os.path.join(here.program, "删除记录")
    return [os.path.join(folder, name) for name in sorted(os.listdir(folder))] if os.path.isdir(folder) else []


def names_of_any_bytes(root):
    here = make_place(console, root)
    names = [b"plain", "中文 名字".encode(), b"line\nbreak", b"star*", b"\xff\xfe", b"100%25", b"quote'\"", b"-rf"]
    for i, name in enumerate(names):
        here.write(b"keep/%d" % i, b"content %d" % i)
        here.write(b"zopy/%d/" % i + name, b"content %d" % i)
    for i in range(5):
        here.write(f"keep/same{i}", b"same %d" % i)
        here.write(f"zopy/s{i}/one name.txt", b"same %d" % i)
    before = contents(here.data)
    output = here.run(f"select {here.data}\n{search}{delete_all}")
    expect("gone", "放入回收站:13 个文件" in output, True)
    expect("in the trash", len(here.trashed()), 13)
    # Another start of the program knows them, and their rows.
    output = here.run(restore_all + "show ListView1\ncall Picture4_Click\nshow ListView1\n")
    expect("restored", "已恢复:13 个" in output, True)
    expect("all is as it was", contents(here.data), before)
    expect("the trash is empty", here.trashed(), {})
    expect("no note of the trash is left", os.listdir(os.path.join(here.trash, "info")), [])
    expect("rows", "rows\t13\tlist_mode\t0\tvisible\t1" in output, True)


def what_stands_there(root):
    here = make_place(console, root)
    here.write("a/1", b"one")
    old = here.write("b/1.txt", b"one")
    here.run(f"select {here.data}\n{search}{delete_all}")
    with open(old, "wb") as file:
        file.write(b"a newcomer")
    output = here.run(restore_all)
    expect("said", "原处已有同名的,改名恢复 1 个" in output, True)
    expect("both are there", contents(os.path.join(here.data, "b")),
           {old: b"a newcomer", os.fsencode(os.path.join(here.data, "b/1 (恢复).txt")): b"one"})


def killed(root, seed):
    """Whatever the moment, what has gone comes back, and what has not gone stays."""
    here = make_place(console, root)
    for i in range(many):
        here.write(f"a/{i}", b"%d" % i)
        here.write(f"b/{i % 50}/{i}", b"%d" % i)
    before = contents(here.data)
    here.run(f"select {here.data}\n{search}")
    run = here.start("call Picture4_Click\n" + delete_all)
    random.seed(seed)
    wait = time.monotonic() + 30
    goal = random.randrange(1, many)
    while time.monotonic() < wait and run.poll() is None:
        files = os.path.join(here.trash, "files")
        if os.path.isdir(files) and len(os.listdir(files)) >= goal:
            break
    run.kill()
    run.stdout.read()
    run.stdout.close()
    run.wait()
    gone = len(here.trashed())
    output = here.run(restore_all)
    expect(f"restored after a kill at {goal}", contents(here.data) == before and gone > 0, True)
    expect("the trash is empty", here.trashed(), {})
    expect("the number is said", f"已恢复:{gone} 个" in output, True)


def lying_notes(root):
    """Notes that others have changed lead to no other file."""
    here = make_place(console, root)
    here.write("a/1", b"one")
    old = here.write("b/1", b"one")
    here.run(f"select {here.data}\n{search}{delete_all}")
    outside = os.path.join(root, "outside")
    os.makedirs(os.path.join(outside, "files"))
    os.makedirs(os.path.join(outside, "info"))
    [notes] = notes_of(here)
    with open(notes, "rb") as file:
        text = file.read()
    for change in ((here.trash.encode(), outside.encode()), (b"E\t1\t1\t", b"E\t1\t../info/1.trashinfo\t"),
                   (old + b"\t.", old + b"x\t."), (os.fsencode(here.data) + b"/b\t", os.fsencode(here.data) + b"/a\t")):
        lying = text.replace(*change)
        expect("a change", lying != text, True)
        with open(notes, "wb") as file:
            file.write(lying)
        output = here.run("call restore_deleted\nmouse restore_runs.List2 double 1 0\n", 1)
        expect("refused in words", "没有恢复 1 个" in output, True)
        expect("it stays", list(here.trashed()), [old])
        expect("nothing comes to a wrong place", list(contents(here.data)), [os.fsencode(here.data) + b"/a/1"])
    with open(notes, "wb") as file:
        file.write(text)


def another_volume():
    """A trash at the top of a mount: found by its own notes, which speak relative to it, and gone with the mount."""
    with tempfile.TemporaryDirectory() as root:
        here = make_place(console, root)
        volume = os.path.join(root, "volume")
        os.mkdir(volume)
        expect("mount", os.system(f"mount -t tmpfs none '{volume}'"), 0)
        trash = os.path.join(volume, f".Trash-{os.getuid()}")
        for folder in ("files", "info"):
            os.makedirs(os.path.join(trash, folder))
        os.mkdir(os.path.join(volume, "d"))
        path = os.path.join(volume, "d", "文 件")
        with open(path, "w", encoding="utf-8") as file:
            file.write("on the volume")
        facts = os.lstat(path)
        device = os.major(facts.st_dev) << 32 | os.minor(facts.st_dev)
        os.rename(path, os.path.join(trash, "files", "文 件"))
        with open(os.path.join(trash, "info", "文 件.trashinfo"), "w", encoding="utf-8") as file:
            file.write("[Trash Info]\nPath=d/%E6%96%87%20%E4%BB%B6\nDeletionDate=2026-03-04T05:06:07\n")
        os.rmdir(os.path.join(volume, "d"))
        os.mkdir(os.path.join(here.program, "删除记录"))
        with open(os.path.join(here.program, "删除记录", "1.txt"), "w", encoding="utf-8", newline="") as file:
            file.write(f"Corvane recycled 1\r\nF\tf\t{device}\t{facts.st_ino}\t{facts.st_size}\t{facts.st_mtime_ns}\t"
                       f"{volume}/d\t{path}\t.\r\n")
        output = here.run("call restore_deleted\nshow restore_runs.List2\n")
        expect("found by reading the trash", f"在回收站    13    {path}" in output, True)
        # Not mounted: said, and known again with the next mount.
        expect("move away", os.system(f"mkdir '{root}/aside' && mount --move '{volume}' '{root}/aside'"), 0)
        output = here.run("call restore_deleted\nshow restore_runs.List2\n")
        expect("out of reach", f"卷不在    13    {path}" in output, True)
        output = here.run("call restore_deleted\nmouse restore_runs.List2 double 1 0\n", 1)
        expect("not restored", "回收站所在的卷不在" in output, True)
        expect("move back", os.system(f"mount --move '{root}/aside' '{volume}'"), 0)
        output = here.run(restore_all)
        expect("restored", "已恢复:1 个" in output, True)
        with open(path, encoding="utf-8") as file:
            expect("content", file.read(), "on the volume")
        expect("its note has gone", os.listdir(os.path.join(trash, "info")), [])
        # A trash at another place than the top is none, whatever the notes say.
        deep = os.path.join(volume, "d", f".Trash-{os.getuid()}")
        for folder in ("files", "info"):
            os.makedirs(os.path.join(deep, folder))
        with open(os.path.join(here.program, "删除记录", "1.txt"), "a", encoding="utf-8", newline="") as file:
            file.write(f"E\t1\t文 件\t{deep}\t.\r\n")
        os.rename(path, os.path.join(deep, "files", "文 件"))
        with open(os.path.join(deep, "info", "文 件.trashinfo"), "w", encoding="utf-8") as file:
            file.write("[Trash Info]\nPath=%E6%96%87%20%E4%BB%B6\nDeletionDate=2026-03-04T05:06:07\n")
        output = here.run("call restore_deleted\nmouse restore_runs.List2 double 1 0\n", 1)
        expect("no other place is followed", os.path.exists(path), False)
        os.system(f"umount '{volume}'")


if "--inside" in sys.argv:
    another_volume()
    finish()
    sys.exit()

os.makedirs(scratch, exist_ok=True)
for test in (names_of_any_bytes, what_stands_there, lying_notes):
    with tempfile.TemporaryDirectory(dir=scratch) as folder:
        test(os.path.realpath(folder))
for number in range(kills):
    with tempfile.TemporaryDirectory(dir=scratch) as folder:
        killed(os.path.realpath(folder), number)
run_inside(sys.argv[0], *arguments)
finish()
