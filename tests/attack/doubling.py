"""Twice as much takes about twice as long, whatever there is twice as much of."""

import resource

from common import Place, demand

# Linear is 2, quadratic 4; what is between leaves room for a busy machine.
MOST = 2.9
TRIES = 3
ROUNDS = 3


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


CASES = [
    ("list, messages", ["list"], many_messages, 20_000),
    ("check, messages", ["check", "--warnings"], many_messages, 10_000),
    ("check, items of one message", ["check", "--warnings"], many_items, 20_000),
    ("check, one long value", ["check"], long_value, 100_000),
    ("check, one name for all", ["check", "--warnings"], same_names, 10_000),
    ("list, SML messages", ["list"], sml_messages, 20_000),
    ("list, SML items of one message", ["list"], sml_items, 20_000),
    ("list, SMD with faults", ["list"], smd_broken, 10_000),
]


def seconds(place, arguments, name, text):
    (place.work / name).write_bytes(text.encode("utf-16" if name.endswith(".zbp") else "utf-8"))
    best = None
    for _ in range(TRIES):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        done = place.zbc(*arguments, name)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        demand(done.returncode in (0, 1), f"zbc {arguments} ends with {done.returncode}: {done.stderr[-300:]!r}")
        spent = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
        best = spent if best is None else min(best, spent)
    return best


def growth(place, idle, arguments, make, count):
    """How many times as long twice as much takes, and both times."""
    once = seconds(place, arguments, *make(count)) - idle
    twice = seconds(place, arguments, *make(2 * count)) - idle
    # Less than this is not measured: it says nothing, and is nobody's trouble.
    return twice / max(once, 0.01), once, twice


def attack(programs, is_long):
    with Place(programs) as place:
        idle = seconds(place, ["list"], "empty.sml", "S1F1.\n")
        for title, arguments, make, count in CASES:
            count = count * 4 if is_long else count
            # What is quadratic is so each time; a machine that is busy for a moment is not.
            for _ in range(ROUNDS):
                factor, once, twice = growth(place, idle, arguments, make, count)
                if factor <= MOST:
                    break
            demand(factor <= MOST, f"{title}: {count} take {once:.3f} s, twice as many {twice:.3f} s")
            yield title, round(factor, 2), f"times as long for {2 * count} as for {count} ({twice:.2f} s)"
