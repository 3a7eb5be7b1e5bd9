/* ldsdk_chip: the chip model behind the driver's interface, the hooks of its board, and its debug
   door as the misc device ldsdk_chip. */
#include "chipmodel/debug.h"
#include "chipmodel/ops_list.h"
#include "platform/linux/named_lock.h"
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
#include <linux/printk.h>
#include <linux/sched.h>
#include <linux/sched/signal.h>
#include <linux/spinlock.h>
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

/* ---- microcode images ---- */

/* Image i has the words from IMAGE_FIRST + i * IMAGE_LARGEST on, where neither pointer size has
   kernel memory. */
#define IMAGES 4
#define IMAGE_FIRST 0x10000000u

static struct board_image {
    void *bytes; /* of vmalloc */
    uint32_t size;
    uint32_t users; /* gets without their puts; it stays meanwhile */
    uint32_t turn;  /* the least is the oldest */
} images[IMAGES];
static DEFINE_SPINLOCK(images_lock);

/* With the lock held. */
static struct board_image *image_find(uint32_t address)
{
    const uint32_t at = (address - IMAGE_FIRST) / LD_IMAGE_LARGEST;

    return address >= IMAGE_FIRST && at < IMAGES && images[at].bytes != NULL ? &images[at] : NULL;
}

static void *image_get(uint32_t address, uint32_t size)
{
    const uint32_t offset = (address - IMAGE_FIRST) % LD_IMAGE_LARGEST;
    struct board_image *image;
    void *found = NULL;
    unsigned long flags;

    spin_lock_irqsave(&images_lock, flags);
    image = image_find(address);
    if (image != NULL && offset <= image->size && size <= image->size - offset) {
        found = (char *)image->bytes + offset;
        image->users++;
    }
    spin_unlock_irqrestore(&images_lock, flags);
    return found;
}

static void image_put(uint32_t address)
{
    struct board_image *image;
    unsigned long flags;

    spin_lock_irqsave(&images_lock, flags);
    image = image_find(address);
    if (image != NULL && image->users != 0) {
        image->users--;
    }
    spin_unlock_irqrestore(&images_lock, flags);
}

static const OsImages board_images = {image_get, image_put};

const OsImages *Ld_BoardImages(void)
{
    return &board_images;
}

uint32_t Ld_BoardKeepImage(void *pvImage, uint32_t ulSize)
{
    static uint32_t turn;
    struct board_image *image, *place = NULL;
    void *old = pvImage;
    unsigned long flags;
    uint32_t address = 0;

    spin_lock_irqsave(&images_lock, flags);
    for (image = images; image != images + IMAGES && ulSize <= LD_IMAGE_LARGEST; image++) {
        if (image->users == 0 && (place == NULL || image->turn < place->turn)) {
            place = image;
        }
    }
    if (place != NULL) {
        old = place->bytes;
        *place = (struct board_image){pvImage, ulSize, 0, ++turn};
        address = IMAGE_FIRST + (uint32_t)(place - images) * LD_IMAGE_LARGEST;
    }
    spin_unlock_irqrestore(&images_lock, flags);
    vfree(old);
    return address;
}

static void images_end(void)
{
    int i;

    for (i = 0; i < IMAGES; i++) {
        vfree(images[i].bytes);
    }
}

/* ---- the chip's power ---- */

DEFINE_NAMED_LOCK(debug_lock, "the chip's debug lock");

uint32_t Ld_ChipAttach(uint32_t ulChipID)
{
    uint32_t status;

    named_lock_take(&debug_lock);
    status = Ld_ModelAttach(ulChipID);
    named_lock_give(&debug_lock);
    return status;
}

uint32_t Ld_ChipDetach(uint32_t ulChipID)
{
    uint32_t status;

    named_lock_take(&debug_lock);
    status = Ld_ModelDetach(ulChipID);
    named_lock_give(&debug_lock);
    return status;
}

EXPORT_SYMBOL(Ld_BoardDelay);
EXPORT_SYMBOL(Ld_BoardWatchDog);
EXPORT_SYMBOL(Ld_BoardLock);
EXPORT_SYMBOL(Ld_BoardUnlock);
EXPORT_SYMBOL(Ld_BoardRecordError);
EXPORT_SYMBOL(Ld_BoardImages);
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

/* Calls of the door come one at a time, and a chip's power stays meanwhile. They are not kept apart
   from what the SDK does: the model is one thread's. */
static struct LdDebugCall debug_call;

/* A move of the clock can take minutes: others run meanwhile, and a signal ends it. */
static bool debug_cut; /* of the call under way */

static bool debug_go_on(void)
{
    named_lock_progress(&debug_lock);
    cond_resched();
    debug_cut = debug_cut || signal_pending(current);
    return !debug_cut;
}

static long take_image(struct LdDebugImage __user *user)
{
    struct LdDebugImage image;
    void *bytes;

    if (copy_from_user(&image, user, sizeof(image)) != 0) {
        return -EFAULT;
    }
    if (image.size == 0) {
        return -EINVAL;
    }
    if (image.size > LD_IMAGE_LARGEST) {
        return -EFBIG;
    }
    bytes = vmalloc(image.size);
    if (bytes == NULL) {
        return -ENOMEM;
    }
    if (copy_from_user(bytes, (const void __user *)(uintptr_t)image.bytes, image.size) != 0) {
        vfree(bytes);
        return -EFAULT;
    }
    image.address = Ld_BoardKeepImage(bytes, image.size);
    if (image.address == 0) {
        return -EBUSY;
    }
    return copy_to_user(user, &image, sizeof(image)) != 0 ? -EFAULT : 0;
}

static long debug_ioctl(struct file *file, unsigned int request, unsigned long argument)
{
    void __user *user = (void __user *)argument;
    long result = 0;

    if (request == LD_DEBUG_IMAGE_REQUEST) {
        return take_image(user);
    }
    if (request != LD_DEBUG_REQUEST) {
        return -ENOTTY;
    }
    if (named_lock_take_killable(&debug_lock) != 0) {
        return -EINTR;
    }
    if (copy_from_user(&debug_call, user, sizeof(debug_call)) != 0) {
        result = -EFAULT;
    }
    else {
        debug_cut = false;
        debug_call.result = Ld_Debug(&debug_call);
        if (debug_cut) {
            result = -EINTR;
        }
        else if (copy_to_user(user, &debug_call, sizeof(debug_call)) != 0) {
            result = -EFAULT;
        }
    }
    named_lock_give(&debug_lock);
    return result;
}

static const struct file_operations debug_file_ops = {
    .owner = THIS_MODULE,
    .unlocked_ioctl = debug_ioctl,
    .compat_ioctl = compat_ptr_ioctl,
};

static struct miscdevice debug_device = {
    .minor = MISC_DYNAMIC_MINOR,
    .name = LD_DEBUG_DEVICE,
    .fops = &debug_file_ops,
    .mode = 0600,
};

static int __init chip_init(void)
{
    Ld_ModelPace(debug_go_on);
    return misc_register(&debug_device);
}

static void __exit chip_exit(void)
{
    misc_deregister(&debug_device);
    named_lock_end(&debug_lock);
    images_end();
}

module_init(chip_init);
module_exit(chip_exit);
MODULE_LICENSE("Dual MIT/GPL");
MODULE_DESCRIPTION("Behavioural model of a network processor");
