"""The exports and the tree on real files with hostile names: read back by a CSV reader and, where it is installed, by
LibreOffice Calc. Then a folder that cannot be written and files that may not grow. What is expected comes from a walk
of this script's own."""
import csv
import os
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

from program_folder import make_program_folder

console = sys.argv[1]
TIME_ZONE = "CST-8"
STAMP = 1_700_000_000
names = [b"plain.txt", "中文 名称.txt".encode(), b"tab\tin.txt", b"line\nfeed", b"return\r\nfeed", b'"quoted"', b'"open',
         b"star*.txt", "\uf009private".encode(), b"\xff\xfe.bin", b"comma,semi;colon", b"=1+1", b" blank ", b"back\\slash",
         b".hidden", b"\x1bescape\x7f", b"'", b"%41", "全角，逗号".encode()]
failures = []


def check(what, found, wanted):
    if found != wanted:
        failures.append(what)
        print(f"{what}:\n  found  {first_difference(found, wanted)!r}\n  wanted {first_difference(wanted, found)!r}")


def first_difference(found, wanted):
    """Of two lists, the first entry in which the one differs from the other."""
    if not isinstance(found, list) or not isinstance(wanted, list):
        return found
    return next((entry for number, entry in enumerate(found) if wanted[number:number + 1] != [entry]), len(found))


def shown(raw):
    """A name as the exports show it: control bytes are pictures, private characters and other bytes stay."""
    return b"".join(chr(0x2421 if byte == 0x7F else 0x2400 + byte).encode() if byte < 0x20 or byte == 0x7F
                    else bytes([byte]) for byte in raw)


def make_tree(root):
    for folder in (b"", b"sub", b"sub/deeper", "目录".encode(), b"dir\ttab", b"sub2"):
        place = os.path.join(root, folder)
        os.makedirs(place, exist_ok=True)
        for number, name in enumerate(names):
            path = os.path.join(place, name)
            with open(path, "wb") as file:
                file.truncate(number * 1000 if name != b"plain.txt" else (3 << 30) + 7)
            os.utime(path, (STAMP + number * 4000, STAMP + number * 4000))


def walk(root):
    """Path, length and time of each file below."""
    found = {}
    for folder, _, files in os.walk(root):
        for name in files:
            facts = os.stat(os.path.join(folder, name))
            found[os.path.join(folder, name)] = (facts.st_size, int(facts.st_mtime))
    return found


def size_cell(size):
    return f"{size:,} B".replace("0 B", " B") if size == 0 else f"{size:,} B" if size < 1024 else f"{(size + 513) // 1024:,} KB"


def run(program_dir, script, before=None, status=0):
    ran = subprocess.run([console, "--program-dir", program_dir, "--dry-shell", "--script", "-"], input=script,
                         capture_output=True, preexec_fn=before, timeout=120,
                         env=dict(os.environ, TZ=TIME_ZONE, HOME=os.fsdecode(program_dir)))
    check("status", ran.returncode, status)
    return ran.stdout


def csv_rows(path):
    with open(path, encoding="utf-8", errors="surrogateescape", newline="") as file:
        return [[os.fsencode(cell) for cell in row] for row in csv.reader(file, delimiter="\t")]


def sheet_rows(files):
    rows = [["名称".encode(), "大小".encode(), "创建日期".encode()]]
    for path in sorted(files, key=mapped):
        size, moment = files[path]
        rows.append([shown(path), size_cell(size).encode(), time.strftime("%Y-%m-%d", time.localtime(moment)).encode()])
    return rows + [["空间总计".encode(), size_cell(sum(size for size, _ in files.values())).encode()]]


def mapped(raw):
    """The order of the list: names as the program holds them, with control bytes and stars as U+F000 + byte."""
    text = raw.replace("\uf009".encode(), "\uf000\uf009".encode())
    return b"".join(chr(0xF000 + byte).encode() if byte < 0x20 or byte in (0x7F, 0x2A) else bytes([byte])
                    for byte in text)


def tree_files(path):
    """Files of a written tree, each with the names above it, and length and date."""
    found, above = [], []
    with open(path, "rb") as file:
        lines = file.read().split(b"\r\n")
    check("end of the tree", lines.pop(), b"")
    for line in lines:
        text = line.lstrip(b" ") if line.startswith(b" " * 3) else line
        level, rest = divmod(len(line) - len(text), 3)
        # A name may begin with blanks of its own.
        text = b" " * rest + text
        if text.startswith(b"\\"):
            del above[level:]
            above.append(text[1:])
        else:
            found.append((above[:level], *text.split(b"\t")))
    return found


def check_sheet(program_dir, files):
    place = os.path.join(program_dir, b"filelist.xls")
    check("rows of filelist.xls", csv_rows(place), sheet_rows(files))
    office = shutil.which("soffice")
    if not office:
        print("LibreOffice is not installed: its reading is left out")
        return
    with tempfile.TemporaryDirectory(prefix="corvane_office_") as out:
        subprocess.run([office, f"-env:UserInstallation=file://{out}/profile", "--headless",
                        "--infilter=Text - txt - csv (StarCalc):9,34,76,1", "--convert-to",
                        "csv:Text - txt - csv (StarCalc):9,34,76", "--outdir", out, os.fsdecode(place)],
                       check=True, capture_output=True, timeout=300, env=dict(os.environ, HOME=out))
        rows = csv_rows(os.path.join(out, "filelist.csv"))
    wanted = [[cell.decode("utf-8", "replace").strip(" ") for cell in row] for row in sheet_rows(files)]
    found = [[cell.decode("utf-8").strip(" ") for cell in row] for row in rows]
    check("columns in Calc", {len(row) for row in found}, {3})
    check("rows in Calc", [row if row[2] else row[:2] for row in found], wanted)


def check_text(program_dir, files):
    with open(os.path.join(program_dir, b"filelist_txt_.txt"), "rb") as file:
        check("filelist_txt_.txt", file.read(), b"".join(shown(path) + b"\r\n" for path in sorted(files, key=mapped)))


def check_tree(program_dir, root, files, suffix):
    wanted = []
    depth = root.count(b"/")
    for path, (size, moment) in files.items():
        parts = [shown(part) for part in path.split(b"/")]
        wanted.append((parts[depth + 1:-1], parts[-1], str(size).encode(),
                       time.strftime("%Y-%m-%d %H:%M:%S", time.localtime(moment)).encode()))
    found = [(above[depth + 1:], *rest) for above, *rest in tree_files(os.path.join(program_dir, b"tree_file_list" + suffix))]
    # A name that begins with a blank stands a little deeper than its level: its blanks are told by the count.
    check("files of the tree", sorted(found), sorted(wanted))


def check_failures(folder, root):
    """Files may not grow beyond what the settings need; then the folder itself cannot be written."""
    program_dir = os.path.join(folder, b"narrow")
    make_program_folder(os.fsdecode(program_dir), False)
    select = b"select " + root + b"\ncall picture2_Click\n"
    run(program_dir, select)
    for name in (b"filelist.xls", b"filelist_txt_.txt", b"tree_file_list.txt"):
        with open(os.path.join(program_dir, name), "wb") as file:
            file.write(b"the earlier one")

    def narrow():
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (4000, 4000))

    told = run(program_dir, b"call out_excel_form\ncall \xe6\x96\x87\xe4\xbb\xb6\xe6\xb8\x85\xe5\x8d\x95_M\n"
               b"call tree_select_m\nset tree_dir.Text1 50\nset tree_dir.Check1 1\nset tree_dir.Check2 1\n"
               b"call tree_dir.Command1_Click\n", narrow, 1).decode()
    place = os.fsdecode(program_dir)
    check("told of files that may not grow", [line for line in told.split("\n") if line],
          [f"message\t提示\t{place}/filelist.xls\\r\\nFile too large\tok\t1000",
           f"message\t提示\t{place}/filelist_txt_.txt\\r\\nFile too large\tok\t1000",
           "message\tError\tError # 27 was generated by Corvane\\rFile too large\\r\\nclose Excel \tok\t1000"])
    for name in (b"filelist.xls", b"filelist_txt_.txt", b"tree_file_list.txt"):
        with open(os.path.join(program_dir, name), "rb") as file:
            check("the earlier file", file.read(), b"the earlier one")
    check("nothing else is left", [name for name in os.listdir(program_dir) if b".xls." in name or b".txt." in name], [])

    program_dir = os.path.join(folder, b"locked")
    make_program_folder(os.fsdecode(program_dir), False)
    os.chmod(program_dir, 0o555)

    def nobody():
        if os.getuid() == 0:
            os.setgid(65534)
            os.setuid(65534)

    told = run(program_dir, select + b"call out_excel_form\n", nobody, 1).decode().split("\n")
    check("told of a folder that cannot be written",
          [line for line in told if line.startswith(("message", "shell"))][-1],
          f"message\t提示\t{os.fsdecode(program_dir)}/filelist.xls\\r\\nPermission denied\tok\t1000")
    os.chmod(program_dir, 0o755)


def main():
    os.environ["TZ"] = TIME_ZONE
    time.tzset()
    with tempfile.TemporaryDirectory(prefix="corvane_reports_") as scratch:
        folder = os.fsencode(os.path.realpath(scratch))
        os.chmod(folder, 0o755)
        root = os.path.join(folder, b"data")
        make_tree(root)
        files = walk(root)
        program_dir = os.path.join(folder, b"program")
        make_program_folder(os.fsdecode(program_dir), False)
        told = run(program_dir, b"select " + root + b"\ncall picture2_Click\ncall out_excel_form\n"
                   b"call \xe6\x96\x87\xe4\xbb\xb6\xe6\xb8\x85\xe5\x8d\x95_M\ncall tree_select_m\n"
                   b"set tree_dir.Text1 50\nset tree_dir.Check1 1\nset tree_dir.Check2 1\n"
                   b"call tree_dir.Command1_Click\nset tree_dir.Option1(1) 1\ncall tree_dir.Command1_Click\n"
                   b"show file_count\n")
        check("number of files", told.split(b"file_count\t")[1].strip(), str(len(files)).encode())
        check_sheet(program_dir, files)
        check_text(program_dir, files)
        for suffix in (b".txt", b".xls"):
            check_tree(program_dir, root, files, suffix)
        check("columns of the tree", {len(row) for row in csv_rows(os.path.join(program_dir, b"tree_file_list.xls"))},
              {1, 3})
        check_failures(folder, root)
    print(f"{len(files)} files, {len(failures)} differences")
    sys.exit(1 if failures else 0)


main()
