#include "sdk/module/smd_ipqam.h"

#include "ldsdk/ipqam.h"
#include "ldsdk/status.h"
#include "platform/os.h"
#include "sdk/frame/base/trace.h"
#include "sdk/module/cli/smd.h"
#include "sdk/module/smd_row.h"
#include "sdk/module/tree.h"
#include "sdk/record/describe.h"

namespace {

template <typename Record>
constexpr NpRow Np_Args(std::span<const NpField> stFields, std::span<const NpCheck> stChecks)
{
    return Np_RowMake<Record>({.ucModule = NP_M_IPQAM}, stFields, stChecks);
}

namespace pgid_key {
using R = NpPgidMapKey;
constexpr NpField g_astField[] = {NP_F(dudp)};
constexpr NpCheck g_astCheck[] = {NP_C(dudp, Np_MostCap(NP_CAP_IPQAM_D))};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, g_astCheck);
}  // namespace pgid_key

namespace pgid_data {
using R = NpPgidMapData;
constexpr auto g_astTypeWords = Np_Words("nomap", "remap");
constexpr NpField g_astField[] = {
    NP_F(sip, .ucType = NP_SMD_IPV4),
    NP_F(type, .stWords = g_astTypeWords),
    NP_F(inpgid),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(type, Np_Most(1)),
    NP_C(inpgid, Np_MostCap(NP_CAP_IPQAM_D)),
};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, g_astCheck);
}  // namespace pgid_data

namespace pmt_key {
using R = NpPmtMapKey;
constexpr NpField g_astField[] = {NP_F(inpgid), NP_F(pid)};
constexpr NpCheck g_astCheck[] = {
    NP_C(inpgid, Np_MostCap(NP_CAP_IPQAM_D)),
    NP_C(pid, Np_MostCap(NP_CAP_IPQAM_D)),
};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, g_astCheck);
}  // namespace pmt_key

namespace pmt_data {
using R = NpPmtMapData;
constexpr NpField g_astField[] = {NP_F(pmtpid)};
constexpr NpCheck g_astCheck[] = {NP_C(pmtpid, Np_MostCap(NP_CAP_IPQAM_D))};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, g_astCheck);
}  // namespace pmt_data

namespace pid_key {
using R = NpPidMapKey;
static_assert(sizeof(R) == sizeof(NpPmtMapKey) && offsetof(R, pid) == offsetof(NpPmtMapKey, pid));
constexpr NpRow g_stRow = Np_Args<R>(pmt_key::g_astField, pmt_key::g_astCheck);
}  // namespace pid_key

namespace pid_data {
using R = NpPidMapData;
constexpr NpField g_astField[] = {NP_F(newpid)};
constexpr NpCheck g_astCheck[] = {NP_C(newpid, Np_MostCap(NP_CAP_IPQAM_D))};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, g_astCheck);
}  // namespace pid_data

namespace index_key {
using R = NpIndexArg;
constexpr NpField g_astField[] = {NP_F(ulIndex, .pszKey = "index")};
constexpr NpField g_astGroupField[] = {NP_F(ulIndex, .pszKey = "inpgid")};
constexpr NpCheck g_astVersionCheck[] = {NP_C(ulIndex, Np_BelowCap(NP_CAP_IPQAM_VERSION_ROWS))};
constexpr NpCheck g_astChannelCheck[] = {NP_C(ulIndex, Np_BelowCap(NP_CAP_IPQAM_CHANNEL_ROWS))};
constexpr NpCheck g_astEncapCheck[] = {NP_C(ulIndex, Np_MostCap(NP_CAP_IPQAM_ENCAP_MAX))};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, {});
constexpr NpRow g_stVersionRow = Np_Args<R>(g_astGroupField, g_astVersionCheck);
constexpr NpRow g_stChannelRow = Np_Args<R>(g_astGroupField, g_astChannelCheck);
constexpr NpRow g_stEncapRow = Np_Args<R>(g_astField, g_astEncapCheck);
}  // namespace index_key

namespace version_data {
using R = NpVersionInfo;
constexpr NpField g_astField[] = {NP_F(valid), NP_F(patversion), NP_F(pmtversion)};
constexpr NpCheck g_astCheck[] = {
    NP_C(valid, Np_Most(1)),
    NP_C(patversion, Np_MostCap(NP_CAP_IPQAM_VERSION_MAX)),
    NP_C(pmtversion, Np_MostCap(NP_CAP_IPQAM_VERSION_MAX)),
};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, g_astCheck);
}  // namespace version_data

namespace channel_data {
using R = NpChannelMap;
constexpr NpField g_astField[] = {NP_F(channelid), NP_F(channelpgid), NP_F(dudp)};
constexpr NpCheck g_astCheck[] = {
    NP_C(channelid, Np_MostCap(NP_CAP_IPQAM_CHANNEL_MAX)),
    NP_C(channelpgid, Np_MostCap(NP_CAP_IPQAM_CHANNEL_MAX)),
    NP_C(dudp, Np_MostCap(NP_CAP_IPQAM_D)),
};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, g_astCheck);
}  // namespace channel_data

namespace encap_data {
using R = NpEncapInfo;
constexpr NpField g_astField[] = {
    NP_F(dmac),
    NP_F(version),
    NP_F(headerlen),
    NP_F(tos),
    NP_F(totallen),
    NP_F(identifier),
    NP_F(frag),
    NP_F(fragoffset),
    NP_F(TTL),
    NP_F(protocol),
    NP_F(headchecksum),
    NP_F(sip, .ucType = NP_SMD_IPV4),
    NP_F(dip, .ucType = NP_SMD_IPV4),
    NP_F(sport),
    NP_F(dport),
    NP_F(len),
    NP_F(checksum),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(version, Np_MostCap(NP_CAP_IPQAM_HEAD_VERSION)),
    NP_C(headerlen, Np_MostCap(NP_CAP_IPQAM_HEAD_LENGTH)),
    NP_C(tos, Np_MostCap(NP_CAP_IPQAM_HEAD_TOS)),
    NP_C(totallen, Np_MostCap(NP_CAP_IPQAM_HEAD_TOTAL)),
    NP_C(identifier, Np_MostCap(NP_CAP_IPQAM_HEAD_ID)),
    NP_C(frag, Np_MostCap(NP_CAP_IPQAM_HEAD_FRAG)),
    NP_C(fragoffset, Np_MostCap(NP_CAP_IPQAM_HEAD_OFFSET)),
    NP_C(TTL, Np_MostCap(NP_CAP_IPQAM_HEAD_TTL)),
    NP_C(protocol, Np_MostCap(NP_CAP_IPQAM_HEAD_PROTOCOL)),
    NP_C(headchecksum, Np_MostCap(NP_CAP_IPQAM_HEAD_SUM)),
    NP_C(sport, Np_MostCap(NP_CAP_IPQAM_HEAD_PORT)),
    NP_C(dport, Np_MostCap(NP_CAP_IPQAM_HEAD_PORT)),
    NP_C(len, Np_MostCap(NP_CAP_IPQAM_HEAD_UDP_LENGTH)),
    NP_C(checksum, Np_MostCap(NP_CAP_IPQAM_HEAD_UDP_SUM)),
};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, g_astCheck);
}  // namespace encap_data

namespace timed {
using R = NpIpQamTimedMsg;
constexpr NpField g_astField[] = {NP_F(enable), NP_F(agetime), NP_F(session)};
constexpr NpCheck g_astCheck[] = {
    NP_C(enable, Np_Most(1)),
    NP_C(agetime, Np_FromCap(NP_CAP_IPQAM_AGE_MIN, NP_CAP_IPQAM_AGE_MAX)),
    NP_C(session, Np_BelowCap(NP_CAP_IPQAM_A)),
};
constexpr NpRow g_stRow = Np_Args<R>(g_astField, g_astCheck);
}  // namespace timed

template <typename Key, typename Data>
uint32_t Np_GetByIndex(uint32_t (*pfnGet)(uint32_t, uint32_t, Key *, Data *), const NpRow *pstKey,
                       const NpRow *pstData)
{
    uint32_t ulIndex = 0;
    if (Np_SMD_RowScan(&index_key::g_stRow, &ulIndex, true) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    Key stKey = {};
    Data stData = {};
    const uint32_t ulReturn = pfnGet(g_ulNpCurrentChipID, ulIndex, &stKey, &stData);
    if (ulReturn == NP_OK) {
        Os_Print("\r\nKEY:");
        Np_SMD_RowPrint(pstKey, &stKey);
        Os_Print("\r\nDATA:");
        Np_SMD_RowPrint(pstData, &stData);
    }
    return Np_SMD_Report(ulReturn);
}

}  // namespace

extern "C" {

#define NP_DO(Handler, Do, ...)                                    \
    static uint32_t Handler(void)                                  \
    {                                                              \
        static constexpr NpRowCommand g_stCommand = {__VA_ARGS__}; \
        return Do(&g_stCommand);                                   \
    }
// A map: by key, and by place. A set of a key that can not be read begins with an empty record.
#define NP_MAP(Name, Api, Key, Data)                                                           \
    NP_DO(Np_SMD_Ipqam_##Name##_Set, Np_SMD_RowSet, .enForm = NP_FORM_LARGE,                   \
          .pstKey = &Key::g_stRow, .pstData = &Data::g_stRow, .pfnGet = Np_GetCall<Api##_Get>, \
          .pfnSet = Np_SetCall<Api##_Set>, .bAny = true)                                       \
    NP_DO(Np_SMD_Ipqam_##Name##_Get, Np_SMD_RowGet, .pstKey = &Key::g_stRow,                   \
          .pstData = &Data::g_stRow, .pfnGet = Np_GetCall<Api##_Get>)                          \
    NP_DO(Np_SMD_Ipqam_##Name##_Del, Np_SMD_RowDel, .pstKey = &Key::g_stRow,                   \
          .pfnDel = Np_KeyCallOf<Api##_Del>)                                                   \
    NP_DO(Np_SMD_Ipqam_##Name##_DelByIndex, Np_SMD_RowDel, .pstKey = &index_key::g_stRow,      \
          .pfnDel = Np_KeyCallOf<Api##_DelByIndex>)                                            \
    static uint32_t Np_SMD_Ipqam_##Name##_GetByIndex(void)                                     \
    {                                                                                          \
        return Np_GetByIndex(Api##_GetByIndex, &Key::g_stRow, &Data::g_stRow);                 \
    }
// Rows by their number.
#define NP_ROWS(Name, Api, KeyRow, Data)                                                          \
    NP_DO(Np_SMD_Ipqam_##Name##_Set, Np_SMD_RowSet, .enForm = NP_FORM_LARGE, .pstKey = &(KeyRow), \
          .pstData = &Data::g_stRow, .pfnGet = Np_GetCall<Api##_Get>,                             \
          .pfnSet = Np_SetCall<Api##_Set>)                                                        \
    NP_DO(Np_SMD_Ipqam_##Name##_Get, Np_SMD_RowGet, .pstKey = &(KeyRow),                          \
          .pstData = &Data::g_stRow, .pfnGet = Np_GetCall<Api##_Get>)

NP_MAP(PgidMap, Np_PgidMapTbl, pgid_key, pgid_data)
NP_MAP(PmtMap, Np_PmtMapTbl, pmt_key, pmt_data)
NP_MAP(NpidMap, Np_PidMapTbl, pid_key, pid_data)
NP_ROWS(VerInfo, Np_VersionInfoTbl, index_key::g_stVersionRow, version_data)
NP_ROWS(ChanMap, Np_ChannelMapTbl, index_key::g_stChannelRow, channel_data)
NP_ROWS(EncInfo, Np_EncapInfo, index_key::g_stEncapRow, encap_data)

static uint32_t Np_SMD_Ipqam_TxTimedMsg_Set(void)
{
    NpIpQamTimedMsg stMsg = {};
    if (Np_SMD_RowScan(&timed::g_stRow, &stMsg, true) != 0 || Np_SMD_EndCheck() != 0) {
        return 1;
    }
    return Np_SMD_Report(Np_IpQamTimedMsg_set(g_ulNpCurrentChipID, &stMsg));
}

#define NP_MAP_CMDS(Name, szTable)                                                          \
    {                                                                                       \
        NP_LEAF("set", szTable " set", Np_SMD_Ipqam_##Name##_Set),                          \
            NP_LEAF("get", szTable " get", Np_SMD_Ipqam_##Name##_Get),                      \
            NP_LEAF("del", szTable " del", Np_SMD_Ipqam_##Name##_Del),                      \
            NP_LEAF("getbyindex", szTable " getbyindex", Np_SMD_Ipqam_##Name##_GetByIndex), \
            NP_LEAF("delbyindex", szTable " delbyindex", Np_SMD_Ipqam_##Name##_DelByIndex), \
    }
#define NP_ROWS_CMDS(Name, szTable)                                    \
    {                                                                  \
        NP_LEAF("set", szTable " set", Np_SMD_Ipqam_##Name##_Set),     \
            NP_LEAF("get", szTable " get", Np_SMD_Ipqam_##Name##_Get), \
    }

constinit NpCliCmdEntry g_stNpSdkIpqamPgidMapCmds[5] = NP_MAP_CMDS(PgidMap, "pgidmap");
constinit NpCliCmdEntry g_stNpSdkIpqamPmtMapCmds[5] = NP_MAP_CMDS(PmtMap, "pmtmap");
constinit NpCliCmdEntry g_stNpSdkIpqamNpidMapCmds[5] = NP_MAP_CMDS(NpidMap, "npidmap");
constinit NpCliCmdEntry g_stNpSdkIpqamVerInfoCmds[2] = NP_ROWS_CMDS(VerInfo, "versioninfo");
constinit NpCliCmdEntry g_stNpSdkIpqamChanMapCmds[2] = NP_ROWS_CMDS(ChanMap, "channelmap");
constinit NpCliCmdEntry g_stNpSdkIpqamEncInfoCmds[2] = NP_ROWS_CMDS(EncInfo, "encinfo");
constinit NpCliCmdEntry g_stNpSdkIpqamTxTimeMsgCmds[1] = {
    NP_LEAF("set", "txtimemsg set", Np_SMD_Ipqam_TxTimedMsg_Set),
};

constinit NpCliCmdEntry g_stNpSdkIpqamCmds[7] = {
    NP_GROUP("pgidmap", "pgidmap op", g_stNpSdkIpqamPgidMapCmds),
    NP_GROUP("pmtmap", "pmtmap op", g_stNpSdkIpqamPmtMapCmds),
    NP_GROUP("npidmap", "npidmap op", g_stNpSdkIpqamNpidMapCmds),
    NP_GROUP("versioninfo", "versioninfo op", g_stNpSdkIpqamVerInfoCmds),
    NP_GROUP("channelmap", "channelmap op", g_stNpSdkIpqamChanMapCmds),
    NP_GROUP("encinfo", "encinfo op", g_stNpSdkIpqamEncInfoCmds),
    NP_GROUP("txtimemsg", "txtimemsg op", g_stNpSdkIpqamTxTimeMsgCmds),
};

}  // extern "C"
