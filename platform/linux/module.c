/* ldsdk_arm: entry, exit and what a sibling module may call. */
#include "platform/linux/shim.h"

#include <linux/export.h>
#include <linux/init.h>
#include <linux/module.h>
#include <linux/string.h>

static char *option = "";
module_param(option, charp, 0444);
MODULE_PARM_DESC(option, "options of the chip family, with commas between them: acl");

/* Each name up to a comma or the end. */
static int options_set(const char *list)
{
    char name[16];

    while (*list != '\0') {
        size_t length = strcspn(list, ",");

        if (length >= sizeof(name))
            return -EINVAL;
        memcpy(name, list, length);
        name[length] = '\0';
        if (Np_FamilyOptionSet(name, 1) != 0) {
            pr_err("ldsdk: no such option: %s\n", name);
            return -EINVAL;
        }
        list += length + (list[length] == ',');
    }
    return 0;
}

static int __init ldsdk_init(void)
{
    int result = options_set(option);

    return result != 0 ? result : Np_ModuleInit();
}

static void __exit ldsdk_exit(void)
{
    Np_ModuleExit();
    Os_LinuxEnd();
}

module_init(ldsdk_init);
module_exit(ldsdk_exit);
MODULE_LICENSE("Dual MIT/GPL");
MODULE_DESCRIPTION("SDK of a network processor");

/* By name only: the interface's headers have the types. */
#define EXPORT_EXPORTED(Function) \
    extern void Function(void);   \
    EXPORT_SYMBOL(Function);
#define EXPORT_ALONE(Function) EXPORT_EXPORTED(Function)
#define EXPORT_INTERNAL(Function)

#define NP_SERVICE(ulSlot, Door, Wrapper, Impl, ulArity, State) EXPORT_##Door(Wrapper)
#define NP_SERVICE_EMPTY(ulSlot, Door, Wrapper, ulArity) EXPORT_##Door(Wrapper)
#define NP_SERVICE_DIRECT(Function) EXPORT_EXPORTED(Function)
#include "sdk/frame/base/service_list.h"
