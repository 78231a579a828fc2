#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""reference_test.py SOURCE: Doxygen reads the library's headers without a warning, and everything that is not a plain member
has its comment: functions, types, enumerations, constants, macros."""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

WITH_COMMENT = ("function", "enum", "typedef", "define")
NOT_FOR_USERS = ("HALVANE_INLINE", "HALVANE_EXPORT")


def is_plain(member):
    """Whether the language says what a function is: a comparison, a destructor, what is made as usual or not at all."""
    signature = (member.findtext("argsstring") or "").replace(" ", "")
    return member.findtext("name").startswith("~") or signature.endswith(("=default", "=delete"))


def has_comment(element):
    return any("".join(element.find(part).itertext()).strip() for part in ("briefdescription", "detaileddescription"))


def without_comment(folder):
    """The names of what wants a comment, and how many were looked at."""
    names, seen = [], 0
    for file in sorted(folder.glob("*.xml")):
        for compound in xml.parse(file).getroot().iter("compounddef"):
            kind = compound.get("kind")
            if kind in ("struct", "class"):
                seen += 1
                if not has_comment(compound) and not compound.findtext("compoundname").endswith(("::Parts", "::Rules")):
                    names.append(compound.findtext("compoundname"))
            if kind not in ("struct", "class", "namespace", "file"):
                continue
            for member in compound.iter("memberdef"):
                if member.get("kind") in WITH_COMMENT and member.findtext("name") not in NOT_FOR_USERS \
                        and not is_plain(member):
                    seen += 1
                    if not has_comment(member):
                        names.append(f"{compound.findtext('compoundname')}: {member.findtext('name')}")
    return sorted(set(names)), seen


def main():
    source = pathlib.Path(sys.argv[1])
    if not shutil.which("doxygen"):
        print("doxygen is not installed")
        return 77
    with tempfile.TemporaryDirectory(prefix="halvane-reference-") as output:
        settings = (source / "docs/reference/Doxyfile").read_text(encoding="utf-8")
        settings += f"\nOUTPUT_DIRECTORY = {output}\n"
        run = subprocess.run(["doxygen", "-"], input=settings, capture_output=True, text=True, cwd=source)
        if run.returncode != 0 or run.stderr:
            print(run.stderr)
            return 1
        names, seen = without_comment(pathlib.Path(output) / "xml")
        if not (pathlib.Path(output) / "html/index.html").is_file():
            names.append("there is no first page")
    for name in names:
        print(f"{name} has no comment")
    return 1 if names or seen < 250 else 0


if __name__ == "__main__":
    sys.exit(main())
