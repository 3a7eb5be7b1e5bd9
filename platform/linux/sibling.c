/* ldsdk_sibling: the reference sibling. Loaded, it powers a chip of the model on, registers it,
   installs the command tree, brings the chip up and loads microcode; unloaded, it takes the chip
   down again. */
#include "ldsdk/ldsdk.h"
#include "platform/linux/shim.h"

#include <linux/init.h>
#include <linux/kernel.h>
#include <linux/kernel_read_file.h>
#include <linux/module.h>
#include <linux/moduleparam.h>
#include <linux/printk.h>

#define CHIP 0u
#define CHIP_CLASS 1u
#define LARGEST_IMAGE (4 << 20)

static char *image = "";
module_param(image, charp, 0444);
MODULE_PARM_DESC(image, "path of a microcode image to load behind the bring-up; none by default");

static uint32_t register_hooks(void)
{
    const uint32_t results[] = {
        Np_GLB_UsDelayRegister(Ld_BoardDelay),
        Np_GLB_ClearWatchDogHook(Ld_BoardWatchDog),
        Np_Glb_RecordErrInfoHook(CHIP, Ld_BoardRecordError),
        Np_GLB_IntLock(Ld_BoardLock),
        Np_GLB_IntUnlock(Ld_BoardUnlock),
    };
    size_t i;

    for (i = 0; i < ARRAY_SIZE(results); i++) {
        if (results[i] != NP_OK) {
            return results[i];
        }
    }
    return NP_OK;
}

static uint32_t attach_chip(void)
{
    Os_BusAttach(Ld_ChipBus());
    Os_ImagesAttach(Ld_BoardImages());
    return Ld_ChipAttach(CHIP);
}

static uint32_t register_chip(void)
{
    return Np_GLB_ChipRegister(CHIP, CHIP_CLASS, 0, 0);
}

/* Once per load of the SDK: a second install is refused and changes nothing. */
static uint32_t install_commands(void)
{
    Np_INIT_SdkCmdTreeInstall();
    return NP_OK;
}

static uint32_t bring_up(void)
{
    return Np_INIT_SdkInit(CHIP);
}

/* The word of the image, once it is read. */
static NpMicroLoad load;

/* The file system may take its time: nobody is held off for it. */
static uint32_t read_image(void)
{
    void *bytes = NULL;
    ssize_t size;

    if (image[0] == 0) {
        return NP_OK;
    }
    size = kernel_read_file_from_path(image, 0, &bytes, LARGEST_IMAGE, NULL, READING_FIRMWARE);
    if (size < 0) {
        pr_err("ldsdk_sibling: %s can't be read: %zd\n", image, size);
        return NP_ERR_NOT_EXIST;
    }
    load.ulLength = (uint32_t)size;
    load.ulAddress = Ld_BoardKeepImage(bytes, (uint32_t)size);
    return load.ulAddress != 0 ? NP_OK : NP_ERR_NO_MEMORY;
}

static uint32_t load_image(void)
{
    return load.ulAddress != 0 ? Np_Micro_Load(CHIP, &load) : NP_OK;
}

/* No command runs beside a step. */
static const struct {
    const char *name;
    uint32_t (*run)(void);
} steps[] = {
    {"powering the chip on", attach_chip},   {"registering the hooks", register_hooks},
    {"registering the chip", register_chip}, {"installing the command tree", install_commands},
    {"bringing the chip up", bring_up},      {"loading microcode", load_image},
};

static uint32_t run_step(size_t i)
{
    uint32_t status;

    if (Ld_SdkHold() != 0) {
        return NP_ERR_SEMAPHORE;
    }
    status = steps[i].run();
    Ld_SdkRelease();
    return status;
}

/* The bus stays attached: commands that still come find windows without a chip. */
static void take_down(void)
{
    const bool held = Ld_SdkHold() == 0;
    const uint32_t status = Np_INIT_SdkDestruct(CHIP);

    if (status != NP_OK) {
        pr_err("ldsdk_sibling: taking the chip down gives 0x%08x\n", status);
    }
    Ld_ChipDetach(CHIP);
    if (held) {
        Ld_SdkRelease();
    }
}

static int __init sibling_init(void)
{
    size_t i;

    if (read_image() != NP_OK) {
        return -EIO;
    }
    for (i = 0; i < ARRAY_SIZE(steps); i++) {
        const uint32_t status = run_step(i);

        if (status != NP_OK) {
            pr_err("ldsdk_sibling: %s gives 0x%08x\n", steps[i].name, status);
            take_down();
            return -EIO;
        }
    }
    pr_info("ldsdk_sibling: chip %u is up\n", CHIP);
    return 0;
}

static void __exit sibling_exit(void)
{
    take_down();
    pr_info("ldsdk_sibling: chip %u is down\n", CHIP);
}

module_init(sibling_init);
module_exit(sibling_exit);
MODULE_LICENSE("Dual MIT/GPL");
MODULE_DESCRIPTION("Reference sibling of the network processor SDK");
