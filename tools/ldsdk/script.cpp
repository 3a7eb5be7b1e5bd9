#include "tools/ldsdk/script.h"

#include "tools/ldsdk/error.h"
#include "tools/log/fd.h"

#include <fcntl.h>
#include <cerrno>
#include <optional>
#include <string_view>

namespace ldsdk::tool {

namespace {

constexpr std::string_view kByteOrderMark = "\xef\xbb\xbf";  // of UTF-8

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
            const size_t end = bytes_.find('\n', begin_ + looked_at_);
            if (end != bytes_.npos) {
                const std::string_view line(bytes_.data() + begin_, end - begin_);
                begin_ = end + 1;
                looked_at_ = 0;
                return line;
            }
            looked_at_ = bytes_.size() - begin_;
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
    size_t looked_at_ = 0;  // bytes from there on that hold no end of a line
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
    for (uint64_t number = 1; std::optional<std::string_view> line = reader.next(); number++) {
        // Some editors begin a file with this mark.
        if (number == 1 && line->starts_with(kByteOrderMark)) {
            line->remove_prefix(kByteOrderMark.size());
        }
        try {
            if (echo && !line->empty()) {
                const bool comment = line->starts_with('#');
                output.fresh_line();
                output.tell((comment ? "" : "ldsdk> ") + std::string(*line));
            }
            split_line(*line, words);
            run_command(backend, words, from_stdin ? Stdin::taken : Stdin::free, output);
        }
        catch (const Error &error) {
            throw failed(file + ":" + std::to_string(number) + ": " + error.what());
        }
        output.check();
    }
}

}  // namespace ldsdk::tool
