#include "chipmodel/debug.h"

#include "chipmodel/atom_door.h"
#include "chipmodel/chip.h"
#include "chipmodel/model.h"

static_assert(sizeof(LdDebugCall) == 32 + LD_DEBUG_TEXT);

namespace ldsdk::model {

namespace {

uint32_t fault_set(LdDebugCall &call)
{
    call.text[sizeof(call.text) - 1] = '\0';
    FaultError error = {};
    if (faults_set(call.text, &error)) {
        return kOk;
    }
    // What is said points into what it is written over.
    char said[160];
    fault_error_format(call.text, error, said, sizeof(said));
    __builtin_memcpy(call.text, said, sizeof(said));
    return kErrParam;
}

uint32_t journal_state(LdDebugCall &call)
{
    call.number = journal_count();
    call.wide = journal_lost();
    call.value = journal_enabled() ? 1 : 0;
    return kOk;
}

uint32_t journal_show(LdDebugCall &call)
{
    const Record *record = journal_record(call.number);
    if (record == nullptr) {
        return kErrParam;
    }
    journal_format(*record, call.text, sizeof(call.text));
    return kOk;
}

uint32_t attached(uint32_t chip)
{
    return chip_find(chip) != nullptr ? kOk : kErrNoChip;
}

uint32_t channel(LdDebugCall &call)
{
    AutoChannel state = {};
    const uint32_t status = auto_channel_get(call.chip, call.number, &state);
    if (status != kOk) {
        return status;
    }
    if (!state.set) {
        return kErrEmpty;
    }
    call.value = state.on ? 1 : 0;
    call.wide = state.period;
    call.number = state.count;
    packet_format(state.head, state.body, state.length, call.text, sizeof(call.text));
    return kOk;
}

uint32_t sent(LdDebugCall &call)
{
    Packet packet = {};
    const uint32_t status = sent_get(call.chip, call.number, &packet);
    if (status == kOk) {
        call.wide = packet.tick;
        call.value = packet.length;
        packet_format(packet.head, packet.data, packet.length, call.text, sizeof(call.text));
    }
    return status;
}

struct CountName {
    const char *name;
    uint32_t StandinCounts::*count;
};

constexpr CountName kCountNames[] = {
    {"packets", &StandinCounts::packets},
    {"messages", &StandinCounts::messages},
    {"unknown", &StandinCounts::unknown},
    {"looped", &StandinCounts::looped},
    {"learned", &StandinCounts::learned},
    {"learn refused", &StandinCounts::learn_refused},
    {"age walks", &StandinCounts::age_walks},
    {"aged", &StandinCounts::aged},
    {"force aged", &StandinCounts::force_aged},
    {"heartbeats", &StandinCounts::heartbeats},
    {"heartbeats lost", &StandinCounts::heartbeats_lost},
};

uint32_t standin_count(LdDebugCall &call)
{
    StandinCounts counts = {};
    const uint32_t status = standin_counts_get(call.chip, &counts);
    if (status != kOk) {
        return status;
    }
    if (call.number >= sizeof(kCountNames) / sizeof(kCountNames[0])) {
        return kErrParam;
    }
    const CountName &row = kCountNames[call.number];
    call.value = counts.*row.count;
    Os_Format(call.text, sizeof(call.text), "%s", row.name);
    return kOk;
}

}  // namespace

}  // namespace ldsdk::model

uint32_t Ld_Debug(LdDebugCall *call)
{
    using namespace ldsdk::model;
    if (call == nullptr) {
        return kErrNull;
    }
    const bool on = call->value != 0;
    switch (call->op) {
        case LD_DEBUG_PEEK:
            return peek(call->chip, call->number, &call->value);
        case LD_DEBUG_POKE:
            return poke(call->chip, call->number, call->value);
        case LD_DEBUG_ADVANCE:
            return advance(call->chip, call->wide);
        case LD_DEBUG_FAULT_SET:
            return fault_set(*call);
        case LD_DEBUG_FAULT_SHOW:
            return fault_format(call->number, call->text, sizeof(call->text));
        case LD_DEBUG_JOURNAL_SET:
            journal_enable(on);
            return kOk;
        case LD_DEBUG_JOURNAL_CLEAR:
            journal_clear();
            return kOk;
        case LD_DEBUG_JOURNAL_STATE:
            return journal_state(*call);
        case LD_DEBUG_JOURNAL_SHOW:
            return journal_show(*call);
        case LD_DEBUG_FEED_SET:
            return atom_feed_set(call->chip, call->number, on);
        case LD_DEBUG_ENGINE:
            call->value = auto_send_enabled(call->chip) ? 1 : 0;
            return attached(call->chip);
        case LD_DEBUG_CHANNEL:
            return channel(*call);
        case LD_DEBUG_SENT_COUNT:
            call->number = sent_count(call->chip);
            return attached(call->chip);
        case LD_DEBUG_SENT:
            return sent(*call);
        case LD_DEBUG_STANDIN_SET:
            return standin_set(call->chip, on);
        case LD_DEBUG_LOOP_SET:
            return standin_loop_set(call->chip, on);
        case LD_DEBUG_STANDIN_COUNT:
            return standin_count(*call);
        default:
            return kErrNotModelled;
    }
}
