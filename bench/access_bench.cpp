// The bus, search memory, register tables, bring-up and the command path, each beside the least
// work that it could be.
#include "bench/bare.h"

#include "chipmodel/model.h"
#include "ldsdk/host.h"
#include "ldsdk/ldsdk.h"
#include "platform/driver.h"
#include "platform/host/host_os.h"
#include "sdk/access/bus.h"
#include "sdk/access/regtable.h"
#include "sdk/access/smem.h"
#include "sdk/frame/base/trace.h"

#include <unistd.h>
#include <array>
#include <cstring>
#include <string>
#include <vector>

namespace {

using ldsdk::bench::AddTarget;
using ldsdk::bench::bare_read;
using ldsdk::bench::bare_write;
using ldsdk::bench::check_bare;
using ldsdk::bench::chip_up;
using ldsdk::bench::Rows;
using Kind = ldsdk::bench::Target::Kind;

constexpr uint32_t kAddress = 0x60210000;
constexpr uint32_t kTable = 82;  // a plain row of 16 bytes
constexpr Rows kRows = {0x64030000, 4};

void smem_write(benchmark::State &state)
{
    chip_up();
    const std::array<uint8_t, 16> data = {1, 2, 3};
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            Np_Tarn_SmemWrite(0, 0, 3, (kAddress >> 1) & 0x3ffffff, data.data()));
    }
}
BENCHMARK(smem_write);

void smem_write_by_hand(benchmark::State &state)
{
    chip_up();
    const std::array<uint8_t, 16> data = {1, 2, 3};
    for (auto _ : state) {
        NpRbaReqCmd request = {};
        NpRbaRspCmd response = {};
        auto *bytes = reinterpret_cast<uint8_t *>(&request);
        const uint32_t address = (kAddress >> 1) & 0x3ffffff;
        std::memcpy(bytes, &address, 4);
        bytes[5] = 3;  // length code
        bytes[6] = 3;  // write class
        std::memcpy(bytes + 12, data.data(), data.size());
        benchmark::DoNotOptimize(Qd_RBA_CommandSend(0, &request, &response));
    }
}
BENCHMARK(smem_write_by_hand);
const AddTarget smem_target({Kind::kRatioAtMost, "smem_write", "smem_write_by_hand", 1.3,
                             "search memory write / its frame by hand"});

void bus_read(benchmark::State &state)
{
    chip_up();
    uint32_t value = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Np_Read(0, kAddress, &value));
    }
}
BENCHMARK(bus_read);

void row_read(benchmark::State &state)
{
    chip_up();
    std::array<uint8_t, 16> row{};
    for (auto _ : state) {
        benchmark::DoNotOptimize(Np_RegTableRead(0, kTable, 7, row.data()));
    }
}
BENCHMARK(row_read);

void row_read_by_hand(benchmark::State &state)
{
    chip_up();
    const uintptr_t slide = kRows.slide();
    std::array<uint32_t, 4> row{};
    check_bare(
        state, [&] { Np_RegTableRead(0, kTable, 7, row.data()); },
        [&] { bare_read<kRows>(slide, 7, row.data()); });
    for (auto _ : state) {
        bare_read<kRows>(slide, 7, row.data());
        benchmark::DoNotOptimize(row);
    }
}
BENCHMARK(row_read_by_hand);
const AddTarget row_read_target({Kind::kRatioAtMost, "row_read", "row_read_by_hand", 1.5,
                                 "16-byte row read / its bare reads"});

void row_write(benchmark::State &state)
{
    chip_up();
    const std::array<uint8_t, 16> row = {1, 2, 3};
    for (auto _ : state) {
        benchmark::DoNotOptimize(Np_RegTableWrite(0, kTable, 7, row.data()));
    }
}
BENCHMARK(row_write);

void row_write_by_hand(benchmark::State &state)
{
    chip_up();
    const uintptr_t slide = kRows.slide();
    std::array<uint32_t, 4> row = {1, 2, 3, 4};
    check_bare(
        state, [&] { Np_RegTableWrite(0, kTable, 7, row.data()); },
        [&] { bare_write<kRows>(slide, 7, row.data()); });
    for (auto _ : state) {
        benchmark::DoNotOptimize(row);
        bare_write<kRows>(slide, 7, row.data());
    }
}
BENCHMARK(row_write_by_hand);
const AddTarget row_write_target({Kind::kRatioAtMost, "row_write", "row_write_by_hand", 1.5,
                                  "16-byte row write / its bare writes"});

// A trace statement that is off, beside the bare load and test.
void trace_off(benchmark::State &state)
{
    for (auto _ : state) {
        NP_TRACE(NP_M_COMM, NP_PRINT_TRACE, "in ulChipID=0x%08x\r\n", 0u);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(trace_off);

void trace_off_by_hand(benchmark::State &state)
{
    for (auto _ : state) {
        if (g_stNpSdkModuleSwitch[NP_M_COMM][NP_PRINT_TRACE] != 0) {
            state.SkipWithError("the switch is on");
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(trace_off_by_hand);
const AddTarget trace_target({Kind::kRatioAtMost, "trace_off", "trace_off_by_hand", 1.2,
                              "trace statement, off / load and test"});

std::array<char, 512> command(const std::vector<std::string> &words)
{
    std::array<char, 512> buffer{};
    const int32_t count = static_cast<int32_t>(words.size());
    std::memcpy(buffer.data(), &count, sizeof(count));
    size_t at = sizeof(count);
    for (const std::string &word : words) {
        std::memcpy(buffer.data() + at, word.c_str(), word.size() + 1);
        at += word.size() + 1;
    }
    return buffer;
}

void dispatch(benchmark::State &state)
{
    chip_up();
    Np_INIT_SdkCmdTreeInstall();
    ldsdk_set_output([](const char *, void *) {}, nullptr);
    const auto buffer = command({"bench", "micro", "glb", "version", "sdk"});
    if (ldsdk_device_ioctl(buffer.data()) != 0) {
        state.SkipWithError("the command is refused");
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(ldsdk_device_ioctl(buffer.data()));
    }
}
BENCHMARK(dispatch);
const AddTarget dispatch_target({Kind::kRateAtLeast, "dispatch", "", 200e3,
                                 "commands per second through the ioctl"});

void bring_up_and_down(benchmark::State &state)
{
    chip_up();
    Np_INIT_SdkDestruct(0);
    for (auto _ : state) {
        if (Np_INIT_SdkInit(0) != 0 || Np_INIT_SdkDestruct(0) != 0) {
            state.SkipWithError("bring-up fails");
        }
    }
    Np_INIT_SdkInit(0);
}
BENCHMARK(bring_up_and_down)->Unit(benchmark::kNanosecond);

void windows_memset(benchmark::State &state)
{
    size_t size = 0;
    for (const NpIoMap &window : g_stIoMapTbl) {
        size += window.ulLast + 1 - window.ulFirst;
    }
    std::vector<char> memory(size, 1);
    for (auto _ : state) {
        std::memset(memory.data(), 0, size);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(windows_memset)->Unit(benchmark::kNanosecond);
const AddTarget bringup_target({Kind::kRatioAtMost, "bring_up_and_down", "windows_memset", 3.0,
                                "bring-up and tear-down / memset of the windows"});

}  // namespace
