/* ldsdk_arm: entry, exit and what a sibling module may call. */
#include "platform/linux/shim.h"

#include <linux/export.h>
#include <linux/init.h>
#include <linux/module.h>

static int __init ldsdk_init(void)
{
    return Np_ModuleInit();
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
