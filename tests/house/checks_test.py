#!/usr/bin/env python3
"""The checks of the source report what they are for: each is run over a small tree with known faults."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

HOME = pathlib.Path(__file__).resolve().parent.parent.parent
ROOMS = HOME / "scripts" / "rooms"
FILE_LENGTHS = HOME / "tests" / "house" / "file_lengths.py"


class Tree(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = pathlib.Path(self.folder.name)
        (self.root / "src").mkdir()
        (self.root / "tests").mkdir()

    def write(self, place, text):
        path = self.root / place
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, encoding="utf-8")

    def run_check(self, *command):
        done = subprocess.run([sys.executable, *map(str, command), str(self.root)], capture_output=True, text=True,
                              check=False)
        return done.returncode, done.stderr.splitlines()


class Arrows(Tree):
    def faults(self):
        return self.run_check(ROOMS, "check")

    def test_includes_of_lower_rooms_are_right(self):
        self.write("src/platform/text.cpp", '#include "platform/text.h"\n#include <string>\n')
        self.write("src/messages/sml/head.cpp", '#include "platform/text.h"\n#include "messages/sml/head.h"\n')
        self.write("src/desktop/forms/forms.cpp", '#include "shell/application.h"\n#include <QWidget>\n#include "ui_frmMain.h"\n')
        self.assertEqual(self.faults(), (0, []))

    def test_an_include_of_an_upper_room_is_named_with_its_line(self):
        self.write("src/messages/sml/head.cpp", '#include "platform/text.h"\n\n#include "controls/tree.h"\n')
        self.assertEqual(self.faults(), (
            1, ['src/messages/sml/head.cpp:3: #include "controls/tree.h": messages must not include controls']))

    def test_rooms_side_by_side_do_not_include_each_other(self):
        self.write("src/editor/find.h", '#include "modeler/state.h"\n')
        self.assertEqual(self.faults(), (
            1, ['src/editor/find.h:1: #include "modeler/state.h": editor must not include modeler']))

    def test_an_include_without_a_room_is_a_fault(self):
        self.write("src/editor/find.h", '#include "state.h"\n')
        self.assertEqual(self.faults(), (1, ['src/editor/find.h:1: #include "state.h": names no room']))

    def test_a_room_without_a_place_in_the_order_is_a_fault(self):
        self.write("src/attic/box.cpp", "")
        self.assertEqual(self.faults(), (1, ["src/attic: this room is not in the order of scripts/rooms"]))

    def test_qt_is_known_to_the_windows_alone(self):
        self.write("src/shell/application.cpp", "#include <QString>\n")
        self.write("tests/unit/shell/application_test.cpp", "#include <QtCore/qstring.h>\n")
        self.write("tests/screen/windows_test.cpp", "#include <QWidget>\n")
        self.assertEqual(self.faults(), (1, [
            "src/shell/application.cpp:1: #include <QString>: Qt is known in desktop/ alone",
            "tests/unit/shell/application_test.cpp:1: #include <QtCore/qstring.h>: Qt is known in tests/screen/ alone"]))

    def test_headers_of_the_system_are_in_one_folder(self):
        self.write("src/platform/posix/file_layer.cpp", "#include <unistd.h>\n#include <csignal>\n")
        self.write("src/platform/text_file.cpp", "#include <sys/stat.h>\n")
        self.write("src/desktop/main.cpp", "#include <csignal>\n")
        self.assertEqual(self.faults(), (1, [
            "src/desktop/main.cpp:1: #include <csignal>: headers of the system are included in platform/posix/ alone",
            "src/platform/text_file.cpp:1: #include <sys/stat.h>: "
            "headers of the system are included in platform/posix/ alone"]))


class Picture(Tree):
    def test_an_arrow_that_a_chain_of_others_replaces_is_left_out(self):
        self.write("src/platform/text.h", "")
        self.write("src/messages/record.h", '#include "platform/text.h"\n')
        self.write("src/model/store.h", '#include "messages/record.h"\n#include "platform/text.h"\n')
        drawing = self.root / "rooms.svg"
        self.assertEqual(self.run_check(ROOMS, "picture", drawing), (0, []))
        text = drawing.read_text(encoding="utf-8")
        self.assertEqual(text.count('fill="none"'), 2)
        self.assertIn(">model/<", text)
        self.assertNotIn(">shell/<", text)


class FileLengths(Tree):
    def test_a_file_of_400_lines_is_right_and_one_of_401_is_named(self):
        self.write("src/platform/text.cpp", "\n" * 400)
        self.write("tests/unit/platform/text_test.cpp", "\n" * 401)
        self.assertEqual(self.run_check(FILE_LENGTHS),
                         (1, ["tests/unit/platform/text_test.cpp: 401 lines, more than 400"]))

    def test_a_tree_without_sources_is_a_fault(self):
        self.assertEqual(self.run_check(FILE_LENGTHS), (1, ["no sources found"]))


if __name__ == "__main__":
    unittest.main()
