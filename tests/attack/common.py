"""What the attacks share: a place of their own, the operations they attack, and what must hold after each."""

import json
import os
import random
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

TIMEOUT = 60
SEED = int(os.environ.get("ATTACK_SEED", "1"))


class Failure(Exception):
    """Something that must hold does not."""


def demand(condition, text):
    if not condition:
        raise Failure(text)


class Programs:
    def __init__(self, build):
        self.zbc = str(Path(build, "bin/zbc").resolve())
        self.shim = str(Path(build, "tests/attack/libattack_shim.so").resolve())
        self.settings_writer = str(Path(build, "tests/attack/settings_writer").resolve())
        self.work_writer = str(Path(build, "tests/attack/work_writer").resolve())


class Place:
    """A folder with settings, state and temporary files of its own; zbc runs in it."""

    def __init__(self, programs):
        self.programs = programs
        self.root = Path(os.path.realpath(tempfile.mkdtemp(prefix="zb-attack-")))
        for name in ("config", "state", "tmp", "work"):
            (self.root / name).mkdir()
        self.work = self.root / "work"
        self.environment = dict(
            os.environ,
            ZELTOBENCH_CONFIG=str(self.root / "config"),
            ZELTOBENCH_STATE=str(self.root / "state"),
            TMPDIR=str(self.root / "tmp"),
            LC_ALL="C.UTF-8",
        )

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.root, ignore_errors=True)

    def run(self, command, folder=None, **extra):
        return subprocess.run(command, env={**self.environment, **extra}, cwd=folder or self.work, timeout=TIMEOUT,
                              stdin=subprocess.DEVNULL, capture_output=True)

    def zbc(self, *arguments, **extra):
        return self.run([self.programs.zbc, *map(str, arguments)], **extra)

    def start(self, command, **extra):
        return subprocess.Popen(command, env={**self.environment, **extra}, cwd=self.work, stdin=subprocess.DEVNULL,
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE)

    def versions(self):
        return [path.read_bytes() for path in sorted((self.root / "state").glob("history/*/*.zbp"))]

    def litter(self):
        """Temporaries of writers, and work folders of scripts."""
        found = [path for path in self.root.rglob(".*") if ".zbtmp-" in path.name or ".zbguard-" in path.name]
        return [str(path.relative_to(self.root)) for path in found + list((self.root / "tmp").iterdir())]

    def reset(self):
        """Everything as it was when the place was filled."""
        for name in ("config", "state", "tmp", "work"):
            shutil.rmtree(self.root / name)
        shutil.copytree(self.root / "filled", self.root, symlinks=True, dirs_exist_ok=True)

    def remember(self):
        shutil.copytree(self.root, self.root / "filled", symlinks=True,
                        ignore=shutil.ignore_patterns("filled"))


class Operation:
    """A command of zbc that replaces files: its name, its arguments, and the files that it may replace."""

    def __init__(self, name, arguments, targets, may_be_empty=False, linked=False):
        self.name = name
        self.arguments = arguments
        self.targets = targets
        self.may_be_empty = may_be_empty  # a build empties its file first
        self.linked = linked              # the project has a second name

    def command(self, place):
        return [place.programs.zbc, *self.arguments]


SAVE = """start ${PROJECT}
click frmMain.mnuSave
expectnobox
"""

OPERATIONS = [
    Operation("save", ["script", "save.zbs"], ["P.zbp"]),
    Operation("add", ["add", "P.zbp", "semi", "S10F9"], ["P.zbp"]),
    Operation("add (two names)", ["add", "P.zbp", "semi", "S10F9"], ["P.zbp"], linked=True),
    Operation("convert", ["convert", "P.zbp", "out.smd"], ["out.smd"]),
    Operation("build", ["build", "P.zbp", "--out", "."], ["P.smd"], may_be_empty=True),
    Operation("history", ["history", "P.zbp", "--restore", "1"], ["P_version1.zbp"]),
]


def fill(place, operation):
    """A project with a version in its history, and older outputs; gives the contents before and after."""
    place.environment["PROJECT"] = str(place.work / "P.zbp")
    messages = "S1F1,S1F3,S2F41,S6F11"
    made = place.zbc("convert", "semi", "P.zbp", "--messages", messages)
    demand(made.returncode == 0, f"cannot make a project: {made.stderr!r}")
    demand(place.zbc("add", "P.zbp", "semi", "S5F1").returncode == 0, "cannot add")
    (place.work / "save.zbs").write_text(SAVE)
    if operation.name == "save":
        # What a save changes: blank lines that nobody needs.
        text = (place.work / "P.zbp").read_bytes()
        (place.work / "P.zbp").write_bytes(text + "\r\n\r\n".encode("utf-16-le"))
    for name in ("out.smd", "P.smd"):
        (place.work / name).write_bytes(b"old content of an output\r\n" * 50)
    if operation.linked:
        os.link(place.work / "P.zbp", place.work / "second name.zbp")
    place.remember()
    before = contents(place, operation)
    done = place.run(operation.command(place))
    demand(done.returncode == 0, f"{operation.name} fails without an attack: {done.stderr!r}")
    after = contents(place, operation)
    demand(before != after, f"{operation.name} changes nothing: the attack would prove nothing")
    fresh(place, operation)
    return before, after


def fresh(place, operation):
    place.reset()
    if operation.linked:
        (place.work / "second name.zbp").unlink()
        os.link(place.work / "P.zbp", place.work / "second name.zbp")


def contents(place, operation):
    return {name: (place.work / name).read_bytes() if (place.work / name).exists() else None
            for name in operation.targets}


def demand_whole(place, operation, before, after):
    """Each file is the old or the new one, whole; so is each version of the history."""
    for name, now in contents(place, operation).items():
        allowed = [before[name], after[name]] + ([b""] if operation.may_be_empty else [])
        demand(now in allowed, f"{operation.name}: {name} is neither the old nor the new one: "
                               f"{None if now is None else len(now)} bytes")
    project = (place.root / "filled" / "work" / "P.zbp").read_bytes()
    older = {path.read_bytes() for path in (place.root / "filled/state").glob("history/*/*.zbp")}
    for version in place.versions():
        demand(version == project or version in older, f"{operation.name}: a version is not whole")


def settings_of(place):
    path = place.root / "config/settings.json"
    if not path.exists():
        return {}
    keys = json.loads(path.read_text())["HKEY_LOCAL_MACHINE"]
    return next(iter(keys.values()))


def duration_of(place, command):
    begin = time.monotonic()
    place.run(command)
    return time.monotonic() - begin


def dice(name):
    return random.Random(f"{SEED} {name}")
