"""Every data file missing, empty, cut, binary, huge, or with a directory in its place: the console ends with a
status of its own (1 where a failure was shown), never by a signal, and loses no other file."""
import os
import random
import subprocess
import sys
import tempfile

console = sys.argv[1]
names = ["文件清单.txt", "相同文件.txt", "不相同文件.txt", "run_history.txt", "run_contents.txt", "avoid.txt", "run_time_rem.txt",
         "err.txt", "比较文件_目录清单.txt", "temp.txt", "err_rec.txt", "Tavrel环境.txt", "不参加搜索的目录.txt",
         "不参加比较的文件类型.txt", "仅搜索的文件类型.txt", "备记录.txt", "常用文件扩展名.txt"]
dice = random.Random(20)
kept = b"0.kept\r\n"
binary = bytes(dice.randrange(256) for _ in range(200_000))
lines = b"".join(b"%d\r\n" % dice.randrange(10**18) for _ in range(50_000))
stars = b"\r\n".join(b"*" * dice.randrange(6) + b"/x*%x*%d" % (dice.randrange(2**40), dice.randrange(-9, 9))
                     for _ in range(20_000))
contents = {"empty": b"", "cut": "内容相同文件清单            \r\n 5".encode(), "binary": binary, "numbers": lines,
            "stars": stars, "one long line": b"x" * 20_000_000, "huge": b"1x\r\n" * 25_000_000, "devices": b"/dev/zero\r\n/proc/self/mem\r\n/dev\r\n",
            "directory": None}
failures = 0

with tempfile.TemporaryDirectory() as root:
    data = os.path.join(root, "data")
    os.makedirs(data)
    for i in range(600):
        with open(os.path.join(data, str(i)), "w") as file:
            file.write("x" * (i // 2))
    for name in names:
        for kind, content in contents.items():
            program_dir = os.path.join(root, "program")
            os.makedirs(program_dir)
            place = os.path.join(program_dir, name)
            if content is None:
                os.mkdir(place)
            else:
                with open(place, "wb") as file:
                    file.write(content)
            for other in ("不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt", "mine.txt"):
                if other != name:
                    with open(os.path.join(program_dir, other), "wb") as file:
                        file.write(kept)
            script = "call debug_err_anly\ncall debug_err\ncall notes_m\ncall Command21_Click\ncall Picture3_Click\ncall Picture4_Click\n"
            script += f"select {data}\ncall search_check_m_Click\ncall Picture4_Click\nshow StatusBar1\n"
            run = subprocess.run([console, "--program-dir", program_dir, "--dry-shell", "--script", "-"],
                                 input=script.encode(), capture_output=True, timeout=300)
            if run.returncode not in (0, 1) or b"\n7\t" not in run.stdout:
                failures += 1
                print(f"{name}, {kind}: status {run.returncode}\n{run.stderr.decode('utf-8', 'replace')[-2000:]}")
            for other in ("不参加搜索的目录.txt", "不参加比较的文件类型.txt", "仅搜索的文件类型.txt", "mine.txt"):
                if other != name and open(os.path.join(program_dir, other), "rb").read() != kept:
                    failures += 1
                    print(f"{name}, {kind}: {other} is not what it was")
            if run.stdout.count(b"message\t") > 10:
                failures += 1
                print(f"{name}, {kind}: {run.stdout.count(b'message')} messages")
            if content is None and not os.path.isdir(place):
                failures += 1
                print(f"{name}: the directory is gone")
            leftover = [entry for entry in os.listdir(program_dir) if len(entry) > 7 and entry[-7] == "."]
            if leftover:
                failures += 1
                print(f"{name}, {kind}: left behind {leftover}")
            subprocess.run(["rm", "-rf", program_dir], check=True)
    if len(os.listdir(data)) != 600:
        failures += 1
        print("files are gone")

sys.exit(1 if failures else 0)
