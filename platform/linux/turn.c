/* Who is inside the SDK at a time. It has no lock of its own, so here

   - commands come one at a time, under command_lock;
   - exported calls of siblings are counted, and come at any time, beside a command too: which of
   them may overlap is the sibling's matter, as its headers say;
   - bring-up, tear-down and whoever holds the SDK (Ld_SdkHold) are alone: they have command_lock,
   and no call is inside.

   A call that finds somebody alone waits, and is refused after TURN_SECONDS; so is the one who
   wants to be alone while a call stays inside. Nobody waits where sleeping is not allowed. */
#include "platform/linux/turn.h"
#include "platform/linux/named_lock.h"
#include "platform/linux/shim.h"
#include "platform/os.h"

#include <linux/atomic.h>
#include <linux/export.h>
#include <linux/irqflags.h>
#include <linux/preempt.h>
#include <linux/wait.h>

#define TURN_SECONDS 5
#define ALONE (-1)

DEFINE_NAMED_LOCK(command_lock, "the command lock");
static struct task_struct *owner; /* who has it; only the owner itself finds itself here */
static struct task_struct *command;

static atomic_t calls = ATOMIC_INIT(0); /* inside; ALONE */
static DECLARE_WAIT_QUEUE_HEAD(changes);

/* Of who is alone. */
static unsigned int alone_depth;
static bool alone_took_lock; /* and did not have it before */

static bool is_owner(void)
{
    return in_task() && READ_ONCE(owner) == current;
}

static bool may_wait(void)
{
    return in_task() && !in_atomic() && !irqs_disabled();
}

static void lock_taken(void)
{
    WRITE_ONCE(owner, current);
}

static void lock_give(void)
{
    WRITE_ONCE(owner, NULL);
    named_lock_give(&command_lock);
}

/* ---- commands ---- */

int turn_command_begin(void)
{
    const int result = named_lock_take_killable(&command_lock);

    if (result == 0) {
        lock_taken();
        WRITE_ONCE(command, current);
    }
    return result;
}

void turn_command_end(void)
{
    WRITE_ONCE(command, NULL);
    lock_give();
}

bool turn_is_command(void)
{
    return in_task() && READ_ONCE(command) == current;
}

/* ---- calls ---- */

/* Calls are short: the gap between two is met sooner by looking a while than by sleeping. */
static bool alone_try(void)
{
    int tries;

    for (tries = 0; tries < 1000; tries++) {
        if (atomic_read(&calls) == 0 && atomic_cmpxchg(&calls, 0, ALONE) == 0) {
            return true;
        }
        cpu_relax();
    }
    return false;
}

static OsTurn take_alone(void)
{
    const bool had_lock = is_owner();

    if (had_lock && alone_depth != 0) {
        alone_depth++;
        return OS_TURN_ALONE;
    }
    if (!may_wait()) {
        return OS_TURN_REFUSED;
    }
    if (!had_lock) {
        named_lock_take(&command_lock);
        lock_taken();
    }
    if (wait_event_timeout(changes, alone_try(), TURN_SECONDS * HZ) == 0) {
        pr_warn("ldsdk_arm: refused: %d exported calls are still inside after %d s\n",
                atomic_read(&calls), TURN_SECONDS);
        if (!had_lock) {
            lock_give();
        }
        return OS_TURN_REFUSED;
    }
    alone_depth = 1;
    alone_took_lock = !had_lock;
    return OS_TURN_ALONE;
}

static OsTurn take_shared(void)
{
    if (atomic_inc_unless_negative(&calls)) {
        return OS_TURN_SHARED;
    }
    if (is_owner()) {
        return OS_TURN_NESTED;
    }
    if (may_wait() &&
        wait_event_timeout(changes, atomic_inc_unless_negative(&calls), TURN_SECONDS * HZ) != 0) {
        return OS_TURN_SHARED;
    }
    return OS_TURN_REFUSED;
}

OsTurn Os_TurnTake(OsTurn enTurn)
{
    return enTurn == OS_TURN_ALONE ? take_alone() : take_shared();
}

void Os_TurnGive(OsTurn enTurn)
{
    if (enTurn == OS_TURN_SHARED && atomic_dec_return(&calls) == 0 && wq_has_sleeper(&changes)) {
        wake_up_all(&changes);
    }
    if (enTurn == OS_TURN_ALONE && --alone_depth == 0) {
        const bool took_lock = alone_took_lock;

        atomic_set_release(&calls, 0);
        wake_up_all(&changes);
        if (took_lock) {
            lock_give();
        }
    }
}

/* ---- siblings ---- */

int Ld_SdkHold(void)
{
    return Os_TurnTake(OS_TURN_ALONE) == OS_TURN_ALONE ? 0 : -EBUSY;
}
EXPORT_SYMBOL(Ld_SdkHold);

void Ld_SdkRelease(void)
{
    Os_TurnGive(OS_TURN_ALONE);
}
EXPORT_SYMBOL(Ld_SdkRelease);

void turn_end(void)
{
    named_lock_end(&command_lock);
}
