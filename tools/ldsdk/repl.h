// The prompt: line editing, history, completion and help.
#pragma once

#include "tools/ldsdk/backend.h"

namespace ldsdk::tool {

inline constexpr char kPrompt[] = "ldsdk> ";

// Reads and runs command lines until the end of input, `exit` or `quit`. An error is shown and the
// next line is asked for. Throws only when standard output fails.
void run_prompt(Backend &backend, ConsoleOutput &output);

// For the line editor: the words that can stand at the end of a line that is still being typed, one
// in <> for many, none when the module can't be asked; and how they are shown.
std::vector<NextWord> matching_words(const TypedLine &typed);
bool stands_for_many(const NextWord &word);
void show_matching_words(const TypedLine &typed);

}  // namespace ldsdk::tool
