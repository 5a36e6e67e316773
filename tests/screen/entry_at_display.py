#!/usr/bin/env python3
"""The real program at a display: the items of a remote command S2F41 with three parameters are entered twice, by
the menu and the mouse, and by keys alone. Both give the same items. Key strokes, clicks and seconds are printed.

  on_display.sh entry_at_display.py ZELTOBENCH [HAND]

HAND is 1 for the pace of a practised hand, or a part of its times; without it, events come as fast as the program
takes them. Times of a hand: a key 0.2 s, pointing 1.1 s, and 0.4 s from the keyboard to the mouse or back.
"""
import pathlib
import shutil
import sys
import tempfile
import time

from program_at_display import Program, text_of, xdotool

KEY, POINT, CHANGE = 0.2, 1.1, 0.4
SETTLE = 0.15  # until a menu is there
WINDOW = 1240, 800

HEAD = "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n* Host command\r\nS2F41: S2 F41 W H->E"
# Depth, type, name, value. Lists have no names.
ITEMS = [(0, "L", "", ""), (1, "A", "RCMD", "START"), (1, "L", "", "")] + [
    item for number, name, kind, value in ((1, "PPID", "A", "RECIPE"), (2, "LOTID", "A", "LOT1"), (3, "SLOT", "U1", "25"))
    for item in ((2, "L", "", ""), (3, "A", f"CPNAME{number}", name), (3, kind, f"CPVAL{number}", value))]
TYPE_KEYS = {"L": "ctrl+1", "A": "ctrl+2", "U1": "ctrl+9"}

# Places in a window of this size.
TYPES = {"L": (955, 329), "A": (987, 329), "U1": (955, 360)}
NAME, COUNT, VALUE = (1080, 270), (990, 298), (1080, 392)
MENU, ITEM, SUB_ITEM = (236, 10), (262, 31), (262, 53)
ROW, FIRST_ROW, INDENT, FIRST_TEXT = 18, 159, 20, 400


def parent(index):
    depth = ITEMS[index][0]
    return next((at for at in range(index - 1, -1, -1) if ITEMS[at][0] < depth), None)


def previous(index):
    depth, above = ITEMS[index][0], parent(index)
    first = 0 if above is None else above + 1
    return next((at for at in range(index - 1, first - 1, -1) if ITEMS[at][0] == depth), None)


def children(index):
    return sum(parent(at) == index for at in range(len(ITEMS)))


def text(index):
    depth, kind, name, value = ITEMS[index]
    if kind == "L":
        return f"{'    ' * (depth + 1)}L {children(index)}"
    shown, count = (f"'{value}'", len(value)) if kind == "A" else (value, 1)
    return f"{'    ' * (depth + 1)}{kind} {count} {name} {shown}"


class Person:
    def __init__(self, window, hand):
        self.window, self.hand = window, hand
        self.keys = self.clicks = 0
        self.device = None
        self.began = time.monotonic()

    def take(self, device, seconds):
        change = CHANGE if self.device not in (None, device) else 0
        self.device = device
        time.sleep(self.hand * (seconds + change))

    def key(self, *keys):
        for key in keys:
            self.take("keyboard", KEY)
            xdotool("key", key)
            self.keys += 1

    def type(self, typed):
        for letter in typed:
            self.key(letter)

    def click(self, place, times=1):
        self.take("mouse", POINT)
        for _ in range(times):
            xdotool("mousemove", "--window", self.window, *place, "click", 1)
            self.clicks += 1
        time.sleep(SETTLE)


def row(index):
    return FIRST_TEXT + INDENT * ITEMS[index][0], FIRST_ROW + ROW * index


def enter_by_mouse(person):
    for index, (_, kind, name, value) in enumerate(ITEMS):
        before = previous(index)
        beside = before if before is not None else parent(index)
        is_sub_item = before is None and beside is not None
        # What has become a list is clicked again before it takes a sub item.
        if is_sub_item or (beside is not None and beside != index - 1):
            person.click(row(beside))
        person.click(MENU)
        person.click(SUB_ITEM if is_sub_item else ITEM)
        person.click(row(index))
        person.click(TYPES[kind])
        person.click(NAME)
        if kind == "L":
            person.key("BackSpace")
            continue
        person.type(name)
        if kind == "A":
            person.click(COUNT, 2)
            person.type(str(len(value)))
        person.click(VALUE)
        person.type(value)


def enter_by_keys(person):
    for index, (_, kind, name, value) in enumerate(ITEMS):
        before = previous(index)
        if parent(index) is None:
            person.key("Insert")
        elif before is None:
            person.key("ctrl+shift+Return")
        elif before == index - 1:
            person.key("ctrl+Return")
        else:
            person.key("Escape", "Left", "Insert")
        person.key(TYPE_KEYS[kind])
        if kind == "L":
            person.key("BackSpace")
            continue
        person.type(name)
        if kind == "A":
            person.key("Tab", "BackSpace")
            person.type(str(len(value)))
        person.key("Return")
        person.type(value)


def enter(program_file, hand, way):
    home = pathlib.Path(tempfile.mkdtemp())
    project = home / "Line" / "Line.zbp"
    project.parent.mkdir()
    project.write_bytes(b"\xff\xfe" + (HEAD + ".\r\n").encode("utf-16-le"))
    program = Program(program_file, home, "settings", project)
    try:
        program.wait_for_title("Line")
        xdotool("windowactivate", "--sync", program.window)
        xdotool("windowsize", "--sync", program.window, *WINDOW)
        time.sleep(2)
        xdotool("mousemove", "--window", program.window, FIRST_TEXT, FIRST_ROW - ROW, "click", 1)
        time.sleep(0.5)
        person = Person(program.window, hand)
        way(person)
        seconds = time.monotonic() - person.began
        program.act(lambda: program.key("ctrl+s"), "Line - ")
        program.until(lambda: len(project.read_bytes()) > 2 * len(HEAD) + 10, "a saved project")
        return text_of(project), person, seconds
    finally:
        program.process.kill()
        program.process.wait()
        shutil.rmtree(home)


def main():
    program, hand = sys.argv[1], float(sys.argv[2]) if len(sys.argv) > 2 else 0
    expected = "\r\n".join([HEAD] + [text(index) for index in range(len(ITEMS))]) + "."
    failed = False
    for name, way in (("menu and mouse", enter_by_mouse), ("keyboard", enter_by_keys)):
        saved, person, seconds = enter(program, hand, way)
        print(f"{name}: {person.keys} keys, {person.clicks} clicks, {seconds:.1f} s")
        if expected not in saved:
            print(f"expected:\n{expected}\nsaved:\n{saved}")
            failed = True
    return failed


if __name__ == "__main__":
    sys.exit(main())
