#!/bin/busybox sh
# First process of the emulated machine: loads the modules, runs the scripts through the device,
# unloads, and tells on the serial line what came of it.
/bin/busybox --install -s /bin
export PATH=/bin
mount -t proc proc /proc
mount -t sysfs sysfs /sys
mount -t devtmpfs devtmpfs /dev
stty -onlcr </dev/console 2>/dev/null

step()
{
    echo "@@step $*"
    "$@" || echo "@@failed $*: $?"
}

# The log says so, and that alone.
logged()
{
    dmesg | grep -qF "$1" || echo "@@failed nothing in the log: $1"
}

# In front of any sibling the device is there, and its tree is empty.
step insmod /modules/ldsdk_chip.ko
step insmod /modules/ldsdk_arm.ko
logged "ldsdk: NP cli is installed."
logged "ldsdk: NP SDK is installed."
[ -c /dev/ldsdk ] || echo "@@failed no /dev/ldsdk"
[ "$(ldsdk --device /dev/ldsdk micro | wc -l)" = 1 ] || echo "@@failed the tree is not empty"

# A start that fails leaves nothing behind, and can be repeated.
insmod /modules/ldsdk_sibling.ko image=/nowhere 2>/dev/null && echo "@@failed it loads no image"
logged "ldsdk_sibling: /nowhere can't be read"
step insmod /modules/ldsdk_sibling.ko image=/modules/forward.npimg
step guest_check

# Tools at the same time see their own text only.
for i in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
    echo "micro glb version sdk" >>/tmp/first
    echo "micro qos dscp_map get index $((i % 8))" >>/tmp/second
    echo "chip peek 0x60222200 64" >>/tmp/second
done
for script in first second; do
    ldsdk --device /dev/ldsdk --script /tmp/$script >/tmp/$script.alone || echo "@@failed $script"
done
for script in first second; do
    ldsdk --device /dev/ldsdk --script /tmp/$script >/tmp/$script.both &
done
wait
for script in first second; do
    cmp /tmp/$script.alone /tmp/$script.both || echo "@@failed tools see each other's text"
done

# Nor does a command come between another's read and write.
for how in together alone; do
    step guest_check $how
    for row in 0 1 2 3; do
        ldsdk --device /dev/ldsdk micro qos dscp_map get index $row
    done >/tmp/$how
done
[ "$(wc -c </tmp/alone)" -gt 4000 ] || echo "@@failed the rows are not shown"
cmp /tmp/together /tmp/alone || echo "@@failed commands of several processes are mixed up"

# A sibling comes and goes while commands run: they find a chip, or none.
(for i in 1 2 3; do ldsdk --device /dev/ldsdk --script /tmp/second; done >/dev/null 2>&1) &
for i in 1 2 3 4 5; do
    step rmmod ldsdk_sibling
    step insmod /modules/ldsdk_sibling.ko image=/modules/forward.npimg
done
wait
step rmmod ldsdk_sibling
step rmmod ldsdk_arm
[ -e /dev/ldsdk ] && echo "@@failed /dev/ldsdk stays"
logged "ldsdk: NP cli is removed."
logged "ldsdk: NP SDK is removed."
step rmmod ldsdk_chip

# Each script begins with a chip of its own.
for script in /scripts/*; do
    name=${script##*/}
    step insmod /modules/ldsdk_chip.ko
    step insmod /modules/ldsdk_arm.ko
    step insmod /modules/ldsdk_sibling.ko image=/modules/forward.npimg
    ldsdk --device /dev/ldsdk --script "$script" >/tmp/out || echo "@@failed ldsdk $name: $?"
    echo "@@begin $name"
    base64 /tmp/out
    echo "@@end $name"
    # A sibling in use can't take the SDK away, nor the SDK the chip.
    rmmod ldsdk_arm 2>/dev/null && echo "@@failed the SDK went while it was used"
    step rmmod ldsdk_sibling
    # Behind it, commands find no chip.
    ldsdk --device /dev/ldsdk micro arl arltbl get byindex index 0 >/tmp/out ||
        echo "@@failed ldsdk without a sibling: $?"
    grep -q "ulReturn = 0xe0000002" /tmp/out || echo "@@failed a chip that is gone answers"
    ldsdk --device /dev/ldsdk chip channels 2>&1 | grep -q "chip 0 is not attached" ||
        echo "@@failed the model shows a chip that is gone"
    step rmmod ldsdk_arm
    step rmmod ldsdk_chip
done
echo "@@result done"
poweroff -f
