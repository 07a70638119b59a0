"""The window under a display server of its own, driven by real keys and a real mouse: from the search to a mark that is
taken back and set again, the preview, a folder by its path, folders dropped from another program, Escape, and the end.

real_keys_test.py PROGRAM DRAG_SOURCE
"""
import ctypes
import os
import shutil
import subprocess
import sys
import time

here = os.path.dirname(os.path.abspath(__file__))
sys.path[:0] = [os.path.join(here, "..", "console"), os.path.join(here, "..", "..", "bench")]
from expectations import expect, finish  # noqa: E402
from program_folder import make_program_folder  # noqa: E402
from x11_probe import button_left, keysyms, screen, watched_program  # noqa: E402

keysyms.update({"F4": 0xFFC1})
program_path, source_path = map(os.path.abspath, sys.argv[1:])


def write(path, content):
    os.makedirs(os.path.dirname(path), exist_ok=True)
    with open(path, "w", encoding="utf-8") as file:
        file.write(content)


def stored(name):
    path = os.path.join(program_dir, name)
    if not os.path.exists(path):
        return None
    with open(path, encoding="utf-8", newline="") as file:
        return file.read().split("\r\n")


def new_window():
    """The window that appears next."""
    end = time.monotonic() + 20
    while time.monotonic() < end:
        for kind, window, popup in on.events():
            if kind == "map" and not popup:
                time.sleep(0.2)
                on.focus(window)
                time.sleep(0.1)
                return window
        time.sleep(0.01)
    raise AssertionError("no window has come")


def gone(window):
    end = time.monotonic() + 20
    while time.monotonic() < end:
        for kind, each, _ in on.events():
            if kind == "unmap" and each == window:
                on.focus(program.window)
                return True
        time.sleep(0.01)
    return False


def move(left, top):
    on.test.XTestFakeMotionEvent(on.display, -1, left, top, 0)
    on.x.XFlush(on.display)
    time.sleep(0.03)


def button(down):
    on.test.XTestFakeButtonEvent(on.display, button_left, down, 0)
    on.x.XFlush(on.display)
    time.sleep(0.05)


def held(down):
    """The Ctrl key."""
    code = on.x.XKeysymToKeycode(on.display, ctypes.c_ulong(keysyms["Control"]))
    on.test.XTestFakeKeyEvent(on.display, code, int(down), ctypes.c_ulong(0))
    on.x.XFlush(on.display)


def drop(path, to, joins=False):
    """Drags the path from a window of another program to a place of the screen, with Ctrl if it is to join."""
    source = subprocess.Popen([source_path, path], env=dict(environment, DISPLAY=on.name), stderr=subprocess.DEVNULL)
    try:
        new_window()
        move(20, 20)
        button(1)
        for step in range(1, 21):
            move(20 + (to[0] - 20) * step // 20, 20 + (to[1] - 20) * step // 20)
        held(joins)
        move(to[0] + 2, to[1])
        time.sleep(0.3)
        button(0)
        time.sleep(0.5)
        held(False)
    finally:
        source.terminate()
        source.wait()
        list(on.events())


# Small letters and digits alone: each is one key.
root = f"/tmp/corvanekeys{os.getpid()}"
os.mkdir(root, 0o700)
home, program_dir, data, extra, typed = (os.path.join(root, name) for name in ("home", "program", "data", "extra", "typed"))
on = screen()
try:
    for name in "ab":
        for side in ("left", "right"):
            write(os.path.join(data, side, name), name * 100)
    write(os.path.join(extra, "c"), "c")
    write(os.path.join(typed, "e"), "e")
    write(os.path.join(home, "pick", "d"), "d")
    make_program_folder(program_dir, False)
    write(os.path.join(program_dir, "比较文件_目录清单.txt"), data + "\r\n")
    environment = {key: os.environ[key] for key in ("PATH", "LANG", "LC_ALL") if key in os.environ}
    environment.update(HOME=home, XDG_RUNTIME_DIR=home, XDG_DATA_HOME=os.path.join(home, ".local"), QT_QPA_PLATFORM="xcb",
                       DBUS_SYSTEM_BUS_ADDRESS="unix:path=/nonexistent", DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent")
    program = watched_program(on, [program_path, "--program-dir", program_dir], environment)
    left, top, width, _ = on.place_of(program.window)

    on.key("F7")
    program.watch("search_check_m")
    expect("the pairs that F7 has found", (stored("相同文件.txt") or ["", ""])[1].strip(), "2")

    # The first row below the heading, in the second half of the list.
    heading = next(y for y in range(top + 20, top + 400, 4) if not on.click(left + width - 100, y)
                   and (time.sleep(0.6) or "ListView1_ColumnClick" in [name for name, _ in program.handlers()]))
    for _ in range(2):
        on.click(left + width - 100, heading + 30)
    program.watch("ListView1_DblClick")
    on.key("Control+z")
    program.watch("undo_marks")
    on.key("Control+Shift+z")
    program.watch("redo_marks")

    on.key("F4")
    program.watch("preview_m")
    expect("F4 is remembered", stored("预览.txt"), ["preview=1", ""])

    # Escape leaves the window, and nothing has been chosen.
    on.key("Control+o")
    window = new_window()
    on.key("Escape")
    expect("Escape closes the selection", gone(window), True)

    # Dropped on the main window, a folder of another program takes the place of what was selected.
    drop(extra, (left + 300, top + 300))
    on.focus(program.window)
    time.sleep(0.1)

    # A path that is typed, and Enter; the selection is confirmed by its letter.
    on.key("Control+o")
    window = new_window()
    on.key("Alt+p")
    for letter in typed:
        on.key(letter)
    on.key("Return")
    time.sleep(0.3)
    on.key("Alt+o")
    expect("Alt and the letter of 确定 close it", gone(window), True)

    # Dropped with Ctrl on the list of those that are selected, it joins them.
    on.key("Control+o")
    window = new_window()
    x, y, wide, high = on.place_of(window)
    drop(os.path.join(home, "pick"), (x + wide - 120, y + high // 2), joins=True)
    on.focus(window)
    time.sleep(0.1)
    on.key("Alt+o")
    expect("it closes again", gone(window), True)

    on.key("Control+q")
    expect("the program ends well", program.process.wait(30), 0)
    expect("the selected directories", stored("比较文件_目录清单.txt"), [extra, os.path.join(home, "pick"), typed, ""])
    marks = stored("标记.txt")
    expect("the mark that was taken back and set again", marks and marks[0], "Corvane marks 1")
finally:
    on.end()
    if "program" in globals() and program.process.poll() is None:
        program.end()
    shutil.rmtree(root, ignore_errors=True)
finish()
