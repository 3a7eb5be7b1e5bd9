// The whole module in this process, with chip 0 up on the chip model.
#pragma once

#include "host/sibling.h"
#include "tools/ldsdk/backend.h"
#include "tools/ldsdk/chip_commands.h"

namespace ldsdk::tool {

class InProcess : public Backend {
  public:
    // Attaches chip 0, loads the module and brings the chip up. What the module prints outside of
    // commands is not shown. There can be one of these in a process.
    InProcess();
    ~InProcess() override;
    InProcess(const InProcess &) = delete;
    InProcess &operator=(const InProcess &) = delete;

    void device(const CommandBuffer &buffer, Output &output) override;
    void chip(std::span<const std::string> words, CarriedFile &file, Output &output) override;
    std::vector<NextWord> next_words(std::span<const std::string> path) override;

    // The same for one user of several, each with a chip of its own choice.
    void chip(ChipSession &session, std::span<const std::string> words, CarriedFile &file,
              Output &output);

  private:
    static void sink(const char *text, void *user);

    Output *output_ = nullptr;  // of the command under way
    ChipSession session_;
    host::Sibling sibling_;
};

// The words that can follow a path, looked up in the installed command tree and in the table of
// chip commands.
std::vector<NextWord> local_next_words(std::span<const std::string> path);

}  // namespace ldsdk::tool
