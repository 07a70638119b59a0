"""Runs one story: makes its files in a temporary folder, runs its script, compares what the console prints.

A story is a text of sections. "files" holds one file a line: path, a blank, its content (empty for none); a path
that ends in "/" is a directory, "path -> target" a link. "script" is the console script, "output" what it prints,
"status" its exit status (0 when left out), "file NAME" the content of a file beside the program afterwards, "line
NUMBER of NAME" one line of it. The program folder is one that has been used before, unless "program" says "bare".
With a section "trash" the shell is no dry one: what is thrown away lands in a trash of the story's own, on a disk
that has one. ROOT stands for the temporary folder. In the output "..." matches any run of characters.
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


def use_program_dir(program_dir):
    """Settings as a fresh file has them, no selected directory, empty option lists."""
    texts = {1, 13, 14, 15, 19, 20, 21, 22, 38, 39, 56, *range(94, 123)}
    lines = ["" if line in texts else "0:00:00" if line in (34, 35) else " 0 " for line in range(1, 123)]
    contents = {"Tavrel环境.txt": "".join(line + "\r\n" for line in lines), "比较文件_目录清单.txt": "",
                "不参加搜索的目录.txt": "", "不参加比较的文件类型.txt": "", "仅搜索的文件类型.txt": ""}
    for name, content in contents.items():
        with open(os.path.join(program_dir, name), "wb") as file:
            file.write(content.encode())


def make_files(root, lines):
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
            file.write(content.encode())


def matches(pattern, line):
    return re.fullmatch(".*?".join(re.escape(part) for part in pattern.split("...")), line) is not None


def compare(what, expected, actual):
    wanted, got = expected.splitlines(), actual.splitlines()
    if len(wanted) == len(got) and all(map(matches, wanted, got)):
        return True
    print(f"--- {what}: expected\n{expected}--- {what}: found\n{actual}", end="")
    return False


def main():
    console, story_path = sys.argv[1:]
    story = sections(story_path)
    real = "trash" in story
    place = os.path.join(os.path.dirname(os.path.dirname(os.path.abspath(console))), "scratch") if real else None
    if real:
        os.makedirs(place, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="corvane_story_", dir=place) as root:
        root = os.path.realpath(root)
        program_dir = os.path.join(root, "program")
        os.makedirs(program_dir)
        if story.get("program", "").strip() != "bare":
            use_program_dir(program_dir)
        make_files(root, story.get("files", "").replace("ROOT", root))
        environment = dict(os.environ, HOME=os.path.join(root, "home"), XDG_DATA_HOME=os.path.join(root, "home"))
        run = subprocess.run([console, "--program-dir", program_dir, *([] if real else ["--dry-shell"]), "--script", "-"],
                             input=story["script"].replace("ROOT", root).encode(), capture_output=True,
                             env=environment, timeout=120)
        output = run.stdout.decode("utf-8", "replace").replace(root, "ROOT")
        right = compare("output", story.get("output", ""), output)
        wanted = int(story.get("status", "0").strip() or 0)
        if run.returncode != wanted:
            print(f"--- status {run.returncode}, expected {wanted}\n{run.stderr.decode('utf-8', 'replace')}")
            right = False
        for name, expected in story.items():
            one_line = re.fullmatch(r"line (\d+) of (.+)", name)
            if name.startswith("file ") or one_line:
                with open(os.path.join(program_dir, one_line.group(2) if one_line else name[5:]), "rb") as file:
                    content = file.read().decode("utf-8", "replace").replace("\r\n", "\n").replace(root, "ROOT")
                if one_line:
                    content = "".join(content.splitlines(True)[int(one_line.group(1)) - 1:][:1])
                right = compare(name, expected, content) and right
            if name.startswith("no file "):
                if os.path.exists(os.path.join(program_dir, name[8:])):
                    print(f"--- {name[8:]} should not be there")
                    right = False
        return 0 if right else 1


sys.exit(main())
