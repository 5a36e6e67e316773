"""Plug-ins of several projects in one program, which replays recordings; compared with rehearsals of them."""
import json
import subprocess
import sys

import replay_cpp
import replay_csharp
import replay_java

LANGUAGES = {"cpp": replay_cpp, "java": replay_java, "csharp": replay_csharp}
MISSING = "(missing)"


def run(words, folder):
    done = subprocess.run(words, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{' '.join(words)} ended with {done.returncode}\n{done.stdout[-4000:]}")
    return done.stdout


def generate(zbc, project, language, folder):
    run([zbc, "generate", str(project), "--lang", language, "-o", str(folder)], folder.parent)


def received(recording, side):
    """The data messages that a side received, in hex. Recordings are those of an equipment."""
    for line in recording.read_text(encoding="ascii").splitlines():
        words = line.split()
        direction = "RECV" if side == "Equipment" else "SEND"
        start = words.index(direction) + 1 if direction in words else None
        if start is not None and words[start + 9] == "00":  # the SType of data
            yield "".join(words[start + 4:])


def rehearsed(zbc, project, recording, side):
    """What a rehearsal makes of the messages that a side received."""
    done = subprocess.run([zbc, "rehearse", "--json", str(project), str(recording)], stdout=subprocess.PIPE, text=True,
                          check=False)
    if done.returncode not in (0, 1):
        sys.exit(f"zbc rehearse {project} ended with {done.returncode}")
    for line in done.stdout.splitlines():
        message = json.loads(line, parse_float=Number, parse_int=Number)
        if message["direction"] == ("H->E" if side == "Equipment" else "H<-E"):
            yield message


class Number(str):
    """A number as it was written."""


def is_same(own, value):
    if value is None:
        return own == MISSING
    if not own.startswith(":"):
        return False
    text = bytes.fromhex(own[1:]).decode("cp1252")
    if isinstance(value, Number):
        return float(text) == float(value)
    return text == (value if isinstance(value, str) else json.dumps(value))


def fault(line, message, hexes):
    """What is wrong with the line of a plug-in; None when it is what the rehearsal says."""
    if message["message"] is None:
        return None if line == "no message" else "a definition fits"
    if message["transaction"] is None:
        return None if line == "no transaction" else "a transaction applies"
    words = line.split("\t")
    if words[:2] != [message["message"], message["transaction"]]:
        return "another transaction"
    items = message["items"]
    if len(words) != len(items) + 3:
        return "another number of items"
    for word, (name, value) in zip(words[2:], items.items()):
        if not word.startswith(name + "=") or not is_same(word[len(name) + 1:], value):
            return f"another {name}"
    return None if words[-1] == "bytes=" + hexes[20:] else "other bytes"


def compare(zbc, language, compiler, work, cases):
    """Cases are (project file, side, recordings). Returns the number of messages."""
    folders = []
    for number, (project, side, _) in enumerate(cases):
        folder = work / f"p{number}"
        generate(zbc, project, language, folder)
        folders.append((folder, side))
    words = LANGUAGES[language].build(work, folders, run, compiler)
    wanted = []
    for number, (project, side, recordings) in enumerate(cases):
        for recording in recordings:
            messages = list(received(recording, side))
            rehearsal = list(rehearsed(zbc, project, recording, side))
            if not messages or len(messages) != len(rehearsal):
                sys.exit(f"{recording}: {len(messages)} messages in hex, {len(rehearsal)} in the rehearsal")
            wanted += [(number, hexes, message) for hexes, message in zip(messages, rehearsal)]
    text = "".join(f"{number} {hexes}\n" for number, hexes, _ in wanted)
    done = subprocess.run(words, cwd=work, input=text.encode("ascii"), stdout=subprocess.PIPE, check=True)
    found = done.stdout.decode("utf-8").split("\n")[:-1]
    for line, (number, hexes, message) in zip(found, wanted, strict=True):
        wrong = fault(line, message, hexes)
        if wrong:
            sys.exit(f"{cases[number][0]} in {language}: {wrong}\nthe message   {hexes}\nthe plug-in   {line}\n"
                     f"the rehearsal {message}")
    return len(wanted)
