#!/usr/bin/env python3
"""The window as its user meets it, under Xvfb: how long it takes to appear, to load, sort, search and filter a million
rows and how much memory that needs; and how long an event waits at most while a task runs.

    python3 bench/window.py [--directory bench-data/window] [--program build/bin/corvane] [--only start,list,...]

Everything is looked at from outside (x11_probe.py): keys and clicks come through XTest, and what has returned is told
by CORVANE_TRACE=1. The exit code is 1 when a limit is passed.
"""
import argparse
import os
import shutil
import statistics
import subprocess
import sys
import time

from x11_probe import screen, watched_program

parser = argparse.ArgumentParser()
parser.add_argument("--directory", default="bench-data/window")
parser.add_argument("--program", default="build/bin/corvane")
parser.add_argument("--rows", type=int, default=1_000_000)
parser.add_argument("--files", type=int, default=200_000, help="of the tree that is searched and compared")
parser.add_argument("--copies", type=int, default=10_000, help="that are deleted")
parser.add_argument("--only", default="start,list,tasks,trash")
given = parser.parse_args()
top = os.path.abspath(given.directory)
programs = os.path.dirname(os.path.abspath(given.program))
lists = ("不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt")
longest_start, longest_load, longest_act, longest_wait, most_memory = 0.3, 1.5, 0.5, 0.05, 400
files_a_folder = 100

running = []  # the program that is watched
results = []  # name, seconds, their limit, longest wait


def environment(name):
    home = f"{top}/{name}/home"
    os.makedirs(home, exist_ok=True)
    chosen = {key: os.environ[key] for key in ("PATH", "LANG", "LC_ALL") if key in os.environ}
    return dict(chosen, HOME=home, XDG_DATA_HOME=f"{home}/.local/share", XDG_RUNTIME_DIR=home,
                XDG_DATA_DIRS=f"{home}/none", QT_QPA_PLATFORM="xcb")  # no program to open a document with


def used_folder(name, directory, commands=""):
    """A program folder whose selection is the directory, after the commands of a script."""
    folder = f"{top}/{name}/program"
    os.makedirs(folder, exist_ok=True)
    for each in lists:
        open(f"{folder}/{each}", "a", encoding="utf-8").close()
    script = f"select {directory}\n{commands}"
    subprocess.run([f"{programs}/corvane-console", "--program-dir", folder, "--script", "-"], input=script.encode(),
                   env=environment(name), check=True, capture_output=True)
    return folder


def started(on, name):
    running[:] = [watched_program(on, [os.path.abspath(given.program), "--program-dir", f"{top}/{name}/program"],
                                  environment(name))]
    return running[0]


def note(name, seconds, limit, wait):
    results.append((name, seconds, limit, wait))
    over = (limit is not None and seconds > limit) or (wait is not None and wait > longest_wait)
    told = "" if limit is None else f" limit {limit:4.1f}"
    waited = "" if wait is None else f"{1000 * wait:7.0f} ms"
    print(f"{name:44}{seconds:8.2f} s{told:11}{waited:>11}{'  OVER' if over else ''}", flush=True)


def made(name, make):
    """Makes a part of the data once; a part that is not whole is made anew."""
    path = f"{top}/{name}"
    if not os.path.exists(f"{path}.whole"):
        shutil.rmtree(path, ignore_errors=True)
        os.makedirs(path)
        make(path)
        open(f"{path}.whole", "w").close()
    return path


def make_pairs(path):
    """Two files a row, and the store that names them in an order that is not that of their names."""
    for side in ("left", "right"):
        for number in range(0, given.rows, files_a_folder):
            folder = f"{path}/{side}/{number // files_a_folder:05}"
            os.makedirs(folder)
            for file in range(number, min(number + files_a_folder, given.rows)):
                os.close(os.open(f"{folder}/picture of the year {file:07}.jpg", os.O_CREAT | os.O_WRONLY, 0o644))


def store_pairs(path, folder):
    with open(f"{folder}/相同文件.txt", "w", encoding="utf-8", newline="") as store:
        store.write(f"内容相同文件清单            \r\n {given.rows} \r\n")
        for row in range(given.rows):
            number = row * 7919 % given.rows
            place = f"{number // files_a_folder:05}/picture of the year {number:07}.jpg"
            store.write(f" {number * 31 % 99_991} \r\n{path}/left/{place}\r\n{path}/right/{place}\r\n")


def warm(path):
    """Asks for the facts of every file once, so that they are in memory."""
    subprocess.run(["find", path, "-size", "+1"], check=True, stdout=subprocess.DEVNULL)


def measure_start(on):
    path = made("few", lambda path: open(f"{path}/one", "w").close())
    used_folder("start", path)
    times = []
    for _ in range(6):
        program = started(on, "start")
        times.append(program.visible_after)
        program.end()
    note("start to visible window", statistics.median(times[1:]), longest_start, None)


def measure_list(on):
    pairs = made(f"pairs{given.rows}", make_pairs)
    store_pairs(pairs, used_folder("list", pairs))
    warm(pairs)
    program = started(on, "list")
    program.watch(None, limit=0.5)
    on.key("F8")
    note("load a million rows", *with_limit(program.watch("显示相同文件_M"), longest_load))
    peak = program.peak_memory()
    left, top_edge, width, _ = on.place_of(program.window)
    heading = top_edge + heading_top(on, program, left + width - 100, top_edge)
    columns = {"number": 225, "length": 290, "first path": width // 2, "second path": width - 100}
    for name in ("second path", "length", "first path", "number"):
        for direction in ("up", "down"):
            program.watch(None, limit=0.5)  # so that it is no double click
            on.click(left + columns[name], heading)
            note(f"sort by {name}, {direction}", *with_limit(program.watch("ListView1_ColumnClick"), longest_act))
    on.click(left + width - 100, heading + 30)
    program.watch("ListView1_MouseDown")
    on.key("Control+f")
    note("find to the end",
         *with_limit(program.watch("ListView1_KeyDown", [[*"nosuchfile", "Return"], ["Return"]]), longest_act))
    on.key("Control+End")
    program.watch(None, limit=0.3)
    on.key("Shift+space")
    # One act of the mouse, which runs to its end: what counts is the time until the next one is heard.
    note("mark all rows", max(program.watch("ListView1_MouseDown")), longest_act, None)
    choose(on, program, 8)
    note("filter", *with_limit(program.watch("only_disp", [[*"jpg", "Return"]]), longest_act))
    choose(on, program, 9)
    note("filter to nothing", *with_limit(program.watch("not_list", [[*"jpg", "Return"]]), longest_act))
    on.key("F8")
    note("load again", *with_limit(program.watch("显示相同文件_M"), longest_load))
    peak_again = program.peak_memory()
    for name, keys, handler in (("export to a table", "ox", "相同文件XLS清单_M"), ("page of the result", "ow", "报告网页_M")):
        menu(on, keys)
        note(name, *with_limit(program.watch(handler), None))
    program.end()
    print(f"{'peak memory of the load':44}{peak:8.0f} MB limit {most_memory}{'  OVER' if peak > most_memory else ''}")
    print(f"{'peak memory after loading twice':44}{peak_again:8.0f} MB")
    results.append(("memory", peak, most_memory, None))


def with_limit(watched, limit):
    return watched[0], limit, watched[1]


def heading_top(on, program, left, top_edge):
    """The headings' place below the menu bar, found by clicks until one sorts."""
    for down in range(30, 90, 8):
        on.click(left, top_edge + down)
        program.watch(None, limit=1.5)
        if any(name == "ListView1_ColumnClick" for name in program.returned):
            return down
    raise AssertionError("no heading")


def choose(on, program, entry):
    """An entry of the list's menu by its number."""
    on.key("Menu")
    time.sleep(0.5)  # the keys are the menu's now
    for _ in range(entry):
        on.key("Down")
    on.key("Return")


def menu(on, keys):
    on.key("Alt+" + keys[0])
    for key in keys[1:]:
        on.key(key)


def measure_tasks(on):
    tree = made(f"tree{given.files}", lambda path: subprocess.run(
        [f"{programs}/make_sets", path, "W4", str(given.files / 1_000_000)], check=True, capture_output=True))
    used_folder("tasks", tree)
    warm(tree)
    program = started(on, "tasks")
    for name, keys, handler in (
            ("search a tree", "F5", "目录搜索_M"), ("compare it", "F6", "查相同文件_M"),
            ("different files", "on", "disp_dispatch"), ("same files again", "F8", "显示相同文件_M"),
            ("compare anew", "F6", "查相同文件_M"), ("odd files", "ou", "search_no_normal_file"),
            ("read the stored list", "or", "读暂存的文件清单_M"),
            ("same names", "nf", "mnu_same_filename"), ("same names in same directories", "ns",
                                                        "check_same_1dir_filename"),
            ("same directory names", "nd", "search_repeat_dir_name"), ("empty directories", "ds", "search_dir"),
            ("export as text", "et", "文件清单_M"), ("export for a table", "ee", "out_excel_form")):
        if keys.startswith("F"):
            on.key(keys)
        else:
            menu(on, keys)
        note(name, *with_limit(program.watch(handler), None))
    program.end()


def make_copies(path):
    for side in ("keep", "copy"):
        os.makedirs(f"{path}/{side}")
        for number in range(given.copies):
            with open(f"{path}/{side}/{number:06}", "w", encoding="ascii") as file:
                file.write(f"content {number}")


def measure_trash(on):
    for road, answers in (("trash", [["Return"]]), ("direct", [["Right", "Return"], ["Return"]])):
        shutil.rmtree(f"{top}/{road}", ignore_errors=True)
        data = f"{top}/{road}/data"
        make_copies(data)
        used_folder(road, data, "call search_check_m_Click\n")
        program = started(on, road)
        on.key("F8")
        program.watch("显示相同文件_M")
        left, top_edge, width, _ = on.place_of(program.window)
        heading = top_edge + heading_top(on, program, left + width - 100, top_edge)
        on.click(left + width - 100, heading + 30)
        program.watch("ListView1_MouseDown")
        on.key("Control+End")
        program.watch(None, limit=0.3)
        on.key("Shift+space")
        program.watch("ListView1_MouseDown")
        on.key("Delete")
        words = {"trash": "to the trash", "direct": "for good"}[road]
        note(f"delete {given.copies} copies {words}", *with_limit(program.watch("ListView1_KeyDown", answers), None))
        program.end()
        left_over = len(os.listdir(f"{data}/keep")) + len(os.listdir(f"{data}/copy"))
        assert left_over == given.copies, left_over


def main():
    on = screen()
    try:
        for part in given.only.split(","):
            globals()[f"measure_{part}"](on)
    finally:
        for program in running:
            program.end()
        on.end()
    over = [name for name, seconds, limit, wait in results
            if (limit is not None and seconds > limit) or (wait is not None and wait > longest_wait)]
    print(f"over the limits: {', '.join(over) or 'nothing'}")
    sys.exit(1 if over else 0)


main()
