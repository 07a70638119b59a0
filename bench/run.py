#!/usr/bin/env python3
"""Runs the program and its peers side by side over the generated sets; see bench/README.md."""
import argparse
import collections
import json
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

SETS = ("W1", "W2", "W3", "W4", "W5")
PEERS = ("jdupes", "fdupes", "rdfind", "rmlint", "rmlint-pp", "duff", "hardlink")
BOUND = "bound"
# The program once more, with what it has stored of its first run.
AGAIN = "again"
GNU_TIME = "/usr/bin/time"

Result = collections.namedtuple("Result", "wall user system memory verdict")


def command_of(tool, options, directory, place):
    """The command, and the file that holds its answer; None for standard output."""
    if tool == BOUND:
        return [options.bound, directory], None
    if tool in ("corvane", AGAIN):
        program_directory = os.path.join(place, "program")
        os.makedirs(program_directory, exist_ok=True)
        return [options.program, "--program-dir", program_directory, directory], None
    if tool == "jdupes":
        return ["jdupes", "-r", "-q", "-z", directory], None
    if tool == "fdupes":
        return ["fdupes", "-r", "-q", directory], None
    if tool == "rdfind":
        answer = os.path.join(place, "rdfind.txt")
        return ["rdfind", "-dryrun", "true", "-ignoreempty", "false", "-outputname", answer, directory], answer
    if tool in ("rmlint", "rmlint-pp"):
        # Only ever an ordinary file: it removes what is at this path first.
        answer = os.path.join(place, "rmlint.json")
        exact = ["-pp"] if tool == "rmlint-pp" else []
        return ["rmlint", "-T", "df", "--size", "0", *exact, "-o", "json:" + answer, directory], answer
    if tool == "duff":
        return ["duff", "-r", "-f", "=", directory], None
    if tool == "hardlink":
        return ["hardlink", "-n", "-v", "-c", "-s", "0", directory], None
    raise ValueError(tool)


class WrongAnswer(Exception):
    pass


def lines_of(path):
    with open(path, encoding="utf-8", errors="surrogateescape", newline="\n") as file:
        for line in file:
            yield line.rstrip("\n")


def groups_in_blocks(path, is_border):
    groups = [[]]
    for line in lines_of(path):
        if is_border(line):
            groups.append([])
        else:
            groups[-1].append(line)
    return [group for group in groups if group]


def groups_of_pairs(path):
    """Groups of the pairs "length TAB path TAB path", which may link each group by one pair a file only."""
    parents = {}

    def root_of(name):
        root = parents.setdefault(name, name)
        while parents[root] != root:
            root = parents[root]
        while parents[name] != root:
            parents[name], name = root, parents[name]
        return root

    pair_count = 0
    for line in lines_of(path):
        fields = line.split("\t")
        if len(fields) != 3:
            raise WrongAnswer("bad line")
        pair_count += 1
        parents[root_of(fields[2])] = root_of(fields[1])
    groups = collections.defaultdict(list)
    for name in parents:
        groups[root_of(name)].append(name)
    if pair_count != len(parents) - len(groups):
        raise WrongAnswer(f"{pair_count} pairs, not {len(parents) - len(groups)}")
    return list(groups.values())


def groups_of_rdfind(path):
    groups = []
    for line in lines_of(path):
        if line.startswith("#"):
            continue
        fields = line.split(" ", 7)
        if fields[0] == "DUPTYPE_FIRST_OCCURRENCE":
            groups.append([])
        groups[-1].append(fields[7])
    return groups


def groups_of_rmlint(path):
    groups = collections.defaultdict(list)
    with open(path, encoding="utf-8", errors="surrogateescape") as file:
        for entry in json.load(file):
            if entry.get("type") == "duplicate_file":
                groups[entry["checksum"], entry["size"]].append(entry["path"])
    return list(groups.values())


def groups_of_links(path):
    """Groups of what hardlink would link: the one it keeps, and each that it would make a link of it."""
    groups = collections.defaultdict(list)
    for line in lines_of(path):
        found = re.fullmatch(r"\[DryRun\] Linking (/.*) to (/.*) \(-.*\)", line)
        if found:
            groups[found[1]].append(found[2])
    return [[kept, *others] for kept, others in groups.items()]


def read_groups(tool, path):
    if tool in ("corvane", AGAIN):
        return groups_of_pairs(path)
    if tool == "rdfind":
        return groups_of_rdfind(path)
    if tool in ("rmlint", "rmlint-pp"):
        return groups_of_rmlint(path)
    if tool == "hardlink":
        return groups_of_links(path)
    return groups_in_blocks(path, lambda line: line == ("=" if tool == "duff" else ""))


def true_groups(directory):
    groups = collections.defaultdict(list)
    for line in lines_of(directory + ".answer"):
        content_id, path = line.split("\t")
        groups[content_id].append(path)
    return {frozenset(group) for group in groups.values()}


def verdict_of(tool, path, directory, truth):
    prefix = directory + "/"
    try:
        groups = read_groups(tool, path)
    except WrongAnswer as wrong:
        return f"wrong: {wrong}"
    except (OSError, ValueError, IndexError, KeyError) as failure:
        return f"unreadable: {failure}"
    named = [path for group in groups for path in group]
    if len(named) != len(set(named)):
        return "wrong: a file in two groups"
    found = {frozenset(path.removeprefix(prefix) for path in group) for group in groups}
    if found == truth:
        return "right"
    return f"wrong: {len(truth - found)} groups missing, {len(found - truth)} false"


def run_once(tool, options, directory, truth):
    with tempfile.TemporaryDirectory(prefix="corvane-bench-") as place:
        command, answer = command_of(tool, options, directory, place)
        if tool == AGAIN:
            try:
                subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               cwd=place, timeout=options.timeout, check=True)
            except subprocess.SubprocessError as failure:
                return Result(0, 0, 0, 0, f"the first run: {failure}")
            if options.cold:
                forget_all()
        output_path = os.path.join(place, "output")
        memory_path = os.path.join(place, "memory")
        # A process keeps the peak of the one it was started from, here this interpreter. GNU time is small.
        through_time = os.access(GNU_TIME, os.X_OK)
        if through_time:
            command = [GNU_TIME, "-q", "-f", "%M", "-o", memory_path] + command
        timed_out = threading.Event()
        with open(output_path, "wb") as output, open(os.path.join(place, "errors"), "wb") as errors:
            start = time.monotonic()
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output, stderr=errors,
                                       cwd=place, process_group=0)

            def end_it():
                timed_out.set()
                try:
                    os.killpg(process.pid, signal.SIGKILL)
                except ProcessLookupError:
                    pass

            timer = threading.Timer(options.timeout, end_it)
            timer.start()
            _, status, usage = os.wait4(process.pid, 0)
            wall = time.monotonic() - start
            timer.cancel()
            process.returncode = os.waitstatus_to_exitcode(status)
        memory = usage.ru_maxrss
        if through_time and not timed_out.is_set():
            with open(memory_path, encoding="ascii") as file:
                memory = int(file.read())
        if timed_out.is_set():
            verdict = "timed out"
        elif process.returncode != 0:
            verdict = f"exit code {process.returncode}"
        else:
            verdict = verdict_of(tool, answer or output_path, directory, truth)
        return Result(wall, usage.ru_utime, usage.ru_stime, memory * 1024, verdict)


def make_set(options, set_name, scale, seed=None):
    """The directory of the set, made where it is missing. `options` has the folder of all sets and make_sets."""
    name = set_name + (f"-{scale:g}" if scale != 1 else "") + ("" if seed is None else f"-{seed}")
    directory = os.path.join(os.path.abspath(options.directory), name)
    if not os.path.exists(directory + ".answer"):
        print(f"making {name}", file=sys.stderr)
        os.makedirs(options.directory, exist_ok=True)
        # Without an answer it is what an interrupted run left behind.
        shutil.rmtree(directory, ignore_errors=True)
        subprocess.run([options.make_sets, directory, set_name, f"{scale:g}", *([] if seed is None else ["--seed", str(seed)])],
                       check=True)
    return directory


def count_files(directory):
    return sum(len(names) for _, _, names in os.walk(directory))


def forget_all():
    """Has the system forget what it holds of the disk; wants root."""
    os.sync()
    with open("/proc/sys/vm/drop_caches", "w", encoding="ascii") as file:
        file.write("3\n")


def read_all(directory):
    """Brings all files into the memory of the system and returns their number."""
    count = 0
    buffer = memoryview(bytearray(1 << 20))
    for folder, _, names in os.walk(directory):
        for name in names:
            count += 1
            handle = os.open(os.path.join(folder, name), os.O_RDONLY)
            while os.readv(handle, [buffer]) == len(buffer):
                pass
            os.close(handle)
    return count


def is_there(tool, options):
    own = {"corvane": options.program, AGAIN: options.program, BOUND: options.bound}.get(tool)
    return os.access(own, os.X_OK) if own else shutil.which(tool.removesuffix("-pp")) is not None


def median_of(results):
    """The middle run by wall time; the lower one of two. A wrong answer is the result, however quick the others."""
    wrong = [result for result in results if result.verdict != "right"]
    ordered = sorted(wrong or results, key=lambda result: result.wall)
    return ordered[(len(ordered) - 1) // 2] if ordered else None


def print_table(set_name, warmth, count, results):
    print(f"\n{set_name}: {count:,} files, {warmth}")
    print(f"{'':9} {'wall s':>9} {'user s':>9} {'system s':>9} {'peak MiB':>9} {'bytes/file':>10} "
          f"{'/corvane':>8} {'/bound':>8} {'/jdupes':>8}  answer")
    for tool, result in results.items():
        if result is None:
            print(f"{tool:9} is not there")
            continue
        ratio = " ".join(f"{result.wall / results[other].wall:8.3f}" if results.get(other) else f"{'':8}"
                         for other in ("corvane", BOUND, "jdupes"))
        print(f"{tool:9} {result.wall:9.3f} {result.user:9.3f} {result.system:9.3f} "
              f"{result.memory / (1 << 20):9.1f} {result.memory / count:10.0f} {ratio}  {result.verdict}")
    sys.stdout.flush()


def measure(options, set_name, tools):
    directory = make_set(options, set_name, options.scale)
    truth = true_groups(directory)
    count = count_files(directory) if options.cold else read_all(directory)
    runs = {tool: [] for tool in tools}
    for _ in range(options.runs):
        for tool in tools:
            if is_there(tool, options):
                if options.cold:
                    forget_all()
                runs[tool].append(run_once(tool, options, directory, truth))
    results = {tool: median_of(each) for tool, each in runs.items()}
    print_table(os.path.basename(directory), "cold" if options.cold else "warm", count, results)
    # A peer may be missing or answer something else, the program may not.
    return all(results[own] is not None and results[own].verdict == "right"
               for own in ("corvane", AGAIN) if own in results)


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--sets", default=",".join(SETS), help="such as W1,W4; default all")
    parser.add_argument("--scale", type=float, default=1, help="0 to 1, shrinks the sets; default 1")
    parser.add_argument("--directory", default="bench-data", help="where the sets are or are made")
    parser.add_argument("--program", default="build/bin/corvane-console")
    parser.add_argument("--make-sets", default=None, help="default: make_sets beside the program")
    parser.add_argument("--bound", default=None, help="default: bound beside make_sets")
    parser.add_argument("--peers", default="jdupes", help="names with commas, all or none; default jdupes")
    parser.add_argument("--runs", type=int, default=1, help="takes the median of so many runs")
    parser.add_argument("--cold", action="store_true", help="nothing is in memory before each run; wants root")
    parser.add_argument("--timeout", type=float, default=1800, help="seconds for one run of one tool")
    options = parser.parse_args()

    sets = options.sets.split(",")
    peers = {"all": list(PEERS), "none": []}.get(options.peers, options.peers.split(","))
    for name in sets:
        if name not in SETS:
            parser.error(f"there is no set {name}")
    for name in peers:
        if name not in PEERS:
            parser.error(f"there is no peer {name}")
    if not 0 < options.scale <= 1:
        parser.error("the scale is above 0 and at most 1")
    if options.runs < 1:
        parser.error("there is at least one run")
    options.program = os.path.abspath(options.program)
    if options.make_sets is None:
        options.make_sets = os.path.join(os.path.dirname(options.program), "make_sets")
    options.make_sets = os.path.abspath(options.make_sets)
    if options.bound is None:
        options.bound = os.path.join(os.path.dirname(options.make_sets), BOUND)
    options.bound = os.path.abspath(options.bound)

    own = ["corvane", BOUND] if options.cold else ["corvane", AGAIN, BOUND]
    right = [measure(options, set_name, own + peers) for set_name in sets]
    return 0 if all(right) else 1


if __name__ == "__main__":
    sys.exit(main())
