#include "chipmodel/slavebus.h"

#include "chipmodel/chip.h"
#include "chipmodel/fault.h"

namespace ldsdk::model {

namespace {

constexpr uint16_t kIdle = 0;
constexpr uint16_t kReadCommand = 1;
constexpr uint16_t kWriteCommand = 2;

}  // namespace

void SlaveBus::power_on(uint32_t polls)
{
    *this = {};
    polls_ = polls;
}

uint16_t SlaveBus::read(uint32_t number)
{
    if (number != kStatus) {
        return number < kRegisterNum ? reg_[number] : 0;
    }
    if (stuck_) {
        return 1;
    }
    if (busy_ != 0) {
        busy_--;
        return 1;
    }
    reg_[kReadHigh] = static_cast<uint16_t>(latch_ >> 16);
    reg_[kReadLow] = static_cast<uint16_t>(latch_);
    return 0;
}

void SlaveBus::write(Chip &chip, uint32_t number, uint16_t value)
{
    switch (number) {
        case kAddressHigh:
        case kAddressLow:
        case kWriteHigh:
        case kWriteLow:
            reg_[number] = value;
            break;
        case kCommand:
            command(chip, value);
            break;
        default:  // read data and status don't take writes
            break;
    }
}

// A command starts on the way from 0 to its code.
void SlaveBus::command(Chip &chip, uint16_t value)
{
    reg_[kCommand] = value;
    if (value == kIdle) {
        armed_ = true;
        return;
    }
    if (!armed_ || (value != kReadCommand && value != kWriteCommand)) {
        return;
    }
    armed_ = false;
    stuck_ = watched(kWatchFaults) && fault_check(Op::kBus).hit;
    if (stuck_) {
        return;
    }
    busy_ = polls_;
    const uint32_t address = static_cast<uint32_t>(reg_[kAddressHigh]) << 16 | reg_[kAddressLow];
    if (value == kReadCommand) {
        latch_ = chip.bus_read(address);
    }
    else {
        chip.bus_write(address, static_cast<uint32_t>(reg_[kWriteHigh]) << 16 | reg_[kWriteLow]);
    }
}

}  // namespace ldsdk::model
