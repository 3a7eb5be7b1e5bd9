// What went wrong, in one line for the person at the tool.
#pragma once

#include <stdexcept>
#include <string>

namespace ldsdk::tool {

// What the process answers to its caller.
inline constexpr int kExitOk = 0;
inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;

class Error : public std::runtime_error {
  public:
    enum class Kind {
        failed,  // the tool, the device or the model could not do it
        usage,   // it was asked for in the wrong way
    };

    // A text of more than a few lines, for a word of such a length, loses its middle.
    Error(Kind kind, const std::string &text) : std::runtime_error(cut_middle(text)), kind_(kind) {}

    Kind kind() const
    {
        return kind_;
    }
    int exit_status() const
    {
        return kind_ == Kind::usage ? kExitUsage : kExitFailed;
    }

  private:
    static std::string cut_middle(const std::string &text);

    Kind kind_;
};

inline Error failed(const std::string &text)
{
    return {Error::Kind::failed, text};
}

inline Error usage(const std::string &text)
{
    return {Error::Kind::usage, text};
}

// "what: reason of errno".
Error system_error(const std::string &what, int code);

}  // namespace ldsdk::tool
