#include "tools/ldsdk/char_device.h"

#include "tools/ldsdk/error.h"
#include "tools/ldsdk/in_process.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <cerrno>
#include <system_error>

namespace ldsdk::tool {

namespace {

// The module looks at no request number; this one is no generic request of the kernel's.
constexpr unsigned long kRequest = _IO('L', 1);

// The device for one tool alone, while this is there. Another waits, so that neither shows the
// other's text, nor asks the model while the module uses it.
class Turn {
  public:
    Turn(const std::string &path, const Fd &fd) : fd_(fd)
    {
        while (::flock(fd_.get(), LOCK_EX) < 0) {
            if (errno != EINTR) {
                throw system_error(path + ": it can't be locked", errno);
            }
        }
    }
    ~Turn()
    {
        ::flock(fd_.get(), LOCK_UN);
    }
    Turn(const Turn &) = delete;
    Turn &operator=(const Turn &) = delete;

  private:
    const Fd &fd_;
};

}  // namespace

CharDevice::CharDevice(const std::string &path)
    : path_(path), fd_(::open(path.c_str(), O_RDWR | O_CLOEXEC)), model_(path), session_(model_)
{
    if (!fd_.valid()) {
        throw system_error(path_, errno);
    }
}

void CharDevice::device(const CommandBuffer &buffer, Output &output)
{
    const Turn turn(path_, fd_);
    std::string no_log;
    try {
        if (!log_) {
            log_ = KernelLog::open();
        }
        log_->skip();
    }
    catch (const std::system_error &error) {
        no_log = error.what();
    }
    const int refused = ::ioctl(fd_.get(), kRequest, buffer.data()) < 0 ? errno : 0;
    uint64_t lost = 0;
    if (no_log.empty()) {
        lost = log_->read([&](std::string_view text) { output.write(text); });
    }
    if (refused != 0) {
        throw system_error(path_ + ": the ioctl fails", refused);
    }
    if (!no_log.empty()) {
        throw failed("the command ran, but its answer in the kernel log can't be read: " + no_log);
    }
    if (lost != 0) {
        throw failed("the kernel log overran: " + std::to_string(lost) +
                     " of its records are lost; the kernel's log_buf_len=SIZE makes it larger");
    }
}

uint32_t DeviceModel::call(LdDebugCall &call)
{
    if (!fd_.valid()) {
        fd_ = Fd(::open(path_.c_str(), O_RDWR | O_CLOEXEC));
    }
    if (!fd_.valid() && errno == ENOENT) {
        throw failed("chip: there is no " + path_ + ", so no chip model behind " + device_);
    }
    if (!fd_.valid()) {
        throw system_error(path_, errno);
    }
    if (::ioctl(fd_.get(), LD_DEBUG_REQUEST, &call) < 0) {
        throw system_error(path_ + ": the ioctl fails", errno);
    }
    return call.result;
}

void CharDevice::chip(std::span<const std::string> words, Output &output)
{
    const Turn turn(path_, fd_);
    session_.run(words, output);
}

std::vector<NextWord> CharDevice::next_words(std::span<const std::string> path)
{
    return local_next_words(path);
}

}  // namespace ldsdk::tool
