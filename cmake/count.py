#!/usr/bin/env python3
"""Counts the instructions of the operations of bench/count.cpp, each in a process of its own, and
prints them beside bench/counts.txt: those of the SDK, of the chip model, and of everything else
(the C library, the host's platform). Counts do not wander as times do.

usage: count.py [--check | --update] BUILD [ARM_BUILD]
  --check   quiet; fails when the SDK needs over 3 percent more than the file says
  --update  rewrites the file

The host's program runs under callgrind, the ARM one in an emulator that logs each instruction. A
file that another compiler made is no measure: then --check is skipped (exit status 77).
"""
import argparse
import bisect
import concurrent.futures
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
COUNTS = ROOT / "bench/counts.txt"
LIMIT = 1.03
PARTS = ("sdk", "model", "other")
OBJECTS = {"ldsdk_sdk.dir": "sdk", "ldsdk_model.dir": "model"}
# The same C library functions on every processor, bound before anything is counted.
ENVIRONMENT = {
    "PATH": os.environ["PATH"],
    "LD_BIND_NOW": "1",
    "GLIBC_TUNABLES": "glibc.cpu.hwcaps=-AVX2,-AVX512F,-AVX512VL,-AVX512BW,-ERMS,-FSRM,-EVEX",
}


class Program:
    """A build's counting program, and what its linker says of where code comes from."""

    def __init__(self, build):
        self.path = build / "bin/ldsdk_count"
        if not self.path.exists():
            sys.exit(f"count.py: {self.path} is not built")
        cache = (build / "CMakeCache.txt").read_text()
        kind = re.search(r"^CMAKE_BUILD_TYPE:\w+=(.*)$", cache, re.M)[1]
        found = next(build.glob("CMakeFiles/*/CMakeCXXCompiler.cmake")).read_text()
        compiler = re.search(r'^set\(CMAKE_CXX_COMPILER "(.*)"\)$', found, re.M)[1]
        about = subprocess.run([compiler, "--version"], check=True, capture_output=True, text=True)
        self.compiler = f"{about.stdout.splitlines()[0]}, {kind}"
        self.starts, self.ends, self.parts = [], [], []
        self.mark = None
        self.read_map(self.path.with_suffix(".map").read_text())

    def read_map(self, text):
        pieces = []
        for start, size, source in re.findall(
                r"^ \.text\S*\s+0x([0-9a-f]+)\s+0x([0-9a-f]+) (\S.*)$", text, re.M):
            part = next((OBJECTS[name] for name in OBJECTS if name in source), "other")
            if int(size, 16) != 0 and int(start, 16) != 0:
                pieces.append((int(start, 16), int(start, 16) + int(size, 16), part))
        for start, end, part in sorted(pieces):
            self.starts.append(start)
            self.ends.append(end)
            self.parts.append(part)
        if not {"sdk", "model"} <= set(self.parts):
            sys.exit(f"count.py: the map beside {self.path} names no objects")

    def part(self, address):
        at = bisect.bisect_right(self.starts, address) - 1
        return self.parts[at] if at >= 0 and address < self.ends[at] else "other"

    def names(self):
        return self.run([]).split()

    def run(self, command, *words):
        done = subprocess.run([*command, str(self.path), *words], env=ENVIRONMENT,
                              capture_output=True, text=True)
        if done.returncode != 0:
            sys.exit(f"count.py: {' '.join(words)}: {done.stderr.strip()}")
        return done.stdout


class Host(Program):
    def count(self, name):
        with tempfile.TemporaryDirectory() as folder:
            out = pathlib.Path(folder) / "out"
            self.run(["valgrind", "-q", "--tool=callgrind", "--toggle-collect=counted",
                      "--dump-instr=yes", "--compress-pos=no", "--compress-strings=no",
                      f"--callgrind-out-file={out}"], name)
            return self.read(out.read_text())

    def read(self, text):
        """Sums the lines "address line cost"; the one behind a "calls=" is what the callee cost."""
        counts = dict.fromkeys(PARTS, 0)
        ours = call = False
        for line in text.splitlines():
            if line.startswith("ob="):
                ours = line == f"ob={self.path}"
            elif line.startswith("calls="):
                call = True
            elif line.startswith("0x"):
                address, _, cost = line.split()
                if not call:
                    counts[self.part(int(address, 16)) if ours else "other"] += int(cost)
                call = False
        return counts


class Arm(Program):
    def __init__(self, build, sdk_only):
        """With sdk_only nothing else is logged, which takes a fraction of the time."""
        super().__init__(build)
        symbols = subprocess.run(["arm-linux-gnueabi-nm", "-S", str(self.path)], check=True,
                                 capture_output=True, text=True).stdout
        start, size = re.search(r"^(\w+) (\w+) T counted$", symbols, re.M).groups()
        self.first, self.last = int(start, 16), int(start, 16) + int(size, 16)
        ranges = [(self.first, self.last), *self.sdk_ranges()]
        self.filter = ["-dfilter", ",".join(f"{a:#x}..{b - 1:#x}" for a, b in ranges)]
        self.filter = self.filter if sdk_only else []
        usage = subprocess.run(["qemu-arm-static", "--help"], capture_output=True, text=True).stdout
        self.one = "-one-insn-per-tb" if "-one-insn-per-tb" in usage else "-singlestep"

    def sdk_ranges(self):
        ranges = []
        for start, end, part in zip(self.starts, self.ends, self.parts):
            if part == "sdk" and ranges and start - ranges[-1][1] < 16:  # alignment
                ranges[-1] = (ranges[-1][0], end)
            elif part == "sdk":
                ranges.append((start, end))
        return ranges

    def count(self, name):
        with tempfile.TemporaryDirectory() as folder:
            log = pathlib.Path(folder) / "log"
            self.run(["qemu-arm-static", "-cpu", "cortex-a9", self.one, "-d", "exec,nochain",
                      *self.filter, "-D", str(log)], name)
            return self.read(log.read_bytes())

    def read(self, text):
        """A line of the log is one instruction: "Trace 0: ... [base/address/flags/flags]"."""
        # what ran from the entry of the marked function to its return
        begin = text.index(b"/%08x/" % self.first)
        end = max(text.rfind(b"/%08x/" % at) for at in range(self.first, self.last, 4))
        counts = dict.fromkeys(PARTS, 0)
        known = {}
        for address in re.findall(rb"/([0-9a-f]{8})/[0-9a-f]{8}/", text[begin:end + 19]):
            part = known.get(address)
            if part is None:
                part = known[address] = self.part(int(address, 16))
            counts[part] += 1
        return counts


def measure(programs):
    """{operation: {(machine, part): instructions}}, in the program's order."""
    names = next(iter(programs.values())).names()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = {(name, machine): pool.submit(program.count, name)
                for name in names for machine, program in programs.items()}
        return {name: {(machine, part): count
                       for machine in programs
                       for part, count in jobs[name, machine].result().items()}
                for name in names}


def read_file():
    """The committed compilers by machine, and counts as measure() gives them."""
    compilers, counts, columns = {}, {}, []
    for line in COUNTS.read_text().splitlines() if COUNTS.exists() else []:
        words = line.split()
        if line.startswith("# built by"):
            compilers[words[3].rstrip(":")] = line.split(": ", 1)[1]
        elif line.startswith("operation"):
            columns = [tuple(word.split(".")) for word in words[1:]]
        elif words and not line.startswith("#"):
            counts[words[0]] = dict(zip(columns, map(int, words[1:])))
    return compilers, counts


def write_file(programs, counts):
    lines = ["# Instructions of one call, by where their code comes from. `make count` measures,",
             "# `make count-update` writes this file."]
    lines += [f"# built by {machine}: {program.compiler}" for machine, program in programs.items()]
    columns = [(machine, part) for machine in programs for part in PARTS]
    lines.append(f"{'operation':<18}" + "".join(f"{'.'.join(c):>12}" for c in columns))
    lines += [f"{name:<18}" + "".join(f"{count[c]:>12}" for c in columns)
              for name, count in counts.items()]
    COUNTS.write_text("\n".join(lines) + "\n")


def beside(now, then):
    if then is None or now == then:
        return str(now)
    return f"{now} ({100 * (now - then) / then:+.1f}%)" if then else f"{now} (+)"


def show(machine, counts, committed):
    print(f"{'instructions, ' + machine:<24}" + "".join(f"{part:>20}" for part in PARTS))
    for name, count in counts.items():
        then = committed.get(name, {})
        print(f"{name:<24}" + "".join(
            f"{beside(count[machine, part], then.get((machine, part))):>20}" for part in PARTS))
    print()


def faults_of(machine, counts, committed):
    faults = [f"{name}: counted no more, but in the file" for name in committed if name not in counts]
    for name, count in counts.items():
        then = committed.get(name, {}).get((machine, "sdk"))
        now = count[machine, "sdk"]
        if then is None:
            faults.append(f"{name} ({machine}): not in the file")
        elif now > then * LIMIT:
            faults.append(f"{name} ({machine}): {now} instructions of the SDK, "
                          f"{100 * (now - then) / then:.1f}% over {then}")
    return faults


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--check", action="store_true")
    parser.add_argument("--update", action="store_true")
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("arm_build", type=pathlib.Path, nargs="?")
    options = parser.parse_args()
    if shutil.which("valgrind") is None:
        print("count.py: valgrind is not there", file=sys.stderr)
        sys.exit(77 if options.check else 1)
    programs = {"host": Host(options.build.resolve())}
    if options.arm_build is not None:
        programs["arm"] = Arm(options.arm_build.resolve(), options.check)
    compilers, committed = read_file()
    same = {machine: program for machine, program in programs.items()
            if compilers.get(machine) == program.compiler}
    for machine in programs.keys() - same.keys():
        print(f"count.py: {machine}: bench/counts.txt is of another compiler: "
              f"{compilers.get(machine, 'none')}; here: {programs[machine].compiler}")
    if options.check and not same:
        sys.exit(77)
    counts = measure(same if options.check else programs)
    if not options.check:
        for machine in programs:
            show(machine, counts, committed if machine in same else {})
    if options.update:
        write_file(programs, counts)
        return
    faults = [fault for machine in same for fault in faults_of(machine, counts, committed)]
    for fault in faults:
        print(fault)
    if faults:
        sys.exit("count.py: what has to be so is written down by make count-update")


if __name__ == "__main__":
    main()
