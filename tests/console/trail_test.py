"""The error trail end to end: a comparison killed in the middle, the next start that names its file, the file left
out of the next comparison, and nothing of it at the start after that."""
import os
import subprocess
import sys
import tempfile
import time

from expectations import expect, finish
from program_folder import option_lists

console = sys.argv[1]


def run(program_dir, script):
    done = subprocess.run([console, "--program-dir", program_dir, "--dry-shell", "--script", "-"],
                          input=script.encode(), capture_output=True, timeout=120)
    return done.stdout.decode("utf-8", "surrogateescape").splitlines()


with tempfile.TemporaryDirectory() as root:
    root = os.path.realpath(root)
    program_dir = os.path.join(root, "program")
    data = os.path.join(root, "data")
    os.makedirs(program_dir)
    os.makedirs(data)
    for name in option_lists:
        open(os.path.join(program_dir, name), "w").close()
    paths = [os.path.join(data, name) for name in ("a", "b")]
    for path in paths:
        with open(path, "wb") as file:
            file.truncate(16 << 30)  # holes: long to read, nothing to store

    record = os.path.join(program_dir, "err_rec.txt")
    dying = subprocess.Popen([console, "--program-dir", program_dir, "--script", "-"], stdin=subprocess.PIPE,
                             stdout=subprocess.DEVNULL)
    dying.stdin.write(f"select {data}\ncall picture2_Click\ncall debug_err\ncall Picture3_Click\n".encode())
    dying.stdin.close()
    patience = time.monotonic() + 60
    while not os.path.exists(record) and time.monotonic() < patience:
        time.sleep(0.01)
    time.sleep(0.2)
    dying.kill()
    expect("killed in the middle", dying.wait(), -9)
    with open(record, encoding="utf-8") as file:
        named = file.read().splitlines()
    expect("one line", len(named), 1)
    expect("the record names a file that was read", named[0] in paths, True)
    with open(os.path.join(program_dir, "Tavrel环境.txt"), encoding="utf-8") as file:
        expect("the mark on disk", file.read().splitlines()[57], "-1 ")

    # Small files in their place, so that the rest is quick.
    for path in [*paths, os.path.join(data, "c")]:
        with open(path, "wb") as file:
            file.write(b"equal")
    rest = sorted({*paths, os.path.join(data, "c")} - {named[0]})
    lines = run(program_dir, "show Frame_err\nshow txt_disp_err_file\nshow Check1\nshow error_trail_on\n"
                             "call Command47_Click\nshow Frame_err\ncall search_check_m_Click\nshow ListView1\n")
    expect("the frame is shown", lines[0:3], ["Frame_err\tcaption\t上次运行时,出错的文件", "Frame_err\ttooltip\t",
                                              "Frame_err\tvisible\t1"])
    expect("with the path", f"txt_disp_err_file\ttext\t{named[0]}" in lines, True)
    expect("with the box on", "Check1\tvalue\t1" in lines, True)
    expect("the trail is off again", "error_trail_on\t0" in lines, True)
    expect("hidden after the confirmation", "Frame_err\tvisible\t0" in lines, True)
    with open(os.path.join(program_dir, "avoid.txt"), encoding="utf-8") as file:
        expect("the avoid list", file.read().splitlines(), [named[0]])
    expect("the comparison skips it", lines[-2:],
           ["rows\t1\tlist_mode\t0\tvisible\t1", f"1\t1\t0\t5\t0\t{rest[0]}\t0\t{rest[1]}\t0"])

    lines = run(program_dir, "show Frame_err\ncall search_check_m_Click\nshow result_count\n")
    expect("only once", "Frame_err\tvisible\t0" in lines, True)
    expect("still left out", lines[-1], "result_count\t1")

finish()
