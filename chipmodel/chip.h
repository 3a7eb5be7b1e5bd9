// One chip: its parts, each in a file pair of its own, and what they share.
//
// A part is a member of Chip and a row of kParts in chip.cpp, which names what it does at power on
// and when the clock moves. All of a chip is zero before power on, so that four of them cost no
// memory until they are used.
#pragma once

#include "chipmodel/atom.h"
#include "chipmodel/channel.h"
#include "chipmodel/ha.h"
#include "chipmodel/hash.h"
#include "chipmodel/memory.h"
#include "chipmodel/model.h"
#include "chipmodel/slavebus.h"
#include "chipmodel/smem.h"
#include "chipmodel/standin.h"
#include "chipmodel/stat.h"
#include "chipmodel/tcam.h"

namespace ldsdk::model {

class Chip {
  public:
    // Brings the chip to the state after power on.
    void power_on(uint32_t id);
    void power_off()
    {
        attached_ = false;
    }
    bool attached() const
    {
        return attached_;
    }
    uint32_t id() const
    {
        return id_;
    }
    // Ticks of 0.1 ms since power on.
    uint64_t now() const
    {
        return now_;
    }
    void advance(uint64_t ticks);

    // A 32-bit access as a bus makes it, with the side effects of registers. An address at which
    // there is nothing reads 0 and takes writes.
    uint32_t bus_read(uint32_t address);
    void bus_write(uint32_t address, uint32_t value);
    // The same by offset in the store.
    void bus_write_at(uint32_t offset, uint32_t value);

    Memory memory;
    SlaveBus slave_bus;
    SmemSettings smem;
    HashEngine hash;
    Tcam tcam;
    HaRules ha;
    Channel channel;
    Statistics stat;
    Standin standin;
    uint32_t atom_mode[kAtomNum];
    Atoms atoms;

  private:
    uint64_t now_;
    uint32_t id_;
    bool attached_;
};

// The chip of an identifier, null when it is not attached.
Chip *chip_find(uint32_t id);
// Whether the work of a move of the clock may go on; not to be asked in driver calls.
bool go_on();
// The chip behind the mapped windows, null when there is none.
Chip *chip_master();

}  // namespace ldsdk::model
