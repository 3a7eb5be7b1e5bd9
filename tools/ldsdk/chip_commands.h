// The commands of the chip model. They act on the model in this process.
#pragma once

#include "tools/ldsdk/backend.h"

#include <cstdint>

namespace ldsdk::tool {

// One user of the model: which chip its commands mean.
class ChipSession {
  public:
    // Runs a command line whose first word is "chip". Throws what is wrong with it.
    void run(std::span<const std::string> words, Output &output);

    uint32_t selected() const
    {
        return selected_;
    }
    // Throws unless the chip is attached.
    void select(uint32_t chip);

  private:
    uint32_t selected_ = 0;
};

// The words that can follow a path that begins with "chip".
std::vector<NextWord> chip_next_words(std::span<const std::string> path);

}  // namespace ldsdk::tool
