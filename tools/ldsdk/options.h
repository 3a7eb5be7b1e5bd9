// The tool's own command line.
#pragma once

#include "tools/ldsdk/line.h"

#include <optional>
#include <string>

namespace ldsdk::tool {

enum class Mode { prompt, script, one_shot, serve };

struct Options {
    Mode mode = Mode::prompt;
    std::string device;        // empty: the module and the model in this process
    Words family;              // options of the chip family, for the chip in this process
    std::string script;        // "-" is standard input
    bool interactive = false;  // a prompt behind the script
    bool echo = false;         // show each line of a script before it runs
    std::string socket;        // of serve
    Words words;               // the one command
};

// Reads the command line. Nothing when --help or --version was asked for and answered. Throws a
// usage error.
std::optional<Options> read_options(int argc, char **argv);

}  // namespace ldsdk::tool
