// Port records and the microcode's phy id numbers. The arithmetic is the chip driver's; this adds
// the checks, the range that XAUI ports of priority 1 have to themselves, and a rule for numbers
// that the driver does not know. No state: any thread may call.
#pragma once

#include "ldsdk/types.h"

#include <cstdint>

inline constexpr uint32_t NP_PORT_TYPE_NUM = 16;  // types of a valid record
inline constexpr uint32_t NP_PORT_TYPE_XAUI = 9;
inline constexpr uint32_t NP_PORT_TYPE_INVALID = 17;  // given for an unknown ingress number
inline constexpr uint32_t NP_PHY_XAUI_FIRST = 64;     // 64 to 127 are XAUI sub-ports, priority 1

extern "C" {

// Does the chip have this port? NP_ERR_NULL_PTR, NP_ERR_PARAM for a type above 15, or the driver's
// code.
uint32_t Np_Tarn_PortParaCheck(uint32_t ulChipID, const NpPortID *pstPortID);

// Np_TarnC_PortID2PhyID and Np_TarnC_IngressPhyID2PortID stand behind the wrappers
// Np_PortID2PhyID and Np_IngressPhyID2PortID. The way there fails like Np_Tarn_PortParaCheck; an
// unknown number on the way back is no failure: the record gets NP_PORT_TYPE_INVALID and zeros.

// The same without the XAUI range; this family does not select them.
uint32_t Np_TarnA_PortID2PhyID(uint32_t ulChipID, const NpPortID *pstPortID, uint32_t *pulPhyID);
uint32_t Np_TarnA_IngressPhyID2PortID(uint32_t ulChipID, uint32_t ulPhyID, NpPortID *pstPortID);

// Port of an egress number. NP_ERR_NULL_PTR or the driver's code, with the record untouched.
uint32_t Np_Tarn_EgressPhyID2PortID(uint32_t ulChipID, uint32_t ulPhyID, NpPortID *pstPortID);

}  // extern "C"
