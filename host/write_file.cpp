#include "host/write_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace ldsdk::host {

namespace {

namespace fs = std::filesystem;

constexpr int kMostLinks = 40;  // as the system follows
constexpr mode_t kNewMode = 0666;
constexpr mode_t kKeptMode = 0777;

void check(const std::string &name, int code)
{
    if (code != 0) {
        throw std::runtime_error(name + ": " + std::generic_category().message(code));
    }
}

void refuse_input(const std::string &name, const struct stat &output, const std::string &input)
{
    struct stat info = {};
    if (input.empty() || (!S_ISREG(output.st_mode) && !S_ISBLK(output.st_mode)) ||
        (input == "-" ? ::fstat(STDIN_FILENO, &info) : ::stat(input.c_str(), &info)) != 0) {
        return;
    }
    if (info.st_dev == output.st_dev && info.st_ino == output.st_ino) {
        throw std::runtime_error(name + ": is the input; expected another file");
    }
}

// Where a name leads. Nothing for a descriptor's name, such as /dev/stdout: what it stands for is
// open elsewhere and must stay the same file.
std::optional<fs::path> behind_links(const std::string &name)
{
    std::error_code error;
    fs::path path = fs::absolute(name, error);
    check(name, error.value());
    for (int links = 0; links < kMostLinks; links++) {
        if (!fs::is_symlink(fs::symlink_status(path, error))) {
            return path;
        }
        const fs::path folder = fs::canonical(path.parent_path(), error);
        check(name, error.value());
        if (folder.native().starts_with("/proc/")) {
            return std::nullopt;
        }
        path = folder / fs::read_symlink(path, error);
        check(name, error.value());
    }
    check(name, ELOOP);
    return std::nullopt;
}

int write_and_close(int fd, std::string_view text)
{
    const int code = write_all(fd, text);
    return ::close(fd) != 0 && code == 0 ? errno : code;
}

// Appending, so that a file which somebody holds open loses nothing.
void write_into(const std::string &name, std::string_view text)
{
    const int fd = ::open(name.c_str(), O_WRONLY | O_APPEND | O_NOCTTY | O_CLOEXEC);
    check(name, fd < 0 ? errno : write_and_close(fd, text));
}

void replace(const std::string &name, const fs::path &target, std::string_view text,
             const struct stat *old)
{
    if (old != nullptr && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
        check(name, errno);
    }
    std::string part = target.parent_path() / ".ldsdk-XXXXXX";
    // The mask can only be read by setting it.
    const mode_t mask = ::umask(077);
    const int fd = ::mkostemp(part.data(), O_CLOEXEC);
    const int failed = fd < 0 ? errno : 0;
    ::umask(mask);
    check(name, failed);
    int code = 0;
    // Only root can give a file away; a file of another's becomes the writer's own else.
    if (old != nullptr && ::fchown(fd, old->st_uid, old->st_gid) != 0 && errno != EPERM) {
        code = errno;
    }
    if (::fchmod(fd, old != nullptr ? old->st_mode & kKeptMode : kNewMode & ~mask) != 0) {
        code = errno;
    }
    const int written = write_and_close(fd, text);
    code = code != 0 ? code : written;
    if (code == 0 && ::rename(part.c_str(), target.c_str()) != 0) {
        code = errno;
    }
    if (code != 0) {
        ::unlink(part.c_str());
    }
    check(name, code);
}

}  // namespace

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

void write_file(const std::string &name, std::string_view text, const std::string &input)
{
    struct stat info = {};
    if (name == "-") {
        constexpr char kStdout[] = "standard output";
        if (::fstat(STDOUT_FILENO, &info) == 0) {
            refuse_input(kStdout, info, input);
        }
        check(kStdout, write_all(STDOUT_FILENO, text));
        return;
    }
    const bool exists = ::stat(name.c_str(), &info) == 0;
    check(name, exists || errno == ENOENT ? 0 : errno);
    if (exists) {
        refuse_input(name, info, input);
    }
    std::optional<fs::path> target;
    if (!exists || S_ISREG(info.st_mode)) {
        target = behind_links(name);
    }
    if (target) {
        replace(name, *target, text, exists ? &info : nullptr);
    }
    else {
        write_into(name, text);
    }
}

}  // namespace ldsdk::host
