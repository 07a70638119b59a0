"""From the search to the end of the machine, in a dry run: the question, the warning, and what is on the disk at the
moment when the machine is asked."""
import os
import subprocess
import sys
import tempfile

from expectations import expect, finish
from program_folder import option_lists

console = sys.argv[1]


class script:
    """The console, driven line by line; each line of output is taken as it comes."""

    def __init__(self, program_dir):
        self.process = subprocess.Popen([console, "--program-dir", program_dir, "--dry-shell", "--script", "-"],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)

    def do(self, *lines):
        """What the lines print."""
        self.process.stdin.write("".join(line + "\n" for line in lines).encode() + b"show quit_requested\n")
        self.process.stdin.flush()
        printed = []
        while True:
            line = self.process.stdout.readline().decode().rstrip("\n")
            if not line or line.startswith("quit_requested\t"):
                return printed
            printed.append(line)

    def end(self):
        self.process.stdin.close()
        self.process.stdout.close()
        return self.process.wait(timeout=60)


def shown(lines, prop):
    """The value of one property in what "show CONTROL" prints."""
    return [line.split("\t")[2] for line in lines if line.split("\t")[1] == prop]


with tempfile.TemporaryDirectory() as root:
    root = os.path.realpath(root)
    program_dir = os.path.join(root, "program")
    data = os.path.join(root, "data")
    os.makedirs(program_dir)
    os.makedirs(data)
    for name in option_lists:
        open(os.path.join(program_dir, name), "w").close()
    for name, content in (("a", "the same"), ("b", "the same"), ("c", "another one")):
        with open(os.path.join(data, name), "w") as file:
            file.write(content)

    corvane = script(program_dir)
    corvane.do(f"select {data}", "call shut_computer", "set sleep_music.Option1(4) 1", "set sleep_music.Option2(1) 1",
               "set sleep_music.VScroll3 1")
    boxes = corvane.do("answer yes", "call search_check_m_Click")
    expect("the question, and no closing message", boxes,
           ["message\t提示\t  运行完毕后,关闭计算机.同意吗(Y/N)?\tyesno\t1000"])
    warning = corvane.do("show shut_msg.Label1", "show shut_msg.ProgressBar1")
    expect("the warning begins", shown(warning, "caption"), ["就要关闭计算机.请做好准备"])
    printed = corvane.do(*["call shut_msg.Timer1_Timer"] * 60)
    expect("nothing is asked while it counts", printed, [])
    expect("its last word", shown(corvane.do("show shut_msg.Label1"), "caption"),
           ["还有 0 分 0秒,就要关闭计算机.请做好准备"])
    for name in ("相同文件.txt", "文件清单.txt", "不相同文件.txt"):
        os.stat(os.path.join(program_dir, name))
    settings = os.path.join(program_dir, "Tavrel环境.txt")
    os.remove(settings)
    expect("then the machine is asked once", corvane.do(*["call shut_msg.Timer1_Timer"] * 5), ["shell\tpower_off"])
    with open(settings, encoding="utf-8", newline="") as file:
        lines = file.read().split("\r\n")
    expect("the settings are on the disk: action, form, warning", (lines[43], lines[44], lines[45]),
           (" 4 ", " 1 ", " 60 "))
    with open(os.path.join(program_dir, "相同文件.txt"), encoding="utf-8", newline="") as file:
        pairs = file.read().split("\r\n")[2:-1]
    expect("the result is on the disk", pairs, [" 8 ", os.path.join(data, "a"), os.path.join(data, "b")])
    expect("status", corvane.end(), 0)

    # A day's end by the countdown: two minutes are all warning, and closing it stops everything.
    corvane = script(program_dir)
    corvane.do("call shut_computer", "set sleep_music.Option2(2) 1", "set sleep_music.Text3 2",
               "call sleep_music.Text3_KeyPress", "call sleep_music.Command1_Click", "call sleep_music.Timer1_Timer")
    expect("the warning is there", shown(corvane.do("show shut_msg.Label1"), "caption"),
           ["就要关闭计算机.请做好准备"])
    corvane.do("call shut_msg.Form_Unload")
    printed = corvane.do(*["call sleep_music.Timer1_Timer", "call shut_msg.Timer1_Timer"] * 150)
    expect("a closed warning ends nothing", printed, [])
    corvane.end()
finish()
