// The debug tool as its users meet it: the program itself, started.
#include "tests/process.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <algorithm>
#include <chrono>
#include <sstream>
#include <thread>

namespace ldsdk::test {

namespace {

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

Finished tool(std::vector<std::string> arguments, const std::string &input = "")
{
    arguments.insert(arguments.begin(), LDSDK_TOOL);
    return run(arguments, input);
}

Finished script(const std::string &text)
{
    return tool({"--script", "-"}, text);
}

bool is_one_line(const std::string &text)
{
    return text.find('\n') == text.size() - 1;
}

// ---- what is refused ----------------------------------------------------------------------------

struct Refusal {
    std::vector<std::string> arguments;
    int status;
    std::vector<std::string> named;  // what the one line on standard error says
};

void PrintTo(const Refusal &refusal, std::ostream *stream)
{
    for (const std::string &argument : refusal.arguments) {
        *stream << argument.substr(0, 40) << ' ';
    }
}

class Refused : public testing::TestWithParam<Refusal> {};

TEST_P(Refused, WithOneClearLine)
{
    const Finished finished = tool(GetParam().arguments);
    EXPECT_EQ(finished.status, GetParam().status);
    EXPECT_EQ(finished.out, "");
    EXPECT_THAT(finished.err, StartsWith("ldsdk: "));
    EXPECT_TRUE(is_one_line(finished.err)) << finished.err;
    for (const std::string &text : GetParam().named) {
        EXPECT_THAT(finished.err, HasSubstr(text));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Usage, Refused,
    testing::Values(
        Refusal{{"--bogus", "micro"}, 2, {"--bogus", "--help"}},
        Refusal{{"--script"}, 2, {"--script"}}, Refusal{{"--script", ""}, 2, {"--script"}},
        Refusal{{"--script", "x", "micro"}, 2, {"micro", "--script"}},
        Refusal{{"--echo"}, 2, {"--echo", "--script"}},
        Refusal{{"--device", "", "micro"}, 2, {"--device"}},
        Refusal{{"--device", "unix:", "micro"}, 2, {"unix:"}},
        Refusal{{"--device", "unix:/" + std::string(200, 'x'), "micro"}, 2, {"107 bytes"}},
        Refusal{{"serve"}, 2, {"--socket"}},
        Refusal{{"-d", "x", "serve", "--socket", "y"}, 2, {"serve"}},
        Refusal{{"serve", "--socket", "x", "y"}, 2, {"\"y\""}},
        Refusal{{"chop"}, 2, {"\"chop\"", "micro", "chip"}},
        Refusal{{"micro chip"}, 2, {"\"micro chip\""}},
        Refusal{{"chip", "dig"}, 2, {"\"dig\"", "peek", "journal"}},
        Refusal{{"chip", "journal"}, 2, {"on, off, show, clear"}},
        Refusal{{"chip", "journal", "maybe"}, 2, {"\"maybe\"", "on, off, show, clear"}},
        Refusal{{"chip", "poke", "0x60200000"}, 2, {"ADDR VALUE"}},
        Refusal{{"chip", "peek", "0x60200000", "1", "2"}, 2, {"\"2\"", "ADDR [WORDS]"}},
        Refusal{{"chip", "fault", "Qd_Nothing"}, 2, {"\"Qd_Nothing\"", "unknown operation"}}));

INSTANTIATE_TEST_SUITE_P(
    Numbers, Refused,
    testing::Values(Refusal{{"chip", "peek", "zz"}, 2, {"\"zz\"", "chip address"}},
                    Refusal{{"chip", "peek", ""}, 2, {"\"\"", "chip address"}},
                    Refusal{{"chip", "peek", "0x"}, 2, {"\"0x\"", "chip address"}},
                    Refusal{{"chip", "peek", "-4"}, 2, {"\"-4\"", "chip address"}},
                    Refusal{{"chip", "peek", "0x100000000"}, 2, {"0xffffffff"}},
                    Refusal{{"chip", "peek", "99999999999999999999"}, 2, {"chip address"}},
                    Refusal{{"chip", "peek", "0x60200002"}, 2, {"multiple of 4"}},
                    Refusal{{"chip", "peek", "0x60200000", "0"}, 2, {"\"0\"", "1 to"}},
                    Refusal{{"chip", "peek", "0xfffffffc", "2"}, 2, {"\"2\"", "1 at most"}},
                    Refusal{{"chip", "poke", "0x60200000", "1x"}, 2, {"\"1x\"", "32-bit"}},
                    Refusal{{"chip", "advance", "1.5"}, 2, {"\"1.5\"", "ticks"}},
                    Refusal{{"chip", "attach", "0"}, 2, {"1 to 3"}},
                    Refusal{{"chip", "select", "4"}, 2, {"0 to 3"}}));

INSTANTIATE_TEST_SUITE_P(
    Failures, Refused,
    testing::Values(
        Refusal{{"--script", "/nowhere/x"}, 1, {"/nowhere/x", "No such file"}},
        Refusal{{"--script", "/"}, 1, {"Is a directory"}},
        Refusal{{"-d", "unix:/nowhere/x", "micro"}, 1, {"unix:/nowhere/x"}},
        Refusal{{"-d", "/nowhere/x", "micro"}, 1, {"/nowhere/x", "No such file"}},
        Refusal{{"-d", "/dev/null", "micro"}, 1, {"/dev/null", "ioctl"}},
        Refusal{{"-d", "/dev/null", "chip", "peek", "0"}, 1, {"/dev/null_chip", "no chip"}},
        Refusal{
            {"-d", "/dev/null", "chip", "load", "online", "x"}, 1, {"chip load online", "serve"}},
        Refusal{{"serve", "--socket", "/nowhere/x"}, 1, {"/nowhere/x"}},
        Refusal{{"chip", "peek", "0x50000000"}, 1, {"chip 0", "0x50000000"}},
        Refusal{{"chip", "select", "1"}, 1, {"chip 1", "not attached"}}));

// The buffer holds a count of 4 bytes, the tool's own name and the words, each with its NUL.
TEST(ToolBuffer, EndsAtByte512)
{
    const size_t room = 512 - 4 - sizeof "ldsdk" - sizeof "micro";
    EXPECT_EQ(tool({"micro", std::string(room - 1, 'x')}).status, 0);
    const Finished refused = tool({"micro", std::string(room, 'x')});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("word 2"));
    EXPECT_THAT(refused.err, HasSubstr("513 bytes"));
    EXPECT_TRUE(is_one_line(refused.err));
    EXPECT_THAT(script("\nmicro " + std::string(room, 'x') + "\n").err, StartsWith("ldsdk: -:2: "));
}

// ---- commands -----------------------------------------------------------------------------------

TEST(Tool, PrintsWhatTheModulePrints)
{
    const Finished version = tool({"micro", "glb", "version", "sdk"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.err, "");
    EXPECT_THAT(version.out, StartsWith("\n\r"));
    EXPECT_THAT(version.out, HasSubstr("Lodestone1.3.10.0022forQA02MXU"));

    // An unknown word is answered by the list of its level, without an error.
    const Finished unknown = tool({"micro", "glb", "version", "nothing"});
    EXPECT_EQ(unknown.status, 0);
    EXPECT_EQ(unknown.out, std::string(29, ' ') + "sdk \t sdk version\n" + std::string(27, ' ') +
                               "micro \t micro version\n");
}

TEST(Tool, HelpAndVersionAreAnswers)
{
    for (const char *program : {LDSDK_TOOL, LDSDK_ASM}) {
        for (const char *option : {"--help", "--version"}) {
            const Finished answer = run({program, option});
            EXPECT_EQ(answer.status, 0);
            EXPECT_THAT(answer.out, HasSubstr("ldsdk"));
            EXPECT_EQ(answer.err, "");
        }
    }
    EXPECT_EQ(tool({"chip"}).out, tool({"chip", "help"}).out);
    EXPECT_THAT(tool({"chip", "help"}).out, HasSubstr("chip poke ADDR VALUE"));
}

TEST(ToolChip, MemoryReadsBack)
{
    const Finished finished = script(
        "chip poke 0x60210004 0xdeadbeef\n"
        "chip poke 1612775440 7\n"  // 0x60210010
        "chip peek 0x60210000 5\n");
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.out,
              "0x60210000: 00000000 deadbeef 00000000 00000000\n"
              "0x60210010: 00000007\n");
}

TEST(ToolChip, SlavesAreChipsOfTheirOwn)
{
    const Finished finished = script(
        "chip attach 1\n"
        "chip select 1\n"
        "chip poke 0x60210000 1\n"
        "chip peek 0x60210000\n"
        "chip select 0\n"
        "chip peek 0x60210000\n"
        "micro chip set 1\n"
        "micro glb version sdk\n");
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_THAT(finished.out, StartsWith("0x60210000: 00000001\n0x60210000: 00000000\n"));
    EXPECT_THAT(finished.out, HasSubstr("Lodestone1.3.10.0022forQA02MXU"));
}

TEST(ToolChip, JournalAndFaultsAreShown)
{
    const Finished finished = script(
        "chip journal on\n"
        "chip poke 0x60210000 1\n"  // no crossing of a door
        "chip journal show\n"
        "chip journal off\n"
        "chip fault rba op=write nth=3\n"
        "chip fault alloc\n"
        "chip fault list\n"
        "chip fault clear\n"
        "chip fault list\n"
        "chip advance 10000\n"
        "chip journal show 5\n");
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_EQ(finished.out,
              "0 of 0 records, 0 lost, recording on\n"
              "rba op=write nth=3 count=1 code=0xe0000006 calls=0\n"
              "alloc nth=1 count=1 calls=0\n"
              "0 of 0 records, 0 lost, recording off\n");
}

// A line of the model begins on a line of its own, though the module leaves its last one open.
TEST(ToolChip, AnswersBeginOnTheirOwnLine)
{
    const std::string module = tool({"micro", "chip", "get"}).out;
    ASSERT_NE(module.back(), '\n');
    EXPECT_EQ(script("micro chip get\nchip peek 0x60210000\n").out,
              module + "\n0x60210000: 00000000\n");
}

// ---- scripts ------------------------------------------------------------------------------------

TEST(ToolScript, RunsLineByLineAsOneShotsDo)
{
    const std::string get = tool({"micro", "chip", "get"}).out;
    struct {
        const char *what;
        std::string text;
    } const scripts[] = {
        {"plain", "micro chip get\n"},
        {"no line end", "micro chip get"},
        {"comments and blanks", "# first\n\n   \n\tmicro  chip\tget   # behind\n   # last\n"},
        {"carriage returns", "\r\nmicro chip get\r\n"},
        {"quotes", "\"micro\" 'chip' g\"e\"'t'\n"},
        {"a byte order mark", "\xef\xbb\xbfmicro chip get\n"},
        {"a long line", "# " + std::string(200000, 'x') + "\nmicro chip get\n"},
    };
    const TempFolder folder;
    for (const auto &each : scripts) {
        const Finished piped = script(each.text);
        EXPECT_EQ(piped.status, 0) << each.what << piped.err;
        EXPECT_EQ(piped.out, get) << each.what;
        EXPECT_EQ(tool({"-s", folder.write("script", each.text)}).out, get) << each.what;
        EXPECT_EQ(tool({}, each.text).out, get) << each.what;  // no terminal: a script
    }
    std::string many;
    std::string expected;
    for (int i = 0; i < 10000; i++) {
        many += "micro chip get\n";
        expected += get;
    }
    EXPECT_EQ(script(many).out, expected);
}

TEST(ToolScript, StopsAtTheFirstErrorAndNamesItsPlace)
{
    const TempFolder folder;
    struct {
        std::string line;
        std::string said;
    } const lines[] = {
        {"chop", "\"chop\""},
        {"chip peek zz", "\"zz\""},
        {"chip peek 0x50000000", "0x50000000"},
        {"micro 'open", "quote in column 7"},
        {std::string("micro a\0b", 9), "NUL byte in column 8"},
        {"\"\"", "\"\""},
        {std::string(1 << 20, 'x'), "xx ... xx"},
    };
    for (const auto &each : lines) {
        const std::string file = folder.write(
            "bad", "chip poke 0x60210000 1\n\n" + each.line + "\nchip peek 0x60210000\n");
        const Finished finished = tool({"--script", file});
        EXPECT_EQ(finished.status, 1) << each.line;
        EXPECT_EQ(finished.out, "") << each.line;
        EXPECT_THAT(finished.err, StartsWith("ldsdk: " + file + ":3: ")) << each.line;
        EXPECT_THAT(finished.err, HasSubstr(each.said));
        EXPECT_TRUE(is_one_line(finished.err)) << finished.err;
        EXPECT_LT(finished.err.size(), 1000u);
    }
}

TEST(ToolScript, EchoGoesToStandardError)
{
    // No terminal, so --interactive changes nothing.
    const Finished finished = tool({"-i", "--echo", "-s", "-"}, "# note\nchip peek 0x60210000\n");
    EXPECT_EQ(finished.out, "0x60210000: 00000000\n");
    EXPECT_EQ(finished.err, "# note\nldsdk> chip peek 0x60210000\n");
}

TEST(ToolScript, TheExamplesRun)
{
    const Finished finished =
        tool({"--script", LDSDK_SOURCE_DIR "/examples/scripts/access-node.ldsdk"});
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_THAT(finished.out, HasSubstr("Lodestone1.3.10.0022forQA02MXU"));
    // What the rows hold in the end: ports 0 to 3, snooping; the two leaves of a list.
    EXPECT_THAT(finished.out, HasSubstr("0x60210320: 0000000f 40000000\n"));
    EXPECT_THAT(finished.out, HasSubstr("0x60202028: 800b0003 ffff0004\n"));

    // Television's packets are the internet's once its rule has gone.
    const Finished services =
        tool({"--script", LDSDK_SOURCE_DIR "/examples/scripts/subscriber.ldsdk"});
    EXPECT_EQ(services.status, 0) << services.err;
    EXPECT_THAT(services.out, HasSubstr("rule    2, priority 1\n"));
    EXPECT_THAT(services.out, testing::EndsWith("rule    3, priority 0\n  data    0c 00 00 00\n"));
}

TEST(ToolScript, EndsQuietlyWhenNobodyReads)
{
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    ::close(ends[0]);
    std::string many;
    for (int i = 0; i < 20000; i++) {
        many += "micro chip get\n";
    }
    Process process({LDSDK_TOOL, "--script", "-"}, many, ends[1]);
    ::close(ends[1]);
    const Finished finished = process.wait();
    EXPECT_EQ(finished.status, 1);
    EXPECT_EQ(finished.err, "");
}

// ---- the prompt ---------------------------------------------------------------------------------

// The tool at a terminal of its own.
class Terminal {
  public:
    explicit Terminal(const TempFolder &folder)
    {
        pid_ = ::forkpty(&fd_, nullptr, nullptr, nullptr);
        if (pid_ == 0) {
            ::setenv("TERM", "xterm", 1);
            ::setenv("INPUTRC", "/dev/null", 1);
            ::setenv("XDG_STATE_HOME", folder.path("").c_str(), 1);
            ::execl(LDSDK_TOOL, LDSDK_TOOL, nullptr);
            ::_exit(127);
        }
        type("", "ldsdk> ");
    }
    ~Terminal()
    {
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
        ::close(fd_);
    }
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;

    // What the screen gets for some keys, up to a text; all there is after ten seconds without it.
    std::string type(const std::string &keys, const std::string &until) const
    {
        EXPECT_EQ(::write(fd_, keys.data(), keys.size()), ssize_t(keys.size()));
        std::string screen;
        pollfd polled = {fd_, POLLIN, 0};
        while (screen.find(until) == std::string::npos && ::poll(&polled, 1, 10000) > 0) {
            char bytes[4096];
            const ssize_t size = ::read(fd_, bytes, sizeof bytes);
            if (size <= 0) {
                break;  // the tool has gone
            }
            screen.append(bytes, static_cast<size_t>(size));
        }
        EXPECT_THAT(screen, HasSubstr(until));
        return screen;
    }

  private:
    int fd_ = -1;
    pid_t pid_ = -1;
};

TEST(ToolPrompt, RunsPastedBlocksKeepsHistoryAndShowsWhatIsNoText)
{
    const TempFolder folder;
    const Terminal first(folder);
    const Terminal second(folder);
    first.type("\x1b[200~# note\nchip poke 0x60210000 5\nchop\nmicro chip get\n\x1b[201~\r",
               "not run: 1 further line");
    EXPECT_THAT(first.type("chip peek 0x60210000\r", ": 00000005"), Not(HasSubstr("chop")));
    second.type("# second\r", "ldsdk> ");
    second.type("chip peek 0x60210000 ?", "<WORDS>");
    // A file's name, and one that needs quotes.
    const std::string source = LDSDK_SOURCE_DIR "/examples/microcode/forward.npasm";
    std::string image = run({LDSDK_ASM, source, "-o", "-"}).out;
    const size_t year = image.find("2015");
    ASSERT_NE(year, std::string::npos);
    folder.write("an image", image.replace(year, 4, "\x1b[2J"));
    first.type("chip load " + folder.path("an\t"), "/an image\" ");
    first.type("\rchip loa\t", "chip load ");
    EXPECT_THAT(first.type("\x15micro glb version micro\r", "forward"), HasSubstr("\\x1b[2J"));
    // Nothing was left well; yet all is kept.
    const std::string history = run({"cat", folder.path("ldsdk/history")}).out;
    EXPECT_THAT(history, StartsWith("# note\nchip poke 0x60210000 5\nchop\nmicro chip get\n"));
    EXPECT_THAT(history, HasSubstr("\n# second\nchip load \""));
}

// ---- the server ---------------------------------------------------------------------------------

class Server : public testing::Test {
  protected:
    Server() : socket_(folder_.path("socket")), server_({LDSDK_TOOL, "serve", "--socket", socket_})
    {
        wait_until_serving(server_);
    }

    static void wait_until_serving(const Process &server)
    {
        for (int i = 0; i < 2000 && server.err().find("serving") == std::string::npos; i++) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
    }

    Finished client(std::vector<std::string> arguments, const std::string &input = "") const
    {
        arguments.insert(arguments.begin(), {"--device", "unix:" + socket_});
        return tool(arguments, input);
    }

    // A connection that speaks for itself.
    int connect() const
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        socket_.copy(address.sun_path, sizeof address.sun_path - 1);
        const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(::connect(fd, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
        return fd;
    }

    TempFolder folder_;
    std::string socket_;
    Process server_;
};

std::string little32(uint32_t value)
{
    std::string bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.push_back(static_cast<char>(value >> shift));
    }
    return bytes;
}

std::string request(uint32_t kind, const std::string &body)
{
    return little32(kind) + little32(static_cast<uint32_t>(body.size())) + body;
}

std::string receive_exactly(int fd, size_t size)
{
    std::string bytes(size, '\0');
    size_t held = 0;
    while (held < size) {
        const ssize_t done = ::recv(fd, bytes.data() + held, size - held, 0);
        if (done <= 0) {
            break;
        }
        held += static_cast<size_t>(done);
    }
    bytes.resize(held);
    return bytes;
}

TEST_F(Server, AnswersAsTheToolItself)
{
    struct stat info = {};
    ASSERT_EQ(::stat(socket_.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0600u);

    const std::string text =
        "micro\nmicro chip get\nchip poke 0x60210000 5\nchip peek 0x60210000\n"
        "micro glb version sdk\n";
    const Finished here = script(text);
    const Finished there = client({"--script", "-"}, text);
    EXPECT_EQ(there.status, 0) << there.err;
    EXPECT_EQ(there.out, here.out);

    // The chip outlives a client, the client's choice of a chip doesn't.
    EXPECT_EQ(client({"chip", "attach", "1"}).status, 0);
    EXPECT_EQ(client({"-s", "-"}, "chip select 1\nchip peek 0x60210000\n").out,
              "0x60210000: 00000000\n");
    EXPECT_EQ(client({"chip", "peek", "0x60210000"}).out, "0x60210000: 00000005\n");

    const Finished refused = client({"chip", "peek", "zz"});
    EXPECT_EQ(refused.status, 2);
    EXPECT_EQ(refused.err, tool({"chip", "peek", "zz"}).err);
    EXPECT_EQ(client({"-s", "-"}, "chip peek 0x50000000\n").status, 1);
}

TEST_F(Server, ServesSeveralAtOnceAndLeavesNothingBehind)
{
    const int idle = connect();
    std::vector<std::thread> clients;
    const std::string expected = tool({"micro", "chip", "get"}).out;
    std::string lines;
    std::string text;
    for (int i = 0; i < 500; i++) {
        lines += "micro chip get\n";
        text += expected;
    }
    std::vector<Finished> finished(3);
    for (Finished &each : finished) {
        clients.emplace_back([&] { each = client({"-s", "-"}, lines); });
    }
    for (std::thread &each : clients) {
        each.join();
    }
    for (const Finished &each : finished) {
        EXPECT_EQ(each.status, 0) << each.err;
        EXPECT_EQ(each.out, text);
    }
    EXPECT_THAT(tool({"serve", "--socket", socket_}).err, HasSubstr("another"));
    EXPECT_THAT(tool({"-d", socket_, "micro"}).err, HasSubstr("expected unix:" + socket_));
    // The last place is given away, the next one is told.
    std::vector<int> others;
    for (int i = 1; i < 64; i++) {
        others.push_back(connect());
    }
    EXPECT_THAT(client({"micro"}).err, HasSubstr("64 clients"));
    ::close(others.back());
    EXPECT_EQ(client({"micro"}).status, 0);
    server_.signal(SIGTERM);
    EXPECT_EQ(server_.wait().status, 0);
    EXPECT_EQ(run({"ls", folder_.path("")}).out, "");
    EXPECT_EQ(client({"micro"}).status, 1);
    ::close(idle);
}

// Of two that start at once one serves; its end takes nothing away that has become another's.
TEST_F(Server, APathHasOneServer)
{
    const std::string path = folder_.path("one");
    for (int i = 0; i < 5; i++) {
        Process first({LDSDK_TOOL, "serve", "--socket", path});
        Process second({LDSDK_TOOL, "serve", "--socket", path});
        const auto told = [](const Process &server, const char *text) {
            return server.err().find(text) != std::string::npos ? 1 : 0;
        };
        int serve = 0;
        for (int refused = 0, tries = 0; serve + refused < 2 && tries < 2000; tries++) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            serve = told(first, "serving") + told(second, "serving");
            refused = told(first, "another") + told(second, "another");
        }
        EXPECT_EQ(serve, 1);
    }
    std::filesystem::remove(socket_);
    std::filesystem::remove(socket_ + ".lock");
    Process heir({LDSDK_TOOL, "serve", "--socket", socket_});
    wait_until_serving(heir);
    server_.signal(SIGHUP);
    EXPECT_EQ(server_.wait().status, 0);
    EXPECT_EQ(client({"micro"}).status, 0);
    // What is no lock of ours stays.
    const std::string note = folder_.write("other.lock", "a note");
    EXPECT_EQ(tool({"serve", "--socket", folder_.path("other")}).status, 1);
    EXPECT_EQ(run({"cat", note}).out, "a note");
}

TEST_F(Server, ClientsOpenTheFiles)
{
    // A pipe that nobody writes holds up its client, and no one else; the signal ends that client.
    const std::string pipe = folder_.path("pipe");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const char *command : {"inject", "load", "capture"}) {
        Process stuck({LDSDK_TOOL, "-d", "unix:" + socket_, "chip", command, pipe});
        EXPECT_EQ(client({"chip", "peek", "0x60210000"}).status, 0);
        stuck.signal(SIGTERM);
        EXPECT_EQ(stuck.wait().status, 128 + SIGTERM);
    }
    // Standard input and output are the client's.
    const std::string source = LDSDK_SOURCE_DIR "/examples/microcode/forward.npasm";
    const std::string image = run({LDSDK_ASM, source, "-o", "-"}).out;
    EXPECT_EQ(client({"chip", "load", "-"}, image).status, 0);
    EXPECT_THAT(client({"-s", "-"}, "chip load -\n").err, HasSubstr("command lines"));
    const Finished stream = client({"chip", "capture", "-"});
    EXPECT_EQ(stream.out.size(), 24u) << "the head of a capture";
    EXPECT_EQ(stream.err, "0 packets and 0 messages written, 0 lost\n");
    // A file is replaced with its mode, a link stays, and a device is one afterwards.
    const std::string old = folder_.write("old", "long ago and too long to stay behind the new");
    const std::string link = folder_.path("link");
    ::chmod(old.c_str(), 0640);
    ASSERT_EQ(::symlink("old", link.c_str()), 0);
    EXPECT_EQ(client({"chip", "capture", link}).out, stream.err);
    EXPECT_EQ(run({"cat", old}).out, stream.out);
    EXPECT_EQ(run({"stat", "-c", "%a %F", old, link}).out, "640 regular file\n777 symbolic link\n");
    EXPECT_THAT(client({"chip", "capture", "/dev/full"}).err, HasSubstr("/dev/full: No space"));
    // Limits, on both sides.
    EXPECT_THAT(client({"chip", "load", "/dev/zero"}).err, HasSubstr("more than 16777216 bytes"));
    const int fd = connect();
    const std::string line("chip\0load\0/etc/passwd\0", 22);
    std::string many;
    for (int i = 0; i < 257; i++) {
        many += request(4, std::string(65536, 'x'));
    }
    for (const auto &[frames, said] :
         {std::pair<std::string, std::string>{many, "a file of more"}, {"", "did not come"}}) {
        const std::string bytes = frames + request(2, line);
        ASSERT_EQ(::send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL), ssize_t(bytes.size()));
        EXPECT_EQ(receive_exactly(fd, 4), little32(17));
        const std::string length = receive_exactly(fd, 4);
        EXPECT_THAT(receive_exactly(fd, static_cast<unsigned char>(length[0])), HasSubstr(said));
        receive_exactly(fd, 12);
    }
    ::close(fd);
}

TEST_F(Server, TakesRequestsInPiecesAndRefusesWhatIsNone)
{
    const std::string done = request(18, little32(0));
    const int fd = connect();
    std::string chip("chip\0advance\0", 13);
    chip += std::string("1\0", 2);
    for (const char byte : request(2, chip)) {
        ASSERT_EQ(::send(fd, &byte, 1, MSG_NOSIGNAL), 1);
    }
    EXPECT_EQ(receive_exactly(fd, done.size()), done);

    // Many at once: answered in order.
    std::string many;
    for (int i = 0; i < 100; i++) {
        many += request(2, chip);
    }
    ASSERT_EQ(::send(fd, many.data(), many.size(), MSG_NOSIGNAL), ssize_t(many.size()));
    EXPECT_EQ(receive_exactly(fd, 100 * done.size()).size(), 100 * done.size());

    const std::string none[] = {request(1, "short"), request(2, ""),
                                request(2, std::string("micro\0", 6)), request(99, "")};
    for (const std::string &each : none) {
        ::send(fd, each.data(), each.size(), MSG_NOSIGNAL);
        EXPECT_EQ(receive_exactly(fd, 4), little32(17));
        const std::string length = receive_exactly(fd, 4);
        receive_exactly(fd, static_cast<unsigned char>(length[0]));
        EXPECT_EQ(receive_exactly(fd, done.size()), request(18, little32(2)));
    }
    // A length beyond all bounds ends the connection, and no other.
    const std::string huge = little32(1) + little32(0x7fffffff);
    ::send(fd, huge.data(), huge.size(), MSG_NOSIGNAL);
    receive_exactly(fd, 4096);
    char byte = 0;
    EXPECT_EQ(::recv(fd, &byte, 1, 0), 0);
    ::close(fd);
    EXPECT_EQ(client({"micro", "chip", "get"}).status, 0);
}

TEST_F(Server, TellsWhatCanStandAtEachPlaceOfAChipCommand)
{
    const int fd = connect();
    const auto next = [&](const std::string &line) {
        std::string body = line;
        std::replace(body.begin(), body.end(), ' ', '\0');
        const std::string bytes = request(3, body + '\0');
        ::send(fd, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        std::string text;
        while (receive_exactly(fd, 4) == little32(16)) {
            const std::string length = receive_exactly(fd, 4);
            std::string words =
                receive_exactly(fd, static_cast<unsigned char>(length[0]) +
                                        256u * static_cast<unsigned char>(length[1]));
            for (size_t at = 0; at < words.size();
                 at = words.find('\0', words.find('\0', at) + 1) + 1) {
                text += words.c_str() + at + std::string(" ");
            }
        }
        receive_exactly(fd, 8);
        return text;
    };
    const std::pair<const char *, const char *> places[] = {
        {"chip peek", "<ADDR> "},
        {"chip peek 4", "<WORDS> <end of the line> "},
        {"chip peek 4 4", "<end of the line> "},
        {"chip peek 4 4 4", "<nothing> "},
        {"chip journal", "on off show clear "},
        {"chip journal on", "<end of the line> "},
        {"chip journal no", "<nothing> "},
        {"chip load", "online <FILE> "},
        {"chip load online", "<FILE> "},
        {"chip fault rba nth=1", "<WORD> nth= count= code= status= op= busy <end of the line> "},
        {"chip zz", "<nothing> "},
        {"micro zz", "<nothing> "},
        {"micro chip get", "<end of the line> "},
    };
    for (const auto &[line, words] : places) {
        EXPECT_EQ(next(line), words) << line;
    }
    EXPECT_THAT(next("chip show lcam"), StartsWith("<TABLE> "));
    EXPECT_THAT(next("chip fault"), HasSubstr(" Qd_PBA_AtomModeSet "));

    // Every command is on the page, and every place of it knows what it takes.
    std::ifstream page(LDSDK_SOURCE_DIR "/docs/tool.md");
    const std::string docs((std::istreambuf_iterator<char>(page)), {});
    std::istringstream help(client({"chip", "help"}).out);
    for (std::string line; std::getline(help, line);) {
        std::istringstream usage(line.substr(0, line.find(" \t")));
        std::string path;
        for (std::string word; usage >> word;) {
            if (std::islower(static_cast<unsigned char>(word[0])) == 0) {
                const size_t begin = word.find_first_not_of('[');
                EXPECT_THAT(
                    next(path),
                    HasSubstr("<" + word.substr(begin, word.find_first_of(".]") - begin) + ">"));
            }
            path += (path.empty() ? "" : " ") + word;
        }
        EXPECT_THAT(docs, HasSubstr("`" + path)) << path;
    }
    ::close(fd);
}

TEST_F(Server, ItsDeathIsTold)
{
    server_.signal(SIGKILL);
    server_.wait();
    const Finished refused = client({"micro"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("Connection refused"));
    // The socket file that it left is no hindrance for the next.
    Process next({LDSDK_TOOL, "serve", "--socket", socket_});
    wait_until_serving(next);
    EXPECT_EQ(client({"micro", "chip", "get"}).status, 0);
}

// Something at the socket that takes a request and goes, or answers in a language of its own.
TEST(ToolDevice, StrangersAtTheSocketAreTold)
{
    const TempFolder folder;
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    folder.path("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(listener, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    ASSERT_EQ(::listen(listener, 1), 0);
    const std::pair<std::string, const char *> answers[] = {
        {"", "gone"},
        {request(16, "half").substr(0, 10), "gone"},
        {"HTTP/1.1 400 Bad Request", "none of `ldsdk serve`"},
        {request(7, "?"), "none of `ldsdk serve`"}};
    for (const auto &[answer, said] : answers) {
        Process process({LDSDK_TOOL, "-d", "unix:" + folder.path("socket"), "-s", "-"},
                        "\nmicro\n");
        const int fd = ::accept(listener, nullptr, nullptr);
        receive_exactly(fd, 520);
        ::send(fd, answer.data(), answer.size(), MSG_NOSIGNAL);
        ::close(fd);
        const Finished finished = process.wait();
        EXPECT_EQ(finished.status, 1);
        EXPECT_EQ(finished.out, "");
        EXPECT_THAT(finished.err, StartsWith("ldsdk: -:2: unix:"));
        EXPECT_THAT(finished.err, HasSubstr(said));
    }
    ::close(listener);
}

// ---- the assembler's program
// ----------------------------------------------------------------------

TEST(ToolAsm, TakesWhatItPrints)
{
    const TempFolder folder;
    const std::string image = folder.path("forward.npimg");
    const std::string again = folder.path("again.npimg");
    const std::string source = LDSDK_SOURCE_DIR "/examples/microcode/forward.npasm";
    const Finished assembled = run({LDSDK_ASM, source, "-o", image});
    EXPECT_EQ(assembled.status, 0);
    EXPECT_EQ(assembled.out + assembled.err, "");
    const Finished printed = run({LDSDK_ASM, "-d", image});
    EXPECT_EQ(printed.status, 0);
    EXPECT_THAT(printed.out, HasSubstr(".date \"2015\", \"01\", \"15\"\n"));
    EXPECT_EQ(run({LDSDK_ASM, "-", "--output", again}, printed.out).status, 0);
    const std::string bytes = run({"cat", image}).out;
    EXPECT_EQ(bytes.size(), 1652u);
    EXPECT_EQ(bytes, run({"cat", again}).out);
    EXPECT_EQ(bytes, run({LDSDK_ASM, source, "-o", "-"}).out);
    EXPECT_EQ(tool({"chip", "load", image}).out, "");
    for (const std::string load : {"load", "load online"}) {
        const std::string cut = folder.write("cut", bytes.substr(0, bytes.size() - 1));
        const Finished loaded = script("chip " + load + " " + cut + "\n");
        EXPECT_EQ(loaded.status, 0) << loaded.err;
        EXPECT_THAT(loaded.out, HasSubstr("cut looks cut short: 1651 bytes; expected 1652"));
    }
    const std::string longer = folder.write("longer", bytes + "x");
    EXPECT_THAT(tool({"chip", "load", longer}).out, HasSubstr("expected a multiple of 4"));
}

TEST(ToolAsm, WrongInputLeavesNoFile)
{
    const TempFolder folder;
    const std::string image = folder.path("image");
    const std::string source = folder.write("bad.npasm", "        NOP\nfoo\n  BAR 1\n");
    const std::string nowhere = folder.path("none/image");
    const struct {
        std::vector<std::string> arguments;
        int status;
        std::vector<std::string> said;
    } cases[] = {
        {{source, "-o", image}, 1, {source + ":2:1: ", "\"foo\"", source + ":3:3: "}},
        {{folder.path("none"), "-o", image},
         1,
         {"ldsdk-asm: " + folder.path("none") + ": No such"}},
        {{folder.path(""), "-o", image}, 1, {"Is a directory"}},
        {{"/dev/null", "-o", nowhere}, 1, {"ldsdk-asm: " + nowhere + ": No such"}},
        {{source}, 2, {"-o IMAGE"}},
        {{}, 2, {"FILE is required"}},
        {{source, "-x"}, 2, {"-x"}},
    };
    for (const auto &[arguments, status, said] : cases) {
        std::vector<std::string> line = {LDSDK_ASM};
        line.insert(line.end(), arguments.begin(), arguments.end());
        const Finished finished = run(line);
        EXPECT_EQ(finished.status, status);
        EXPECT_EQ(finished.out, "");
        for (const std::string &text : said) {
            EXPECT_THAT(finished.err, HasSubstr(text));
        }
        EXPECT_EQ(run({"ls", folder.path("")}).out, "bad.npasm\n");
    }
}

// What an output is stays as it is; only the bytes of a file are replaced.
TEST(ToolAsm, AnOutputOfAnyKindStaysWhatItIs)
{
    namespace fs = std::filesystem;
    const TempFolder folder;
    const std::string source = folder.write("x.npasm", "NOP\n");
    const std::string bytes = run({LDSDK_ASM, source, "-o", "-"}).out;
    const std::string file = folder.write("file", "old");
    fs::permissions(file, fs::perms(0600));
    const std::string none = folder.path("none");
    const std::string fifo = folder.path("fifo");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    const int reader = ::open(fifo.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    for (const auto &[name, target] :
         std::initializer_list<std::pair<std::string, std::string>>{{"to_file", "file"},
                                                                    {"to_none", none},
                                                                    {"to_source", source},
                                                                    {"full", "/dev/full"},
                                                                    {"null", "/dev/null"},
                                                                    {"loop", "loop"}}) {
        fs::create_symlink(target, folder.path(name));
    }
    fs::create_hard_link(source, folder.path("again"));
    const struct {
        std::string output;
        std::string said;  // nothing: it works
        std::string written;
    } cases[] = {
        {"file", "", file},
        {"to_file", "", file},
        {"to_none", "", none},
        {"null", "", ""},
        {"fifo", "", ""},
        {"full", "full: No space left on device", ""},
        {"loop", "loop: Too many levels", ""},
        {".", "Is a directory", ""},
        {"x.npasm", "is the input", ""},
        {"to_source", "is the input", ""},
        {"again", "is the input", ""},
    };
    for (const auto &each : cases) {
        folder.write("file", "old");
        const std::string output = folder.path(each.output);
        const auto type = fs::symlink_status(output).type();
        const Finished finished = run({LDSDK_ASM, source, "-o", output});
        EXPECT_EQ(finished.status, each.said.empty() ? 0 : 1) << each.output;
        EXPECT_THAT(finished.err, HasSubstr(each.said)) << each.output;
        EXPECT_EQ(fs::symlink_status(output).type(), type) << each.output;
        EXPECT_EQ(fs::status(file).permissions(), fs::perms(0600)) << each.output;
        if (!each.written.empty()) {
            EXPECT_EQ(run({"cat", each.written}).out, bytes) << each.output;
        }
    }
    std::string piped(bytes.size() + 1, '\0');
    EXPECT_EQ(::read(reader, piped.data(), piped.size()), ssize_t(bytes.size()));
    ::close(reader);
    EXPECT_EQ(run({LDSDK_ASM, "-", "-o", source}, "NOP\n").status, 0);
    EXPECT_EQ(run({"cat", folder.path("again")}).out, "NOP\n") << "the other name keeps its file";
    EXPECT_EQ(run({"sh", "-c", "ls -A " + folder.path("") + " | wc -l"}).out, "11\n");
}

}  // namespace

}  // namespace ldsdk::test
