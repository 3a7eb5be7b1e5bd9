#include "tools/ldsdk/repl.h"

#include "tools/ldsdk/editor.h"
#include "tools/ldsdk/error.h"

#include <algorithm>
#include <cstdio>

namespace ldsdk::tool {

namespace {

// The line editor calls bare functions, so this is the process's.
Backend *g_backend = nullptr;

}  // namespace

bool stands_for_many(const NextWord &word)
{
    return word.name.starts_with('<');
}

std::vector<NextWord> matching_words(const TypedLine &typed)
{
    std::vector<NextWord> words;
    try {
        words = g_backend->next_words(typed.words);
    }
    catch (const Error &) {
        return {};  // the next command will tell
    }
    if (typed.words.empty()) {
        words.push_back({"help", "what can be typed here", false});
        words.push_back({"quit", "leave; so does the end of input", false});
    }
    std::erase_if(words, [&](const NextWord &word) {
        return !stands_for_many(word) && !word.name.starts_with(typed.last);
    });
    return words;
}

void show_words(const std::vector<NextWord> &words)
{
    size_t width = 0;
    for (const NextWord &word : words) {
        width = std::max(width, word.name.size());
    }
    for (const NextWord &word : words) {
        std::fprintf(Editor::stream(), "  %-*s  %s\n", static_cast<int>(width), word.name.c_str(),
                     word.help.c_str());
    }
    if (words.empty()) {
        std::fputs(
            "  nothing is known to come here: the end of the line, or a word before is wrong\n",
            Editor::stream());
    }
}

namespace {

enum class Answer { go_on, leave };

Answer run_line(Backend &backend, const std::string &line, ConsoleOutput &output)
{
    Words words;
    split_line(line, words);
    if (words.empty()) {
        return Answer::go_on;
    }
    if (words[0] == "exit" || words[0] == "quit") {
        return Answer::leave;
    }
    if (words[0] == "help" || words[0] == "?") {
        show_words(matching_words({}));
        return Answer::go_on;
    }
    run_command(backend, words, output);
    return Answer::go_on;
}

}  // namespace

void run_prompt(Backend &backend, ConsoleOutput &output)
{
    g_backend = &backend;
    Editor editor;
    output.tell(Editor::greeting());
    while (true) {
        output.fresh_line();
        output.flush();
        output.check();
        const std::optional<std::string> line = editor.read();
        if (!line) {
            std::fputs("\n", Editor::stream());
            return;
        }
        try {
            if (run_line(backend, *line, output) == Answer::leave) {
                return;
            }
        }
        catch (const Error &error) {
            output.tell(std::string("ldsdk: ") + error.what());
        }
    }
}

}  // namespace ldsdk::tool
