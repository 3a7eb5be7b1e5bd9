// A search memory and a CAM that lie: the answer to each command comes from the input. What calls
// the commands is chosen by the input too.
#include "fuzz/chip.h"
#include "fuzz/input.h"
#include "fuzz/rba_door.h"

#include "platform/host/host_os.h"
#include "sdk/access/counter.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/flee.h"
#include "sdk/lookup/lcam.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace {

using ldsdk::fuzz::Input;

Input *g_answers = nullptr;  // null: the model answers

uint32_t number(Input &input, uint32_t below)
{
    return input.take<uint16_t>() % below;
}

// Records on the heap, where a byte too far is seen.
template <typename Record>
std::unique_ptr<Record> record(Input &input)
{
    auto made = std::make_unique<Record>();
    const auto bytes = input.take_bytes(sizeof(Record));
    std::memcpy(static_cast<void *>(made.get()), bytes.data(), bytes.size());
    return made;
}

NpArlKey mac_key(Input &input)
{
    NpArlKey key = {};
    key.ulType = number(input, 16);
    key.ulSvlanID = number(input, 4096);
    key.stPort = {9, 0, number(input, 64), 1};
    return key;
}

using Caller = void (*)(Input &);

constexpr Caller kCallers[] = {
    [](Input &input) {
        const NpArlKey key = mac_key(input);
        NpArlData data = {};
        data.stLearnData.ulIntfID = number(input, 64);
        Np_ArlTbl_Add(0, &key, &data);
    },
    [](Input &input) {
        const NpArlKey key = mac_key(input);
        Np_ArlTbl_Del(0, number(input, 3), &key);
    },
    [](Input &input) {
        const NpArlKey key = mac_key(input);
        auto data = std::make_unique<NpArlData>();
        auto info = std::make_unique<NpArlInfo>();
        Np_ArlTbl_Get(0, &key, data.get(), info.get());
    },
    [](Input &input) {
        auto key = std::make_unique<NpArlKey>();
        auto data = std::make_unique<NpArlData>();
        auto info = std::make_unique<NpArlInfo>();
        Np_ArlTbl_GetByIndex(0, number(input, 0x900), key.get(), data.get(), info.get());
    },
    [](Input &input) { Np_ArlTbl_DelByIndex(0, number(input, 0x900)); },
    [](Input &input) {
        NpArlAgeModeKey key = {};
        key.stPort = {9, 0, number(input, 64), 1};
        Np_ArlTbl_AgeModeSet(0, &key, number(input, 3));
    },
    [](Input &input) {
        NpUvmacInfoKey key = {};
        key.ulType = number(input, 2);
        key.stPort = {9, 0, number(input, 64), 1};
        uint32_t count = 0;
        auto list = std::make_unique<std::array<NpUvmacInfoAd, 32>>();
        Np_UVMacInfo_Get(0, &key, &count, list->data());
    },
    [](Input &input) {
        auto item = record<std::array<uint8_t, 48>>(input);
        uint32_t location = 0;
        uint32_t index = 0;
        Np_Tarn_EML_ItemAdd(0, number(input, 20), &location, &index, item->data());
    },
    [](Input &input) {
        auto item = record<std::array<uint8_t, 48>>(input);
        Np_Tarn_EML_ItemDel(0, number(input, 20), number(input, 3), item->data());
    },
    [](Input &input) {
        auto item = record<std::array<uint8_t, 48>>(input);
        uint32_t location = 0;
        uint32_t index = 0;
        Np_Tarn_EML_ItemGet(0, number(input, 20), &location, &index, item->data());
    },
    [](Input &input) {
        Np_Tarn_EML_ItemDelByIndex(0, number(input, 20), number(input, 3), number(input, 4096));
    },
    [](Input &input) {
        auto key = std::make_unique<std::array<uint8_t, NP_LCAM_KEY_MAX>>();
        auto mask = std::make_unique<std::array<uint8_t, NP_LCAM_KEY_MAX>>();
        auto ad = std::make_unique<std::array<uint8_t, NP_LCAM_AD_MAX>>();
        Np_Tarn_LCAM_TcamRead(0, number(input, 10), number(input, 2048), key->data(), mask->data(),
                              ad->data());
    },
    [](Input &input) {
        const uint32_t table = number(input, 10);
        Np_Tarn_LCAM_TcamMove(0, table, number(input, 600), number(input, 600));
    },
    [](Input &input) {
        uint32_t type = 0;
        auto key = std::make_unique<std::array<uint8_t, NP_LCAM_KEY_MAX>>();
        Np_Tarn_FleeBucketTbl_Get(0, number(input, 600), &type, key->data());
    },
    [](Input &input) {
        static constexpr std::string_view kLines[] = {
            "micro dfx mac num",
            "micro dfx mac display",
            "micro dfx lanmac display",
            "micro arl mac_crash_read",
        };
        const std::string_view line = kLines[number(input, std::size(kLines))];
        ldsdk_device_ioctl(ldsdk::fuzz::command_buffer(line).data());
    },
};

}  // namespace

uint32_t __wrap_Qd_RBA_CommandSend(uint32_t ulChipID, const NpRbaReqCmd *pstReq,
                                   NpRbaRspCmd *pstRsp)
{
    if (g_answers == nullptr || g_answers->empty()) {
        return __real_Qd_RBA_CommandSend(ulChipID, pstReq, pstRsp);
    }
    const auto how = g_answers->take<uint8_t>();
    if (how % 16 == 0) {
        return how;
    }
    const uint32_t result = how % 4 == 1 ? __real_Qd_RBA_CommandSend(ulChipID, pstReq, pstRsp) : 0;
    if (how % 4 == 2) {
        pstRsp->aucByte[0] = how >> 4;  // a status word
    }
    const auto bytes = g_answers->take_bytes(how % 4 == 3 ? 16 : 4);
    for (size_t i = 0; i < bytes.size(); i++) {
        pstRsp->aucByte[4 + (how >> 2) % 4 * 4 % (17 - bytes.size()) + i] = bytes[i];
    }
    return result;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const bool up = (ldsdk::fuzz::chip_up(), true);
    (void)up;
    OsHostMemory before = {};
    OsHostMemory after = {};
    Os_HostMemoryGet(&before);
    Input input(data, size);
    while (!input.empty()) {
        const uint32_t caller = input.take<uint8_t>() % std::size(kCallers);
        Input arguments(input);
        g_answers = &input;
        kCallers[caller](arguments);
        g_answers = nullptr;
        if (!input.empty()) {
            input.take<uint8_t>();
        }
    }
    Os_HostMemoryGet(&after);
    if (after.ulBlocks != before.ulBlocks || after.ulBadFrees != before.ulBadFrees) {
        std::abort();
    }
    return 0;
}
