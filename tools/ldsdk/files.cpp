#include "tools/ldsdk/files.h"

#include "tools/ldsdk/error.h"
#include "tools/log/fd.h"

#include <fcntl.h>
#include <cerrno>

namespace ldsdk::tool {

namespace {

// Retries what a signal interrupted; throws what else fails.
template <typename Call>
auto checked(const std::string &what, Call call)
{
    while (true) {
        const auto result = call();
        if (result >= 0) {
            return result;
        }
        if (errno != EINTR) {
            throw system_error(what, errno);
        }
    }
}

}  // namespace

std::string read_file(const std::string &command, const std::string &name)
{
    constexpr size_t kPiece = 64 * 1024;
    const std::string what = command + ": " + name;
    const bool from_stdin = name == "-";
    const Fd fd(from_stdin ? -1 : checked(what, [&] {
        return ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
    }));
    std::string bytes;
    size_t held = 0;
    while (held <= kMaxFile) {
        bytes.resize(held + kPiece);
        const auto done = static_cast<size_t>(checked(what, [&] {
            return ::read(from_stdin ? STDIN_FILENO : fd.get(), bytes.data() + held, kPiece);
        }));
        held += done;
        bytes.resize(held);
        if (done == 0) {
            return bytes;
        }
    }
    throw failed(what + ": more than " + std::to_string(kMaxFile) +
                 " bytes; expected at most so many");
}

}  // namespace ldsdk::tool
