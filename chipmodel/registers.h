// Registers that do more than keep their value: the interrupt status registers of the blocks.
#pragma once

#include "chipmodel/memory.h"

namespace ldsdk::model {

// Values that registers have when power comes on.
void registers_power_on(Memory &memory);

// One 32-bit write from the bus to a block register (offset from kBlockOffset on). A one written to
// a status register clears that bit, a one written to a set register raises it.
void register_write(Memory &memory, uint32_t offset, uint32_t value);

}  // namespace ldsdk::model
