// Microcode sources to images and back.
//
// An image holds a section table, the sections and a version trailer (sdk/micro/load.h); its words
// are big-endian. The instruction section holds groups of four instructions with their ECC word.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ldsdk::host {

// Where a source is wrong, and what was expected there.
struct SourceError {
    std::string file;
    size_t line;    // 1 for the first
    size_t column;  // 1 for the first character
    std::string text;

    // "file:line:column: text"
    std::string message() const;
};

inline constexpr size_t kMaxErrors = 1000;

struct Assembly {
    std::vector<uint8_t> image;       // empty when there are errors
    std::vector<SourceError> errors;  // the first kMaxErrors, by line
    bool more_errors = false;         // than those
};

// Assembles a source; docs/microcode.md describes its language.
Assembly assemble(std::string_view source, const std::string &file);

// A source that assembles to the same bytes, whatever they are: with sections and directives where
// the bytes are an image, else as bare words and bytes.
std::string image_to_source(std::span<const uint8_t> image);

}  // namespace ldsdk::host
