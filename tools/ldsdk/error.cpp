#include "tools/ldsdk/error.h"

#include <system_error>

namespace ldsdk::tool {

Error system_error(const std::string &what, int code)
{
    return failed(what + ": " + std::generic_category().message(code));
}

}  // namespace ldsdk::tool
