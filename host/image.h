// Microcode images on their way into a chip, and the code in a chip as text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ldsdk::host {

inline constexpr size_t kMaxImageSize = 16 << 20;

// The bytes of an image file. Throws std::runtime_error, with the file's name, for a file that
// cannot be read or is too large.
std::vector<uint8_t> read_image(const std::string &path);

// What says that an image has lost bytes at its end, in words; empty for one that looks whole. The
// module takes such an image all the same.
std::string missing_bytes(std::span<const uint8_t> image);

// Loads an image into a chip, or replaces the code of its running atoms (bitmap 1 to 15). The image
// is copied into memory that a 32-bit address can name, where it stays until the chip's next load.
// Gives what the SDK answers. Throws std::runtime_error when there is no such memory.
uint32_t load_image(uint32_t chip, std::span<const uint8_t> image);
uint32_t online_load_image(uint32_t chip, uint32_t atoms, std::span<const uint8_t> image);

// The example image of this build or installation: share/ldsdk/forward.npimg beside the folder of
// the running program. Empty when there is none.
std::string example_image();

// `count` instructions of a chip's instruction memory from a PC on, a line each behind its address,
// with a line for each group that tells its place and whether its ECC word is right. Stops at the
// end of the memory. Throws std::runtime_error for a chip that is not there and a PC that the
// memory does not have.
std::string code_listing(uint32_t chip, uint32_t pc, uint32_t count);
// The same with words of chip memory from elsewhere, by address.
using WordReader = std::function<uint32_t(uint32_t address)>;
std::string code_listing(const WordReader &word, uint32_t pc, uint32_t count);

}  // namespace ldsdk::host
