// Starts programs and keeps what they print.
#pragma once

#include <string>
#include <sys/types.h>
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

    std::string path(const std::string &name) const { return path_ + "/" + name; }
    std::string write(const std::string &name, const std::string &text) const;

  private:
    std::string path_;
};

}  // namespace ldsdk::test
