// How the tool and `ldsdk serve` speak over a stream socket: frames of a kind and a length, 32 bits
// each, little-endian, and as many bytes as the length says.
//
// A client sends one request at a time and reads the answer: output frames in any number from none,
// at most one message frame, and then one status frame. The server takes further
// requests while it works and answers them in order.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ldsdk::tool {

enum class FrameKind : uint32_t {
    // requests
    kDevice = 1,  // the 512 bytes for the command device
    kChip = 2,    // words of a chip command, "chip" first, each ended by a NUL
    kNext = 3,    // words of a path, each ended by a NUL: what can follow?
    kFile = 4,    // bytes, in any number of frames, of the file that the next chip command reads;
                  // no answer

    // answers
    kOutput = 16,   // text for standard output; to kNext: per word its name, NUL, '+' when more
                    // words follow it or '-', help text, NUL
    kMessage = 17,  // why the request failed, a text for standard error
    kStatus = 18,   // 32 bits: what the tool's exit status would be, 0 1 or 2
    kWritten = 19,  // bytes, in any number of frames, of the file that the command writes
};

inline constexpr size_t kFrameHeadSize = 8;
inline constexpr size_t kMaxRequest = 64 * 1024;

struct Frame {
    FrameKind kind;
    std::string_view body;  // valid until the bytes that it was taken from change
};

void append_frame(std::string &bytes, FrameKind kind, std::string_view body);
// The same in frames of at most kMaxRequest bytes, one at least.
void append_frames(std::string &bytes, FrameKind kind, std::string_view body);
void append_status(std::string &bytes, uint32_t status);
uint32_t status_of(std::string_view body);

// A length field that says more than max_size bytes: whoever sent it doesn't speak this.
struct FrameTooLong {
    uint32_t length;
};

// Takes frames off the front of received bytes.
class FrameReader {
  public:
    explicit FrameReader(size_t max_size) : max_size_(max_size) {}

    // Room for at least size more bytes; received(n) says how many of them came.
    std::span<char> room(size_t size);
    void received(size_t size)
    {
        end_ += size;
    }
    // The next whole frame, if it is there. Throws FrameTooLong. Its body is valid until room().
    std::optional<Frame> next();

  private:
    std::vector<char> bytes_;
    size_t begin_ = 0;
    size_t end_ = 0;
    size_t max_size_;
};

// Words as they travel in a frame, and back.
std::string join_words(std::span<const std::string> words);
std::vector<std::string> cut_words(std::string_view body);

}  // namespace ldsdk::tool
