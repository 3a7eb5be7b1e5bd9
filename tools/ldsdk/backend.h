// What the tool talks to: the module in this process, one behind a socket, or a loaded one.
#pragma once

#include "tools/ldsdk/command_buffer.h"
#include "tools/ldsdk/line.h"
#include "tools/ldsdk/output.h"
#include "tools/params/params.h"

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace ldsdk::tool {

class Backend {
  public:
    virtual ~Backend() = default;

    // The ioctl of the command device. Throws when it is refused.
    virtual void device(const CommandBuffer &buffer, Output &output) = 0;
    // A command of the chip model, with "chip" as the first word.
    virtual void chip(std::span<const std::string> words, Output &output) = 0;
    // The words that can follow those of a line, be they groups, commands or parameters. Runs
    // nothing.
    virtual std::vector<NextWord> next_words(std::span<const std::string> path) = 0;
};

// Opens what --device names; the module and the model in this process for an empty name.
std::unique_ptr<Backend> open_backend(const std::string &device);

// Runs one command line: `micro ...` through the device's buffer, `chip ...` at the model.
void run_command(Backend &backend, std::span<const std::string> words, Output &output);

}  // namespace ldsdk::tool
