#include "tools/ldsdk/repl.h"

#include "tools/ldsdk/editor.h"
#include "tools/ldsdk/error.h"

#include <sys/ioctl.h>
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

namespace {

std::vector<NextWord> known_words(const TypedLine &typed)
{
    std::vector<NextWord> words = g_backend->next_words(typed.words);
    if (typed.words.empty()) {
        words.push_back({"help", "what can be typed here", false});
        words.push_back({"quit", "leave; so does the end of input", false});
    }
    std::erase_if(words, [&](const NextWord &word) {
        return stands_for_many(word) ? word.name == kLineEnd && !typed.last.empty()
                                     : !word.name.starts_with(typed.last);
    });
    return words;
}

size_t screen_width()
{
    constexpr size_t kDefault = 80;
    winsize size = {};
    return ::ioctl(::fileno(Editor::stream()), TIOCGWINSZ, &size) == 0 && size.ws_col != 0
               ? size.ws_col
               : kDefault;
}

// Words with help have a line each; the others stand in columns.
std::string words_text(const std::vector<NextWord> &words)
{
    const auto lists = [](const NextWord &word) {
        return word.help.empty() && !stands_for_many(word);
    };
    size_t widths[2] = {};
    for (const NextWord &word : words) {
        size_t &width = widths[lists(word) ? 1 : 0];
        width = std::max(width, word.name.size());
    }
    const size_t columns = std::max<size_t>(screen_width() / (widths[1] + 2), 1);
    std::string text;
    size_t column = 0;
    for (const NextWord &word : words) {
        const bool listed = lists(word);
        if (column == columns || (column != 0 && !listed)) {
            text += "\n";
            column = 0;
        }
        text += "  " + word.name + std::string(widths[listed ? 1 : 0] - word.name.size(), ' ');
        text += listed ? "" : "  " + word.help + "\n";
        column += listed ? 1 : 0;
    }
    return text + (column != 0 ? "\n" : "");
}

}  // namespace

std::vector<NextWord> matching_words(const TypedLine &typed)
{
    try {
        return known_words(typed);
    }
    catch (const Error &) {
        return {};  // the next command will tell
    }
}

void show_matching_words(const TypedLine &typed)
{
    std::string text;
    try {
        text = words_text(known_words(typed));
        if (text.empty()) {
            text = "  nothing that begins with \"" + typed.last + "\" can stand here\n";
        }
    }
    catch (const Error &error) {
        text = std::string("  not known: ") + error.what() + "\n";
    }
    std::fputs(visible(text).c_str(), Editor::stream());
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
        show_matching_words({});
        return Answer::go_on;
    }
    run_command(backend, words, Stdin::taken, output);
    return Answer::go_on;
}

}  // namespace

namespace {

// Runs a line, or a pasted block up to the first line that fails: what follows may build on it.
Answer run_lines(Backend &backend, const std::vector<std::string> &lines, ConsoleOutput &output)
{
    for (size_t at = 0; at < lines.size(); at++) {
        output.fresh_line();
        if (lines.size() > 1) {
            output.tell(kPrompt + lines[at]);
        }
        try {
            if (run_line(backend, lines[at], output) == Answer::leave) {
                return Answer::leave;
            }
        }
        catch (const Error &error) {
            output.tell(std::string("ldsdk: ") + error.what());
            if (const size_t left = lines.size() - at - 1; left != 0) {
                output.tell("ldsdk: not run: " + std::to_string(left) + " further line" +
                            (left == 1 ? "" : "s") + " of the block");
            }
            break;
        }
    }
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
        const std::optional<std::vector<std::string>> lines = editor.read();
        if (!lines) {
            std::fputs("\n", Editor::stream());
            return;
        }
        if (run_lines(backend, *lines, output) == Answer::leave) {
            return;
        }
    }
}

}  // namespace ldsdk::tool
