#!/usr/bin/env python3
"""Builds the module for a 32-bit ARM kernel of the distribution and drives it in an emulator.

Fetches the kernel, its headers and busybox as packages (no root, kept in the work folder), builds
the three modules and the template of a sibling, checks their objects, boots, loads them, runs every
script of the examples and one line of every command through /dev/ldsdk, unloads, and compares what
the module printed with what the host build prints for the same lines.
Usage: arm_kernel.py SOURCE_DIR HOST_BUILD ARM_BUILD WORK_DIR
Exit status: 0; 1 something is wrong; 77 the packages can't be fetched.
"""
import base64
import gzip
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import kernel_clean

CROSS = "arm-linux-gnueabi-"
FLAVOUR = "armmp"
FOREIGN = "armhf"
MODULES = ("ldsdk_chip", "ldsdk_arm", "ldsdk_sibling", "ldsdk_check")  # in the order of loading
SOURCES = ("include", "platform", "sdk", "chipmodel")
MACHINE = ("qemu-system-arm -M virt,gic-version=2,highmem=off -cpu cortex-a15 -smp 2 -m 256 -nographic"
           " -no-reboot -nic none").split()
# The log has to hold what one command prints; the allocator looks for bytes outside of blocks.
BOOT = ("console=ttyAMA0 panic=-1 oops=panic loglevel=6 log_buf_len=8M slub_debug=FZP "
        "rdinit=/init")
BOOT_SECONDS = 400
TROUBLE_SECONDS = 3  # for what the kernel has to say about it
TROUBLE = re.compile(r"Internal error|Oops|BUG[: ]|WARNING:|Unable to handle|Kernel panic|leak:|"
                     r"scheduling while atomic|possible recursive locking|rcu: INFO|stuck:")


NO_PACKAGES = 77


class Failure(Exception):
    pass


def run(*command, **options):
    done = subprocess.run([str(word) for word in command], text=True, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, **options)
    if done.returncode != 0:
        raise Failure(f"{' '.join(str(word) for word in command[:6])} ...: exit status "
                      f"{done.returncode}\n{done.stdout[-4000:]}")
    return done.stdout


def step(text):
    print(f"[{time.monotonic() - STARTED:6.1f} s] {text}", flush=True)


# ---- packages ----------------------------------------------------------------------------------

def fetch(work):
    """Unpacks the packages below work/root, once, and gives the kernel's version."""
    root, stamp = work / "root", work / "version"
    if stamp.exists():
        return stamp.read_text().strip()
    shutil.rmtree(root, ignore_errors=True)
    debs, lists, cache = work / "debs", work / "apt/lists", work / "apt/cache"
    for folder in (debs, lists / "partial", cache / "archives/partial", root):
        folder.mkdir(parents=True, exist_ok=True)
    native = run("dpkg", "--print-architecture").strip()
    # An index of our own, so that the machine's package system stays as it is.
    options = ["-o", f"APT::Architectures::={native}", "-o", f"APT::Architectures::={FOREIGN}",
               "-o", f"Dir::State::Lists={lists}", "-o", f"Dir::Cache={cache}",
               "-o", "APT::Sandbox::User=root"]
    # An index may fail to load: what counts is that the packages are found.
    subprocess.run(["apt-get", *options, "update", "-qq"], stdout=subprocess.DEVNULL,
                   stderr=subprocess.DEVNULL, check=False)
    depends = run("apt-cache", *options, "depends", f"linux-image-{FLAVOUR}:{FOREIGN}")
    found = re.search(rf"linux-image-(\S+)-{FLAVOUR}:{FOREIGN}", depends.split("\n", 1)[1])
    if not found:
        raise Failure("the package lists name no kernel:\n" + depends)
    version = found.group(1)
    shown = run("apt-cache", *options, "show", "--no-all-versions",
                f"linux-image-{version}-{FLAVOUR}:{FOREIGN}")
    package = re.search(r"^Version: (\S+)", shown, re.M).group(1)
    series = ".".join(version.split(".")[:2])
    run("apt-get", *options, "download", "-qq",
        f"linux-image-{version}-{FLAVOUR}:{FOREIGN}={package}",
        f"linux-headers-{version}-{FLAVOUR}:{FOREIGN}={package}",
        f"linux-headers-{version}-common={package}", f"linux-kbuild-{series}={package}",
        f"busybox-static:{FOREIGN}", cwd=debs)
    for deb in sorted(debs.glob("*.deb")):
        run("dpkg", "-x", deb, root)
    makefile = root / f"usr/src/linux-headers-{version}-{FLAVOUR}/Makefile"
    makefile.write_text(makefile.read_text().replace("include /usr/src/",
                                                     f"include {root}/usr/src/"))
    stamp.write_text(version + "\n")
    return version


# ---- modules -----------------------------------------------------------------------------------

def make_modules(folder, work, version, *more):
    printed = run("make", f"-j{os.cpu_count()}", "-C",
                  work / f"root/usr/src/linux-headers-{version}-{FLAVOUR}", f"M={folder}",
                  "ARCH=arm", f"CROSS_COMPILE={CROSS}", *more, "modules")
    complaints = [line for line in printed.splitlines()
                  if re.search(r"\.(c|cpp|h):\d+.*warning:|^\s*WARNING: modpost", line)]
    if complaints:
        raise Failure("the build warns:\n" + "\n".join(complaints))


def build_modules(source, work, version):
    tree = work / "modules"
    for folder in SOURCES:
        for path in sorted((source / folder).rglob("*")):
            link = tree / path.relative_to(source)
            if path.is_file() and not link.is_symlink():
                link.parent.mkdir(parents=True, exist_ok=True)
                link.symlink_to(path)
    for link in list(tree.rglob("*")):
        if link.is_symlink() and not link.exists():
            link.unlink()
    kbuild = tree / "Kbuild"
    if not kbuild.is_symlink():
        kbuild.symlink_to(source / "platform/linux/Kbuild")
    make_modules(tree, work, version)
    faults = []
    for folder in ("sdk", "chipmodel"):
        for target in sorted((tree / folder).rglob("*.o")):
            faults += kernel_clean.check_object(target.relative_to(tree), target)
    for name in MODULES:
        faults += kernel_clean.check_sections(name, tree / f"{name}.ko")
        print(run(CROSS + "size", tree / f"{name}.ko").splitlines()[1])
    if faults:
        raise Failure("\n".join(faults))
    return tree


def build_example(source, work, version, tree):
    """The template of a sibling, as its own page says: from include/ and Module.symvers alone."""
    folder = work / "sibling"
    shutil.rmtree(folder, ignore_errors=True)
    shutil.copytree(source / "examples/sibling", folder)
    make_modules(folder, work, version, f"LDSDK={source}",
                 f"KBUILD_EXTRA_SYMBOLS={tree / 'Module.symvers'}")
    return sorted(folder.glob("*.ko"))


# ---- scripts -----------------------------------------------------------------------------------

def collect_scripts(source, work):
    """The example scripts, and two that are made: every command, every failure."""
    folder = work / "scripts"
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    for path in sorted((source / "examples/scripts").glob("*.ldsdk")):
        # What looks into a table of the chip calls the SDK besides, which a device has not.
        (folder / path.name).write_text(re.sub(r"(?m)^chip (lookup|show) .*\n", "",
                                               path.read_text()))
    page = (source / "docs/commands.md").read_text()
    lines = re.findall(r"^    (micro .*)$", page, re.M)
    if len(lines) < 50:
        raise Failure("docs/commands.md has too few example lines")
    # Large commands ask for their fields first; then the same with prompts off.
    (folder / "every-command.ldsdk").write_text(
        "\n".join([*lines, "micro prompt off", *lines]) + "\n")
    (folder / "failures.ldsdk").write_text("\n".join(failure_lines(source)) + "\n")
    return folder


def failure_lines(source):
    """Bring-up and tear-down with each driver function's first call failing, then allocations."""
    operations = re.findall(r"X\((\w+), \d\)", (source / "chipmodel/ops_list.h").read_text())
    if len(operations) < 40:
        raise Failure("chipmodel/ops_list.h has too few functions")
    faults = [f"{name} nth={nth} code=5" for name in operations for nth in (1, 2)]
    faults += [f"alloc nth={nth}" for nth in range(1, 28)]
    down, up = "micro dfx system destruct", "micro dfx system init"
    lines = []
    for fault in faults:
        lines += [f"chip fault {fault}", down, up, "chip fault list", "chip fault clear", down, up]
    return lines


def run_on_host(host_build, scripts, out):
    out.mkdir(parents=True, exist_ok=True)
    for script in sorted(scripts.iterdir()):
        with open(out / script.name, "wb") as file:
            subprocess.run([host_build / "bin/ldsdk", "--script", script], stdout=file, check=True)


# ---- boot --------------------------------------------------------------------------------------

def pack_image(source, host_build, arm_build, work, tree, version, examples):
    image = work / "image"
    shutil.rmtree(image, ignore_errors=True)
    for folder in ("bin", "dev", "proc", "sys", "tmp", "modules", "scripts"):
        (image / folder).mkdir(parents=True)
    shutil.copy(work / "root/bin/busybox", image / "bin/busybox")
    shutil.copy(source / "platform/linux/guest_init.sh", image / "init")
    (image / "init").chmod(0o755)
    run(CROSS + "strip", "-o", image / "bin/ldsdk", arm_build / "bin/ldsdk")
    run(CROSS + "gcc", "-static", "-O1", "-Wall", "-Wextra", "-Werror", "-I", source, "-I",
        source / "include", "-o", image / "bin/guest_check",
        source / "platform/linux/guest_check.c")
    for module in [tree / f"{name}.ko" for name in MODULES] + examples:
        run(CROSS + "strip", "--strip-debug", "-o", image / "modules" / module.name, module)
    shutil.copy(host_build / "share/ldsdk/forward.npimg", image / "modules/forward.npimg")
    for script in (work / "scripts").iterdir():
        shutil.copy(script, image / "scripts" / script.name)
    names = subprocess.run(["find", "."], cwd=image, stdout=subprocess.PIPE, check=True).stdout
    packed = subprocess.run(["cpio", "-o", "-H", "newc", "--quiet", "-R", "0:0"], cwd=image,
                            input=names, stdout=subprocess.PIPE, check=True).stdout
    initrd = work / "initrd.gz"
    initrd.write_bytes(gzip.compress(packed, 1))
    return work / f"root/boot/vmlinuz-{version}-{FLAVOUR}", initrd


def boot(kernel, initrd, log):
    """Runs the machine to its end, or to what ends a check: trouble, or too much time."""
    def text():
        return log.read_text(errors="replace").replace("\r", "")

    with open(log, "wb") as file:
        machine = subprocess.Popen([*MACHINE, "-kernel", str(kernel), "-initrd", str(initrd),
                                    "-append", BOOT],
                                   stdin=subprocess.DEVNULL, stdout=file, stderr=subprocess.STDOUT)
        end = time.monotonic() + BOOT_SECONDS
        while machine.poll() is None and time.monotonic() < end and not TROUBLE.search(text()):
            time.sleep(1)
        try:
            machine.wait(TROUBLE_SECONDS)
        except subprocess.TimeoutExpired:
            machine.kill()
            machine.wait()
    return text()


def check_log(serial, host_out, guest_out):
    """What is wrong with a boot, as a list of texts."""
    faults = [line for line in serial.splitlines() if TROUBLE.search(line)]
    faults += re.findall(r"^@@failed .*$", serial, re.M)
    if not re.search(r"^@@result done$", serial, re.M):
        faults.append("no result line: the machine stopped early")
    guest_out.mkdir(parents=True, exist_ok=True)
    printed = dict(re.findall(r"^@@begin (\S+)\n(.*?)^@@end \1$", serial, re.M | re.S))
    for expected in sorted(host_out.iterdir()):
        name = expected.name
        if name not in printed:
            faults.append(f"{name}: nothing came back")
            continue
        text = base64.b64decode(printed[name])
        (guest_out / name).write_bytes(text)
        if text != expected.read_bytes():
            faults.append(f"{name}: prints other lines than on the host; "
                          f"compare {expected} {guest_out / name}")
        else:
            lines = text.count(b"\n")
            print(f"{name}: {lines} lines, {len(text)} bytes, as on the host")
    return faults


def main():
    source, host_build, arm_build, work = (pathlib.Path(word).resolve() for word in sys.argv[1:5])
    work.mkdir(parents=True, exist_ok=True)
    step("packages")
    try:
        version = fetch(work)
    except Failure as failure:
        print(f"the packages can't be fetched: {failure}")
        return NO_PACKAGES
    step(f"modules for {version}-{FLAVOUR}")
    tree = build_modules(source, work, version)
    examples = build_example(source, work, version, tree)
    step("scripts on the host")
    scripts = collect_scripts(source, work)
    host_out = work / "out/host"
    shutil.rmtree(work / "out", ignore_errors=True)
    run_on_host(host_build, scripts, host_out)
    step("boot")
    kernel, initrd = pack_image(source, host_build, arm_build, work, tree, version, examples)
    serial = boot(kernel, initrd, work / "serial.log")
    faults = check_log(serial, host_out, work / "out/kernel")
    step("done")
    for fault in faults:
        print("FAULT:", fault)
    if faults:
        print(f"the whole log: {work / 'serial.log'}")
    return 1 if faults else 0


if __name__ == "__main__":
    STARTED = time.monotonic()
    try:
        sys.exit(main())
    except (Failure, subprocess.SubprocessError) as failure:
        print(f"FAULT: {failure}")
        sys.exit(1)
