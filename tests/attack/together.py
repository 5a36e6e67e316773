"""Several programs at once lose nothing."""

import os
import signal

from common import OPERATIONS, Place, demand, fill, fresh, settings_of
from faults import calls_of

NAMES = ("S1F1", "S1F3", "S2F13", "S2F33", "S5F1", "S6F11")


def six_adds(programs, rounds):
    for _ in range(rounds):
        with Place(programs) as place:
            place.zbc("convert", "semi", "P.zbp", "--messages", "S10F9")
            running = [place.start([programs.zbc, "add", "P.zbp", "semi", name]) for name in NAMES]
            for process in running:
                _, error = process.communicate(timeout=120)
                demand(process.returncode == 0, f"an add among six fails: {error!r}")
            listed = place.zbc("list", "P.zbp").stdout.decode()
            for name in NAMES:
                demand(f" {name} " in listed, f"{name} was lost among six adds")
            demand(len(place.versions()) == len(NAMES), "an add among six kept no version")
            demand(not place.litter(), f"six adds leave {place.litter()}")
    return rounds * len(NAMES)


def adds_and_saves(programs, rounds):
    """A save replaces what an add added, as it must, but never tears the file or a version."""
    with Place(programs) as place:
        place.environment["PROJECT"] = str(place.work / "P.zbp")
        (place.work / "save.zbs").write_text("start ${PROJECT}\nclick frmMain.mnuSave\nexpectnobox\n")
        place.zbc("convert", "semi", "P.zbp", "--messages", "S10F9")
        for number in range(rounds):
            running = [place.start([programs.zbc, "script", "save.zbs"]),
                       place.start([programs.zbc, "add", "P.zbp", "semi", NAMES[number % len(NAMES)]])]
            for process in running:
                _, error = process.communicate(timeout=120)
                demand(process.returncode in (0, 1), f"add beside save fails: {error!r}")
            listed = place.zbc("list", "P.zbp")
            demand(listed.returncode == 0 and b"S10F9" in listed.stdout, "the project is torn")
    return rounds


def foreign_change(programs):
    """A program without a lock changes the project between the read and the write of an add."""
    add = OPERATIONS[1]
    with Place(programs) as place:
        fill(place, add)
        calls = calls_of(place, add)
        project = str(place.work / "P.zbp")
        opened = [number for number, call in enumerate(calls, 1) if call == ("open", project)]
        closed = [number for number, call in enumerate(calls, 1) if call == ("close", project)]
        demand(len(opened) >= 2, "add does not look at the project again before it writes")
        # From the end of the first look to the beginning of the second one.
        for number in range(closed[0], opened[1] + 1):
            fresh(place, add)
            changed = (place.work / "P.zbp").read_bytes() + "* foreign\r\n".encode("utf-16-le")
            process = place.start(add.command(place), LD_PRELOAD=programs.shim, ATTACK_ROOT=str(place.root),
                                  ATTACK_AT=str(number), ATTACK_FAULT="STOP")
            _, status = os.waitpid(process.pid, os.WUNTRACED)
            demand(os.WIFSTOPPED(status), f"add did not come to call {number}")
            (place.work / "P.zbp").write_bytes(changed)
            process.send_signal(signal.SIGCONT)
            _, error = process.communicate(timeout=60)
            demand(process.returncode == 3 and b"changed by another program" in error,
                   f"add goes over a foreign change at call {number}: {error!r}")
            demand((place.work / "P.zbp").read_bytes() == changed, "add replaced a foreign change")
        return opened[1] - closed[0] + 1


def settings(programs, writers, each):
    with Place(programs) as place:
        running = [place.start([programs.settings_writer, str(place.root / "config"), f"w{number}-", str(each)])
                   for number in range(writers)]
        for process in running:
            _, error = process.communicate(timeout=300)
            demand(process.returncode == 0 and not error, f"a writer of settings reports {error!r}")
        kept = settings_of(place)
        demand(len(kept) == writers * each, f"{len(kept)} of {writers * each} settings are kept")
    return writers * each


def attack(programs, is_long):
    yield "six adds to one project", six_adds(programs, 20 if is_long else 2), "adds"
    yield "add beside a program without a lock", foreign_change(programs), "instants"
    yield "add beside save", adds_and_saves(programs, 100 if is_long else 5), "pairs"
    yield "settings of many programs", settings(programs, 12, 100 if is_long else 15), "writes"
