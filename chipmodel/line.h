// A line of text in a caller's buffer.
#pragma once

#include "platform/os.h"

#include <cstddef>

namespace ldsdk::model {

// Appends to a buffer and keeps the length that the whole text has.
class Line {
  public:
    Line(char *buffer, size_t size) : buffer_(buffer), size_(size)
    {
        if (size_ != 0) {
            buffer_[0] = '\0';
        }
    }

    template <typename... Args>
    void add(const char *format, Args... args)
    {
        char none[1];
        const bool room = length_ < size_;
        const int more =
            Os_Format(room ? buffer_ + length_ : none, room ? size_ - length_ : 0, format, args...);
        length_ += more > 0 ? static_cast<size_t>(more) : 0;
    }

    size_t length() const
    {
        return length_;
    }

  private:
    char *buffer_;
    size_t size_;
    size_t length_ = 0;
};

}  // namespace ldsdk::model
