// The debug tool as a process: commands per second from a script, through a server, and memory.
#include "bench/bench.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace {

using ldsdk::bench::AddTarget;
using Kind = ldsdk::bench::Target::Kind;

pid_t start(const std::vector<std::string> &words)
{
    const pid_t child = fork();
    if (child == 0) {
        if (std::freopen("/dev/null", "w", stdout) == nullptr) {
            _exit(127);
        }
        std::vector<char *> argv;
        for (const std::string &word : words) {
            argv.push_back(const_cast<char *>(word.c_str()));
        }
        argv.push_back(nullptr);
        execv(argv[0], argv.data());
        _exit(127);
    }
    return child;
}

bool finish(pid_t child, rusage *usage)
{
    int status = 0;
    return wait4(child, &status, 0, usage) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

using Line = void (*)(std::ofstream &file, size_t number);

void version_line(std::ofstream &file, size_t)
{
    file << "micro glb version sdk\n";
}

// A static entry for each of 1024 addresses, then the same once more with other data.
void mac_line(std::ofstream &file, size_t number)
{
    char line[160];
    std::snprintf(line, sizeof(line),
                  "micro arl arltbl set ulType 0 ulSvlanID %zu ulVsi 0 aucMacAddr "
                  "00-11-22-33-%02zx-%02zx ulOpCode 0 ulIntfID %zu\n",
                  100 + number % 16, number / 256 % 4, number % 256, number / 2);
    file << line;
}

std::string script(size_t lines, Line line)
{
    const std::string path = "/tmp/ldsdk_bench_" + std::to_string(getpid()) + ".ldsdk";
    std::ofstream file(path);
    for (size_t i = 0; i < lines; i++) {
        line(file, i);
    }
    return path;
}

void run_script(benchmark::State &state, const std::vector<std::string> &options,
                Line line = version_line)
{
    const auto lines = static_cast<size_t>(state.range(0));
    const std::string path = script(lines, line);
    std::vector<std::string> words = {LDSDK_TOOL};
    words.insert(words.end(), options.begin(), options.end());
    words.insert(words.end(), {"--script", path});
    for (auto _ : state) {
        rusage usage = {};
        const auto begin = std::chrono::steady_clock::now();
        const bool good = finish(start(words), &usage);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
        if (!good) {
            state.SkipWithError("the tool fails");
        }
        state.SetIterationTime(time.count() / static_cast<double>(lines));
        state.counters["MiB"] = static_cast<double>(usage.ru_maxrss) / 1024;
    }
    std::remove(path.c_str());
}

void tool_script(benchmark::State &state)
{
    run_script(state, {});
}
BENCHMARK(tool_script)->Arg(2048)->UseManualTime()->Iterations(20);
const AddTarget script_target({Kind::kRateAtLeast, "tool_script/2048", "", 100e3,
                               "script commands per second, start included"});
const AddTarget memory_target({Kind::kCounterAtMost, "tool_script/2048", "MiB", 64,
                               "resident memory of the tool, MiB"});

void tool_mac_script(benchmark::State &state)
{
    run_script(state, {}, mac_line);
}
BENCHMARK(tool_mac_script)->Arg(2048)->UseManualTime()->Iterations(20);
const AddTarget mac_script_target({Kind::kRateAtLeast, "tool_mac_script/2048", "", 100e3,
                                   "MAC entries set by script per second, start included"});

void tool_server(benchmark::State &state)
{
    const std::string path = "/tmp/ldsdk_bench_" + std::to_string(getpid()) + ".sock";
    const pid_t server = start({LDSDK_TOOL, "serve", "--socket", path});
    for (int i = 0; i < 500 && access(path.c_str(), F_OK) != 0; i++) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    run_script(state, {"--device", "unix:" + path});
    kill(server, SIGTERM);
    waitpid(server, nullptr, 0);
    std::remove(path.c_str());
}
BENCHMARK(tool_server)->Arg(100000)->UseManualTime()->Iterations(3);
const AddTarget server_target({Kind::kRateAtLeast, "tool_server/100000", "", 50e3,
                               "round trips per second through the server"});

}  // namespace
