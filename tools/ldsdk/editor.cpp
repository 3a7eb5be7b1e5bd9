#include "tools/ldsdk/editor.h"

#include "tools/ldsdk/chip_commands.h"
#include "tools/ldsdk/repl.h"
#include "tools/log/fd.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <sstream>

#include <readline/history.h>
#include <readline/readline.h>

namespace ldsdk::tool {

namespace {

constexpr int kHistoryLines = 1000;

// The line editor calls bare functions, so what they need is the process's.
struct Completion {
    std::vector<std::string> names;  // that fit the word under way
    bool files;                      // names of files do so, too
    size_t next;
};
Completion g_completion = {};

char *next_name(const char *text, int state)
{
    if (state == 0) {
        g_completion.next = 0;
    }
    const size_t at = g_completion.next++;
    if (at < g_completion.names.size()) {
        return ::strdup(g_completion.names[at].c_str());
    }
    const int file_state = at == g_completion.names.size() ? 0 : 1;
    return g_completion.files ? rl_filename_completion_function(text, file_state) : nullptr;
}

// What stands in front of a place of the line under way, be it the last of a pasted block.
TypedLine typed_up_to(int place)
{
    const std::string_view typed(rl_line_buffer, static_cast<size_t>(place));
    return split_typed(typed.substr(typed.rfind('\n') + 1));
}

char **complete(const char *text, int start, int)
{
    rl_attempted_completion_over = 1;  // file names only where a file can stand
    TypedLine typed = typed_up_to(start);
    if (typed.open_quote && !typed.last.empty()) {
        return nullptr;
    }
    typed.last = text;
    g_completion = {};
    for (const NextWord &word : matching_words(typed)) {
        g_completion.files = g_completion.files || word.name == kFileWord;
        if (!stands_for_many(word) && word.name == visible(word.name)) {
            g_completion.names.push_back(word.name);
        }
    }
    if (g_completion.names.size() == 1 &&
        std::strchr("=:", g_completion.names[0].back()) != nullptr) {
        rl_completion_append_character = '\0';
    }
    return rl_completion_matches(text, next_name);
}

// `?` shows what can stand at the cursor; inside quotes it is a character like any other.
int help_key(int count, int key)
{
    const TypedLine typed = typed_up_to(rl_point);
    if (typed.open_quote) {
        return rl_insert(count, key);
    }
    std::fputs("?\n", rl_outstream);
    show_matching_words(typed);
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

// History of earlier runs and of prompts beside this one. Each line goes to the file at once.
class History {
  public:
    History() : path_(history_path())
    {
        using_history();
        if (!path_.empty()) {
            const Lock lock(path_);
            // A file of its user alone, if there is none: appending makes none.
            const Fd made(::open(path_.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
            read_history(path_.c_str());
            if (history_length > 2 * kHistoryLines) {
                history_truncate_file(path_.c_str(), kHistoryLines);
            }
        }
        stifle_history(kHistoryLines);
    }

    void add(const std::string &line)
    {
        const HIST_ENTRY *last =
            history_length == 0 ? nullptr : history_get(history_base + history_length - 1);
        if (last != nullptr && line == last->line) {
            return;
        }
        add_history(line.c_str());
        if (!path_.empty()) {
            const Lock lock(path_);
            append_history(1, path_.c_str());
        }
    }

  private:
    // The folder, so that no line is lost while another prompt cuts the file.
    class Lock {
      public:
        explicit Lock(const std::filesystem::path &path)
            : folder_(::open(path.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
        {
            ::flock(folder_.get(), LOCK_EX);
        }

      private:
        Fd folder_;  // closing it gives the lock back
    };

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
    rl_filename_quote_characters = " \t\n\"'#";
    rl_variable_bind("expand-tilde", "on");
    rl_bind_key('?', help_key);
    g_history = std::make_unique<History>();
}

Editor::~Editor()
{
    g_history.reset();
}

std::optional<std::vector<std::string>> Editor::read()
{
    const InterruptGuard guard;
    const TypedText typed(::readline(kPrompt), std::free);
    if (typed == nullptr) {
        return std::nullopt;
    }
    std::vector<std::string> lines;
    std::istringstream block(typed.get());
    for (std::string line; std::getline(block, line);) {
        if (!line.empty()) {
            g_history->add(line);
            lines.push_back(line);
        }
    }
    return lines;
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
