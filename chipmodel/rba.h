// The command path: request frames taken apart, handed to what carries them out, and answered.
#pragma once

#include "chipmodel/ops.h"
#include "platform/driver.h"

#include <cstdint>

namespace ldsdk::model {

class Chip;

// Bits 31..28 of the address word.
enum class RbaTarget : uint8_t { kSmem0 = 0, kSmem1 = 1, kLcam = 2 };

// A request frame, as the wire gives it.
struct RbaRequest {
    uint32_t address;     // address word
    uint16_t control;     // command half-word
    uint8_t access;       // access class: 1 read, 3 write
    uint8_t width_class;  // frame byte 8
    RbaTarget target;
    const uint8_t *payload;  // frame bytes 12..59
};

struct RbaResponse {
    uint32_t status;
    uint8_t data[16];  // a short value is right-aligned
};

// Status words of the model beside the documented ones (0 success).
inline constexpr uint32_t kStatusAddress = 0x10;    // nothing is modelled at the address
inline constexpr uint32_t kStatusMalformed = 0x11;  // bits that have to be zero are not
inline constexpr uint32_t kStatusUnknown = 0x12;    // no such target, operation or width
inline constexpr uint32_t kStatusNoTable = 0x13;    // a hash table that was never declared
// The documented ones of the hash commands.
inline constexpr uint32_t kStatusHashAbsent = 1;
inline constexpr uint32_t kStatusHashBuilt = 4;
inline constexpr uint32_t kStatusHashSemaphore = 5;
inline constexpr uint32_t kStatusHashCollision = 6;

// Carries one kind of command out. Fills the response, which comes zeroed. The result is the
// driver's: 0, or kErrNotModelled.
using RbaHandler = uint32_t (*)(Chip &chip, const RbaRequest &request, RbaResponse &response);

// Which command a request is; kUnknown when there is none like it.
RbaOp rba_command(const RbaRequest &request);
// Takes a frame apart.
RbaRequest rba_decode(const NpRbaReqCmd &frame);
// The chip's answer to a request.
uint32_t rba_execute(Chip &chip, const RbaRequest &request, RbaResponse &response);

}  // namespace ldsdk::model
