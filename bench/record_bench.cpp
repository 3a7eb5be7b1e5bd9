// Described rows beside the bare window accesses that they cannot do without.
#include "bench/bare.h"
#include "ldsdk/ldsdk.h"

#include <array>

namespace {

using ldsdk::bench::AddTarget;
using ldsdk::bench::bare_read;
using ldsdk::bench::bare_write;
using ldsdk::bench::check_bare;
using ldsdk::bench::chip_up;
using ldsdk::bench::Rows;
using Kind = ldsdk::bench::Target::Kind;

constexpr Rows kVlanRows = {0x60210000, 2};
constexpr Rows kVlanExtensionRows = {0x64044000, 1};
constexpr Rows kMetRows = {0x60202000, 1};
constexpr Rows kOptionRows = {0x64030000, 4};

template <typename Record, uint32_t (*pfnSet)(uint32_t, uint32_t, const Record *),
          uint32_t (*pfnGet)(uint32_t, uint32_t, Record *), Rows... kRows>
struct Table {
    // The rows go round, as a provisioning run would.
    template <typename Work>
    static void round_robin(benchmark::State &state, Work work)
    {
        uint32_t row = 0;
        for (auto _ : state) {
            row = (row + 1) % 1024;
            work(row);
        }
        state.SetItemsProcessed(state.iterations());
    }

    static void set(benchmark::State &state)
    {
        chip_up();
        Record record = {};
        round_robin(state, [&](uint32_t row) {
            benchmark::DoNotOptimize(record);
            benchmark::DoNotOptimize(pfnSet(0, row, &record));
        });
    }

    static void get(benchmark::State &state)
    {
        chip_up();
        Record record = {};
        round_robin(state, [&](uint32_t row) {
            benchmark::DoNotOptimize(pfnGet(0, row, &record));
            benchmark::DoNotOptimize(record);
        });
    }

    static void bare_set(benchmark::State &state)
    {
        chip_up();
        std::array<uint32_t, 4> image = {1, 2, 3, 4};
        const std::array slides = {kRows.slide()...};
        const auto work = [&](uint32_t row) {
            size_t at = 0;
            benchmark::DoNotOptimize(image);
            (bare_write<kRows>(slides[at++], row, image.data()), ...);
        };
        const Record record = {};
        check_bare(
            state, [&] { pfnSet(0, 7, &record); }, [&] { work(7); });
        round_robin(state, work);
    }

    static void bare_get(benchmark::State &state)
    {
        chip_up();
        std::array<uint32_t, 4> image{};
        const std::array slides = {kRows.slide()...};
        const auto work = [&](uint32_t row) {
            size_t at = 0;
            (bare_read<kRows>(slides[at++], row, image.data()), ...);
            benchmark::DoNotOptimize(image);
        };
        Record record;
        check_bare(
            state, [&] { pfnGet(0, 7, &record); }, [&] { work(7); });
        round_robin(state, work);
    }
};

// A table with its four measurements; the limit stands for flat rows in general.
#define ROW_BENCH(name, Record, Wrapper, ...)                                                     \
    using Wrapper##Bench = Table<Record, Wrapper##_Set, Wrapper##_Get, __VA_ARGS__>;              \
    BENCHMARK(Wrapper##Bench::set)->Name(name "_set");                                            \
    BENCHMARK(Wrapper##Bench::bare_set)->Name(name "_bare_set");                                  \
    BENCHMARK(Wrapper##Bench::get)->Name(name "_get");                                            \
    BENCHMARK(Wrapper##Bench::bare_get)->Name(name "_bare_get");                                  \
    const AddTarget Wrapper##_set_target(                                                         \
        {Kind::kRatioAtMost, name "_set", name "_bare_set", 1.5, name " set / its bare writes"}); \
    const AddTarget Wrapper##_get_target(                                                         \
        {Kind::kRatioAtMost, name "_get", name "_bare_get", 1.5, name " get / its bare reads"});

ROW_BENCH("vlan", NpVlan, Np_VlanTbl, kVlanRows, kVlanExtensionRows)
ROW_BENCH("met", NpMet, Np_MetTbl, kMetRows)
ROW_BENCH("vlan_option", NpVlanOption, Np_VlanOptionTbl, kOptionRows)

}  // namespace
