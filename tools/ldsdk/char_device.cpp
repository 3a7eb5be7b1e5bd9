#include "tools/ldsdk/char_device.h"

#include "ldsdk/status.h"
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

// The text of a command is in the log when its ioctl is back, but for what a busy machine holds up.
constexpr int kLogWaitMs = 5000;

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
    : path_(path),
      fd_(::open(path.c_str(), O_RDWR | O_CLOEXEC)),
      model_(path, [this](const std::vector<std::string> &words) { return answer(words); }),
      session_(model_)
{
    if (!fd_.valid()) {
        throw system_error(path_, errno);
    }
}

void CharDevice::device(const CommandBuffer &buffer, Output &output)
{
    const Turn turn(path_, fd_);
    run(buffer, [&](std::string_view text) { output.write(text); });
}

void CharDevice::run(const CommandBuffer &buffer,
                     const std::function<void(std::string_view)> &write)
{
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
        lost = log_->read(write, refused == 0 ? kLogWaitMs : 0);
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

std::string CharDevice::answer(const std::vector<std::string> &words)
{
    std::string text;
    CommandBuffer buffer;
    pack(words, buffer);
    run(buffer, [&](std::string_view piece) { text += piece; });
    return text;
}

void DeviceModel::request(unsigned long number, void *record)
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
    if (::ioctl(fd_.get(), number, record) < 0) {
        throw system_error(path_ + ": the ioctl fails", errno);
    }
}

uint32_t DeviceModel::call(LdDebugCall &call)
{
    request(LD_DEBUG_REQUEST, &call);
    return call.result;
}

uint32_t DeviceModel::load(uint32_t chip, std::span<const uint8_t> image)
{
    // The command loads into the chip that the module works on.
    const std::string current = command_({"micro", "chip", "get"});
    if (!current.ends_with("Current ChipID: " + std::to_string(chip))) {
        throw failed("chip load: the module works on another chip; expected `micro chip set " +
                     std::to_string(chip) + "` before");
    }
    LdDebugImage record = {reinterpret_cast<uintptr_t>(image.data()),
                           static_cast<uint32_t>(image.size()), 0};
    request(LD_DEBUG_IMAGE_REQUEST, &record);
    const std::string text =
        command_({"micro", "atom", "load", "addr", std::to_string(record.address), "len",
                  std::to_string(record.size)});
    // "ulReturn = 0x9a000015(...)" in front of the closing line of a failure.
    constexpr std::string_view kCode = "ulReturn = 0x";
    const size_t at = text.rfind(kCode);
    if (at == text.npos) {
        return text.ends_with("success!") ? 0 : NP_ERR_FAIL;
    }
    return static_cast<uint32_t>(std::stoul(text.substr(at + kCode.size(), 8), nullptr, 16));
}

void CharDevice::chip(std::span<const std::string> words, CarriedFile &file, Output &output)
{
    const Turn turn(path_, fd_);
    session_.run(words, file, output);
}

std::vector<NextWord> CharDevice::next_words(std::span<const std::string> path)
{
    return local_next_words(path);
}

}  // namespace ldsdk::tool
