#include "tools/params/params.h"

#include <algorithm>
#include <bit>

namespace ldsdk::tool {

std::vector<NpSmdParam> params_of(NpCliHandler handler)
{
    std::vector<NpSmdParam> params;
    NpSmdParam param;
    for (uint32_t i = 0; Np_SMD_CommandParam(handler, i, &param) == 0; i++) {
        // One that stands in several places, by what it depends on, is one to the reader.
        const auto same = std::find_if(params.begin(), params.end(), [&](const NpSmdParam &other) {
            return param.stOf.pszOf != nullptr && other.stOf.pszOf == param.stOf.pszOf &&
                   other.stItem.ulPromptNo == param.stItem.ulPromptNo &&
                   other.stItem.lMax == param.stItem.lMax &&
                   std::string(other.stItem.szName) == param.stItem.szName;
        });
        if (same != params.end()) {
            same->stOf.ulMask |= param.stOf.ulMask;
            continue;
        }
        params.push_back(param);
    }
    return params;
}

const NpSmdParam *selector_of(const NpSmdParam &param, const std::vector<NpSmdParam> &params)
{
    for (const NpSmdParam &other : params) {
        if (param.stOf.pszOf != nullptr && std::string(other.stItem.szName) == param.stOf.pszOf) {
            return &other;
        }
    }
    return nullptr;
}

std::string condition_of(const NpSmdOf &of, const char *relation)
{
    if (of.pszOf == nullptr) {
        return "";
    }
    // The shorter of the values that it takes and of those that it does not.
    const bool others = of.ulRest != 0 || std::popcount(of.ulMask) > 16;
    std::string text =
        std::string(relation) + " `" + of.pszOf + "`" + (others ? " other than" : "");
    for (uint32_t value = 0; value < 32; value++) {
        if (((of.ulMask >> value & 1) != 0) != others) {
            text += " " + std::to_string(value);
        }
    }
    return text;
}

std::string values_of(const NpSmdParam &param)
{
    const NpSmdKeyItem &item = param.stItem;
    const auto unsigned_max = static_cast<uint32_t>(item.lMax);
    switch (item.ulType) {
        case NP_SMD_MAC:
            return "`xx-xx-xx-xx-xx-xx`";
        case NP_SMD_IPV4:
            return "`d.d.d.d`";
        case NP_SMD_IPV6:
            return "eight groups with colons";
        case NP_SMD_STRING:
            return "text";
        case NP_SMD_PORT:
            return "a port: type, then `portid`, `subportid` and `pri` where it has them";
        case NP_SMD_DATA:
            return "up to " + std::to_string(item.lMax) + " bytes in hexadecimal";
        case NP_SMD_SIGNED:
            return "`plus` or `minus` and a number, " + std::to_string(item.lMin) + " to " +
                   std::to_string(item.lMax);
        case NP_SMD_ENUM: {
            std::string text;
            for (uint32_t i = 0; i < param.ulEnumNum; i++) {
                text += (text.empty() ? "" : ", ") + std::to_string(param.pstEnum[i].ulValue) +
                        " `" + param.pstEnum[i].pszText + "`";
            }
            return text + "; 0 to " + std::to_string(unsigned_max);
        }
        default: {
            const auto range = [](int32_t low, int32_t high) {
                return std::to_string(static_cast<uint32_t>(low)) + " to " +
                       std::to_string(static_cast<uint32_t>(high));
            };
            if (param.ulRangeNum == 0) {
                return range(item.lMin, item.lMax);
            }
            std::string text;
            for (uint32_t i = 0; i < param.ulRangeNum; i++) {
                const NpSmdRange &one = param.astRange[i];
                text += (text.empty() ? "" : "; ") + range(one.lMin, one.lMax) +
                        condition_of(one.stOf, " for");
            }
            return text;
        }
    }
}

}  // namespace ldsdk::tool
