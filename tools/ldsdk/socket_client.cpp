#include "tools/ldsdk/socket_client.h"

#include "tools/ldsdk/error.h"
#include "tools/ldsdk/spin.h"

#include <sys/socket.h>
#include <cerrno>
#include <cstdio>
#include <cstring>

namespace ldsdk::tool {

namespace {

constexpr size_t kReceiveSize = 64 * 1024;
constexpr size_t kMaxAnswer = 1024 * 1024;

constexpr char kStranger[] = "an answer that is none of `ldsdk serve`";

// The connection is of no more use.
struct ServerGone {
    std::string reason;
};

Fd connect_to(const std::string &path, const std::string &name)
{
    const sockaddr_un address = socket_address(path);
    Fd fd(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!fd.valid() ||
        ::connect(fd.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0) {
        throw system_error(name + ": no `ldsdk serve` answers", errno);
    }
    return fd;
}

}  // namespace

sockaddr_un socket_address(const std::string &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.empty()) {
        throw usage("unix: expected the path of a socket behind it");
    }
    if (path.size() >= sizeof address.sun_path) {
        throw usage("\"" + path + "\": the path of a socket is too long; expected at most " +
                    std::to_string(sizeof address.sun_path - 1) + " bytes");
    }
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return address;
}

SocketClient::SocketClient(const std::string &path)
    : path_(path), name_("unix:" + path), fd_(connect_to(path, name_)), reader_(kMaxAnswer)
{
}

void SocketClient::device(const CommandBuffer &buffer, Output &output)
{
    request_.clear();
    call(FrameKind::kDevice, {buffer.data(), buffer.size()}, output);
}

void SocketClient::chip(std::span<const std::string> words, CarriedFile &file, Output &output)
{
    request_.clear();
    if (file.in) {
        append_frames(request_, FrameKind::kFile, *file.in);
    }
    file.out = call(FrameKind::kChip, join_words(words), output);
}

std::vector<NextWord> SocketClient::next_words(std::span<const std::string> path)
{
    TextOutput answer;
    request_.clear();
    call(FrameKind::kNext, join_words(path), answer);
    const std::string body = answer.take();
    const std::vector<std::string> fields = cut_words(body);
    std::vector<NextWord> words;
    for (size_t i = 0; i + 1 < fields.size(); i += 2) {
        const std::string &help = fields[i + 1];
        words.push_back({fields[i], help.empty() ? "" : help.substr(1), help.starts_with('+')});
    }
    return words;
}

std::optional<std::string> SocketClient::call(FrameKind kind, std::string_view body, Output &output)
{
    if (body.size() > kMaxRequest) {
        throw failed("the command takes " + std::to_string(body.size()) +
                     " bytes; expected at most " + std::to_string(kMaxRequest));
    }
    append_frame(request_, kind, body);
    if (!fd_.valid()) {
        fd_ = connect_to(path_, name_);
        reader_ = FrameReader(kMaxAnswer);
        std::fprintf(stderr, "ldsdk: %s: connected again; chip 0 is selected\n", name_.c_str());
    }
    try {
        return exchange(output);
    }
    catch (const ServerGone &gone) {
        // Nothing is asked twice, and nobody should meet another server unawares: a command says
        // so, and looking for words leaves that to the command.
        if (kind != FrameKind::kNext) {
            fd_ = Fd();
        }
        throw failed(name_ + ": " + gone.reason);
    }
}

std::optional<std::string> SocketClient::exchange(Output &output)
{
    send(request_);
    std::string message;
    std::optional<std::string> written;
    while (true) {
        const Frame frame = receive();
        switch (frame.kind) {
            case FrameKind::kOutput:
                output.write(frame.body);
                break;
            case FrameKind::kMessage:
                message = frame.body;
                break;
            case FrameKind::kWritten:
                written = written.value_or("").append(frame.body);
                break;
            case FrameKind::kStatus: {
                const uint32_t status = status_of(frame.body);
                if (status == 0) {
                    return written;
                }
                throw status == kExitUsage ? usage(message) : failed(message);
            }
            default:
                throw ServerGone{kStranger};
        }
        if (written && written->size() > kMaxFile) {
            throw ServerGone{kStranger};
        }
    }
}

void SocketClient::send(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t done = ::send(fd_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (done < 0 && errno != EINTR) {
            return;  // the server may have said why before it went
        }
        bytes.remove_prefix(done < 0 ? 0 : static_cast<size_t>(done));
    }
}

Frame SocketClient::receive()
{
    try {
        while (true) {
            if (const std::optional<Frame> frame = reader_.next()) {
                return *frame;
            }
            const std::span<char> room = reader_.room(kReceiveSize);
            ssize_t done = -1;
            const auto receive_now = [&] {
                done = ::recv(fd_.get(), room.data(), room.size(), MSG_DONTWAIT);
                return done >= 0 || errno != EAGAIN;
            };
            if (!spin_until(receive_now)) {
                done = ::recv(fd_.get(), room.data(), room.size(), 0);
            }
            if (done == 0) {
                throw ServerGone{"the server is gone: it closed the connection"};
            }
            if (done < 0 && errno != EINTR) {
                throw ServerGone{system_error("the server is gone", errno).what()};
            }
            reader_.received(done < 0 ? 0 : static_cast<size_t>(done));
        }
    }
    catch (const FrameTooLong &) {
        throw ServerGone{kStranger};
    }
}

}  // namespace ldsdk::tool
