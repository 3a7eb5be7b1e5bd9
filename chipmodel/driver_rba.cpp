// The driver's command path.

#include "chipmodel/call.h"
#include "chipmodel/rba.h"

namespace ldsdk::model {

namespace {

void record(const Chip &chip, const RbaRequest &request, RbaOp command, const RbaResponse &response,
            uint32_t result)
{
    Record entry = {};
    entry.tick = chip.now();
    entry.address = request.address;
    entry.value = static_cast<uint32_t>(request.access) << 16 | request.control;
    entry.result = result;
    entry.status = response.status;
    __builtin_memcpy(entry.data, request.access == 1 ? response.data : request.payload, 16);
    entry.kind = RecordKind::kRba;
    entry.chip = static_cast<uint8_t>(chip.id());
    entry.op = Op::Qd_RBA_CommandSend;
    entry.command = command;
    journal_put(entry);
}

uint32_t send(Chip &chip, const NpRbaReqCmd &frame, NpRbaRspCmd &answer)
{
    const RbaRequest request = rba_decode(frame);
    const RbaOp command = g_watch != 0 ? rba_command(request) : RbaOp::kUnknown;
    RbaResponse response = {};
    uint32_t result = kOk;
    FaultHit fault = {};
    if (watched(kWatchFaults)) {
        fault = fault_check(Op::Qd_RBA_CommandSend, command);
    }
    if (!fault.hit) {
        result = rba_execute(chip, request, response);
    }
    else if (fault.status) {
        response.status = fault.value;
    }
    else {
        result = fault.value;
    }
    if (watched(kWatchJournal)) {
        record(chip, request, command, response, result);
    }
    if (result == kOk) {
        store_le32(answer.aucByte, response.status);
        __builtin_memcpy(answer.aucByte + 4, response.data, sizeof response.data);
    }
    return result;
}

}  // namespace

}  // namespace ldsdk::model

using namespace ldsdk::model;

uint32_t Qd_RBA_CommandSend(uint32_t ulChipID, const NpRbaReqCmd *pstReq, NpRbaRspCmd *pstRsp)
{
    Chip *chip = chip_find(ulChipID);
    if (chip == nullptr) {
        return kErrNoChip;
    }
    if (pstReq == nullptr || pstRsp == nullptr) {
        return kErrNull;
    }
    return send(*chip, *pstReq, *pstRsp);
}
