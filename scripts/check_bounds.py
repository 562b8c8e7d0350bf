#!/usr/bin/env python3
"""Converts drawings and fails if one takes more than 10 s of a processor or 1 GB: scripts/check_bounds.py [OPTION...] TOOL PATH...

A PATH is a drawing or a folder of drawings; scripts/worst_drawings.py makes the worst ones that are known. Each is
converted in all the ways below. The table has seconds of a processor, not of the clock, so other work doesn't matter."""
import argparse
import os
import resource
import subprocess
import sys
import tempfile

MOST_SECONDS = 10
MOST_MEGABYTES = 1024
STOP_SECONDS = 20  # of a processor
STOP_BYTES = 8_000_000_000

WAYS = {
    "emf": ["--to", "emf"],
    "turned": ["--to", "emf", "--rotate"],
    "full": ["--to", "emf", "--full-size", "--half-width"],
    "host": ["--to", "emf", "--fit"],
    "report": ["--to", "emf", "--report", os.devnull],
    "png": ["--to", "png"],
    "svg": ["--to", "svg"],
    "list": ["--list", "--to", "emf"],
    "pdf": ["--to", "pdf"],
    "all": ["--to", "emf,png,svg,pdf", "--rotate"],
}


def limit_child():
    resource.setrlimit(resource.RLIMIT_CPU, (STOP_SECONDS, STOP_SECONDS + 1))
    resource.setrlimit(resource.RLIMIT_AS, (STOP_BYTES, STOP_BYTES))
    os.nice(19 - os.nice(0))


def run(tool, drawing, way, folder):
    """Seconds, megabytes, exit status and the last line of the messages."""
    command = [tool, "-d", folder, *WAYS[way], drawing]
    with tempfile.TemporaryFile() as messages:
        child = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=messages, preexec_fn=limit_child)
        _, status, usage = os.wait4(child.pid, 0)
        messages.seek(0)
        said = messages.read().decode("utf-8", "replace").strip().splitlines()
    code = os.waitstatus_to_exitcode(status)
    return usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024, code, said[-1] if said else ""


def drawings_in(paths):
    for path in paths:
        if not os.path.isdir(path):
            yield path
            continue
        for name in sorted(os.listdir(path)):
            if name.endswith(".dxf"):
                yield os.path.join(path, name)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("--ways", default=",".join(WAYS), help="comma-separated, of " + ", ".join(WAYS))
    parser.add_argument("tool")
    parser.add_argument("paths", nargs="+")
    arguments = parser.parse_args()
    failed = 0
    for drawing in drawings_in(arguments.paths):
        for way in arguments.ways.split(","):
            with tempfile.TemporaryDirectory() as folder:
                seconds, megabytes, code, said = run(arguments.tool, drawing, way, folder)
            is_over = seconds > MOST_SECONDS or megabytes > MOST_MEGABYTES
            failed += is_over
            name = os.path.basename(drawing)[:-4]
            words = said.replace(drawing, "")[:90]
            print(f"{'OVER' if is_over else '    '} {name:32} {way:7} {seconds:6.2f} s {megabytes:6.0f} MB"
                  f" {code:4} {words}", flush=True)
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
