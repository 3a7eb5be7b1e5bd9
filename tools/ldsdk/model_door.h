// Where the commands of the chip model find it.
#pragma once

#include "chipmodel/debug.h"

#include <cstdint>
#include <span>
#include <string>

namespace ldsdk::tool {

inline LdDebugCall debug_call(LdDebugOp op, uint32_t number = 0, uint32_t value = 0,
                              uint64_t wide = 0)
{
    LdDebugCall call = {};
    call.op = op;
    call.number = number;
    call.value = value;
    call.wide = wide;
    return call;
}

class ModelDoor {
  public:
    virtual ~ModelDoor() = default;

    // What Ld_Debug answers to the call. Throws when the model can't be asked.
    virtual uint32_t call(LdDebugCall &call) = 0;
    // Loads a microcode image into a chip: what the module answers. Throws when it can't be asked.
    virtual uint32_t load(uint32_t chip, std::span<const uint8_t> image) = 0;
    // Empty when module and model are in this process, so that commands may call both; else what
    // stands in between.
    virtual std::string between() const = 0;
};

// The model in this process.
ModelDoor &local_model();

}  // namespace ldsdk::tool
