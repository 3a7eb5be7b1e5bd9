#include "tools/ldsdk/error.h"

#include <system_error>

namespace ldsdk::tool {

std::string Error::cut_middle(const std::string &text)
{
    constexpr size_t kMost = 1000;
    constexpr size_t kHead = 200;
    constexpr size_t kTail = 400;
    if (text.size() <= kMost) {
        return text;
    }
    return text.substr(0, kHead) + " ... " + text.substr(text.size() - kTail);
}

Error system_error(const std::string &what, int code)
{
    return failed(what + ": " + std::generic_category().message(code));
}

}  // namespace ldsdk::tool
