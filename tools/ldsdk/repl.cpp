#include "tools/ldsdk/repl.h"

#include "tools/ldsdk/error.h"

#include <unistd.h>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include <readline/history.h>
#include <readline/readline.h>

namespace ldsdk::tool {

namespace {

constexpr char kPrompt[] = "ldsdk> ";
constexpr int kHistoryLines = 1000;

// The line editor calls bare functions, so what they need is the process's.
struct Completion {
    Backend *backend;
    std::vector<std::string> names;  // that fit the word under way
    size_t next;
};
Completion g_completion = {};

bool stands_for_many(const NextWord &word)
{
    return word.name.starts_with('<');
}

std::vector<NextWord> matching(const TypedLine &typed)
{
    std::vector<NextWord> words;
    try {
        words = g_completion.backend->next_words(typed.words);
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

char *next_name(const char *, int state)
{
    if (state == 0) {
        g_completion.next = 0;
    }
    if (g_completion.next == g_completion.names.size()) {
        return nullptr;
    }
    return ::strdup(g_completion.names[g_completion.next++].c_str());
}

char **complete(const char *text, int start, int)
{
    rl_attempted_completion_over = 1;  // no file names
    TypedLine typed = split_typed({rl_line_buffer, static_cast<size_t>(start)});
    if (typed.open_quote) {
        return nullptr;
    }
    typed.last = text;
    g_completion.names.clear();
    for (const NextWord &word : matching(typed)) {
        if (!stands_for_many(word)) {
            g_completion.names.push_back(word.name);
        }
    }
    return rl_completion_matches(text, next_name);
}

void show_words(const std::vector<NextWord> &words)
{
    size_t width = 0;
    for (const NextWord &word : words) {
        width = std::max(width, word.name.size());
    }
    for (const NextWord &word : words) {
        std::fprintf(rl_outstream, "  %-*s  %s\n", static_cast<int>(width), word.name.c_str(),
                     word.help.c_str());
    }
    if (words.empty()) {
        std::fputs(
            "  nothing is known to come here: the end of the line, or a word before is wrong\n",
            rl_outstream);
    }
}

// `?` shows what can stand at the cursor; inside quotes it is a character like any other.
int help_key(int count, int key)
{
    const TypedLine typed = split_typed({rl_line_buffer, static_cast<size_t>(rl_point)});
    if (typed.open_quote) {
        return rl_insert(count, key);
    }
    std::fputs("?\n", rl_outstream);
    show_words(matching(typed));
    rl_on_new_line();
    rl_forced_update_display();
    return 0;
}

// The history file of the user, or an empty path when there is no place for one.
std::filesystem::path history_path()
{
    const char *state = std::getenv("XDG_STATE_HOME");
    const char *home = std::getenv("HOME");
    std::filesystem::path folder;
    if (state != nullptr && state[0] == '/') {
        folder = state;
    }
    else if (home != nullptr && home[0] == '/') {
        folder = std::filesystem::path(home) / ".local" / "state";
    }
    else {
        return {};
    }
    folder /= "ldsdk";
    std::error_code error;
    if (std::filesystem::create_directories(folder, error)) {
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    }
    return std::filesystem::is_directory(folder, error) ? folder / "history"
                                                        : std::filesystem::path();
}

// History of earlier runs, kept for later ones.
class History {
  public:
    History() : path_(history_path())
    {
        using_history();
        stifle_history(kHistoryLines);
        if (!path_.empty()) {
            read_history(path_.c_str());
        }
    }
    ~History()
    {
        if (!path_.empty()) {
            write_history(path_.c_str());
        }
    }
    History(const History &) = delete;
    History &operator=(const History &) = delete;

    void add(const char *line)
    {
        const HIST_ENTRY *last =
            history_length == 0 ? nullptr : history_get(history_base + history_length - 1);
        if (last == nullptr || std::strcmp(last->line, line) != 0) {
            add_history(line);
        }
    }

  private:
    std::filesystem::path path_;
};

volatile std::sig_atomic_t g_interrupted = 0;

// Ctrl-C while a line is being typed throws the line away, not the tool.
class InterruptGuard {
  public:
    InterruptGuard()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) { g_interrupted = 1; };
        ::sigaction(SIGINT, &action, &old_);
        rl_signal_event_hook = forget_line;
    }
    ~InterruptGuard()
    {
        ::sigaction(SIGINT, &old_, nullptr);
    }
    InterruptGuard(const InterruptGuard &) = delete;
    InterruptGuard &operator=(const InterruptGuard &) = delete;

  private:
    static int forget_line()
    {
        if (g_interrupted != 0) {
            g_interrupted = 0;
            std::fputs("\n", rl_outstream);
            rl_replace_line("", 0);
            rl_on_new_line();
            rl_redisplay();
        }
        return 0;
    }

    struct sigaction old_ = {};
};

using TypedText = std::unique_ptr<char, decltype(&std::free)>;

TypedText read_typed()
{
    const InterruptGuard guard;
    return {::readline(kPrompt), std::free};
}

void set_up_editor(Backend &backend)
{
    g_completion.backend = &backend;
    rl_readline_name = "ldsdk";
    rl_outstream = ::isatty(STDOUT_FILENO) != 0 ? stdout : stderr;
    rl_attempted_completion_function = complete;
    rl_completer_quote_characters = "\"'";
    rl_basic_word_break_characters = " \t\n";
    rl_bind_key('?', help_key);
}

enum class Answer { go_on, leave };

Answer run_line(Backend &backend, const char *line, ConsoleOutput &output)
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
        show_words(matching({}));
        return Answer::go_on;
    }
    run_command(backend, words, output);
    return Answer::go_on;
}

}  // namespace

void run_prompt(Backend &backend, ConsoleOutput &output)
{
    set_up_editor(backend);
    History history;
    output.tell("Tab completes, ? shows what can follow, quit leaves.");
    while (true) {
        output.fresh_line();
        output.flush();
        output.check();
        const TypedText line = read_typed();
        if (line == nullptr) {
            std::fputs("\n", rl_outstream);
            return;
        }
        if (line.get()[0] != '\0') {
            history.add(line.get());
        }
        try {
            if (run_line(backend, line.get(), output) == Answer::leave) {
                return;
            }
        }
        catch (const Error &error) {
            output.tell(std::string("ldsdk: ") + error.what());
        }
    }
}

}  // namespace ldsdk::tool
