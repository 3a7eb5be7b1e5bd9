/* ldsdk_chip: the chip model behind the driver's interface, the hooks of its board, and its debug
   door as the misc device ldsdk_chip. */
#include "chipmodel/debug.h"
#include "chipmodel/ops_list.h"
#include "platform/linux/shim.h"
#include "platform/os.h"

#include <linux/atomic.h>
#include <linux/export.h>
#include <linux/fs.h>
#include <linux/init.h>
#include <linux/ioctl.h>
#include <linux/kernel.h>
#include <linux/miscdevice.h>
#include <linux/module.h>
#include <linux/mutex.h>
#include <linux/printk.h>
#include <linux/uaccess.h>
#include <linux/vmalloc.h>

/* The one service of platform/os.h that the model needs: this module's own, as it loads first. */
int Os_Format(char *pszBuffer, size_t ulSize, const char *pszFormat, ...)
{
    va_list args;
    int length;

    va_start(args, pszFormat);
    length = vsnprintf(pszBuffer, ulSize, pszFormat, args);
    va_end(args);
    return length;
}

/* ---- the board's hooks ---- */

/* The model's time does not pass while the processor waits. */
void Ld_BoardDelay(uint32_t ulFirst, uint32_t ulSecond, uint32_t ulThird) {}

void Ld_BoardWatchDog(void) {}

static atomic_t lock_depth = ATOMIC_INIT(0);

uint32_t Ld_BoardLock(void)
{
    return (uint32_t)atomic_inc_return(&lock_depth) - 1;
}

void Ld_BoardUnlock(uint32_t ulKey)
{
    atomic_set(&lock_depth, (int)ulKey);
}

void Ld_BoardRecordError(uint32_t ulCode, uint32_t ulInfo)
{
    pr_notice("ldsdk_chip: error 0x%08x, info 0x%08x\n", ulCode, ulInfo);
}

static void *image;

void Ld_BoardKeepImage(void *pvImage)
{
    vfree(image);
    image = pvImage;
}

EXPORT_SYMBOL(Ld_BoardDelay);
EXPORT_SYMBOL(Ld_BoardWatchDog);
EXPORT_SYMBOL(Ld_BoardLock);
EXPORT_SYMBOL(Ld_BoardUnlock);
EXPORT_SYMBOL(Ld_BoardRecordError);
EXPORT_SYMBOL(Ld_BoardKeepImage);
EXPORT_SYMBOL(Ld_ChipAttach);
EXPORT_SYMBOL(Ld_ChipDetach);
EXPORT_SYMBOL(Ld_ChipBus);

/* ---- the driver's functions ---- */

#define EXPORT_OP(Function, Numbers) \
    extern void Function(void);      \
    EXPORT_SYMBOL(Function);
LDSDK_MODEL_DRIVER_OPS(EXPORT_OP)

/* ---- the debug door ---- */

/* Calls of the door come one at a time. They are not kept apart from what the SDK does meanwhile:
   the model is one thread's. */
static DEFINE_MUTEX(debug_lock);
static struct LdDebugCall debug_call;

static long debug_ioctl(struct file *file, unsigned int request, unsigned long argument)
{
    void __user *user = (void __user *)argument;
    long result = 0;

    if (request != LD_DEBUG_REQUEST) {
        return -ENOTTY;
    }
    if (mutex_lock_killable(&debug_lock) != 0) {
        return -EINTR;
    }
    if (copy_from_user(&debug_call, user, sizeof(debug_call)) != 0) {
        result = -EFAULT;
    }
    else {
        debug_call.result = Ld_Debug(&debug_call);
        if (copy_to_user(user, &debug_call, sizeof(debug_call)) != 0) {
            result = -EFAULT;
        }
    }
    mutex_unlock(&debug_lock);
    return result;
}

static const struct file_operations debug_file_ops = {
    .owner = THIS_MODULE,
    .unlocked_ioctl = debug_ioctl,
};

static struct miscdevice debug_device = {
    .minor = MISC_DYNAMIC_MINOR,
    .name = LD_DEBUG_DEVICE,
    .fops = &debug_file_ops,
    .mode = 0600,
};

static int __init chip_init(void)
{
    return misc_register(&debug_device);
}

static void __exit chip_exit(void)
{
    misc_deregister(&debug_device);
    vfree(image);
}

module_init(chip_init);
module_exit(chip_exit);
MODULE_LICENSE("Dual MIT/GPL");
MODULE_DESCRIPTION("Behavioural model of a network processor");
