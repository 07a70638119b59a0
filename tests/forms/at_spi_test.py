"""The real window as a screen reader meets it: over AT-SPI, under a display server and a session bus of its own, in both
languages. Every part that takes the focus has a name, a role and a description; the tasks and menus are there by name."""
import os
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(__file__))), "console"))
from program_folder import make_program_folder  # noqa: E402

program = os.path.abspath(sys.argv[1])

reader = r'''
import sys
import time
import pyatspi

wanted = sys.argv[1:]
patience = time.monotonic() + 60
application = None
while application is None and time.monotonic() < patience:
    for each in pyatspi.Registry.getDesktop(0):
        if each is not None and each.name.lower() == "corvane" and each.childCount > 0:
            application = each
    time.sleep(0.1)
if application is None:
    sys.exit("no application on the accessibility bus")
problems, names, count = [], set(), 0


def walk(part, depth):
    global count
    if part is None or depth > 25:
        return
    states = part.getState()
    names.add(part.name)
    shown = states.contains(pyatspi.STATE_SHOWING)
    if shown and states.contains(pyatspi.STATE_FOCUSABLE) and part.getRole() != pyatspi.ROLE_FRAME:
        count += 1
        role = part.getRoleName()
        if not part.name:
            problems.append(f"no name: {role} in {part.parent.name!r}")
        if not role or part.getRole() in (pyatspi.ROLE_INVALID, pyatspi.ROLE_UNKNOWN):
            problems.append(f"no role: {part.name!r}")
        if part.getRole() not in (pyatspi.ROLE_TABLE_CELL, pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_MENU_ITEM,
                                  pyatspi.ROLE_MENU, pyatspi.ROLE_TREE_ITEM) and not part.description:
            problems.append(f"no description: {role} {part.name!r}")
    for index in range(min(part.childCount, 200)):
        walk(part.getChildAtIndex(index), depth + 1)


def find(part, name, depth=0):
    if part is None or depth > 8:
        return None
    if part.name == name and part.getRole() == pyatspi.ROLE_MENU_ITEM:
        return part
    for index in range(part.childCount):
        found = find(part.getChildAtIndex(index), name, depth + 1)
        if found is not None:
            return found
    return None


def open_by_menu(name):
    """Presses the entry as a screen reader does, and waits for the window."""
    before = application.childCount
    entry = find(application, name)
    if entry is None:
        problems.append(f"no menu entry: {name}")
        return
    entry.queryAction().doAction(0)
    patience = time.monotonic() + 20
    while application.childCount <= before and time.monotonic() < patience:
        time.sleep(0.05)
    if application.childCount <= before:
        problems.append(f"nothing opened: {name}")


entries = wanted[wanted.index("--") + 1:]
wanted = wanted[:wanted.index("--")]
for name in entries:
    open_by_menu(name)
walk(application, 0)
for name in wanted:
    if name not in names:
        problems.append(f"not found: {name}")
if count < 40:
    problems.append(f"only {count} parts take the focus")
print(*problems, sep="\n")
sys.exit(1 if problems else 0)
'''


def free_display():
    """A display of our own: the server picks the number and tells it."""
    read, write = os.pipe()
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"],
                              pass_fds=[write], stderr=subprocess.DEVNULL)
    os.close(write)
    with os.fdopen(read) as pipe:
        return server, ":" + pipe.readline().strip()


def listen(display, language, wanted):
    with tempfile.TemporaryDirectory() as root:
        home = os.path.join(root, "home")
        program_dir = os.path.join(root, "program")
        for folder in (home, program_dir, os.path.join(root, "run")):
            os.makedirs(folder, mode=0o700)
        os.rmdir(program_dir)
        make_program_folder(program_dir, False)
        open(os.path.join(program_dir, "常用文件扩展名.txt"), "w").close()
        with open(os.path.join(program_dir, "比较文件_目录清单.txt"), "w", encoding="utf-8") as file:
            file.write(home + "\r\n")
        with open(os.path.join(root, "reader.py"), "w", encoding="utf-8") as file:
            file.write(reader)
        environment = {"PATH": os.environ["PATH"], "HOME": home, "XDG_RUNTIME_DIR": os.path.join(root, "run"),
                       "DISPLAY": display, "LANG": "C.UTF-8", "CORVANE_LANGUAGE": language,
                       "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "NO_AT_BRIDGE": "0",
                       "DBUS_SYSTEM_BUS_ADDRESS": "unix:path=/nonexistent"}
        session = (f'/usr/libexec/at-spi-bus-launcher --launch-immediately & bus=$!; '
                   f'"{program}" --program-dir "{program_dir}" & window=$!; '
                   f'/usr/bin/python3 "{root}/reader.py" "$@"; found=$?; kill $window $bus; exit $found')
        done = subprocess.run(["dbus-run-session", "--", "sh", "-c", session, "sh", *wanted], env=environment,
                              capture_output=True, text=True, timeout=180)
        if done.returncode != 0:
            print(f"{language}:\n{done.stdout}{done.stderr[-3000:]}")
        return done.returncode == 0


server, display = free_display()
try:
    heard = [listen(display, "zh_CN", ["文件(F)", "文件操作(O)", "目录选择", "查相同文件", "--",
                                       "选项(O)...", "自动关机(S)...", "关于(A)..."]),
             listen(display, "en", ["File", "Operations", "Select directories", "Find duplicates", "--",
                                    "Options...", "Shut down automatically...", "About..."])]
finally:
    server.terminate()
    server.wait()
sys.exit(0 if all(heard) else 1)
