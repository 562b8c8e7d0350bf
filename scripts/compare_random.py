#!/usr/bin/env python3
"""Compares what the builds draw of drawings made by chance, with all oddities: scripts/compare_random.py [OPTION ...]

    --count N      how many drawings, by default 500
    --seed N       the seed of the first one, by default 1; the others follow
    --builds LIST  by default linux,win-x64,win-x86

Each build converts each drawing in seven ways, in one process for many drawings. Statuses, lines, numbers of strokes and
listings of the metafiles must be the same. For a drawing that differs the seed is printed, and a shrunken drawing is written
to build/differences, with what the builds draw of it. First: scripts/build.sh BUILD hexlume_drawing_digests
"""
import argparse
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
FOLDER = ROOT / "build" / "differences"
BATCH = 100
MOST_SHRUNKEN = 3  # drawings, as each takes a minute
MOST_TRIALS = 1500


class Build:
    """A process of a build, which answers requests."""

    def __init__(self, name):
        self.name = name
        program = ROOT / "build" / name / "bin" / "hexlume_drawing_digests"
        command = [str(program)]
        if name.startswith("win"):
            wine = '. scripts/wine_environment.sh && prepare_wine >&2 && exec wine "$@"'
            command = ["bash", "-c", wine, "wine", str(program) + ".exe"]
        self.process = subprocess.Popen(command, cwd=ROOT, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.DEVNULL)

    def ask(self, request):
        self.process.stdin.write(request.encode() + b"\n")
        self.process.stdin.flush()

    def line(self):
        line = self.process.stdout.readline()
        if not line:
            sys.exit(f"{self.name}: the process has ended, with {self.process.wait()}")
        return line.decode("utf-8", "replace").rstrip("\r\n")

    def path(self, path):
        return ("Z:" if self.name.startswith("win") else "") + str(path)

    def digest(self, path):
        self.ask("file " + self.path(path))
        return self.line().split(" ")[1:]

    def listing(self, way, path):
        self.ask(f"list {way} {self.path(path)}")
        lines = []
        while (line := self.line()) != "end":
            lines.append(line)
        return lines


def groups_of(drawing):
    lines = drawing.splitlines(keepends=True)
    return [b"".join(lines[i:i + 2]) for i in range(0, len(lines), 2)]


def differ(builds, drawing):
    """The ways in which the builds differ, by number."""
    path = FOLDER / "trial.dxf"
    path.write_bytes(drawing)
    digests = [build.digest(path) for build in builds]
    return [way for way, answers in enumerate(zip(*digests)) if len(set(answers)) > 1]


def shrunken(builds, drawing):
    """The fewest groups with which the builds still differ: without one half, one quarter and so on, as long as it helps."""
    groups = groups_of(drawing)
    size = max(len(groups) // 2, 1)
    trials = 0
    while trials < MOST_TRIALS:
        helped = False
        start = 0
        while start < len(groups) and trials < MOST_TRIALS:
            fewer = groups[:start] + groups[start + size:]
            trials += 1
            if fewer and differ(builds, b"".join(fewer)):
                groups = fewer
                helped = True
            else:
                start += size
        if size == 1 and not helped:
            break
        size = max(size // 2, 1)
    return b"".join(groups)


def report(builds, seed):
    original = FOLDER / f"{seed}.dxf"
    builds[0].ask(f"write {seed} {builds[0].path(original)}")
    builds[0].line()
    drawing = original.read_bytes()
    ways = differ(builds, drawing)
    print(f"seed {seed}: the builds differ in the ways {ways}: {original}")
    if not ways:
        print("  but not when it is read from a file")
        return
    small = FOLDER / f"{seed}-shrunken.dxf"
    small.write_bytes(shrunken(builds, drawing))
    way = differ(builds, small.read_bytes())[0]
    print(f"  shrunken, way {way}: {small}")
    print("    " + small.read_bytes().decode("cp932", "replace").replace("\r", "").replace("\n", " | "))
    listings = [build.listing(way, small) for build in builds]
    for number, lines in enumerate(zip(*listings)):
        if len(set(lines)) > 1:
            for build, line in zip(builds, lines):
                print(f"    {build.name}: line {number + 1}: {line[:200]}")
            return
    for build, lines in zip(builds, listings):
        print(f"    {build.name}: {len(lines)} lines")


def main():
    parser = argparse.ArgumentParser(usage=__doc__)
    parser.add_argument("--count", type=int, default=500)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--builds", default="linux,win-x64,win-x86")
    options = parser.parse_args()
    FOLDER.mkdir(parents=True, exist_ok=True)
    builds = [Build(name) for name in options.builds.split(",")]
    different = []
    statuses = {}
    end = options.seed + options.count
    for first in range(options.seed, end, BATCH):
        count = min(BATCH, end - first)
        answers = []
        for build in builds:  # one after the other, so that one processor is busy
            build.ask(f"odd {first} {count}")
            answers.append([build.line() for _ in range(count)])
        for lines in zip(*answers):
            for digest in lines[0].split(" ")[1:]:
                status = digest.split(":")[0]
                statuses[status] = statuses.get(status, 0) + 1
            if len(set(lines)) > 1:
                different.append(int(lines[0].split(" ")[0]))
                print(f"seed {different[-1]} differs", flush=True)
        if (first + count - options.seed) % 1000 == 0:
            print(f"{first + count - options.seed} drawings, {len(different)} differ", flush=True)
    for seed in different[:MOST_SHRUNKEN]:
        report(builds, seed)
    print(f"{options.count} drawings from seed {options.seed}, {', '.join(build.name for build in builds)}: "
          f"{len(different)} differ; statuses: {statuses}")
    for build in builds:
        build.process.stdin.close()
    return 1 if different else 0


if __name__ == "__main__":
    sys.exit(main())
