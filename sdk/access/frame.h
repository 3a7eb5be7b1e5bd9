// Byte places in the frames of the register bus access path, for those who lay frames out.
#pragma once

#include <cstdint>

// Request, 60 bytes. The address word stands at byte 0.
inline constexpr uint32_t NP_RBA_COMMAND = 4;   // command half-word
inline constexpr uint32_t NP_RBA_CLASS = 6;     // access class
inline constexpr uint32_t NP_RBA_WIDTH = 8;     // width class of the payload
inline constexpr uint32_t NP_RBA_PAYLOAD = 12;  // three groups of NP_RBA_GROUP bytes
inline constexpr uint32_t NP_RBA_GROUP = 16;
inline constexpr uint32_t NP_RBA_LIMIT = 20;  // of an add command
inline constexpr uint32_t NP_RBA_VALUE = 26;  // of an add command

// Response, 20 bytes. The status word stands at byte 0.
inline constexpr uint32_t NP_RBA_RSP_DATA = 4;
