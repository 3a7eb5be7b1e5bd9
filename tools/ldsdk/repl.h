// The prompt: line editing, history, completion and help.
#pragma once

#include "tools/ldsdk/backend.h"

namespace ldsdk::tool {

// Reads and runs command lines until the end of input, `exit` or `quit`. An error is shown and the
// next line is asked for. Throws only when standard output fails.
void run_prompt(Backend &backend, ConsoleOutput &output);

}  // namespace ldsdk::tool
