#!/usr/bin/env python3
"""No source of src and tests has more than 400 lines: file_lengths.py ROOT"""
import pathlib
import sys

MOST = 400
root = pathlib.Path(sys.argv[1])
sources = sorted(path for folder in ("src", "tests") for path in (root / folder).rglob("*")
                 if path.suffix in (".cpp", ".h"))
faults = [] if sources else ["no sources found"]
for path in sources:
    lines = path.read_bytes().count(b"\n")
    if lines > MOST:
        faults.append(f"{path.relative_to(root).as_posix()}: {lines} lines, more than {MOST}")
for fault in faults:
    print(fault, file=sys.stderr)
sys.exit(1 if faults else 0)
