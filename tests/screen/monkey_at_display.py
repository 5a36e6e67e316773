#!/usr/bin/env python3
"""The real program at a display, used by nobody who knows what it is for: random keys, clicks and drags over all
windows. It must neither crash nor hang. The seed repeats a run.

  on_display.sh monkey_at_display.py ZELTOBENCH PROJECT SEED SECONDS

It also works in file dialogs, where it may delete files: as root it runs the program as nobody.
"""
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time

from program_at_display import xdotool

WIDTH, HEIGHT = 1366, 768
NOBODY = 65534
LONGEST = 30  # seconds until the program waits for its user again
OFTEN = "Return Escape Escape Tab Down Down Up ".split()
KEYS = """shift+Tab Left Right Home End Prior Next Delete BackSpace space F1 F2 F3 F4 F5 F6 F7 F8 F10 shift+F7 shift+F8
shift+F10 Insert shift+Insert ctrl+m ctrl+Return ctrl+Up ctrl+Down alt+Up alt+Down alt+Left alt+Right ctrl+space
shift+Up shift+Down ctrl+x ctrl+c ctrl+v ctrl+d ctrl+shift+c ctrl+shift+v ctrl+f ctrl+z ctrl+y ctrl+p ctrl+r ctrl+s
ctrl+1 ctrl+5 ctrl+0 ctrl+shift+3 alt+1 alt+2 alt+3 alt+4 alt+5 alt+6 alt+7 alt+8 alt+f alt+b ctrl+Delete ctrl+a
ctrl+n ctrl+o plus minus""".split()
TEXTS = ["S1F1", "a", "12", "-5", "'x'", "<A 'x'>", "99999999999999", "<b>", "&x", "S6F11, S2F41/F42", "x" * 300]


class Monkey:
    def __init__(self, program, project, home, seed):
        self.dice = random.Random(seed)
        self.home = home
        self.project = home / "Line" / "Line.zbp"
        self.project.parent.mkdir()
        shutil.copy(project, self.project)
        as_nobody = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"] if os.getuid() == 0 else []
        if as_nobody:
            for path in [home, *home.rglob("*")]:
                os.chown(path, NOBODY, NOBODY)
        self.command = [*as_nobody, program, str(self.project)]
        self.start()

    def start(self):
        environment = dict(os.environ, HOME=str(self.home), XDG_CONFIG_HOME=str(self.home / "settings"),
                           XDG_STATE_HOME=str(self.home / "state"), QT_QPA_PLATFORM="xcb")
        self.process = subprocess.Popen(self.command, env=environment, cwd=self.home)
        end = time.monotonic() + LONGEST
        found = []
        while not found and time.monotonic() < end:
            time.sleep(0.1)
            found = xdotool("search", "--onlyvisible", "--pid", self.process.pid, "--name", "Zeltobench").split()
        if not found:
            raise AssertionError("there is never a main window")
        xdotool("windowsize", "--sync", found[0], WIDTH, HEIGHT)
        xdotool("windowmove", found[0], 0, 0)

    def place(self):
        return f"mousemove {self.dice.randrange(WIDTH)} {self.dice.randrange(HEIGHT)}"

    def action(self):
        kind = self.dice.random()
        if kind < 0.35:
            return f"{self.place()} click {self.dice.choice([1, 1, 1, 1, 1, 3, 3, 2])}"
        if kind < 0.40:
            return f"{self.place()} click --repeat 2 --delay 30 1"
        if kind < 0.48:
            return f"{self.place()} mousedown 1 {self.place()} sleep 0.05 {self.place()} mouseup 1"
        if kind < 0.56:
            return f'type --delay 1 "{self.dice.choice(TEXTS)}"'
        return "key " + self.dice.choice(OFTEN if kind < 0.75 else KEYS)

    def waits(self):
        """Whether the program waits for events, several times in a row."""
        end = time.monotonic() + LONGEST
        idle = 0
        while idle < 5 and time.monotonic() < end and self.process.poll() is None:
            state = pathlib.Path(f"/proc/{self.process.pid}/stat").read_text(encoding="ascii").rsplit(")", 1)[1]
            idle = idle + 1 if state.split()[0] == "S" else 0
            time.sleep(0.02)
        return idle >= 5 or self.process.poll() is not None

    def use(self, seconds):
        actions = 0
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            lines = [self.action() for _ in range(self.dice.randint(3, 12))]
            actions += len(lines)
            subprocess.run(["xdotool", "-"], input="\n".join(lines) + "\n", text=True, capture_output=True, check=False)
            if not self.waits():
                raise AssertionError(f"the program hangs after {actions} actions, the last of them {lines}")
            if self.process.poll() is None:
                continue
            if self.process.returncode != 0:
                raise AssertionError(f"{self.process.returncode} after {actions} actions, the last of them {lines}")
            self.start()  # the monkey has closed it
        return actions

    def stop(self):
        self.process.kill()
        self.process.wait()


def main():
    program, project, seed, seconds = sys.argv[1:]
    home = pathlib.Path(tempfile.mkdtemp())
    monkey = Monkey(os.path.abspath(program), project, home, int(seed))
    try:
        print(monkey.use(float(seconds)), "actions")
    finally:
        monkey.stop()
        shutil.rmtree(home)


if __name__ == "__main__":
    main()
