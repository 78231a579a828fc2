#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""tools/tidy on a small tree of its own: it finds what is planted, and reads again only what could have changed."""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
SOUND = "int* nowhere() { return nullptr; }\n"
PLANTED = "int* nowhere() { return 0; }\n"


class Tidy(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.scratch = pathlib.Path(scratch.name).resolve()
        self.tree = self.scratch / "tree"
        for folder in ("base", "build/release"):
            (self.tree / folder).mkdir(parents=True)
        shutil.copy(SOURCE / ".clang-tidy", self.tree)
        self.put(".gitignore", "/build/\n")
        self.put("base/place.h", "inline int place() { return 1; }\n")
        self.put("base/place.cpp", '#include "base/place.h"\n' + SOUND)
        self.put("base/other.cpp", SOUND)
        commands = [self.command(name) for name in ("base/place.cpp", "base/other.cpp")]
        self.put("build/release/compile_commands.json", json.dumps(commands))
        self.git("init", "--quiet", "--initial-branch=work")
        self.commit()
        self.commit()

    def command(self, name):
        # As where GCC takes compiled headers, which clang-tidy could not read.
        headers = f"-Winvalid-pch -include {self.tree}/build/release/cmake_pch.hxx -fpch-preprocess"
        flags = f"-I{self.tree} -std=c++20 -Wall -Wno-restrict -Werror {headers}"
        words = f"env CCACHE_DIR=/none c++ {flags} -o {name}.o -c {self.tree / name}"
        return {"directory": str(self.tree), "command": words, "file": str(self.tree / name)}

    def put(self, name, text):
        (self.tree / name).write_text(text, encoding="utf-8")

    def git(self, *words):
        identity = ["-c", "user.name=T", "-c", "user.email=t@localhost", "-c", "commit.gpgsign=false"]
        subprocess.run(["git", *identity, *words], cwd=self.tree, check=True, stdout=subprocess.DEVNULL)

    def commit(self):
        self.git("add", "--all")
        self.git("commit", "--quiet", "--allow-empty", "--message=state")

    def tidy(self, *words):
        """The status of tools/tidy, what it printed, and how many sources it read anew."""
        calls = self.scratch / "calls"
        calls.write_text("")
        counting = self.scratch / "counting"
        counting.write_text(f'#!/bin/sh\n[ "$1" = --version ] || echo >>"{calls}"\nexec clang-tidy "$@"\n')
        counting.chmod(0o755)
        environment = {**os.environ, "XDG_CACHE_HOME": str(self.scratch / "cache")}
        words = [SOURCE / "tools/tidy", "--source", self.tree, "--tidy", counting, *words]
        ended = subprocess.run([str(word) for word in words], capture_output=True, text=True, env=environment)
        return ended.returncode, ended.stdout + ended.stderr, calls.read_text().count("\n")

    def test_a_sound_tree_passes_and_is_read_once(self):
        status, said, read = self.tidy("--all")
        self.assertEqual((status, read), (0, 2), said)
        self.assertIn("2 of 2 sources read, findings in 0", said)
        self.assertEqual(self.tidy("--all")[::2], (0, 0))

    def test_sources_that_are_compiled_together_are_read_one_by_one(self):
        self.put("base/other.cpp", PLANTED)
        together = "build/release/unity_0_cxx.cxx"
        names = [self.tree / "base/place.cpp", self.tree / "base/other.cpp"]
        self.put(together, "/* generated */\n\n" + "".join(f'#include "{name}"\n\n' for name in names))
        self.put("build/release/compile_commands.json", json.dumps([self.command(together)]))
        status, said, read = self.tidy("--all")
        self.assertEqual((status, read), (1, 2), said)
        self.assertIn("base/other.cpp:1", said)

    def test_a_planted_finding_fails_every_time(self):
        self.put("base/other.cpp", PLANTED)
        for _ in range(2):
            status, said, read = self.tidy()
            self.assertEqual((status, read), (1, 1), said)
            self.assertIn("base/other.cpp:1:25: error: use nullptr [modernize-use-nullptr", said)
            self.assertIn("1 of 1 sources read, findings in 1", said)

    def test_a_warning_of_the_compiler_is_a_finding(self):
        self.put("base/other.cpp", "int same(int x) { return x = x; }\n")
        status, said, _ = self.tidy()
        self.assertEqual(status, 1, said)
        self.assertIn("clang-diagnostic-self-assign", said)

    def test_a_header_is_read_through_its_source_and_not_kept(self):
        self.assertEqual(self.tidy("--all")[0], 0)
        self.put("base/place.h", PLANTED.replace("int*", "inline int*").replace("nowhere", "place"))
        status, said, read = self.tidy()
        self.assertEqual((status, read), (1, 1), said)
        self.assertIn("base/place.h:1:", said)

    def test_what_changed_is_counted_from_the_branch_point(self):
        self.git("update-ref", "refs/remotes/origin/main", "HEAD")
        self.put("base/other.cpp", PLANTED)
        self.commit()
        self.put("notes.txt", "no source\n")
        self.commit()
        self.assertEqual(self.tidy()[0], 1)
        self.git("update-ref", "refs/remotes/origin/main", "HEAD")
        status, said, read = self.tidy()
        self.assertEqual((status, read), (0, 0), said)
        self.assertEqual(self.tidy("--since", "HEAD~2")[0], 1)

    def test_without_history_all_is_read(self):
        shutil.rmtree(self.tree / ".git")
        status, said, read = self.tidy()
        self.assertEqual((status, read), (0, 2), said)

    def test_time_that_is_over_is_told(self):
        status, said, read = self.tidy("--all", "--minutes", "0")
        self.assertEqual((status, read), (0, 0))
        self.assertIn("0 of 2 sources read", said)
        self.assertIn("2 wait for the next run", said)

    def test_it_says_when_it_cannot_look(self):
        self.assertEqual(self.tidy("--since", "nowhere")[0], 2)
        self.assertEqual(self.tidy("--all", "--tidy", str(self.scratch / "none"))[0], 2)
        (self.tree / "build/release/compile_commands.json").unlink()
        self.assertEqual(self.tidy("--all")[0], 2)


if __name__ == "__main__":
    unittest.main(verbosity=2)
