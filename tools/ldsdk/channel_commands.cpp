#include "tools/ldsdk/channel_commands.h"

#include "chipmodel/model.h"
#include "host/pcap/capture.h"
#include "sdk/frame/service.h"
#include "tools/ldsdk/error.h"

#include <algorithm>
#include <cstdio>
#include <utility>

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

// "ge:3", "vdsl:1:32", "xaui:0:5:1": type, port, sub-port, priority; what is missing is 0.
uint32_t read_port(uint32_t chip, const std::string &command, const std::string &text)
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
    const NpPortID port = {name->type, numbers[0], numbers[1], numbers[2]};
    uint32_t phy = 0;
    if (Np_PortID2PhyID(chip, &port, &phy) != 0) {
        throw usage(command + ": \"" + text + "\": the chip has no such port");
    }
    return phy;
}

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

std::string decoded(const uint32_t head[2], const uint8_t *data, uint32_t length)
{
    char text[512];
    model::packet_format(head, data, length, text, sizeof text);
    return text;
}

}  // namespace

void inject_capture(ChipSession &session, Arguments arguments, Output &output)
{
    const std::string command = "chip inject";
    const uint32_t chip = session.selected();
    const uint32_t phy = read_port(chip, command, arguments.size() > 1 ? arguments[1] : "fe:0");
    const host::FeedResult result =
        with_capture(command, [&] { return host::feed_capture(arguments[0], chip, phy); });
    output.write(plural(result.fed, "frame") + " fed" +
                 (result.cut != 0 ? ", " + std::to_string(result.cut) + " of them cut short" : "") +
                 "\n");
    if (result.fed != result.frames) {
        throw failed(command + ": the chip refuses frame " + std::to_string(result.fed + 1) +
                     " of " + std::to_string(result.frames) + ": its receive queue is full");
    }
}

void save_capture(ChipSession &session, Arguments arguments, Output &output)
{
    const host::SaveResult result = with_capture(
        "chip capture", [&] { return host::save_capture(arguments[0], session.selected()); });
    output.write(plural(result.packets, "packet") + " and " + plural(result.messages, "message") +
                 " written, " + std::to_string(result.lost) + " lost\n");
}

void show_channels(ChipSession &session, Arguments, Output &output)
{
    const uint32_t chip = session.selected();
    output.write(std::string("auto-send engine ") +
                 (model::auto_send_enabled(chip) ? "on" : "off") + "\n");
    for (uint32_t number = 0; number < model::kAutoChannelNum; number++) {
        model::AutoChannel channel = {};
        if (model::auto_channel_get(chip, number, &channel) != 0 || !channel.set) {
            continue;
        }
        char text[96];
        std::snprintf(text, sizeof text, "%3u %-3s period %llu count %u: ", number,
                      channel.on ? "on" : "off", static_cast<unsigned long long>(channel.period),
                      channel.count);
        output.write(text + decoded(channel.head, channel.body, channel.length) + "\n");
    }
}

void show_sent(ChipSession &session, Arguments arguments, Output &output)
{
    const uint32_t chip = session.selected();
    const uint64_t wanted =
        arguments.empty()
            ? kShownPackets
            : read_number("chip sent", arguments[0], "a number of packets", 1, model::kSendPackets);
    const uint32_t held = model::sent_count(chip);
    for (auto index = held - static_cast<uint32_t>(std::min<uint64_t>(held, wanted)); index < held;
         index++) {
        model::Packet packet = {};
        model::sent_get(chip, index, &packet);
        char text[64];
        std::snprintf(text, sizeof text,
                      "%llu %u bytes: ", static_cast<unsigned long long>(packet.tick),
                      packet.length);
        output.write(text + decoded(packet.head, packet.data, packet.length) + "\n");
    }
}

void standin_on(ChipSession &session, Arguments, Output &)
{
    model::standin_set(session.selected(), true);
}

void standin_off(ChipSession &session, Arguments, Output &)
{
    model::standin_set(session.selected(), false);
}

void standin_show(ChipSession &session, Arguments, Output &output)
{
    model::StandinCounts counts = {};
    model::standin_counts_get(session.selected(), &counts);
    const std::pair<const char *, uint32_t> rows[] = {
        {"packets", counts.packets},
        {"messages", counts.messages},
        {"unknown", counts.unknown},
        {"looped", counts.looped},
        {"learned", counts.learned},
        {"learn refused", counts.learn_refused},
        {"age walks", counts.age_walks},
        {"aged", counts.aged},
        {"force aged", counts.force_aged},
        {"heartbeats", counts.heartbeats},
        {"heartbeats lost", counts.heartbeats_lost},
    };
    for (const auto &[name, value] : rows) {
        char text[48];
        std::snprintf(text, sizeof text, "%-15s %u\n", name, value);
        output.write(text);
    }
}

void loop_on(ChipSession &session, Arguments, Output &)
{
    model::standin_loop_set(session.selected(), true);
}

void loop_off(ChipSession &session, Arguments, Output &)
{
    model::standin_loop_set(session.selected(), false);
}

}  // namespace ldsdk::tool
