"""Each call on a file fails in turn: a damaged or full disk, a quota, an interrupted call, a short write."""

from common import OPERATIONS, Failure, Place, contents, demand, demand_whole, fill, fresh

FAULTS = ("EIO", "ENOSPC", "EDQUOT", "EINTR", "SHORT", "FULL")
# A short write and an interrupted read or write are no failures: the rest is written by further calls.
HARMLESS = ("SHORT",)
RETRIED = ("open", "read", "write", "fsync", "close", "ftruncate")


def calls_of(place, operation):
    """The calls on files below the place that a run makes, as (call, path)."""
    log = place.root / "calls"
    done = place.run(operation.command(place), LD_PRELOAD=place.programs.shim, ATTACK_ROOT=str(place.root),
                     ATTACK_AT="0", ATTACK_COUNT=str(log))
    demand(done.returncode == 0, f"{operation.name} fails while its calls are counted: {done.stderr!r}")
    calls = [tuple(line.split(" ", 1)) for line in log.read_text().splitlines()]
    log.unlink()
    return calls


def one(place, operation, before, after, number, call, fault):
    fresh(place, operation)
    done = place.run(operation.command(place), LD_PRELOAD=place.programs.shim, ATTACK_ROOT=str(place.root),
                     ATTACK_AT=str(number), ATTACK_FAULT=fault)
    what = f"{operation.name}, {fault} at call {number} ({call[0]} {call[1]})"
    try:
        demand(done.returncode in (0, 1, 3), f"exit status {done.returncode}: {done.stderr!r}")
        demand(done.returncode == 0 or done.stderr.strip(), "a failure without a word")
        if fault in HARMLESS or (fault == "EINTR" and call[0] in RETRIED):
            demand(done.returncode == 0, f"this is no reason to fail: {done.stderr!r}")
        if operation.linked:
            # Where a full disk does not even let the old content back, the next read completes the new one.
            demand(place.zbc("list", "P.zbp").returncode == 0, "the project cannot be read")
        demand_whole(place, operation, before, after)
        if done.returncode == 0:
            demand(contents(place, operation) == after, "reports success, and the file is the old one")
        # What cannot be removed stays, of course, until the next run.
        if call[0] != "unlink":
            left = [name for name in place.litter() if not name.startswith("tmp/") or call[0] != "open"]
            demand(not left, f"leaves {left}")
    except Failure as failure:
        raise Failure(f"{what}: {failure}") from None


def limited_size(programs):
    """The limit of a file's size, at which the system would end a program that did not see to it."""
    for operation in OPERATIONS[:4]:
        with Place(programs) as place:
            before, after = fill(place, operation)
            for limit in (0, 100, len(after[operation.targets[0]]) // 2):
                fresh(place, operation)
                done = place.run(["prlimit", f"--fsize={limit}", *operation.command(place)])
                what = f"{operation.name}, files of at most {limit} bytes"
                demand(done.returncode in (1, 3), f"{what}: exit status {done.returncode}: {done.stderr!r}")
                demand(contents(place, operation) == before, f"{what}: the file has changed")
                demand(not place.litter(), f"{what}: leaves {place.litter()}")
    return 3 * 4


def attack(programs, is_long):
    for operation in OPERATIONS:
        with Place(programs) as place:
            before, after = fill(place, operation)
            calls = calls_of(place, operation)
            injected = 0
            for number, call in enumerate(calls, 1):
                faults = FAULTS if is_long else (FAULTS[number % len(FAULTS)],)
                for fault in faults:
                    if fault in ("SHORT", "FULL") and call[0] != "write":
                        continue
                    one(place, operation, before, after, number, call, fault)
                    injected += 1
        yield operation.name, injected, f"faults at {len(calls)} calls"
    yield "limit of a file's size", limited_size(programs), "writes past it"
