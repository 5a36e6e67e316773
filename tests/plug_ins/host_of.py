#!/usr/bin/env python3
"""Writes the project of the other side.

  host_of.py EQUIPMENT.zbp HOST.zbp
"""
import sys

with open(sys.argv[1], encoding="utf-16", newline="") as file:
    text = file.read()
if text.count("ProjectType=2") != 1:
    sys.exit("not the project of an equipment")
with open(sys.argv[2], "w", encoding="utf-16", newline="") as file:
    file.write(text.replace("ProjectType=2", "ProjectType=1"))
