#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""tools/licence on a small tree: it finds a source without its licence, and adds the line where a comment may stand."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

PROGRAM = pathlib.Path(__file__).resolve().parents[2] / "tools/licence"
LINE = "SPDX-License-Identifier: MIT"
WITHOUT = {
    "a.cpp": "#include <a>\n",
    "b.h": "#pragma once\n",
    "c.py": "#!/usr/bin/env python3\nprint()\n",
    "CMakeLists.txt": "project(p)\n",
    "d.ui": '<?xml version="1.0" encoding="UTF-8"?>\n<ui/>\n',
    "run": "#!/bin/sh\ntrue\n",
    "e.inc": f"// It is not {LINE}\n",
}
WITH = {
    "a.cpp": f"// {LINE}\n#include <a>\n",
    "b.h": f"// {LINE}\n#pragma once\n",
    "c.py": f"#!/usr/bin/env python3\n# {LINE}\nprint()\n",
    "CMakeLists.txt": f"# {LINE}\nproject(p)\n",
    "d.ui": f'<?xml version="1.0" encoding="UTF-8"?>\n<!-- {LINE} -->\n<ui/>\n',
    "run": f"#!/bin/sh\n# {LINE}\ntrue\n",
    "e.inc": f"// {LINE}\n// It is not {LINE}\n",
}
NO_SOURCES = {"notes.txt": "words\n", "data.vsk": "1\r\n", "LICENSE": "MIT License\n"}


class Licence(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.tree = pathlib.Path(scratch.name)

    def put(self, files):
        for name, text in files.items():
            (self.tree / name).write_bytes(text.encode())

    def files(self):
        return {path.name: path.read_bytes().decode() for path in self.tree.iterdir()}

    def run_it(self, *words):
        ended = subprocess.run([sys.executable, PROGRAM, *words, self.tree], capture_output=True, text=True)
        return ended.returncode, ended.stdout

    def test_sources_without_the_line_are_named(self):
        self.put({**NO_SOURCES, **WITHOUT})
        status, said = self.run_it()
        self.assertEqual(status, 1)
        self.assertEqual(sorted(said.splitlines()[:-1]), sorted(f"{name}: lacks {LINE}" for name in WITHOUT))

    def test_one_alone_is_enough(self):
        for name, text in WITHOUT.items():
            self.put({**NO_SOURCES, **WITH, name: text})
            self.assertEqual(self.run_it()[0], 1, name)

    def test_the_line_is_added_once(self):
        self.put({**NO_SOURCES, **WITHOUT})
        for _ in range(2):
            self.assertEqual(self.run_it("--add")[0], 0)
            self.assertEqual(self.files(), {**NO_SOURCES, **WITH})
        self.assertEqual(self.run_it()[0], 0)

    def test_a_tree_without_sources_is_no_success(self):
        self.put(NO_SOURCES)
        self.assertEqual(self.run_it()[0], 1)


if __name__ == "__main__":
    unittest.main()
