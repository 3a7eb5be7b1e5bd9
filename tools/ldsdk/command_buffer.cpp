#include "tools/ldsdk/command_buffer.h"

#include "tools/ldsdk/error.h"

#include <cstdint>
#include <cstring>

namespace ldsdk::tool {

namespace {

constexpr char kOwnName[] = "ldsdk";
constexpr size_t kCountSize = 4;
constexpr size_t kShownOfWord = 32;

Error too_long(std::span<const std::string> words, size_t index)
{
    size_t needed = kCountSize + sizeof kOwnName;
    for (const std::string &word : words) {
        needed += word.size() + 1;
    }
    const std::string &word = words[index];
    const std::string shown =
        word.size() > kShownOfWord ? word.substr(0, kShownOfWord) + "..." : word;
    return failed("the command does not fit the device's buffer: word " +
                  std::to_string(index + 1) + ", \"" + shown +
                  "\", ends beyond it; the command takes " + std::to_string(needed) +
                  " bytes, expected at most " + std::to_string(kCommandBufferSize));
}

}  // namespace

void pack(std::span<const std::string> words, CommandBuffer &buffer)
{
    const auto count = static_cast<uint32_t>(words.size() + 1);
    for (size_t i = 0; i < kCountSize; i++) {
        buffer[i] = static_cast<char>(count >> (8 * i));
    }
    std::memcpy(buffer.data() + kCountSize, kOwnName, sizeof kOwnName);
    size_t at = kCountSize + sizeof kOwnName;
    for (size_t i = 0; i < words.size(); i++) {
        const size_t size = words[i].size() + 1;
        if (size > buffer.size() - at) {
            throw too_long(words, i);
        }
        std::memcpy(buffer.data() + at, words[i].c_str(), size);
        at += size;
    }
    std::memset(buffer.data() + at, 0, buffer.size() - at);
}

}  // namespace ldsdk::tool
