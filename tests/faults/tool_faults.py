#!/usr/bin/env python3
"""Lets each call of a kind fail once, in turn, in the tools: tool_faults.py [--sample] BUILD [SCENARIO ...]

BUILD is a build folder such as build/linux. Each command is run with its first call of a kind failing, then with its second, and
so on. It must end with a status that fits, each output must be the earlier file or the whole new one, no file may be left
besides, and the next run must give what a run without a failure gives. A place is a call with its four nearest callers. Of a
place in our own code the first ten calls, the last one and each 20th fail in turn, of one in another library the first one, the
last one and each 20th. A signal may end a process only within such a library. Then the command is killed at each of its writes.
--sample takes a few calls of each kind. Last come conditions of a whole run: a full disk, a missing font and the like.
"""
import collections
import os
import pty
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
from pathlib import Path

SOURCE = Path(__file__).resolve().parents[2]
KINDS = ["memory", "write", "read", "open", "close", "rename", "sync", "font", "process", "module"]
# Statuses that may be given besides 0: those of hexlume --help and hexlume-batch --help.
FITTING = {
    "memory": {2, 11, 30, 32, 33, 34, 45, 47, 48, 73, 74},
    "write": {48, 73},
    "read": {2, 30, 34, 35, 47, 48, 73, 74},
    "open": {2, 11, 30, 32, 34, 47, 48, 73, 74},
    "close": {73},
    "rename": {73},
    "sync": {73},
    "font": {11, 47, 73},
    "process": {48, 69, 73},
    "module": {47, 73},
}
OLD = b"an earlier result"
# Its metafile goes to the file in two pieces while it is drawn.
LARGE = ("0\nSECTION\n2\nHEADER\n9\n$LIMMIN\n10\n0\n20\n0\n9\n$LIMMAX\n10\n420\n20\n297\n0\nENDSEC\n"
         "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nB\n10\n0\n20\n0\n" + "0\nLINE\n10\n1\n20\n2\n11\n3\n21\n4\n" * 1000 + "0\nENDBLK\n0\nENDSEC\n"
         "0\nSECTION\n2\nENTITIES\n" + "0\nINSERT\n2\nB\n10\n0\n20\n0\n" * 20 + "0\nENDSEC\n0\nEOF\n")


def is_ours(owner):
    return owner == "program" or "hexlume" in owner


class Scenario:
    def __init__(self, name, command, outputs, setup=None, volatile=(), failures=None, again=None,
                 incomplete=()):
        self.name = name
        self.command = command      # a list of commands, run one after the other in the folder; the last one is tested
        self.outputs = outputs      # files that are whole or as they were
        self.setup = setup or []
        self.failures = failures    # a command that lists what has failed, below a heading
        self.incomplete = incomplete  # outputs that hold what could be converted
        self.again = again          # a command that is run before the next run
        self.volatile = volatile    # beginnings of names of files whose contents differ in each run


def scenarios(tool, batch):
    chunk = [batch, "chunk", "plan", "1", "--jobs", "1"]
    return [
        Scenario("one drawing", [tool, "TEXT.dxf", "out/TEXT.emf"], ["out/TEXT.emf"]),
        Scenario("a large drawing", [tool, "LARGE.dxf", "out/LARGE.emf"], ["out/LARGE.emf"]),
        Scenario("fitted, through a link", [tool, "--fit", "TEXT.dxf", "link.emf"], ["out/TEXT.emf"]),
        Scenario("its pictures", [tool, "--fit", "TEXT.dxf", "out/a.emf", "--png", "out/a.png", "--svg", "out/a.svg", "--pdf",
                                  "out/a.pdf"], ["out/a.emf", "out/a.png", "out/a.svg", "out/a.pdf"]),
        Scenario("workers", [tool, "-d", "out", "--jobs", "1", "--time-limit", "30", "--skip-unchanged", "POINT.dxf", "TEXT.dxf", "--to", "emf,png"],
                 ["out/POINT.emf", "out/TEXT.emf", "out/POINT.png", "out/TEXT.png"], volatile=("out/.hexlume-state",)),
        Scenario("a book", [tool, "-d", "out", "--jobs", "1", "--time-limit", "30", "--pdf-book", "out/book.pdf", "POINT.dxf", "PART.dxf"],
                 ["out/POINT.emf", "out/PART.emf", "out/book.pdf"], volatile=("out/.hexlume-state",), incomplete=("out/book.pdf",)),
        Scenario("plan", [batch, "plan", "in", "--out", "plan", "--jobs", "2", "--time-limit", "30"], [], volatile=("plan",)),
        Scenario("chunk", chunk, ["plan/out/POINT.emf", "plan/out/PART.emf"],
                 setup=[[batch, "plan", "in", "--out", "plan", "--jobs", "1", "--time-limit", "30"]],
                 failures=[batch, "report", "plan", "--failed"], again=[batch, "retry", "plan", "--failed"],
                 volatile=("plan/results", "plan/plan.db", "plan/tmp")),
    ]


class Trial:
    def __init__(self, build, is_sample):
        self.build = Path(build).resolve()
        self.injector = self.build / "lib" / "libhexlume_faults.so"
        self.is_sample = is_sample
        self.root = Path(tempfile.mkdtemp(prefix="hexlume-faults-"))
        self.wrong = 0
        self.runs = 0
        self.ended = self.others = 0
        self.owners = {}
        self.proven = {}  # states of the folder from which a run is known to give what it should

        os.environ["FONTCONFIG_FILE"] = self.own_fonts()

    def own_fonts(self):
        """The system's fonts with a cache of our own: a failing call may write one, or keep one locked."""
        folder = self.root / "fonts"
        folder.mkdir()
        config = folder / "fonts.conf"
        config.write_text(f"<fontconfig><cachedir>{folder}/cache</cachedir><include>/etc/fonts/fonts.conf</include></fontconfig>")
        subprocess.run(["fc-cache"], env=dict(os.environ, FONTCONFIG_FILE=str(config)), check=True)
        return str(config)

    def complain(self, words):
        self.wrong += 1
        print(words, flush=True)

    def fresh(self, scenario, with_old=True):
        """A folder with the drawings, and earlier results in the places of the outputs."""
        folder = self.root / "work"
        shutil.rmtree(folder, ignore_errors=True)
        (folder / "in").mkdir(parents=True)
        (folder / "out").mkdir()
        for name in ["TEXT.dxf", "POINT.dxf", "PART.dxf"]:
            shutil.copy(SOURCE / "examples" / name, folder / name)
        for name in ["POINT.dxf", "PART.dxf"]:
            shutil.copy(SOURCE / "examples" / name, folder / "in" / name)
        (folder / "LARGE.dxf").write_text(LARGE)
        os.symlink("out/TEXT.emf", folder / "link.emf")
        for command in scenario.setup:
            subprocess.run(command, cwd=folder, check=True, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
        if with_old:
            for output in scenario.outputs:
                (folder / output).parent.mkdir(parents=True, exist_ok=True)
                (folder / output).write_bytes(OLD)
        return folder

    def run(self, scenario, folder, fault=None, calls=None, before=None):
        variables = dict(os.environ)
        if fault:
            variables["LD_PRELOAD"] = str(self.injector)
            variables["HEXLUME_FAULT"] = fault
            if calls:
                variables["HEXLUME_FAULT_CALLS"] = str(calls)
        self.runs += 1
        process = subprocess.Popen(scenario.command, cwd=folder, env=variables, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, preexec_fn=before, start_new_session=True)
        # A process that waits for ever says where.
        for signal_sent in [signal.SIGABRT, signal.SIGKILL]:
            try:
                words = self.words_of(process)
                return process.returncode, words
            except subprocess.TimeoutExpired:
                process.send_signal(signal_sent)
        process.communicate()
        return None, b""

    @staticmethod
    def words_of(process):
        """What it says until its end, however busy the machine is: 40 seconds in which it and its workers have nothing to do, or
        ten minutes, are too long."""
        for _ in range(30):
            try:
                return process.communicate(timeout=40)[1]
            except subprocess.TimeoutExpired as expired:
                listed = subprocess.run(["ps", "-o", "state=", "-g", str(process.pid)], stdout=subprocess.PIPE).stdout
                if not set(listed.decode().split()) & {"R", "D"}:
                    raise
                last = expired
        raise last

    def files(self, scenario, folder):
        """All files with their bytes, but those that differ in each run."""
        found = {}
        for path in sorted(folder.rglob("*")):
            name = str(path.relative_to(folder))
            if path.is_file() and not name.startswith(scenario.volatile or ("\0",)):
                found[name] = path.read_bytes()
        return found

    def calls(self, scenario, kind):
        """For each process of the command the calls of the kind: (place, owner)."""
        folder = self.fresh(scenario)
        records = self.root / "calls"
        shutil.rmtree(records, ignore_errors=True)
        records.mkdir()
        self.run(scenario, folder, kind + ":0", records)
        processes = []
        for path in records.iterdir():
            calls = []
            with open(path, "rb") as file:
                while (record := file.read(32))[:8].strip(b"\0"):
                    calls.append((record[:8], record[8:].rstrip(b"\0").decode()))
            processes.append(calls)
        return processes

    def chosen(self, processes):
        """The numbers of the calls that fail."""
        numbers, self.owners = set(), collections.defaultdict(set)
        for calls in processes:
            last, seen = {}, collections.Counter()
            for number, (place, owner) in enumerate(calls, 1):
                self.owners[number].add(owner)
                last[place] = number
                seen[place] += 1
                if seen[place] <= (10 if is_ours(owner) else 1) or seen[place] % 20 == 0:
                    numbers.add(number)
            numbers.update(last.values())
        return self.places(max(map(len, processes), default=0), 3) if self.is_sample else sorted(numbers)

    @staticmethod
    def places(most, few):
        if most <= few:
            return range(1, most + 1)
        return sorted({1 + i * (most - 1) // (few - 1) for i in range(few)})

    def check_outputs(self, what, scenario, before, expected, folder, left_allowed=(), may_differ=False):
        """Returns the outputs that differ where they may."""
        now = self.files(scenario, folder)
        others = set()
        for name, contents in now.items():
            if name in scenario.incomplete:
                continue
            if name in before or name in expected:
                if contents not in (before.get(name), expected.get(name)):
                    others.add(name)
                    if not may_differ:
                        self.complain(f"{what}: {name} is neither the earlier file nor the whole new one")
            elif not name.endswith(left_allowed or "\0"):
                self.complain(f"{what}: {name} is left")
        for name in before:
            if name not in now:
                self.complain(f"{what}: {name} is gone")
        return others if may_differ else set()

    def check_next(self, what, scenario, folder, expected, may_stay=False, others=frozenset()):
        """may_stay: a plain conversion doesn't look for what a process that has been ended has left. others: outputs that --skip-unchanged
        leaves as they are."""
        if may_stay:
            for path in folder.rglob(".hexlume-*.tmp"):
                path.unlink()
        if not scenario.volatile:
            state = frozenset(self.files(scenario, folder).items())
            if state in self.proven.setdefault(scenario.name, set()):
                return
        wrong_before = self.wrong
        self.run_next(what, scenario, folder, expected, others)
        if not scenario.volatile and self.wrong == wrong_before:
            self.proven[scenario.name].add(state)

    def run_next(self, what, scenario, folder, expected, others):
        if scenario.again:
            subprocess.run(scenario.again, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL)
        status, words = self.run(scenario, folder)
        if b"there is a plan already" in words:
            return
        if status != 0:
            self.complain(f"{what}: the next run gives {status}: {words.decode(errors='replace').strip()}")
            return
        now = self.files(scenario, folder)
        for name in set(now) ^ set(expected):
            self.complain(f"{what}: after the next run {name} is there or missing")
        for name in set(now) & set(expected):
            if now[name] != expected[name] and name not in others:
                self.complain(f"{what}: after the next run {name} is another")

    @staticmethod
    def lists_failures(scenario, folder):
        if not scenario.failures:
            return False
        listed = subprocess.run(scenario.failures, cwd=folder, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE).stdout
        return listed.count(b"\n") > 1

    def try_call(self, scenario, kind, call, expected):
        what = f"{scenario.name}, {kind} {call}"
        folder = self.fresh(scenario)
        before = self.files(scenario, folder)
        status, words = self.run(scenario, folder, f"{kind}:{call}")
        if status is None:
            self.complain(f"{what}: it hangs")
            return 0
        ended = [line.split()[-1].decode() for line in words.splitlines() if line.startswith(b"faults: ended in")]
        # The loader ends a process that gets no memory for a library's thread-local data.
        if status == 127 and b"thread-local data" in words:
            ended = ["loader"]
        self.ended += bool(ended)
        is_lost = bool(ended) and ended[0] == "?" and any(map(is_ours, self.owners[call]))
        if is_lost or ended and is_ours(ended[0]):
            self.complain(f"{what}: ended in {ended[0]}")
        elif status != 0 and status not in FITTING[kind] and not (ended and (status < 0 or status == 127)):
            self.complain(f"{what}: status {status}: {words.decode(errors='replace').strip()[-300:]}")
        # Fontconfig goes on without a part of its configuration, and says so itself, or without a folder of fonts. Pixman's functions
        # return nothing: what they got no memory for is missing in a picture.
        is_said = b"Fontconfig" in words or self.lists_failures(scenario, folder)
        other = status == 0 and self.files(scenario, folder) != expected
        if other and not is_said:
            self.others += 1
            if all(map(is_ours, self.owners[call])):
                self.complain(f"{what}: another result, and no word of it")
        if status not in (0, 64) and not words and kind != "write":  # which can be that of the words
            self.complain(f"{what}: status {status}, and no word of it")
        # A process that has been ended leaves its file, which the next run removes. So does one that has ended itself where memory
        # runs out in a destructor, and a worker that is ended as the tool gives up.
        may_leave = ended or status in (45, 48) or status in (47, 73) and scenario.volatile
        if other:
            return status != 0
        # Where the processes make different calls, the worker's picture may lack something without a word, while the tool fails.
        may_differ = scenario.volatile and not all(map(is_ours, self.owners[call]))
        others = self.check_outputs(what, scenario, before, expected, folder, (".tmp",) if may_leave else (), may_differ)
        self.check_next(what, scenario, folder, expected, ended and not scenario.volatile, others)
        return status != 0

    def try_crash(self, scenario, call, expected):
        """Fontconfig faults in a call. The conversion ends for lack of memory, and doesn't wait for a lock that is left."""
        what = f"{scenario.name}, crash in font {call}"
        folder = self.fresh(scenario)
        before = self.files(scenario, folder)
        status, words = self.run(scenario, folder, f"font:{call}:crash")
        if status not in (0, 47):
            self.complain(f"{what}: status {status}: {words.decode(errors='replace').strip()}")
        if self.files(scenario, folder) != (expected if status == 0 else before):
            self.complain(f"{what}: the earlier output isn't what it was")

    def try_kill(self, scenario, call, expected):
        what = f"{scenario.name}, killed at write {call}"
        folder = self.fresh(scenario)
        before = self.files(scenario, folder)
        status, _ = self.run(scenario, folder, f"write:{call}:kill")
        # What a worker leaves is removed by the tool, which goes on.
        is_removed = scenario.name == "workers" and status == 48
        self.check_outputs(what, scenario, before, expected, folder, () if is_removed else (".tmp",))
        if scenario.name not in ("one drawing", "a large drawing", "fitted, through a link", "its pictures"):  # a plain conversion doesn't look for what is left
            self.check_next(what, scenario, folder, expected)

    def run_scenario(self, scenario):
        folder = self.fresh(scenario)
        status, words = self.run(scenario, folder)
        if status != 0:
            return self.complain(f"{scenario.name}: status {status} without a fault: {words.decode(errors='replace')}")
        expected = self.files(scenario, folder)
        for kind in KINDS:
            processes = self.calls(scenario, kind)
            self.try_calls(scenario, kind, processes, expected)
            if kind == "font" and scenario.name in ("one drawing", "fitted, through a link"):
                self.crash_at(scenario, self.places(min(map(len, processes)), 5 if self.is_sample else 1 << 30), expected)
            if kind == "write":
                self.kill_at(scenario, self.places(max(map(len, processes)), 3 if self.is_sample else 1 << 30), expected)

    def try_calls(self, scenario, kind, processes, expected):
        wrong_before, said, chosen = self.wrong, 0, self.chosen(processes)
        self.ended = self.others = 0
        for call in chosen:
            said += self.try_call(scenario, kind, call, expected)
        if chosen:
            made, ours = sum(map(len, processes)), sum(is_ours(owner) for calls in processes for _, owner in calls)
            print(f"| {scenario.name} | {kind} | {made} | {ours} | {len(chosen)} | {said} | {self.ended} | {self.others} | {self.wrong - wrong_before} |",
                  flush=True)

    def crash_at(self, scenario, calls, expected):
        wrong_before = self.wrong
        for call in calls:
            self.try_crash(scenario, call, expected)
        print(f"| {scenario.name} | crash in a lookup | | | {len(calls)} | | | | {self.wrong - wrong_before} |", flush=True)

    def kill_at(self, scenario, calls, expected):
        wrong_before = self.wrong
        for call in calls:
            self.try_kill(scenario, call, expected)
        print(f"| {scenario.name} | killed at a write | | | {len(calls)} | | | | {self.wrong - wrong_before} |", flush=True)

    # Conditions of a whole run.

    def check(self, name, condition, words=""):
        print(f"| {name} | {'as it should be' if condition else 'WRONG'} |", flush=True)
        if not condition:
            self.complain(f"{name}: {words}")

    def plain(self):
        tool = self.build / "bin" / "hexlume"
        return Scenario("", [str(tool), "TEXT.dxf", "out/a.emf"], ["out/a.emf"])

    def call(self, scenario, folder, *arguments, before=None, variables=None, **keywords):
        environment = dict(os.environ, **(variables or {}))
        done = subprocess.run([scenario.command[0], *arguments], cwd=folder, env=environment, stdin=subprocess.DEVNULL, timeout=60,
                              stdout=keywords.pop("stdout", subprocess.PIPE), stderr=subprocess.PIPE, preexec_fn=before, **keywords)
        return done.returncode, done.stderr.decode(errors="replace")

    def run_conditions(self):
        plain = self.plain()
        folder = self.fresh(plain)
        status, _ = self.call(plain, folder, *plain.command[1:])
        right = (folder / "out/a.emf").read_bytes()
        self.full_disk(plain, right)
        self.read_only_folder(plain)
        self.no_locale(plain, right)
        self.fonts(plain)
        self.damaged_font_beside_good_ones(plain, right)
        self.font_that_was_damaged(plain)
        self.few_files(plain, right)
        for scenario in scenarios(str(self.build / "bin" / "hexlume"), str(self.build / "bin" / "hexlume-batch")):
            if scenario.name in ("its pictures", "workers", "chunk"):
                self.few_files_of(scenario)
        self.closed_streams(plain)
        self.standard_output(plain)
        self.terminal(plain)
        self.two_processes(plain, right)

    def full_disk(self, plain, right):
        folder = self.fresh(plain)
        limit = lambda: (signal.signal(signal.SIGXFSZ, signal.SIG_IGN), resource.setrlimit(resource.RLIMIT_FSIZE, (512, 512)))
        status, words = self.call(plain, folder, *plain.command[1:], before=limit)
        same = (folder / "out/a.emf").read_bytes() == OLD and os.listdir(folder / "out") == ["a.emf"]
        self.check("a file may not grow", status == 73 and same and "can't be written" in words, f"{status} {words}")
        disk = self.root / "disk"
        disk.mkdir(exist_ok=True)
        mounted = subprocess.run(["mount", "-t", "tmpfs", "-o", "size=16k", "tmpfs", str(disk)], stderr=subprocess.DEVNULL).returncode == 0
        if not mounted:
            print("| a full disk | not tried, for lack of rights to mount one |")
            return
        try:
            (disk / "a.emf").write_bytes(OLD)
            status, words = self.call(plain, folder, "--png", str(disk / "a.png"), "TEXT.dxf", str(disk / "a.emf"))
            same = (disk / "a.emf").read_bytes() in (OLD, right) and not [n for n in os.listdir(disk) if n.endswith(".tmp")]
            self.check("a full disk", status == 73 and same, f"{status} {words} {os.listdir(disk)}")
        finally:
            subprocess.run(["umount", str(disk)], check=True)

    def read_only_folder(self, plain):
        folder = self.fresh(plain)
        (folder / "out").chmod(0o555)
        nobody = lambda: os.setuid(65534)
        for parent in [self.root, folder]:
            parent.chmod(0o755)
        status, words = self.call(plain, folder, *plain.command[1:], before=nobody if os.getuid() == 0 else None)
        (folder / "out").chmod(0o755)
        self.check("a folder that may not be written", status == 73 and (folder / "out/a.emf").read_bytes() == OLD, f"{status} {words}")

    def no_locale(self, plain, right):
        for variables in [{"LC_ALL": "C"}, {"LC_ALL": "xx_XX.no-such"}, {"LC_ALL": "", "LANG": ""}, {"LC_ALL": "de_DE.UTF-8"}]:
            folder = self.fresh(plain)
            status, words = self.call(plain, folder, *plain.command[1:], variables=variables)
            same = (folder / "out/a.emf").read_bytes() == right
            self.check(f"locale {variables['LC_ALL'] or 'none'}", status == 0 and same and not words, f"{status} {words}")

    def fonts(self, plain):
        """Without a font texts have cells of an em or half an em: a damaged font counts as none."""
        results = []
        for name, damage in [("no font", None), ("a font of no bytes", lambda font: b""), ("a font that is cut off", lambda font: font[:4000]),
                             ("a font of chance", lambda font: bytes(i * 7919 >> 3 & 255 for i in range(20000)))]:
            folder = self.fresh(plain)
            fonts = folder / "fonts"
            fonts.mkdir()
            if damage:
                (fonts / "damaged.ttf").write_bytes(damage(self.a_font()))
            (folder / "fonts.conf").write_text(f"<fontconfig><dir>{fonts}</dir><cachedir>{folder}/cache</cachedir></fontconfig>")
            status, words = self.call(plain, folder, *plain.command[1:], variables={"FONTCONFIG_FILE": str(folder / "fonts.conf")})
            results.append((folder / "out/a.emf").read_bytes())
            self.check(name, status == 0 and results[-1] == results[0] != OLD, f"{status} {words}")

        for module in [1, 2]:
            folder = self.fresh(plain)
            status, words = self.run(plain, folder, f"module:{module}:missing")
            same = (folder / "out/a.emf").read_bytes() == results[0]
            self.check(f"no library for fonts, {module}", status == 0 and same and not words, f"{status} {words}")

    def damaged_font_beside_good_ones(self, plain, right):
        folder = self.fresh(plain)
        (folder / "fonts").mkdir()
        (folder / "fonts" / "damaged.ttf").write_bytes(self.a_font()[:4000])
        config = folder / "fonts.conf"
        config.write_text(f"<fontconfig><cachedir>{folder}/cache</cachedir><dir>{folder}/fonts</dir>"
                          "<include>/etc/fonts/fonts.conf</include></fontconfig>")
        status, words = self.call(plain, folder, *plain.command[1:], variables={"FONTCONFIG_FILE": str(config)})
        self.check("a damaged font beside good ones", status == 0 and (folder / "out/a.emf").read_bytes() == right, f"{status} {words}")

    def font_that_was_damaged(self, plain):
        """Fontconfig's cache has the font, but its file can't be used any more: it counts as none."""
        folder = self.fresh(plain)
        (folder / "fonts").mkdir()
        config = folder / "fonts.conf"
        config.write_text(f"<fontconfig><dir>{folder}/fonts</dir><cachedir>{folder}/cache</cachedir></fontconfig>")
        results = []
        for contents in [None, self.a_font(), self.a_font()[:4000]]:
            if contents:
                with open(folder / "fonts" / "good.ttf", "wb") as file:
                    file.write(contents)
            status, words = self.call(plain, folder, *plain.command[1:], variables={"FONTCONFIG_FILE": str(config)})
            results.append((folder / "out/a.emf").read_bytes())
        good = status == 0 and results[0] == results[2] != results[1]
        self.check("a font that was damaged after it was listed", good, f"{status} {words} {list(map(len, results))}")

    @staticmethod
    def a_font():
        path = subprocess.run(["fc-match", "-f", "%{file}", "IPAGothic"], stdout=subprocess.PIPE, check=True).stdout
        return Path(os.fsdecode(path)).read_bytes()

    def few_files(self, plain, right):
        for count in range(3, 16):
            folder = self.fresh(plain)
            limit = lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (count, count))
            status, words = self.call(plain, folder, *plain.command[1:], before=limit)
            result = (folder / "out/a.emf").read_bytes()
            fits = status == 0 and result == right or status != 0 and result == OLD and bool(words) or status == 127
            if not fits:
                return self.check("too many open files", False, f"with {count} files: {status} {words} {len(result)} bytes")
        self.check("too many open files", status == 0, f"still {status} {words}")

    def few_files_of(self, scenario):
        """With each limit all results are right, or the command says what it could not do and earlier results are whole."""
        folder = self.fresh(scenario)
        self.run(scenario, folder)
        expected = self.files(scenario, folder)
        wrong_before, statuses = self.wrong, set()
        for count in range(3, 25):
            folder = self.fresh(scenario)
            before = self.files(scenario, folder)
            limit = lambda: resource.setrlimit(resource.RLIMIT_NOFILE, (count, count))
            status, words = self.run(scenario, folder, before=limit)
            what = f"{scenario.name} with {count} files"
            statuses.add(status)
            if status == 127:
                continue  # the system's loader needs more
            if status == 0 and self.files(scenario, folder) != expected and not self.lists_failures(scenario, folder):
                self.complain(f"{what}: another result, and no word of it")
            if status not in FITTING["open"] | FITTING["process"] | {0} or status != 0 and not words:
                self.complain(f"{what}: status {status}: {words.decode(errors='replace').strip()}")
            self.check_outputs(what, scenario, before, expected, folder)
            self.check_next(what, scenario, folder, expected)
        self.check(f"too many open files, {scenario.name}", self.wrong == wrong_before and {0, 127} < statuses, str(statuses))

    def closed_streams(self, plain):
        """A warning must not reach an output whose file has the number of a standard stream."""
        folder = self.fresh(plain)
        text = (folder / "TEXT.dxf").read_bytes()
        (folder / "TEXT.dxf").write_bytes(text[:text.rindex(b"EOF")])
        status, words = self.call(plain, folder, *plain.command[1:])
        self.check("a drawing with a warning", status == 0 and "cut-off" in words, f"{status} {words}")
        right = (folder / "out/a.emf").read_bytes()
        for streams in [(0,), (2,), (0, 2), (0, 1, 2)]:
            close_all = lambda: [os.close(stream) for stream in streams]
            for output, arguments in [("a.emf", plain.command[1:]), ("TEXT.emf", ["-d", "out", "--jobs", "1", "TEXT.dxf"])]:
                (folder / "out" / output).write_bytes(OLD)
                status, _ = self.call(plain, folder, *arguments, before=close_all)
                self.check(f"streams {streams} closed, {output}", status == 0 and (folder / "out" / output).read_bytes() == right,
                           f"{status}")

    def standard_output(self, plain):
        for arguments in [["TEXT.dxf", "-"], ["--list", "TEXT.dxf", "out/a.emf"], ["--help"], ["--version"]]:
            folder = self.fresh(plain)
            status, words = self.call(plain, folder, *arguments, before=lambda: os.close(1))
            self.check(f"standard output closed, {arguments[0]} {arguments[-1]}", status == 73, f"{status} {words}")
            with open("/dev/full", "wb") as full:
                status, words = self.call(plain, folder, *arguments, stdout=full)
            self.check(f"standard output full, {arguments[0]} {arguments[-1]}", status == 73, f"{status} {words}")

    def terminal(self, plain):
        """The terminal goes away while many drawings are converted: the tool ends or goes on, and all results are whole."""
        folder = self.fresh(plain)
        for i in range(300):
            shutil.copy(folder / "TEXT.dxf", folder / "in" / f"{i}.dxf")
        process, terminal = pty.fork()
        if process == 0:
            os.chdir(folder)
            os.execv(plain.command[0], [plain.command[0], "-d", "out", "--jobs", "2", "--recursive", "in"])
        os.read(terminal, 1)
        os.close(terminal)
        deadline = time.monotonic() + 30
        while time.monotonic() < deadline and os.waitpid(process, os.WNOHANG) == (0, 0):
            time.sleep(0.05)
        ended = time.monotonic() < deadline
        if not ended:
            os.kill(process, signal.SIGKILL)
        time.sleep(0.3)  # the workers end with the tool
        sizes = {path.stat().st_size for path in (folder / "out").glob("[0-9]*.emf")}
        self.check("a terminal that goes away", ended and len(sizes) <= 1, f"{ended} {sizes}")
        status, words = self.call(plain, folder, "-d", "out", "--jobs", "2", "--skip-unchanged", "--quiet", "--recursive", "in")
        count = len(list((folder / "out").glob("[0-9]*.emf")))
        left = list((folder / "out").glob(".hexlume-*.tmp"))
        self.check("the run after it", status == 0 and count == 300 and not left, f"{status} {words} {count} {left}")

    def two_processes(self, plain, right):
        """They write different drawings. The output is one of the two, whole."""
        folder = self.fresh(plain)
        command = [plain.command[0], "PART.dxf", "out/a.emf"]
        subprocess.run(command, cwd=folder, check=True)
        results = [right, (folder / "out/a.emf").read_bytes()]
        rounds = 5 if self.is_sample else 200
        good = True
        for _ in range(rounds):
            both = [subprocess.Popen(each, cwd=folder) for each in [plain.command, command]]
            good = [process.wait() for process in both] == [0, 0] and (folder / "out/a.emf").read_bytes() in results and good
        self.check(f"two processes on one output, {rounds} times", good and os.listdir(folder / "out") == ["a.emf"], "")


def main():
    arguments = sys.argv[1:]
    is_sample = "--sample" in arguments
    names = [word for word in arguments if word != "--sample"]
    if not names:
        sys.exit(__doc__)
    trial = Trial(names[0], is_sample)
    tool, batch = str(trial.build / "bin" / "hexlume"), str(trial.build / "bin" / "hexlume-batch")
    try:
        print("| command | call that fails | made | by our code | failed in turn | said so | ended by a signal | another result | wrong |")
        print("|---|---|--:|--:|--:|--:|--:|--:|--:|")
        for scenario in scenarios(tool, batch):
            if not names[1:] or scenario.name in names[1:]:
                trial.run_scenario(scenario)
        if not names[1:] or "conditions" in names[1:]:
            print("\n| condition | |\n|---|---|")
            trial.run_conditions()
    finally:
        shutil.rmtree(trial.root, ignore_errors=True)
    print(f"\n{trial.runs} runs, {trial.wrong} wrong")
    sys.exit(1 if trial.wrong else 0)


main()
