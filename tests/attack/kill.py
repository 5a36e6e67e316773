"""SIGKILL at each call on a file in turn, and at random instants."""

import signal
import time

from common import (OPERATIONS, Place, contents, demand, demand_whole, dice, duration_of, fill, fresh,
                    settings_of)
from faults import calls_of


def after_a_kill(place, operation, before, after):
    """The next run of the same command completes what is half done, succeeds and clears up."""
    if operation.linked:
        # A file with two names is written in its place; what was stopped is completed at the next read.
        demand(place.zbc("list", "P.zbp").returncode == 0, f"{operation.name}: cannot be read after a kill")
    demand_whole(place, operation, before, after)
    place.zbc("script", "nothing.zbs")  # clears what a killed script left
    done = place.run(operation.command(place))
    demand(done.returncode in (0, 1), f"{operation.name} fails after a kill: {done.stderr!r}")
    left = [name for name in place.litter() if "state/" not in name]
    demand(not left, f"{operation.name} leaves {left} after a kill")


def at_each_call(programs, operation):
    with Place(programs) as place:
        before, after = fill(place, operation)
        (place.root / "filled" / "work" / "nothing.zbs").write_text("# nothing\n")
        fresh(place, operation)
        count = len(calls_of(place, operation))
        for number in range(1, count + 1):
            fresh(place, operation)
            killed = place.run(operation.command(place), LD_PRELOAD=programs.shim,
                               ATTACK_ROOT=str(place.root), ATTACK_AT=str(number), ATTACK_FAULT="KILL")
            demand(killed.returncode == -signal.SIGKILL, f"{operation.name} was not killed at {number}")
            after_a_kill(place, operation, before, after)
        return count


def at_random(programs, operation, rounds):
    random = dice("kill " + operation.name)
    with Place(programs) as place:
        before, after = fill(place, operation)
        (place.root / "filled" / "work" / "nothing.zbs").write_text("# nothing\n")
        longest = duration_of(place, operation.command(place))
        hits = 0
        for _ in range(rounds):
            fresh(place, operation)
            process = place.start(operation.command(place))
            time.sleep(random.uniform(0, longest))
            process.kill()
            process.communicate()
            hits += process.returncode == -signal.SIGKILL
            after_a_kill(place, operation, before, after)
        return hits


def of_settings(programs, rounds):
    """What was reported as written is there after the kill, and the file is whole."""
    random = dice("kill settings")
    with Place(programs) as place:
        reported = set()
        for number in range(rounds):
            process = place.start([programs.settings_writer, str(place.root / "config"), f"r{number}-", "500"])
            time.sleep(random.uniform(0.002, 0.05))
            process.kill()
            out, _ = process.communicate()
            reported |= set(out.decode().split("\n")[:-1])
            kept = settings_of(place)
            missing = [name for name in reported if kept.get(name) != name]
            demand(not missing, f"settings lost by a kill: {missing[:5]}")
        return rounds


def of_plug_in(programs, rounds):
    """A plug-in is the former one or the new one, whole, whenever its generator is killed; the user's files stay."""
    random = dice("kill generate")
    with Place(programs) as place:
        folder = place.work / "ZeltoPlugIn/cpp"

        def plug_in_of(project):
            demand(place.zbc("generate", project, "-o", str(folder)).returncode == 0, f"{project} is not generated")
            return {path.relative_to(folder): path.read_bytes() for path in folder.rglob("*") if path.is_file()}

        for name, messages in (("Few.zbp", "S1F1,S1F3"), ("Many.zbp", "S1F1,S1F3,S2F41,S6F11,S5F1,S7F3")):
            demand(place.zbc("convert", "semi", name, "--messages", messages).returncode == 0, "no project")
        plug_in_of("Few.zbp")
        own = folder / "messages/Own.user.h"
        own.write_text("// mine\n")
        wholes = [plug_in_of("Few.zbp"), plug_in_of("Many.zbp")]
        demand(wholes[0] != wholes[1], "both projects give the same plug-in")
        command = [programs.zbc, "generate", "Few.zbp", "-o", str(folder)]
        longest = duration_of(place, command)
        hits = 0
        for number in range(rounds):
            command[2] = ("Few.zbp", "Many.zbp")[number % 2]
            process = place.start(command)
            time.sleep(random.uniform(0, longest))
            process.kill()
            process.communicate()
            hits += process.returncode == -signal.SIGKILL
            found = {path.relative_to(folder): path.read_bytes() for path in folder.rglob("*") if path.is_file()}
            demand(found in wholes, "a killed generator leaves a part of a plug-in")
        plug_in_of("Few.zbp")
        left = [path.name for path in folder.parent.iterdir() if path != folder]
        demand(not left, f"a killed generator leaves {left}")
        return hits


def of_unsaved_work(programs, rounds):
    """What was kept of unsaved work is there after the kill, also when the recovery is killed itself."""
    random = dice("kill unsaved work")
    with Place(programs) as place:
        demand(place.zbc("convert", "semi", "P.zbp", "--messages", "S1F1,S1F3").returncode == 0, "no project")
        saved = (place.work / "P.zbp").read_bytes()
        command = [programs.work_writer, str(place.work / "P.zbp"), str(place.root / "state")]
        place.remember()
        for _ in range(rounds):
            place.reset()
            writer = place.start([*command, "write"])
            kept = int(writer.stdout.readline())
            time.sleep(random.uniform(0, 0.3))
            writer.kill()
            out, _ = writer.communicate()
            demand(writer.returncode == -signal.SIGKILL, "the program was not killed")
            # The last line may be cut off.
            kept = max([kept, *map(int, out.decode().split("\n")[:-1])])
            if random.random() < 0.5:
                recovery = place.start([*command, "recover"])
                time.sleep(random.uniform(0, 0.1))
                recovery.kill()
                recovery.communicate()
            done = place.run([*command, "recover"])
            demand(done.returncode == 0, f"the recovery fails or asks: {done.stderr!r}")
            found = int(done.stdout)
            demand(found >= kept, f"{kept} messages were kept, {found} are recovered")
            demand((place.work / "P.zbp").read_bytes() == saved, "the project file has changed without a save")
            traces = list((place.root / "state/sessions").iterdir())
            demand(len(traces) <= 2, f"{len(traces)} traces are left")
        return rounds


def attack(programs, is_long):
    for operation in OPERATIONS:
        yield operation.name + ", at each call", at_each_call(programs, operation), "kills"
        if is_long:
            yield operation.name + ", at random", at_random(programs, operation, 150), "kills"
    yield "unsaved work, at random", of_unsaved_work(programs, 200 if is_long else 10), "kills"
    yield "plug-in, at random", of_plug_in(programs, 150 if is_long else 20), "kills"
    yield "settings, at random", of_settings(programs, 150 if is_long else 10), "kills"
