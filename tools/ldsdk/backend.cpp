#include "tools/ldsdk/backend.h"

#include "host/write_file.h"
#include "tools/ldsdk/char_device.h"
#include "tools/ldsdk/chip_commands.h"
#include "tools/ldsdk/error.h"
#include "tools/ldsdk/files.h"
#include "tools/ldsdk/in_process.h"
#include "tools/ldsdk/socket_client.h"

#include <unistd.h>
#include <filesystem>

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
    std::error_code error;
    if (std::filesystem::is_socket(device, error)) {
        throw usage("--device: \"" + device + "\" is a socket; expected unix:" + device);
    }
    return std::make_unique<CharDevice>(device);
}

namespace {

void run_chip(Backend &backend, std::span<const std::string> words, Stdin standard_input,
              ConsoleOutput &output)
{
    NamedFile named = chip_file(words);
    if (named.module && !backend.has_module()) {
        named = {};  // refused, whatever the file
    }
    const auto refuse = [&](const char *why) {
        throw usage(named.command + ": \"-\": " + why + "; expected a file");
    };
    const bool stream = named.name == "-";
    CarriedFile file;
    if (named.use == NamedFile::read) {
        if (stream && standard_input == Stdin::taken) {
            refuse("standard input has the command lines");
        }
        file.in = read_file(named.command, named.name);
    }
    if (named.use != NamedFile::written) {
        backend.chip(words, file, output);
        return;
    }
    if (stream && ::isatty(STDOUT_FILENO) != 0) {
        refuse("standard output is a terminal");
    }
    TextOutput said;  // once the file is there
    backend.chip(words, file, said);
    if (stream) {
        output.write(file.out.value_or(""));
        std::string text = said.take();
        text.erase(text.find_last_not_of('\n') + 1);
        output.tell(text);
        return;
    }
    try {
        host::write_file(named.name, file.out.value_or(""));
    }
    catch (const std::runtime_error &error) {
        throw failed(named.command + ": " + error.what());
    }
    output.write(said.take());
}

}  // namespace

void run_command(Backend &backend, std::span<const std::string> words, Stdin standard_input,
                 ConsoleOutput &output)
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
        run_chip(backend, words, standard_input, output);
        return;
    }
    throw usage("\"" + words[0] +
                "\": unknown first word; expected micro (a command of the module) or chip (a "
                "command of the chip model)");
}

}  // namespace ldsdk::tool
