/* The services of platform/os.h in a Linux kernel.

   What the SDK prints goes to the kernel log line by line: "ldsdk: " and a whole line, or "ldsdk+ "
   and a piece of one that goes on in the next record. A reader that joins the pieces has the text
   byte for byte. */
#include "platform/os.h"
#include "platform/bus.h"
#include "platform/linux/shim.h"

#include <linux/atomic.h>
#include <linux/delay.h>
#include <linux/fs.h>
#include <linux/io.h>
#include <linux/irqflags.h>
#include <linux/kernel.h>
#include <linux/miscdevice.h>
#include <linux/mm.h>
#include <linux/module.h>
#include <linux/mutex.h>
#include <linux/preempt.h>
#include <linux/printk.h>
#include <linux/sched.h>
#include <linux/slab.h>
#include <linux/spinlock.h>
#include <linux/string.h>
#include <linux/uaccess.h>

/* ---- text ---- */

/* A record of the log holds about 1000 bytes. */
#define LOG_PIECE 900

static DEFINE_RAW_SPINLOCK(log_lock);
static char log_line[LOG_PIECE];
static size_t log_used;
static char log_text[1024];

/* With the lock held. */
static void log_emit(bool whole)
{
    printk(KERN_INFO "%s%.*s\n", whole ? "ldsdk: " : "ldsdk+ ", (int)log_used, log_line);
    log_used = 0;
}

static void log_put(const char *text)
{
    for (; *text != 0; text++) {
        if (*text == '\n') {
            log_emit(true);
            continue;
        }
        if (log_used == LOG_PIECE) {
            log_emit(false);
        }
        log_line[log_used++] = *text;
    }
}

static void log_flush(void)
{
    unsigned long flags;

    raw_spin_lock_irqsave(&log_lock, flags);
    if (log_used != 0) {
        log_emit(false);
    }
    raw_spin_unlock_irqrestore(&log_lock, flags);
}

int Os_Print(const char *pszFormat, ...)
{
    unsigned long flags;
    va_list args;
    int length;
    char *long_text = NULL;

    raw_spin_lock_irqsave(&log_lock, flags);
    va_start(args, pszFormat);
    length = vsnprintf(log_text, sizeof(log_text), pszFormat, args);
    va_end(args);
    if (length >= (int)sizeof(log_text)) {
        va_start(args, pszFormat);
        long_text = kvasprintf(GFP_ATOMIC, pszFormat, args);
        va_end(args);
    }
    log_put(long_text != NULL ? long_text : log_text);
    raw_spin_unlock_irqrestore(&log_lock, flags);
    kfree(long_text);
    return length;
}

int Os_FormatV(char *pszBuffer, size_t ulSize, const char *pszFormat, va_list stArgs)
{
    return vsnprintf(pszBuffer, ulSize, pszFormat, stArgs);
}

int Os_Format(char *pszBuffer, size_t ulSize, const char *pszFormat, ...)
{
    va_list args;
    int length;

    va_start(args, pszFormat);
    length = vsnprintf(pszBuffer, ulSize, pszFormat, args);
    va_end(args);
    return length;
}

/* ---- bus ---- */

static const OsBus *os_bus; /* null: the windows are real */

void Os_BusAttach(const OsBus *pstBus)
{
    os_bus = pstBus;
}
EXPORT_SYMBOL(Os_BusAttach);

/* Windows of real hardware stay mapped until unload, as the SDK takes no mapping back. */
#define IO_MAPS 32
static struct io_map {
    void __iomem *base;
    u32 first;
    u32 size;
} io_maps[IO_MAPS];

static uintptr_t io_map_real(u32 first, u32 size)
{
    struct io_map *map;

    for (map = io_maps; map != io_maps + IO_MAPS; map++) {
        if (map->base != NULL && map->first == first && map->size == size) {
            return (uintptr_t)map->base;
        }
        if (map->base == NULL) {
            map->base = ioremap(first, size);
            map->first = first;
            map->size = size;
            return (uintptr_t)map->base;
        }
    }
    return 0;
}

static void io_unmap_real(void)
{
    struct io_map *map;

    for (map = io_maps; map != io_maps + IO_MAPS && map->base != NULL; map++) {
        iounmap(map->base);
        map->base = NULL;
    }
}

uintptr_t Os_IoMap(uint32_t ulFirst, uint32_t ulSize)
{
    return os_bus != NULL ? os_bus->pfnMap(ulFirst, ulSize) : io_map_real(ulFirst, ulSize);
}

void Os_IoClear(uintptr_t ulVirt, uint32_t ulSize)
{
    if (os_bus != NULL) {
        os_bus->pfnClear(ulVirt, ulSize);
    }
    else {
        memset_io((void __iomem *)ulVirt, 0, ulSize);
    }
}

uint32_t Os_IoRead32(uintptr_t ulVirt)
{
    return os_bus != NULL ? os_bus->pfnRead32(ulVirt) : readl((void __iomem *)ulVirt);
}

void Os_IoWrite32(uintptr_t ulVirt, uint32_t ulValue)
{
    if (os_bus != NULL) {
        os_bus->pfnWrite32(ulVirt, ulValue);
    }
    else {
        writel(ulValue, (void __iomem *)ulVirt);
    }
}

uint16_t Os_IoRead16(uintptr_t ulVirt)
{
    return os_bus != NULL ? os_bus->pfnRead16(ulVirt) : readw((void __iomem *)ulVirt);
}

void Os_IoWrite16(uintptr_t ulVirt, uint16_t usValue)
{
    if (os_bus != NULL) {
        os_bus->pfnWrite16(ulVirt, usValue);
    }
    else {
        writew(usValue, (void __iomem *)ulVirt);
    }
}

#define EXTRA_ROW(First, Last) {First, Last, 0},
static OsIoRow extra_rows[] = {OS_IO_EXTRA_ROWS(EXTRA_ROW){0, 0, 0}};

const OsIoRow *Os_IoExtraMap(void)
{
    OsIoRow *row;

    for (row = extra_rows; row->ulLast != 0; row++) {
        row->ulVirt = Os_IoMap(row->ulFirst, row->ulLast + 1 - row->ulFirst);
        if (row->ulVirt == 0) {
            return NULL;
        }
    }
    return extra_rows;
}

/* ---- memory ---- */

static atomic_t blocks = ATOMIC_INIT(0);

void *Os_Alloc(size_t ulSize)
{
    void *block;

    if (os_bus != NULL && os_bus->pfnAllocFails(ulSize) != 0) {
        return NULL;
    }
    block = in_interrupt() || irqs_disabled() ? kzalloc(ulSize, GFP_ATOMIC)
                                              : kvzalloc(ulSize, GFP_KERNEL);
    if (block != NULL) {
        atomic_inc(&blocks);
    }
    return block;
}

void Os_Free(void *pvBlock)
{
    if (pvBlock != NULL) {
        atomic_dec(&blocks);
        kvfree(pvBlock);
    }
}

bool Os_UserRangeOk(const void *pvUser, size_t ulSize)
{
    return access_ok((const void __user *)pvUser, ulSize);
}

size_t Os_CopyFromUser(void *pvTo, const void *pvUser, size_t ulSize)
{
    return copy_from_user(pvTo, (const void __user *)pvUser, ulSize);
}

/* ---- processor ---- */

void Os_Sleep(uint32_t ulMs)
{
    msleep(ulMs);
}

void Os_Schedule(void)
{
    schedule();
}

uintptr_t Os_IrqSave(void)
{
    unsigned long flags;

    local_irq_save(flags);
    return flags;
}

void Os_IrqRestore(uintptr_t ulState)
{
    local_irq_restore(ulState);
}

/* ---- misc device ---- */

static const OsMiscOps *misc_ops;
static DEFINE_MUTEX(command_lock);

static int misc_open(struct inode *inode, struct file *file)
{
    return misc_ops->pfnOpen(inode, file);
}

static int misc_release(struct inode *inode, struct file *file)
{
    return misc_ops->pfnRelease(inode, file);
}

/* One command at a time, as the lock around the ioctl of older kernels had it. */
static long misc_ioctl(struct file *file, unsigned int command, unsigned long argument)
{
    int result;

    if (mutex_lock_killable(&command_lock) != 0) {
        return -EINTR;
    }
    result = misc_ops->pfnIoctl(file_inode(file), file, command, argument);
    log_flush();
    mutex_unlock(&command_lock);
    return result;
}

static const struct file_operations misc_file_ops = {
    .owner = THIS_MODULE,
    .open = misc_open,
    .release = misc_release,
    .unlocked_ioctl = misc_ioctl,
};

static struct miscdevice misc_device = {
    .minor = MISC_DYNAMIC_MINOR,
    .fops = &misc_file_ops,
    .mode = 0600,
};

int Os_MiscRegister(const char *pszName, const OsMiscOps *pstOps)
{
    int result;

    if (misc_ops != NULL) {
        return -EBUSY;
    }
    misc_ops = pstOps;
    misc_device.name = pszName;
    result = misc_register(&misc_device);
    if (result != 0) {
        misc_ops = NULL;
    }
    return result;
}

void Os_MiscDeregister(const char *pszName)
{
    if (misc_ops != NULL && strcmp(misc_device.name, pszName) == 0) {
        misc_deregister(&misc_device);
        misc_ops = NULL;
    }
}

/* ---- unload ---- */

void Os_LinuxEnd(void)
{
    log_flush();
    io_unmap_real();
    if (atomic_read(&blocks) != 0) {
        pr_err("ldsdk: leak: %d blocks are not given back\n", atomic_read(&blocks));
    }
}
