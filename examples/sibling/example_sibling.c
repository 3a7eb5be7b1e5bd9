/* example_sibling: brings a chip up, programs a row, and takes the chip down again. A template: see
   docs/sibling.md. */
#include "example_board.h"

#include <ldsdk/chip.h> /* the chip model; a sibling of a real chip does without */
#include <ldsdk/kernel.h>
#include <ldsdk/ldsdk.h>

#include <linux/errno.h>
#include <linux/init.h>
#include <linux/kernel.h>
#include <linux/module.h>
#include <linux/printk.h>

#define CHIP 0u
#define CHIP_CLASS 1u
#define CHIP_ATTR 0u
#define REG_BASE 0u /* the chip that the processor sits at */
#define ROW 7u

static uint32_t power_on(void)
{
    Os_BusAttach(Ld_ChipBus());
    return Ld_ChipAttach(CHIP);
}

static uint32_t register_hooks(void)
{
    uint32_t status = Np_GLB_UsDelayRegister(example_delay);

    if (status == NP_OK) {
        status = Np_GLB_ClearWatchDogHook(example_watchdog);
    }
    if (status == NP_OK) {
        status = Np_Glb_RecordErrInfoHook(CHIP, example_record_error);
    }
    return status;
}

static uint32_t register_chip(void)
{
    return Np_GLB_ChipRegister(CHIP, CHIP_CLASS, CHIP_ATTR, REG_BASE);
}

/* A tree that an earlier sibling installed is still there: refused then, and just as good. */
static uint32_t install_commands(void)
{
    Np_INIT_SdkCmdTreeInstall();
    return NP_OK;
}

static uint32_t bring_up(void)
{
    return Np_INIT_SdkInit(CHIP);
}

/* The product's own work begins here: every eight DSCP values share a priority. */
static uint32_t program(void)
{
    NpDscpMap map;
    size_t i;

    for (i = 0; i < ARRAY_SIZE(map.auc1P); i++) {
        map.auc1P[i] = (uint8_t)(i / 8);
    }
    return Np_DscpMapTbl_Set(CHIP, ROW, &map);
}

static const struct {
    const char *name;
    uint32_t (*run)(void);
} steps[] = {
    {"powering the chip on", power_on},      {"registering the hooks", register_hooks},
    {"registering the chip", register_chip}, {"installing the command tree", install_commands},
    {"bringing the chip up", bring_up},      {"programming", program},
};

/* Also behind a bring-up that stopped half-way. Held: whoever calls or types meanwhile finds the
   chip or none. */
static void take_down(void)
{
    const uint32_t status = Np_INIT_SdkDestruct(CHIP);

    if (status != NP_OK) {
        pr_err("example_sibling: taking the chip down gives 0x%08x\n", status);
    }
    Ld_ChipDetach(CHIP);
}

static int __init sibling_init(void)
{
    size_t i;

    if (Ld_SdkHold() != 0) {
        return -EBUSY;
    }
    for (i = 0; i < ARRAY_SIZE(steps); i++) {
        const uint32_t status = steps[i].run();

        if (status != NP_OK) {
            pr_err("example_sibling: %s gives 0x%08x\n", steps[i].name, status);
            take_down();
            Ld_SdkRelease();
            return -EIO;
        }
    }
    Ld_SdkRelease();
    return 0;
}

/* An exit can't be refused: the chip goes also from under a call that stays inside. */
static void __exit sibling_exit(void)
{
    const int held = Ld_SdkHold();

    take_down();
    if (held == 0) {
        Ld_SdkRelease();
    }
}

module_init(sibling_init);
module_exit(sibling_exit);
MODULE_LICENSE("Dual MIT/GPL");
MODULE_DESCRIPTION("Template of a sibling module");
