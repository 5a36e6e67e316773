"""Twice as much takes about twice as long, whatever there is twice as much of."""

import math
import resource

from common import Place, demand

# Linear is 2, quadratic 4; what is between leaves room for a busy machine.
MOST = 2.9
TRIES = 3
ROUNDS = 5


def project(messages):
    return "\r\n###[PROJECT INFORMATION]\r\nProjectType=1\r\n## [EDIT SMD]\r\n" + messages


def many_messages(count):
    return "P.zbp", project("".join(
        f"* d\r\nM{number}: S{number % 127 + 1} F1 H->E\r\n    L 2\r\n        A 1 X 'x'\r\n        U1 1 Y 1.\r\n"
        for number in range(count)))


def many_items(count):
    return "P.zbp", project(f"* d\r\nM: S1 F1 H->E\r\n    L {count}\r\n" +
                            "".join(f"        U1 1 N{number} 1\r\n" for number in range(count)) + "        U1 1 Z 1.\r\n")


def sml_items(count):
    return "items.sml", "S1F1 W\n<L\n" + "<L <U1 1> <A 'x'>>\n" * count + ">.\n"


def long_value(count):
    return "P.zbp", project(f"* d\r\nM: S1 F1 H->E\r\n    U1 {count} V " + "1 " * count + ".\r\n")


def same_names(count):
    return "P.zbp", project("".join("* d\r\nSame: S1 F1 H->E\r\n    U1 1 Y 1.\r\n" for _ in range(count)))


def sml_messages(count):
    return "m.sml", "".join(f"M{number}: S{number % 127 + 1}F1 W <L <A 'x'> <U1 1>>.\n" for number in range(count))


def smd_broken(count):
    return "m.smd", "XX: S1 F1 <<<<\r\n" * count


def nameless_items(count):
    return "P.zbp", project(f"* d\r\nM: S1 F1 H->E\r\n    L {count}\r\n" + "        U1 1 1\r\n" * count +
                            "        U1 1 Z 1.\r\n")


def nameless_lists(count):
    return "P.zbp", project(f"* d\r\nM: S1 F1 H->E\r\n    L {count}\r\n" +
                            "        L 1\r\n            U1 1 1\r\n" * count + "        U1 1 Z 1.\r\n")


CASES = [
    ("list, messages", ["list"], many_messages, 20_000),
    ("check, messages", ["check", "--warnings"], many_messages, 10_000),
    ("check, items of one message", ["check", "--warnings"], many_items, 20_000),
    ("check, one long value", ["check"], long_value, 100_000),
    ("check, one name for all", ["check", "--warnings"], same_names, 10_000),
    ("list, SML messages", ["list"], sml_messages, 20_000),
    ("list, SML items of one message", ["list"], sml_items, 20_000),
    ("list, SMD with faults", ["list"], smd_broken, 10_000),
    ("generate, items without names", ["generate", "--out", "made"], nameless_items, 5_000),
    ("generate, lists without names", ["generate", "--out", "made"], nameless_lists, 2_000),
]


def seconds(place, arguments, name):
    """Processor time of one run."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    done = place.zbc(*arguments, name)
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    demand(done.returncode in (0, 1), f"zbc {arguments} ends with {done.returncode}: {done.stderr[-300:]!r}")
    return after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime


def write(place, name, text):
    (place.work / name).write_bytes(text.encode("utf-16" if name.endswith(".zbp") else "utf-8"))


def growth(place, idle, arguments, make, count):
    """How many times as long twice as much takes, and both times."""
    single, text = make(count)
    write(place, single, text)
    double, text = make(2 * count)
    double = "twice-" + double
    write(place, double, text)
    once = twice = math.inf
    for _ in range(ROUNDS):
        # By turns, so that a machine that gets slower or faster does so for both. The best of all times counts: what is
        # quadratic is so in its best time too, and a busy machine makes no run faster.
        for _ in range(TRIES):
            once = min(once, seconds(place, arguments, single) - idle)
            twice = min(twice, seconds(place, arguments, double) - idle)
        # Less than this is not measured: it says nothing, and is nobody's trouble.
        factor = twice / max(once, 0.01)
        if factor <= MOST:
            break
    return factor, once, twice


def attack(programs, is_long):
    with Place(programs) as place:
        write(place, "empty.sml", "S1F1.\n")
        idle = min(seconds(place, ["list"], "empty.sml") for _ in range(TRIES))
        for title, arguments, make, count in CASES:
            count = count * 4 if is_long else count
            factor, once, twice = growth(place, idle, arguments, make, count)
            demand(factor <= MOST, f"{title}: {count} take {once:.3f} s, twice as many {twice:.3f} s")
            yield title, round(factor, 2), f"times as long for {2 * count} as for {count} ({twice:.2f} s)"
