#!/usr/bin/env python3
"""The console for Windows under Wine beside that of Linux, over a part of W1.

    cmake --preset windows && cmake --build --preset windows
    python3 bench/wine.py                   # seconds: Linux, a program that only reads, Windows; by turns
    python3 bench/wine.py --count           # questions a file: to Wine's server, and calls of the system on Linux

Each round runs all programs, over files that are in memory; the median of `--runs` rounds counts. Once on all
processors and once on one alone, Wine's server included: between two processors that sleep each question wakes first
the one and then the other. The exit code is 0 when both consoles name the same pairs.
Needs the packages of ./check --windows, `strace` for --count.
"""
import argparse
import collections
import os
import re
import shutil
import signal
import statistics
import subprocess
import sys
import time

top = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
server = "/usr/lib/wine/wineserver64"


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--linux", default=os.path.join(top, "build/bin/corvane-console"))
    parser.add_argument("--windows", default=os.path.join(top, "build-windows/bin/corvane-console.exe"))
    parser.add_argument("--make-sets", default=os.path.join(top, "build/bin/make_sets"))
    parser.add_argument("--directory", default=os.path.join(top, "bench-data/wine"), help="Wine's and the set's folder")
    parser.add_argument("--scale", default="0.1", help="part of W1: 0.1 is 20,000 files")
    parser.add_argument("--runs", type=int, default=3)
    parser.add_argument("--processors", default="all,one")
    parser.add_argument("--count", action="store_true", help="count questions over 2,000 files in place of measuring")
    parser.add_argument("--inside", help=argparse.SUPPRESS)
    return parser.parse_args()


def within_wine(options, processors):
    """Runs this script again, with Wine set up as for the tests, on these processors."""
    command = ["taskset", "-c", "0"] if processors == "one" else []
    script = '. "$1"; start_wine "$2"; shift 2; "$@"'
    own = [sys.executable, os.path.abspath(__file__), *sys.argv[1:], "--inside", processors]
    return subprocess.run(command + ["bash", "-c", script, "bash", os.path.join(top, "tests/windows/wine.sh"),
                                     os.path.abspath(options.directory), *own], check=False).returncode


def make_set(options, scale):
    """The set on drive D: of Wine; its name."""
    name = f"W1_{scale}"
    path = os.path.join(options.directory, "drive_d", name)
    if not os.path.exists(path + ".answer"):
        shutil.rmtree(path, ignore_errors=True)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        subprocess.run([options.make_sets, path, "W1", scale], check=True)
    subprocess.run(["find", path, "-type", "f", "-exec", "cat", "{}", "+"], stdout=subprocess.DEVNULL, check=True)
    return name


def new_program_dir(options, name):
    """An empty folder on drive D: for what a run stores."""
    path = os.path.join(options.directory, "drive_d", name)
    shutil.rmtree(path, ignore_errors=True)
    os.makedirs(path)
    return path


def wine(*command):
    return ["/usr/lib/wine/wine64", *command]


def timed(options, command):
    """Seconds of a run, and what it printed. Wine's services keep pipes open, so its output goes to a file."""
    printed = os.path.join(options.directory, "printed")
    with open(printed, "wb") as file:
        start = time.monotonic()
        status = subprocess.run(command, stdout=file, stderr=subprocess.DEVNULL, check=False,
                                env=dict(os.environ, LC_ALL="zh_CN.UTF-8")).returncode
        seconds = time.monotonic() - start
    if status != 0:
        sys.exit(f"{command} ended with {status}")
    with open(printed, "rb") as file:
        return seconds, file.read()


def commands(options, name):
    """Of each program, by its title."""
    new_program_dir(options, "of_linux")
    new_program_dir(options, "of_windows")
    drive = os.path.join(options.directory, "drive_d")
    return {"linux": [options.linux, "--program-dir", f"{drive}/of_linux", f"{drive}/{name}"],
            "floor": wine(os.path.join(options.directory, "wine_floor.exe"), f"D:\\{name}"),
            "wine": wine(options.windows, "--program-dir", "D:\\of_windows", f"D:\\{name}")}


def pairs_of(printed, options):
    """Lengths and paths below the drive, of either console."""
    drive = os.path.join(os.path.abspath(options.directory), "drive_d") + "/"
    text = printed.decode().replace(drive, "").replace("D:\\\\", "").replace("\\\\", "/").replace("D:\\", "")
    return sorted(line.replace("\\", "/") for line in text.splitlines())


def measure(options):
    name = make_set(options, options.scale)
    subprocess.run(wine(options.windows, "--help"), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
    seconds = collections.defaultdict(list)
    pairs = {}
    for _ in range(options.runs):
        for title, command in commands(options, name).items():
            took, printed = timed(options, command)
            seconds[title].append(took)
            pairs[title] = pairs_of(printed, options) if title != "floor" else []
    median = {title: statistics.median(each) for title, each in seconds.items()}
    same = pairs["linux"] == pairs["wine"] and len(pairs["wine"]) > 0
    print(f"| {options.inside} | " + " | ".join(f"{median[title]:.2f}" for title in ("linux", "floor", "wine")) +
          f" | {median['wine'] / median['linux']:.1f} | {median['wine'] / median['floor']:.1f} "
          f"| {len(pairs['wine'])} {'the same' if same else 'OTHERS'} |", flush=True)
    return 0 if same else 1


def counted(lines, pattern, files):
    """How often what the pattern catches stands in the lines, a file; from the most frequent on."""
    found = collections.Counter(match.group(1) for match in map(re.compile(pattern).match, lines) if match)
    return ", ".join(f"{what} {count / files:.2f}" for what, count in found.most_common() if count >= files / 20)


def count(options):
    scale, files = "0.01", 2000
    name = make_set(options, scale)
    run = commands(options, name)
    trace = os.path.join(options.directory, "trace")
    subprocess.run(["strace", "-f", "-o", trace, *run["linux"]], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                   check=True)
    with open(trace, encoding="utf-8", errors="replace") as file:
        print("linux, calls of the system:", counted(file, r"\d+ +(\w+)\(", files))
    for title in ("floor", "wine"):
        subprocess.run([server, "-k"], check=False)
        time.sleep(1)
        with open(trace, "wb") as file:
            with subprocess.Popen([server, "-d1", "-f"], stderr=file) as told:
                time.sleep(1)
                timed(options, run[title])
                subprocess.run([server, "-k"], check=False)
                told.wait()
        with open(trace, encoding="utf-8", errors="replace") as file:
            # A question, not its answer.
            print(f"{title}, questions to the server:", counted(file, r"[0-9a-f]{4}: (\w+)\((?!\) = )", files))
    return 0


def main():
    options = arguments()
    if options.inside:
        return count(options) if options.count else measure(options)
    signal.signal(signal.SIGINT, signal.default_int_handler)
    os.makedirs(options.directory, exist_ok=True)
    subprocess.run(["x86_64-w64-mingw32-g++-posix", "-O2", "-std=c++20", "-municode", "-static", "-D_WIN32_WINNT=0x0A00",
                    "-o", os.path.join(options.directory, "wine_floor.exe"), os.path.join(top, "bench/wine_floor.cpp")],
                   check=True)
    if options.count:
        return within_wine(options, "all")
    print("| processors | linux s | floor s | wine s | /linux | /floor | pairs |\n|---|---|---|---|---|---|---|", flush=True)
    return max(within_wine(options, each) for each in options.processors.split(","))


sys.exit(main())
