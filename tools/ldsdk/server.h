// `ldsdk serve`: the module and the model behind a socket.
#pragma once

#include <string>

namespace ldsdk::tool {

// Serves clients, several at a time, until SIGINT, SIGTERM or SIGHUP. Throws when it can't begin.
void serve(const std::string &socket_path);

}  // namespace ldsdk::tool
