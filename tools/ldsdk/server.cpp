#include "tools/ldsdk/server.h"

#include "tools/ldsdk/error.h"
#include "tools/ldsdk/in_process.h"
#include "tools/ldsdk/protocol.h"
#include "tools/ldsdk/socket_client.h"
#include "tools/ldsdk/spin.h"
#include "tools/log/fd.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/signalfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <list>
#include <thread>
#include <utility>

namespace ldsdk::tool {

namespace {

constexpr size_t kReceiveSize = 64 * 1024;
constexpr size_t kMaxUnsent = 1024 * 1024;  // no more requests of a client that does not read
constexpr int kBacklog = 16;
constexpr size_t kMaxClients = 64;
// So long one client is answered before the next one's turn, and before a signal is seen.
constexpr std::chrono::milliseconds kTurn(20);

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
        const Clock::time_point end = Clock::now() + kTurn;
        bool more = true;
        while (more && !closing_ && unsent_.size() < kMaxUnsent && Clock::now() < end) {
            more = answer_next();
        }
        waiting_ = more && !closing_ && unsent_.size() < kMaxUnsent;
        return send();
    }

    // Its turn was over before its requests were.
    bool waiting() const
    {
        return waiting_;
    }

  private:
    using Clock = std::chrono::steady_clock;

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
        if (frame.kind == FrameKind::kFile) {
            keep(frame.body);
            return;
        }
        CarriedFile file = std::exchange(file_, {});
        ReplyOutput output(unsent_);
        try {
            run(frame, file, output);
            output.flush();
            if (file.out) {
                append_frames(unsent_, FrameKind::kWritten, *file.out);
            }
            append_status(unsent_, kExitOk);
        }
        catch (const Error &error) {
            output.flush();
            refuse(error.what(), static_cast<uint32_t>(error.exit_status()));
        }
    }

    // One byte too many is kept to tell by.
    void keep(std::string_view bytes)
    {
        std::string &kept = file_.in ? *file_.in : file_.in.emplace();
        kept.append(bytes.substr(0, kMaxFile + 1 - kept.size()));
    }

    void run(const Frame &frame, CarriedFile &file, Output &output)
    {
        if (file.in && file.in->size() > kMaxFile) {
            throw usage("a file of more than " + std::to_string(kMaxFile) +
                        " bytes; expected at most so many");
        }
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
                module_.chip(session_, words, file, output);
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
                            "; expected 1 (device), 2 (chip), 3 (next words) or 4 (file)");
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
    CarriedFile file_;  // of the next request
    std::string unsent_;
    bool waiting_ = false;
    bool closing_ = false;
};

bool is_at(const std::string &path, const struct stat &file)
{
    struct stat now = {};
    return ::lstat(path.c_str(), &now) == 0 && now.st_dev == file.st_dev &&
           now.st_ino == file.st_ino;
}

// A name in the file system that is taken away again, if it is still that of the same file.
class OwnName {
  public:
    OwnName() = default;
    OwnName(const std::string &path, const struct stat &file) : path_(path), file_(file) {}
    ~OwnName()
    {
        if (!path_.empty() && is_at(path_, file_)) {
            ::unlink(path_.c_str());
        }
    }
    OwnName(const OwnName &) = delete;
    OwnName &operator=(OwnName &&other) noexcept
    {
        std::swap(path_, other.path_);
        std::swap(file_, other.file_);
        return *this;
    }

  private:
    std::string path_;
    struct stat file_ = {};
};

// The right to a socket's path: a file beside it, locked for as long as this is there.
class PathLock {
  public:
    explicit PathLock(const std::string &socket)
    {
        const std::string path = socket + ".lock";
        while (true) {
            fd_ = Fd(
                ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
            struct stat info = {};
            if (!fd_.valid() || ::fstat(fd_.get(), &info) != 0) {
                throw system_error(path, errno);
            }
            if (!S_ISREG(info.st_mode) || info.st_size != 0) {
                throw failed(path + ": it is no lock of `ldsdk serve`; expected no such file");
            }
            if (::flock(fd_.get(), LOCK_EX | LOCK_NB) != 0) {
                throw errno == EWOULDBLOCK ? failed(socket + ": another `ldsdk serve` has it")
                                           : system_error(path, errno);
            }
            // Who held it before may have taken the file away meanwhile.
            if (is_at(path, info)) {
                name_ = OwnName(path, info);
                return;
            }
        }
    }

  private:
    Fd fd_;
    OwnName name_;  // goes first: the lock is held until then
};

// A listening socket.
class Listener {
  public:
    explicit Listener(const std::string &path)
        : path_(path), address_(socket_address(path)), lock_(path)
    {
        fd_ = Fd(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        if (!fd_.valid()) {
            throw system_error(path, errno);
        }
        remove_dead();
        // Nobody else can connect, not even before a later chmod.
        const mode_t old_mask = ::umask(0177);
        const int status =
            ::bind(fd_.get(), reinterpret_cast<const sockaddr *>(&address_), sizeof address_);
        const int code = errno;
        ::umask(old_mask);
        if (status != 0) {
            throw system_error(path + ": a socket can't be made there", code);
        }
        struct stat info = {};
        if (::lstat(path.c_str(), &info) == 0) {
            name_ = OwnName(path, info);
        }
        if (::listen(fd_.get(), kBacklog) != 0) {
            throw system_error(path, errno);
        }
    }

    int fd() const
    {
        return fd_.get();
    }

    Fd accept() const
    {
        Fd fd(::accept4(fd_.get(), nullptr, nullptr, SOCK_CLOEXEC));
        if (!fd.valid() && (errno == EMFILE || errno == ENFILE || errno == ENOMEM)) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));  // it goes on asking
        }
        return fd;
    }

  private:
    // A socket file that a server left behind when it was killed.
    void remove_dead() const
    {
        struct stat info;
        if (::lstat(path_.c_str(), &info) != 0 || !S_ISSOCK(info.st_mode)) {
            return;
        }
        const Fd probe(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        if (::connect(probe.get(), reinterpret_cast<const sockaddr *>(&address_),
                      sizeof address_) != 0 &&
            errno == ECONNREFUSED) {
            ::unlink(path_.c_str());
        }
    }

    std::string path_;
    sockaddr_un address_;
    PathLock lock_;
    Fd fd_;
    OwnName name_;
};

// What ends the server, as something to poll. Under nohup a hang-up does not.
Fd catch_signals()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    struct sigaction hang_up = {};
    if (::sigaction(SIGHUP, nullptr, &hang_up) == 0 && hang_up.sa_handler != SIG_IGN) {
        sigaddset(&set, SIGHUP);
    }
    ::sigprocmask(SIG_BLOCK, &set, nullptr);
    Fd fd(::signalfd(-1, &set, SFD_CLOEXEC));
    if (!fd.valid()) {
        throw system_error("signalfd", errno);
    }
    return fd;
}

void wait_for_event(std::vector<pollfd> &polled, bool work_left)
{
    const auto poll_for = [&polled](int timeout) {
        return ::poll(polled.data(), polled.size(), timeout);
    };
    if (work_left) {
        poll_for(0);
        return;
    }
    if (!spin_until([&] { return poll_for(0) != 0; }) && poll_for(-1) < 0 && errno != EINTR) {
        throw system_error("poll", errno);
    }
}

// The answer to whatever is asked.
void turn_away(const Fd &fd)
{
    std::string answer;
    append_frame(
        answer, FrameKind::kMessage,
        "the server has " + std::to_string(kMaxClients) + " clients, expected at most so many");
    append_status(answer, kExitFailed);
    ::send(fd.get(), answer.data(), answer.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
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
        polled.push_back({listener.fd(), POLLIN, 0});
        bool work_left = false;
        for (const Client &client : clients) {
            polled.push_back(client.wanted());
            work_left = work_left || client.waiting();
        }
        wait_for_event(polled, work_left);
        if (polled[0].revents != 0) {
            return;
        }
        size_t at = 2;
        for (auto client = clients.begin(); client != clients.end(); at++) {
            const short events = polled[at].revents;
            const bool stays = (events == 0 && !client->waiting()) || client->handle(events);
            client = stays ? std::next(client) : clients.erase(client);
        }
        if (polled[1].revents == 0) {
            continue;
        }
        if (Fd fd = listener.accept(); fd.valid() && clients.size() < kMaxClients) {
            clients.emplace_back(std::move(fd), module);
        }
        else if (fd.valid()) {
            turn_away(fd);
        }
    }
}

}  // namespace ldsdk::tool
