#!/usr/bin/env python3
"""Plug-ins of random projects compile without a warning and make of messages what rehearsals make of them.

  generated_projects.py ZBC cpp|java|csharp COMPILER [PROJECTS]

One program has the plug-ins of several projects, so that the compiler runs once for them. The environment variable
ZB_PLUG_IN_PROJECTS is the number of projects of a long run.
"""
import os
import sys
import tempfile
from pathlib import Path

import project_maker
import replaying

BATCH = len(project_maker.PROJECT_NAMES)


def main():
    zbc, language, compiler = sys.argv[1:4]
    count = int(os.environ.get("ZB_PLUG_IN_PROJECTS", sys.argv[4] if len(sys.argv) > 4 else "10"))
    messages = 0
    for first in range(0, count, BATCH):
        with tempfile.TemporaryDirectory() as name:
            work = Path(name)
            cases = []
            for seed in range(first, min(first + BATCH, count)):
                project = work / f"{project_maker.PROJECT_NAMES[seed % BATCH]}.zbp"
                recording = work / f"{seed}.hex"
                project_maker.make(project, recording, seed)
                cases.append((project, "Equipment", [recording]))
            messages += replaying.compare(zbc, language, compiler, work, cases)
    print(f"{messages} messages of {count} projects are the same")


if __name__ == "__main__":
    main()
