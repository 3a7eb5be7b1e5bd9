// The default rows of packet analysis. They read as tables: what is not said of a row is the same
// in all of them.
#include "ldsdk/status.h"
#include "sdk/frame/base/trace.h"
#include "sdk/tables/pa.h"

#include <array>
#include <span>

namespace {

inline constexpr uint32_t ANY = 0xffffffff;  // the field does not count
inline constexpr uint32_t OFF = 0xffffffff;  // no ulPttOffset

// What differs from forwarding, sensitive to blocking and QinQ, for IPv4 and others.
enum NpOther : uint32_t {
    SUP = 1u << 0,     // ulSuppressCtrlEnable
    DROP = 1u << 1,    // both actions
    QINQ0 = 1u << 2,   // no ulQinQSensitive
    BLOCK0 = 1u << 3,  // no ulBlockSensitive
    FT = 1u << 4,      // ulForceTrans
    CAS = 1u << 5,     // ulCasSensitive
    VMAC = 1u << 6,    // ulVmacNTo1Enable
    LCP = 1u << 7,     // ulPppLcpEnable
    PTT2 = 1u << 8,    // ulPttType 1
};
constexpr uint32_t Etm(uint32_t ulEthTypeMask)
{
    return ulEthTypeMask << 12;
}
constexpr uint32_t Excp(uint32_t ulExcpInfo)
{
    return ulExcpInfo << 16;
}

struct NpBits {
    uint64_t ullKey;
    uint64_t ullMask;
};
constexpr NpBits ANY_MAC = {0, 0};
constexpr NpBits Mac(uint64_t ullKey, uint64_t ullMask = 0xffffffffffff)
{
    return {ullKey, ullMask};
}

constexpr NpPaAd Np_Action(uint32_t ulL2Type, uint32_t ulL3Type, uint32_t ulAnalyseCtrl,
                           uint32_t ulPttOffset, uint32_t ulOther)
{
    const auto Has = [&](NpOther enOther) { return (ulOther & enOther) != 0 ? 1u : 0u; };
    const uint32_t ulEthTypeMask = ulOther >> 12 & 0xf;
    NpPaAd stAD = {};
    stAD.ulUniAction = stAD.ulNniAction = Has(DROP) != 0 ? 2 : 0;
    stAD.ulBlockSensitive = 1 - Has(BLOCK0);
    stAD.ulSuppressCtrlEnable = Has(SUP);
    stAD.ulQinQSensitive = 1 - Has(QINQ0);
    stAD.ulEthTypeMask = ulEthTypeMask != 0 ? ulEthTypeMask : 9;
    stAD.ulPttSensitive = ulPttOffset != OFF ? 1 : 0;
    stAD.ulPttType = Has(PTT2);
    stAD.ulPttOffset = ulPttOffset != OFF ? ulPttOffset : 0;
    stAD.ulPppLcpEnable = Has(LCP);
    stAD.ulVmacNTo1Enable = Has(VMAC);
    stAD.ulAnalyseCtrl = ulAnalyseCtrl;
    stAD.ulAccelerateL2Type = ulL2Type;
    stAD.ulAccelerateL3Type = ulL3Type;
    stAD.ulExcpInfo = ulOther >> 16;
    stAD.ulExcpInfoType = stAD.ulExcpInfo != 0 ? 1 : 0;
    stAD.ulCasSensitive = Has(CAS);
    stAD.ulForceTrans = Has(FT);
    stAD.ulMacSpf = 1;
    return stAD;
}

// A value all of whose bits count, or none.
constexpr void Np_Match(uint32_t &ulKey, uint32_t &ulMask, uint32_t ulValue, uint32_t ulAll)
{
    ulKey = ulValue != ANY ? ulValue : 0;
    ulMask = ulValue != ANY ? ulAll : 0;
}

// Bytes, the first on top.
template <size_t ulNum>
constexpr void Np_BytesPut(uint8_t (&aucByte)[ulNum], uint64_t ullValue)
{
    for (size_t i = 0; i < ulNum; i++) {
        aucByte[i] = static_cast<uint8_t>(ullValue >> 8 * (ulNum - 1 - i));
    }
}

struct NpL2Line {
    uint32_t ulL2paID;
    uint32_t ulPri;
    uint32_t ulHaInfo;
    uint32_t ulEthType;
    uint32_t ulTagInfo;
    NpBits stDmac;
    uint32_t ulL2Type;
    uint32_t ulL3Type;
    uint32_t ulAnalyseCtrl;
    uint32_t ulPttOffset;
    uint32_t ulOther;
};

// clang-format off
constexpr NpL2Line g_astL2Line[] = {
    // id, pri, HA info, type, tags, DMAC, L2 and L3 type, analysis, PTT offset, other
    {0, 0, ANY, ANY, ANY, ANY_MAC, 0, 0, 0, 0, SUP},
    {1, 9, 1, ANY, ANY, ANY_MAC, 0, 0, 0, OFF, DROP | Excp(52)},
    {2, 9, 2, ANY, ANY, ANY_MAC, 0, 0, 0, OFF, DROP | Excp(53)},
    {3, 8, 3, ANY, ANY, ANY_MAC, 40, 0, 0, OFF, 0},
    {4, 5, 4, ANY, ANY, ANY_MAC, 0, 0, 0, 64, 0},
    {5, 0, ANY, ANY, ANY, ANY_MAC, 32, 0, 0, 4, SUP},
    {6, 5, ANY, 0x0800, ANY, Mac(0x0000005623b0), 40, 9, 1, 3, SUP},
    {7, 2, ANY, 0x86dd, ANY, Mac(0x0000005623b0), 40, 12, 2, 3, SUP},
    {8, 1, ANY, ANY, ANY, Mac(0x0000005623af), 40, 0, 0, 5, QINQ0},
    {9, 1, ANY, ANY, ANY, Mac(0x010000000000, 0x010000000000), 48, 0, 0, 6, SUP},
    {10, 2, ANY, ANY, ANY, Mac(0xffffffffffff), 56, 0, 0, 7, SUP},
    {11, 2, ANY, 0x0800, ANY, ANY_MAC, 32, 9, 1, 8, SUP},
    {12, 6, ANY, 0x0800, ANY, Mac(0x0000005623af), 40, 9, 1, 9, QINQ0},
    {13, 3, ANY, 0x0800, ANY, Mac(0x010000000000, 0x010000000000), 48, 10, 1, 10, SUP},
    {14, 4, ANY, 0x0800, ANY, Mac(0xffffffffffff), 56, 11, 1, 11, SUP},
    {15, 3, ANY, 0x86dd, ANY, ANY_MAC, 32, 12, 2, 12, SUP | Etm(10)},
    {16, 4, ANY, 0x86dd, ANY, Mac(0x0000005623af), 40, 12, 2, 13, QINQ0 | Etm(10)},
    {17, 4, ANY, 0x86dd, ANY, Mac(0x333300000000, 0xffff00000000), 48, 13, 2, 14, SUP | Etm(10)},
    {18, 6, ANY, 0x0806, ANY, ANY_MAC, 32, 0, 0, 18, 0},
    {19, 7, ANY, 0x0806, ANY, Mac(0x0000005623af), 40, 0, 0, 18, 0},
    {20, 7, ANY, 0x0806, ANY, Mac(0xffffffffffff), 56, 0, 0, 18, 0},
    {21, 5, ANY, 0x8864, ANY, ANY_MAC, 32, 0, 3, 20, Etm(4)},
    {22, 6, ANY, 0x8864, ANY, Mac(0x0000005623af), 40, 0, 3, 21, Etm(4)},
    {23, 6, ANY, 0x8864, ANY, Mac(0x010000000000, 0x010000000000), 48, 0, 3, 22, SUP | Etm(4)},
    {24, 6, ANY, 0x8864, ANY, Mac(0xffffffffffff), 56, 0, 3, 23, Etm(4)},
    {25, 5, ANY, 0x8847, ANY, ANY_MAC, 32, 6, 7, 24, 0},
    {26, 5, ANY, 0x8848, ANY, ANY_MAC, 48, 7, 7, 26, 0},
    {27, 4, ANY, 0x888e, ANY, ANY_MAC, 48, 0, 0, 65, QINQ0 | FT},
    {28, 5, ANY, 0x888e, 0, ANY_MAC, 48, 0, 0, 66, QINQ0 | FT},
    {29, 6, ANY, 0x888e, ANY, Mac(0x0180c2000003), 48, 0, 0, 67, QINQ0 | FT},
    {30, 7, ANY, 0x888e, 0, Mac(0x0180c2000003), 48, 0, 0, 68, QINQ0 | FT},
    {31, 6, ANY, ANY, ANY, Mac(0x0180c2000000, 0xfffffffffff7), 48, 0, 0, 69, BLOCK0 | QINQ0 | FT},
    {32, 7, ANY, ANY, 0, Mac(0x0180c2000000, 0xfffffffffff7), 48, 0, 0, 70, BLOCK0 | QINQ0 | FT},
    {33, 5, ANY, ANY, ANY, Mac(0x0180c2000010, 0xfffffffffff0), 48, 0, 0, 71, QINQ0 | FT},
    {34, 6, ANY, ANY, 0, Mac(0x0180c2000010, 0xfffffffffff0), 48, 0, 0, 72, QINQ0 | FT},
    {35, 5, ANY, ANY, ANY, Mac(0x0180c2000000, 0xffffffffffd0), 48, 0, 0, 71, QINQ0 | FT},
    {36, 6, ANY, ANY, 0, Mac(0x0180c2000000, 0xffffffffffd0), 48, 0, 0, 72, QINQ0 | FT},
    {37, 5, ANY, ANY, ANY, Mac(0x01000ccccccc), 48, 0, 0, 73, QINQ0 | FT},
    {38, 5, ANY, 0x8863, ANY, ANY_MAC, 32, 0, 3, 74, Etm(4) | CAS},
    {39, 6, ANY, 0x8863, ANY, Mac(0x0000005623af), 40, 0, 3, 75, Etm(4) | CAS},
    {40, 6, ANY, 0x8863, ANY, Mac(0xffffffffffff), 56, 0, 3, 74, Etm(4) | CAS},
    {41, 5, ANY, 0x8300, ANY, ANY_MAC, 0, 0, 0, 76, 0},
    {42, 5, ANY, 0xbdea, ANY, ANY_MAC, 48, 0, 0, 77, QINQ0},
    {43, 5, ANY, 0x8902, ANY, ANY_MAC, 32, 0, 7, 48, 0},
    {44, 9, ANY, 0x8808, ANY, Mac(0x0180c2000001), 48, 0, 7, 78, 0},
    {45, 4, ANY, 0x0800, ANY, Mac(0x0000005623b1), 32, 0, 1, 8, SUP | VMAC},
    {46, 7, ANY, 0x8864, ANY, Mac(0x0000005623b1), 32, 0, 3, OFF, SUP | Etm(4) | VMAC | CAS},
    {47, 7, ANY, 0x8809, ANY, Mac(0x0180c2000002), 48, 0, 7, 79, 0},
    {48, 8, ANY, 0x8809, 0, Mac(0x0180c2000002), 48, 0, 7, 80, 0},
};
// clang-format on

constexpr NpL2paDefault Np_Made(const NpL2Line &stLine)
{
    NpL2paDefault stRow = {};
    NpL2pa &stL2pa = stRow.stL2pa;
    NpL2paKey &stKey = stL2pa.stKey;
    NpL2paKey &stMask = stL2pa.stKeyMask;
    stRow.ulL2paID = stLine.ulL2paID;
    Np_Match(stKey.ulHaInfo, stMask.ulHaInfo, stLine.ulHaInfo, 127);
    Np_Match(stKey.ulEthType, stMask.ulEthType, stLine.ulEthType, 0xffff);
    Np_Match(stKey.ulTagInfo, stMask.ulTagInfo, stLine.ulTagInfo, 3);
    Np_BytesPut(stKey.aucDmac, stLine.stDmac.ullKey);
    Np_BytesPut(stMask.aucDmac, stLine.stDmac.ullMask);
    stL2pa.stAD = Np_Action(stLine.ulL2Type, stLine.ulL3Type, stLine.ulAnalyseCtrl,
                            stLine.ulPttOffset, stLine.ulOther);
    stL2pa.ulPri = stLine.ulPri;
    return stRow;
}

// What an L3 row asks of the bytes behind the L2 header.
struct NpL3Key {
    uint32_t ulPppProtocol = ANY;
    uint32_t ulLcpOpCode = ANY;
    uint32_t ulIpProtocol = ANY;
    uint32_t ulNextHeader = ANY;
    NpBits stPayload = {};
};

struct NpL3Line {
    uint32_t ulL3paID;
    uint32_t ulPri;
    NpBits stEncap;
    NpBits stPttOffset;
    NpL3Key stKey;
    uint32_t ulL2Type;
    uint32_t ulL3Type;
    uint32_t ulPttOffset;
    uint32_t ulOther;
};

// clang-format off
constexpr NpL3Line g_astPppLine[] = {
    // id, pri, encapsulation, PTT offset of the L2 row, key, L2 and L3 type, PTT offset, other
    {2, 2, {10, 11}, {}, {}, 0, 0, OFF, SUP},
    {3, 5, {10, 11}, {}, {.ulPppProtocol = 0xc021, .ulLcpOpCode = 5}, 16, 0, 86, LCP},
    {4, 5, {10, 11}, {}, {.ulPppProtocol = 0xc021, .ulLcpOpCode = 6}, 16, 0, 87, LCP},
    {5, 5, {10, 11}, {}, {.ulPppProtocol = 0xc021, .ulLcpOpCode = 1}, 16, 0, 56, PTT2 | LCP},
    {17, 5, {}, {20, 0xff}, {.ulPppProtocol = 0x0021, .ulIpProtocol = 0x02}, 32, 0, 89, Etm(4) | CAS},
};
constexpr NpL3Line g_astIpv4Line[] = {
    {6, 5, {8, 11}, {}, {.ulIpProtocol = 0x11, .stPayload = {0x00000208, 0x0000ffff}}, 0, 9, 57, QINQ0 | FT},
    {7, 5, {8, 11}, {}, {.ulIpProtocol = 0x11, .stPayload = {0x0000007b, 0x0000ffff}}, 0, 9, 127, CAS | FT},
    {8, 5, {8, 11}, {}, {.ulIpProtocol = 0x59}, 0, 9, 58, QINQ0 | FT},
    {9, 5, {}, {}, {.ulIpProtocol = 0x02}, 0, 10, 88, 0},
    {10, 5, {}, {10, 0xff}, {.ulIpProtocol = 0x11, .stPayload = {0x00000208, 0x0000ffff}}, 48, 0, 57, QINQ0 | PTT2 | FT},
    {11, 5, {}, {11, 0xff}, {.ulIpProtocol = 0x11, .stPayload = {0x00000208, 0x0000ffff}}, 56, 0, 57, QINQ0 | PTT2 | FT},
    {12, 5, {}, {10, 0xff}, {.ulIpProtocol = 0x59}, 48, 0, 58, QINQ0 | PTT2 | FT},
    {13, 5, {}, {8, 0xff}, {.ulIpProtocol = 0x11, .stPayload = {0x00440043, 0xffffffff}}, 32, 0, 59, PTT2},
    {14, 5, {}, {8, 0xff}, {.ulIpProtocol = 0x11, .stPayload = {0x00430044, 0xffffffff}}, 32, 0, 60, PTT2},
    {15, 5, {}, {11, 0xff}, {.ulIpProtocol = 0x11, .stPayload = {0x00440043, 0xffffffff}}, 56, 0, 59, PTT2},
    {16, 5, {}, {11, 0xff}, {.ulIpProtocol = 0x11, .stPayload = {0x00430044, 0xffffffff}}, 56, 0, 60, PTT2},
    {24, 5, {}, {10, 0xff}, {.ulIpProtocol = 0x11, .stPayload = {0x0000007b, 0x0000ffff}}, 48, 10, 96, FT},
    {25, 5, {}, {11, 0xff}, {.ulIpProtocol = 0x11, .stPayload = {0x0000007b, 0x0000ffff}}, 56, 11, 97, CAS | FT},
    {26, 6, {}, {3, 0xff}, {.ulIpProtocol = 0x01}, 40, 0, 98, QINQ0},
    {27, 3, {}, {3, 0xff}, {.ulIpProtocol = 0x11, .stPayload = {0x0bb8c000, 0xffffffff}}, 0, 0, OFF, DROP | Excp(54)},
};
constexpr NpL3Line g_astIpv6Line[] = {
    {28, 5, {}, {12, 253}, {.ulNextHeader = 0x11, .stPayload = {0x00000222, 0x0000ffff}}, 32, 12, 114, Etm(10)},
    {29, 5, {}, {12, 253}, {.ulNextHeader = 0x11, .stPayload = {0x00000223, 0x0000ffff}}, 32, 12, 115, Etm(10)},
    {30, 5, {}, {14, 0xff}, {.ulNextHeader = 0x3a, .stPayload = {0x82000000, 0xff000000}}, 48, 13, 40, Etm(10)},
    {31, 5, {}, {14, 0xff}, {.ulNextHeader = 0x3a, .stPayload = {0x83000000, 0xff000000}}, 48, 13, 42, Etm(10)},
    {32, 5, {}, {14, 0xff}, {.ulNextHeader = 0x3a, .stPayload = {0x84000000, 0xff000000}}, 48, 13, 44, Etm(10)},
    {33, 5, {}, {14, 0xff}, {.ulNextHeader = 0x3a, .stPayload = {0x8f000000, 0xff000000}}, 48, 13, 46, Etm(10)},
    {34, 5, {}, {12, 253}, {.ulNextHeader = 0x3a, .stPayload = {0x85000000, 0xff000000}}, 32, 12, 116, Etm(10)},
    {35, 5, {}, {12, 253}, {.ulNextHeader = 0x3a, .stPayload = {0x86000000, 0xff000000}}, 32, 12, 117, Etm(10)},
    {36, 5, {}, {12, 253}, {.ulNextHeader = 0x3a, .stPayload = {0x87000000, 0xff000000}}, 32, 12, 118, Etm(10)},
    {37, 5, {}, {12, 253}, {.ulNextHeader = 0x3a, .stPayload = {0x88000000, 0xff000000}}, 32, 12, 119, Etm(10)},
    {38, 5, {}, {12, 253}, {.ulNextHeader = 0x3a, .stPayload = {0x89000000, 0xff000000}}, 32, 12, 120, Etm(10)},
    {39, 5, {}, {14, 0xff}, {.ulNextHeader = 0x11, .stPayload = {0x0000007b, 0x0000ffff}}, 32, 12, 121, Etm(10) | FT},
};
constexpr NpL3Line g_astOthersLine[] = {
    {0, 2, {8, 11}, {}, {}, 0, 9, OFF, SUP},
    {1, 5, {8, 11}, {16, 0xff}, {}, 0, 9, 16, 0},
    {18, 5, {}, {79, 0xff}, {.stPayload = {0x03000000000000, 0xff000000000000}}, 48, 0, 90, QINQ0 | FT},
    {19, 5, {}, {80, 0xff}, {.stPayload = {0x03000000000000, 0xff000000000000}}, 48, 0, 91, QINQ0 | FT},
    {20, 5, {}, {79, 0xff}, {.stPayload = {0x01000000000000, 0xff000000000000}}, 48, 0, 92, BLOCK0 | QINQ0 | FT},
    {21, 5, {}, {80, 0xff}, {.stPayload = {0x01000000000000, 0xff000000000000}}, 48, 0, 93, BLOCK0 | QINQ0 | FT},
    {22, 5, {}, {79, 0xff}, {.stPayload = {0x00000000000000, 0xff000000000000}}, 48, 0, 94, BLOCK0 | QINQ0},
    {23, 5, {}, {80, 0xff}, {.stPayload = {0x00000000000000, 0xff000000000000}}, 48, 0, 95, BLOCK0 | QINQ0},
};
// clang-format on

constexpr void Np_UnionFill(uint32_t ulKeyType, NpL3paKey &stKey, NpL3paKey &stMask,
                            const NpL3Key &stLine)
{
    switch (ulKeyType) {
        case 0:
            stKey.unKey = {.stPpp = {}};
            stMask.unKey = {.stPpp = {}};
            Np_Match(stKey.unKey.stPpp.ulPppProtocol, stMask.unKey.stPpp.ulPppProtocol,
                     stLine.ulPppProtocol, 0xffff);
            Np_Match(stKey.unKey.stPpp.ulLcpOpCode, stMask.unKey.stPpp.ulLcpOpCode,
                     stLine.ulLcpOpCode, 0xff);
            Np_Match(stKey.unKey.stPpp.ulIpProtocol, stMask.unKey.stPpp.ulIpProtocol,
                     stLine.ulIpProtocol, 0xff);
            break;
        case 1:
            stKey.unKey = {.stIpv4 = {}};
            stMask.unKey = {.stIpv4 = {}};
            Np_Match(stKey.unKey.stIpv4.ulIpProtocol, stMask.unKey.stIpv4.ulIpProtocol,
                     stLine.ulIpProtocol, 0xff);
            Np_BytesPut(stKey.unKey.stIpv4.aucIpPayload, stLine.stPayload.ullKey);
            Np_BytesPut(stMask.unKey.stIpv4.aucIpPayload, stLine.stPayload.ullMask);
            break;
        case 2:
            stKey.unKey = {.stIpv6 = {}};
            stMask.unKey = {.stIpv6 = {}};
            Np_Match(stKey.unKey.stIpv6.ulNextHeader, stMask.unKey.stIpv6.ulNextHeader,
                     stLine.ulNextHeader, 0xff);
            Np_BytesPut(stKey.unKey.stIpv6.aucIpPayload, stLine.stPayload.ullKey);
            Np_BytesPut(stMask.unKey.stIpv6.aucIpPayload, stLine.stPayload.ullMask);
            break;
        default:
            stKey.unKey = {.stOthers = {}};
            stMask.unKey = {.stOthers = {}};
            Np_BytesPut(stKey.unKey.stOthers.aucPayload, stLine.stPayload.ullKey);
            Np_BytesPut(stMask.unKey.stOthers.aucPayload, stLine.stPayload.ullMask);
            break;
    }
}

constexpr NpL3paDefault Np_Made(const NpL3Line &stLine, uint32_t ulKeyType)
{
    NpL3paDefault stRow = {};
    NpL3pa &stL3pa = stRow.stL3pa;
    stRow.ulL3paID = stLine.ulL3paID;
    stL3pa.stKey.ulEncap = static_cast<uint32_t>(stLine.stEncap.ullKey);
    stL3pa.stKeyMask.ulEncap = static_cast<uint32_t>(stLine.stEncap.ullMask);
    stL3pa.stKey.ulPttOffset = static_cast<uint32_t>(stLine.stPttOffset.ullKey);
    stL3pa.stKeyMask.ulPttOffset = static_cast<uint32_t>(stLine.stPttOffset.ullMask);
    Np_UnionFill(ulKeyType, stL3pa.stKey, stL3pa.stKeyMask, stLine.stKey);
    stL3pa.stAD =
        Np_Action(stLine.ulL2Type, stLine.ulL3Type, 0, stLine.ulPttOffset, stLine.ulOther);
    stL3pa.ulPri = stLine.ulPri;
    stL3pa.ulKeyType = ulKeyType;
    return stRow;
}

template <typename Line, size_t ulNum, typename... Type>
constexpr auto Np_AllMade(const Line (&astLine)[ulNum], Type... ulKeyType)
{
    std::array<decltype(Np_Made(astLine[0], ulKeyType...)), ulNum> astRow{};
    for (size_t i = 0; i < ulNum; i++) {
        astRow[i] = Np_Made(astLine[i], ulKeyType...);
    }
    return astRow;
}

}  // namespace

constexpr std::array<NpL2paDefault, 49> g_astNpL2Pa_TarnB = Np_AllMade(g_astL2Line);
constexpr std::array<NpL3paDefault, 5> g_astNpL3PaPPP_TarnB = Np_AllMade(g_astPppLine, 0);
constexpr std::array<NpL3paDefault, 15> g_astNpL3PaIpv4_TarnB = Np_AllMade(g_astIpv4Line, 1);
constexpr std::array<NpL3paDefault, 12> g_astNpL3PaIpv6_TarnB = Np_AllMade(g_astIpv6Line, 2);
constexpr std::array<NpL3paDefault, 8> g_astNpL3PaOthers_TarnB = Np_AllMade(g_astOthersLine, 3);
constexpr uint32_t g_ulNpL2PaSize_TarnB = g_astNpL2Pa_TarnB.size();
constexpr uint32_t g_ulNpL3PaPPPSize_TarnB = g_astNpL3PaPPP_TarnB.size();
constexpr uint32_t g_ulNpL3PaIpv4Size_TarnB = g_astNpL3PaIpv4_TarnB.size();
constexpr uint32_t g_ulNpL3PaIpv6Size_TarnB = g_astNpL3PaIpv6_TarnB.size();
constexpr uint32_t g_ulNpL3PaOthersSize_TarnB = g_astNpL3PaOthers_TarnB.size();

extern "C" uint32_t Np_Tarn_DFX_PA_INIT(uint32_t ulChipID)
{
    for (const NpL2paDefault &stRow : g_astNpL2Pa_TarnB) {
        const uint32_t ulReturn = Np_L2paTbl_Set(ulChipID, stRow.ulL2paID, &stRow.stL2pa);
        if (ulReturn != NP_OK) {
            NP_TRACE(NP_M_PA, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
            return ulReturn;
        }
    }
    for (const std::span<const NpL3paDefault> stGroup :
         {std::span<const NpL3paDefault>(g_astNpL3PaPPP_TarnB),
          {g_astNpL3PaIpv4_TarnB},
          {g_astNpL3PaIpv6_TarnB},
          {g_astNpL3PaOthers_TarnB}}) {
        for (const NpL3paDefault &stRow : stGroup) {
            const uint32_t ulReturn = Np_L3paTbl_Set(ulChipID, stRow.ulL3paID, &stRow.stL3pa);
            if (ulReturn != NP_OK) {
                NP_TRACE(NP_M_PA, NP_PRINT_ERROR, "Func error return: 0x%08x \r\n", ulReturn);
                return ulReturn;
            }
        }
    }
    return NP_OK;
}
