#!/usr/bin/env python3
"""The code examples of a documentation page, taken from the page as it stands, so that the test
suite runs every example exactly as a reader would copy it.

  doc_examples.py extract PAGE FOLDER    writes each example to FOLDER/<its file name>, and what the
                                         page says it prints to FOLDER/<its file name>.expected;
                                         prints the file names, one a line
  doc_examples.py run EXPECTED COMMAND... runs COMMAND and fails unless it prints exactly what
                                         EXPECTED holds (line ends aside)

An example is a fenced code block whose first line is a comment naming its file ("// walk.cpp",
"' zoom.vbs: run with ..."). The fenced block right after it whose info string is "text" is what
it prints; an example without one must print nothing.
"""
import os
import re
import subprocess
import sys

FENCE = re.compile(r"^```([\w+-]*)\n(.*?)^```\n", re.S | re.M)
NAMED = re.compile(r"^\s*(?://|'|#)\s*([\w.-]+\.(?:cpp|vbs|js))\b")


def examples(page):
    text = open(page, encoding="utf-8").read()
    blocks = [(m.group(1), m.group(2), m.start(), m.end()) for m in FENCE.finditer(text)]
    found = []
    for i, (language, body, _, end) in enumerate(blocks):
        named = NAMED.match(body.split("\n", 1)[0])
        if not named:
            continue
        expected = ""
        if i + 1 < len(blocks) and blocks[i + 1][0] == "text" and not text[end:blocks[i + 1][2]].count("```"):
            expected = blocks[i + 1][1]
        found.append((named.group(1), body, expected))
    names = [name for name, _, _ in found]
    if len(set(names)) != len(names):
        sys.exit(f"{page}: two examples share a file name")
    return found


def extract(page, folder):
    os.makedirs(folder, exist_ok=True)
    for name, body, expected in examples(page):
        for path, content in ((os.path.join(folder, name), body), (os.path.join(folder, name + ".expected"), expected)):
            # Written only when changed, so that a rebuild does not recompile unchanged examples.
            try:
                if open(path, encoding="utf-8").read() == content:
                    continue
            except OSError:
                pass
            open(path, "w", encoding="utf-8").write(content)
        print(name)


def run(expected_file, command):
    finished = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=300)
    printed = finished.stdout.decode("utf-8", errors="replace").replace("\r\n", "\n")
    expected = open(expected_file, encoding="utf-8").read()
    if finished.returncode != 0 or printed != expected:
        print(f"{' '.join(command)} ended with status {finished.returncode} and printed:\n{printed}"
              f"--- the page says it prints:\n{expected}--- its errors:\n"
              f"{finished.stderr.decode('utf-8', errors='replace')}")
        return 1
    return 0


def main(argv):
    if len(argv) == 3 and argv[0] == "extract":
        extract(argv[1], argv[2])
        return 0
    if len(argv) >= 3 and argv[0] == "run":
        return run(argv[1], argv[2:])
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
