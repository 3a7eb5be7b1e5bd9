#!/usr/bin/env python3
"""Prints the code size of the tables: text and constant data of each object below sdk/tables, and
what that makes for each described row, so that growth is seen.

usage: text_size.py BUILD_FOLDER
"""
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
# Sections that are code, and those that are constants, descriptions among them.
CODE = re.compile(r"\.text")
CONSTANTS = re.compile(r"\.(rodata|data\.rel\.ro)")


def section_sizes(path):
    """Bytes of code and of constants in an object file."""
    listing = subprocess.run(
        ["size", "-A", str(path)], check=True, capture_output=True, text=True
    ).stdout
    code = constants = 0
    for line in listing.splitlines():
        words = line.split()
        if len(words) != 3 or not words[1].isdigit():
            continue
        code += int(words[1]) if CODE.match(words[0]) else 0
        constants += int(words[1]) if CONSTANTS.match(words[0]) else 0
    return code, constants


def main():
    folder = pathlib.Path(sys.argv[1]) / "CMakeFiles/ldsdk_sdk.dir/sdk/tables"
    objects = sorted(folder.glob("*.o"))
    if not objects:
        sys.exit(f"text_size.py: no objects in {folder}")
    print(f"\n{'tables':<24}{'rows':>6}{'code':>10}{'constants':>12}{'bytes a row':>14}")
    total = [0, 0, 0]
    for path in objects:
        source = ROOT / "sdk/tables" / path.name.removesuffix(".o")
        rows = len(re.findall(r"Np_RowMake<", source.read_text()))
        code, constants = section_sizes(path)
        per_row = (code + constants) // rows if rows else 0
        print(f"{source.name:<24}{rows:>6}{code:>10}{constants:>12}{per_row or '-':>14}")
        total = [a + b for a, b in zip(total, (rows, code, constants))]
    rows, code, constants = total
    print(f"{'all':<24}{rows:>6}{code:>10}{constants:>12}{(code + constants) // rows:>14}")


main()
