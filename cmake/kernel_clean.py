#!/usr/bin/env python3
"""Proves that sdk/ and chipmodel/ can stand inside a 32-bit ARM kernel module.

Compiles every source with the flags of a kernel build (soft float, no PIC, freestanding, frames of
at most 1024 bytes), then looks for what the kernel's own link lets through: sections that nobody
runs, relocations that its loader refuses, symbols that no kernel exports.
Usage: kernel_clean.py SOURCE_DIR
"""
import concurrent.futures
import os
import pathlib
import re
import subprocess
import sys
import tempfile

CXX = "arm-linux-gnueabi-g++"
FLAGS = (
    "-std=gnu++20 -Os -march=armv7-a -marm -msoft-float -mno-unaligned-access -fno-pic "
    "-ffreestanding -fno-exceptions -fno-rtti -fno-threadsafe-statics -fno-use-cxa-atexit "
    "-fno-asynchronous-unwind-tables -fno-unwind-tables -fno-common -fno-strict-aliasing "
    "-fvisibility=hidden -Wall -Wextra -Werror -Wno-psabi -Wvla -Wdouble-promotion "
    "-Wframe-larger-than=1024"
).split()
BAD_SECTIONS = (
    ".init_array .fini_array .ctors .dtors .tbss .tdata .gcc_except_table .eh_frame .got"
).split()
RELOCATIONS = {
    "R_ARM_" + name
    for name in "NONE ABS32 CALL JUMP24 PREL31 MOVW_ABS_NC MOVT_ABS REL32".split()
}
BAD_SYMBOLS = re.compile(
    r"^(_GLOBAL_OFFSET_TABLE_|__cxa_.*|_Zn[wa].*|_Zd[la].*|__gxx.*|_ZTV.*|__aeabi_.*ldivmod"
    r"|__aeabi_[df].*|__(add|sub|mul|div)[ds]f3|atexit|__dso_handle|__popcount.*|__ffs.*"
    r"|__parity.*)$"
)
# What the compiler may call on its own, and a kernel exports.
COMPILER_CALLS = {
    "memcpy", "memset", "memmove", "memcmp",
    "__aeabi_uidiv", "__aeabi_uidivmod", "__aeabi_idiv", "__aeabi_idivmod",
    "__aeabi_llsl", "__aeabi_llsr", "__aeabi_lasr", "__aeabi_lmul",
    "__aeabi_unwind_cpp_pr0", "__aeabi_unwind_cpp_pr1", "__stack_chk_fail", "__stack_chk_guard",
}


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def compile_one(root, source, target):
    command = [CXX, *FLAGS, "-I", str(root), "-I", str(root / "include"), "-c", str(source), "-o",
               str(target)]
    done = subprocess.run(command, capture_output=True, text=True)
    return [] if done.returncode == 0 else [f"{source}: does not compile:\n{done.stderr}"]


def check_sections(source, target):
    faults = []
    for name in re.findall(r"^\s*\[\s*\d+\]\s+(\S+)", run("arm-linux-gnueabi-readelf", "-SW", target),
                           re.M):
        if any(name == bad or name.startswith(bad + ".") for bad in BAD_SECTIONS):
            faults.append(f"{source}: section {name}")
    return faults


def check_object(source, target):
    faults = check_sections(source, target)
    for kind in set(re.findall(r"\b(R_ARM_\w+)", run("arm-linux-gnueabi-readelf", "-rW", target))):
        if kind not in RELOCATIONS:
            faults.append(f"{source}: relocation {kind}")
    return faults


def unresolved(objects):
    """The names that a set of objects leaves open together."""
    defined, wanted = set(), set()
    for line in run("arm-linux-gnueabi-nm", *map(str, objects)).splitlines():
        fields = line.split()
        if len(fields) == 2 and fields[0] == "U":
            wanted.add(fields[1])
        elif len(fields) == 3 and fields[1] not in "tdbr":
            defined.add(fields[2])
    return wanted - defined


def check_folder(root, work, folder, doors):
    sources = sorted((root / folder).rglob("*.cpp"))
    if not sources:
        return [f"{folder}: no sources"]
    targets = [work / (folder + "_" + str(s.relative_to(root / folder)).replace("/", "_") + ".o")
               for s in sources]
    faults = []
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for found in pool.map(compile_one, [root] * len(sources), sources, targets):
            faults += found
    if faults:
        return faults
    for source, target in zip(sources, targets):
        faults += check_object(source.relative_to(root), target)
    for name in sorted(unresolved(targets)):
        if BAD_SYMBOLS.match(name) or not (doors.match(name) or name in COMPILER_CALLS):
            faults.append(f"{folder}: unresolved symbol {name}")
    text = sum(int(line.split()[0]) for line in
               run("arm-linux-gnueabi-size", *map(str, targets)).splitlines()[1:])
    print(f"{folder}: {len(sources)} objects, {text} bytes of text")
    return faults


def main():
    root = pathlib.Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        faults = check_folder(root, work, "sdk", re.compile(r"^(Os_|Q[dD]_)\w+$"))
        faults += check_folder(root, work, "chipmodel", re.compile(r"^Os_\w+$"))
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
