#!/usr/bin/env python3
"""Traces carry the names of the system's own functions, by which people filter them.

A helper, which is a function in an unnamed namespace or one that no header declares as extern "C",
traces under its caller's name: it takes an NpWhere and hands it on. This check reads the sources of
sdk/ and lists the helpers that would show their own name. Usage: trace_names.py SOURCE_DIR
"""
import pathlib
import re
import sys

SDK = pathlib.Path(sys.argv[1]) / "sdk"
TEXTS = {path: path.read_text() for path in sorted(SDK.rglob("*")) if path.suffix in (".h", ".cpp")}
FUNCTION = re.compile(r"^(?:[\w:<>*&]+ )+[*&]*(\w+)\(([^;{]*?)\)\n\{\n(.*?)^\}$", re.M | re.S)
ANONYMOUS = re.compile(r"^namespace \{$.*?^\}  // namespace$", re.M | re.S)
EXTERN_C = re.compile(r'^extern "C" \{$.*?^\}', re.M | re.S)
DECLARED = re.compile(r"^(?:[\w:<>*&]+ )+[*&]*(\w+)\([^;{]*\);", re.M)
MACRO = re.compile(r"^#define (\w+)\((?:.*\\\n)*.*", re.M)


def arguments(text, start):
    """The text between a parenthesis at start and its match."""
    depth = 0
    for i in range(start, len(text)):
        depth += (text[i] == "(") - (text[i] == ")")
        if depth == 0:
            return text[start + 1 : i]
    return text[start:]


everything = "\n".join(TEXTS.values())
# What names the function that it stands in: the statements, the macros over them, and the functions
# that fill in their caller where nobody gives one.
speakers = {"NP_TRACE"}
for _ in range(3):
    for macro in MACRO.finditer(everything):
        body = macro.group(0).split(")", 1)[1]
        if re.search(r"\b(%s)\(|Np_Here\(\)" % "|".join(speakers), body) and "##" not in body:
            speakers.add(macro.group(1))
takers = set(re.findall(r"\b(\w+)\([^(){};]*NpWhere \w+ = Np_Here\(\)\)", everything))
wrong = []
for path, text in TEXTS.items():
    hidden = [block.span() for block in ANONYMOUS.finditer(text)]
    loose = set(DECLARED.findall(EXTERN_C.sub("", TEXTS.get(path.with_suffix(".h"), ""))))
    for function in FUNCTION.finditer(text):
        name, _, body = function.groups()
        inside = any(first < function.start() < last for first, last in hidden)
        if not inside and name not in loose:
            continue
        said = [w for w in speakers if re.search(r"\b%s\(" % w, body)]
        said += [w for w in ("Np_Here()", "__func__") if w in body]
        for call in re.finditer(r"\b(%s)\(" % "|".join(takers), body):
            if not re.search(r"\bstWhere\b|Np_Here\(\"", arguments(body, call.end() - 1)):
                said.append(call.group(1))
        for what in said:
            wrong.append(f"{path.relative_to(SDK.parent)}: {name} traces under its own name: {what}")
print("\n".join(wrong) or f"{len(takers)} helpers trace under their callers' names")
sys.exit(1 if wrong else 0)
