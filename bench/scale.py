#!/usr/bin/env python3
"""Time and memory by the number of files, as a table and a picture; see bench/README.md."""
import argparse
import os
import re
import statistics
import subprocess
import sys
import tempfile
import time

from run import make_set

STEPS = (62_500, 250_000, 1_000_000, 2_000_000, 4_000_000)
WHOLE = 1_000_000  # files of a set at scale 1
TOTALS = re.compile(r"(\d+) files, (\d+) equal ones")


def sets_of(options, count):
    """The directories that hold `count` files together; made where they are missing."""
    if options.share != 1:
        return [make_set(options, "W4", count / WHOLE)]
    if count < WHOLE:
        return [make_set(options, "W4", count / WHOLE)]
    # The first by the seed of the set, 4; the others by one each.
    return [make_set(options, "W4", 1, seed) for seed in (None, 1, 2, 3)[:count // WHOLE]]


def run_once(options, directories, count):
    """Seconds and peak bytes of one run that lists all files and finds all pairs."""
    with tempfile.TemporaryDirectory(prefix="corvane-bench-") as place:
        memory = os.path.join(place, "memory")
        command = ["/usr/bin/time", "-q", "-f", "%M", "-o", memory, options.program, "--program-dir", place, *directories]
        start = time.monotonic()
        done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                              check=True, text=True)
        seconds = time.monotonic() - start
        listed = TOTALS.search(done.stderr)
        if listed is None or (options.share == 1 and int(listed[1]) != count):
            sys.exit(f"not {count} files: {done.stderr[-300:]}")
        with open(memory, encoding="ascii") as file:
            return seconds, int(file.read()) * 1024


def warm(directories):
    for directory in directories:
        for folder, _, names in os.walk(directory):
            for name in names:
                with open(os.path.join(folder, name), "rb", buffering=0) as file:
                    file.read()


def panel(left, title, unit, points, most):
    """One picture of figures over numbers of files: points, and the straight line through 0 that fits them."""
    width, height, base, top = 300, 220, 280, 60
    slope = sum(x * y for x, y in points) / sum(x * x for x, _ in points)
    at = lambda x, y: (left + width * x / STEPS[-1], base - height * y / most)
    far_x, far_y = at(STEPS[-1], slope * STEPS[-1])
    parts = [f'<text x="{left}" y="{top - 20}" class="title">{title}</text>',
             f'<path d="M{left} {top}V{base}H{left + width}" class="axis"/>',
             f'<path d="M{left} {base}L{far_x:.1f} {far_y:.1f}" class="fit"/>']
    for step in range(5):
        y = base - height * step / 4
        parts.append(f'<text x="{left - 8}" y="{y + 4:.1f}" class="value">{most * step / 4:g}</text>')
    for millions in (1, 2, 3, 4):
        x = left + width * millions * 1e6 / STEPS[-1]
        parts.append(f'<text x="{x:.1f}" y="{base + 18}" class="count">{millions}</text>')
    for x, y in points:
        px, py = at(x, y)
        if x < STEPS[-1] / 40:  # no room for its figure
            parts.append(f'<circle cx="{px:.1f}" cy="{py:.1f}" r="4"/>')
            continue
        parts.append(f'<circle cx="{px:.1f}" cy="{py:.1f}" r="4"/>')
        parts.append(f'<text x="{px:.1f}" y="{py - 9:.1f}" class="figure">{y:.3g}</text>')
    parts.append(f'<text x="{left + width / 2}" y="{base + 40}" class="count">million files; line: {slope * 1e6:.3g} '
                 f'{unit} a million</text>')
    return "\n".join(parts)


def picture(rows):
    times = [(count, seconds) for count, seconds, _ in rows]
    memory = [(count, peak / (1 << 20)) for count, _, peak in rows]
    round_up = lambda figure, step: step * -(-figure // step)
    return f"""<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 780 340" font-family="sans-serif" font-size="12">
<style>
.axis {{ fill: none; stroke: #555 }} .fit {{ stroke: #9ab; stroke-dasharray: 5 4 }} circle {{ fill: #1565c0 }}
.title {{ font-size: 15px; font-weight: bold }} .value {{ text-anchor: end }} .count {{ text-anchor: middle }}
.figure {{ fill: #1565c0; text-anchor: middle }}
</style>
<rect width="780" height="340" fill="#fff"/>
{panel(60, "Seconds", "s", times, round_up(max(y for _, y in times) * 1.1, 4))}
{panel(450, "Peak of the memory, MiB", "MiB", memory, round_up(max(y for _, y in memory) * 1.1, 100))}
</svg>
"""


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--directory", default="bench-data", help="where the sets are or are made")
    parser.add_argument("--program", default="build/bin/corvane-console")
    parser.add_argument("--runs", type=int, default=3, help="takes the median of so many runs")
    parser.add_argument("--share", type=float, default=1, help="of the numbers of files, for a trial: nothing is judged then; default 1")
    parser.add_argument("--picture", default=None, help="a file that takes the picture")
    options = parser.parse_args()
    options.program = os.path.abspath(options.program)
    options.make_sets = os.path.join(os.path.dirname(options.program), "make_sets")

    rows = []
    print(f"{'files':>10} {'seconds':>9} {'us/file':>9} {'peak MiB':>9} {'bytes/file':>10}")
    for step in STEPS:
        count = step if options.share == 1 else min(round(step * options.share), WHOLE)
        directories = sets_of(options, count)
        warm(directories)
        runs = [run_once(options, directories, count) for _ in range(options.runs)]
        seconds = statistics.median(each[0] for each in runs)
        peak = max(each[1] for each in runs)
        rows.append((count, seconds, peak))
        print(f"{count:10,} {seconds:9.2f} {1e6 * seconds / count:9.2f} {peak / (1 << 20):9.1f} {peak / count:10.0f}")
        sys.stdout.flush()
    if options.share != 1:
        return 0
    if options.picture:
        with open(options.picture, "w", encoding="utf-8") as file:
            file.write(picture(rows))
    # Linear: a file among the most costs no more than half as much again as one among a sixteenth of them.
    small, large = rows[1], rows[-1]
    grows = max(large[1] / small[1], large[2] / small[2]) / (large[0] / small[0])
    print(f"growth beyond linear: {grows:.2f} (limit 1.5); 4,000,000 files in {large[2] / (1 << 20):.0f} MiB (limit 700)")
    return 0 if grows <= 1.5 and large[2] <= 700 << 20 else 1


if __name__ == "__main__":
    sys.exit(main())
