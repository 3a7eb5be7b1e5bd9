#include "tools/ldsdk/char_device.h"

#include "tools/ldsdk/error.h"
#include "tools/ldsdk/in_process.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <cerrno>

namespace ldsdk::tool {

namespace {

// The module looks at no request number; this one is no generic request of the kernel's.
constexpr unsigned long kRequest = _IO('L', 1);

}  // namespace

CharDevice::CharDevice(const std::string &path)
    : path_(path), fd_(::open(path.c_str(), O_RDWR | O_CLOEXEC))
{
    if (!fd_.valid()) {
        throw system_error(path_, errno);
    }
}

void CharDevice::device(const CommandBuffer &buffer, Output &)
{
    if (::ioctl(fd_.get(), kRequest, buffer.data()) < 0) {
        throw system_error(path_ + ": the ioctl fails", errno);
    }
}

void CharDevice::chip(std::span<const std::string>, Output &)
{
    throw failed("chip: " + path_ +
                 " is a loaded module; expected a command that begins with micro, as there is no "
                 "chip model behind it");
}

std::vector<NextWord> CharDevice::next_words(std::span<const std::string> path)
{
    return local_next_words(path);
}

}  // namespace ldsdk::tool
