"""Names and texts of any characters: nothing that could steer a terminal is printed."""

import unicodedata

from common import Place, demand, dice

NASTY = ("\x1b[31m", "\x1b]0;title\x07", "\r\nforged: ", "\x9b31m", "\u202e", "\u2066", "\u2028", "\x7f",
         "\x00", "\ufeff", "\u061c", "\u200f", "<img src=x>", "%s%n", "'; rm", "\u0301", "\U0001f600", "\\")


def is_safe(text):
    return all(character in "\n\t" or (unicodedata.category(character) != "Cc" and
                                       not 0x202A <= ord(character) <= 0x202E and
                                       not 0x2066 <= ord(character) <= 0x206F and
                                       character not in "\u061c\u200e\u200f\u2028\u2029")
               for character in text)


def word(random):
    return "N" + "".join(random.choice(NASTY) for _ in range(random.randint(1, 4)))


def one(place, random):
    # Neither "/" nor NUL can be in a name.
    name = word(random).replace("/", "").replace("\0", "")
    if random.random() < 0.2:
        name = name + b"\xff\x9b".decode("utf-8", "surrogateescape")
    text = word(random).replace("\r\n", "\r").replace("\0", "")
    project = f"{name}.zbp"
    lines = f"## [EDIT SMD]\r\n* {text}\r\n{text}: S1 F1 H->E\r\n    L 1\r\n        {random.choice(('A', 'XX'))} 1 {text} 0.\r\n"
    (place.work / project).write_bytes(b"\xff\xfe" + lines.encode("utf-16-le", "surrogatepass"))
    runs = (["list", project], ["list", "--json", project], ["list", "--transactions", project],
            ["check", "--warnings", project], ["check", "--json", project], ["build", project],
            ["convert", project, f"{name}.sml"], ["convert", project, name], ["add", project, "semi", "S1F1"],
            ["add", project, "semi", name], ["history", project], ["history", project, "--restore", "1"],
            ["list", f"{name}.smd"], ["script", f"{name}.zbs"], [name])
    for arguments in runs:
        done = place.zbc(*arguments)
        demand(done.returncode in (0, 1, 2, 3), f"{arguments!r} ends with {done.returncode}")
        for printed in (done.stdout, done.stderr):
            printed = printed.decode("utf-8")  # fails on what is no UTF-8
            demand(is_safe(printed), f"{arguments!r} prints {printed!r}")
            demand(not any(line.startswith("forged") for line in printed.split("\n")),
                   f"{arguments!r} prints a forged line: {printed!r}")
    return len(runs)


def attack(programs, is_long):
    random = dice("hostile")
    with Place(programs) as place:
        runs = sum(one(place, random) for _ in range(200 if is_long else 8))
    return [("random names and texts", runs, "runs of all verbs")]
