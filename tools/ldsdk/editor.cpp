#include "tools/ldsdk/editor.h"

#include "tools/ldsdk/repl.h"

#include <unistd.h>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include <readline/history.h>
#include <readline/readline.h>

namespace ldsdk::tool {

namespace {

constexpr int kHistoryLines = 1000;

// The line editor calls bare functions, so what they need is the process's.
struct Completion {
    std::vector<std::string> names;  // that fit the word under way
    size_t next;
};
Completion g_completion = {};

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
    for (const NextWord &word : matching_words(typed)) {
        if (!stands_for_many(word)) {
            g_completion.names.push_back(word.name);
        }
    }
    return rl_completion_matches(text, next_name);
}

// `?` shows what can stand at the cursor; inside quotes it is a character like any other.
int help_key(int count, int key)
{
    const TypedLine typed = split_typed({rl_line_buffer, static_cast<size_t>(rl_point)});
    if (typed.open_quote) {
        return rl_insert(count, key);
    }
    std::fputs("?\n", rl_outstream);
    show_words(matching_words(typed));
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

std::unique_ptr<History> g_history;

}  // namespace

Editor::Editor()
{
    rl_readline_name = "ldsdk";
    rl_outstream = ::isatty(STDOUT_FILENO) != 0 ? stdout : stderr;
    rl_attempted_completion_function = complete;
    rl_completer_quote_characters = "\"'";
    rl_basic_word_break_characters = " \t\n";
    rl_bind_key('?', help_key);
    g_history = std::make_unique<History>();
}

Editor::~Editor()
{
    g_history.reset();
}

std::optional<std::string> Editor::read()
{
    const InterruptGuard guard;
    const TypedText line(::readline(kPrompt), std::free);
    if (line == nullptr) {
        return std::nullopt;
    }
    if (line.get()[0] != '\0') {
        g_history->add(line.get());
    }
    return line.get();
}

std::FILE *Editor::stream()
{
    return rl_outstream;
}

const char *Editor::greeting()
{
    return "Tab completes, ? shows what can follow, quit leaves.";
}

}  // namespace ldsdk::tool
