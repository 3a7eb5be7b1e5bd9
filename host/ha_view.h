// The pre-classifier for people: what a packet meets, and which rules there are. Read from the chip
// model, past the SDK.
//
// Texts end with a line end and fit 100 columns. Functions throw std::invalid_argument for a port
// that cannot be, std::runtime_error when the chip isn't there.
#pragma once

#include "chipmodel/model.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ldsdk::host {

// Bytes of a frame from hexadecimal digits, with or without 0x in front and colons between bytes.
// Throws std::invalid_argument.
std::vector<uint8_t> parse_frame(std::string_view text);

// The rule that a frame meets, and its ulHaInfo. channel: GEM port or logical link, or
// model::kHaNoChannel.
std::string lookup_ha_text(uint32_t chip, std::span<const uint8_t> frame, const model::Port &port,
                           uint32_t channel);

// Every rule, one line and one more for each further comparison, in the order in which they win.
std::string show_ha_text(uint32_t chip);

}  // namespace ldsdk::host
