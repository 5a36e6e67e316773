#!/usr/bin/env python3
"""The real program at a display: it has unsaved work, and is ended by the system or killed. The next start
offers that work, and what is recovered and saved is what was there.

  on_display.sh recovery_at_display.py ZELTOBENCH PROJECT
"""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

from program_at_display import LONGEST, Program, text_of, xdotool

PROGRAM, PROJECT = sys.argv.pop(1), pathlib.Path(sys.argv.pop(1))
MESSAGE = 450, 160  # where the first messages are, in a window of 1240 by 800
HEAD = re.compile(r"^(\w+): S\d+ F\d+", re.MULTILINE)


class Recovery(unittest.TestCase):
    def setUp(self):
        self.home = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.home)
        self.project = self.home / "Line" / "Line.zbp"
        self.project.parent.mkdir()
        shutil.copy(PROJECT, self.project)
        self.before = self.project.read_bytes()
        self.programs = []
        self.addCleanup(self.stop)

    def stop(self):
        for program in self.programs:
            if program.process.poll() is None:
                program.process.kill()
                program.process.wait()

    def start(self, settings, *arguments, **variables):
        self.programs.append(Program(PROGRAM, self.home, settings, *arguments, **variables))
        return self.programs[-1]

    def kept(self):
        return list((self.home / "state").glob("**/work.zbp"))

    def delete_a_message(self, **variables):
        program = self.start("first", self.project, **variables)
        program.wait_for_title("Line")
        program.act(lambda: self.press_delete(program), "Line*")
        return program

    @staticmethod
    def press_delete(program):
        xdotool("windowsize", "--sync", program.window, 1240, 800)
        xdotool("mousemove", "--window", program.window, *MESSAGE, "click", 1)
        time.sleep(0.5)
        program.key("Delete")

    def recover(self):
        work = self.kept()
        self.assertEqual(len(work), 1, "one file of unsaved work")
        expected = work[0].read_bytes()
        self.assertTrue(self.project.read_bytes() == self.before, "the project file is as it was")
        lost = set(HEAD.findall(text_of(self.project))) - set(HEAD.findall(text_of(work[0])))
        self.assertEqual(len(lost), 1, "the work is without the deleted message")
        # With other settings no project opens: the start page offers the work, and its button has the keyboard.
        program = self.start("second")
        time.sleep(1)
        program.act(lambda: program.key("Return"), "Line*")
        self.assertTrue(self.project.read_bytes() == self.before, "nothing is saved yet")
        program.key("ctrl+s")
        program.until(lambda: "*" not in program.title(), "a saved project")
        self.assertTrue(self.project.read_bytes() == expected, "what was kept is saved")
        self.assertEqual(self.kept(), [])

    def test_a_request_to_terminate(self):
        self.assertEqual(self.delete_a_message().end(signal.SIGTERM), -signal.SIGTERM)
        self.recover()

    def test_a_closed_terminal(self):
        self.assertEqual(self.delete_a_message().end(signal.SIGHUP), -signal.SIGHUP)
        self.recover()

    def test_a_kill_after_half_a_minute(self):
        program = self.delete_a_message()
        program.until(self.kept, "kept work")
        self.assertEqual(program.end(signal.SIGKILL), -signal.SIGKILL)
        self.recover()

    # As when the display manager ends the session of a user who has logged out.
    def test_a_lost_display(self):
        with tempfile.TemporaryFile("w+") as number:
            server = subprocess.Popen(["Xvfb", "-displayfd", str(number.fileno()), "-screen", "0", "1400x900x24",
                                       "-nolisten", "tcp", "-noreset"], pass_fds=[number.fileno()],
                                      stderr=subprocess.DEVNULL)
            self.addCleanup(server.wait)
            self.addCleanup(server.kill)
            before = os.environ["DISPLAY"]
            self.addCleanup(os.environ.__setitem__, "DISPLAY", before)
            os.environ["DISPLAY"] = ":" + self.number_of(number)
            manager = subprocess.Popen(["openbox", "--sm-disable"], stderr=subprocess.DEVNULL)
            self.addCleanup(manager.wait)
            self.addCleanup(manager.kill)
            program = self.delete_a_message()
            server.kill()
            self.assertEqual(program.process.wait(LONGEST), 1)
            os.environ["DISPLAY"] = before
        self.recover()

    @staticmethod
    def number_of(file):
        end = time.monotonic() + LONGEST
        while time.monotonic() < end:
            file.seek(0)
            text = file.read()
            if text.endswith("\n"):
                return text.strip()
            time.sleep(0.1)
        raise AssertionError("the server never has a number")

    def test_the_end_of_the_session(self):
        manager = subprocess.Popen([sys.executable, pathlib.Path(__file__).with_name("session_manager.py")],
                                   stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        self.addCleanup(manager.wait)
        self.addCleanup(manager.kill)
        program = self.delete_a_message(SESSION_MANAGER=manager.stdout.readline().strip())
        manager.stdin.write("end\n")
        manager.stdin.flush()
        program.process.wait(LONGEST)
        self.recover()

    def test_a_saved_project_leaves_nothing(self):
        program = self.delete_a_message()
        program.key("ctrl+s")
        program.until(lambda: "*" not in program.title(), "a saved project")
        program.end(signal.SIGTERM)
        self.assertEqual(self.kept(), [])


if __name__ == "__main__":
    unittest.main()
