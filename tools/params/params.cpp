#include "tools/params/params.h"

#include <algorithm>

namespace ldsdk::tool {

std::vector<NpSmdParam> params_of(NpCliHandler handler)
{
    std::vector<NpSmdParam> params;
    NpSmdParam param;
    for (uint32_t i = 0; Np_SMD_CommandParam(handler, i, &param) == 0; i++) {
        // One that stands in several places, by what it depends on, is one to the reader.
        const auto same = std::find_if(params.begin(), params.end(), [&](const NpSmdParam &other) {
            return param.pszOf != nullptr && other.pszOf == param.pszOf &&
                   other.stItem.ulPromptNo == param.stItem.ulPromptNo &&
                   other.stItem.lMax == param.stItem.lMax &&
                   std::string(other.stItem.szName) == param.stItem.szName;
        });
        if (same != params.end()) {
            same->ulOfMask |= param.ulOfMask;
            continue;
        }
        params.push_back(param);
    }
    return params;
}

const NpSmdParam *selector_of(const NpSmdParam &param, const std::vector<NpSmdParam> &params)
{
    for (const NpSmdParam &other : params) {
        if (param.pszOf != nullptr && std::string(other.stItem.szName) == param.pszOf) {
            return &other;
        }
    }
    return nullptr;
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
        default:
            return std::to_string(static_cast<uint32_t>(item.lMin)) + " to " +
                   std::to_string(unsigned_max);
    }
}

}  // namespace ldsdk::tool
