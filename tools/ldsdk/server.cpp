#include "tools/ldsdk/server.h"

#include "tools/ldsdk/error.h"
#include "tools/ldsdk/fd.h"
#include "tools/ldsdk/in_process.h"
#include "tools/ldsdk/protocol.h"
#include "tools/ldsdk/socket_client.h"
#include "tools/ldsdk/spin.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <list>

namespace ldsdk::tool {

namespace {

constexpr size_t kReceiveSize = 16 * 1024;
constexpr size_t kMaxUnsent = 1024 * 1024;  // no more requests of a client that does not read
constexpr int kBacklog = 16;
constexpr size_t kMaxClients = 64;

// Puts what a request prints into output frames.
class ReplyOutput : public Output {
  public:
    explicit ReplyOutput(std::string &reply) : reply_(reply) {}

  protected:
    void pass_on(std::string_view text) noexcept override
    {
        append_frame(reply_, FrameKind::kOutput, text);
    }

  private:
    std::string &reply_;
};

class Client {
  public:
    Client(Fd fd, InProcess &module) : fd_(std::move(fd)), module_(module), reader_(kMaxRequest) {}

    pollfd wanted() const
    {
        const bool full = unsent_.size() >= kMaxUnsent;
        const auto events = (full ? 0 : POLLIN) | (unsent_.empty() ? 0 : POLLOUT);
        return {fd_.get(), static_cast<short>(events), 0};
    }

    // False when the client is done with.
    bool handle(short events)
    {
        if ((events & (POLLIN | POLLHUP | POLLERR)) != 0 && !receive()) {
            return false;
        }
        // Answers what has come, but no more than the client can be sent.
        while (!closing_ && unsent_.size() < kMaxUnsent && answer_next()) {
        }
        return send();
    }

  private:
    bool receive()
    {
        const std::span<char> room = reader_.room(kReceiveSize);
        const ssize_t done = ::recv(fd_.get(), room.data(), room.size(), 0);
        if (done <= 0) {
            return done < 0 && (errno == EINTR || errno == EAGAIN);
        }
        reader_.received(static_cast<size_t>(done));
        return true;
    }

    // False when no whole request is there.
    bool answer_next()
    {
        try {
            const std::optional<Frame> frame = reader_.next();
            if (frame) {
                answer(*frame);
            }
            return frame.has_value();
        }
        catch (const FrameTooLong &error) {
            refuse("a request of " + std::to_string(error.length) + " bytes; expected at most " +
                   std::to_string(kMaxRequest));
            closing_ = true;
            return false;
        }
    }

    void answer(const Frame &frame)
    {
        ReplyOutput output(unsent_);
        try {
            run(frame, output);
            output.flush();
            append_status(unsent_, kExitOk);
        }
        catch (const Error &error) {
            output.flush();
            refuse(error.what(), static_cast<uint32_t>(error.exit_status()));
        }
    }

    void run(const Frame &frame, Output &output)
    {
        switch (frame.kind) {
            case FrameKind::kDevice: {
                CommandBuffer buffer;
                if (frame.body.size() != buffer.size()) {
                    throw usage("a device request of " + std::to_string(frame.body.size()) +
                                " bytes; expected " + std::to_string(buffer.size()));
                }
                std::memcpy(buffer.data(), frame.body.data(), buffer.size());
                module_.device(buffer, output);
                return;
            }
            case FrameKind::kChip: {
                const std::vector<std::string> words = cut_words(frame.body);
                if (words.empty() || words[0] != "chip") {
                    throw usage("a chip request without the word chip in front");
                }
                module_.chip(session_, words, output);
                return;
            }
            case FrameKind::kNext:
                for (const NextWord &word : module_.next_words(cut_words(frame.body))) {
                    output.write(word.name + '\0' + (word.more ? '+' : '-') + word.help + '\0');
                }
                return;
            default:
                throw usage("a request of kind " +
                            std::to_string(static_cast<uint32_t>(frame.kind)) +
                            "; expected 1 (device), 2 (chip) or 3 (next words)");
        }
    }

    void refuse(const std::string &message, uint32_t status = kExitUsage)
    {
        append_frame(unsent_, FrameKind::kMessage, message);
        append_status(unsent_, status);
    }

    bool send()
    {
        if (unsent_.empty()) {
            return !closing_;
        }
        const ssize_t done =
            ::send(fd_.get(), unsent_.data(), unsent_.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (done < 0) {
            return errno == EAGAIN || errno == EINTR;
        }
        unsent_.erase(0, static_cast<size_t>(done));
        return !closing_ || !unsent_.empty();
    }

    Fd fd_;
    InProcess &module_;
    ChipSession session_;
    FrameReader reader_;
    std::string unsent_;
    bool closing_ = false;
};

// A listening socket that is taken out of the file system again.
class Listener {
  public:
    explicit Listener(const std::string &path) : path_(path)
    {
        const sockaddr_un address = socket_address(path);
        fd_ = Fd(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        if (!fd_.valid()) {
            throw system_error(path, errno);
        }
        remove_dead(address);
        // Nobody else can connect, not even before a later chmod.
        const mode_t old_mask = ::umask(0177);
        const int status =
            ::bind(fd_.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address);
        const int code = errno;
        ::umask(old_mask);
        if (status != 0) {
            throw system_error(path + ": a socket can't be made there", code);
        }
        bound_ = true;
        if (::listen(fd_.get(), kBacklog) != 0) {
            throw system_error(path, errno);
        }
    }
    ~Listener()
    {
        if (bound_) {
            ::unlink(path_.c_str());
        }
    }
    Listener(const Listener &) = delete;
    Listener &operator=(const Listener &) = delete;

    int fd() const
    {
        return fd_.get();
    }

    Fd accept() const
    {
        return Fd(::accept4(fd_.get(), nullptr, nullptr, SOCK_CLOEXEC));
    }

  private:
    // A socket file that a server left behind when it was killed.
    void remove_dead(const sockaddr_un &address)
    {
        struct stat info;
        if (::lstat(path_.c_str(), &info) != 0 || !S_ISSOCK(info.st_mode)) {
            return;
        }
        const Fd probe(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        if (::connect(probe.get(), reinterpret_cast<const sockaddr *>(&address), sizeof address) !=
                0 &&
            errno == ECONNREFUSED) {
            ::unlink(path_.c_str());
        }
    }

    std::string path_;
    Fd fd_;
    bool bound_ = false;
};

// SIGINT and SIGTERM as something to poll.
Fd catch_signals()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &set, nullptr);
    Fd fd(::signalfd(-1, &set, SFD_CLOEXEC));
    if (!fd.valid()) {
        throw system_error("signalfd", errno);
    }
    return fd;
}

void wait_for_event(std::vector<pollfd> &polled)
{
    const auto poll_for = [&polled](int timeout) {
        return ::poll(polled.data(), polled.size(), timeout);
    };
    if (!spin_until([&] { return poll_for(0) != 0; }) && poll_for(-1) < 0 && errno != EINTR) {
        throw system_error("poll", errno);
    }
}

}  // namespace

void serve(const std::string &socket_path)
{
    const Fd signals = catch_signals();
    const Listener listener(socket_path);
    InProcess module;
    std::list<Client> clients;
    std::vector<pollfd> polled;
    std::fprintf(stderr, "ldsdk: serving on unix:%s\n", socket_path.c_str());
    while (true) {
        polled.clear();
        polled.push_back({signals.get(), POLLIN, 0});
        const bool has_room = clients.size() < kMaxClients;
        polled.push_back({listener.fd(), static_cast<short>(has_room ? POLLIN : 0), 0});
        for (const Client &client : clients) {
            polled.push_back(client.wanted());
        }
        wait_for_event(polled);
        if (polled[0].revents != 0) {
            return;
        }
        size_t at = 2;
        for (auto client = clients.begin(); client != clients.end(); at++) {
            const short events = polled[at].revents;
            client =
                events == 0 || client->handle(events) ? std::next(client) : clients.erase(client);
        }
        if (polled[1].revents != 0) {
            if (Fd fd = listener.accept(); fd.valid()) {
                clients.emplace_back(std::move(fd), module);
            }
        }
    }
}

}  // namespace ldsdk::tool
