#!/usr/bin/env python3
"""The etcher as equipment and as host. The generated code compiles without a warning and passes its own test, both
sides talk to each other, and what they make of the recordings is what rehearsals make of them.

  etcher.py ZBC GENERATOR SOURCE_FOLDER cpp|java|csharp COMPILER
"""
import json
import os
import shutil
import sys
import tempfile
from pathlib import Path

import replaying
from replaying import run

PLUG_IN_TYPES = {"cpp": "1", "java": "4", "csharp": "5"}
SETTINGS_KEY = "SOFTWARE\\Halvern Works, Inc.\\Zeltorium .NET\\Zeltobench"


def project_of_host(equipment, host):
    text = equipment.read_text(encoding="utf-16")
    if text.count("ProjectType=2") != 1:
        sys.exit("not the project of an equipment")
    host.write_text(text.replace("ProjectType=2", "ProjectType=1"), encoding="utf-16", newline="\r\n")


def use_settings(work, language):
    values = {"SRCGen": "73", "PlugInType": PLUG_IN_TYPES[language]}
    (work / "config").mkdir()
    (work / "config/settings.json").write_text(json.dumps({"HKEY_LOCAL_MACHINE": {SETTINGS_KEY: values}}))
    os.environ["ZELTOBENCH_CONFIG"] = str(work / "config")


def day_cpp(work, own, compiler):
    for side in "equipment", "host":
        folder = work / side / "ZeltoPlugIn/cpp"
        run(["make", f"CXX={compiler}", "CXXFLAGS=-O0 -Wall -Wextra -Werror", "example", "test"], folder)
        run(["./example"], folder)
    for program in "day", "speed":
        shutil.copy(own / f"cpp/{program}.cpp", work)
    words = [compiler, "-std=c++20", "-Wall", "-Wextra", "-Werror"]
    folders = [f"{side}/ZeltoPlugIn/cpp" for side in ("equipment", "host")]
    run([*words, "-O0", "-o", "day", "day.cpp", *(f"{folder}/plug_in.o" for folder in folders)], work)
    print(run(["./day"], work), end="")
    run([*words, "-O2", "-o", "speed", "speed.cpp", f"{folders[0]}/plug_in.cpp"], work)
    print(run(["./speed"], work), end="")


def day_java(work, own, compiler):
    for side in "equipment", "host":
        run(["make", f"JAVAC={compiler}", "JAVACFLAGS=-Xlint -Werror", "test", "example"],
            work / side / "ZeltoPlugIn/java")
    path = ":".join(str(work / side / "ZeltoPlugIn/java/classes") for side in ("equipment", "host"))
    run([compiler, "-Xlint", "-Werror", "-cp", path, "-d", str(work), str(own / "java/Day.java")], work)
    print(run(["java", "-cp", f"{path}:{work}", "Day"], work), end="")


def day_csharp(work, own, compiler):
    for side in "equipment", "host":
        run(["make", f"CSC={compiler} -warnaserror", "test", "example"], work / side / "ZeltoPlugIn/csharp")
    sources = [str(own / "csharp/Day.cs")]
    for side, patterns in (("equipment", ("Zelto/*.cs", "PlugIn.cs", "Messages/*.cs", "Transactions/*.cs")),
                           ("host", ("PlugIn.cs", "Messages/*.cs", "Transactions/*.cs"))):
        for pattern in patterns:
            sources += [str(path) for path in sorted((work / side / "ZeltoPlugIn/csharp").glob(pattern))]
    run([compiler, "-warnaserror", "-r:System.Numerics", "-out:Day.exe", *sources], work)
    print(run(["mono", "Day.exe"], work), end="")


def main():
    zbc, generator, source, language, compiler = sys.argv[1:]
    own = Path(__file__).resolve().parent
    with tempfile.TemporaryDirectory() as name:
        work = Path(name)
        use_settings(work, language)
        equipment = work / "equipment/Etcher.zbp"
        host = work / "host/EtcherHost.zbp"
        for project in equipment, host:
            project.parent.mkdir()
        shutil.copy(Path(source) / "examples/etcher/Etcher.zbp", equipment)
        project_of_host(equipment, host)
        for project in equipment, host:
            run([generator, str(project)], work)
        {"cpp": day_cpp, "java": day_java, "csharp": day_csharp}[language](work, own, compiler)
        recordings = sorted((Path(source) / "examples/etcher/recordings").glob("*.hex"))
        cases = [(equipment, "Equipment", recordings), (host, "Host", recordings)]
        count = replaying.compare(zbc, language, compiler, work, cases)
        print(f"{count} messages of the recordings are the same")


if __name__ == "__main__":
    main()
