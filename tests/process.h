// Starts programs and keeps what they print.
#pragma once

#include <spawn.h>
#include <sys/mman.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace ldsdk::test {

struct Finished {
    int status;  // the exit status, or 128 + the signal that ended it
    std::string out;
    std::string err;
};

// A program under way. It is ended when this goes.
class Process {
  public:
    // Starts arguments[0], searched in PATH, with `input` as its standard input. A stdout_fd of
    // zero or more becomes its standard output, which Finished::out then doesn't have.
    explicit Process(const std::vector<std::string> &arguments, const std::string &input = "",
                     int stdout_fd = -1);
    ~Process();
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;

    void signal(int number) const;
    Finished wait();
    // What it has printed on standard error so far.
    std::string err() const;

  private:
    int in_;
    int out_;
    int err_;
    pid_t pid_ = -1;
};

inline Finished run(const std::vector<std::string> &arguments, const std::string &input = "")
{
    return Process(arguments, input).wait();
}

// A folder of its own that goes with the object.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder &) = delete;
    TempFolder &operator=(const TempFolder &) = delete;

    std::string path(const std::string &name) const
    {
        return path_ + "/" + name;
    }
    std::string write(const std::string &name, const std::string &text) const;

  private:
    std::string path_;
};

inline int memory_file(const std::string &content)
{
    const int fd = ::memfd_create("test", MFD_CLOEXEC);
    if (fd < 0 ||
        ::pwrite(fd, content.data(), content.size(), 0) != static_cast<ssize_t>(content.size())) {
        throw std::runtime_error("memfd");
    }
    return fd;
}

inline std::string content_of(int fd)
{
    std::string text(static_cast<size_t>(::lseek(fd, 0, SEEK_END)), '\0');
    const ssize_t size = ::pread(fd, text.data(), text.size(), 0);
    text.resize(size < 0 ? 0 : static_cast<size_t>(size));
    return text;
}

inline Process::Process(const std::vector<std::string> &arguments, const std::string &input,
                        int stdout_fd)
    : in_(memory_file(input)), out_(memory_file("")), err_(memory_file(""))
{
    std::vector<char *> argv;
    for (const std::string &argument : arguments) {
        argv.push_back(const_cast<char *>(argument.c_str()));
    }
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, in_, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, stdout_fd < 0 ? out_ : stdout_fd, STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, err_, STDERR_FILENO);
    const int status = ::posix_spawnp(&pid_, argv[0], &actions, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (status != 0) {
        throw std::runtime_error(arguments[0] + ": " + std::strerror(status));
    }
}

inline Process::~Process()
{
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        wait();
    }
    ::close(in_);
    ::close(out_);
    ::close(err_);
}

inline void Process::signal(int number) const
{
    ::kill(pid_, number);
}

inline Finished Process::wait()
{
    int status = 0;
    ::waitpid(pid_, &status, 0);
    pid_ = -1;
    const int code = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return {code, content_of(out_), content_of(err_)};
}

inline std::string Process::err() const
{
    return content_of(err_);
}

inline TempFolder::TempFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "ldsdk-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error(name);
    }
    path_ = name;
}

inline TempFolder::~TempFolder()
{
    std::error_code error;
    std::filesystem::remove_all(path_, error);
}

inline std::string TempFolder::write(const std::string &name, const std::string &text) const
{
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
}

}  // namespace ldsdk::test
