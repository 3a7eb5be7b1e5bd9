// MAC entries beside the engine's accesses that they cannot do without: the lookup of what stands
// there now, and the command that writes.
#include "bench/bench.h"

#include "ldsdk/ldsdk.h"
#include "sdk/lookup/eml.h"
#include "sdk/tables/arl.h"

#include <array>
#include <vector>

namespace {

using ldsdk::bench::AddTarget;
using ldsdk::bench::chip_up;
using ldsdk::bench::frames_of;
using Kind = ldsdk::bench::Target::Kind;

constexpr uint32_t kEntries = 1024;  // half of the table

struct Entry {
    NpArlKey key;
    NpArlData data;
    std::array<uint32_t, 4> item;
};

// Entries of type 0 on 16 VLANs, and their items; all are in the table when this returns.
std::vector<Entry> entries(benchmark::State &state)
{
    chip_up();
    std::vector<Entry> list(kEntries);
    for (uint32_t i = 0; i < kEntries; i++) {
        Entry &entry = list[i];
        entry.key.ulSvlanID = 100 + i % 16;
        entry.key.aucMacAddr[4] = static_cast<uint8_t>(i >> 8);
        entry.key.aucMacAddr[5] = static_cast<uint8_t>(i);
        entry.data.stLearnData.ulIntfID = i;
        if (Np_ArlTbl_Add(0, &entry.key, &entry.data) != 0 ||
            Np_Tarn_Arl_ArlTblKeyBulid(0, &entry.key, entry.item.data()) != 0 ||
            Np_Tarn_Arl_ArlTblAdBulid(0, &entry.data, entry.item.data()) != 0) {
            state.SkipWithError("an entry finds no place");
        }
    }
    return list;
}

// Runs an operation on the entries, round and round.
template <typename Work>
void round_robin(benchmark::State &state, Work work)
{
    auto list = entries(state);
    uint32_t at = 0;
    for (auto _ : state) {
        at = (at + 1) % kEntries;
        benchmark::DoNotOptimize(work(list[at]));
    }
    state.counters["frames"] = frames_of([&] { work(list[0]); });
    state.SetItemsProcessed(state.iterations());
}

void mac_add(benchmark::State &state)
{
    round_robin(state, [](Entry &entry) { return Np_ArlTbl_Add(0, &entry.key, &entry.data); });
}

uint32_t raw_get(Entry &entry)
{
    return Np_Tarn_EML_ItemGet(0, NP_EML_MAC, nullptr, nullptr, entry.item.data());
}

void mac_raw_add(benchmark::State &state)
{
    round_robin(state, [](Entry &entry) {
        uint32_t location;
        return raw_get(entry) |
               Np_Tarn_EML_ItemAdd(0, NP_EML_MAC, &location, nullptr, entry.item.data());
    });
}

void mac_get(benchmark::State &state)
{
    NpArlData data;
    NpArlInfo info;
    round_robin(state, [&](Entry &entry) { return Np_ArlTbl_Get(0, &entry.key, &data, &info); });
}

void mac_raw_get(benchmark::State &state)
{
    round_robin(state, raw_get);
}

BENCHMARK(mac_add);
BENCHMARK(mac_raw_add);
BENCHMARK(mac_get);
BENCHMARK(mac_raw_get);
const AddTarget rate_target({Kind::kRateAtLeast, "mac_add", "", 1e6,
                             "MAC entries added per second"});
const AddTarget add_target({Kind::kRatioAtMost, "mac_add", "mac_raw_add", 1.5,
                            "MAC add / its lookup and write"});
const AddTarget get_target({Kind::kRatioAtMost, "mac_get", "mac_raw_get", 1.5,
                            "MAC get / its lookup"});

}  // namespace
