#include "tools/ldsdk/protocol.h"

#include <algorithm>
#include <cstring>

namespace ldsdk::tool {

namespace {

void append_word32(std::string &bytes, uint32_t value)
{
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>(value >> shift));
    }
}

uint32_t read_word32(const char *bytes)
{
    uint32_t value = 0;
    for (int i = 3; i >= 0; i--) {
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    }
    return value;
}

}  // namespace

void append_frame(std::string &bytes, FrameKind kind, std::string_view body)
{
    append_word32(bytes, static_cast<uint32_t>(kind));
    append_word32(bytes, static_cast<uint32_t>(body.size()));
    bytes.append(body);
}

void append_frames(std::string &bytes, FrameKind kind, std::string_view body)
{
    do {
        append_frame(bytes, kind, body.substr(0, kMaxRequest));
        body.remove_prefix(std::min(body.size(), kMaxRequest));
    } while (!body.empty());
}

void append_status(std::string &bytes, uint32_t status)
{
    append_word32(bytes, static_cast<uint32_t>(FrameKind::kStatus));
    append_word32(bytes, 4);
    append_word32(bytes, status);
}

uint32_t status_of(std::string_view body)
{
    return body.size() < 4 ? 1 : read_word32(body.data());
}

std::span<char> FrameReader::room(size_t size)
{
    if (begin_ == end_) {
        begin_ = end_ = 0;
    }
    if (bytes_.size() - end_ < size && begin_ != 0) {
        std::memmove(bytes_.data(), bytes_.data() + begin_, end_ - begin_);
        end_ -= begin_;
        begin_ = 0;
    }
    if (bytes_.size() - end_ < size) {
        bytes_.resize(end_ + size);
    }
    return {bytes_.data() + end_, bytes_.size() - end_};
}

std::optional<Frame> FrameReader::next()
{
    if (end_ - begin_ < kFrameHeadSize) {
        return std::nullopt;
    }
    const char *head = bytes_.data() + begin_;
    const uint32_t length = read_word32(head + 4);
    if (length > max_size_) {
        throw FrameTooLong{length};
    }
    if (end_ - begin_ - kFrameHeadSize < length) {
        return std::nullopt;
    }
    begin_ += kFrameHeadSize + length;
    return Frame{static_cast<FrameKind>(read_word32(head)), {head + kFrameHeadSize, length}};
}

std::string join_words(std::span<const std::string> words)
{
    std::string body;
    for (const std::string &word : words) {
        body.append(word).push_back('\0');
    }
    return body;
}

std::vector<std::string> cut_words(std::string_view body)
{
    std::vector<std::string> words;
    while (!body.empty()) {
        const size_t end = body.find('\0');
        words.emplace_back(body.substr(0, end));
        body.remove_prefix(end == body.npos ? body.size() : end + 1);
    }
    return words;
}

}  // namespace ldsdk::tool
