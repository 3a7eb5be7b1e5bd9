// The packet channel: the queue to the microcode, the queue to the processor, and the auto-send
// channels.
#pragma once

#include "chipmodel/traffic.h"

namespace ldsdk::model {

class Chip;

// What the auto-send functions answer to a channel or a message that they cannot take.
inline constexpr uint32_t kErrAutoInfo = 0x9a000030;
inline constexpr uint32_t kErrAutoEnable = 0x9a000031;
inline constexpr uint32_t kErrAutoDelete = 0x9a000032;
inline constexpr uint32_t kErrAutoClear = 0x9a000033;

// A queue of packets in a ring of bytes. Packets that were taken stay until their room is needed;
// those that wait are never given up. Sizes are powers of two.
template <uint32_t Packets, uint32_t Bytes>
class PacketRing {
  public:
    // Forgets everything, without a touch of the bytes.
    void clear()
    {
        first_ = 0;
        taken_ = 0;
        end_ = 0;
        write_ = 0;
    }

    // Appends lead and data as one packet. False, with nothing changed, when there is no room.
    bool put(uint64_t tick, const uint32_t head[2], const uint8_t *lead, uint32_t lead_length,
             const uint8_t *data, uint32_t length)
    {
        const uint32_t size = lead_length + length;
        const uint32_t begin = start_of(size);
        if (!room_from(taken_, begin + size)) {
            return false;
        }
        while (!room_from(first_, begin + size)) {
            first_++;
        }
        Entry &entry = entries_[end_ % Packets];
        entry = {tick, {head[0], head[1]}, begin, size};
        uint8_t *to = bytes_ + begin % Bytes;
        if (lead_length != 0) {
            __builtin_memcpy(to, lead, lead_length);
        }
        if (length != 0) {
            __builtin_memcpy(to + lead_length, data, length);
        }
        end_++;
        write_ = begin + size;
        return true;
    }

    // Packets that wait, and the bytes that they and the gaps between them take.
    uint32_t waiting() const
    {
        return end_ - taken_;
    }
    uint32_t waiting_bytes() const
    {
        return waiting() == 0 ? 0 : write_ - entries_[taken_ % Packets].begin;
    }
    // Takes the oldest; one must wait.
    Packet take()
    {
        taken_++;
        return packet(taken_ - 1);
    }

    // Packets held, and how many were given up.
    uint32_t held() const
    {
        return end_ - first_;
    }
    uint32_t lost() const
    {
        return first_;
    }
    // By age, below held().
    Packet held_at(uint32_t index) const
    {
        return packet(first_ + index);
    }

  private:
    struct Entry {
        uint64_t tick;
        uint32_t head[2];
        uint32_t begin;
        uint32_t size;
    };

    static_assert((Packets & (Packets - 1)) == 0 && (Bytes & (Bytes - 1)) == 0);

    // Where a packet of this size would begin: in one piece, so maybe past the end of the ring.
    uint32_t start_of(uint32_t size) const
    {
        const uint32_t left = Bytes - write_ % Bytes;
        return size <= left ? write_ : write_ + left;
    }
    // One more packet, ending at `end`, fits behind the packets from `from` on.
    bool room_from(uint32_t from, uint32_t end) const
    {
        if (from == end_) {
            return true;
        }
        return end_ - from < Packets && end - entries_[from % Packets].begin <= Bytes;
    }
    Packet packet(uint32_t number) const
    {
        const Entry &entry = entries_[number % Packets];
        return {
            entry.tick, {entry.head[0], entry.head[1]}, bytes_ + entry.begin % Bytes, entry.size};
    }

    // Packets are numbered from power on: first_ <= taken_ <= end_. Byte positions count on
    // without end, too; both wrap.
    uint32_t first_;
    uint32_t taken_;
    uint32_t end_;
    uint32_t write_;
    Entry entries_[Packets];
    uint8_t bytes_[Bytes];
};

struct Channel {
    PacketRing<kSendPackets, kSendBytes> send;
    PacketRing<kReceivePackets, kReceiveBytes> receive;
    AutoChannel automatic[kAutoChannelNum];
    bool auto_enabled;
};

void channel_power_on(Chip &chip);
void channel_tick(Chip &chip, uint64_t from);

// One packet or message from the host. kErrFull, kErrParam when it is too long.
uint32_t channel_send(Chip &chip, const uint32_t head[2], const uint8_t *data, uint32_t length);
// One packet to the processor: extension words and bytes. kErrFull counts as a drop.
uint32_t channel_deliver(Chip &chip, const uint32_t head[2], const uint8_t *lead,
                         uint32_t lead_length, const uint8_t *data, uint32_t length, bool high);
// The oldest packet that waits for the processor; one must.
Packet channel_fetch(Chip &chip);

// The auto-send engine and one of its channels. kErrAutoEnable: the channel has no message.
void auto_engine_set(Chip &chip, bool on);
uint32_t auto_channel_switch(Chip &chip, AutoChannel &channel, bool on);

// The header of a normal packet.
void channel_receive_head(const FrameSource &info, uint32_t header_words, uint32_t head[2]);
// A frame as a normal packet.
uint32_t channel_deliver_frame(Chip &chip, const FrameSource &info, const uint8_t *data,
                               uint32_t length);

}  // namespace ldsdk::model
