// Takes numbers off the front of an input; zeros behind its end.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace ldsdk::fuzz {

class Input {
  public:
    Input(const uint8_t *data, size_t size) : rest_(data, size) {}

    template <typename Number>
    Number take()
    {
        Number number = 0;
        const auto bytes = take_bytes(sizeof(number));
        std::memcpy(&number, bytes.data(), bytes.size());
        return number;
    }
    // At most so many.
    std::span<const uint8_t> take_bytes(size_t most)
    {
        const auto bytes = rest_.first(most < rest_.size() ? most : rest_.size());
        rest_ = rest_.subspan(bytes.size());
        return bytes;
    }
    bool empty() const
    {
        return rest_.empty();
    }
    size_t left() const
    {
        return rest_.size();
    }

  private:
    std::span<const uint8_t> rest_;
};

}  // namespace ldsdk::fuzz
