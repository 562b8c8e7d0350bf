#!/usr/bin/python3
"""Writes what the viewer needs at its start into one file: make_assets.py OUTPUT FILE...

The file has a JSON object with a field for each file: its bytes, compressed with gzip, in base64. The same files give the same
bytes.
"""

import base64
import gzip
import json
import sys
from pathlib import Path


def main():
    output, *files = map(Path, sys.argv[1:])
    packed = {file.name: base64.b64encode(gzip.compress(file.read_bytes(), 9, mtime=0)).decode("ascii") for file in files}
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_text(json.dumps(packed, indent=0) + "\n", encoding="ascii")


main()
