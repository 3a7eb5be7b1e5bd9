// Reading what the module prints back from the kernel log, through a socket that keeps records
// apart as the log does.
#include "tools/log/kernel_log.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <chrono>
#include <cstdio>
#include <string>
#include <thread>

using namespace ldsdk::tool;

namespace {

TEST(LogRecordTest, TakesApartWhatTheModulePrints)
{
    const struct {
        const char *record;
        uint64_t sequence;
        const char *text;  // null: somebody else's
    } kRows[] = {
        {"6,339,5140900,-;ldsdk: NP SDK is installed.\n", 339, "NP SDK is installed.\n"},
        {"6,340,5140900,-;ldsdk: \n", 340, "\n"},
        {"6,341,5140900,-;ldsdk+ piece\n", 341, "piece"},
        {"6,341,5140900,-;ldsdk. last piece\n", 341, "last piece"},
        {"6,341,5140900,-;ldsdk[12]: of a sibling's call\n", 341, nullptr},
        {"6,342,5140900,-;ldsdk: \\x0d[x 00001]: a\\x09b\n", 342, "\r[x 00001]: a\tb\n"},
        {"6,343,5140900,-;ldsdk: \\x5cx41 \\xc3\\xa9\n", 343, "\\x41 \xc3\xa9\n"},
        // no escapes of the kernel's: as they are
        {"6,344,5140900,-;ldsdk: \\xzz \\x4\n", 344, "\\xzz \\x4\n"},
        {"6,345,5140900,-;ldsdk: with a property\n SUBSYSTEM=misc\n", 345, "with a property\n"},
        {"6,346,5140900,c,caller=T1;ldsdk: more fields; and a semicolon\n", 346,
         "more fields; and a semicolon\n"},
        {"4,347,5140900,-;random: crng init done\n", 347, nullptr},
        {"6,348,5140900,-;ldsdk_sibling: chip 0 is up\n", 348, nullptr},
    };
    for (const auto &row : kRows) {
        SCOPED_TRACE(row.record);
        const auto record = read_log_record(row.record);
        ASSERT_TRUE(record.has_value());
        EXPECT_EQ(row.sequence, record->sequence);
        ASSERT_EQ(row.text != nullptr, record->text.has_value());
        if (row.text != nullptr) {
            EXPECT_EQ(row.text, *record->text);
        }
    }
    for (const char *none : {"", "6", "6,7", ";text", "6,x,1,-;ldsdk: a\n", "text;ldsdk: 1,2\n"}) {
        EXPECT_FALSE(read_log_record(none).has_value()) << none;
    }
}

class KernelLogTest : public testing::Test {
  protected:
    void SetUp() override
    {
        int ends[2];
        ASSERT_EQ(0, ::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_NONBLOCK, 0, ends));
        kernel_ = Fd(ends[0]);
        log_.emplace(Fd(ends[1]));
    }

    void put(uint64_t sequence, const std::string &text)
    {
        const std::string record = "6," + std::to_string(sequence) + ",1,-;" + text + "\n";
        ASSERT_EQ(static_cast<ssize_t>(record.size()),
                  ::send(kernel_.get(), record.data(), record.size(), 0));
    }
    uint64_t read(int wait_ms = 0)
    {
        text_.clear();
        return log_->read([&](std::string_view text) { text_ += text; }, wait_ms);
    }

    Fd kernel_;
    std::optional<KernelLog> log_;
    std::string text_;
};

TEST_F(KernelLogTest, JoinsPiecesAndLeavesOthersOut)
{
    put(10, "ldsdk+ a");
    put(11, "eth0: link is up");
    put(12, "ldsdk+ b");
    put(13, "ldsdk: c");
    put(14, "ldsdk: ");
    EXPECT_EQ(0u, read());
    EXPECT_EQ("abc\n\n", text_);
    EXPECT_EQ(0u, read());
    EXPECT_EQ("", text_);
}

TEST_F(KernelLogTest, WaitsForTheLastRecordOfACommand)
{
    put(10, "ldsdk: a");
    std::thread late([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        put(11, "ldsdk. b");
        put(12, "ldsdk: of the next one");
    });
    EXPECT_EQ(0u, read(60000));
    EXPECT_EQ("a\nb", text_);
    late.join();
    EXPECT_EQ(1u, read(1)) << "the next one's last record is lost";
}

TEST_F(KernelLogTest, CountsWhatTheKernelDropped)
{
    put(10, "ldsdk: a");
    put(13, "ldsdk: b");
    EXPECT_EQ(2u, read());
    EXPECT_EQ("a\nb\n", text_);
    put(14, "ldsdk: c");
    EXPECT_EQ(0u, read());
    put(20, "random: crng init done");
    EXPECT_EQ(5u, read());
}

}  // namespace
