#include "tools/ldsdk/script.h"

#include "tools/ldsdk/error.h"
#include "tools/ldsdk/fd.h"

#include <fcntl.h>
#include <cerrno>
#include <cstring>
#include <optional>
#include <string_view>

namespace ldsdk::tool {

namespace {

// Lines of a file descriptor.
class LineReader {
  public:
    LineReader(int fd, const std::string &name, ConsoleOutput &output)
        : fd_(fd), name_(name), output_(output)
    {
    }

    // The next line without its end; valid until the next call. The last line needs no end.
    std::optional<std::string_view> next()
    {
        while (true) {
            const char *begin = bytes_.data() + begin_;
            // NOLINTNEXTLINE(bugprone-not-null-terminated-result): a file has no NUL
            const void *end = std::memchr(begin, '\n', bytes_.size() - begin_);
            if (end != nullptr) {
                const auto length = static_cast<size_t>(static_cast<const char *>(end) - begin);
                begin_ += length + 1;
                return std::string_view(begin, length);
            }
            if (!fill()) {
                break;
            }
        }
        if (begin_ == bytes_.size()) {
            return std::nullopt;
        }
        const std::string_view last(bytes_.data() + begin_, bytes_.size() - begin_);
        begin_ = bytes_.size();
        return last;
    }

  private:
    static constexpr size_t kPiece = 64 * 1024;

    // False at the end. Shows what was printed so far: whoever feeds us may wait for it.
    bool fill()
    {
        output_.flush();
        bytes_.erase(0, begin_);
        begin_ = 0;
        const size_t held = bytes_.size();
        bytes_.resize(held + kPiece);
        ssize_t done = 0;
        do {
            done = ::read(fd_, bytes_.data() + held, kPiece);
        } while (done < 0 && errno == EINTR);
        if (done < 0) {
            throw system_error(name_, errno);
        }
        bytes_.resize(held + static_cast<size_t>(done));
        return done != 0;
    }

    int fd_;
    const std::string &name_;
    ConsoleOutput &output_;
    std::string bytes_;
    size_t begin_ = 0;
};

}  // namespace

void run_script(Backend &backend, const std::string &file, bool echo, ConsoleOutput &output)
{
    const bool from_stdin = file == "-";
    const Fd fd(from_stdin ? -1 : ::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (!from_stdin && !fd.valid()) {
        throw system_error(file + ": the script can't be read", errno);
    }
    LineReader reader(from_stdin ? STDIN_FILENO : fd.get(), file, output);
    Words words;
    for (uint64_t number = 1; const std::optional<std::string_view> line = reader.next();
         number++) {
        try {
            if (echo && !line->empty()) {
                const bool comment = line->starts_with('#');
                output.fresh_line();
                output.tell((comment ? "" : "ldsdk> ") + std::string(*line));
            }
            split_line(*line, words);
            run_command(backend, words, output);
        }
        catch (const Error &error) {
            throw failed(file + ":" + std::to_string(number) + ": " + error.what());
        }
        output.check();
    }
}

}  // namespace ldsdk::tool
