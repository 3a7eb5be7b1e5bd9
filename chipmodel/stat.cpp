#include "chipmodel/stat.h"

#include "chipmodel/chip.h"

namespace ldsdk::model {

namespace {

constexpr uint32_t kStatNum[kStatBlockNum] = {4, kStatMax, 32, 32, 32, 16};
constexpr uint32_t kOrderTimeoutDrops = 1;  // counter of the order engine
constexpr uint32_t kOrderStatusSet = 0x7820000c;
constexpr uint32_t kOrderTimeoutStatus = 1u << 4;

// A counter of an attached chip.
template <typename Work>
uint32_t with_counter(uint32_t id, StatBlock block, uint32_t index, Work work)
{
    Chip *chip = chip_find(id);
    if (chip == nullptr || index >= stat_num(block)) {
        return chip == nullptr ? kErrNoChip : kErrParam;
    }
    return work(chip->stat.of(block)[index]);
}

}  // namespace

uint32_t order_timeout_flush(Chip &chip, uint32_t packet)
{
    Statistics &stat = chip.stat;
    if (stat.timeout_first == stat.timeout_end ||
        stat.timeout[stat.timeout_first % kOrderTimeoutNum] != packet) {
        return kErrParam;
    }
    stat.timeout_first++;
    stat.of(StatBlock::kOe)[kOrderTimeoutDrops]++;
    return kOk;
}

// ---- traffic.h ----------------------------------------------------------------------------------

uint32_t stat_num(StatBlock block)
{
    const auto row = static_cast<uint32_t>(block);
    return row < kStatBlockNum ? kStatNum[row] : 0;
}

uint32_t stat_get(uint32_t chip, StatBlock block, uint32_t index, uint32_t *value)
{
    return with_counter(chip, block, index, [&](const uint32_t &counter) {
        if (value == nullptr) {
            return kErrNull;
        }
        *value = counter;
        return kOk;
    });
}

uint32_t stat_set(uint32_t chip, StatBlock block, uint32_t index, uint32_t value)
{
    return with_counter(chip, block, index, [&](uint32_t &counter) {
        counter = value;
        return kOk;
    });
}

uint32_t order_period_set(uint32_t chip, uint32_t period)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    found->stat.period = period;
    return kOk;
}

uint32_t order_timeout_put(uint32_t chip, uint32_t packet)
{
    Chip *found = chip_find(chip);
    if (found == nullptr) {
        return kErrNoChip;
    }
    Statistics &stat = found->stat;
    if (stat.timeout_end - stat.timeout_first == kOrderTimeoutNum) {
        return kErrFull;
    }
    stat.timeout[stat.timeout_end % kOrderTimeoutNum] = packet;
    stat.timeout_end++;
    found->bus_write(kOrderStatusSet, kOrderTimeoutStatus);
    return kOk;
}

uint32_t order_timeouts(uint32_t chip)
{
    const Chip *found = chip_find(chip);
    return found == nullptr ? 0 : found->stat.timeout_end - found->stat.timeout_first;
}

}  // namespace ldsdk::model
