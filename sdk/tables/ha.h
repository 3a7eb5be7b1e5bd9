// Match rules of the pre-classifier: each filter that is offered has its own rule numbers with the
// driver. What a filter compares is a row whose image is the rule record; where its rules stand is
// an NpHaFilter.
#pragma once

#include "ldsdk/ha.h"
#include "sdk/record/table.h"

// Arguments that are no record of the interface.
struct NpHaInfoArg {
    uint32_t ulHaInfo;
};
struct NpSpecialEth {
    uint32_t ulEthType;
    uint32_t ulHaInfo;
};
struct NpAoePkt {
    uint32_t ulVlanID;
    uint32_t ulHaInfo;
};

// What names a filter of a kind of which there are several.
extern const NpRow g_stHaSmacKey;
extern const NpRow g_stHaDmacKey;
extern const NpRow g_stHaErrorSampleKey;
extern const NpRow g_stHaAcmClockKey;
extern const NpRow g_stHaL2PacketKey;
extern const NpRow g_stHaDmacMatchKey;
extern const NpRow g_stHaVlanMatchKey;
// The records, with the rule record as image.
extern const NpRow g_stHaSmacRow;
extern const NpRow g_stHaDmacRow;
extern const NpRow g_stHaErrorSampleRow;
extern const NpRow g_stHaAcmClockRow;
extern const NpRow g_stHaL2PacketRow;
extern const NpRow g_stHaDmacMatchRow;
extern const NpRow g_stHaVlanMatchRow;
extern const NpRow g_stHaGemportRow;
extern const NpRow g_stHaLlidRow;
extern const NpRow g_stHaIpv4MulticastRow;
extern const NpRow g_stHaIpv6MulticastRow;
extern const NpRow g_stHaIpv4UdpRow;
extern const NpRow g_stHaAll0SmacRow;
extern const NpRow g_stHaMultiSmacRow;
extern const NpRow g_stHaSpecialEthRow;
extern const NpRow g_stHaInfoArgs;
extern const NpRow g_stHaAoeArgs;

inline constexpr uint32_t NP_HA_RULE_SIZE = 128;
inline constexpr uint32_t NP_HA_RULE_MAX = 2;  // rules of a filter

// A kind of filters. The members of the family differ in the rules and their ports.
struct NpHaFilter;
extern const NpHaFilter g_stHaSmacTarnA;
extern const NpHaFilter g_stHaSmacTarnB;
extern const NpHaFilter g_stHaSmacTarnC;
extern const NpHaFilter g_stHaDmacTarnA;
extern const NpHaFilter g_stHaDmacTarnB;
extern const NpHaFilter g_stHaDmacTarnC;
extern const NpHaFilter g_stHaErrorSample;
extern const NpHaFilter g_stHaAcmClock;
extern const NpHaFilter g_stHaL2Packet;
extern const NpHaFilter g_stHaL2PacketTarnC;
extern const NpHaFilter g_stHaDmacMatch;
extern const NpHaFilter g_stHaVlanMatch;
extern const NpHaFilter g_stHaGemport;
extern const NpHaFilter g_stHaLlid;
extern const NpHaFilter g_stHaIpv4Multicast;
extern const NpHaFilter g_stHaIpv6Multicast;
extern const NpHaFilter g_stHaIpv4Udp;
extern const NpHaFilter g_stHaAll0Smac;
extern const NpHaFilter g_stHaMultiSmac;
extern const NpHaFilter g_stHaSpecialEth;

// Builds a filter's rules, one or two, NP_HA_RULE_SIZE bytes each. ulIndex and the record are not
// tested; 0 where there is one filter of the kind.
uint32_t Np_Ha_Build(const NpHaFilter *pstFilter, uint32_t ulChipID, uint32_t ulIndex,
                     const void *pvRecord, void *pvRule, NpWhere stWhere = Np_Here());

// Builders and parsers by name, as those of the tables (sdk/record/table.h).
template <typename Record, const NpHaFilter &stFilter>
struct NpHaBuildOf {
    const char *pszName;
    uint32_t operator()(uint32_t ulChipID, uint32_t ulIndex, const Record *pstRecord,
                        void *pvRule) const
    {
        return Np_Ha_Build(&stFilter, ulChipID, ulIndex, pstRecord, pvRule, {pszName, __LINE__});
    }
};
template <typename Record, const NpRow &stRow>
struct NpHaParseOf {
    const char *pszName;
    uint32_t operator()(uint32_t ulChipID, const void *pvRule, Record *pstRecord) const
    {
        return Np_Row_Parse(&stRow, ulChipID, pvRule, pstRecord, {pszName, __LINE__});
    }
};
#define NP_HA_BUILD(Name, Record, stFilter)             \
    inline constexpr NpHaBuildOf<Record, stFilter> Name \
    {                                                   \
#Name                                           \
    }
#define NP_HA_PARSE(Name, Record, stRow)             \
    inline constexpr NpHaParseOf<Record, stRow> Name \
    {                                                \
#Name                                        \
    }

extern "C" {

// Which filters are installed: the first byte of an entry is 1 then. Null before bring-up.
extern uint8_t *g_pastNpHaSmacFilter[NP_CHIP_NUM];
extern uint8_t *g_pastNpHaDmacFilter[NP_CHIP_NUM];
extern uint8_t *g_pastNpHaErrorSample[NP_CHIP_NUM];
extern uint8_t *g_pastNpHaAcmClock[NP_CHIP_NUM];
extern uint8_t *g_pastNpHaDmacMatch[NP_CHIP_NUM];
extern uint8_t *g_pastNpHaVlanMatch[NP_CHIP_NUM];
// The same of kinds with one filter: 1 or 0.
extern uint32_t g_ulL2PacketValid[NP_CHIP_NUM];
extern uint32_t g_ulSpecialEthPktValid[NP_CHIP_NUM];
extern uint32_t g_ulNonBcGemportValid[NP_CHIP_NUM];
extern uint32_t g_ulNonBcLlidValid[NP_CHIP_NUM];
extern uint32_t g_ulIpv4McValid[NP_CHIP_NUM];
extern uint32_t g_ulIpv6McValid[NP_CHIP_NUM];
extern uint32_t g_ulIpv4UdpValid[NP_CHIP_NUM];

// Allocates and clears the flags and installs the rules of illegal source MACs, with ulHaInfo 0.
// NP_ERR_NO_MEMORY, the driver's code.
uint32_t Np_Tarn_HA_Init(uint32_t ulChipID);
// Gives the flags up. The rules stay with the driver.
uint32_t Np_Tarn_HA_Destruct(uint32_t ulChipID);

// Traces ulNum rule records.
void Np_Tarn_HaInfoTrace(const uint8_t *pucRule, uint32_t ulNum);

// Tag protocol identifiers of the pre-classifier. ulTpidType: 0 to 8; 1 to 4 are outer tags, 5 to 8
// inner ones. ulTpid: 0 to 0xffff. NP_ERR_PARAM, NP_ERR_NULL_PTR, the driver's code.
uint32_t Np_TarnB_ExtendTpidSet(uint32_t ulChipID, uint32_t ulTpidType, uint32_t ulTpid);
uint32_t Np_TarnB_ExtendTpidGet(uint32_t ulChipID, uint32_t ulTpidType, uint32_t *pulTpid);

// What the other members of the family have at their service.
decltype(Np_SmacFilterTbl_Set) Np_TarnA_SmacFilterTbl_Set, Np_TarnB_SmacFilterTbl_Set;
decltype(Np_SmacFilterTbl_Del) Np_TarnB_SmacFilterTbl_Del;
decltype(Np_DmacFilterTbl_Set) Np_TarnA_DmacFilterTbl_Set, Np_TarnB_DmacFilterTbl_Set;
decltype(Np_DmacFilterTbl_Del) Np_TarnB_DmacFilterTbl_Del;
decltype(Np_L2PacketFilterTbl_Set) Np_Tarn_L2PacketFilterTbl_Set;
decltype(Np_L2PacketFilterTbl_Del) Np_Tarn_L2PacketFilterTbl_Del;
decltype(Np_PiePktHaInfo_Set) Np_TarnA_PiePktHaInfo_Set;
decltype(Np_PiePktHaInfo_Get) Np_TarnA_PiePktHaInfo_Get;

NP_HA_BUILD(Np_TarnA_SmacFilter_Build, NpSmacFilter, g_stHaSmacTarnA);
NP_HA_BUILD(Np_TarnB_SmacFilter_Build, NpSmacFilter, g_stHaSmacTarnB);
NP_HA_BUILD(Np_TarnC_SmacFilter_Build, NpSmacFilter, g_stHaSmacTarnC);
NP_HA_BUILD(Np_TarnA_DmacFilter_Build, NpDmacFilter, g_stHaDmacTarnA);
NP_HA_BUILD(Np_TarnB_DmacFilter_Build, NpDmacFilter, g_stHaDmacTarnB);
NP_HA_BUILD(Np_TarnC_DmacFilter_Build, NpDmacFilter, g_stHaDmacTarnC);
NP_HA_BUILD(Np_Tarn_ErrorSample_Build, NpErrorSample, g_stHaErrorSample);
NP_HA_BUILD(Np_Tarn_AcmClock_Build, NpAcmClock, g_stHaAcmClock);
NP_HA_BUILD(Np_Tarn_L2PacketFilter_Build, NpL2Packet, g_stHaL2Packet);
NP_HA_BUILD(Np_TarnC_L2PacketFilter_Build, NpL2Packet, g_stHaL2PacketTarnC);
NP_HA_BUILD(Np_Tarn_DmacMatch_Build, NpDmacMatch, g_stHaDmacMatch);
NP_HA_BUILD(Np_Tarn_VlanMatch_Build, NpVlanMatch, g_stHaVlanMatch);
NP_HA_BUILD(Np_TarnC_NonBroadcastGemport_Build, NpNonBroadcastGemport, g_stHaGemport);
NP_HA_BUILD(Np_TarnC_NonBroadcastLlid_Build, NpNonBroadcastLlid, g_stHaLlid);
NP_HA_BUILD(Np_TarnC_Ipv4Multicast_Build, NpIpv4Multicast, g_stHaIpv4Multicast);
NP_HA_BUILD(Np_TarnC_Ipv6Multicast_Build, NpIpv6Multicast, g_stHaIpv6Multicast);
NP_HA_BUILD(Np_TarnC_Ipv4Udp_Build, NpIpv4Udp, g_stHaIpv4Udp);
NP_HA_BUILD(Np_Tarn_IllegalAll0Smac_Build, NpHaInfoArg, g_stHaAll0Smac);
NP_HA_BUILD(Np_Tarn_IllegalSmacMultiMac_Build, NpHaInfoArg, g_stHaMultiSmac);
NP_HA_BUILD(Np_Tarn_SpecialEth_Build, NpSpecialEth, g_stHaSpecialEth);
// Source and destination MAC filters are read back alike.
NP_HA_PARSE(Np_Tarn_MacFilter_Parse, NpSmacFilter, g_stHaSmacRow);
NP_HA_PARSE(Np_Tarn_ErrorSample_Parse, NpErrorSample, g_stHaErrorSampleRow);
NP_HA_PARSE(Np_Tarn_DmacMatch_Parse, NpDmacMatch, g_stHaDmacMatchRow);
NP_HA_PARSE(Np_Tarn_AcmClock_Parse, NpAcmClock, g_stHaAcmClockRow);
NP_HA_PARSE(Np_Tarn_VlanMatch_Parse, NpVlanMatch, g_stHaVlanMatchRow);

// Exported functions whose data are words, as calls on a record.
uint32_t Np_SpecialEthSet(uint32_t ulChipID, const NpSpecialEth *pstSpecialEth);
uint32_t Np_SpecialEthGet(uint32_t ulChipID, NpSpecialEth *pstSpecialEth);
uint32_t Np_AoePktSet(uint32_t ulChipID, const NpAoePkt *pstAoePkt);
uint32_t Np_AoePktGet(uint32_t ulChipID, NpAoePkt *pstAoePkt);

}  // extern "C"
