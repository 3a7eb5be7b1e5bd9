/* The services of platform/os.h in a Linux kernel.

   What the SDK prints goes to the kernel log line by line: "ldsdk: " and a whole line, or "ldsdk+ "
   and a piece of one that goes on in the next record. "ldsdk. " and what a command leaves open,
   which may be nothing, are its last record. A reader that joins the pieces has a command's text
   byte for byte. What is not a command's, but a sibling's or an interrupt's, has "ldsdk[PID]: " or
   "ldsdk[irq]: " in front, so that it never comes between. */
#include "platform/os.h"
#include "platform/bus.h"
#include "platform/linux/shim.h"
#include "platform/linux/turn.h"

#include <linux/atomic.h>
#include <linux/delay.h>
#include <linux/fs.h>
#include <linux/io.h>
#include <linux/irqflags.h>
#include <linux/kernel.h>
#include <linux/miscdevice.h>
#include <linux/mm.h>
#include <linux/module.h>
#include <linux/preempt.h>
#include <linux/printk.h>
#include <linux/sched.h>
#include <linux/slab.h>
#include <linux/string.h>
#include <linux/uaccess.h>

/* ---- text ---- */

/* A record of the log holds about 1000 bytes. */
#define LOG_PIECE 900

/* The command's own, as there is one command at a time: what it has not ended yet, and where it
   formats. */
static char command_line[LOG_PIECE];
static size_t command_line_used;
static char command_text[1024];

static void log_record(const char *who, char mark, const char *text, size_t length)
{
    printk(KERN_INFO "ldsdk%s%c %.*s\n", who, mark, (int)length, text);
}

static void command_flush(char mark)
{
    log_record("", mark, command_line, command_line_used);
    command_line_used = 0;
}

static void command_put(const char *text)
{
    for (; *text != 0; text++) {
        if (*text == '\n') {
            command_flush(':');
            continue;
        }
        if (command_line_used == LOG_PIECE) {
            command_flush('+');
        }
        command_line[command_line_used++] = *text;
    }
}

/* Anybody else's text keeps nothing for later. */
static void other_put(const char *text)
{
    char who[16] = "[irq]";

    if (in_task()) {
        snprintf(who, sizeof(who), "[%d]", current->pid);
    }
    while (*text != 0) {
        const size_t length = strcspn(text, "\n");

        if (length > LOG_PIECE) {
            log_record(who, '+', text, LOG_PIECE);
            text += LOG_PIECE;
            continue;
        }
        log_record(who, text[length] != 0 ? ':' : '+', text, length);
        text += length + (text[length] != 0 ? 1 : 0);
    }
}

/* Nothing is held here, so that any context may print: others have a buffer of their own each. */
int Os_Print(const char *pszFormat, ...)
{
    const bool command = turn_is_command();
    char short_text[256];
    char *text = command ? command_text : short_text;
    const size_t size = command ? sizeof(command_text) : sizeof(short_text);
    char *long_text = NULL;
    va_list args;
    int length;

    va_start(args, pszFormat);
    length = vsnprintf(text, size, pszFormat, args);
    va_end(args);
    if (length >= (int)size) {
        va_start(args, pszFormat);
        long_text = kvasprintf(GFP_ATOMIC | __GFP_NOWARN, pszFormat, args);
        va_end(args);
        text = long_text != NULL ? long_text : text;
    }
    if (command) {
        command_put(text);
    }
    else {
        other_put(text);
    }
    if (length >= (int)size && long_text == NULL) {
        pr_warn("ldsdk_arm: no memory: %d bytes of a text are lost\n", length - (int)size + 1);
    }
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

/* ---- microcode images ---- */

static const OsImages *os_images;

void Os_ImagesAttach(const OsImages *pstImages)
{
    os_images = pstImages;
}
EXPORT_SYMBOL(Os_ImagesAttach);

void *Os_ImageGet(uint32_t ulAddress, uint32_t ulSize, bool bRegistered)
{
    void *found = os_images != NULL ? os_images->pfnGet(ulAddress, ulSize) : NULL;

#if BITS_PER_LONG == 32
    /* A sibling's own memory, and never a process's. */
    if (found == NULL && !bRegistered && ulAddress >= TASK_SIZE && ulSize <= -ulAddress) {
        found = (void *)ulAddress;
    }
#endif
    return found;
}

void Os_ImagePut(uint32_t ulAddress)
{
    if (os_images != NULL) {
        os_images->pfnPut(ulAddress);
    }
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

    if (turn_command_begin() != 0) {
        return -EINTR;
    }
    result = misc_ops->pfnIoctl(file_inode(file), file, command, argument);
    command_flush('.');
    turn_command_end();
    return result;
}

static const struct file_operations misc_file_ops = {
    .owner = THIS_MODULE,
    .open = misc_open,
    .release = misc_release,
    .unlocked_ioctl = misc_ioctl,
    .compat_ioctl = compat_ptr_ioctl,
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
    turn_end();
    io_unmap_real();
    if (atomic_read(&blocks) != 0) {
        pr_err("ldsdk: leak: %d blocks are not given back\n", atomic_read(&blocks));
    }
}
