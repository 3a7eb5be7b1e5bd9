#!/bin/sh
# Installs what a bare Debian 12 lacks. With everything there it takes a few milliseconds.
set -eu
packages="g++ cmake ninja-build make pkg-config python3 libgtest-dev libgmock-dev googletest \
libbenchmark-dev libreadline-dev libcli11-dev libpcap-dev libcapstone-dev tcpdump ieee-data \
python3-scapy golang-github-google-gopacket-dev \
g++-arm-linux-gnueabi binutils-arm-linux-gnueabi qemu-user-static"
case "${1:-}" in
    lint) packages="clang-format clang-tidy cppcheck" ;;
    fuzz) packages="clang libclang-rt-14-dev llvm" ;;
    valgrind) packages="valgrind" ;;
    kernel) packages="qemu-system-arm cpio xz-utils" ;;
esac
missing=""
for package in $packages; do
    dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
        missing="$missing $package"
done
[ -z "$missing" ] && exit 0
echo "installing:$missing" >&2
sudo=""
[ "$(id -u)" = 0 ] || sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -qq
# shellcheck disable=SC2086
$sudo apt-get install -y -qq --no-install-recommends $missing >/dev/null
