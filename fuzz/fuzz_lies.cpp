// A chip that lies: a command line up to the first line end, and behind it what becomes of the
// words that its reads of windows and its command frames bring back. What a broken chip answers
// must not lead outside the host's own memory.
#include "fuzz/chip.h"
#include "fuzz/input.h"
#include "fuzz/rba_door.h"

#include "chipmodel/model.h"
#include "platform/bus.h"
#include "sdk/frame/bringup.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

using ldsdk::fuzz::Input;

Input *g_lies = nullptr;  // null: the model answers

uint32_t lie(uint32_t truth)
{
    if (g_lies == nullptr || g_lies->empty()) {
        return truth;
    }
    switch (const auto how = g_lies->take<uint8_t>(); how % 4) {
        case 0:
            return g_lies->take<uint32_t>();
        case 1:
            return truth ^ 1u << how / 8;
        default:
            return truth;
    }
}

const OsBus &lying_bus()
{
    static const OsBus bus = [] {
        OsBus made = ldsdk::model::bus();
        made.pfnRead32 = [](uintptr_t at) { return lie(ldsdk::model::bus().pfnRead32(at)); };
        made.pfnRead16 = [](uintptr_t at) {
            return static_cast<uint16_t>(lie(ldsdk::model::bus().pfnRead16(at)));
        };
        return made;
    }();
    return bus;
}

}  // namespace

uint32_t __wrap_Qd_RBA_CommandSend(uint32_t ulChipID, const NpRbaReqCmd *pstReq,
                                   NpRbaRspCmd *pstRsp)
{
    const uint32_t result = __real_Qd_RBA_CommandSend(ulChipID, pstReq, pstRsp);
    if (g_lies != nullptr && !g_lies->empty() && g_lies->take<uint8_t>() % 4 == 0) {
        std::memset(pstRsp->aucByte, 0, 4);  // what is not there is found
    }
    for (size_t at = 4; at + 4 <= sizeof(pstRsp->aucByte); at += 4) {
        uint32_t word = 0;
        std::memcpy(&word, pstRsp->aucByte + at, sizeof(word));
        word = lie(word);
        std::memcpy(pstRsp->aucByte + at, &word, sizeof(word));
    }
    return result;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool up = (ldsdk::fuzz::chip_up(), Os_BusAttach(&lying_bus()), true);
    if (up && g_aucNpInitFlag[0] == 0) {
        Np_INIT_SdkInit(0);
    }
    const std::string_view bytes(reinterpret_cast<const char *>(data), size);
    std::string_view lines = bytes.substr(0, bytes.find('\0'));
    const size_t begin = std::min(size, lines.size() + 1);
    Input lies(data + begin, size - begin);
    g_lies = &lies;
    while (!lines.empty()) {
        const std::string_view line = lines.substr(0, lines.find('\n'));
        ldsdk_device_ioctl(ldsdk::fuzz::command_buffer(line).data());
        lines.remove_prefix(std::min(lines.size(), line.size() + 1));
    }
    g_lies = nullptr;
    return 0;
}
