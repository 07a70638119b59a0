"""Every data file missing, empty, cut, binary, huge, or with a directory in its place: the console ends with a
status of its own, never by a signal, and loses no other file."""
import os
import random
import subprocess
import sys
import tempfile

console = sys.argv[1]
names = ["文件清单.txt", "相同文件.txt", "不相同文件.txt", "run_history.txt", "avoid.txt", "run_time_rem.txt",
         "err.txt", "比较文件_目录清单.txt", "temp.txt"]
dice = random.Random(20)
binary = bytes(dice.randrange(256) for _ in range(200_000))
lines = b"".join(b"%d\r\n" % dice.randrange(10**18) for _ in range(50_000))
stars = b"\r\n".join(b"*" * dice.randrange(6) + b"/x*%x*%d" % (dice.randrange(2**40), dice.randrange(-9, 9))
                     for _ in range(20_000))
contents = {"empty": b"", "cut": "内容相同文件清单            \r\n 5".encode(), "binary": binary, "numbers": lines,
            "stars": stars, "one long line": b"x" * 20_000_000, "devices": b"/dev/zero\r\n/proc/self/mem\r\n/dev\r\n",
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
            script = "call Command21_Click\ncall Picture3_Click\ncall Picture4_Click\n"
            script += f"select {data}\ncall search_check_m_Click\ncall Picture4_Click\nshow StatusBar1\n"
            run = subprocess.run([console, "--program-dir", program_dir, "--dry-shell", "--script", "-"],
                                 input=script.encode(), capture_output=True, timeout=300)
            if run.returncode != 0 or b"\n7\t" not in run.stdout:
                failures += 1
                print(f"{name}, {kind}: status {run.returncode}\n{run.stderr.decode('utf-8', 'replace')[-2000:]}")
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
