#include "tools/ldsdk/code_commands.h"

#include "chipmodel/model.h"
#include "host/image.h"
#include "sdk/micro/group.h"
#include "tools/ldsdk/error.h"

#include <cstdio>

namespace ldsdk::tool {

namespace {

using Arguments = std::span<const std::string>;

constexpr uint64_t kShownInstructions = 16;
constexpr uint64_t kAllAtoms = 15;

// Runs what throws the host's errors, with the command's name in front of them.
template <typename Work>
auto with_name(const std::string &command, Work work)
{
    try {
        return work();
    }
    catch (const std::runtime_error &error) {
        throw failed(command + ": " + error.what());
    }
}

// The image that came; what looks wrong about it is said.
std::span<const uint8_t> read_code(ChipSession &session, const std::string &file, Output &output)
{
    const std::string &bytes = *session.file().in;
    const std::span image(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
    if (const std::string missing = host::missing_bytes(image); !missing.empty()) {
        output.write(file + " looks cut short: " + missing + "\n");
    }
    return image;
}

void check(const std::string &command, const std::string &file, uint32_t status)
{
    if (status != 0) {
        char code[16];
        std::snprintf(code, sizeof code, "0x%08x", status);
        throw failed(command + ": " + file + ": the module answers " + code);
    }
}

void traffic_set(ChipSession &session, bool on)
{
    for (uint32_t atom = 0; atom < model::kAtomNum; atom++) {
        LdDebugCall call = debug_call(LD_DEBUG_FEED_SET, atom, on ? 1u : 0);
        session.ask(call);
    }
}

}  // namespace

void load_code(ChipSession &session, Arguments arguments, Output &output)
{
    check("chip load", arguments[0], with_name("chip load", [&] {
              return session.load(read_code(session, arguments[0], output));
          }));
}

void load_code_online(ChipSession &session, Arguments arguments, Output &output)
{
    const auto atoms = static_cast<uint32_t>(
        arguments.size() < 2
            ? kAllAtoms
            : read_number("chip load online", arguments[1], "a bitmap of atoms", 1, kAllAtoms));
    check("chip load online", arguments[0], with_name("chip load online", [&] {
              return host::online_load_image(session.selected(), atoms,
                                             read_code(session, arguments[0], output));
          }));
}

void show_code(ChipSession &session, Arguments arguments, Output &output)
{
    const auto pc =
        static_cast<uint32_t>(read_number("chip disasm", arguments[0], "a PC", 0, NP_PC_NUM - 1));
    const auto count = static_cast<uint32_t>(
        arguments.size() < 2
            ? kShownInstructions
            : read_number("chip disasm", arguments[1], "a count of instructions", 1, NP_PC_NUM));
    const auto word = [&](uint32_t address) { return session.peek(address); };
    output.write(host::code_listing(word, pc, count));
}

void traffic_on(ChipSession &session, Arguments, Output &)
{
    traffic_set(session, true);
}

void traffic_off(ChipSession &session, Arguments, Output &)
{
    traffic_set(session, false);
}

}  // namespace ldsdk::tool
