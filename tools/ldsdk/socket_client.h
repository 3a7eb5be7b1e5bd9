// A module and a model behind the socket of `ldsdk serve`.
#pragma once

#include "tools/ldsdk/backend.h"
#include "tools/ldsdk/protocol.h"
#include "tools/log/fd.h"

#include <sys/un.h>

namespace ldsdk::tool {

// The address of a socket path. Throws when the path is empty or too long for one.
sockaddr_un socket_address(const std::string &path);

class SocketClient : public Backend {
  public:
    explicit SocketClient(const std::string &path);

    void device(const CommandBuffer &buffer, Output &output) override;
    void chip(std::span<const std::string> words, CarriedFile &file, Output &output) override;
    std::vector<NextWord> next_words(std::span<const std::string> path) override;

  private:
    // Sends a request, passes its output on, and gives the bytes of the file that it writes. Throws
    // what the server answers, and what the connection meets.
    std::optional<std::string> call(FrameKind kind, std::string_view body, Output &output);
    std::optional<std::string> exchange(Output &output);
    void send(std::string_view bytes);
    Frame receive();

    std::string path_;
    std::string name_;
    Fd fd_;  // invalid once a command found the server gone: the next one connects again
    FrameReader reader_;
    std::string request_;  // of call()
};

}  // namespace ldsdk::tool
