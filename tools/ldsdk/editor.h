// The line editor of the prompt. There is one in a process.
#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace ldsdk::tool {

class Editor {
  public:
    Editor();
    ~Editor();
    Editor(const Editor &) = delete;
    Editor &operator=(const Editor &) = delete;

    // Asks for a line: one that was typed, or those of a pasted block. Nothing at the end of input.
    std::optional<std::vector<std::string>> read();
    // Where the prompt goes, and the help for it.
    static std::FILE *stream();
    // What is said when it starts.
    static const char *greeting();
};

}  // namespace ldsdk::tool
