#include "chipmodel/rba.h"

#include "chipmodel/bytes.h"
#include "chipmodel/hash.h"
#include "chipmodel/model.h"
#include "chipmodel/smem.h"
#include "chipmodel/tcam.h"

#include <array>

namespace ldsdk::model {

namespace {

constexpr uint8_t kReadClass = 1;
constexpr uint8_t kWriteClass = 3;

// One command: how the wire names it, what has to be zero, and who carries it out.
struct Command {
    bool lcam;
    uint8_t access;
    uint8_t op;  // bits 7..4 of the command half-word
    RbaOp name;
    uint32_t zero_address;  // bits of the address word that are always 0
    uint16_t zero_control;  // bits of the command half-word that are always 0
    uint8_t max_width;      // highest width class
    RbaHandler run;
};

constexpr Command kCommands[] = {
    // search memory, plain forms
    {false, kReadClass, 0, RbaOp::kRead, 0x0c000000, 0xfc0f, 0, smem_read},
    {false, kReadClass, 1, RbaOp::kReadClear, 0x0c000000, 0xfc0f, 0, smem_read_clear},
    {false, kWriteClass, 0, RbaOp::kWrite, 0x0c000000, 0xf80f, 0, smem_write},
    {false, kWriteClass, 1, RbaOp::kAdd, 0x0c000000, 0xc00f, 0, smem_add},
    {false, kWriteClass, 5, RbaOp::kSetBit, 0x0c000000, 0xff0f, 0, smem_set_bit},
    // search memory, hash forms
    {false, kWriteClass, 8, RbaOp::kSearch, 0x00c0ffff, 0xff0f, 2, hash_search},
    {false, kWriteClass, 9, RbaOp::kSearchUpdate, 0x00c07fff, 0x0f0f, 2, hash_search_update},
    {false, kWriteClass, 10, RbaOp::kSearchBuild, 0x00c0c000, 0xff0f, 2, hash_search_build},
    {false, kWriteClass, 11, RbaOp::kSearchUpdateBuild, 0x00c04000, 0x0f0f, 2,
     hash_search_update_build},
    // local CAM
    {true, kReadClass, 0, RbaOp::kTcamReadMask, 0x007ffe00, 0x0008, 2, tcam_read_mask},
    {true, kReadClass, 1, RbaOp::kTcamReadData, 0x007ffe00, 0x0008, 2, tcam_read_data},
    {true, kReadClass, 4, RbaOp::kAdRead, 0x007ffe00, 0x0008, 2, tcam_ad_read},
    {true, kWriteClass, 0, RbaOp::kTcamClearMask, 0x007ffe00, 0x0008, 2, tcam_clear_mask},
    {true, kWriteClass, 1, RbaOp::kTcamClearData, 0x007ffe00, 0x0008, 2, tcam_clear_data},
    {true, kWriteClass, 2, RbaOp::kTcamWriteMask, 0x007ffe00, 0x0008, 2, tcam_write_mask},
    {true, kWriteClass, 3, RbaOp::kTcamWriteData, 0x007ffe00, 0x0008, 2, tcam_write_data},
    {true, kWriteClass, 4, RbaOp::kAdWrite, 0x007ffe00, 0x0008, 2, tcam_ad_write},
    {true, kWriteClass, 5, RbaOp::kTcamValidClear, 0x007ffe00, 0x000f, 2, tcam_valid_clear},
    {true, kWriteClass, 6, RbaOp::kTcamValidSet, 0x007ffe00, 0x000f, 2, tcam_valid_set},
};

constexpr uint8_t kNoCommand = 0xff;

constexpr uint32_t key_of(bool lcam, uint8_t access, uint32_t op)
{
    return (lcam ? 32u : 0u) | (access == kWriteClass ? 16u : 0u) | op;
}

// Row of kCommands by key.
constexpr std::array<uint8_t, 64> kIndex = [] {
    std::array<uint8_t, 64> index = {};
    for (uint8_t &row : index) {
        row = kNoCommand;
    }
    for (uint32_t row = 0; row < sizeof kCommands / sizeof kCommands[0]; row++) {
        const Command &command = kCommands[row];
        index[key_of(command.lcam, command.access, command.op)] = static_cast<uint8_t>(row);
    }
    return index;
}();

const Command *find(const RbaRequest &request)
{
    if (request.target > RbaTarget::kLcam ||
        (request.access != kReadClass && request.access != kWriteClass)) {
        return nullptr;
    }
    const uint32_t op = request.control >> 4 & 0xfu;
    const uint8_t row = kIndex[key_of(request.target == RbaTarget::kLcam, request.access, op)];
    return row == kNoCommand ? nullptr : &kCommands[row];
}

}  // namespace

RbaRequest rba_decode(const NpRbaReqCmd &frame)
{
    const uint8_t *bytes = frame.aucByte;
    const uint32_t address = load_le32(bytes);
    return {
        .address = address,
        .control = load_le16(bytes + 4),
        .access = bytes[6],
        .width_class = bytes[8],
        .target = static_cast<RbaTarget>(address >> 28),
        .payload = bytes + 12,
    };
}

RbaOp rba_command(const RbaRequest &request)
{
    const Command *command = find(request);
    return command == nullptr ? RbaOp::kUnknown : command->name;
}

uint32_t rba_execute(Chip &chip, const RbaRequest &request, RbaResponse &response)
{
    const Command *command = find(request);
    if (command == nullptr) {
        response.status = kStatusUnknown;
        return kOk;
    }
    const uint8_t *head = request.payload - 12;
    const uint32_t reserved = head[7] | head[9] | head[10] | head[11];
    if ((request.address & command->zero_address) != 0 ||
        (request.control & command->zero_control) != 0 ||
        request.width_class > command->max_width || reserved != 0) {
        response.status = kStatusMalformed;
        return kOk;
    }
    return command->run(chip, request, response);
}

}  // namespace ldsdk::model
