#!/usr/bin/env python3
"""Converts drawings and fails if one takes more than 10 s of a processor or 1 GB: scripts/check_bounds.py [OPTION...] TOOL PATH...

A PATH is a drawing or a folder of drawings; scripts/worst_drawings.py makes the worst ones that are known. Each is
converted in all the ways below, or in those of --ways. Seconds are those of a processor, not of the clock, so other work
hardly matters; it can be run with nice. With --results FILE each result is kept in this file, and what it has isn't measured again.

A TOOL whose name ends in .exe is run through Wine, and has the ways that Windows has. build/web/tests/convert_once.mjs is the web
build in Node, which has those of its library."""
import argparse
import collections
import hashlib
import os
import resource
import shutil
import subprocess
import sys
import tempfile

MOST_SECONDS = 10
MOST_MEGABYTES = 1024
STOP_SECONDS = 20  # of a processor
STOP_BYTES = 8_000_000_000

# The options of the tool. As it is: through the nine exports, else through the host library.
WAYS = {
    "emf": ["--to", "emf"],
    "full": ["--to", "emf", "--full-size", "--mono"],
    "png": ["--to", "png"],
    "svg": ["--to", "svg"],
    "pdf": ["--to", "pdf"],
    "list": ["--list", "--to", "emf"],
    "fit": ["--to", "emf", "--fit"],
    "turned": ["--to", "emf", "--rotate"],
    "view": ["--to", "emf", "--view", "1000,2000,15000,12000", "--whole-text"],
    "dialogs": ["--to", "emf", "--half-width", "--dialogs=2"],
    "hidden": ["--to", "emf", "--hide-layer", "none", "--hide-line-type", "chain", "--scale", "3"],
    "as-is": ["--format", "as-is", "--to", "emf"],
    "as-is-full": ["--format", "as-is", "--to", "emf", "--full-size"],
    "as-is-turned": ["--format", "as-is", "--to", "emf", "--rotate"],
    "report": ["--to", "emf", "--report", os.devnull],
    "svg-text": ["--to", "svg", "--svg-text"],
    "png-full": ["--to", "png", "--full-size"],
    "svg-full": ["--to", "svg", "--full-size"],
    "pdf-full": ["--to", "pdf", "--full-size"],
    "png-300": ["--to", "png", "--dpi", "300"],
    "book": ["--pdf-book", "book.pdf"],
    "all": ["--to", "emf,png,svg,pdf", "--rotate"],
}
WAYS_OF_WINDOWS = [way for way in WAYS if not way.startswith(("svg", "pdf", "book", "all"))]
WAYS_OF_WEB = ["emf", "full", "fit", "turned", "view", "hidden", "as-is", "as-is-full", "as-is-turned"]
# More dots or more results than a single picture at 96 dots per inch may take more: they are measured, but not judged.
UNJUDGED_WAYS = ["png-300", "all"]

Result = collections.namedtuple("Result", "seconds megabytes code said")


def limit_child(has_memory_limit):
    resource.setrlimit(resource.RLIMIT_CPU, (STOP_SECONDS, STOP_SECONDS + 1))
    if has_memory_limit:
        resource.setrlimit(resource.RLIMIT_AS, (STOP_BYTES, STOP_BYTES))


def is_windows(tool):
    return tool.endswith(".exe")


def is_web(tool):
    return tool.endswith(".mjs")


def ways_of(tool):
    return WAYS_OF_WINDOWS if is_windows(tool) else WAYS_OF_WEB if is_web(tool) else list(WAYS)


def wine_loader(tool):
    """The loader that becomes the process of the program. The other one would start it as a process of its own."""
    with open(tool, "rb") as file:
        file.seek(0x3C)
        file.seek(int.from_bytes(file.read(4), "little") + 4)
        is_64_bit = file.read(2) == b"\x64\x86"
    return shutil.which("wine64" if is_64_bit else "wine", path=os.environ["PATH"] + ":/usr/lib/wine")


def environment_of(tool):
    """That of scripts/wine_environment.sh for a Windows program."""
    if not is_windows(tool):
        return None
    script = os.path.join(os.path.dirname(os.path.abspath(__file__)), "wine_environment.sh")
    command = ["bash", "-c", '. "$0" && prepare_wine >&2 && env -0', script]
    output = subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout
    return dict(row.split(b"=", 1) for row in output.split(b"\0") if row)


def run(tool, drawing, way, folder, environment=None):
    """Converts a drawing in the folder."""
    command = [os.path.abspath(tool), "-d", ".", *WAYS[way], os.path.abspath(drawing)]
    if is_web(tool):
        command = ["node", os.path.abspath(tool), way, os.path.abspath(drawing)]
    elif is_windows(tool):
        command = [wine_loader(tool), *command[:-1], "Z:" + command[-1]]
    with tempfile.TemporaryFile() as messages:
        child = subprocess.Popen(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=messages, env=environment,
                                 preexec_fn=lambda: limit_child(not is_windows(tool) and not is_web(tool)))
        _, status, usage = os.wait4(child.pid, 0)
        messages.seek(0)
        said = messages.read().decode("utf-8", "replace").strip().splitlines()
    code = os.waitstatus_to_exitcode(status)
    return Result(usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024, code, said[-1] if said else "")


def drawings_in(paths):
    for path in paths:
        if not os.path.isdir(path):
            yield path
            continue
        for name in sorted(os.listdir(path)):
            if name.endswith(".dxf"):
                yield os.path.join(path, name)


def name_of(drawing):
    return os.path.basename(drawing)[:-4]


def is_over(way, result):
    return way not in UNJUDGED_WAYS and (result.seconds > MOST_SECONDS or result.megabytes > MOST_MEGABYTES)


class Results:
    """What was measured, by the content of a drawing and the way."""

    def __init__(self, path):
        self.path, self.rows = path, {}
        if path and os.path.exists(path):
            with open(path, encoding="utf-8") as file:
                for row in file:
                    content, way, seconds, megabytes, code, said = row.rstrip("\n").split("\t")
                    self.rows[content, way] = Result(float(seconds), float(megabytes), int(code), said)

    def add(self, content, way, result):
        self.rows[content, way] = result
        if self.path:
            with open(self.path, "a", encoding="utf-8") as file:
                file.write("\t".join(str(part) for part in (content, way, *result)) + "\n")


def content_of(drawing):
    with open(drawing, "rb") as file:
        return hashlib.sha256(file.read()).hexdigest()[:16]


def measure_all(arguments, drawings, ways, results):
    environment = environment_of(arguments.tool)
    for way in ways:
        for drawing in drawings:
            content = content_of(drawing)
            if (content, way) in results.rows:
                continue
            with tempfile.TemporaryDirectory() as folder:
                result = run(arguments.tool, drawing, way, folder, environment)
            said = result.said.replace(os.path.abspath(drawing), "").replace("\t", " ")
            result = result._replace(said=said)
            results.add(content, way, result)
            print(f"{'OVER' if is_over(way, result) else '    '} {name_of(drawing):32} {way:12} {result.seconds:6.2f} s"
                  f" {result.megabytes:6.0f} MB {result.code:4} {said[:70]}", flush=True)


def print_table(drawings, ways, results):
    """The worst of each way, and of each drawing."""
    contents = {content_of(drawing): drawing for drawing in drawings}
    rows = [(contents[content], way, result) for (content, way), result in results.rows.items()
            if content in contents and way in ways]
    print("\n| way | conversions | most seconds | | most MB | |\n|---|---|---|---|---|---|")
    for way in ways:
        own = [row for row in rows if row[1] == way]
        if not own:
            continue
        slowest, largest = max(own, key=lambda row: row[2].seconds), max(own, key=lambda row: row[2].megabytes)
        print(f"| {way} | {len(own)} | {slowest[2].seconds:.1f} | {name_of(slowest[0])} "
              f"| {largest[2].megabytes:.0f} | {name_of(largest[0])} |")
    over = [row for row in rows if is_over(row[1], row[2])]
    print(f"\n{len(contents)} drawings, {len(rows)} conversions, {len(over)} beyond {MOST_SECONDS} s or {MOST_MEGABYTES} MB")
    for drawing, way, result in over:
        print(f"OVER {name_of(drawing)} {way}: {result.seconds:.2f} s, {result.megabytes:.0f} MB")
    return len(over)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--ways", help="comma-separated, of " + ", ".join(WAYS))
    parser.add_argument("--results", help="a file that keeps the results")
    parser.add_argument("tool")
    parser.add_argument("paths", nargs="+")
    arguments = parser.parse_args()
    ways = arguments.ways.split(",") if arguments.ways else ways_of(arguments.tool)
    drawings = list(drawings_in(arguments.paths))
    results = Results(arguments.results)
    measure_all(arguments, drawings, ways, results)
    sys.exit(1 if print_table(drawings, ways, results) else 0)


if __name__ == "__main__":
    main()
