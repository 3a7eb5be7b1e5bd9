// What the tool talks to: the module in this process, one behind a socket, or a loaded one.
#pragma once

#include "tools/ldsdk/command_buffer.h"
#include "tools/ldsdk/line.h"
#include "tools/ldsdk/output.h"
#include "tools/params/params.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace ldsdk::tool {

// The file that a command names. The tool that was given the line opens it; its bytes travel to
// where the command runs.
struct CarriedFile {
    std::optional<std::string> in;   // to be read
    std::optional<std::string> out;  // to be written
};
inline constexpr size_t kMaxFile = 16 << 20;

class Backend {
  public:
    virtual ~Backend() = default;

    // The ioctl of the command device. Throws when it is refused.
    virtual void device(const CommandBuffer &buffer, Output &output) = 0;
    // A command of the chip model, with "chip" as the first word.
    virtual void chip(std::span<const std::string> words, CarriedFile &file, Output &output) = 0;
    // Whether commands that need the module and the model in one process can run there.
    virtual bool has_module() const
    {
        return true;
    }
    // The words that can follow those of a line, be they groups, commands or parameters. Runs
    // nothing.
    virtual std::vector<NextWord> next_words(std::span<const std::string> path) = 0;
};

// Opens what --device names; the module and the model in this process for an empty name.
std::unique_ptr<Backend> open_backend(const std::string &device);

// Who reads standard input: a command may, or the command lines come from there.
enum class Stdin { free, taken };

// Runs one command line: `micro ...` through the device's buffer, `chip ...` at the model.
void run_command(Backend &backend, std::span<const std::string> words, Stdin standard_input,
                 ConsoleOutput &output);

}  // namespace ldsdk::tool
