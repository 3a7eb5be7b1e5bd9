// The first stage of analysis: which types are VLAN tags, and how many of them a packet has. Of
// four outer and four inner TPIDs the last of each can be set.
#pragma once

#include "ldsdk/pa.h"
#include "sdk/record/record.h"

inline constexpr uint32_t NP_TPID_NUM = 4;
inline constexpr uint32_t NP_TPID_ROWS = 21;

// A row of the CAM.
struct NpTpidRule {
    uint32_t ulOuterTpid;
    uint32_t ulInnerTpid;
    uint32_t ulOuterTpidMask;
    uint32_t ulInnerTpidMask;
    uint32_t ulOTPID;  // numbers of the TPIDs
    uint32_t ulITPID;
    uint32_t ulTagNum;   // 3: two tags, 2: one
    uint32_t ulTagNumB;  // tags
};

extern const NpRow g_stTpidRow;
extern const NpRow g_stOuterTpidArgs;
extern const NpRow g_stInnerTpidArgs;

extern "C" {

extern const uint32_t g_aulNpInitOuterTpid[NP_TPID_NUM];
extern const uint32_t g_aulNpInitInnerTpid[NP_TPID_NUM];
// Rows that have the TPID which can be set. They meet in the row that has both.
extern const uint8_t g_aucNpOuterTpidPos[5];
extern const uint8_t g_aucNpInnerTpidPos[4];

}  // extern "C"
