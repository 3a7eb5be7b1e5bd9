// The commands of the chip model.
#pragma once

#include "tools/ldsdk/backend.h"
#include "tools/ldsdk/model_door.h"

#include <cstdint>

namespace ldsdk::tool {

// One user of the model: which chip its commands mean.
class ChipSession {
  public:
    explicit ChipSession(ModelDoor &door = local_model()) : door_(door) {}

    // Runs a command line whose first word is "chip". Throws what is wrong with it.
    void run(std::span<const std::string> words, Output &output);

    uint32_t selected() const
    {
        return selected_;
    }
    // Throws unless the chip is attached.
    void select(uint32_t chip);

    // Makes a call for the selected chip: 0, or the model's code. This and what follows throw, with
    // the name of the command under way, when the chip is not attached.
    uint32_t ask(LdDebugCall &call);
    // A word of chip memory; throw too when there is none.
    uint32_t peek(uint32_t address);
    void poke(uint32_t address, uint32_t value);

  private:
    uint32_t ask(LdDebugCall &call, uint32_t chip);
    void access(LdDebugCall &call);

    ModelDoor &door_;
    std::string command_;  // under way
    uint32_t selected_ = 0;
};

// The words that can follow a path that begins with "chip".
std::vector<NextWord> chip_next_words(std::span<const std::string> path);

}  // namespace ldsdk::tool
