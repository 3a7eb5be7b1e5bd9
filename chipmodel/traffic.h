// Packets, messages and ports as a host sees them: what came in, what goes out, the auto-send
// channels, the statistics, and the microcode that stands in for a real one. Part of
// chipmodel/model.h.
#pragma once

#include <cstddef>
#include <cstdint>

namespace ldsdk::model {

// ---- ports --------------------------------------------------------------------------------------

struct Port {
    uint32_t type;
    uint32_t id;
    uint32_t sub;
    uint32_t pri;
};

// The numbers of docs/chip-model.md, without a chip. kErrParam when there is no such port or
// number.
uint32_t port_to_ingress(const Port &port, uint32_t *phy);
uint32_t port_from_ingress(uint32_t phy, Port *port);
uint32_t port_to_egress(const Port &port, uint32_t *phy);
uint32_t port_from_egress(uint32_t phy, Port *port);

// ---- packets ------------------------------------------------------------------------------------

inline constexpr uint32_t kPacketBytes = 10240;  // of the longest packet
inline constexpr uint32_t kExtensionBytes = 20;  // that can stand in front of a received one

// A packet on its way. Valid until the next call that moves packets or the clock.
struct Packet {
    uint64_t tick;     // of the chip's clock, when it was queued
    uint32_t head[2];  // host order; word 0 begins with the message type
    const uint8_t *data;
    uint32_t length;
};

// What the chip tells about a packet to the processor, beside its bytes.
struct FrameSource {
    uint32_t ptype;     // packet type, 11 bits
    uint32_t tag_info;  // 2 bits
    uint32_t phy;       // ingress number of the source port, 10 bits
    uint32_t encap;     // 4 bits
    uint32_t vlan;      // 12 bits
    uint32_t flow;      // 12 bits
    uint32_t extra;     // 12 bits
};

// The receive side: two priorities share one queue, which serves the oldest packet first. The last
// quarter is the high priority's alone.
inline constexpr uint32_t kReceivePackets = 256;
inline constexpr uint32_t kReceiveBytes = 0x20000;

// Queues a packet to the processor as the wire has it: header words (word 0 with the message type,
// word 1 with the header length) and the bytes behind them, extension words included. kErrFull, and
// a drop is counted, when the queue has no room; kErrParam, kErrNull.
uint32_t receive_put(uint32_t chip, const uint32_t head[2], const uint8_t *data, uint32_t length,
                     bool high);
// Queues a frame as a normal packet of low priority.
uint32_t receive_put_frame(uint32_t chip, const FrameSource &info, const uint8_t *data,
                           uint32_t length);
// What the chip would tell about a frame that came in at an ingress number: the number of its tags,
// the VLAN of the outer one.
FrameSource frame_source(const uint8_t *data, uint32_t length, uint32_t phy);
// Packets that wait for the processor.
uint32_t receive_waiting(uint32_t chip);

// The send side: packets that the microcode has not taken wait, those it took are remembered until
// their room is needed.
inline constexpr uint32_t kSendPackets = 256;
inline constexpr uint32_t kSendBytes = 0x20000;

// Packets that wait for the microcode.
uint32_t send_waiting(uint32_t chip);
// Takes the oldest of them. kErrEmpty when none waits.
uint32_t send_take(uint32_t chip, Packet *packet);
// Packets remembered, waiting ones included, and how many were forgotten since power on.
uint32_t sent_count(uint32_t chip);
uint64_t sent_lost(uint32_t chip);
// One of them by age, 0 the oldest. kErrParam past the newest.
uint32_t sent_get(uint32_t chip, uint32_t index, Packet *packet);

// ---- auto-send ----------------------------------------------------------------------------------

inline constexpr uint32_t kAutoChannelNum = 256;
inline constexpr uint32_t kAutoBodyBytes = 64;
// Messages that one move of the clock sends at most. The rest of a longer move passes in silence.
inline constexpr uint32_t kAutoBurst = 1000000;

struct AutoChannel {
    bool set;  // has a message
    bool on;
    uint64_t period;  // ticks
    uint8_t option[2];
    uint32_t head[2];
    uint32_t length;
    uint8_t body[kAutoBodyBytes];
    uint32_t count;  // messages sent since the count was cleared
    uint64_t due;    // clock of the next message
};

// A channel, 0 to 255, as it was programmed. kErrParam, kErrNull.
uint32_t auto_channel_get(uint32_t chip, uint32_t channel, AutoChannel *state);
// The engine as a whole is on.
bool auto_send_enabled(uint32_t chip);

// ---- decoding -----------------------------------------------------------------------------------

// Reads one field of what goes to the microcode, by the name that packet_format gives it. False
// when the packet has no such field.
bool packet_field(const uint32_t head[2], const uint8_t *data, uint32_t length, const char *name,
                  uint32_t *value);
// "queue", "fwd", "normal age"...; null when the header is none that the microcode knows.
const char *packet_name(const uint32_t head[2]);
// The header is one of a message, or none that the microcode knows: what follows is no packet.
bool packet_is_message(const uint32_t head[2]);
// No bit is set in header and message body that has to be zero.
bool packet_clean(const uint32_t head[2], const uint8_t *data, uint32_t length);
// Writes name and fields as one line of text, cut to fit: "fwd payload_offset=12 icos=3 ...".
// Returns the length that the whole line has. 512 bytes hold any line.
size_t packet_format(const uint32_t head[2], const uint8_t *data, uint32_t length, char *buffer,
                     size_t size);

// ---- the microcode's stand-in -------------------------------------------------------------------
//
// Takes packets and messages as soon as they come and answers the ones that docs/chip-model.md
// lists. A chip powers on with it; off, packets wait and timed messages are only counted.

uint32_t standin_set(uint32_t chip, bool on);
// On: an inserted packet comes back as a received one.
uint32_t standin_loop_set(uint32_t chip, bool on);

struct StandinCounts {
    uint32_t packets;          // inserted packets taken
    uint32_t messages;         // messages taken that it knows
    uint32_t unknown;          // packets and messages that it doesn't know, or that have stray bits
    uint32_t looped;           // packets sent back
    uint32_t learned;          // entries built or rewritten
    uint32_t learn_refused;    // learn requests that had no effect
    uint32_t age_walks;        // walks of the count-down
    uint32_t aged;             // entries that ran out
    uint32_t force_aged;       // entries that a force age took out
    uint32_t heartbeats;       // heartbeats answered
    uint32_t heartbeats_lost;  // answers that found no room
};
uint32_t standin_counts_get(uint32_t chip, StandinCounts *counts);

// Packet type of a heartbeat's answer: bytes 0..7 the header of the heartbeat, bytes 8..15 zero,
// then its 11 words, little-endian.
inline constexpr uint32_t kHeartbeatPtype = 0x7ff;

// What the learn state row tells, beside its done bit.
enum class LearnResult : uint32_t {
    kLearned = 0,
    kNoRoom = 1,    // neither bucket of the key has room, or the table isn't declared
    kStatic = 2,    // the key has a static entry
    kNoCredit = 3,  // the limit counter is used up
    kBusy = 4,      // the table's semaphore is taken
};

// ---- statistics ---------------------------------------------------------------------------------

enum class StatBlock : uint32_t { kPqm, kCr, kOe, kMcc, kPe, kReceive };
inline constexpr uint32_t kStatBlockNum = 6;

// Counters that a block has: 4, 77, 32, 32, 32, 16.
uint32_t stat_num(StatBlock block);
// Reads or sets one of them. kErrParam past the last.
uint32_t stat_get(uint32_t chip, StatBlock block, uint32_t index, uint32_t *value);
uint32_t stat_set(uint32_t chip, StatBlock block, uint32_t index, uint32_t value);

inline constexpr uint32_t kOrderTimeoutNum = 16;

// The period that the order engine reports for its timeout detection; 0 at power on.
uint32_t order_period_set(uint32_t chip, uint32_t period);
// A packet overstays in the order engine: it goes to the end of the timeout queue, and status bit 4
// of the engine rises. kErrFull.
uint32_t order_timeout_put(uint32_t chip, uint32_t packet);
// Packets in the timeout queue.
uint32_t order_timeouts(uint32_t chip);

}  // namespace ldsdk::model
