// Described rows beside the register table accesses that they cannot do without.
#include "bench/bench.h"

#include "ldsdk/ldsdk.h"
#include "sdk/access/regtable.h"

#include <array>

namespace {

using ldsdk::bench::AddTarget;
using ldsdk::bench::chip_up;
using Kind = ldsdk::bench::Target::Kind;

constexpr uint32_t kVlanTable = 25;
constexpr uint32_t kVlanExtensionTable = 49;
constexpr uint32_t kMetTable = 40;
constexpr uint32_t kOptionTable = 82;

// The rows go round, as a provisioning run would.
template <typename Record, uint32_t (*pfnSet)(uint32_t, uint32_t, const Record *)>
void set_row(benchmark::State &state)
{
    chip_up();
    Record record = {};
    uint32_t row = 0;
    for (auto _ : state) {
        row = (row + 1) % 1024;
        benchmark::DoNotOptimize(pfnSet(0, row, &record));
    }
    state.SetItemsProcessed(state.iterations());
}

template <typename Record, uint32_t (*pfnGet)(uint32_t, uint32_t, Record *)>
void get_row(benchmark::State &state)
{
    chip_up();
    Record record = {};
    uint32_t row = 0;
    for (auto _ : state) {
        row = (row + 1) % 1024;
        benchmark::DoNotOptimize(pfnGet(0, row, &record));
        benchmark::DoNotOptimize(record);
    }
    state.SetItemsProcessed(state.iterations());
}

template <uint32_t... ulTables>
void raw_write(benchmark::State &state)
{
    chip_up();
    const std::array<uint32_t, 4> image = {1, 2, 3, 4};
    uint32_t row = 0;
    for (auto _ : state) {
        row = (row + 1) % 1024;
        (benchmark::DoNotOptimize(Np_RegTableWrite(0, ulTables, row, image.data())), ...);
    }
}

template <uint32_t... ulTables>
void raw_read(benchmark::State &state)
{
    chip_up();
    std::array<uint32_t, 4> image{};
    uint32_t row = 0;
    for (auto _ : state) {
        row = (row + 1) % 1024;
        (benchmark::DoNotOptimize(Np_RegTableRead(0, ulTables, row, image.data())), ...);
        benchmark::DoNotOptimize(image);
    }
}

// A table with its four measurements; the limit stands for flat rows in general.
#define ROW_BENCH(name, Record, Wrapper, ...)                                               \
    BENCHMARK(set_row<Record, Wrapper##_Set>)->Name(name "_set");                           \
    BENCHMARK(raw_write<__VA_ARGS__>)->Name(name "_raw_write");                             \
    BENCHMARK(get_row<Record, Wrapper##_Get>)->Name(name "_get");                           \
    BENCHMARK(raw_read<__VA_ARGS__>)->Name(name "_raw_read");                               \
    const AddTarget Wrapper##_set_target(                                                   \
        {Kind::kRatioAtMost, name "_set", name "_raw_write", 2, name " set / its writes"}); \
    const AddTarget Wrapper##_get_target(                                                   \
        {Kind::kRatioAtMost, name "_get", name "_raw_read", 2, name " get / its reads"});

ROW_BENCH("vlan", NpVlan, Np_VlanTbl, kVlanTable, kVlanExtensionTable)
ROW_BENCH("met", NpMet, Np_MetTbl, kMetTable)
ROW_BENCH("vlan_option", NpVlanOption, Np_VlanOptionTbl, kOptionTable)

}  // namespace
