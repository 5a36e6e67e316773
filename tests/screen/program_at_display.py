"""The real program at a display, with its mouse and its keyboard."""
import os
import subprocess
import time

PATIENCE = 10
LONGEST = 60  # seconds, on a machine with other work


def xdotool(*words):
    done = subprocess.run(["xdotool", *map(str, words)], capture_output=True, text=True, check=False)
    return done.stdout.strip()


def text_of(path):
    return path.read_bytes().decode("utf-16")


class Program:
    """A running program and its main window."""

    def __init__(self, program, home, settings, *arguments, **variables):
        environment = dict(os.environ, **variables, HOME=str(home), XDG_CONFIG_HOME=str(home / settings),
                           XDG_STATE_HOME=str(home / "state"), QT_QPA_PLATFORM="xcb")
        self.process = subprocess.Popen([program, *map(str, arguments)], env=environment, cwd=home)
        self.window = self.until(self.find_window, "a main window")

    def until(self, look, what):
        end = time.monotonic() + LONGEST
        while time.monotonic() < end:
            found = look()
            if found:
                return found
            time.sleep(0.1)
        raise AssertionError(f"there is never {what}; the title is {self.title()!r}")

    def find_window(self):
        found = xdotool("search", "--onlyvisible", "--pid", self.process.pid, "--name", "Zeltobench").split()
        return found[0] if found else None

    def title(self):
        return xdotool("getwindowname", self.window) if hasattr(self, "window") else ""

    def wait_for_title(self, ending):
        self.until(lambda: ending in self.title(), f"a title with {ending!r}")

    def act(self, action, ending):
        """Acts again only when the title does not follow for some seconds: the window may not have been ready."""
        for _ in range(LONGEST // PATIENCE):
            action()
            end = time.monotonic() + PATIENCE
            while time.monotonic() < end:
                if ending in self.title():
                    return
                time.sleep(0.1)
        raise AssertionError(f"the title is never {ending!r} but {self.title()!r}")

    def key(self, key):
        xdotool("windowactivate", "--sync", self.window)
        xdotool("key", "--clearmodifiers", key)

    def end(self, number):
        self.process.send_signal(number)
        return self.process.wait(LONGEST)
