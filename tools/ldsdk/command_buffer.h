// The 512-byte buffer of the command device: a word count in 32 bits, little-endian, and the words,
// each ended by a NUL. Word 0 is the caller's own name.
#pragma once

#include <array>
#include <span>
#include <string>

namespace ldsdk::tool {

inline constexpr size_t kCommandBufferSize = 512;
using CommandBuffer = std::array<char, kCommandBufferSize>;

// Throws an error that names the first word that does not fit.
void pack(std::span<const std::string> words, CommandBuffer &buffer);

}  // namespace ldsdk::tool
