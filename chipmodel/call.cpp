#include "chipmodel/call.h"

namespace ldsdk::model {

void call_record(Op op, uint32_t id, const CallNumbers &numbers, uint32_t result)
{
    Record entry = {};
    entry.tick = clock_now(id);
    entry.result = result;
    for (uint32_t at = 0; at < 5; at++) {
        store_le32(entry.data + 4 * at, numbers.number[at]);
    }
    entry.kind = RecordKind::kCall;
    entry.chip = static_cast<uint8_t>(id);
    entry.op = op;
    journal_put(entry);
}

}  // namespace ldsdk::model
