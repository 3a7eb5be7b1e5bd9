// The GEM port mapping rules, and the bitmap byte of each GEM port.
#pragma once

#include "ldsdk/port.h"
#include "sdk/record/record.h"

// A rule's key row is key, mask and AD, one behind the other.
inline constexpr uint32_t NP_GMT_KEY_SIZE = 8;
inline constexpr uint32_t NP_GMT_AD_SIZE = 4;
inline constexpr uint32_t NP_GMT_ROWS = 512;

extern const NpRow g_stGmtKeyRow;
extern const NpRow g_stGmtDataRow;
extern const NpRow g_stGmtIndexArgs;
extern const NpRow g_stGmtRuleArgs;
extern const NpRow g_stGmtShownArgs;  // what a read shows
extern const NpRow g_stGemportKeyArgs;
extern const NpRow g_stGemportBitMapRow;

// A rule as the command line takes it.
struct NpGmtRule {
    NpPortGmtKey stKey;
    NpPortGmtData stData;
};
uint32_t Np_GmtRule_Get(uint32_t ulChipID, uint32_t ulIndex, NpGmtRule *pstRule);
uint32_t Np_GmtRule_Set(uint32_t ulChipID, uint32_t ulIndex, const NpGmtRule *pstRule);

extern "C" {

// Reserved soft tables of priorities; rules stand where their owner puts them.
extern void *g_pastGmtKeyEntryPri[NP_CHIP_NUM];
extern void *g_pastGmtEntryKey[NP_CHIP_NUM];
extern void *g_pastGmtPriPoint[NP_CHIP_NUM];

void Np_Tarn_PORT_GmtKeyParaTrace(const NpPortGmtKey *pstGmtKey);
void Np_Tarn_PORT_GmtDataParaTrace(const NpPortGmtData *pstGmtData);
uint32_t Np_Tarn_PORT_GmtKeyParaCheck(uint32_t ulChipID, const NpPortGmtKey *pstGmtKey);
uint32_t Np_Tarn_PORT_GmtDataParaCheck(uint32_t ulChipID, const NpPortGmtData *pstGmtData);
// Pieces of a rule: key and mask NP_GMT_KEY_SIZE bytes each, AD and data one and two words. The
// port conversion's code.
uint32_t Np_Tarn_PORT_GmtKeyMaskBuild(uint32_t ulChipID, const NpPortGmtKey *pstGmtKey, void *pvKey,
                                      void *pvMask);
uint32_t Np_Tarn_PORT_GmtAdBuild(uint32_t ulChipID, const NpPortGmtKey *pstGmtKey, void *pvAd);
uint32_t Np_Tarn_PORT_GmtDataBuild(uint32_t ulChipID, const NpPortGmtData *pstGmtData,
                                   void *pvData);
uint32_t Np_Tarn_PORT_GmtKeyParse(uint32_t ulChipID, const void *pvKey, const void *pvMask,
                                  const void *pvAd, NpPortGmtKey *pstGmtKey);
uint32_t Np_Tarn_PORT_GmtDataParse(uint32_t ulChipID, const void *pvData,
                                   NpPortGmtData *pstGmtData);

}  // extern "C"
