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
logged "NP cli is installed."
logged "NP SDK is installed."
[ -c /dev/ldsdk ] || echo "@@failed no /dev/ldsdk"
[ "$(ldsdk --device /dev/ldsdk micro | wc -l)" = 1 ] || echo "@@failed the tree is not empty"

# A start that fails leaves nothing behind, and can be repeated.
insmod /modules/ldsdk_sibling.ko image=/nowhere 2>/dev/null && echo "@@failed it loads no image"
logged "ldsdk_sibling: /nowhere can't be read"
insmod /modules/ldsdk_sibling.ko image=/init 2>/dev/null && echo "@@failed it loads a script"
logged "ldsdk_sibling: loading microcode gives 0x9a000015"
step insmod /modules/ldsdk_sibling.ko image=/modules/forward.npimg
step guest_check

# An image comes through the device; an address that a line names is touched if the board has it.
step ldsdk --device /dev/ldsdk chip load /modules/forward.npimg
ldsdk --device /dev/ldsdk chip load /init 2>&1 | grep -q "the module answers 0x9a000015" ||
    echo "@@failed a script is loaded as microcode"
for address in 64 65536 268435456 3221258240 4294967295; do
    ldsdk --device /dev/ldsdk micro atom load addr $address len 65536 >/tmp/out
    grep -q "No image of 65536 bytes is registered" /tmp/out && grep -q "ulReturn = 0x9a000008" /tmp/out ||
        echo "@@failed micro atom load takes $address"
done

# A move of the clock that takes its time can be ended.
ldsdk --device /dev/ldsdk micro arl arltbl age normal ulAgeEnable 1 ulAgeTime 1 >/dev/null
ldsdk --device /dev/ldsdk chip advance 1000000000000000 &
mover=$!
sleep 1
kill $mover || echo "@@failed the clock moves too fast to look at"
begin=$(date +%s)
wait $mover
[ $(($(date +%s) - begin)) -le 2 ] || echo "@@failed a move of the clock does not end at a signal"
ldsdk --device /dev/ldsdk micro arl arltbl age normal ulAgeEnable 0 ulAgeTime 1 >/dev/null

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

# Runs a script again and again until /tmp/stop is there.
again()
{
    rm -f /tmp/stop
    (until [ -e /tmp/stop ]; do ldsdk --device /dev/ldsdk --script "$1"; done >/tmp/again 2>&1) &
}

# A sibling comes and goes for a minute while commands run on what bring-up allocates: they find a
# chip, or none.
for i in 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18 19 20; do
    key="ulType 0 ulSvlanID $i ulVsi 1 aucMacAddr 00-11-22-33-44-55"
    echo "micro arl arltbl age normal ulAgeEnable $((i % 2)) ulAgeTime 4"
    echo "micro arl arltbl set $key ulOpCode 1"
    echo "micro arl arltbl get bykey $key"
    echo "micro arl arltbl del bykey ulMacDelType static $key"
    echo "micro glb version sdk"
done >/tmp/state
again /tmp/state
cycles=0
end=$(($(date +%s) + 60))
while [ "$(date +%s)" -lt $end ]; do
    rmmod ldsdk_sibling || echo "@@failed rmmod ldsdk_sibling: $?"
    insmod /modules/ldsdk_sibling.ko || echo "@@failed insmod ldsdk_sibling: $?"
    cycles=$((cycles + 1))
done
touch /tmp/stop
wait
echo "@@step $cycles siblings came and went"
grep -q "execute success" /tmp/again || echo "@@failed no command finds a chip"

# Commands take the chip down and up under a sibling that uses it all the while.
step insmod /modules/ldsdk_check.ko
for i in 1 2 3 4 5 6 7 8 9 10; do
    echo "micro dfx system destruct"
    echo "micro dfx system init"
done >/tmp/downup
for i in 1 2 3 4 5 6 7 8; do
    ldsdk --device /dev/ldsdk --script /tmp/downup >/tmp/out || echo "@@failed down and up: $?"
    grep -c "execute success" /tmp/out | grep -qx 20 || echo "@@failed down and up is refused"
    # What the SDK prints for it is no part of a command's text, and comes line by line.
    ldsdk --device /dev/ldsdk --script /tmp/first | cmp - /tmp/first.alone ||
        echo "@@failed a command shows a sibling's text"
done
step rmmod ldsdk_check
set -- $(dmesg | sed -n 's/.*ldsdk_check: \([0-9]*\) calls, \([0-9]*\) lines of pid \([0-9]*\)/\1 \2 \3/p')
[ "$1" -gt 1000 ] || echo "@@failed the other sibling makes no calls: $*"
printed=$(dmesg | grep -c "ldsdk\[$3\]: Installed too many cmd groups!\$")
[ "$printed" = "$2" ] || echo "@@failed $printed of $2 lines are in the log"
step rmmod ldsdk_sibling

# The template of a sibling does what its page says, and its hooks outlast it.
step insmod /modules/example_board.ko
for i in 1 2; do
    step insmod /modules/example_sibling.ko
    ldsdk --device /dev/ldsdk micro qos dscp_map get index 7 >/tmp/out
    grep -q "auc1P63 *: *7 " /tmp/out || echo "@@failed the template has set no row"
    step rmmod example_sibling
done
ldsdk --device /dev/ldsdk micro dfx port_id_map phyid_to_portid phyid 1 >/dev/null
logged "example_board: error 0xe0000002"
rmmod example_board 2>/dev/null && echo "@@failed hooks went before the SDK"
step rmmod ldsdk_arm
[ -e /dev/ldsdk ] && echo "@@failed /dev/ldsdk stays"
logged "NP cli is removed."
logged "NP SDK is removed."
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
