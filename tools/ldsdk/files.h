// Files that commands read.
#pragma once

#include "tools/ldsdk/backend.h"

namespace ldsdk::tool {

// The bytes of a file up to its end, kMaxFile at most; "-" is standard input. Throws what it meets,
// with the command's and the file's name.
std::string read_file(const std::string &command, const std::string &name);

}  // namespace ldsdk::tool
