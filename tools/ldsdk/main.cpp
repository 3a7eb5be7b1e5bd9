// ldsdk: the debug tool.
#include "ldsdk/host.h"
#include "tools/ldsdk/backend.h"
#include "tools/ldsdk/error.h"
#include "tools/ldsdk/options.h"
#include "tools/ldsdk/repl.h"
#include "tools/ldsdk/script.h"
#include "tools/ldsdk/server.h"

#include <unistd.h>
#include <csignal>
#include <exception>

using namespace ldsdk::tool;

namespace {

void run(const Options &options, ConsoleOutput &output)
{
    for (const std::string &name : options.family) {
        if (ldsdk_family_option(name.c_str(), 1) != LDSDK_HOST_OK) {
            throw usage("--option " + name + ": expected acl");
        }
    }
    if (options.mode == Mode::serve) {
        serve(options.socket);
        return;
    }
    const bool on_terminal = ::isatty(STDIN_FILENO) != 0;
    const std::unique_ptr<Backend> backend = open_backend(options.device);
    if (options.mode == Mode::one_shot) {
        run_command(*backend, options.words, Stdin::free, output);
        return;
    }
    if (options.mode == Mode::script) {
        run_script(*backend, options.script, options.echo, output);
    }
    else if (!on_terminal) {
        run_script(*backend, "-", false, output);
    }
    const bool prompt_follows = options.interactive && ::isatty(STDOUT_FILENO) != 0;
    if (on_terminal && (options.mode == Mode::prompt || prompt_follows)) {
        run_prompt(*backend, output);
    }
}

// Runs, shows what goes wrong in one line, and gives the exit status.
int guarded(int argc, char **argv, ConsoleOutput &output)
{
    try {
        if (const std::optional<Options> options = read_options(argc, argv)) {
            run(*options, output);
            output.flush();
            output.check();
        }
        return kExitOk;
    }
    catch (const Error &error) {
        if (error.what()[0] != '\0') {
            output.tell(std::string("ldsdk: ") + error.what());
        }
        return error.exit_status();
    }
    catch (const std::exception &error) {
        output.tell(std::string("ldsdk: ") + error.what());
        return kExitFailed;
    }
}

}  // namespace

int main(int argc, char **argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    ConsoleOutput output;
    const int status = guarded(argc, argv, output);
    // On a terminal the shell's prompt gets a line of its own.
    if (::isatty(STDOUT_FILENO) != 0) {
        output.fresh_line();
    }
    output.flush();
    return status;
}
