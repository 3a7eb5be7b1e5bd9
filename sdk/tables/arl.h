// MAC table and LAN MAC table: entries that the microcode learns, looks up and ages by itself, and
// what the host does to them. Both tables lie at the hash engine, which finds each entry its place.
#pragma once

#include "ldsdk/arl.h"
#include "sdk/record/exacttable.h"
#include "sdk/record/table.h"

extern const NpRow g_stArlKeyRow;
extern const NpRow g_stArlDataRow;
extern const NpRow g_stLanMacKeyRow;
extern const NpRow g_stLanMacDataRow;
extern const NpRow g_stArlAgeModeKeyRow;
extern const NpRow g_stUvmacInfoKeyRow;
extern const NpRow g_stNormalAgeRow;
extern const NpRow g_stForceAgeRow;
extern const NpRow g_stArlIndexArgs;     // place in the MAC table
extern const NpRow g_stLanMacIndexArgs;  // place in the LAN MAC table
extern const NpRow g_stLearnStateArgs;   // row of the learn state
extern const NpRow g_stMacDelTypeArgs;   // which entries a delete is for
extern const NpRow g_stArlInfoRow;       // where an entry stands and what it is, in both tables
extern const NpRow g_stAgeModeArgs;

extern const NpExactTable g_stArlTable;
extern const NpExactTable g_stLanMacTable;

extern const NpTable g_stVmacOffsetTable;
extern const NpTable g_stPortMacLimitTable;
extern const NpTable g_stGlbLanMacLimitTable;
extern const NpTable g_stLearnStateTable;

inline constexpr uint32_t NP_MAC_ITEM_WORDS = 4;  // an item is 16 bytes
inline constexpr uint32_t NP_ARL_TYPE_PORT = 15;  // key type of user MACs

// Kinds of entries in an NpArlInfo.
enum NpMacType : uint32_t {
    NP_MAC_STATIC = 0,
    NP_MAC_DYNAMIC = 1,
    NP_MAC_NONE = 2,
};

extern "C" {

// Nothing to set up or to give up.
uint32_t Np_Tarn_Arl_Init(uint32_t ulChipID);
uint32_t Np_Tarn_Arl_Destruct(uint32_t ulChipID);

// The parts of an item, 16 bytes. A build writes its own bits and no others, so that a key's and an
// AD's make the whole item; the key's also makes it static. A parse clears what the key type, or
// the kind of MAC, has no place for. Codes of the port conversions, for keys of type 15.
uint32_t Np_Tarn_Arl_ArlTblKeyBulid(uint32_t ulChipID, const NpArlKey *pstArlKey, void *pstItem);
uint32_t Np_Tarn_Arl_ArlTblAdBulid(uint32_t ulChipID, const NpArlData *pstArlData, void *pstItem);
uint32_t Np_Tarn_Arl_ArlTblKeyParse(uint32_t ulChipID, const void *pstItem, NpArlKey *pstArlKey);
uint32_t Np_Tarn_Arl_ArlTblAdParse(uint32_t ulChipID, const void *pstItem, uint32_t *pulStatus,
                                   NpArlData *pstArlData);
uint32_t Np_Tarn_Arl_LanMacTblKeyBulid(uint32_t ulChipID, const NpLanMacKey *pstLanMacKey,
                                       void *pstItem);
uint32_t Np_Tarn_Arl_LanMacTblAdBulid(uint32_t ulChipID, const NpLanMacData *pstLanMacData,
                                      void *pstItem);
uint32_t Np_Tarn_Arl_LanMacTblKeyParse(uint32_t ulChipID, const void *pstItem,
                                       NpLanMacKey *pstLanMacKey);
uint32_t Np_Tarn_Arl_LanMacTblAdParse(uint32_t ulChipID, const void *pstItem, uint32_t *pulStatus,
                                      NpLanMacData *pstLanMacData);

// The checks of both age requests. NP_ERR_NULL_PTR, NP_ERR_PARAM.
uint32_t Np_Tarn_Arl_NormalAgeInfoCheck(uint32_t ulChipID, const NpNormalAge *pstNormalAge);
uint32_t Np_Tarn_Arl_ForceAgeInfoCheck(uint32_t ulChipID, const NpForceAge *pstForceAge);

NP_ROW_TRACE(Np_Tarn_Arl_VmacOffsetTblParaTrace, NpVmacOffset, g_stVmacOffsetTable);
NP_ROW_CHECK(Np_Tarn_Arl_VmacOffsetTblParaCheck, NpVmacOffset, g_stVmacOffsetTable);
NP_ROW_BUILD(Np_Tarn_Arl_VmacOffsetTblBuild, NpVmacOffset, g_stVmacOffsetTable, 0);
NP_ROW_PARSE(Np_Tarn_Arl_VmacOffsetTblParse, NpVmacOffset, g_stVmacOffsetTable, 0);
NP_ROW_TRACE(Np_Tarn_Arl_PortMacLimitTblParaTrace, NpPortLimitNum, g_stPortMacLimitTable);
NP_ROW_CHECK(Np_Tarn_Arl_PortMacLimitTblParaCheck, NpPortLimitNum, g_stPortMacLimitTable);
NP_ROW_BUILD(Np_Tarn_Arl_PortMacLimitTblBuild, NpPortLimitNum, g_stPortMacLimitTable, 0);
NP_ROW_PARSE(Np_Tarn_Arl_PortMacLimitTblParse, NpPortLimitNum, g_stPortMacLimitTable, 0);
NP_ROW_TRACE(Np_Tarn_Arl_GlbLanMacLimitTblParaTrace, NpGlbLimitNum, g_stGlbLanMacLimitTable);
NP_ROW_CHECK(Np_Tarn_Arl_GlbLanMacLimitTblParaCheck, NpGlbLimitNum, g_stGlbLanMacLimitTable);
NP_ROW_BUILD(Np_Tarn_Arl_GlbLanMacLimitTblBuild, NpGlbLimitNum, g_stGlbLanMacLimitTable, 0);
NP_ROW_PARSE(Np_Tarn_Arl_GlbLanMacLimitTblParse, NpGlbLimitNum, g_stGlbLanMacLimitTable, 0);
NP_ROW_TRACE(Np_Tarn_Arl_LearnStateTblParaTrace, NpDynamicLrnState, g_stLearnStateTable);
NP_ROW_CHECK(Np_Tarn_Arl_LearnStateTblParaCheck, NpDynamicLrnState, g_stLearnStateTable);
NP_ROW_BUILD(Np_Tarn_Arl_LearnStateTblBuild, NpDynamicLrnState, g_stLearnStateTable, 0);
NP_ROW_PARSE(Np_Tarn_Arl_LearnStateTblParse, NpDynamicLrnState, g_stLearnStateTable, 0);

}  // extern "C"

inline uint32_t Np_MacStatus(const uint32_t *pulItem)
{
    return pulItem[3] >> 28;
}

inline void Np_MacStatusSet(uint32_t *pulItem, uint32_t ulStatus)
{
    pulItem[3] = (pulItem[3] & 0x0fffffff) | ulStatus << 28;
}
