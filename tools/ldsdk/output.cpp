#include "tools/ldsdk/output.h"

#include "tools/ldsdk/error.h"

#include <unistd.h>
#include <cerrno>

namespace ldsdk::tool {

namespace {

// 0, or the errno of the write that failed.
int write_all(int fd, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t done = ::write(fd, text.data(), text.size());
        if (done < 0 && errno != EINTR) {
            return errno;
        }
        text.remove_prefix(done < 0 ? 0 : static_cast<size_t>(done));
    }
    return 0;
}

}  // namespace

void Output::note_line_end()
{
    // The module ends lines with "\n\r" as well as with "\r\n".
    const size_t last = text_.find_last_not_of('\r');
    if (last != text_.npos) {
        line_open_ = text_[last] != '\n';
    }
}

void Output::fresh_line()
{
    note_line_end();
    if (line_open_) {
        write("\n");
    }
}

void Output::flush() noexcept
{
    if (text_.empty()) {
        return;
    }
    note_line_end();
    pass_on(text_);
    text_.clear();
}

void ConsoleOutput::pass_on(std::string_view text) noexcept
{
    if (error_ == 0) {
        error_ = write_all(STDOUT_FILENO, text);
    }
}

void ConsoleOutput::check() const
{
    if (error_ == EPIPE) {
        throw failed("");
    }
    if (error_ != 0) {
        throw system_error("standard output", error_);
    }
}

void ConsoleOutput::tell(const std::string &text)
{
    if (::isatty(STDOUT_FILENO)) {
        fresh_line();
    }
    flush();
    write_all(STDERR_FILENO, text + "\n");
}

}  // namespace ldsdk::tool
