// The kernel log as a reader of what the module prints: /dev/kmsg gives one record per read,
// "priority,sequence,time,flags;text" and a line end, in the text each byte that is not printable
// ASCII, and the backslash, as \xHH (Documentation/ABI/testing/dev-kmsg of the kernel).
#pragma once

#include "tools/log/fd.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace ldsdk::tool {

struct LogRecord {
    uint64_t sequence;
    // What the module printed: a whole line with its end, or a piece of one. Nothing in a record of
    // somebody else.
    std::optional<std::string> text;
    bool last;  // of a command
};

// Takes a record apart; nothing when it is none.
std::optional<LogRecord> read_log_record(std::string_view record);

class KernelLog {
  public:
    // fd: non-blocking, a record per read.
    explicit KernelLog(Fd fd) : fd_(std::move(fd)) {}
    // The log of this machine, from now on. Throws std::system_error.
    static KernelLog open();

    // Forgets what has come so far.
    void skip();
    // Hands on what the module printed and has not been read. Returns how many records, of whoever,
    // the kernel dropped before they were read. With wait_ms, up to the last record of a command,
    // for which it waits as long, as others' records in front of it may come late: one that does
    // not come counts as dropped. Throws std::system_error.
    uint64_t read(const std::function<void(std::string_view)> &write, int wait_ms = 0);

  private:
    Fd fd_;
    std::optional<uint64_t> next_;  // sequence number that is due
};

}  // namespace ldsdk::tool
