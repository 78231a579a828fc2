#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""docs_test.py SOURCE: the examples of docs/library.md are the text of their files; its headers and errors are all there are."""

import pathlib
import re
import sys


def main():
    source = pathlib.Path(sys.argv[1])
    page = (source / "docs/library.md").read_text(encoding="utf-8")
    blocks = set(re.findall(r"^```\w+\n(.*?)^```$", page, re.MULTILINE | re.DOTALL))
    lines = []
    examples = sorted((source / "examples/firstlines").glob("first.c*"))
    for example in examples:
        text = example.read_text(encoding="utf-8").split("\n", 1)[1]  # without the line of the licence
        if f"`{example.relative_to(source)}`" not in page or text not in blocks:
            lines.append(f"docs/library.md has another text than {example.relative_to(source)}")
    for header in (source / "library/halvane").glob("*.h"):
        if header.name != "export.h" and f"`{header.name}`" not in page:
            lines.append(f"docs/library.md does not tell of {header.name}")
    statuses = re.search(r"enum halvane_statuses \{(.*?)\};", (source / "library/halvane/halvane.h").read_text(), re.DOTALL)
    for status in re.findall(r"(HALVANE_\w+) =", statuses[1]):
        if status != "HALVANE_OK" and f"`{status}`" not in page:
            lines.append(f"docs/library.md does not tell of {status}")
    print("\n".join(lines))
    return 1 if lines or len(examples) != 2 else 0


if __name__ == "__main__":
    sys.exit(main())
