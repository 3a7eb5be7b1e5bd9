// Command lines from a file or a pipe.
#pragma once

#include "tools/ldsdk/backend.h"

namespace ldsdk::tool {

// Runs the lines of a file, "-" for standard input, up to the first that fails, which throws an
// error with the file's name and the line's number in front. With echo each line is shown on
// standard error before it runs.
void run_script(Backend &backend, const std::string &file, bool echo, ConsoleOutput &output);

}  // namespace ldsdk::tool
