// A prompt without line editing, for machines that have no such library.
#include "tools/ldsdk/editor.h"

#include "tools/ldsdk/repl.h"

#include <iostream>

namespace ldsdk::tool {

Editor::Editor() = default;
Editor::~Editor() = default;

std::optional<std::vector<std::string>> Editor::read()
{
    std::fputs(kPrompt, stream());
    std::fflush(stream());
    std::string line;
    if (!std::getline(std::cin, line)) {
        return std::nullopt;
    }
    return std::vector{line};
}

std::FILE *Editor::stream()
{
    return stdout;
}

const char *Editor::greeting()
{
    return "help shows what can be typed, quit leaves.";
}

}  // namespace ldsdk::tool
