// The line editor of the prompt. There is one in a process.
#pragma once

#include <cstdio>
#include <optional>
#include <string>

namespace ldsdk::tool {

class Editor {
  public:
    Editor();
    ~Editor();
    Editor(const Editor &) = delete;
    Editor &operator=(const Editor &) = delete;

    // Asks for a line; nothing at the end of input.
    std::optional<std::string> read();
    // Where the prompt goes, and the help for it.
    static std::FILE *stream();
    // What is said when it starts.
    static const char *greeting();
};

}  // namespace ldsdk::tool
