// For fuzzers that answer command frames themselves: they define __wrap_Qd_RBA_CommandSend, and
// have the chip model behind __real_Qd_RBA_CommandSend.
#pragma once

#include "platform/driver.h"

extern "C" {

uint32_t __real_Qd_RBA_CommandSend(uint32_t ulChipID, const NpRbaReqCmd *pstReq,
                                   NpRbaRspCmd *pstRsp);
uint32_t __wrap_Qd_RBA_CommandSend(uint32_t ulChipID, const NpRbaReqCmd *pstReq,
                                   NpRbaRspCmd *pstRsp);
}
