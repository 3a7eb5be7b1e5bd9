// Captures in and out: files that come with a Debian package, frames that a packet library made,
// and an independent reader for what was written.

#include "tests/fixture.h"
#include "tests/process.h"

#include "host/pcap/capture.h"

#include <algorithm>
#include <map>
#include <sstream>

namespace ldsdk::test {

namespace {

using testing::HasSubstr;
using Bytes = std::vector<uint8_t>;

// Of golang-github-google-gopacket-dev.
const std::string kCaptures = "/usr/share/gocode/src/github.com/google/gopacket/pcap/";

// Frames in hexadecimal, by a second reader.
std::vector<std::string> frames_of(const std::string &path)
{
    const Finished finished = run({"tcpdump", "-nn", "-t", "-xx", "-r", path});
    EXPECT_EQ(finished.status, 0) << finished.err;
    std::vector<std::string> frames;
    std::istringstream lines(finished.out);
    for (std::string line; std::getline(lines, line);) {
        const size_t colon = line.find(":  ");
        if (line.rfind("\t0x", 0) != 0 || colon == std::string::npos) {
            frames.emplace_back();
            continue;
        }
        const std::string digits = line.substr(colon + 3);
        std::copy_if(digits.begin(), digits.end(), std::back_inserter(frames.back()),
                     [](char sign) { return sign != ' '; });
    }
    return frames;
}

std::string hex(const Bytes &bytes)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    for (const uint8_t byte : bytes) {
        text += {kDigits[byte >> 4], kDigits[byte & 15]};
    }
    return text;
}

// Frames of a packet library: what they hold and where they are written.
const char *const kMaker = R"(
import sys
from scapy.layers.l2 import Ether, Dot1Q, Dot1AD, ARP
from scapy.layers.inet import IP, UDP, TCP, ICMP
from scapy.layers.inet6 import IPv6
from scapy.layers.ppp import PPPoED
from scapy.utils import wrpcap
eth = Ether(dst="00:11:22:33:44:55", src="66:77:88:99:aa:bb")
wrpcap(sys.argv[1], [
    eth / ARP(pdst="10.0.0.1"),
    eth / Dot1Q(vlan=100, prio=5) / IP(dst="10.0.0.2") / UDP(dport=53) / (b"x" * 200),
    eth / Dot1AD(vlan=4000) / Dot1Q(vlan=7) / IP(dst="10.0.0.3") / TCP(dport=80),
    eth / IPv6(dst="2001:db8::1") / UDP() / (b"y" * 1400),
    eth / PPPoED(),
    eth / IP(dst="10.0.0.4") / ICMP() / (b"z" * 9000),
])
)";

class Captures : public ChipUp {
  protected:
    struct Received {
        uint32_t code;
        ::ReceiveInfo info;
        Bytes data;
    };
    static Received receive()
    {
        Received got = {};
        got.data.resize(10300);
        got.info.ulBufLen = static_cast<uint32_t>(got.data.size());
        got.info.pucData = got.data.data();
        got.code = Np_Cputr_PktReceive(0, &got.info);
        got.data.resize(got.info.ulPktLen);
        return got;
    }
    std::string made() const
    {
        const std::string path = folder.path("made.pcap");
        const Finished finished = ldsdk::test::run({"/usr/bin/python3", "-c", kMaker, path});
        EXPECT_EQ(finished.status, 0) << finished.err;
        return path;
    }
    // Sends a frame to a place in the microcode that takes nothing else.
    static uint32_t send(const Bytes &frame)
    {
        InfoForSend info = {};
        info.ulPktLen = static_cast<uint32_t>(frame.size());
        info.pucData = frame.data();
        info.ulSubType = 5;
        return Np_Cputr_PktSend(0, &info);
    }

    TempFolder folder;
};

TEST_F(Captures, EveryFrameOfACaptureIsReceivedAsItStandsThere)
{
    const std::pair<std::string, uint32_t> files[] = {
        {kCaptures + "test_ethernet.pcap", 10}, {kCaptures + "test_dns.pcap", 10}, {made(), 6}};
    for (const auto &[path, least] : files) {
        SCOPED_TRACE(path);
        const std::vector<std::string> frames = frames_of(path);
        ASSERT_GE(frames.size(), least);
        const host::FeedResult fed = host::feed_capture(path, 0, 9);
        EXPECT_EQ(fed.frames, frames.size());
        EXPECT_EQ(fed.fed, frames.size());
        EXPECT_EQ(fed.cut, 0u);
        for (const std::string &frame : frames) {
            const Received got = receive();
            ASSERT_EQ(got.code, 0u);
            EXPECT_EQ(hex(got.data), frame);
            EXPECT_EQ(got.info.stSportID.ulPortType, 6u) << "ge 1 has number 9";
            EXPECT_EQ(got.info.stSportID.ulPortID, 1u);
        }
        EXPECT_NE(receive().code, 0u);
    }
}

TEST_F(Captures, TagsOfAFrameAreTold)
{
    host::feed_capture(made(), 0, 9);
    const std::pair<uint32_t, uint32_t> expected[] = {{0, 0}, {1, 100}, {2, 4000},
                                                      {0, 0}, {0, 0},   {0, 0}};
    for (const auto &[tags, vlan] : expected) {
        const Received got = receive();
        EXPECT_EQ(got.info.ulTagInfo, tags);
        EXPECT_EQ(got.info.ulVlanID, vlan);
    }
}

TEST_F(Captures, WhatTheHostSentIsReadByOthers)
{
    // The frames of a library go in, are sent on by the host, and come out in a capture.
    const std::string source = made();
    const std::vector<std::string> frames = frames_of(source);
    host::feed_capture(source, 0, 9);
    for (size_t count = 0; count < frames.size(); count++) {
        model::advance(0, 12345);
        ASSERT_EQ(send(receive().data), 0u);
    }
    const std::string copy = folder.path("copy.pcap");
    const host::SaveResult saved = host::save_capture(copy, 0);
    EXPECT_EQ(saved.packets, frames.size());
    EXPECT_EQ(saved.messages, 0u);
    EXPECT_EQ(saved.lost, 0u);
    EXPECT_EQ(frames_of(copy), frames);
    const Finished read = ldsdk::test::run({"tcpdump", "-nn", "-tt", "-r", copy});
    EXPECT_EQ(read.status, 0) << read.err;
    EXPECT_THAT(read.err, HasSubstr("EN10MB"));
    EXPECT_THAT(read.out, testing::StartsWith("1.234500 ARP")) << "the chip's clock";
    EXPECT_THAT(read.out, HasSubstr("\n2.469000 IP"));
    EXPECT_THAT(read.out, HasSubstr("10.0.0.2.53"));
    EXPECT_THAT(read.out, HasSubstr("PPPoE"));

    // A message keeps its header and its body.
    const uint8_t body[] = {0, 1, 0, 5, 0, 0, 0xff, 0xff};
    const QdCputrSendPkt message = {{0x04000000, 511}, sizeof body, body};
    ASSERT_EQ(Qd_CPUTR_PacketSend(0, &message), 0u);
    EXPECT_EQ(host::save_capture(copy, 0).messages, 1u);
    EXPECT_EQ(frames_of(copy).back(),
              "020000000002020000000001"
              "88b5"
              "04000000"
              "000001ff"
              "000100050000ffff");
}

TEST_F(Captures, OnlyTheNewestAreKeptAndItSaysSo)
{
    const Bytes frame(1500, 0x55);
    for (uint32_t count = 0; count < 400; count++) {
        ASSERT_EQ(send(frame), 0u);
    }
    const std::string path = folder.path("newest.pcap");
    const host::SaveResult saved = host::save_capture(path, 0);
    EXPECT_EQ(saved.packets + saved.lost, 400u);
    EXPECT_GT(saved.packets, 80u);
    EXPECT_EQ(frames_of(path).size(), saved.packets);
}

TEST_F(Captures, BadFilesAreRefusedInOneLine)
{
    const auto reason = [](const std::string &path) {
        try {
            host::feed_capture(path, 0, 9);
        }
        catch (const std::runtime_error &error) {
            return std::string(error.what());
        }
        return std::string("taken");
    };
    EXPECT_THAT(reason(folder.path("none.pcap")), HasSubstr("No such file"));
    EXPECT_THAT(reason(folder.write("text.pcap", "this is no capture at all, but it is long")),
                HasSubstr("text.pcap: unknown file format"));
    EXPECT_THAT(reason(folder.write("empty.pcap", "")), HasSubstr("empty.pcap: "));
    EXPECT_THAT(reason(kCaptures + "test_loopback.pcap"), HasSubstr("expected Ethernet"));
    // A file that ends within a frame: the whole ones before it are fed.
    std::ifstream whole(made(), std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(whole)), std::istreambuf_iterator<char>());
    EXPECT_THAT(reason(folder.write("torn.pcap", text.substr(0, text.size() - 100))),
                HasSubstr("after 5 frames"));
    EXPECT_EQ(model::receive_waiting(0), 5u);
    // Frames that the chip cannot have: a header of 24 bytes, then 16 bytes in front of each frame.
    const std::string head = text.substr(0, 24);
    const auto record = [](uint32_t size) {
        const uint32_t words[] = {0, 0, size, size};
        return std::string(reinterpret_cast<const char *>(words), sizeof words) +
               std::string(size, 'x');
    };
    EXPECT_THAT(reason(folder.write("none.pcap", head + record(60) + record(0))),
                HasSubstr("none.pcap: after 1 frames: a frame of 0 bytes; expected 1 to 10240"));
    EXPECT_THAT(reason(folder.write("long.pcap", head + record(10241))),
                HasSubstr("after 0 frames: a frame of 10241 bytes"));
    EXPECT_EQ(reason(folder.write("most.pcap", head + record(10240) + record(1))), "taken");
    EXPECT_EQ(model::receive_waiting(0), 8u);
    EXPECT_THROW(host::save_capture(folder.path("no/such/folder.pcap"), 0), std::runtime_error);
}

TEST_F(Captures, TheToolFeedsReceivesSendsAndSaves)
{
    const std::string saved = folder.path("saved.pcap");
    const std::string script = "chip inject " + kCaptures +
                               "test_ethernet.pcap bonding:5\n"
                               "micro cputr receive\n"
                               "chip loop on\n"
                               "micro cputr send insert_type cm ulCmGroupID 9 ulPktLen 18 pucData "
                               "0011223344556677889900aa88b6010203 end\n"
                               "chip sent\n"
                               "chip standin show\n"
                               "chip channels\n"
                               "chip capture " +
                               saved + "\n";
    const Finished finished = ldsdk::test::run({LDSDK_TOOL, "--script", "-"}, script);
    EXPECT_EQ(finished.status, 0) << finished.err;
    EXPECT_THAT(finished.out, HasSubstr("10 frames fed\n"));
    EXPECT_THAT(finished.out, HasSubstr("porttype                 :   bonding"));
    EXPECT_THAT(finished.out, HasSubstr(" bytes: cm payload_offset=12 cm_group=9\n"));
    EXPECT_THAT(finished.out, HasSubstr("looped          1\n"));
    EXPECT_THAT(finished.out, HasSubstr("auto-send engine on\n"));
    EXPECT_THAT(finished.out, HasSubstr("1 packet and 0 messages written, 0 lost\n"));
    EXPECT_THAT(frames_of(saved),
                testing::ElementsAre(testing::StartsWith("0011223344556677889900aa88b6010203")));

    const Finished full = ldsdk::test::run({LDSDK_TOOL, "--script", "-"}, [&] {
        std::string lines;
        for (int count = 0; count < 40; count++) {
            lines += "chip inject " + kCaptures + "test_ethernet.pcap\n";
        }
        return lines;
    }());
    EXPECT_EQ(full.status, 1);
    EXPECT_THAT(full.err, HasSubstr("the chip refuses frame 3 of 10: its receive queue is full"));
    const std::map<std::string, std::string> refused = {
        {"ge:18", "no such port"}, {"lan:1", "expected TYPE"}, {"fe:x", "\"x\""}, {"", "TYPE"}};
    for (const auto &[port, text] : refused) {
        const Finished bad = ldsdk::test::run(
            {LDSDK_TOOL, "chip", "inject", kCaptures + "test_ethernet.pcap", port});
        EXPECT_EQ(bad.status, 2) << port;
        EXPECT_THAT(bad.err, HasSubstr(text));
    }
}

}  // namespace

}  // namespace ldsdk::test
