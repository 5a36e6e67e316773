"""Something else is in the place of a file: a pipe, a socket, a device, a folder, a link; or a standard descriptor is closed."""

import os
import shutil
import socket
import stat
import subprocess

from common import Place, demand

LOG = "".join(f"2026-03-21 08:00:0{at % 10}.000 RECV [0x{at:08x}] S1F{at * 2 + 1} W\n<L [1]\n  <A 'text {at}'>\n>\n.\n"
              for at in range(100))
REDIRECTIONS = ("<&-", ">&-", "2>&-", ">&- 2>&-", "<&- >&- 2>&-", ">/dev/full", "2>/dev/full")


def reading(name):
    """Each verb with the file as its input."""
    project, library = name + ".zbp", name + ".sml"
    return (["list", project], ["check", project], ["build", project, "--out", "o"], ["add", project, "semi", "S1F1"],
            ["diff", project, "P.zbp"], ["merge", "P.zbp", project, "P.zbp", "-o", "M.zbp"], ["compat", "P.zbp", project],
            ["document", project], ["generate", project, "-o", "g"], ["rehearse", project, "R.log"], ["list", library],
            ["add", "P.zbp", library, "S1F1"], ["convert", library, "x.smd"], ["decode", library],
            ["learn", library, "x.sml"], ["rehearse", "P.zbp", library],
            ["rehearse", "P.zbp", "R.log", "--expect", library], ["script", library])


def writing(name):
    """Each verb with the file as its output."""
    project, library = name + ".zbp", name + ".sml"
    return (["convert", "semi", project], ["convert", "semi", library], ["merge", "P.zbp", "P.zbp", "Q.zbp", "-o", project],
            ["document", "P.zbp", "-o", library], ["diff", "P.zbp", "Q.zbp", "--html", library],
            ["decode", "R.log", "-o", library], ["learn", "R.log", library], ["learn", "R.log", project])


def fill(place):
    for name, messages in (("P.zbp", "S1F1,S1F3"), ("Q.zbp", "S1F1,S5F1")):
        demand(place.zbc("convert", "semi", name, "--messages", messages).returncode == 0, "no project")
    (place.work / "R.log").write_text(LOG)


def make_odd(kind, path):
    if kind == "pipe":
        os.mkfifo(path)
    elif kind == "socket":
        with socket.socket(socket.AF_UNIX) as unix:
            unix.bind(os.path.relpath(path))
    elif kind == "folder":
        path.mkdir()
    else:
        path.symlink_to({"device": "/dev/zero", "circle": path.name}[kind])


def odd_files(programs):
    """What is no file is neither read nor replaced, and nothing waits for it."""
    runs = 0
    with Place(programs) as place:
        fill(place)
        before = os.getcwd()
        os.chdir(place.work)
        try:
            for kind in ("pipe", "socket", "folder", "device", "circle"):
                for ending in (".zbp", ".sml"):
                    make_odd(kind, place.work / (kind + ending))
        finally:
            os.chdir(before)
        for kind in ("pipe", "socket", "folder", "device", "circle"):
            paths = [place.work / (kind + ending) for ending in (".zbp", ".sml")]
            kinds = [stat.S_IFMT(path.lstat().st_mode) for path in paths]
            for arguments in reading(kind) + writing(kind):
                done = place.zbc(*arguments)
                demand(done.returncode in (1, 3), f"{arguments!r} ends with {done.returncode}: {done.stderr!r}")
                demand(done.stderr.strip(), f"{arguments!r} fails without a word")
                demand([stat.S_IFMT(path.lstat().st_mode) for path in paths] == kinds, f"{arguments!r} replaced it")
                runs += 1
            shutil.rmtree(place.work / "o", ignore_errors=True)
    return runs


def received_links(programs):
    """A folder that came from others has links and guards in it; what they lead to stays."""
    runs = 0
    with Place(programs) as place:
        fill(place)
        demand(place.zbc("add", "P.zbp", "semi", "S2F41").returncode == 0, "no version")
        victim = place.root / "mine"
        for content in (b"known skeleton\n", (place.work / "P.zbp").read_bytes()):
            victim.write_bytes(content)
            dead = subprocess.Popen(["true"])
            dead.wait()
            for link in ("L.zbp", "M.zbp.conflicts", "P_version1.zbp", "L_version1.zbp"):
                (place.work / link).unlink(missing_ok=True)
                (place.work / link).symlink_to("../mine")
            guard = place.work / f".L.zbp.zbguard-{dead.pid}"
            guard.write_bytes(b"zbguard 0 %d\n" % (len(content) + 4) + content + b"evil")
            for arguments in (["list", "L.zbp"], ["check", "L.zbp"], ["diff", "L.zbp", "P.zbp"], ["document", "L.zbp"],
                              ["generate", "L.zbp", "-o", "g"], ["merge", "L.zbp", "P.zbp", "Q.zbp", "-o", "M.zbp"],
                              ["merge", "P.zbp", "Q.zbp", "P.zbp", "-o", "M.zbp"], ["history", "P.zbp", "--restore", "1"]):
                place.zbc(*arguments)
                demand(victim.read_bytes() == content, f"{arguments!r} changed a file elsewhere")
                runs += 1
    return runs


def closed_descriptors(programs):
    """What is printed goes into no file, and a result that cannot be printed is no success."""
    runs = 0
    with Place(programs) as place:
        fill(place)
        for arguments in writing("new"):
            target = place.work / arguments[-1]
            target.unlink(missing_ok=True)
            status = place.zbc(*arguments).returncode
            expected = target.read_bytes()
            for redirection in REDIRECTIONS:
                target.unlink()
                done = place.run(["sh", "-c", f'exec "$@" {redirection}', "sh", programs.zbc, *arguments])
                demand(target.read_bytes() == expected, f"{arguments!r} {redirection} writes another file")
                isShown = ">&-" not in redirection.replace("2>&-", "") and redirection != ">/dev/full"
                demand(done.returncode == (status if isShown else 3),
                       f"{arguments!r} {redirection} ends with {done.returncode}")
                runs += 1
    return runs


def unreadable_recordings(programs):
    """Each read of a recording fails in turn."""
    with Place(programs) as place:
        fill(place)
        (place.work / "R.log").write_text(LOG * 200)
        log = place.root / "calls"
        shim = {"LD_PRELOAD": programs.shim, "ATTACK_ROOT": str(place.work / "R.log")}
        done = place.zbc("decode", "R.log", **shim, ATTACK_AT="0", ATTACK_COUNT=str(log))
        calls = log.read_text().splitlines()
        demand(done.returncode == 0 and len(calls) > 5, f"the recording is not read: {done.stderr!r}")
        faults = 0
        for number, call in enumerate(calls, 1):
            if not call.startswith("read "):
                continue
            found = place.zbc("decode", "R.log", **shim, ATTACK_AT=str(number), ATTACK_FAULT="EIO")
            demand(found.returncode != 0 or found.stdout == done.stdout, f"read {number} fails without a word")
            demand(found.returncode == 0 or found.stderr.strip(), f"read {number} fails without a reason")
            faults += 1
        return faults


def attack(programs, _is_long):
    yield "other things in the place of files", odd_files(programs), "runs of all verbs"
    yield "links of a received folder", received_links(programs), "runs"
    yield "closed and full descriptors", closed_descriptors(programs), "runs"
    yield "recordings that cannot be read on", unreadable_recordings(programs), "faults"
