#include "tools/ldsdk/channel_commands.h"

#include "chipmodel/model.h"
#include "host/pcap/capture.h"
#include "sdk/frame/base/service.h"
#include "tools/ldsdk/error.h"

#include <algorithm>
#include <cstdio>

namespace ldsdk::tool {

namespace {

using Arguments = std::span<const std::string>;

constexpr uint64_t kShownPackets = 20;

struct PortName {
    const char *word;
    uint32_t type;
};

constexpr PortName kPortNames[] = {
    {"gpon", 1}, {"epon", 2},     {"adsl", 5},  {"vdsl", 5},  {"ge", 6},
    {"fe", 7},   {"gint", 8},     {"xaui", 9},  {"prbs", 10}, {"loopback", 11},
    {"cpu", 12}, {"bonding", 13}, {"xdsl", 14},
};

// Does the work, and names the command in front of what is wrong.
template <typename Work>
auto with_capture(const std::string &command, Work work)
{
    try {
        return work();
    }
    catch (const Error &) {
        throw;
    }
    catch (const std::runtime_error &error) {
        throw failed(command + ": " + error.what());
    }
}

std::string plural(uint64_t count, const char *what)
{
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

}  // namespace

NpPortID read_port(const std::string &command, const std::string &text)
{
    std::vector<std::string> words;
    for (size_t begin = 0; begin <= text.size();) {
        const size_t end = std::min(text.find(':', begin), text.size());
        words.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    const auto *name = std::find_if(std::begin(kPortNames), std::end(kPortNames),
                                    [&](const PortName &row) { return words[0] == row.word; });
    if (name == std::end(kPortNames) || words.size() > 4) {
        std::string names;
        for (const PortName &row : kPortNames) {
            names += std::string(names.empty() ? "" : ", ") + row.word;
        }
        throw usage(command + ": \"" + text +
                    "\": expected TYPE[:PORT[:SUBPORT[:PRIORITY]]] with a type of " + names);
    }
    uint32_t numbers[3] = {};
    for (size_t at = 1; at < words.size(); at++) {
        numbers[at - 1] = static_cast<uint32_t>(
            read_number(command, words[at], "a number of the port", 0, UINT32_MAX));
    }
    return {name->type, numbers[0], numbers[1], numbers[2]};
}

std::vector<NextWord> port_words()
{
    std::vector<NextWord> words;
    for (const PortName &row : kPortNames) {
        words.push_back({std::string(row.word) + ":", "", false});
    }
    return words;
}

void inject_capture(ChipSession &session, Arguments arguments, Output &output)
{
    const std::string command = "chip inject";
    const uint32_t chip = session.selected();
    const std::string name = arguments.size() > 1 ? arguments[1] : "fe:0";
    const NpPortID port = read_port(command, name);
    uint32_t phy = 0;
    if (Np_PortID2PhyID(chip, &port, &phy) != 0) {
        throw usage(command + ": \"" + name + "\": the chip has no such port");
    }
    const host::FeedResult result = with_capture(
        command, [&] { return host::feed_capture(*session.file().in, arguments[0], chip, phy); });
    output.write(plural(result.fed, "frame") + " fed" +
                 (result.cut != 0 ? ", " + std::to_string(result.cut) + " of them cut short" : "") +
                 "\n");
    if (result.fed != result.frames) {
        throw failed(command + ": the chip refuses frame " + std::to_string(result.fed + 1) +
                     " of " + std::to_string(result.frames) + ": its receive queue is full");
    }
}

void save_capture(ChipSession &session, Arguments, Output &output)
{
    host::SaveResult result = {};
    session.file().out = with_capture(
        "chip capture", [&] { return host::capture_bytes(session.selected(), result); });
    output.write(plural(result.packets, "packet") + " and " + plural(result.messages, "message") +
                 " written, " + std::to_string(result.lost) + " lost\n");
}

void show_channels(ChipSession &session, Arguments, Output &output)
{
    LdDebugCall engine = debug_call(LD_DEBUG_ENGINE);
    session.ask(engine);
    output.write(std::string("auto-send engine ") + (engine.value != 0 ? "on" : "off") + "\n");
    for (uint32_t number = 0; number < model::kAutoChannelNum; number++) {
        LdDebugCall channel = debug_call(LD_DEBUG_CHANNEL, number);
        if (session.ask(channel) != model::kOk) {
            continue;
        }
        char text[96];
        std::snprintf(text, sizeof text, "%3u %-3s period %llu count %u: ", number,
                      channel.value != 0 ? "on" : "off",
                      static_cast<unsigned long long>(channel.wide), channel.number);
        output.write(std::string(text) + channel.text + "\n");
    }
}

void show_sent(ChipSession &session, Arguments arguments, Output &output)
{
    const uint64_t wanted =
        arguments.empty()
            ? kShownPackets
            : read_number("chip sent", arguments[0], "a number of packets", 1, model::kSendPackets);
    LdDebugCall count = debug_call(LD_DEBUG_SENT_COUNT);
    session.ask(count);
    const uint32_t held = count.number;
    for (auto index = held - static_cast<uint32_t>(std::min<uint64_t>(held, wanted)); index < held;
         index++) {
        LdDebugCall packet = debug_call(LD_DEBUG_SENT, index);
        session.ask(packet);
        char text[64];
        std::snprintf(text, sizeof text,
                      "%llu %u bytes: ", static_cast<unsigned long long>(packet.wide),
                      packet.value);
        output.write(std::string(text) + packet.text + "\n");
    }
}

void standin_show(ChipSession &session, Arguments, Output &output)
{
    for (LdDebugCall row = debug_call(LD_DEBUG_STANDIN_COUNT); session.ask(row) == model::kOk;
         row.number++) {
        char text[48];
        std::snprintf(text, sizeof text, "%-15.24s %u\n", row.text, row.value);
        output.write(text);
    }
}

}  // namespace ldsdk::tool
