// Capture files for the chip model: frames of a file to the receive side, and what the host sent to
// a file. libpcap does the reading and writing; it is loaded when it is first needed, as it brings
// more libraries than a tool that is started once a command should wait for.
//
// Functions throw std::runtime_error with one line that says what is wrong.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace ldsdk::host {

struct FeedResult {
    uint64_t frames;  // in the file
    uint64_t fed;     // the first so many are in the receive queue
    uint64_t cut;     // of those, frames that the capture had cut short
};

// Queues the frames of a capture (pcap or pcapng, Ethernet) as normal packets that came in at an
// ingress number. It ends at the first frame that the chip has no room for; a frame of 0 bytes and
// one longer than the chip's longest are errors.
FeedResult feed_capture(const std::string &path, uint32_t chip, uint32_t phy);
// The same from the bytes of a file, with its name for errors.
FeedResult feed_capture(std::string_view bytes, const std::string &name, uint32_t chip,
                        uint32_t phy);

struct SaveResult {
    uint64_t packets;   // inserted packets in the file
    uint64_t messages;  // messages in the file
    uint64_t lost;      // sent before, and forgotten since
};

// What a message looks like in a capture: an Ethernet frame of this type, one of those for local
// experiments, from 02:00:00:00:00:01 to 02:00:00:00:00:02, with the two header words and the body.
inline constexpr uint16_t kMessageEtherType = 0x88b5;

// Writes the packets that the chip remembers as sent by the host, oldest first: inserted packets as
// they are, messages as above. Times are those of the chip's clock, from the start of 1970.
SaveResult save_capture(const std::string &path, uint32_t chip);
// The same as bytes.
std::string capture_bytes(uint32_t chip, SaveResult &result);

}  // namespace ldsdk::host
