// Packets and messages through the host's channel and the chip model behind it, beside the least
// that could be done with their bytes.
#include "bench/bench.h"

#include "chipmodel/model.h"
#include "ldsdk/ldsdk.h"
#include "platform/driver.h"
#include "platform/host/host_os.h"
#include "sdk/cpuchan/message.h"

#include <array>
#include <cstring>
#include <vector>

namespace {

using ldsdk::bench::AddTarget;
using ldsdk::bench::chip_up;
using Kind = ldsdk::bench::Target::Kind;
namespace model = ldsdk::model;

// Neither the module nor the model has another way to memory.
uint64_t allocations_so_far()
{
    OsHostMemory memory = {};
    Os_HostMemoryGet(&memory);
    return memory.ulAllocs;
}

constexpr uint32_t kSizes[] = {64, 1500};

// Sends a frame into forwarding and receives it back. Two header builds, two parses, and the bytes
// copied into the send queue, into the receive queue and out of it.
void packet_round_trip(benchmark::State &state)
{
    chip_up();
    model::standin_loop_set(0, true);
    const std::vector<uint8_t> frame(static_cast<size_t>(state.range(0)), 0x5a);
    std::vector<uint8_t> buffer(10300);
    const uint64_t before = allocations_so_far();
    uint64_t packets = 0;
    for (auto _ : state) {
        InfoForSend send = {};
        send.ulPktLen = static_cast<uint32_t>(frame.size());
        send.pucData = frame.data();
        send.ulSubType = 1;
        send.unInsertPkt.stInsertToFwd.ulIftID = 17;
        ReceiveInfo receive = {};
        receive.ulBufLen = static_cast<uint32_t>(buffer.size());
        receive.pucData = buffer.data();
        if (Np_Cputr_PktSend(0, &send) != 0 || Np_Cputr_PktReceive(0, &receive) != 0) {
            state.SkipWithError("a packet is refused");
        }
        benchmark::DoNotOptimize(buffer.data());
        packets++;
    }
    state.counters["allocations"] =
        packets == 0
            ? 0
            : static_cast<double>(allocations_so_far() - before) / static_cast<double>(packets);
    model::standin_loop_set(0, false);
}
BENCHMARK(packet_round_trip)->Arg(kSizes[0])->Arg(kSizes[1]);

// The same three copies and nothing else.
void packet_memcpy(benchmark::State &state)
{
    const auto size = static_cast<size_t>(state.range(0));
    const std::vector<uint8_t> frame(size, 0x5a);
    static std::array<uint8_t, model::kSendBytes> send;
    static std::array<uint8_t, model::kReceiveBytes> receive;
    std::vector<uint8_t> buffer(10300);
    size_t at = 0;
    for (auto _ : state) {
        at = at + 2 * size > send.size() ? 0 : at + size;
        std::memcpy(send.data() + at, frame.data(), size);
        benchmark::ClobberMemory();
        std::memcpy(receive.data() + at, send.data() + at, size);
        benchmark::ClobberMemory();
        std::memcpy(buffer.data(), receive.data() + at, size);
        benchmark::DoNotOptimize(buffer.data());
    }
}
BENCHMARK(packet_memcpy)->Arg(kSizes[0])->Arg(kSizes[1]);

const AddTarget rate_small({Kind::kRateAtLeast, "packet_round_trip/64", "", 2e6,
                            "64-byte packets per second, sent and received"});
const AddTarget rate_large({Kind::kRateAtLeast, "packet_round_trip/1500", "", 1e6,
                            "1500-byte packets per second, sent and received"});
const AddTarget ratio_large({Kind::kRatioAtMost, "packet_round_trip/1500", "packet_memcpy/1500", 10,
                             "1500-byte packet, sent and received / its three copies"});
const AddTarget allocations({Kind::kCounterAtMost, "packet_round_trip/64", "allocations", 0,
                             "allocations per packet"});

void message_once(benchmark::State &state)
{
    chip_up();
    ArlAgeInfo age = {};
    const NpForceAge request = {1, 17};
    if (Np_Tarn_CputrMsg_ForceAgeInfoBuild(0, &request, &age) != 0) {
        state.SkipWithError("the message cannot be built");
    }
    // The walk that the message starts is no part of sending it.
    model::standin_set(0, false);
    for (auto _ : state) {
        if (Np_Tarn_CputrMsg_ForceAgeInfoSet(0, &age) != 0) {
            state.SkipWithError("a message is refused");
        }
        model::Packet packet = {};
        model::send_take(0, &packet);
    }
    model::standin_set(0, true);
}
BENCHMARK(message_once);
const AddTarget message_target({Kind::kRateAtLeast, "message_once", "", 2e6,
                                "messages per second, sent and taken"});

// Timed messages as the chip's clock sends them, with the message of the heartbeat on a channel.
void message_timed(benchmark::State &state)
{
    chip_up();
    const std::array<uint8_t, 4> body = {};
    const QdCputrAutoInfo timing = {0, 0, 0};
    const QdCputrSendPkt message = {{0x20000000, 0}, body.size(), body.data()};
    if (Qd_CPUTR_AutoSendEnableSet(0, 1) != 0 ||
        Qd_CPUTR_AutoSendInfoSet(0, 252, &timing, &message) != 0 ||
        Qd_CPUTR_AutoSendChannelEnableSet(0, 252, 1) != 0) {
        state.SkipWithError("the channel does not start");
    }
    for (auto _ : state) {
        model::advance(0, 1000);
    }
    Qd_CPUTR_AutoSendChannelEnableSet(0, 252, 0);
    Qd_CPUTR_AutoSendInfoDel(0, 252);
    state.counters["message_ns"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * 1000,
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(message_timed);
const AddTarget timed_target({Kind::kRateAtLeast, "message_timed", "", 5e3,
                              "thousands of timed messages per second"});

}  // namespace
