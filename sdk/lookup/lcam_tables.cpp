// The family's LCAM tables, and how commands of each width look on the wire.
#include "sdk/lookup/lcam.h"

constinit const NpLcamConfig *g_stNpLcamConfig[NP_CHIP_NUM] = {};
constinit uint32_t g_aulNpLcamTableNum[NP_CHIP_NUM] = {};
constinit const NpLcamAddrBlock *g_astNpMultiServiceLcamAddrBlockConfig[NP_CHIP_NUM] = {};
constinit const NpLcamAddrConfig *g_pstNpLcamAddrConfig[NP_CHIP_NUM] = {};

// clang-format off
// ulType, ulBlock, ulTcam, ulDepth, ulDepthNum, ulCid, ulEntryNum
#define NP_LCAM_ROWS \
    {0, 2, 4, 0x00, 0x100, 3, 0x400},  /* IFT_KEY */ \
    {1, 0, 4, 0x78, 0x080, 1, 0x080},  /* L2PA */ \
    {1, 2, 2, 0x00, 0x040, 2, 0x040},  /* L3PA */ \
    {1, 0, 6, 0x78, 0x080, 5, 0x080},  /* IPV6FILTER */ \
    {1, 2, 0, 0x00, 0x020, 8, 0x020},  /* FLEE_BUCKET */ \
    {0, 2, 2, 0x40, 0x020, 4, 0x020},  /* TPID */ \
    {1, 0, 0, 0x00, 0x000, 0, 0x000},  /* no table */ \
    {2, 0, 0, 0x00, 0x000, 0, 0x000},  /* LM data flee bucket */ \
    {0, 0, 0, 0x78, 0x080, 9, 0x200},  /* GMT */
constinit const NpLcamConfig g_stNpLcamConfig_TarnB[NP_LCAM_TABLE_NUM] = {
    NP_LCAM_ROWS
};
constinit const NpLcamConfig g_stNpLcamConfig_TarnBAcl[NP_LCAM_ADDR_NUM] = {
    NP_LCAM_ROWS
    {3, 1, 0, 0x00, 0x0a0, 6, 0x0a0},  // ACL_RULE1
    {3, 1, 0, 0x00, 0x0a0, 6, 0x0a0},  // ACL_RULE2
};
#undef NP_LCAM_ROWS
// clang-format on

constinit const NpLcamAddrBlock g_astNpMultiServiceLcamAddrBlockConfig_TarnB[1] = {
    {2, 4, 0, 0x100, 0x400},
};

constinit const NpLcamAddrConfig g_pstNpLcamAddrConfig_TarnB[NP_LCAM_ADDR_NUM] = {
    {1, g_astNpMultiServiceLcamAddrBlockConfig_TarnB},
    {1, nullptr},
    {1, nullptr},
    {1, nullptr},
    {1, nullptr},
    {1, nullptr},
    {1, nullptr},
    {1, nullptr},
    {0, nullptr},
    {0, nullptr},
    {0, nullptr},
};

constinit const uint32_t g_aulShareKeyLen[NP_LCAM_TYPE_NUM] = {0x24, 0x4c, 0x9c, 0x13c};
constinit const uint32_t g_aulEngrossKeyLen[NP_LCAM_TYPE_NUM] = {0x24, 0x48, 0x90, 0x120};

constinit const NpLcamCommand g_pastNpLcamTcamWrite[NP_LCAM_TYPE_NUM] = {
    {0, 0x0, 1, 3, 2, 0, 2, 3},
    {0, 0x8, 2, 3, 2, 1, 2, 3},
    {1, 0xc, 4, 3, 2, 2, 2, 3},
    {2, 0xe, 8, 3, 2, 4, 2, 3},
};
constinit const NpLcamCommand g_pastNpLcamTcamClear[NP_LCAM_TYPE_NUM] = {
    {0, 0x0, 1, 1, 0, 0, 2, 3},
    {0, 0x8, 2, 1, 0, 1, 2, 3},
    {1, 0xc, 4, 1, 0, 2, 2, 3},
    {2, 0xe, 8, 1, 0, 4, 2, 3},
};
constinit const NpLcamCommand g_pastNpLcamAdRead[NP_LCAM_TYPE_NUM] = {
    {0, 0x0, 1, 4, 0, 2, 1, 0x20},
    {0, 0x8, 2, 4, 0, 2, 1, 0x40},
    {0, 0xc, 4, 4, 1, 2, 1, 0x80},
    {0, 0xe, 8, 4, 1, 2, 1, 0x80},
};
constinit const NpLcamCommand g_pastNpLcamAdWrite[NP_LCAM_TYPE_NUM] = {
    {0, 0x0, 1, 4, 0, 2, 3, 0x20},
    {0, 0x8, 2, 4, 0, 2, 3, 0x40},
    {0, 0xc, 4, 4, 1, 2, 3, 0x80},
    {0, 0xe, 8, 4, 1, 2, 3, 0x80},
};
