/* ldsdk_check: for the boot check, a second sibling at work. A thread calls the SDK on the chip
   that ldsdk_sibling brought up, and the watchdog hook, which bring-up and tear-down call in
   another process, sees to it that no call gets through meanwhile. */
#include "ldsdk/ldsdk.h"
#include "platform/linux/shim.h"

#include <linux/atomic.h>
#include <linux/delay.h>
#include <linux/err.h>
#include <linux/init.h>
#include <linux/kernel.h>
#include <linux/kthread.h>
#include <linux/module.h>
#include <linux/printk.h>
#include <linux/sched.h>

#define CHIP 0u

static struct task_struct *worker;
static atomic_t calls = ATOMIC_INIT(0);
static unsigned int lines; /* that the SDK printed for the worker */

static void watchdog(void)
{
    const int before = atomic_read(&calls);

    if (current == READ_ONCE(worker)) {
        return;
    }
    msleep(2);
    /* One may have been out, and not counted yet. */
    if (atomic_read(&calls) > before + 1) {
        pr_err("BUG: ldsdk_check: calls run beside bring-up or tear-down\n");
    }
}

/* A chip that is down has no flags of its channels; anything else than that is half a chip. */
static void count(const char *call, uint32_t status)
{
    atomic_inc(&calls);
    if (status != NP_OK && status != NP_ERR_NULL_PTR) {
        pr_err("BUG: ldsdk_check: %s gives 0x%08x\n", call, status);
    }
}

/* Calls that use what bring-up allocates. */
static int work(void *unused)
{
    const NpArlKey key = {.ulSvlanID = 7, .aucMacAddr = {0, 1, 2, 3, 4, 5}};
    const NpArlData data = {.stLearnData = {.ulOpCode = 1, .ulIntfID = 5}};
    NpNormalAge age = {.ulAgeTime = 4};
    unsigned int turn;

    for (turn = 0; !kthread_should_stop(); turn++) {
        if (turn % 64 == 0) {
            Np_INIT_SdkCmdTreeInstall(); /* again, which prints a line and does nothing */
            lines++;
        }
        age.ulAgeEnable ^= 1;
        count("ageing", Np_ArlTbl_NormalAge(CHIP, &age));
        count("add", Np_ArlTbl_Add(CHIP, &key, &data));
        count("delete", Np_ArlTbl_Del(CHIP, 0, &key));
        cond_resched();
    }
    return 0;
}

static int __init check_init(void)
{
    struct task_struct *task = kthread_run(work, NULL, "ldsdk_check");

    if (IS_ERR(task)) {
        return PTR_ERR(task);
    }
    WRITE_ONCE(worker, task);
    Np_GLB_ClearWatchDogHook(watchdog);
    return 0;
}

/* The board's hook takes over again before this module goes. */
static void __exit check_exit(void)
{
    const int pid = worker->pid;

    kthread_stop(worker);
    if (Ld_SdkHold() == 0) {
        Np_GLB_ClearWatchDogHook(Ld_BoardWatchDog);
        Ld_SdkRelease();
    }
    pr_notice("ldsdk_check: %d calls, %u lines of pid %d\n", atomic_read(&calls), lines, pid);
}

module_init(check_init);
module_exit(check_exit);
MODULE_LICENSE("Dual MIT/GPL");
MODULE_DESCRIPTION("A sibling at work, for the boot check");
