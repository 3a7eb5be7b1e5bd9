// The SDK's own version and the version of the loaded microcode.
#include "sdk/frame/base/service.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"
#include "sdk/frame/registry.h"

namespace {

constexpr char g_szVersionHead[] = "Lodestone1.3.10.0022for";
constexpr char g_aszChipTag[3][5] = {"QA01", "QA02", "QA03"};                     // by class
constexpr char g_aszProductForm[5][6] = {"MXU", "FTTM", "CMTS", "OLT", "XGPON"};  // by attribute

static_assert(sizeof(g_szVersionHead) - 1 + sizeof(g_aszChipTag[0]) - 1 +
                  sizeof(g_aszProductForm[0]) - 1 <
              sizeof(NpSdkVersionInfo::szVersion));

inline constexpr uint32_t NP_SDK_YEAR = 2015;
inline constexpr uint32_t NP_SDK_MONTH = 1;
inline constexpr uint32_t NP_SDK_DAY = 15;

}  // namespace

uint32_t Np_Tarn_SdkVersion_Get(uint32_t ulChipID, NpSdkVersionInfo *pstVersion)
{
    if (pstVersion == nullptr) {
        NP_TRACE(NP_M_GLB, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    const NpChipAttr &stAttr = g_aulNpChipAttr[ulChipID];
    memset(pstVersion, 0, sizeof(*pstVersion));
    pstVersion->ulYear = NP_SDK_YEAR;
    pstVersion->ulMonth = NP_SDK_MONTH;
    pstVersion->ulDay = NP_SDK_DAY;
    char *pszEnd = pstVersion->szVersion;
    for (const char *pszPiece :
         {static_cast<const char *>(g_szVersionHead), g_aszChipTag[stAttr.ulChipClass],
          g_aszProductForm[stAttr.ulChipAttr]}) {
        Np_StrCpy(pszEnd, pszPiece);
        pszEnd += NP_StrLen(pszPiece);
    }
    NP_TRACE(NP_M_GLB, NP_PRINT_TRACE, "out Version=%s %d/%d/%d", pstVersion->szVersion,
             static_cast<int>(pstVersion->ulYear), static_cast<int>(pstVersion->ulMonth),
             static_cast<int>(pstVersion->ulDay));
    return NP_OK;
}

uint32_t Np_Tarn_MicroVersion_Get(uint32_t ulChipID, char *pszVersion)
{
    if (pszVersion == nullptr) {
        NP_TRACE(NP_M_GLB, NP_PRINT_ERROR, "Para null ptr\r\n");
        return NP_ERR_NULL_PTR;
    }
    memset(pszVersion, 0, NP_MICRO_TRAILER_SIZE + 1);
    const NpMicroVersion &stMicro = g_stNpMicroVersion[ulChipID];
    if (stMicro.ulValid != 1) {
        NP_TRACE(NP_M_GLB, NP_PRINT_ERROR, "error, Version=%s", pszVersion);
        return NP_ERR_CHIP_VERSION;
    }
    memcpy(pszVersion, stMicro.aucRaw, NP_MICRO_TRAILER_SIZE);
    NP_TRACE(NP_M_GLB, NP_PRINT_TRACE, "out Version=%s", pszVersion);
    return NP_OK;
}
