#include "tools/ldsdk/backend.h"

#include "tools/ldsdk/char_device.h"
#include "tools/ldsdk/error.h"
#include "tools/ldsdk/in_process.h"
#include "tools/ldsdk/socket_client.h"

namespace ldsdk::tool {

std::unique_ptr<Backend> open_backend(const std::string &device)
{
    constexpr std::string_view kSocket = "unix:";
    if (device.empty()) {
        return std::make_unique<InProcess>();
    }
    if (device.starts_with(kSocket)) {
        return std::make_unique<SocketClient>(device.substr(kSocket.size()));
    }
    return std::make_unique<CharDevice>(device);
}

void run_command(Backend &backend, std::span<const std::string> words, Output &output)
{
    if (words.empty()) {
        return;
    }
    if (words[0] == "micro") {
        CommandBuffer buffer;
        pack(words, buffer);
        backend.device(buffer, output);
        return;
    }
    if (words[0] == "chip") {
        output.fresh_line();
        backend.chip(words, output);
        return;
    }
    throw usage("\"" + words[0] +
                "\": unknown first word; expected micro (a command of the module) or chip (a "
                "command of the chip model)");
}

}  // namespace ldsdk::tool
