// Packets to and from the microcode, and their commands, on a scripted driver.
#include "tests/driver_tap.h"
#include "tests/shell.h"

#include "sdk/cpuchan/frameinfo.h"
#include "sdk/cpuchan/packet.h"
#include "sdk/frame/base/service.h"

#include <functional>
#include <memory>
#include <random>

namespace {

using ldsdk::test::DriverTap;
using ldsdk::test::Shell;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::EndsWith;
using testing::HasSubstr;
using Bytes = std::vector<uint8_t>;

class Packets : public Shell {
  protected:
    Packets()
    {
        EXPECT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
        EXPECT_EQ(Np_GLB_ChipIDIsValid(0), NP_OK);
        trace_errors(NP_M_CPUTR);
    }

    uint32_t send(const InfoForSend &info)
    {
        trace_errors(NP_M_CPUTR);
        return Np_Cputr_PktSend(0, &info);
    }

    uint32_t random_to(uint32_t most)
    {
        return std::uniform_int_distribution<uint32_t>(0, most)(random);
    }

    DriverTap tap;
    std::mt19937 random{11};
    const uint8_t data[4] = {0xde, 0xad, 0xbe, 0xef};
};

uint32_t bits(uint32_t word, uint32_t high, uint32_t low)
{
    return static_cast<uint32_t>((uint64_t{word} & ((uint64_t{2} << high) - 1)) >> low);
}

std::string hex(uint32_t value)
{
    char text[16];
    snprintf(text, sizeof(text), "0x%08x", value);
    return text;
}

// Nothing is allocated while it lives.
class NoAllocation {
  public:
    NoAllocation()
    {
        Os_HostMemoryGet(&before_);
    }
    ~NoAllocation()
    {
        OsHostMemory after;
        Os_HostMemoryGet(&after);
        EXPECT_EQ(after.ulAllocs, before_.ulAllocs);
    }

  private:
    OsHostMemory before_;
};

struct Place {
    uint32_t word, high, low;
};

// A field: where it is in its record, its highest value, what its refusal says before the value,
// and the bits that carry it, least significant piece first.
struct Field {
    size_t offset;
    uint32_t most;
    std::string text;
    std::vector<Place> places;

    template <typename Record>
    uint32_t &of(Record &record) const
    {
        return *reinterpret_cast<uint32_t *>(reinterpret_cast<uint8_t *>(&record) + offset);
    }
    // The value in the words, where 0 is left behind.
    uint32_t take(uint32_t *words) const
    {
        uint32_t value = 0;
        uint32_t shift = 0;
        for (const auto &[word, high, low] : places) {
            value |= bits(words[word], high, low) << shift;
            shift += high - low + 1;
            words[word] &= ~(bits(0xffffffff, high, low) << low);
        }
        return value;
    }
    std::string refusal() const
    {
        // A flag's message has a blank behind the value.
        return text + hex(most + 1) + (text.ends_with(' ') ? " \r\n" : "\r\n");
    }
};

Field make_field(size_t offset, uint32_t most, std::string text, std::vector<Place> places)
{
    return {offset, most, std::move(text), std::move(places)};
}
#define FIELD(record, member, most, text, ...) \
    make_field(offsetof(record, member), most, text, {__VA_ARGS__})

const std::string kFlag = "enable Para error: ";
const std::string kBool = "true/false Para error: ";

// ---- send ---------------------------------------------------------------------------------------

// The fields of an insert type in the order of their checks; those without places depend on others.
struct Insert {
    uint32_t type;
    std::vector<Field> fields;
};

#define INSERT(member, most, text, ...) \
    FIELD(InfoForSend, unInsertPkt.member, most, text, __VA_ARGS__)
#define NAMED(member, most, ...) \
    INSERT(member, most, "param error! pstInfoForSend->unInsertPkt." #member "=", __VA_ARGS__)
#define TMP(member, field, most, ...) \
    INSERT(member.field, most, "param error! pstTmp->" #field "=", __VA_ARGS__)

std::vector<Insert> inserts()
{
    return {
        {0,
         {NAMED(stInsertToQueue.ulQID, 511, {1, 31, 24}, {0, 3, 0}),
          NAMED(stInsertToQueue.ulOftID, 1023, {0, 15, 4})}},
        {1,
         {NAMED(stInsertToFwd.ulFwdVlan, 4095, {1, 27, 16}),
          NAMED(stInsertToFwd.ulHS, 255, {1, 15, 8}), NAMED(stInsertToFwd.ulIcos, 7, {0, 15, 13}),
          NAMED(stInsertToFwd.ulIftID, 1023), NAMED(stInsertToFwd.ulVsi, 15, {1, 31, 28}),
          NAMED(stInsertToFwd.ulRole, 3, {1, 7, 6}), NAMED(stInsertToFwd.ulClass, 3, {1, 5, 4}),
          INSERT(stInsertToFwd.ulLrnEnable, 1, kFlag, {1, 3, 3}),
          INSERT(stInsertToFwd.ulPfeEnable, 1, kFlag, {1, 2, 2}),
          INSERT(stInsertToFwd.ulBundleEnalbe, 1, kFlag, {1, 1, 1}),
          NAMED(stInsertToFwd.ulBundleID, 31), NAMED(stInsertToFwd.ulPri, 7)}},
        {2,
         {TMP(stInsertToIft, ulIcos, 7, {0, 15, 13}), TMP(stInsertToIft, ulUserID, 511, {0, 8, 0}),
          INSERT(stInsertToIft.ulPfEnable, 1, kFlag, {0, 12, 12}),
          TMP(stInsertToIft, ulRole, 3, {1, 15, 14}), TMP(stInsertToIft, ulClass, 3, {0, 11, 10})}},
        {3,
         {NAMED(stInsertToOft.ulIcos, 7, {0, 15, 13}),
          NAMED(stInsertToOft.ulOftID, 1023, {0, 12, 0})}},
        {5, {TMP(stInsertToCm, ulCmGroupID, 255, {0, 8, 0})}},
        {7,
         {TMP(stInsertToL2Encap, ulIcos, 7, {0, 15, 13}),
          TMP(stInsertToL2Encap, ulL2EncapID, 31, {0, 12, 0})}},
    };
}

// What the fields' rows don't say: port, frame info, a bundle or a flow. Takes the bits out of the
// words, as a check that nothing else is set.
void take_the_rest(const InfoForSend &info, uint32_t (&head)[2])
{
    if (info.ulSubType == 0) {
        EXPECT_EQ(bits(head[1], 23, 0), 0xabcdefu);  // the frame info given
        head[1] &= 0xff000000;
    }
    if (info.ulSubType == 1) {
        const NpInsertToFwd &fwd = info.unInsertPkt.stInsertToFwd;
        const uint32_t low =
            fwd.ulBundleEnalbe == 1 ? fwd.ulPri << 10 | fwd.ulBundleID : fwd.ulIftID;
        EXPECT_EQ(bits(head[0], 12, 0), low);
        head[0] &= ~0x1fffu;
    }
    if (info.ulSubType == 2) {
        EXPECT_EQ(bits(head[1], 25, 16), 512u + 6);  // what the driver makes of type 6
        head[1] &= ~0x03ff0000u;
    }
}

InfoForSend blank(uint32_t type, const uint8_t *bytes, uint32_t length)
{
    InfoForSend info = {};
    info.ulPktLen = length;
    info.pucData = bytes;
    info.ulSubType = type;
    if (type == 0) {
        info.unInsertPkt.stInsertToQueue.ulFrameInfoType = 7;
        info.unInsertPkt.stInsertToQueue.unFrameInfo.stLoopBack.ulRsvd = 0xabcdef;
    }
    if (type == 2) {
        info.unInsertPkt.stInsertToIft.stPortID = {6, 1, 2, 3};
    }
    return info;
}

TEST_F(Packets, EveryHeaderSaysWhatTheRecordSays)
{
    const NoAllocation quiet;
    for (const Insert &insert : inserts()) {
        for (int round = 0; round < 300; round++) {
            InfoForSend info = blank(insert.type, data, sizeof(data));
            for (const Field &field : insert.fields) {
                field.of(info) = round == 0 ? field.most : random_to(field.most);
            }
            ASSERT_EQ(send(info), NP_OK) << insert.type;
            const DriverTap::Call call = tap.take().back();
            EXPECT_EQ(call.data, data) << "not copied";
            EXPECT_THAT(call.body, ElementsAreArray(data));
            uint32_t head[2] = {call.head.at(0), call.head.at(1)};
            EXPECT_EQ(bits(head[0], 31, 16), insert.type << 8 | 12);
            head[0] &= 0xffff;
            for (const Field &field : insert.fields) {
                if (!field.places.empty()) {
                    EXPECT_EQ(field.take(head), field.of(info)) << insert.type << field.text;
                }
            }
            take_the_rest(info, head);
            EXPECT_THAT(head, ElementsAre(0, 0)) << "bits without a name in type " << insert.type;
        }
    }
}

// With all fields out of range the first of the order is named; with that one put right, the next.
TEST_F(Packets, FieldsAreCheckedInTheirOrder)
{
    for (const Insert &insert : inserts()) {
        InfoForSend info = blank(insert.type, data, sizeof(data));
        for (const Field &field : insert.fields) {
            field.of(info) = field.most + 1;
        }
        info.unInsertPkt.stInsertToQueue.ulFrameInfoType += insert.type == 0 ? 1 : 0;
        for (const Field &field : insert.fields) {
            EXPECT_EQ(send(info), NP_ERR_PARAM);
            const std::string text = out.take();
            EXPECT_THAT(text, HasSubstr(field.refusal()));
            EXPECT_THAT(text, EndsWith("Func error return: 0x9a000005 \r\n"));
            field.of(info) = field.most;
        }
        if (insert.type == 0) {
            EXPECT_EQ(send(info), NP_ERR_PARAM);
            EXPECT_THAT(out.take(), HasSubstr("param error! ulFrameInfoType=0x00000008\r\n"));
            info.unInsertPkt.stInsertToQueue.ulFrameInfoType = 0;
        }
        EXPECT_THAT(tap.take_names(), testing::Not(HasSubstr("PacketSend")));
        EXPECT_EQ(send(info), NP_OK);
        EXPECT_THAT(tap.take_names(), EndsWith("PacketSend"));
    }
}

TEST_F(Packets, SendRefusals)
{
    std::vector<uint8_t> large(10241);
    struct Case {
        uint32_t type, length, code;
        std::string text;
    };
    const std::vector<Case> cases = {
        {5, 0, NP_ERR_PARAM, "param error! pstInfoForSend->ulPktLen=0x00000000\r\n"},
        {5, 10241, NP_ERR_PARAM, "param error! pstInfoForSend->ulPktLen=0x00002801\r\n"},
        {8, 0, NP_ERR_PARAM, "ulPktLen"},
        {8, 1, NP_ERR_PARAM, "param error! pstInfoForSend->ulSubType=0x00000008\r\n"},
        {4, 1, NP_ERR_PARAM, " SubType error when send: ulSubType = 0x00000004 \r\n"},
        {6, 1, NP_ERR_PARAM, " SubType error when send: ulSubType = 0x00000006 \r\n"},
        {5, 10240, NP_OK, ""},
        {5, 1, NP_OK, ""},
    };
    for (const auto &[type, length, code, text] : cases) {
        EXPECT_EQ(send(blank(type, large.data(), length)), code);
        EXPECT_THAT(out.take(), HasSubstr(text));
        EXPECT_EQ(tap.take().size(), code == NP_OK ? 1u : 0u);
    }
    EXPECT_EQ(Np_Cputr_PktSend(0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(send(blank(5, nullptr, 4)), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Cputr_PktSend(1, nullptr), NP_ERR_CHIP_ID);
    EXPECT_EQ(tap.take_names(), "");
}

// An input flow insert asks the driver three times: check, phy id, send.
TEST_F(Packets, SendFailuresOfTheDriver)
{
    const std::vector<std::string> texts = {
        "port check failed! ulReturn=0x00000071\r\n",
        "phy ID calculate failed! ulReturn=0x00000072\r\n",
        "Qd_CPUTR_PacketSend ERROR!!  ulReturn=0x00000073 \r\n"};
    for (uint32_t nth = 1; nth <= 3; nth++) {
        tap.fail(nth, 0x70 + nth);
        EXPECT_EQ(send(blank(2, data, sizeof(data))), 0x70 + nth);
        EXPECT_EQ(tap.take().size(), nth);
        EXPECT_THAT(out.take(), HasSubstr(texts[nth - 1]));
    }
}

// ---- frame info ---------------------------------------------------------------------------------

#define FRAME(member, most, ...) \
    FIELD(NpFrameInfo, member, most, "param error! punFrameInfo->" #member "=", __VA_ARGS__)

TEST_F(Packets, FrameInfoWords)
{
    const std::vector<std::vector<Field>> types = {
        {},
        {FRAME(stEther.ulTsMode, 3, {0, 23, 22}),
         FIELD(NpFrameInfo, stEther.ulBk, 1, kBool, {0, 21, 21}),
         FRAME(stEther.ulTsAddr, 511, {0, 15, 8}, {0, 20, 20}),
         FRAME(stEther.ulTsBkAddr, 7, {0, 18, 16}), FRAME(stEther.ulUdpAddr, 127, {0, 7, 0})},
        {FRAME(stGpon.ulPriOrSCR, 1, {0, 12, 12}), FRAME(stGpon.ulGemPortID, 4095, {0, 11, 0})},
        {FRAME(stEpon.ulPri, 7, {0, 14, 12})},
        {FRAME(stXdsl.ulAtmPtmType, 3, {0, 5, 4}), FRAME(stXdsl.ulPvcOffset, 7, {0, 2, 0})},
        {FRAME(stPrbs.ulPrbsChID, 255, {0, 7, 0})},
        {FRAME(stPie.ulPieChID, 7, {0, 2, 0})},
        {FRAME(stLoopBack.ulRsvd, 0xffffff, {0, 23, 0})},
    };
    for (uint32_t type = 0; type < types.size(); type++) {
        SCOPED_TRACE(type);
        NpFrameInfo info = {};
        for (int round = 0; round < 100; round++) {
            for (const Field &field : types[type]) {
                field.of(info) = round == 0 ? field.most : random_to(field.most);
            }
            EXPECT_EQ(Np_Tarn_FrameInfo_Check(0, NP_M_GLB, type, &info), NP_OK);
            uint32_t word = 0xffffffff;
            ASSERT_EQ(Np_Tarn_FrameInfo_Build(0, NP_M_GLB, type, &info, &word), NP_OK);
            NpFrameInfo back = {};
            ASSERT_EQ(Np_Tarn_FrameInfo_Parse(0, NP_M_GLB, type, word | 0xff000000, &back), NP_OK);
            for (const Field &field : types[type]) {
                EXPECT_EQ(field.take(&word), field.of(info)) << field.text;
                EXPECT_EQ(field.of(back), field.of(info)) << field.text;
            }
            EXPECT_EQ(word, 0u);
        }
        // Refusals print under the caller's module, in the fields' order.
        trace_errors(NP_M_GLB);
        Np_PrintLevelSet(NP_M_CPUTR, NP_PRINT_ERROR, 0);
        for (const Field &field : types[type]) {
            field.of(info) = field.most + 1;
        }
        for (const Field &field : types[type]) {
            EXPECT_EQ(Np_Tarn_FrameInfo_Check(0, NP_M_GLB, type, &info), NP_ERR_PARAM);
            EXPECT_THAT(out.take(), EndsWith(field.refusal()));
            field.of(info) = field.most;
        }
    }
    NpFrameInfo info = {};
    uint32_t word = 7;
    trace_errors(NP_M_GLB);
    EXPECT_EQ(Np_Tarn_FrameInfo_Check(0, NP_M_GLB, 0, nullptr), NP_OK);
    EXPECT_EQ(Np_Tarn_FrameInfo_Check(0, NP_M_GLB, 8, &info), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), EndsWith("param error! ulFrameInfoType=0x00000008\r\n"));
    EXPECT_EQ(Np_Tarn_FrameInfo_Build(0, NP_M_GLB, 8, &info, &word), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), EndsWith("unrecogenized frameinfo type(0x00000008)!\r\n"));
    EXPECT_EQ(Np_Tarn_FrameInfo_Parse(0, NP_M_GLB, 8, 0, &info), NP_ERR_PARAM);
    EXPECT_THAT(out.take(),
                EndsWith("unrecogenized frameinfo type(0x00000008) saved in soft table!\r\n"));
    EXPECT_EQ(Np_Tarn_FrameInfo_Trace(0, NP_M_GLB, 8, &info), NP_OK);
    EXPECT_THAT(out.take(), EndsWith("unrecogenized frameinfo type(0x00000008) user input!\r\n"));
    EXPECT_EQ(word, 7u);
}

// ---- receive ------------------------------------------------------------------------------------

// Bytes in network order.
void append(Bytes &bytes, uint32_t word)
{
    for (int bit = 24; bit >= 0; bit -= 8) {
        bytes.push_back(static_cast<uint8_t>(word >> bit));
    }
}

struct Received {
    uint32_t code;
    ReceiveInfo info;
    std::unique_ptr<uint8_t[]> buffer;

    Bytes packet() const
    {
        return {info.pucData, info.pucData + info.ulPktLen};
    }
};

// A buffer of exactly the size, so that the sanitizers see a byte too far.
Received receive(uint32_t size)
{
    Received received = {0, {}, std::make_unique<uint8_t[]>(size == 0 ? 1 : size)};
    received.info.ulBufLen = size;
    received.info.pucData = received.buffer.get();
    received.code = Np_Cputr_PktReceive(0, &received.info);
    return received;
}

// Words of the image: the one with the message type, the one with the header length, E0 to E4.
#define RECEIVED(member, ...) FIELD(ReceiveInfo, member, 0, #member, __VA_ARGS__)

std::vector<Field> received_fields(uint32_t subtype)
{
    std::vector<Field> fields = {RECEIVED(ulPtype, {0, 23, 13}), RECEIVED(ulTagInfo, {0, 11, 10}),
                                 RECEIVED(ulEncap, {1, 31, 28}), RECEIVED(ulVlanID, {1, 27, 16}),
                                 RECEIVED(ulFlowID, {1, 11, 0})};
    const std::vector<std::vector<Field>> more = {
        {RECEIVED(unRecInfo.stRecNormal.ulExtInfo, {2, 27, 16})},
        {RECEIVED(unRecInfo.stRecOamPduFm.ulMegIndex, {2, 31, 24}),
         RECEIVED(unRecInfo.stRecOamPduFm.ulMepIndex, {2, 23, 16}),
         RECEIVED(unRecInfo.stRecOamPduFm.ulDriection, {2, 15, 15}),
         RECEIVED(unRecInfo.stRecOamPduFm.ulLevel, {2, 14, 12}),
         RECEIVED(unRecInfo.stRecOamPduFm.ulOamSessionID, {2, 11, 0})},
        {RECEIVED(unRecInfo.stRecOamPduLm.ulLmIndex, {2, 31, 24}),
         RECEIVED(unRecInfo.stRecOamPduLm.ulFramNearTx, {3, 31, 0}),
         RECEIVED(unRecInfo.stRecOamPduLm.ulFramFarRx, {4, 31, 0}),
         RECEIVED(unRecInfo.stRecOamPduLm.ulFramFarTx, {5, 31, 0}),
         RECEIVED(unRecInfo.stRecOamPduLm.ulFramNearRx, {6, 31, 0})},
        {RECEIVED(unRecInfo.stRecOamPduDm.ulDmIndex, {2, 31, 24}),
         RECEIVED(unRecInfo.stRecOamPduDm.ulTimeStampOffset, {2, 23, 16}),
         RECEIVED(unRecInfo.stRecOamPduDm.ulRxTimeb_Sec, {3, 31, 0}),
         RECEIVED(unRecInfo.stRecOamPduDm.ulRxTimeb_nSec, {4, 31, 0})}};
    fields.insert(fields.end(), more.at(subtype).begin(), more.at(subtype).end());
    return fields;
}

bool is_port(const NpPortID &port, uint32_t phy)
{
    NpPortID expected = {};
    return Np_IngressPhyID2PortID(0, phy, &expected) == NP_OK &&
           std::memcmp(&port, &expected, sizeof(port)) == 0;
}

TEST_F(Packets, ReceivedHeadersAndExtensionWords)
{
    const Bytes payload = {0xaa, 0xbb, 0xcc};
    for (int round = 0; round < 400; round++) {
        const uint32_t subtype = random_to(5);
        const uint32_t words = random_to(5);
        uint32_t image[7] = {3u << 29 | subtype << 24 | random_to(0xffffff),
                             (random_to(0xffffffff) & 0xffff0fff) | (words + 2) << 12};
        Bytes bytes;
        for (uint32_t i = 0; i < words; i++) {
            image[2 + i] = random_to(0xffffffff);
            append(bytes, image[2 + i]);
        }
        bytes.insert(bytes.end(), payload.begin(), payload.end());
        const uint32_t size = static_cast<uint32_t>(bytes.size());
        tap.push({image[1], image[0], bytes, size});
        Received got = receive(size);
        ASSERT_EQ(got.code, NP_OK);
        EXPECT_EQ(got.packet(), payload);
        EXPECT_EQ(got.info.ulSubType, subtype);
        if (words != 0) {
            EXPECT_EQ(got.buffer[payload.size()], 0) << "a NUL stands behind the packet";
        }
        if (subtype > 3) {
            EXPECT_EQ(got.info.ulPtype | got.info.ulEncap | got.info.ulVlanID, 0u);
            continue;
        }
        EXPECT_TRUE(is_port(got.info.stSportID, bits(image[0], 9, 0)));
        if (subtype == 1) {
            EXPECT_TRUE(
                is_port(got.info.unRecInfo.stRecOamPduFm.stMpCapPort, bits(image[3], 31, 22)));
        }
        for (const Field &field : received_fields(subtype)) {
            EXPECT_EQ(field.of(got.info), field.take(image)) << field.text;
        }
    }
}

// Any header over any bytes gives a code or a record that stays within the packet; buffers of the
// exact size let the sanitizers see a read outside.
TEST_F(Packets, AnyHeaderAndAnyBytesAreSurvived)
{
    Np_GLB_SetPrintHook([](const char *) {});
    const NoAllocation quiet;
    for (int round = 0; round < 4000; round++) {
        const uint32_t size = round % 4 == 0 ? random_to(10240) : random_to(40);
        Bytes bytes(size);
        std::generate(bytes.begin(), bytes.end(), std::ref(random));
        // One packet in eight comes with a length beyond the buffer.
        const uint32_t length = round % 8 == 1 ? size + 1 + random_to(100) : size;
        const uint32_t top = round % 3 == 0 ? random() : 0x60000000 | (random() & 0x1fffffff);
        const uint32_t low = random();
        const uint32_t words = bits(low, 15, 12);
        tap.push({low, top, bytes, length});
        const Received got = receive(size);
        tap.take();
        const uint32_t taken = 4 * (words - 2);
        if (words != 2 && (words < 2 || words > 7 || length > size || taken > length)) {
            EXPECT_EQ(got.code, NP_ERR_CPU_LENGTH);
            continue;
        }
        EXPECT_EQ(got.info.ulPktLen, length - taken);
        if (length <= size) {
            EXPECT_EQ(got.packet(), Bytes(bytes.begin() + taken, bytes.end()));
        }
        EXPECT_EQ(got.code, top >> 29 == 3 ? NP_OK : NP_ERR_PARAM);
    }
    Np_GLB_SetPrintHook([](const char *text) { Os_Print("%s", text); });
}

TEST_F(Packets, RefusedPacketsAreDumpedWhateverTheSwitches)
{
    Bytes bytes(70);
    std::generate(bytes.begin(), bytes.end(),
                  [n = 0]() mutable { return static_cast<uint8_t>(n++); });
    const std::string line0 = "\r\n00 01 02 03 04 05 06 07 08 09 0a 0b 0c 0d 0e 0f ";
    const std::string whole = line0 +
                              "\r\n10 11 12 13 14 15 16 17 18 19 1a 1b 1c 1d 1e 1f "
                              "\r\n20 21 22 23 24 25 26 27 28 29 2a 2b 2c 2d 2e 2f "
                              "\r\n30 31 32 33 34 35 36 37 38 39 3a 3b 3c 3d 3e 3f \r\n";
    Np_PrintLevelInit();
    tap.push({0x00008000, 0x60000000, bytes, 70});  // header length 8
    EXPECT_EQ(receive(70).code, NP_ERR_CPU_LENGTH);
    EXPECT_EQ(out.take(), "info[0]=0x8000, info[1]=0x60000000, data:" + whole);
    tap.push({0x00002000, 0x40000000, bytes, 70});
    EXPECT_EQ(receive(70).code, NP_ERR_PARAM);
    EXPECT_EQ(out.take(), "pktlen=70, data:" + whole);
    bytes.resize(18);  // the dump stops with the buffer
    tap.push({0x00001000, 0x60000000, bytes, 18});
    EXPECT_EQ(receive(18).code, NP_ERR_CPU_LENGTH);
    EXPECT_EQ(out.take(), "info[0]=0x1000, info[1]=0x60000000, data:" + line0 + "\r\n10 11 \r\n");

    trace_errors(NP_M_CPUTR);
    tap.push({0x00000000, 0x60000000, bytes, 18});
    EXPECT_EQ(receive(18).code, NP_ERR_CPU_LENGTH);
    EXPECT_THAT(out.take(), HasSubstr("Length ERROR!!  ulNpLen=0xfffffff8 "
                                      "pstReceiveInfo->ulPktLen=0x00000012 \r\ninfo[0]=0x0,"));
    tap.push({0x00003000, 0x20000000, bytes, 18});  // refused after its extension word was taken
    const Received got = receive(18);
    EXPECT_EQ(got.code, NP_ERR_PARAM);
    EXPECT_EQ(got.info.ulPktLen, 14u);
    EXPECT_THAT(out.take(), HasSubstr(" msgtype error when receive: ulMsgType = 0x00000001 \r\n"
                                      "pktlen=14, data:\r\n04 05 06"));
}

TEST_F(Packets, ReceiveFailures)
{
    ReceiveInfo info = {};
    info.ulBufLen = 4;
    EXPECT_EQ(Np_Cputr_PktReceive(0, nullptr), NP_ERR_NULL_PTR);
    EXPECT_EQ(Np_Cputr_PktReceive(0, &info), NP_ERR_NULL_PTR);
    EXPECT_EQ(tap.take_names(), "");
    EXPECT_EQ(receive(4).code, DriverTap::kNothing);
    EXPECT_THAT(out.take(), EndsWith("Qd_CPUTR_PacketReceive ERROR!!  ulReturn=0x9a000046 \r\n"));
    // A source port that the chip does not know is no failure; a conversion that fails is.
    tap.port_of = [](uint32_t, uint32_t(&)[4]) { return false; };
    tap.push({0x00002000, 0x60000000, {1}, 1});
    const Received got = receive(1);
    EXPECT_EQ(got.code, NP_OK);
    EXPECT_EQ(got.info.stSportID.ulPortType, 17u);
    const uint32_t image[NP_CPUTR_IMAGE_NUM] = {0x60000c00, 0xf0000000};
    ReceiveInfo unset = {};
    EXPECT_EQ(Np_Tarn_CPUTR_InfoForRx_Build(3, image, &unset), NP_ERR_CHIP_ID);
    EXPECT_THAT(out.take(),
                HasSubstr("ingress phyid to portid calculate failed! ulReturn=0x9a0000"));
    EXPECT_EQ(unset.ulEncap, 15u);
    EXPECT_EQ(unset.ulTagInfo, 0u) << "behind the port nothing is filled in";
}

// ---- commands -----------------------------------------------------------------------------------

const std::string kSuccess = "\n\r Command execute success!";

TEST_F(Packets, SendCommand)
{
    struct Case {
        std::string line;
        uint32_t head0, head1;
        Bytes body;
    };
    const std::vector<Case> cases = {
        {"queue ulQID 257 ulOftID 5 ulFrameInfoType eth ulTsMode add ulBk back ulTsAddr 511 "
         "ulTsBkAddr 0 ulUdpAddr 0 pucData 0102a end",
         0x000c0051,
         0x01f0ff00,
         {1, 2, 0xa0}},
        {"fwd ulIcos 2 ulRole uni ulClass high ulBundleEnalbe 1 ulBundleID 3 ulPri 1 pucData ff "
         "end",
         0x010c4403,
         0x00000062,
         {0xff}},
        {"ift stPortID ge portid 1 subportid 2 ulUserID 9 pucData 00 end",
         0x020c0009,
         0x02060000,
         {0}},
        {"oft ulOftID 1023 ulPktLen 3 pucData aabb end", 0x030c03ff, 0, {0xaa, 0xbb, 0}},
        {"cm ulCmGroupID 255 pucData 1122 ulPktLen 1 end", 0x050c00ff, 0, {0x11}},
        {"7 2 31 1 7 4 33 end", 0x070ce01f, 0, {0x33}},  // everything by its number
    };
    g_ulNpPubPrompt = 0;
    Np_PrintLevelInit();
    for (const Case &each : cases) {
        SCOPED_TRACE(each.line);
        EXPECT_EQ(run("micro cputr send insert_type " + each.line), kSuccess);
        const std::vector<DriverTap::Call> calls = tap.take();
        ASSERT_FALSE(calls.empty());
        EXPECT_THAT(calls.back().head, ElementsAre(each.head0, each.head1));
        EXPECT_EQ(calls.back().body, each.body);
    }
    const std::vector<std::pair<std::string, std::string>> bad = {
        {"cm pucData 00", "cmd[please input valid cmd]<sz>:\n"},
        {"cm pucData 00 end more", "\n\r Command execute error!"},
        {"cm ulQID 1 end", "\n\r Invalid command!"},
        {"cm pucData 0g end", "\n\r Invalid command!"},
        {"nowhere end", ""},
        {"4 pucData 00 end", "\n\r ulReturn = 0x9a000005(参数错误)"},
        {"cm ulCmGroupID 256 pucData 00 end", "\n\r ulReturn = 0x9a000005(参数错误)"},
        {"cm ulPktLen 10241 end", "\n\r ulReturn = 0x9a000005(参数错误)"},
        {"queue ulFrameInfoType 9 pucData 00 end", "\n\r ulReturn = 0x9a000005(参数错误)"},
        {"cm end", "\n\r ulReturn = 0x9a000005(参数错误)"},
        {"cm ulPktLen 0 pucData 00 end", "\n\r ulReturn = 0x9a000005(参数错误)"},
        {"queue ulFrameInfoType eth ulTsMode sub ulTsAddr 1", "\n\r Command execute error!"},
    };
    for (const auto &[line, text] : bad) {
        EXPECT_THAT(run("micro cputr send insert_type " + line), EndsWith(text)) << line;
        EXPECT_EQ(tap.take_names(), "") << line;
    }
    g_ulNpPubPrompt = 1;
    EXPECT_THAT(run("micro cputr send insert_type cm pucData 00 end"),
                testing::StartsWith("\r\n| 01:ulCmGroupID\t| 02:ulPktLen\t\t| 03:pucData"));
}

TEST_F(Packets, ReceiveCommand)
{
    Bytes bytes;
    append(bytes, 0x12345678);
    append(bytes, 0x15400000);  // port 0x55
    append(bytes, 0xcafe0000);
    tap.push({0xa0664123, 0x61801403, bytes, 12});
    const std::string text = run("micro cputr receive");
    for (const char *line :
         {"\r\n    ulSubType                :   fm                       (0x1)",
          "\r\n    ulEncap                  :   10                       (0xa)",
          "\r\n    ulFlowID                 :   291                      (0x123)",
          "\r\n    ulPtype                  :   1024                     (0x400)",
          "\r\n    porttype                 :   tcont", "\r\n    ulVlanID                 :   102",
          "\r\n    ulMegIndex               :   18                       (0x12)",
          "\r\n    porttype                 :   xaui\r\n    portid                   :   0"
          "\r\n    subportid                :   21\r\n    pri                      :   1",
          "\r\n    ulPktLen                 :   4 ", "0xcafe0000"}) {
        EXPECT_THAT(text, HasSubstr(line));
    }
    EXPECT_THAT(text, EndsWith(kSuccess));
    EXPECT_THAT(run("micro cputr receive"), HasSubstr("\n\r ulReturn = 0x9a000046( cpu收包错误)"));
    EXPECT_THAT(run("micro cputr receive now"), EndsWith("\n\r Command execute error!"));
    // A driver that claims more than fits does not lead the print astray.
    tap.push({0x00002000, 0x60000000, Bytes(255, 0x77), 5000});
    EXPECT_THAT(run("micro cputr receive"), EndsWith(kSuccess));
}

TEST_F(Packets, PortNumberCommands)
{
    EXPECT_EQ(run("micro dfx port_id_map portid_to_phyid xaui portid 0 subportid 5 pri 1"),
              "\n\r PhyID : 0x00000045(69)" + kSuccess);
    EXPECT_EQ(run("micro dfx port_id_map phyid_to_portid phyid 69"),
              "\r\n    porttype                 :   xaui\r\n    portid                   :   0"
              "\r\n    subportid                :   5\r\n    pri                      :   1" +
                  kSuccess);
    tap.port_of = [](uint32_t, uint32_t(&)[4]) { return false; };
    EXPECT_THAT(run("micro dfx port_id_map phyid_to_portid phyid 9"),
                HasSubstr("porttype(17)             :   unknow"));
    tap.phy_of = [](const uint32_t(&)[4], uint32_t *) { return false; };
    EXPECT_EQ(run("micro dfx port_id_map portid_to_phyid fe portid 1"),
              "\n\r ulReturn = 0x9a00002f( 端口参数检查失败)");
    EXPECT_THAT(run("micro dfx port_id_map portid_to_phyid fe portid 1 more"),
                EndsWith("\n\r Command execute error!"));
}

}  // namespace
