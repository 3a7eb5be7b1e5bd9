/* example_board: what the SDK calls of a board. The SDK keeps a hook until it is unloaded itself,
   so this module has no exit: a kernel does not unload it. */
#include "example_board.h"

#include <linux/delay.h>
#include <linux/export.h>
#include <linux/init.h>
#include <linux/module.h>
#include <linux/printk.h>
#include <linux/sched.h>

/* What the three words mean is up to the board; here they do not matter. */
void example_delay(uint32_t ulA, uint32_t ulB, uint32_t ulC)
{
    udelay(1);
}

/* Must not sleep during an online microcode load, which masks interrupts. */
void example_watchdog(void)
{
    if (!irqs_disabled()) {
        cond_resched();
    }
}

void example_record_error(uint32_t ulErrCode, uint32_t ulErrInfo)
{
    pr_notice("example_board: error 0x%08x, info 0x%08x\n", ulErrCode, ulErrInfo);
}

EXPORT_SYMBOL(example_delay);
EXPORT_SYMBOL(example_watchdog);
EXPORT_SYMBOL(example_record_error);

static int __init board_init(void)
{
    return 0;
}

module_init(board_init);
MODULE_LICENSE("Dual MIT/GPL");
MODULE_DESCRIPTION("Hooks of an example board");
