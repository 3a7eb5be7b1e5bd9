// Single packets between the host and the microcode: the two-word send header by insert type, and
// the receive header with its extension words. Nothing is kept and nothing is locked; header and
// record stand on the caller's stack, and the packet is not copied on send.
#pragma once

#include "ldsdk/cputr.h"
#include "platform/driver.h"

#include <cstdint>

inline constexpr uint32_t NP_CPUTR_PKT_MAX = 10240;

// Where an inserted packet enters. 4 and 8 are messages, 6 is none of either.
enum NpInsertType : uint32_t {
    NP_INSERT_QUEUE = 0,
    NP_INSERT_FWD = 1,
    NP_INSERT_IFT = 2,
    NP_INSERT_OFT = 3,
    NP_INSERT_CM = 5,
    NP_INSERT_EPORT = 7,
    NP_INSERT_NUM = 8,
};

// What the microcode gives to the CPU.
enum NpReceiveType : uint32_t {
    NP_RECEIVE_NORMAL = 0,
    NP_RECEIVE_FM = 1,
    NP_RECEIVE_LM = 2,
    NP_RECEIVE_DM = 3,
    NP_RECEIVE_NUM = 4,
};

inline constexpr uint32_t NP_CPUTR_EXT_MAX = 5;                       // extension words
inline constexpr uint32_t NP_CPUTR_IMAGE_NUM = 2 + NP_CPUTR_EXT_MAX;  // words of a receive image

extern "C" {

// Fills the two header words of the driver's record. NP_ERR_PARAM for a type or field that there
// isn't, or a port's code.
uint32_t Np_Tarn_Cputr_InfoToPktForSend(uint32_t ulChipID, const InfoForSend *pstInfoForSend,
                                        QdCputrSendPkt *pstPktSend);

// pPacket: seven host-order words, first the one with the message type, then the one with the
// header length, then the extension words, 0 where there is none. NP_ERR_PARAM for another message
// type than that of a packet to the CPU.
uint32_t Np_Tarn_Cputr_PktToInfoForReceive(uint32_t ulChipID, const uint32_t *pPacket,
                                           ReceiveInfo *pstCputrForReceive);
// The same without the test. Beyond the known subtypes only the subtype is filled in. A port's code
// leaves the fields behind it unset.
uint32_t Np_Tarn_CPUTR_InfoForRx_Build(uint32_t ulChipID, const uint32_t *pPacket,
                                       ReceiveInfo *pstCputrForReceive);

// The four steps of each insert type. Build adds the type's fields to pulHead, two words that hold
// no more than message type, subtype and payload offset; it can fail for queue, fwd and ift.
#define NP_INSERT_DOORS(Name)                                                                    \
    void Np_Tarn_CPUTR_InfoTo##Name##_ParaTrace(uint32_t ulChipID, const NpInsertTo##Name *pst); \
    uint32_t Np_Tarn_CPUTR_InfoTo##Name##_ParaCheck(uint32_t ulChipID,                           \
                                                    const NpInsertTo##Name *pst);                \
    uint32_t Np_Tarn_CPUTR_PktTo##Name##_Build(uint32_t ulChipID, const NpInsertTo##Name *pst,   \
                                               uint32_t *pulHead);                               \
    void Np_Tarn_CPUTR_PktTo##Name##_ParaTrace(uint32_t ulChipID, const uint32_t *pulHead);
NP_INSERT_DOORS(Queue)
NP_INSERT_DOORS(Fwd)
NP_INSERT_DOORS(Ift)
NP_INSERT_DOORS(Oft)
NP_INSERT_DOORS(Cm)
NP_INSERT_DOORS(L2Encap)
#undef NP_INSERT_DOORS

}  // extern "C"
