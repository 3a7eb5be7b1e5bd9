// The receive path. The first byte chooses: packets of any header through the chip model, or a
// driver that says what it likes about length and header words. The caller's buffer is as large as
// it says and no byte larger.
#include "fuzz/chip.h"
#include "fuzz/input.h"

#include "chipmodel/model.h"
#include "platform/driver.h"

#include <algorithm>
#include <vector>

namespace {

ldsdk::fuzz::Input *g_script = nullptr;  // what the driver says; null: the model answers

}  // namespace

extern "C" {

uint32_t __real_Qd_CPUTR_PacketReceive(uint32_t ulChipID, QdCputrRecvPkt *pstPkt);

uint32_t __wrap_Qd_CPUTR_PacketReceive(uint32_t ulChipID, QdCputrRecvPkt *pstPkt)
{
    if (g_script == nullptr) {
        return __real_Qd_CPUTR_PacketReceive(ulChipID, pstPkt);
    }
    pstPkt->aulInfo[0] = g_script->take<uint32_t>();
    pstPkt->aulInfo[1] = g_script->take<uint32_t>();
    pstPkt->ulPktLen = g_script->take<uint32_t>();
    const auto bytes = g_script->take_bytes(pstPkt->ulBufLen);
    std::copy(bytes.begin(), bytes.end(), pstPkt->pucData);
    return 0;
}

}  // extern "C"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool up = (ldsdk::fuzz::chip_up(), true);
    (void)up;
    ldsdk::fuzz::Input input(data, size);
    const bool scripted = (input.take<uint8_t>() & 1) != 0;
    std::vector<uint8_t> buffer(input.take<uint16_t>() % 512);
    ReceiveInfo info = {};
    info.ulBufLen = static_cast<uint32_t>(buffer.size());
    info.pucData = buffer.data();
    if (scripted) {
        g_script = &input;
        Np_Cputr_PktReceive(0, &info);
        g_script = nullptr;
        return 0;
    }
    const bool high = (input.take<uint8_t>() & 1) != 0;
    const uint32_t head[2] = {input.take<uint32_t>(), input.take<uint32_t>()};
    const auto bytes = input.take_bytes(600);
    ldsdk::model::receive_put(0, head, bytes.data(), static_cast<uint32_t>(bytes.size()), high);
    // A packet and its absence.
    Np_Cputr_PktReceive(0, &info);
    Np_Cputr_PktReceive(0, &info);
    return 0;
}
