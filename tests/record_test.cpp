// Described rows: what holds for every description, and what the compiler refuses.
#include "tests/rows.h"

#include "sdk/tables/arl.h"

#include <cstring>
#include <map>
#include <set>
#include <sstream>

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;

// ---- what holds for every description -----------------------------------------------------------

// A record comes back from its image, an image holds nothing that no field says, and a field that
// is not there keeps what the caller had, or reads as zero where the row says so.
TEST_F(Rows, RecordsComeBackFromTheirImages)
{
    Maker maker(1);
    size_t compared = 0;
    for (const NpRow *row : image_rows()) {
        SCOPED_TRACE(name_of(*row));
        for (int round = 0; round < 50; round++) {
            const Bytes record = maker.record(*row);
            Bytes image(Np_ImageRoom(*row), 0xff);
            ASSERT_EQ(Np_Row_Build(row, 0, record.data(), image.data()), NP_OK);
            Bytes unnamed = image;
            Bytes back(record.size(), 0xa5);
            ASSERT_EQ(Np_Row_Parse(row, 0, image.data(), back.data()), NP_OK);
            for (const NpField &field : fields_of(*row)) {
                const bool there = Np_Row_IsThere(field.stWhen, record.data());
                if (!there || field.bLost) {
                    continue;
                }
                for (uint32_t i = 0; i < field.usCount; i++) {
                    const auto first = record.begin() + field.usOffset + i * field.usStride;
                    const auto found = back.begin() + field.usOffset + i * field.usStride;
                    if (field.pstCoding == nullptr || !field.pstCoding->bOneWay) {
                        EXPECT_TRUE(std::equal(first, first + field.ucSize, found))
                            << field.pszName << " " << i;
                        compared++;
                    }
                    for (int32_t bit = Np_ElementBit(field, i), n = 0; n < field.ucWidth; n++) {
                        unnamed[static_cast<size_t>(bit + n) / 8] &=
                            static_cast<uint8_t>(~(1u << (bit + n) % 8));
                    }
                }
            }
            EXPECT_EQ(unnamed, Bytes(unnamed.size())) << "a bit that no field has";
        }
    }
    EXPECT_GT(compared, 5000u);
}

// Filling a used image replaces the fields' bits and no others.
TEST_F(Rows, FillsLeaveOtherBitsAlone)
{
    Maker maker(7);
    for (const NpRow *row : image_rows()) {
        SCOPED_TRACE(name_of(*row));
        for (int round = 0; round < 20; round++) {
            const Bytes record = maker.record(*row);
            Bytes zeros(Np_ImageRoom(*row), 0);
            Bytes ones(Np_ImageRoom(*row), 0xff);
            Bytes blank(Np_ImageRoom(*row), 0xff);
            ASSERT_EQ(Np_Row_Fill(row, 0, record.data(), zeros.data()), NP_OK);
            ASSERT_EQ(Np_Row_Fill(row, 0, record.data(), ones.data()), NP_OK);
            for (const NpField &field : fields_of(*row)) {
                const bool there = Np_Row_IsThere(field.stWhen, record.data());
                for (uint32_t i = 0; there && i < field.usCount; i++) {
                    for (int32_t bit = Np_ElementBit(field, i), n = 0; n < field.ucWidth; n++) {
                        blank[static_cast<size_t>(bit + n) / 8] &=
                            static_cast<uint8_t>(~(1u << (bit + n) % 8));
                    }
                }
            }
            for (size_t i = 0; i < ones.size(); i++) {
                EXPECT_EQ(ones[i], zeros[i] | blank[i]);
            }
        }
    }
}

TEST_F(Rows, WhatIsNotThereOrNotStoredIsLeftAlone)
{
    Maker maker(2);
    for (const NpRow *row : image_rows()) {
        SCOPED_TRACE(name_of(*row));
        const Bytes record = maker.record(*row);
        Bytes image(Np_ImageRoom(*row));
        ASSERT_EQ(Np_Row_Build(row, 0, record.data(), image.data()), NP_OK);
        Bytes expected(record.size(), static_cast<uint8_t>(row->bParseClears ? 0 : 0xa5));
        Bytes back(record.size(), 0xa5);
        ASSERT_EQ(Np_Row_Parse(row, 0, image.data(), back.data()), NP_OK);
        for (const NpField &field : fields_of(*row)) {
            if (!field.bLost && Np_Row_IsThere(field.stWhen, record.data())) {
                for (uint32_t i = 0; i < field.usCount; i++) {
                    const size_t at = field.usOffset + i * field.usStride;
                    std::copy_n(back.begin() + static_cast<ptrdiff_t>(at), field.ucSize,
                                expected.begin() + static_cast<ptrdiff_t>(at));
                }
            }
        }
        EXPECT_EQ(back, expected);
    }
}

// One bad value, in any place: its own message, and nothing crosses the bus.
TEST_F(Rows, OneFieldOutOfRangeIsRefusedByItsOwnMessage)
{
    Maker maker(3);
    for (const Flat &flat : kFlat) {
        SCOPED_TRACE(flat.name);
        const Bytes before = store();
        BusTap bus;
        for (const NpRow *row : {flat.table->pstKey, flat.table->pstRow}) {
            for (const NpCheck &check : checks_of(*row)) {
                if (check.stLimit.enKind >= NP_BOUND_PORT) {
                    continue;
                }
                const uint32_t bad = Np_Row_LimitMax(&check.stLimit) + 1;
                const size_t bytes = check.ucSize;
                if (bytes < 4 && bad >> (8 * bytes) != 0) {
                    continue;  // the field cannot hold a bad value
                }
                for (uint32_t i = 0; i < check.usCount; i++) {
                    SCOPED_TRACE(testing::Message() << check.pszText << " " << i);
                    Bytes key = maker.record(*flat.table->pstKey);
                    Bytes record = maker.record(*flat.table->pstRow);
                    Bytes &changed = row == flat.table->pstKey ? key : record;
                    for (uint32_t v = 0; check.stWhen.ulMask != 0 && v < 32; v++) {
                        if ((check.stWhen.ulMask >> v & 1) != 0) {
                            std::memcpy(changed.data() + check.stWhen.usOffset, &v, 4);
                        }
                    }
                    std::memcpy(changed.data() + check.usOffset + i * check.usStride, &bad, bytes);
                    bus.take();
                    const Words lines = failures(
                        *row, [&] { return flat.set(0, key.data(), record.data()); }, NP_ERR_PARAM);
                    EXPECT_TRUE(bus.take().empty());
                    ASSERT_FALSE(lines.empty());
                    char value[16];
                    std::snprintf(value, sizeof(value), "0x%08x", bad);
                    EXPECT_THAT(lines[0], HasSubstr(value));
                    if (check.stLimit.enSay == NP_SAY_PARAM) {
                        EXPECT_THAT(lines[0], HasSubstr(check.pszText));
                    }
                    if (row == flat.table->pstKey) {
                        EXPECT_EQ(flat.get(0, key.data(), record.data()), NP_ERR_PARAM);
                        EXPECT_TRUE(bus.take().empty());
                    }
                }
            }
        }
        Bytes key = maker.record(*flat.table->pstKey);
        for (const auto &call : std::initializer_list<std::function<uint32_t()>>{
                 [&] { return flat.set(0, key.data(), nullptr); },
                 [&] { return flat.get(0, key.data(), nullptr); }}) {
            EXPECT_EQ(failures(*flat.table->pstRow, call, NP_ERR_NULL_PTR),
                      Words{"Para null ptr\r\n"});
        }
        EXPECT_EQ(store(), before);
    }
}

// Descriptions and register tables agree on widths, and every legal row exists.
TEST_F(Rows, EveryLegalRowLiesInItsRegisterTables)
{
    for (const Flat &flat : kFlat) {
        SCOPED_TRACE(flat.name);
        Bytes last(flat.table->pstKey->usRecordSize);
        for (const NpField &field : fields_of(*flat.table->pstKey)) {
            const NpCheck *check = Np_Row_FieldCheck(flat.table->pstKey, &field);
            ASSERT_NE(check, nullptr);
            Np_Row_Store(&field, 0, Np_Row_LimitMax(&check->stLimit), last.data());
        }
        for (uint32_t i = 0; i < flat.table->ucPartNum; i++) {
            EXPECT_EQ(Np_RegTableRecordWidthGet(0, flat.table->astPart[i].usTableID),
                      Np_PartSize(*flat.table, i));
        }
        Maker maker(4);
        const Bytes record = maker.record(*flat.table->pstRow);
        EXPECT_EQ(flat.set(0, last.data(), record.data()), NP_OK);
        Bytes back(record.size());
        EXPECT_EQ(flat.get(0, last.data(), back.data()), NP_OK);
    }
}

// Access failures come back with their message, and leave the parts behind them alone.
TEST_F(Rows, FailedAccessesTellTableAndRow)
{
    Maker maker(5);
    const NpChipAddr chip = g_stNpChipAddr[0];
    for (const Flat &flat : kFlat) {
        SCOPED_TRACE(flat.name);
        for (uint32_t broken = 0; broken < flat.table->ucPartNum; broken++) {
            const Bytes key = maker.record(*flat.table->pstKey);
            const Bytes record = maker.record(*flat.table->pstRow);
            const Bytes before = stored(*flat.table, key.data());
            std::vector<NpRegTableDesc> tables(g_astNpRegTableDesc_TarnB,
                                               g_astNpRegTableDesc_TarnB + NP_REG_TABLE_NUM);
            const uint32_t id = flat.table->astPart[broken].usTableID;
            tables[id].usRecordNum = 0;
            NpChipAddr changed = chip;
            changed.pstRegTable = tables.data();
            Np_Chip_AddrSet(0, &changed);
            const uint32_t *words = reinterpret_cast<const uint32_t *>(key.data());
            const uint32_t row =
                flat.table->pfnRowNumber != nullptr ? flat.table->pfnRowNumber(words) : words[0];
            char tail[80];
            std::snprintf(tail, sizeof(tail), "ID:0x%08x Offset:0x%08x\r\n", id, row);
            EXPECT_EQ(failures(
                          *flat.table->pstRow,
                          [&] { return flat.set(0, key.data(), record.data()); }, NP_ERR_ADDRESS),
                      Words{std::string("Write error return:0x9a000008 ") + tail});
            Bytes back(record.size());
            EXPECT_EQ(failures(
                          *flat.table->pstRow, [&] { return flat.get(0, key.data(), back.data()); },
                          NP_ERR_ADDRESS),
                      Words{std::string("Read error return:0x9a000008  ") + tail});
            Np_Chip_AddrSet(0, &chip);
            const Bytes after = stored(*flat.table, key.data());
            const size_t at = flat.table->astPart[broken].usByte;
            EXPECT_TRUE(std::equal(before.begin() + static_cast<ptrdiff_t>(at), before.end(),
                                   after.begin() + static_cast<ptrdiff_t>(at)));
        }
    }
}

// The command line writes the bytes that the function writes, and reads what the function reads.
TEST_F(Rows, CommandsDoWhatTheFunctionsDo)
{
    Maker maker(6);
    g_ulNpPubPrompt = 0;
    std::map<NpCliHandler, std::string> paths;
    const std::function<void(const NpCliCmdEntry &, const std::string &)> walk =
        [&](const NpCliCmdEntry &entry, const std::string &path) {
            for (uint32_t i = 0; i < entry.ulChildNum; i++) {
                walk(entry.pstChildren[i], path + " " + entry.pstChildren[i].szName);
            }
            paths[entry.pfnHandler] = path;
        };
    walk(g_stNpSdkCmds[0], g_stNpSdkCmds[0].szName);
    for (const Flat &flat : kFlat) {
        SCOPED_TRACE(flat.name);
        const bool large = Np_SMD_CommandForm(flat.set_handler) == NP_FORM_LARGE;
        for (int round = 0; round < 6; round++) {
            const Bytes key = maker.record(*flat.table->pstKey);
            const Bytes record = maker.record(*flat.table->pstRow);
            ASSERT_EQ(flat.set(0, key.data(), record.data()), NP_OK);
            const Bytes expected = stored(*flat.table, key.data());
            ASSERT_EQ(flat.set(0, key.data(), maker.record(*flat.table->pstRow).data()), NP_OK);
            std::string keys;
            for (const std::string &pair : pairs(*flat.table->pstKey, key, false)) {
                keys += " " + pair;
            }
            // As many lines as the buffer of a command makes necessary.
            std::string line;
            const auto send = [&] {
                EXPECT_THAT(run(paths[flat.set_handler] + keys + line + (large ? " end" : "")),
                            EndsWith("Command execute success!"))
                    << line;
                line.clear();
            };
            for (const std::string &pair : pairs(*flat.table->pstRow, record, round % 2 == 0)) {
                if (keys.size() + line.size() + pair.size() > 400) {
                    send();
                }
                line += " " + pair;
            }
            send();
            EXPECT_EQ(stored(*flat.table, key.data()), expected);

            Bytes back(record.size());
            ASSERT_EQ(flat.get(0, key.data(), back.data()), NP_OK);
            const std::string shown = run(paths[flat.get_handler] + keys);
            for (const std::string &pair : pairs(*flat.table->pstRow, back, true)) {
                std::istringstream stream(pair);
                std::string name, value;
                while (stream >> name >> value && value != "plus" && value != "minus") {
                    char text[80];
                    std::snprintf(text, sizeof(text), "\r\n    %-25s:   %s", name.c_str(),
                                  value.c_str());
                    EXPECT_THAT(shown, HasSubstr(text));
                }
            }
        }
    }
}

// Rows whose stored fields are worked out ahead lie as if each field was asked, whatever the
// selector.
TEST_F(Rows, FieldsKnownAheadAreThoseThatAreAsked)
{
    ASSERT_NE(g_stArlKeyRow.pstThere, nullptr);
    NpRow asked = g_stArlKeyRow;
    asked.pstThere = nullptr;
    std::mt19937 random(7);
    std::set<Bytes> seen;
    for (uint32_t type = 0; type < 66; type++) {
        NpArlKey key = {};
        std::generate_n(reinterpret_cast<uint8_t *>(&key), sizeof key, [&] { return random(); });
        key.ulType = type < 64 ? type : random();
        key.stPort = {9, 0, type % 64, 1};
        Bytes ahead(16);
        std::generate(ahead.begin(), ahead.end(), [&] { return random(); });
        Bytes by_asking = ahead;
        ASSERT_EQ(Np_Row_Fill(&g_stArlKeyRow, 0, &key, ahead.data()), NP_OK);
        ASSERT_EQ(Np_Row_Fill(&asked, 0, &key, by_asking.data()), NP_OK);
        EXPECT_EQ(ahead, by_asking) << key.ulType;
        seen.insert(ahead);
    }
    EXPECT_EQ(seen.size(), 66u);
}

// ---- what the compiler refuses ------------------------------------------------------------------

struct Pair {
    uint32_t ulFirst;
    uint32_t ulSecond;
    uint8_t aucByte[4];
};

namespace faults {
using R = Pair;
template <size_t N, size_t M = 0>
consteval NpRowFault judge(const NpField (&fields)[N], std::span<const NpCheck> checks = {},
                           uint32_t image = 8)
{
    return Np_RowValidate(sizeof(Pair), image, fields, checks);
}
constexpr NpCheck g_astCheck[] = {NP_C(ulFirst, Np_Most(7)), NP_C(ulSecond, Np_Range(-4, 3))};

constexpr NpField g_astGood[] = {NP_F(ulFirst, .stAt = {0, 2, 0}),
                                 NP_F(ulSecond, .stAt = {0, 5, 3}),
                                 NP_F(aucByte, .stAt = {7, 7, 0}, .sStep = -8)};
static_assert(judge(g_astGood, g_astCheck) == NP_ROW_GOOD);
static_assert(judge(g_astGood) == NP_ROW_TOO_NARROW);
static_assert(judge(g_astGood, g_astCheck, 7) == NP_ROW_LEAVES_IMAGE);

constexpr NpField g_astNarrow[] = {NP_F(ulSecond, .stAt = {0, 1, 0})};
static_assert(judge(g_astNarrow, g_astCheck) == NP_ROW_TOO_NARROW);
constexpr NpField g_astCut[] = {NP_F(ulSecond, .stAt = {0, 1, 0}, .bCut = true)};
static_assert(judge(g_astCut, g_astCheck) == NP_ROW_GOOD);
constexpr NpField g_astNothingCut[] = {NP_F(ulFirst, .stAt = {0, 2, 0}, .bCut = true)};
static_assert(judge(g_astNothingCut, g_astCheck) == NP_ROW_NOTHING_CUT);

constexpr NpField g_astOverlap[] = {NP_F(ulFirst, .stAt = {0, 31, 0}),
                                    NP_F(ulSecond, .stAt = {3, 38, 7})};
static_assert(judge(g_astOverlap) == NP_ROW_OVERLAP);
constexpr NpField g_astStep[] = {NP_F(aucByte, .stAt = {0, 7, 0}, .sStep = 4)};
static_assert(judge(g_astStep) == NP_ROW_OVERLAP);
constexpr NpField g_astBackwards[] = {NP_F(aucByte, .stAt = {2, 7, 0}, .sStep = -8)};
static_assert(judge(g_astBackwards) == NP_ROW_LEAVES_IMAGE);

constexpr NpField g_astSplit[] = {NP_F(ulFirst, .stAt = {0, 15, 0}),
                                  NP_F(ulFirst, .stAt = {4, 15, 0}, .ucFrom = 16)};
static_assert(judge(g_astSplit) == NP_ROW_GOOD);
constexpr NpField g_astNowhere[] = {NP_F(ulFirst)};
static_assert(judge(g_astNowhere) == NP_ROW_NOT_STORED);
constexpr NpField g_astLost[] = {NP_F(ulFirst, .bLost = true)};
static_assert(judge(g_astLost) == NP_ROW_GOOD);
constexpr NpField g_astSelector[] = {
    NP_F(ulSecond, .stAt = {4, 31, 0}, .stWhen = NP_WHEN(ulFirst, 1)),
    NP_F(ulFirst, .stAt = {0, 31, 0})};
static_assert(judge(g_astSelector) == NP_ROW_SELECTOR);
constexpr NpField g_astKey[] = {NP_F(ulFirst, .stAt = {0, 31, 0}, .pszKey = "a"),
                                NP_F(ulSecond, .stAt = {4, 31, 0}, .pszKey = "a")};
static_assert(judge(g_astKey) == NP_ROW_SAME_KEY);
static_assert(Np_RowValidate(8, 8, g_astGood, g_astCheck) == NP_ROW_LEAVES_RECORD);
}  // namespace faults

// What no table here has yet: split values, signed ones, ports, runs of bytes, conditions.
struct Mixed {
    uint32_t ulMode;
    int32_t iGain;
    uint32_t ulWide;
    NpPortID stPort;
    uint8_t aucMac[6];
    uint16_t usTag;
};

namespace mixed_row {
using R = Mixed;
constexpr NpField g_astField[] = {
    NP_F(ulMode, .stAt = {0, 3, 0}),
    NP_F(iGain, .stAt = {0, 10, 4}),
    NP_F(ulWide, .stAt = {2, 9, 0}),
    NP_F(ulWide, .stAt = {12, 21, 0}, .ucFrom = 10),
    NP_F(stPort, .stAt = {4, 9, 0}, .stWhen = NP_WHEN(ulMode, 1u << 1),
         .pstCoding = &g_stNpPortCoding),
    NP_F(aucMac, .stAt = {11, 7, 0}, .sStep = -8, .ucType = NP_SMD_MAC),
    NP_F(usTag, .stAt = {4, 15, 0}, .stWhen = NP_WHEN(ulMode, 1u << 2)),
};
constexpr NpCheck g_astCheck[] = {
    NP_C(ulMode, Np_Most(2)),
    NP_C(iGain, Np_Range(-64, 63)),
    NP_C(stPort, Np_Port(), .stWhen = NP_WHEN(ulMode, 1u << 1)),
};
constexpr NpRow g_stRow = Np_RowMake<Mixed>(
    {.ucModule = NP_M_COMM, .pszArg = "pstMixed", .usImageSize = 16, .bParseClears = true},
    g_astField, g_astCheck);
}  // namespace mixed_row

TEST_F(Rows, MixedFieldsStandWhereTheyAreSaidTo)
{
    const NpRow &row = mixed_row::g_stRow;
    Mixed mixed = {2, -64, 0xdeadbeef, {6, 0, 0, 0}, {1, 2, 3, 4, 5, 6}, 0xa55a};
    Bytes image(16);
    ASSERT_EQ(Np_Row_Check(&row, 0, &mixed), NP_OK);
    ASSERT_EQ(Np_Row_Build(&row, 0, &mixed, image.data()), NP_OK);
    // Gain -64 in seven bits at bit 4; 0xdeadbeef as its low ten bits and the 22 above them.
    EXPECT_EQ(image, (Bytes{0x02, 0x04, 0xef, 0x02, 0x5a, 0xa5, 6, 5, 4, 3, 2, 1, 0x6f, 0xab, 0x37,
                            0x00}));
    Mixed back;
    std::memset(static_cast<void *>(&back), 0xa5, sizeof(back));
    ASSERT_EQ(Np_Row_Parse(&row, 0, image.data(), &back), NP_OK);
    mixed.stPort = {};
    EXPECT_EQ(std::memcmp(&mixed, &back, sizeof(back)), 0);

    mixed.ulMode = 1;
    mixed.stPort = {6, 3, 0, 0};
    uint32_t phy = 0;
    ASSERT_EQ(Np_PortID2PhyID(0, &mixed.stPort, &phy), NP_OK);
    ASSERT_EQ(Np_Row_Build(&row, 0, &mixed, image.data()), NP_OK);
    EXPECT_EQ(image[4] | image[5] << 8, static_cast<int>(phy));
    ASSERT_EQ(Np_Row_Parse(&row, 0, image.data(), &back), NP_OK);
    mixed.usTag = 0;
    EXPECT_EQ(std::memcmp(&mixed, &back, sizeof(back)), 0);

    for (const int32_t gain : {-65, 64, INT32_MIN, INT32_MAX}) {
        mixed.iGain = gain;
        EXPECT_EQ(Np_Row_Check(&row, 0, &mixed), NP_ERR_PARAM) << gain;
    }
    mixed.iGain = 63;
    mixed.stPort.ulPortType = 16;
    const Words lines = failures(
        row, [&] { return Np_Row_Check(&row, 0, &mixed); }, NP_ERR_PARAM);
    EXPECT_EQ(lines.back(), "port check failed! ulReturn=0x9a000005\r\n");
    EXPECT_NE(Np_Row_Build(&row, 0, &mixed, image.data()), NP_OK);

    // The command line reads the same record, and a type's value words are those of its type.
    mixed = {};
    words(
        "ulMode 1 iGain minus 5 ulWide 9 stPort ge portid 3 subportid 0 aucMac 0a-0b-0c-0d-0e-0f");
    EXPECT_EQ(Np_SMD_RowScan(&row, &mixed, true), 0u);
    EXPECT_EQ(words_left(), 0);
    EXPECT_EQ(mixed.iGain, -5);
    EXPECT_EQ(mixed.stPort.ulPortID, 3u);
    EXPECT_EQ(mixed.aucMac[5], 0x0f);
    words("mode 2 tag 65536");
    EXPECT_EQ(Np_SMD_RowScan(&row, &mixed, false), 1u);
    words("mode 2 tag 65535");
    EXPECT_EQ(Np_SMD_RowScan(&row, &mixed, false), 0u);
    EXPECT_EQ(mixed.usTag, 65535u);
    EXPECT_EQ(mixed.stPort.ulPortID, 0u);  // the other variant is gone
    out.take();
    Np_SMD_RowPrint(&row, &mixed);
    const std::string shown = out.take();
    EXPECT_THAT(shown, HasSubstr("\r\n    iGain                    :   -5"));
    EXPECT_THAT(shown, HasSubstr("\r\n    aucMac                   :   0a-0b-0c-0d-0e-0f"));
    EXPECT_THAT(shown, testing::Not(HasSubstr("porttype")));
}

}  // namespace

}  // namespace ldsdk::test
