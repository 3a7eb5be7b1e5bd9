#include "sdk/frame/base/capability.h"

namespace {

struct NpCapRow {
    uint32_t ulSlot;
    uint32_t ulValue;
};

constexpr NpCapRow g_astCapRow[] = {
#define NP_CAP_ROW(slot, name, value, meaning) {slot, value},
    NP_CAPABILITY_LIST(NP_CAP_ROW)
#undef NP_CAP_ROW
};

consteval bool Np_CapRowsAscend()
{
    uint32_t ulNext = 0;
    for (const NpCapRow &stRow : g_astCapRow) {
        if (stRow.ulSlot < ulNext || stRow.ulSlot >= NP_CAP_NUM) {
            return false;
        }
        ulNext = stRow.ulSlot + 1;
    }
    return true;
}
static_assert(Np_CapRowsAscend(), "a slot is listed twice, out of order or past the table");

consteval std::array<uint32_t, NP_CAP_NUM> Np_CapFill()
{
    std::array<uint32_t, NP_CAP_NUM> aulCap{};
    for (const NpCapRow &stRow : g_astCapRow) {
        aulCap[stRow.ulSlot] = stRow.ulValue;
    }
    return aulCap;
}

}  // namespace

constinit const std::array<uint32_t, NP_CAP_NUM> g_aulNpTarnBGlbCap = Np_CapFill();
