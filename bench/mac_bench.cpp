// MAC entries beside the bare frames that they cannot do without: the lookup of what stands there
// now, and the command that writes.
#include "bench/bare.h"
#include "ldsdk/ldsdk.h"
#include "platform/driver.h"

#include <array>
#include <cstring>
#include <vector>

namespace {

using ldsdk::bench::AddTarget;
using ldsdk::bench::check_bare;
using ldsdk::bench::chip_up;
using ldsdk::bench::frames_of;
using Kind = ldsdk::bench::Target::Kind;

constexpr uint32_t kEntries = 1024;  // half of the table

struct Entry {
    NpArlKey key;
    NpArlData data;
};

// Entries of type 0 on 16 VLANs; all are in the table when this returns.
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
        if (Np_ArlTbl_Add(0, &entry.key, &entry.data) != 0) {
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

uint32_t add(const Entry &entry)
{
    return Np_ArlTbl_Add(0, &entry.key, &entry.data);
}

uint32_t get(const Entry &entry)
{
    NpArlData data;
    NpArlInfo info;
    const uint32_t result = Np_ArlTbl_Get(0, &entry.key, &data, &info);
    benchmark::DoNotOptimize(data);
    return result;
}

// An item of an entry: interface, VSI and VLAN, the address with its last byte first, and on top
// the status and the type, 15 and 0.
std::array<uint8_t, 16> item_of(const Entry &entry)
{
    const uint32_t intf = entry.data.stLearnData.ulIntfID;
    const uint32_t vlan = entry.key.ulSvlanID;
    std::array<uint8_t, 16> item{};
    item[4] = static_cast<uint8_t>(intf << 4);
    item[5] = static_cast<uint8_t>(intf >> 4);
    item[6] = static_cast<uint8_t>(intf >> 12);
    item[7] = static_cast<uint8_t>(entry.key.ulVsi | vlan << 4);
    item[8] = static_cast<uint8_t>(vlan >> 4);
    for (size_t byte = 0; byte < 6; byte++) {
        item[9 + byte] = entry.key.aucMacAddr[5 - byte];
    }
    item[15] = 0xf0;
    return item;
}

// A command of the MAC table's engine, with keys of 9 bytes.
uint32_t send(uint8_t command, const uint8_t *payload, size_t bytes, NpRbaRspCmd &response)
{
    NpRbaReqCmd request = {};
    request.aucByte[2] = 8;
    request.aucByte[3] = 2;
    request.aucByte[4] = command;
    request.aucByte[6] = 3;
    std::memcpy(request.aucByte + 28 - bytes, payload, bytes);
    return Qd_RBA_CommandSend(0, &request, &response) | response.aucByte[0];
}

uint32_t bare_search(const std::array<uint8_t, 16> &item, NpRbaRspCmd &response)
{
    std::array<uint8_t, 9> key;
    for (size_t byte = 0; byte < key.size(); byte++) {
        key[byte] = static_cast<uint8_t>(item[6 + byte] >> 4 | item[7 + byte] << 4);
    }
    return send(0x80, key.data(), key.size(), response);
}

uint32_t bare_get(const Entry &entry)
{
    NpRbaRspCmd response = {};
    const uint32_t result = bare_search(item_of(entry), response);
    benchmark::DoNotOptimize(response);
    return result;
}

uint32_t bare_add(const Entry &entry)
{
    const auto item = item_of(entry);
    NpRbaRspCmd response = {};
    return bare_search(item, response) | send(0xb0, item.data(), item.size(), response);
}

template <uint32_t (*pfnWork)(const Entry &)>
void run(benchmark::State &state)
{
    round_robin(state, pfnWork);
}

template <uint32_t (*pfnBare)(const Entry &), uint32_t (*pfnWork)(const Entry &)>
void run_bare(benchmark::State &state)
{
    const Entry entry = entries(state)[17];
    check_bare(
        state, [&] { pfnWork(entry); }, [&] { pfnBare(entry); });
    round_robin(state, pfnBare);
}

BENCHMARK(run<add>)->Name("mac_add");
BENCHMARK(run_bare<bare_add, add>)->Name("mac_bare_add");
BENCHMARK(run<get>)->Name("mac_get");
BENCHMARK(run_bare<bare_get, get>)->Name("mac_bare_get");
const AddTarget rate_target({Kind::kRateAtLeast, "mac_add", "", 1e6,
                             "MAC entries added per second"});
const AddTarget add_target({Kind::kRatioAtMost, "mac_add", "mac_bare_add", 1.25,
                            "MAC add / its bare frames"});
const AddTarget get_target({Kind::kRatioAtMost, "mac_get", "mac_bare_get", 1.25,
                            "MAC get / its bare frame"});

}  // namespace
