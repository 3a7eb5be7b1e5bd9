// What header and body of a packet to the microcode mean, as tables.
#pragma once

#include <cstdint>

namespace ldsdk::model {

// One field, or a part of one. Words 0 and 1 are the header's, word 2 + n is body word n.
struct WireField {
    const char *name;
    uint8_t word;
    uint8_t low;    // lowest bit in the word
    uint8_t width;  // bits
    uint8_t shift;  // lowest bit in the field
};

inline constexpr uint32_t kWireFieldNum = 24;  // of one kind

// One kind of packet or message: bits 31..29 and 28..24 of header word 0, and a test of word 1.
struct WireKind {
    const char *name;
    uint8_t type;
    uint8_t subtype;
    uint32_t test_mask;
    uint32_t test_value;
    uint32_t body_words;  // of a message; a packet's bytes are its own
    bool message;
    WireField field[kWireFieldNum];  // up to the first without a name
};

// The kind of a header, null when there is none.
const WireKind *wire_kind(const uint32_t head[2]);

}  // namespace ldsdk::model
