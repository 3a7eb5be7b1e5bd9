#include "tools/log/kernel_log.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>
#include <array>
#include <cerrno>
#include <charconv>
#include <system_error>

namespace ldsdk::tool {

namespace {

// The kernel's limit of a record with its escapes (CONSOLE_EXT_LOG_MAX).
constexpr size_t kRecordSize = 8192;

// In front of what the module prints (platform/linux/os.c).
constexpr std::string_view kWholeLine = "ldsdk: ";
constexpr std::string_view kPiece = "ldsdk+ ";
constexpr std::string_view kLastPiece = "ldsdk. ";

std::optional<char> escaped_byte(std::string_view text)
{
    uint8_t value = 0;
    if (text.size() < 4 || text[0] != '\\' || text[1] != 'x') {
        return std::nullopt;
    }
    const auto end = text.data() + 4;
    const auto [stop, error] = std::from_chars(text.data() + 2, end, value, 16);
    if (error != std::errc() || stop != end) {
        return std::nullopt;
    }
    return static_cast<char>(value);
}

std::string unescape(std::string_view text)
{
    std::string plain;
    plain.reserve(text.size() + 1);
    while (!text.empty()) {
        const std::optional<char> byte = escaped_byte(text);
        plain += byte.value_or(text[0]);
        text.remove_prefix(byte ? 4 : 1);
    }
    return plain;
}

}  // namespace

std::optional<LogRecord> read_log_record(std::string_view record)
{
    const size_t comma = record.find(',');
    const size_t text_at = record.find(';');
    if (comma == record.npos || text_at == record.npos || comma > text_at) {
        return std::nullopt;
    }
    LogRecord result = {};
    const char *end = record.data() + text_at;
    const auto [stop, error] = std::from_chars(record.data() + comma + 1, end, result.sequence);
    if (error != std::errc() || *stop != ',') {
        return std::nullopt;
    }
    // Lines behind the first are the record's properties.
    std::string_view text = record.substr(text_at + 1);
    text = text.substr(0, text.find('\n'));
    if (text.starts_with(kWholeLine)) {
        result.text = unescape(text.substr(kWholeLine.size())) + "\n";
    }
    else if (text.starts_with(kPiece) || text.starts_with(kLastPiece)) {
        result.text = unescape(text.substr(kPiece.size()));
        result.last = text.starts_with(kLastPiece);
    }
    return result;
}

KernelLog KernelLog::open()
{
    Fd fd(::open("/dev/kmsg", O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!fd.valid()) {
        throw std::system_error(errno, std::generic_category(), "/dev/kmsg");
    }
    KernelLog log(std::move(fd));
    log.skip();
    return log;
}

void KernelLog::skip()
{
    if (::lseek(fd_.get(), 0, SEEK_END) < 0) {
        throw std::system_error(errno, std::generic_category(), "/dev/kmsg");
    }
    next_.reset();
}

uint64_t KernelLog::read(const std::function<void(std::string_view)> &write, int wait_ms)
{
    std::array<char, kRecordSize> bytes;
    uint64_t lost = 0;
    bool dropped = false;  // and not counted yet
    while (true) {
        const ssize_t size = ::read(fd_.get(), bytes.data(), bytes.size());
        if (size < 0 && errno == EPIPE) {
            dropped = true;
            continue;
        }
        if (size < 0 && errno == EINTR) {
            continue;
        }
        if (size < 0 && errno != EAGAIN) {
            throw std::system_error(errno, std::generic_category(), "/dev/kmsg");
        }
        if (size <= 0 && wait_ms != 0) {
            pollfd more = {fd_.get(), POLLIN, 0};
            if (::poll(&more, 1, wait_ms) > 0) {
                continue;
            }
            dropped = true;
        }
        if (size <= 0) {
            return lost + (dropped ? 1 : 0);
        }
        const std::optional<LogRecord> record =
            read_log_record({bytes.data(), static_cast<size_t>(size)});
        if (!record) {
            continue;
        }
        if (next_ && record->sequence > *next_) {
            lost += record->sequence - *next_;
            dropped = false;
        }
        next_ = record->sequence + 1;
        if (record->text) {
            write(*record->text);
        }
        if (record->last && wait_ms != 0) {
            return lost + (dropped ? 1 : 0);
        }
    }
}

}  // namespace ldsdk::tool
