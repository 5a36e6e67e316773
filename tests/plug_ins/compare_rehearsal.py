#!/usr/bin/env python3
"""What a plug-in of an equipment makes of a recording is what a rehearsal makes of it.

  compare_rehearsal.py ZBC PROJECT.zbp RECORDING.hex REPLAY...

REPLAY is the command of a program that reads messages in hex and prints its choices, as cpp/replay.cpp.
"""
import json
import subprocess
import sys


def received(path):
    """The bytes of the data messages that the equipment received, in hex."""
    for line in open(path, encoding="ascii"):
        words = line.split()
        start = words.index("RECV") + 1 if "RECV" in words else None
        if start is not None and words[start + 9] == "00":  # the SType of data
            yield "".join(words[start + 4:])


def rehearsed(zbc, project, recording):
    done = subprocess.run([zbc, "rehearse", "--json", project, recording], stdout=subprocess.PIPE, text=True, check=False)
    if done.returncode not in (0, 1):
        sys.exit(f"zbc rehearse ended with {done.returncode}")
    for line in done.stdout.splitlines():
        message = json.loads(line)
        if message["direction"] == "H->E":
            yield message


def text(value):
    if value is None:
        return "(missing)"
    return value if isinstance(value, str) else json.dumps(value)


def expected(message):
    if message["message"] is None:
        return "no message"
    if message["transaction"] is None:
        return "no transaction"
    return "\t".join([message["message"], message["transaction"],
                      *(f"{name}={text(value)}" for name, value in message["items"].items())])


def main():
    zbc, project, recording, *replay = sys.argv[1:]
    messages = list(received(recording))
    wanted = [expected(message) for message in rehearsed(zbc, project, recording)]
    if not wanted or len(messages) != len(wanted):
        sys.exit(f"{len(messages)} messages in hex, {len(wanted)} in the rehearsal")
    found = subprocess.run(replay, input="\n".join(messages) + "\n", stdout=subprocess.PIPE, text=True,
                           check=True).stdout.splitlines()
    for number, (own, other) in enumerate(zip(found, wanted, strict=True), 1):
        if own != other:
            sys.exit(f"{recording}: message {number}: the plug-in has\n  {own}\nthe rehearsal has\n  {other}")
    print(f"{recording}: {len(wanted)} messages are the same")


if __name__ == "__main__":
    main()
