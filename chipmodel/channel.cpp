#include "chipmodel/channel.h"

#include "chipmodel/bytes.h"
#include "chipmodel/chip.h"

namespace ldsdk::model {

namespace {

// Receive statistics.
enum : uint32_t {
    kTakenHigh = 0,  // packets that came into the queue
    kTakenLow = 1,
    kDelivered = 2,       // packets that the processor fetched
    kDeliveredBytes = 3,  // and their bytes
    kDropHigh = 4,
    kDropLow = 5,
};

// Packet type of a forwarded packet that goes to the processor.
constexpr uint32_t kPtypeCpu = 2;

// The stand-in takes what waits.
void feed_microcode(Chip &chip)
{
    while (!chip.standin.off && chip.channel.send.waiting() != 0) {
        standin_take(chip, chip.channel.send.take());
    }
}

constexpr uint32_t kPaceBurst = 16;  // packets between two looks at the pace

void fire(Chip &chip, AutoChannel &channel)
{
    channel.count++;
    if (!chip.standin.off) {
        standin_take(
            chip, {channel.due, {channel.head[0], channel.head[1]}, channel.body, channel.length});
    }
    channel.due += channel.period;
}

template <typename Work>
uint32_t with_chip(uint32_t id, Work work)
{
    Chip *chip = chip_find(id);
    return chip == nullptr ? kErrNoChip : work(*chip);
}

}  // namespace

void channel_power_on(Chip &chip)
{
    chip.channel.send.clear();
    chip.channel.receive.clear();
    __builtin_memset(chip.channel.automatic, 0, sizeof chip.channel.automatic);
    chip.channel.auto_enabled = false;
}

void channel_tick(Chip &chip, uint64_t)
{
    if (!chip.channel.auto_enabled) {
        return;
    }
    AutoChannel *const channels = chip.channel.automatic;
    uint8_t active[kAutoChannelNum];
    uint32_t num = 0;
    for (uint32_t channel = 0; channel < kAutoChannelNum; channel++) {
        if (channels[channel].on) {
            active[num++] = static_cast<uint8_t>(channel);
        }
    }
    // In the order of their times; at one time the lower channel first.
    for (uint32_t burst = 0; num != 0; burst++) {
        // cppcheck-suppress uninitvar; num is not 0
        AutoChannel *next = &channels[active[0]];
        for (uint32_t at = 1; at < num; at++) {
            if (channels[active[at]].due < next->due) {
                next = &channels[active[at]];
            }
        }
        if (next->due > chip.now()) {
            return;
        }
        if (burst == kAutoBurst || (burst % kPaceBurst == kPaceBurst - 1 && !go_on())) {
            break;
        }
        fire(chip, *next);
    }
    for (uint32_t at = 0; at < num; at++) {
        channels[active[at]].due = chip.now() + channels[active[at]].period;
    }
}

uint32_t channel_send(Chip &chip, const uint32_t head[2], const uint8_t *data, uint32_t length)
{
    if (length > kPacketBytes) {
        return kErrParam;
    }
    if (!chip.channel.send.put(chip.now(), head, nullptr, 0, data, length)) {
        return kErrFull;
    }
    feed_microcode(chip);
    return kOk;
}

uint32_t channel_deliver(Chip &chip, const uint32_t head[2], const uint8_t *lead,
                         uint32_t lead_length, const uint8_t *data, uint32_t length, bool high)
{
    if (length > kPacketBytes + kExtensionBytes - lead_length) {
        return kErrParam;
    }
    auto &queue = chip.channel.receive;
    uint32_t *stat = chip.stat.of(StatBlock::kReceive);
    const bool reserved = queue.waiting() >= kReceivePackets / 4 * 3 ||
                          queue.waiting_bytes() + lead_length + length > kReceiveBytes / 4 * 3;
    if ((reserved && !high) || !queue.put(chip.now(), head, lead, lead_length, data, length)) {
        stat[high ? kDropHigh : kDropLow]++;
        return kErrFull;
    }
    stat[high ? kTakenHigh : kTakenLow]++;
    return kOk;
}

Packet channel_fetch(Chip &chip)
{
    const Packet packet = chip.channel.receive.take();
    uint32_t *stat = chip.stat.of(StatBlock::kReceive);
    stat[kDelivered]++;
    stat[kDeliveredBytes] += packet.length;
    standin_fetched(chip, packet);
    return packet;
}

void auto_engine_set(Chip &chip, bool on)
{
    // What stood still begins its period anew.
    for (AutoChannel &channel : chip.channel.automatic) {
        if (on && !chip.channel.auto_enabled) {
            channel.due = chip.now() + channel.period;
        }
    }
    chip.channel.auto_enabled = on;
}

uint32_t auto_channel_switch(Chip &chip, AutoChannel &channel, bool on)
{
    if (on && !channel.set) {
        return kErrAutoEnable;
    }
    if (on && !channel.on) {
        channel.due = chip.now() + channel.period;
    }
    channel.on = on;
    return kOk;
}

void channel_receive_head(const FrameSource &info, uint32_t header_words, uint32_t head[2])
{
    head[0] =
        3u << 29 | (info.ptype & 0x7ff) << 13 | (info.tag_info & 3) << 10 | (info.phy & 0x3ff);
    head[1] = (info.encap & 0xf) << 28 | (info.vlan & 0xfff) << 16 | (header_words & 0xf) << 12 |
              (info.flow & 0xfff);
}

uint32_t channel_deliver_frame(Chip &chip, const FrameSource &info, const uint8_t *data,
                               uint32_t length)
{
    uint32_t head[2];
    uint8_t extension[4];
    channel_receive_head(info, 3, head);
    store_be32(extension, (info.extra & 0xfff) << 16);
    return channel_deliver(chip, head, extension, sizeof extension, data, length, false);
}

// ---- traffic.h ----------------------------------------------------------------------------------

uint32_t receive_put(uint32_t chip, const uint32_t head[2], const uint8_t *data, uint32_t length,
                     bool high)
{
    return with_chip(chip, [&](Chip &found) {
        if (head == nullptr || (data == nullptr && length != 0)) {
            return kErrNull;
        }
        return channel_deliver(found, head, nullptr, 0, data, length, high);
    });
}

uint32_t receive_put_frame(uint32_t chip, const FrameSource &info, const uint8_t *data,
                           uint32_t length)
{
    return with_chip(chip, [&](Chip &found) {
        if (data == nullptr && length != 0) {
            return kErrNull;
        }
        return channel_deliver_frame(found, info, data, length);
    });
}

FrameSource frame_source(const uint8_t *data, uint32_t length, uint32_t phy)
{
    FrameSource source = {};
    source.ptype = kPtypeCpu;
    source.phy = phy;
    for (uint32_t at = 12; source.tag_info < 2 && at + 4 <= length; at += 4) {
        const uint32_t type = data[at] << 8 | data[at + 1];
        if (type != 0x8100 && type != 0x88a8 && type != 0x9100) {
            break;
        }
        if (source.tag_info++ == 0) {
            source.vlan = (data[at + 2] << 8 | data[at + 3]) & 0xfff;
        }
    }
    return source;
}

uint32_t receive_waiting(uint32_t chip)
{
    const Chip *found = chip_find(chip);
    return found == nullptr ? 0 : found->channel.receive.waiting();
}

uint32_t send_waiting(uint32_t chip)
{
    const Chip *found = chip_find(chip);
    return found == nullptr ? 0 : found->channel.send.waiting();
}

uint32_t send_take(uint32_t chip, Packet *packet)
{
    return with_chip(chip, [&](Chip &found) {
        if (packet == nullptr) {
            return kErrNull;
        }
        if (found.channel.send.waiting() == 0) {
            return kErrEmpty;
        }
        *packet = found.channel.send.take();
        return kOk;
    });
}

uint32_t sent_count(uint32_t chip)
{
    const Chip *found = chip_find(chip);
    return found == nullptr ? 0 : found->channel.send.held();
}

uint64_t sent_lost(uint32_t chip)
{
    const Chip *found = chip_find(chip);
    return found == nullptr ? 0 : found->channel.send.lost();
}

uint32_t sent_get(uint32_t chip, uint32_t index, Packet *packet)
{
    return with_chip(chip, [&](Chip &found) {
        if (packet == nullptr) {
            return kErrNull;
        }
        if (index >= found.channel.send.held()) {
            return kErrParam;
        }
        *packet = found.channel.send.held_at(index);
        return kOk;
    });
}

uint32_t auto_channel_get(uint32_t chip, uint32_t channel, AutoChannel *state)
{
    return with_chip(chip, [&](Chip &found) {
        if (state == nullptr || channel >= kAutoChannelNum) {
            return state == nullptr ? kErrNull : kErrParam;
        }
        *state = found.channel.automatic[channel];
        return kOk;
    });
}

bool auto_send_enabled(uint32_t chip)
{
    const Chip *found = chip_find(chip);
    return found != nullptr && found->channel.auto_enabled;
}

uint32_t standin_set(uint32_t chip, bool on)
{
    return with_chip(chip, [&](Chip &found) {
        found.standin.off = !on;
        feed_microcode(found);
        return kOk;
    });
}

}  // namespace ldsdk::model
