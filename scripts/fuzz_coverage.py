#!/usr/bin/env python3
"""Prints what a coverage report has of our sources: scripts/fuzz_coverage.py LINES.info

A table by folder, then the functions that were never called and the files with lines that were never reached.
"""
import collections
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent


def read(path):
    """Lines and functions of each file of ours: number or name to count."""
    lines = collections.defaultdict(collections.Counter)
    functions = collections.defaultdict(collections.Counter)
    file = None
    for row in open(path, encoding="utf-8"):
        kind, _, rest = row.strip().partition(":")
        if kind == "SF":
            name = pathlib.Path(rest).resolve()
            inside = ROOT in name.parents
            file = str(name.relative_to(ROOT)) if inside else None
            if file and not file.startswith(("src/", "tools/")):
                file = None
        elif file and kind == "DA":
            number, count = rest.split(",")[:2]
            lines[file][int(number)] += int(count)
        elif file and kind == "FNDA":
            count, name = rest.split(",", 1)
            functions[file][name] += int(count)
    return lines, functions


def demangled(names):
    plain = [re.sub(r"^[^:]*\.cpp:", "", name) for name in names]
    answer = subprocess.run(["c++filt"], input="\n".join(plain), capture_output=True, text=True, check=True).stdout
    return answer.splitlines()


def main():
    lines, functions = read(sys.argv[1])
    folders = collections.defaultdict(lambda: [0, 0, 0, 0])
    for file in lines:
        row = folders[str(pathlib.Path(file).parent)]
        row[0] += len(lines[file])
        row[1] += sum(count > 0 for count in lines[file].values())
        row[2] += len(functions[file])
        row[3] += sum(count > 0 for count in functions[file].values())
    print("| folder | lines | reached | functions | called |\n|---|---|---|---|---|")
    for folder, row in sorted(folders.items()):
        print(f"| `{folder}` | {row[0]} | {row[1] / max(row[0], 1):.1%} | {row[2]} | {row[3]} |")
    all_rows = [sum(row[i] for row in folders.values()) for i in range(4)]
    print(f"| all | {all_rows[0]} | {all_rows[1] / max(all_rows[0], 1):.1%} | {all_rows[2]} | {all_rows[3]} |")
    print("\nnever called:")
    for file in sorted(functions):
        missing = sorted(name for name, count in functions[file].items() if count == 0)
        if missing:
            print(f"  {file}: " + "; ".join(demangled(missing)))
    print("\nlines never reached:")
    for file in sorted(lines):
        missing = [str(number) for number, count in sorted(lines[file].items()) if count == 0]
        if missing:
            print(f"  {file}: " + " ".join(missing))


if __name__ == "__main__":
    main()
