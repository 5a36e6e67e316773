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


def write_inputs(place, random, name, text):
    """Two projects, a log of messages and a repository, with names and texts that would steer a terminal."""
    for ending, function in ((".zbp", 1), ("2.zbp", 3)):
        value = random.choice(("A", "XX"))
        lines = (f"## [EDIT SMD]\r\n* {text}\r\n{text}: S1 F{function} H->E\r\n"
                 f"    L 1\r\n        {value} 1 {text} 0.\r\n"
                 f"###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] {text}\r\n  SECSMessage {text}\r\n"
                 f"  Direction 1\r\n  TRItem {text}\r\n    Value {text}\r\n  EndTRItem\r\nEndTRMessage\r\n")
        (place.work / f"{name}{ending}").write_bytes(b"\xff\xfe" + lines.encode("utf-16-le", "surrogatepass"))
    log = "\n".join(f"2026-03-21 08:00:0{at}.000|{text}|--> [0x0000000{at}] 'S1F{function}' W\n"
                    f"    <L [1]\n      <A \"{text}\">\n    >\n." for at, function in enumerate((1, 3, 13)))
    (place.work / f"{name}.log").write_text(log, encoding="utf-8", errors="surrogatepass")
    (place.work / name).mkdir(exist_ok=True)
    place.run(["git", "init", "--quiet", name])


def verbs(name):
    """Each verb in each of its forms, with what it may leave to the next."""
    project, other, log = f"{name}.zbp", f"{name}2.zbp", f"{name}.log"
    return (["list", project], ["list", "--json", project], ["list", "--transactions", project],
            ["check", "--warnings", project], ["check", "--json", project],
            ["check", "--standard", project, "--only", name], ["check", "--format", "sarif", project],
            ["build", project], ["convert", project, f"{name}.sml"], ["convert", project, f"{name}3"],
            ["convert", project, "--split", f"{name}4"], ["add", project, "semi", "S1F1"],
            ["add", project, "semi", name], ["history", project], ["history", project, "--restore", "1"],
            ["diff", project, other], ["diff", "--json", project, other], ["diff", "--stat", project, other],
            ["diff", "--textconv", project], ["diff", project, f"{name}@{name}"], ["diff", f"HEAD:{project}", other],
            ["diff", project, other, "--html", f"{name}.html"],
            ["merge", project, other, other, "-o", f"{name}5.zbp"],
            ["merge", other, project, f"{project}@1", "-o", other, "--path", name],
            ["compat", project, other], ["compat", "--json", "--against", "host", other, project],
            ["document", project, "--format", "markdown"], ["document", project, "--format", "html"],
            ["document", project, "-o", f"{name}/{name}.md"], ["generate", project, "--lang", "cpp"],
            ["generate", project, "--lang", name], ["generate", project, "--lang", "cpp", "-o", f"{name}6"],
            ["decode", log], ["decode", log, "-o", f"{name}7.sml"], ["decode", f"{name}8"],
            ["learn", log, f"{name}9.zbp"], ["learn", log, name],
            ["rehearse", project, log], ["rehearse", "--json", project, log],
            ["rehearse", project, log, "--expect", log],
            ["list", f"{name}.smd"], ["script", f"{name}.zbs"], [name])


def one(place, random):
    # Neither "/" nor NUL can be in a name.
    name = word(random).replace("/", "").replace("\0", "")
    if random.random() < 0.2:
        name = name + b"\xff\x9b".decode("utf-8", "surrogateescape")
    text = word(random).replace("\r\n", "\r").replace("\0", "")
    write_inputs(place, random, name, text)
    runs = [(arguments, place.work) for arguments in verbs(name)] + [(["git-setup"], place.work / name)]
    for arguments, folder in runs:
        done = place.run([place.programs.zbc, *arguments], folder)
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
