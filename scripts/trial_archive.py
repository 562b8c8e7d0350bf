#!/usr/bin/env python3
"""Tries the tool on an archive: many drawings in folders with Japanese names, some of them broken.

    scripts/trial_archive.py [--drawings N] [--folder DIR] TOOL
    scripts/trial_archive.py [--drawings N] [--folder DIR] --wine TOOL.exe

It starts the tool three times with two workers. In the first run it kills a worker and later the tool, in the second one
all processes at once; the third run goes on to the end. Then each drawing must be in the report once, with the status that
it should have, and each result must be whole and the same as that of a single conversion. A fourth run must find that
nothing has changed. DIR, by default a new folder, is removed at the end unless something is wrong.
"""
import argparse
import collections
import gzip
import json
import os
import pathlib
import random
import shutil
import signal
import struct
import subprocess
import sys
import tempfile
import time
import zlib

ROOT = pathlib.Path(__file__).resolve().parent.parent
COORDINATES = range(10, 38)
FOLDERS = ["図面", "図面/部品", "図面/部品/ソ表 予定", "組立図 2026", "組立図 2026/旧", "Ω", "plain"]
REPORT = "report.jsonl"
OUT = "out"
IN = "図面庫"

# The bytes of a broken drawing from those of a sound one, and the status that it must get.
BROKEN = [
    (lambda sound: b"", "empty"),
    (lambda sound: b"AC1015\0\0\0\0\0\0" + random.randbytes(20000), "dwg"),
    (lambda sound: b"AutoCAD Binary DXF\r\n\x1a\0" + random.randbytes(20000), "binary-dxf"),
    (lambda sound: gzip.compress(sound), "compressed"),
    (lambda sound: b"PK\x03\x04\x14\0\0\0\x08\0" + zlib.compress(sound), "compressed"),
    (lambda sound: random.randbytes(20000), "no-dxf"),
    (lambda sound: "議事録\n".encode() * 500, "no-dxf"),
]


class Failed(Exception):
    pass


def require(condition, message):
    if not condition:
        raise Failed(message)


def changed(drawing):
    """The drawing with other coordinates."""
    lines = drawing.split(b"\n")
    for at in range(0, len(lines) - 1, 2):
        try:
            if int(lines[at]) in COORDINATES:
                number = float(lines[at + 1]) + random.uniform(-1, 1)
                lines[at + 1] = b"%.6f" % number + (b"\r" if lines[at + 1].endswith(b"\r") else b"")
        except ValueError:
            pass
    return b"\n".join(lines)


class Trial:
    def __init__(self, tool, wine, folder, count):
        self.command = [str(ROOT / "scripts" / "wine.sh"), str(tool)] if wine else [str(tool)]
        self.wine = wine
        self.program = pathlib.Path(tool).name
        self.folder = folder
        self.count = count
        self.expected = {}  # status of each path

    # The archive.

    def sources(self):
        """Drawings of the repository that the tool converts."""
        files = [*ROOT.glob("examples/*.dxf"), *ROOT.glob("tests/drawings/*/*.dxf")]
        place = self.folder / "sources"
        (place / OUT).mkdir(parents=True)
        for number, file in enumerate(sorted(files)):
            shutil.copy(file, place / f"{number}.dxf")
        process = subprocess.run(
            [*self.command, "-d", OUT, "--recursive", ".", "--report", REPORT, "--quiet"],
            cwd=place, stderr=subprocess.DEVNULL, check=False)
        require(process.returncode < 64, f"the sources gave status {process.returncode}")
        sound = [line["path"] for line in report_in(place / REPORT) if line["status"] == "ok" and not line["remarks"]]
        drawings = [(place / path).read_bytes() for path in sorted(sound)]
        shutil.rmtree(place)
        return drawings

    def make(self):
        sources = self.sources()
        for number in range(self.count):
            drawing = changed(sources[number % len(sources)])
            status = "ok"
            if number % 100 == 50:
                breaks, status = BROKEN[number // 100 % len(BROKEN)]
                drawing = breaks(drawing)
            path = f"{IN}/{FOLDERS[number % len(FOLDERS)]}/第{number}図.{'DXF' if number % 3 == 0 else 'dxf'}"
            (self.folder / path).parent.mkdir(parents=True, exist_ok=True)
            (self.folder / path).write_bytes(drawing)
            self.expected[path] = status
        (self.folder / OUT).mkdir()
        return len(sources)

    # Processes.

    def start(self):
        return subprocess.Popen(
            [*self.command, "-d", OUT, "--jobs", "2", "--recursive", IN, "--skip-unchanged", "--report", REPORT, "--quiet"],
            cwd=self.folder, stderr=subprocess.DEVNULL)

    def processes(self):
        """The numbers of the tool's process and of its workers, also under Wine."""
        tools, workers = [], []
        for entry in pathlib.Path("/proc").iterdir():
            if not entry.name.isdigit():
                continue
            try:
                words = (entry / "cmdline").read_bytes().split(b"\0")
                here = os.readlink(entry / "cwd") == str(self.folder)
                ended = (entry / "stat").read_text().rsplit(")", 1)[1].split()[0] == "Z"
            except OSError:
                continue
            if not here or ended or not any(self.program.encode() in word or word == b"hexlume" for word in words[:2]):
                continue
            (workers if b"--worker" in words else tools).append(int(entry.name))
        return tools, workers

    def wait_for_lines(self, process, lines):
        while process.poll() is None and lines_in(self.folder / REPORT) < lines:
            time.sleep(0.002)
        return process.poll() is None

    def wait_for_end(self):
        for _ in range(500):
            if not any(self.processes()):
                return
            time.sleep(0.02)
        raise Failed("processes are left 10 seconds after the tool was killed")

    def kill_worker_and_tool(self):
        process = self.start()
        if not self.wait_for_lines(process, self.count // 8):
            return False
        kill(self.processes()[1][:1])
        if not self.wait_for_lines(process, self.count // 3):
            return False
        kill(self.processes()[0])
        process.wait()
        self.wait_for_end()
        return True

    def kill_all(self):
        process = self.start()
        if not self.wait_for_lines(process, self.count * 2 // 3):
            return False
        kill(sum(self.processes(), []))
        process.wait()
        self.wait_for_end()
        return True

    def kill_runs(self):
        """False if a run has ended before it could be killed."""
        for killed in (self.kill_worker_and_tool, self.kill_all):
            (self.folder / REPORT).unlink(missing_ok=True)
            if not killed():
                return False
            self.check_whole()
            say(f"killed: {lines_in(self.folder / REPORT)} drawings reported, {len(self.results())} results, all whole")
        return True

    # What must be there.

    def results(self):
        return {path.relative_to(self.folder).as_posix(): path for path in (self.folder / OUT).rglob("*.emf")}

    def check_whole(self):
        for name, path in self.results().items():
            require(is_whole(path.read_bytes()), f"{name} isn't whole")

    def check_report(self, unchanged):
        lines = report_in(self.folder / REPORT)
        counts = collections.Counter(line["path"] for line in lines)
        require(set(counts) == set(self.expected), "the report doesn't have the drawings of the archive")
        require(max(counts.values()) == 1, "a drawing is more than once in the report")
        for line in lines:
            require(line["status"] == self.expected[line["path"]],
                    f"{line['path']} is {line['status']}, not {self.expected[line['path']]}")
        number = sum(line["unchanged"] for line in lines)
        require(number >= unchanged, f"{number} drawings are unchanged, not at least {unchanged}")
        return lines, number

    def check_results(self, lines):
        """Each sound drawing has its result, and nothing else is there."""
        results = self.results()
        named = {output["path"]: output["size"] for line in lines for output in line["outputs"]}
        wanted = {OUT + path[len(IN):].rsplit(".", 1)[0] + ".emf" for path, status in self.expected.items() if status == "ok"}
        require(set(named) == wanted, "the report doesn't name the results of the sound drawings")
        require(set(results) == wanted, "there are other results than those of the sound drawings")
        for name, path in results.items():
            require(path.stat().st_size == named[name], f"the size of {name} isn't that of the report")
        left = [path for path in (self.folder / OUT).rglob("*") if path.is_file() and path.suffix != ".emf"]
        require([path.name for path in left] == [".hexlume-state"], f"files are left: {left}")

    def check_samples(self, lines):
        sound = [line for line in lines if line["status"] == "ok"]
        for line in random.sample(sound, min(len(sound), 20 if self.wine else 100)):
            subprocess.run([*self.command, "--quiet", line["path"], "single.emf"], cwd=self.folder, check=True)
            single = (self.folder / "single.emf").read_bytes()
            other = (self.folder / line["outputs"][0]["path"]).read_bytes()
            if self.wine:
                single, other = without_fonts(single), without_fonts(other)
            require(single == other, f"{line['path']} differs alone")

    def run(self):
        begun = time.monotonic()
        sources = self.make()
        say(f"{self.count} drawings from {sources} in {time.monotonic() - begun:.0f} s")
        attempts = 5
        while not self.kill_runs():
            attempts -= 1
            require(attempts, "the runs end before they can be killed: take more drawings")
            shutil.rmtree(self.folder / OUT)
            (self.folder / OUT).mkdir()
        begun = time.monotonic()
        status = self.start().wait()
        seconds = time.monotonic() - begun
        require(status in range(35, 40), f"the last run gave status {status}")
        lines, unchanged = self.check_report(unchanged=self.count // 4)
        self.check_whole()
        self.check_results(lines)
        say(f"the third run: {unchanged} unchanged, {len(lines) - unchanged} converted in {seconds:.1f} s, "
            f"{len(self.results())} results, each drawing once in the report")
        self.check_samples(lines)
        begun = time.monotonic()
        self.start().wait()
        sound = sum(status == "ok" for status in self.expected.values())
        lines, _ = self.check_report(unchanged=sound)
        self.check_results(lines)
        say(f"the fourth run: all {sound} sound drawings unchanged, in {time.monotonic() - begun:.1f} s")


def kill(processes):
    for process in processes:
        try:
            os.kill(process, signal.SIGKILL)
        except ProcessLookupError:
            pass


def lines_in(path):
    return path.read_bytes().count(b"\n") if path.exists() else 0


def report_in(path):
    text = path.read_text(encoding="utf-8")
    require(text.endswith("\n"), "the last line of the report isn't whole")
    return [json.loads(line) for line in text.splitlines()]


def is_whole(metafile):
    """A header with the size of the file, and the record of the end."""
    return (len(metafile) >= 108 and struct.unpack_from("<I", metafile)[0] == 1 and
            struct.unpack_from("<I", metafile, 48)[0] == len(metafile) and
            struct.unpack_from("<II", metafile, len(metafile) - 20) == (14, 20))


def without_fonts(metafile):
    """Without the records of fonts, in which Windows leaves bytes as they were in memory."""
    font = 82
    records, at = [], 0
    while at < len(metafile):
        kind, size = struct.unpack_from("<II", metafile, at)
        if kind != font:
            records.append(metafile[at:at + size])
        at += size
    return records


def say(text):
    print(text, flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tool")
    parser.add_argument("--drawings", type=int, default=10000)
    parser.add_argument("--folder", type=pathlib.Path)
    parser.add_argument("--wine", action="store_true", help="TOOL is a Windows program")
    options = parser.parse_args()
    random.seed(1)
    folder = options.folder or pathlib.Path(tempfile.mkdtemp(prefix="hexlume-trial-"))
    folder.mkdir(parents=True, exist_ok=True)
    trial = Trial(pathlib.Path(options.tool).resolve(), options.wine, folder.resolve(), options.drawings)
    try:
        trial.run()
    except Failed as failure:
        say(f"failed: {failure}; see {folder}")
        return 1
    shutil.rmtree(folder)
    return 0


if __name__ == "__main__":
    sys.exit(main())
