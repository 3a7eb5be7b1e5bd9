// Single packets between the host and the microcode: the two-word send header by insert type, and
// the receive header with its extension words. Nothing is kept and nothing is locked; header and
// record stand on the caller's stack, and the packet is not copied on send.
#pragma once

#include "ldsdk/cputr.h"
#include "platform/driver.h"
#include "sdk/record/record.h"

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

}  // extern "C"

// ---- rows --------------------------------------------------------------------------------------

extern const NpRow g_stNpSendTypeArgs;  // the insert type
// A packet of each insert type, its image the two header words.
extern const NpRow g_stNpSendQueueRow;
extern const NpRow g_stNpSendFwdRow;
extern const NpRow g_stNpSendIftRow;
extern const NpRow g_stNpSendOftRow;
extern const NpRow g_stNpSendCmRow;
extern const NpRow g_stNpSendL2EncapRow;
extern const NpRow *const g_apstNpSendRow[NP_INSERT_NUM];  // by insert type, null for none
// A received packet by subtype, its image the header words and the extension words. The last row,
// that of all further subtypes, has no more than the subtype and the length.
extern const NpRow g_astNpReceiveRow[NP_RECEIVE_NUM + 1];
inline const NpRow *Np_ReceiveRow(uint32_t ulSubType)
{
    return &g_astNpReceiveRow[ulSubType < NP_RECEIVE_NUM ? ulSubType : NP_RECEIVE_NUM];
}

// The four steps of an insert type: constants that are called as functions are. The union's member
// is taken for that of the step's type. Check gives NP_ERR_PARAM or a port's code; Build puts the
// type's fields into pulHead, two words that hold no more than message type, subtype and payload
// offset, and fails for a frame info type that there isn't, or with a port's code.
struct NpSendStep {
    const char *pszName;
    const NpRow *pstRow;
};
struct NpSendTrace : NpSendStep {
    void operator()(uint32_t ulChipID, const InfoForSend *pstInfoForSend) const;
};
struct NpSendCheck : NpSendStep {
    uint32_t operator()(uint32_t ulChipID, const InfoForSend *pstInfoForSend) const;
};
struct NpSendBuild : NpSendStep {
    uint32_t operator()(uint32_t ulChipID, const InfoForSend *pstInfoForSend,
                        uint32_t *pulHead) const;
};
struct NpHeadTrace : NpSendStep {
    void operator()(uint32_t ulChipID, const uint32_t *pulHead) const;
};

#define NP_SEND_STEP(Step, Name, stRow) \
    inline constexpr Step Name          \
    {                                   \
        {                               \
#Name, &(stRow)             \
        }                               \
    }
NP_SEND_STEP(NpSendTrace, Np_Tarn_CPUTR_InfoToQueue_ParaTrace, g_stNpSendQueueRow);
NP_SEND_STEP(NpSendCheck, Np_Tarn_CPUTR_InfoToQueue_ParaCheck, g_stNpSendQueueRow);
NP_SEND_STEP(NpSendBuild, Np_Tarn_CPUTR_PktToQueue_Build, g_stNpSendQueueRow);
NP_SEND_STEP(NpHeadTrace, Np_Tarn_CPUTR_PktToQueue_ParaTrace, g_stNpSendQueueRow);
NP_SEND_STEP(NpSendTrace, Np_Tarn_CPUTR_InfoToFwd_ParaTrace, g_stNpSendFwdRow);
NP_SEND_STEP(NpSendCheck, Np_Tarn_CPUTR_InfoToFwd_ParaCheck, g_stNpSendFwdRow);
NP_SEND_STEP(NpSendBuild, Np_Tarn_CPUTR_PktToFwd_Build, g_stNpSendFwdRow);
NP_SEND_STEP(NpHeadTrace, Np_Tarn_CPUTR_PktToFwd_ParaTrace, g_stNpSendFwdRow);
NP_SEND_STEP(NpSendTrace, Np_Tarn_CPUTR_InfoToIft_ParaTrace, g_stNpSendIftRow);
NP_SEND_STEP(NpSendCheck, Np_Tarn_CPUTR_InfoToIft_ParaCheck, g_stNpSendIftRow);
NP_SEND_STEP(NpSendBuild, Np_Tarn_CPUTR_PktToIft_Build, g_stNpSendIftRow);
NP_SEND_STEP(NpHeadTrace, Np_Tarn_CPUTR_PktToIft_ParaTrace, g_stNpSendIftRow);
NP_SEND_STEP(NpSendTrace, Np_Tarn_CPUTR_InfoToOft_ParaTrace, g_stNpSendOftRow);
NP_SEND_STEP(NpSendCheck, Np_Tarn_CPUTR_InfoToOft_ParaCheck, g_stNpSendOftRow);
NP_SEND_STEP(NpSendBuild, Np_Tarn_CPUTR_PktToOft_Build, g_stNpSendOftRow);
NP_SEND_STEP(NpHeadTrace, Np_Tarn_CPUTR_PktToOft_ParaTrace, g_stNpSendOftRow);
NP_SEND_STEP(NpSendTrace, Np_Tarn_CPUTR_InfoToCm_ParaTrace, g_stNpSendCmRow);
NP_SEND_STEP(NpSendCheck, Np_Tarn_CPUTR_InfoToCm_ParaCheck, g_stNpSendCmRow);
NP_SEND_STEP(NpSendBuild, Np_Tarn_CPUTR_PktToCm_Build, g_stNpSendCmRow);
NP_SEND_STEP(NpHeadTrace, Np_Tarn_CPUTR_PktToCm_ParaTrace, g_stNpSendCmRow);
NP_SEND_STEP(NpSendTrace, Np_Tarn_CPUTR_InfoToL2Encap_ParaTrace, g_stNpSendL2EncapRow);
NP_SEND_STEP(NpSendCheck, Np_Tarn_CPUTR_InfoToL2Encap_ParaCheck, g_stNpSendL2EncapRow);
NP_SEND_STEP(NpSendBuild, Np_Tarn_CPUTR_PktToL2Encap_Build, g_stNpSendL2EncapRow);
NP_SEND_STEP(NpHeadTrace, Np_Tarn_CPUTR_PktToL2Encap_ParaTrace, g_stNpSendL2EncapRow);
#undef NP_SEND_STEP
