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
    void run(std::span<const std::string> words, CarriedFile &file, Output &output);

    // The file of the command under way.
    CarriedFile &file()
    {
        return *file_;
    }

    uint32_t selected() const
    {
        return selected_;
    }
    // Throws unless the chip is attached.
    void select(uint32_t chip);

    // Makes a call for the selected chip: 0, or the model's code. This and what follows throw, with
    // the name of the command under way, when the chip is not attached.
    uint32_t ask(LdDebugCall &call);
    // Loads a microcode image into the selected chip: what the module answers.
    uint32_t load(std::span<const uint8_t> image)
    {
        return door_.load(selected_, image);
    }
    // A word of chip memory; throw too when there is none.
    uint32_t peek(uint32_t address);
    void poke(uint32_t address, uint32_t value);

  private:
    uint32_t ask(LdDebugCall &call, uint32_t chip);
    void access(LdDebugCall &call);

    ModelDoor &door_;
    std::string command_;          // under way
    CarriedFile *file_ = nullptr;  // of it
    uint32_t selected_ = 0;
};

// What a line does with a file, if it is complete.
struct NamedFile {
    enum { none, read, written } use = none;
    bool module = false;  // it needs the module and the model in one process
    std::string command = {};
    std::string name = {};
};
NamedFile chip_file(std::span<const std::string> words);

// Stands for the names of files.
inline constexpr char kFileWord[] = "<FILE>";

// The words that can follow a path that begins with "chip".
std::vector<NextWord> chip_next_words(std::span<const std::string> path);

}  // namespace ldsdk::tool
