// The indirect 16-bit bus of a slave chip: address and data in halves, a command, a busy bit.
#pragma once

#include <cstdint>

namespace ldsdk::model {

class Chip;

class SlaveBus {
  public:
    // Registers by number; they stand 2 or 4 bytes apart from the block's base.
    enum Register : uint32_t {
        kAddressHigh = 2,
        kAddressLow = 3,
        kWriteHigh = 4,
        kWriteLow = 5,
        kReadHigh = 6,
        kReadLow = 7,
        kCommand = 8,
        kStatus = 9,
        kRegisterNum = 10,
    };

    // polls: status reads that find the bus busy after a command.
    void power_on(uint32_t polls);
    void polls_set(uint32_t polls)
    {
        polls_ = polls;
    }

    uint16_t read(uint32_t number);
    void write(Chip &chip, uint32_t number, uint16_t value);

  private:
    void command(Chip &chip, uint16_t value);

    uint16_t reg_[kRegisterNum];
    uint32_t latch_;  // read data on its way into the registers
    uint32_t polls_;
    uint32_t busy_;  // status reads still to find it busy
    bool stuck_;     // busy for ever
    bool armed_;     // the command register was brought to 0
};

}  // namespace ldsdk::model
