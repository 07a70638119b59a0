"""Runs one story: makes its files in a temporary folder, runs its script, compares what the console prints.

A story is a text of sections. "files" holds one file a line: path, a blank, its content (empty for none); a path
that ends in "/" is a directory, "path -> target" a link. "script" is the console script, "output" what it prints,
"status" its exit status (0 when left out), "file NAME" the content of a file beside the program afterwards, "line
NUMBER of NAME" one line of it. The program folder is one that has been used before, unless "program" says "bare".
With a section "trash" the shell is no dry one: what is thrown away lands in a trash of the story's own, on a disk
that has one. ROOT stands for the temporary folder. In the output "..." matches any run of characters.

With "--windows EMULATOR" before the console it is one for Windows: the temporary folder lies on drive D:, which is the
folder CORVANE_DRIVE_D, paths have backslashes, files beside the program are written in GB 18030, and texts that differ in
case alone are the same, since some paths are stored in capitals there. The story is the same for both.
"""
import os
import re
import subprocess
import sys
import tempfile


def sections(path):
    found, name = {}, None
    with open(path, encoding="utf-8") as story:
        for line in story:
            head = re.fullmatch(r"== (.+) ==\n", line)
            if head:
                name = head.group(1)
                found[name] = ""
            elif name:
                found[name] += line
    return found


class linux_machine:
    """How the story's texts and files look to the console."""
    folder = None
    flags = 0

    def __init__(self, root):
        self.root = root

    def command(self, console):
        return [console]

    def path(self, path):
        return path

    def texts(self, text):
        return text.replace("ROOT", self.root)

    def seen(self, output):
        return output.decode("utf-8", "replace").replace(self.root, "ROOT")

    def encoded(self, content):
        return content.encode()

    stored = seen


class windows_machine(linux_machine):
    folder = os.environ.get("CORVANE_DRIVE_D")
    flags = re.IGNORECASE

    def __init__(self, root, emulator):
        super().__init__(root)
        self.emulator = emulator
        self.drive_root = self.path(root)

    def command(self, console):
        return [self.emulator, console]

    def path(self, path):
        return "D:\\" + os.path.relpath(path, os.path.realpath(self.folder)).replace("/", "\\")

    def texts(self, text):
        return re.sub("ROOT([^\t\r\n|]*)", lambda path: self.drive_root + path.group(1).replace("/", "\\"), text)

    def back(self, text, separator):
        """With "/" in paths below the root and nowhere else."""
        root = self.drive_root.replace("\\", separator)
        return re.sub(re.escape(root) + "([^\t\r\n]*)",
                      lambda path: "ROOT" + path.group(1).replace(separator, "/"), text, flags=self.flags)

    def seen(self, output):
        # In a record a backslash is written twice.
        return self.back(output.decode("utf-8", "replace"), "\\\\")

    def encoded(self, content):
        return content.encode("gb18030")

    def stored(self, content):
        return self.back(content.decode("gb18030", "replace"), "\\")


def use_program_dir(program_dir):
    """Settings as a fresh file has them, no selected directory, empty option lists."""
    texts = {1, 13, 14, 15, 19, 20, 21, 22, 38, 39, 56, *range(94, 123)}
    lines = ["" if line in texts else "0:00:00" if line in (34, 35) else " 0 " for line in range(1, 123)]
    contents = {"Tavrel环境.txt": "".join(line + "\r\n" for line in lines), "比较文件_目录清单.txt": "",
                "不参加搜索的目录.txt": "", "不参加比较的文件类型.txt": "", "仅搜索的文件类型.txt": ""}
    for name, content in contents.items():
        with open(os.path.join(program_dir, name), "wb") as file:
            file.write(content.encode())


def make_files(root, lines, encoded):
    for line in lines.splitlines():
        if not line:
            continue
        if " -> " in line:
            place, target = line.split(" -> ")
            os.symlink(os.path.join(root, target), os.path.join(root, place))
            continue
        path, _, content = line.partition(" ")
        place = os.path.join(root, path)
        if path.endswith("/"):
            os.makedirs(place, exist_ok=True)
            continue
        os.makedirs(os.path.dirname(place), exist_ok=True)
        with open(place, "wb") as file:
            file.write(encoded(content) if path.startswith("program/") else content.encode())


def matches(pattern, line, flags):
    return re.fullmatch(".*?".join(re.escape(part) for part in pattern.split("...")), line, flags) is not None


def compare(what, expected, actual, flags):
    wanted, got = expected.splitlines(), actual.splitlines()
    if len(wanted) == len(got) and all(matches(*pair, flags) for pair in zip(wanted, got)):
        return True
    print(f"--- {what}: expected\n{expected}--- {what}: found\n{actual}", end="")
    return False


def main():
    emulator = None
    if sys.argv[1] == "--windows":
        emulator = sys.argv[2]
        del sys.argv[1:3]
    console, story_path = sys.argv[1:]
    story = sections(story_path)
    real = "trash" in story
    place = windows_machine.folder if emulator else None
    if real and not emulator:
        place = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(console))), "scratch")
        os.makedirs(place, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="corvane_story_", dir=place) as root:
        root = os.path.realpath(root)
        machine = windows_machine(root, emulator) if emulator else linux_machine(root)
        program_dir = os.path.join(root, "program")
        os.makedirs(program_dir)
        if story.get("program", "").strip() != "bare":
            use_program_dir(program_dir)
        make_files(root, machine.texts(story.get("files", "")), machine.encoded)
        environment = dict(os.environ, HOME=os.path.join(root, "home"), XDG_DATA_HOME=os.path.join(root, "home"))
        if emulator:
            environment = os.environ
        dry = [] if real else ["--dry-shell"]
        run = subprocess.run([*machine.command(console), "--program-dir", machine.path(program_dir), *dry,
                              "--script", "-"], input=machine.texts(story["script"]).encode(), capture_output=True,
                             env=environment, timeout=120)
        output = machine.seen(run.stdout)
        right = compare("output", story.get("output", ""), output, machine.flags)
        wanted = int(story.get("status", "0").strip() or 0)
        if run.returncode != wanted:
            print(f"--- status {run.returncode}, expected {wanted}\n{run.stderr.decode('utf-8', 'replace')}")
            right = False
        for name, expected in story.items():
            one_line = re.fullmatch(r"line (\d+) of (.+)", name)
            if name.startswith("file ") or one_line:
                with open(os.path.join(program_dir, one_line.group(2) if one_line else name[5:]), "rb") as file:
                    content = machine.stored(file.read()).replace("\r\n", "\n")
                if one_line:
                    content = "".join(content.splitlines(True)[int(one_line.group(1)) - 1:][:1])
                right = compare(name, expected, content, machine.flags) and right
            if name.startswith("no file "):
                if os.path.exists(os.path.join(program_dir, name[8:])):
                    print(f"--- {name[8:]} should not be there")
                    right = False
        return 0 if right else 1


sys.exit(main())
