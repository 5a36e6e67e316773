"""Attacks zbc: attack.py BUILD_FOLDER [--long] [NAME...] runs the attacks named, or all, and prints a table."""

import sys
import time

import doubling
import faults
import hostile
import kill
import places
import together
from common import Failure, Programs

ATTACKS = {"kill": kill, "faults": faults, "together": together, "hostile": hostile, "places": places,
           "doubling": doubling}


def main(arguments):
    is_long = "--long" in arguments
    build, *names = [argument for argument in arguments if argument != "--long"]
    unknown = [name for name in names if name not in ATTACKS]
    if unknown:
        print(f"no such attack: {', '.join(unknown)}", file=sys.stderr)
        return 2
    failed = False
    print("| Attack | What | Number | Of |\n|---|---|---|---|")
    for name in names or ATTACKS:
        begin = time.monotonic()
        try:
            for title, number, unit in ATTACKS[name].attack(Programs(build), is_long):
                print(f"| {name} | {title} | {number} | {unit} |", flush=True)
        except Failure as failure:
            failed = True
            print(f"{name}: {failure}", file=sys.stderr)
        print(f"{name}: {time.monotonic() - begin:.0f} s", file=sys.stderr)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
