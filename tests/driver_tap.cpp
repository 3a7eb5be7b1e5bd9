#include "tests/driver_tap.h"

#include <algorithm>
#include <utility>

namespace {

ldsdk::test::DriverTap *g_tap = nullptr;

}  // namespace

namespace ldsdk::test {

DriverTap::DriverTap()
{
    phy_of = [](const uint32_t(&port)[4], uint32_t *phy) {
        *phy = 512 + port[0];
        return true;
    };
    port_of = [](uint32_t phy, uint32_t(&port)[4]) {
        const uint32_t numbers[4] = {phy & 15, phy >> 4, 0, 0};
        std::copy(std::begin(numbers), std::end(numbers), port);
        return true;
    };
    g_tap = this;
}

DriverTap::~DriverTap()
{
    g_tap = nullptr;
}

std::vector<DriverTap::Call> DriverTap::take()
{
    return std::exchange(calls_, {});
}

std::string DriverTap::take_names()
{
    std::string names;
    for (const Call &call : take()) {
        names += names.empty() ? call.name : " " + call.name;
    }
    return names;
}

void DriverTap::fail(uint32_t nth, uint32_t code)
{
    countdown_ = nth;
    code_ = code;
}

void DriverTap::push(Packet packet)
{
    waiting.push_back(std::move(packet));
}

uint32_t DriverTap::enter(Call call)
{
    calls_.push_back(std::move(call));
    return countdown_ != 0 && --countdown_ == 0 ? code_ : 0;
}

}  // namespace ldsdk::test

namespace {

using ldsdk::test::DriverTap;

DriverTap::Call packet_call(const char *name, std::vector<uint32_t> numbers,
                            const QdCputrSendPkt *packet)
{
    return {name,
            std::move(numbers),
            {packet->aulHead[0], packet->aulHead[1]},
            {packet->pucData, packet->pucData + packet->ulLen},
            packet->pucData};
}

uint32_t ports_answer(uint32_t code, bool known)
{
    return code != 0 ? code : (known ? 0 : DriverTap::kNoPort);
}

uint32_t port_answer(const char *name, uint32_t phy, uint32_t *type, uint32_t *id, uint32_t *sub,
                     uint32_t *pri)
{
    uint32_t port[4] = {};
    const uint32_t code =
        ports_answer(g_tap->enter({name, {phy}, {}, {}}), g_tap->port_of(phy, port));
    if (code == 0) {
        *type = port[0];
        *id = port[1];
        *sub = port[2];
        *pri = port[3];
    }
    return code;
}

}  // namespace

// The linker leads the calls of these functions through here.
#define TAPPED(name, params, args, ...)                               \
    extern "C" uint32_t __real_##name params;                         \
    extern "C" uint32_t __wrap_##name params;                         \
    uint32_t __wrap_##name params                                     \
    {                                                                 \
        return g_tap == nullptr ? __real_##name args : (__VA_ARGS__); \
    }

TAPPED(Qd_CPUTR_PacketSend, (uint32_t chip, const QdCputrSendPkt *packet), (chip, packet),
       g_tap->enter(packet_call("PacketSend", {}, packet)))
TAPPED(Qd_CPUTR_AutoSendEnableSet, (uint32_t chip, uint32_t enable), (chip, enable),
       g_tap->enter({"AutoSendEnableSet", {enable}, {}, {}}))
TAPPED(Qd_CPUTR_AutoSendChannelEnableSet, (uint32_t chip, uint32_t channel, uint32_t enable),
       (chip, channel, enable),
       g_tap->enter({"AutoSendChannelEnableSet", {channel, enable}, {}, {}}))
TAPPED(Qd_CPUTR_AutoSendInfoSet,
       (uint32_t chip, uint32_t channel, const QdCputrAutoInfo *info, const QdCputrSendPkt *packet),
       (chip, channel, info, packet),
       g_tap->enter(packet_call("AutoSendInfoSet",
                                {channel, info->ulPeriod, info->ucOption0, info->ucOption1},
                                packet)))
TAPPED(Qd_CPUTR_AutoSendInfoDel, (uint32_t chip, uint32_t channel), (chip, channel),
       g_tap->enter({"AutoSendInfoDel", {channel}, {}, {}}))
TAPPED(Qd_CPUTR_AutoSendStatClear, (uint32_t chip, uint32_t channel), (chip, channel),
       g_tap->enter({"AutoSendStatClear", {channel}, {}, {}}))
TAPPED(Qd_GLB_PortParamCheck,
       (uint32_t chip, uint32_t type, uint32_t id, uint32_t sub, uint32_t pri),
       (chip, type, id, sub, pri), [&] {
           uint32_t phy = 0;
           const uint32_t code = g_tap->enter({"PortParamCheck", {type, id, sub, pri}, {}, {}});
           return ports_answer(code, g_tap->phy_of({type, id, sub, pri}, &phy));
       }())
TAPPED(Qd_GLB_PortParamToIngressPhyID,
       (uint32_t chip, uint32_t type, uint32_t id, uint32_t sub, uint32_t pri, uint32_t *phy),
       (chip, type, id, sub, pri, phy), [&] {
           uint32_t number = 0;
           const uint32_t code =
               ports_answer(g_tap->enter({"PortParamToIngressPhyID", {type, id, sub, pri}, {}, {}}),
                            g_tap->phy_of({type, id, sub, pri}, &number));
           *phy = code == 0 ? number : *phy;
           return code;
       }())
TAPPED(Qd_GLB_IngressPhyIDToPortParam,
       (uint32_t chip, uint32_t phy, uint32_t *type, uint32_t *id, uint32_t *sub, uint32_t *pri),
       (chip, phy, type, id, sub, pri),
       port_answer("IngressPhyIDToPortParam", phy, type, id, sub, pri))
TAPPED(Qd_GLB_EgressPhyIDToPortParam,
       (uint32_t chip, uint32_t phy, uint32_t *type, uint32_t *id, uint32_t *sub, uint32_t *pri),
       (chip, phy, type, id, sub, pri),
       port_answer("EgressPhyIDToPortParam", phy, type, id, sub, pri))

TAPPED(Qd_CPUTR_PacketReceive, (uint32_t chip, QdCputrRecvPkt *record), (chip, record), [&] {
    const uint32_t code = g_tap->enter({"PacketReceive", {record->ulBufLen}, {}, {}});
    if (code != 0 || g_tap->waiting.empty()) {
        return code != 0 ? code : DriverTap::kNothing;
    }
    const DriverTap::Packet packet = std::move(g_tap->waiting.front());
    g_tap->waiting.pop_front();
    record->aulInfo[0] = packet.info0;
    record->aulInfo[1] = packet.info1;
    record->ulPktLen = packet.length;
    const size_t copied = std::min<size_t>(packet.bytes.size(), record->ulBufLen);
    std::copy_n(packet.bytes.begin(), copied, record->pucData);
    return 0u;
}())
