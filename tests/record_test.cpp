// Described rows: what holds for every description, and what the compiler refuses.
#include "tests/rows.h"

#include "sdk/cpuchan/formats.h"
#include "sdk/tables/arl.h"

#include <cstring>
#include <map>
#include <random>
#include <set>
#include <sstream>

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;

// ---- what holds for every description -----------------------------------------------------------

// Puts what the image has not into the record that a parse will fill.
void hand_in(const NpRow &row, const Bytes &from, Bytes &to)
{
    for (const NpField &field : fields_of(row)) {
        if (field.bHanded) {
            Np_Row_Store(&field, 0, Np_Row_Load(&field, 0, from.data()), to.data());
        }
    }
}

// A record comes back from its image, and a field that is not there or not stored keeps what the
// caller had, or reads as zero where the row says so.
TEST_F(Rows, RecordsComeBackFromTheirImages)
{
    Maker maker(1);
    for (const NpRow *row : image_rows()) {
        SCOPED_TRACE(name_of(*row));
        for (int round = 0; round < 50; round++) {
            const Bytes record = maker.record(*row);
            Bytes image(Np_ImageRoom(*row));
            ASSERT_EQ(Np_Row_Build(row, 0, record.data(), image.data()), NP_OK);
            Bytes expected(record.size(), static_cast<uint8_t>(row->bParseClears ? 0 : 0xa5));
            Bytes back(record.size(), 0xa5);
            hand_in(*row, record, back);
            hand_in(*row, record, expected);
            ASSERT_EQ(Np_Row_Parse(row, 0, image.data(), back.data()), NP_OK);
            for (const NpField &field : fields_of(*row)) {
                const bool there = Np_Row_IsThere(field.pstWhen, record.data());
                const bool stored = !field.bLost && field.ucSize != 0 && (there || field.bRead);
                const bool one_way = field.pstCoding != nullptr && field.pstCoding->bOneWay;
                for (uint32_t i = 0; stored && i < field.usCount; i++) {
                    const auto at = field.usOffset + i * field.usStride;
                    std::copy_n((one_way || !there ? back : record).begin() + at, field.ucSize,
                                expected.begin() + at);
                    if (field.bSwitch) {
                        const bool on = Np_Row_Load(&field, i, record.data()) != 0;
                        Np_Row_Store(&field, i, on ? field.ulMask : 0, expected.data());
                    }
                }
            }
            EXPECT_EQ(back, expected);
        }
    }
}

// A row with code of its own and the engines, which read the same description, agree on records
// good and bad and on any image.
TEST_F(Rows, CodeOfItsOwnDoesWhatTheEnginesDo)
{
    Maker maker(7);
    std::mt19937 random(7);
    uint32_t rows = 0;
    uint32_t refused = 0;
    for (const NpRow *row : image_rows()) {
        if (row->pstStraight == nullptr) {
            continue;
        }
        SCOPED_TRACE(name_of(*row));
        rows++;
        NpRow plain = *row;
        plain.pstStraight = nullptr;
        const NpWhere where = Np_Here();
        for (int round = 0; round < 200; round++) {
            Bytes record = maker.record(*row);
            if (round % 2 != 0) {
                record[random() % record.size()] ^= static_cast<uint8_t>(1u << random() % 8);
            }
            const uint32_t status = Np_Row_Check(row, 0, record.data(), where);
            EXPECT_EQ(status, Np_Row_Check(&plain, 0, record.data(), where));
            refused += status != NP_OK ? 1 : 0;
            const auto moved = [&](const NpRow &by, bool parse) {
                Bytes image(Np_ImageRoom(*row));
                Bytes back(record.size(), 0xa5);
                std::mt19937 bits(static_cast<uint32_t>(round));
                std::generate(image.begin(), image.end(),
                              [&] { return static_cast<uint8_t>(bits()); });
                const uint32_t result =
                    parse ? Np_Row_Parse(&by, 0, image.data(), back.data(), where)
                          : Np_Row_Fill(&by, 0, record.data(), image.data(), where);
                return std::tuple(result, image, back);
            };
            EXPECT_EQ(moved(*row, false), moved(plain, false));
            EXPECT_EQ(moved(*row, true), moved(plain, true));
        }
    }
    EXPECT_GT(rows, 10u);
    EXPECT_GT(refused, 100u);
}

TEST_F(Rows, CallsWithoutARecordAreRefused)
{
    for (const NpTableInfo &flat : all_tables()) {
        SCOPED_TRACE(name_of(flat));
        const Bytes key = Maker(3).key(flat);
        for (const auto &call : std::initializer_list<std::function<uint32_t()>>{
                 [&] {
                     return flat.bWordSet ? flat.pfnGet(0, key.data(), nullptr)
                                          : flat.pfnSet(0, key.data(), nullptr);
                 },
                 [&] { return flat.pfnGet(0, key.data(), nullptr); }}) {
            EXPECT_EQ(failures(*flat.pstTable->pstRow, call, NP_ERR_NULL_PTR),
                      Words{"Para null ptr\r\n"});
        }
    }
}

// Descriptions and stores agree on widths, and every legal row exists, or the store refuses it.
TEST_F(Rows, EveryLegalRowLiesInItsStore)
{
    for (const NpTableInfo &flat : all_tables()) {
        SCOPED_TRACE(name_of(flat));
        const NpTable &table = *flat.pstTable;
        Bytes last(table.pstKey->usRecordSize);
        for (const NpField &field : fields_of(*table.pstKey)) {
            if (field.ucType == NP_SMD_PORT) {
                std::memcpy(last.data(), &kLastPort, sizeof(kLastPort));
                continue;
            }
            const NpCheck *check = Np_Row_FieldCheck(table.pstKey, &field);
            ASSERT_NE(check, nullptr);
            Np_Row_Store(&field, 0, Np_Row_LimitMax(&check->stLimit), last.data());
        }
        uint32_t row = 0;
        ASSERT_EQ(Np_Table_Place(&table, 0, last.data(), &row), NP_OK);
        uint32_t result = NP_OK;
        for (uint32_t i = 0; i < table.ucPartNum; i++) {
            const NpTablePart &part = table.astPart[i];
            const bool reg = part.pstStore == &g_stNpRegTableStore;
            const uint32_t begin = 8u * part.usByte, size = Np_PartSize(table, i);
            EXPECT_TRUE(!reg || width_in(part) == size);
            // A counter or an array may be narrower than its image, but no field ends in vain.
            for (const NpField &field : fields_of(*table.pstRow)) {
                for (uint32_t e = 0; field.ucWidth != 0 && e < field.usCount; e++) {
                    const auto bit = static_cast<uint32_t>(Np_ElementBit(field, e)) - begin;
                    EXPECT_TRUE(bit >= 8 * size || (bit + field.ucWidth - 1) / 8 < width_in(part))
                        << field.pszName;
                }
            }
            if (result == NP_OK && row >= rows_in(part)) {
                result = reg ? NP_ERR_ADDRESS : NP_ERR_PARAM;
            }
        }
        const Bytes record = Maker(4).record(*table.pstRow);
        EXPECT_EQ(flat.pfnSet(0, last.data(), record.data()), result);
        Bytes back(record.size());
        EXPECT_EQ(flat.pfnGet(0, last.data(), back.data()), result);
    }
}

// Access failures come back with their message, and leave the parts behind them alone. Registers of
// the master can not fail; a host's own store has a test of its own.
TEST_F(Rows, FailedAccessesTellTableAndRow)
{
    Maker maker(5);
    const NpChipAddr chip = g_stNpChipAddr[0];
    for (const NpTableInfo &flat : all_tables()) {
        SCOPED_TRACE(name_of(flat));
        const NpTable &table = *flat.pstTable;
        uint32_t commands = 0;  // a row takes so far
        for (uint32_t broken = 0; broken < table.ucPartNum; broken++) {
            const NpTablePart &part = table.astPart[broken];
            const bool reg = part.pstStore == &g_stNpRegTableStore;
            const bool counter = part.pstStore == &g_stNpCounterStore;
            if (!reg && !counter && part.pstStore != &g_stNpSmemStore) {
                continue;
            }
            const Bytes key = maker.key(flat);
            const Bytes record = maker.record(*table.pstRow);
            const Bytes before = stored(table, key.data());
            std::vector<NpRegTableDesc> tables(g_astNpRegTableDesc_TarnB,
                                               g_astNpRegTableDesc_TarnB + NP_REG_TABLE_NUM);
            NpChipAddr changed = chip;
            changed.pstRegTable = tables.data();
            if (reg) {
                tables[part.usID].usRecordNum = 0;
                Np_Chip_AddrSet(0, &changed);
            }
            else {
                const std::string nth = " status=2 nth=" + std::to_string(++commands);
                set_fault("rba op=write" + nth + "; rba op=read" + nth);
            }
            uint32_t row = 0;
            ASSERT_EQ(Np_Table_Place(&table, 0, key.data(), &row), NP_OK);
            const auto expect = [&](const char *format, uint32_t code,
                                    const std::function<uint32_t()> &call) {
                char line[120];
                std::snprintf(line, sizeof(line),
                              counter ? "Func error return: 0x%08x \r\n" : format, code, part.usID,
                              row);
                EXPECT_EQ(failures(*table.pstRow, call, code), Words{line});
            };
            expect("Write error return:0x%08x ID:0x%08x Offset:0x%08x\r\n",
                   reg       ? NP_ERR_ADDRESS
                   : counter ? NP_ERR_SMEM_WRITE
                             : NP_ERR_SMEM_OP,
                   [&] { return flat.pfnSet(0, key.data(), record.data()); });
            Bytes back(record.size());
            expect("Read error return:0x%08x  ID:0x%08x Offset:0x%08x\r\n",
                   reg       ? NP_ERR_ADDRESS
                   : counter ? NP_ERR_SMEM_READ
                             : NP_ERR_SMEM_OP,
                   [&] { return flat.pfnGet(0, key.data(), back.data()); });
            Np_Chip_AddrSet(0, &chip);
            model::faults_clear();
            const Bytes after = stored(table, key.data());
            EXPECT_TRUE(std::equal(before.begin() + part.usByte, before.end(),
                                   after.begin() + part.usByte));
        }
    }
}

// The command line writes the bytes that the function writes, and reads what the function reads.
TEST_F(Rows, CommandsDoWhatTheFunctionsDo)
{
    Maker maker(6);
    g_ulNpPubPrompt = 0;
    std::map<NpCliHandler, std::string> paths = command_paths();
    // The handlers, in the order of the tables.
    const std::pair<NpCliHandler, NpCliHandler> handlers[] = {
#define NP_TABLE_ROW(stTable, pfnGet, pfnSet, pfnGetHandler, pfnSetHandler, enForm) \
    {pfnGetHandler, pfnSetHandler},
#include "sdk/tables/list.h"
    };
    for (size_t i = 0; i < std::size(handlers); i++) {
        const NpTableInfo &flat = flat_tables()[i];
        const auto &[get_handler, set_handler] = handlers[i];
        SCOPED_TRACE(name_of(flat));
        const bool large = Np_SMD_CommandForm(set_handler) == NP_FORM_LARGE;
        for (int round = 0; round < 6; round++) {
            const Bytes key = maker.key(flat);
            const Bytes record = maker.record(*flat.pstTable->pstRow);
            ASSERT_EQ(flat.pfnSet(0, key.data(), record.data()), NP_OK);
            const Bytes expected = stored(*flat.pstTable, key.data());
            ASSERT_EQ(flat.pfnSet(0, key.data(), maker.record(*flat.pstTable->pstRow).data()),
                      NP_OK);
            std::string keys;
            for (const std::string &pair : pairs(*flat.pstTable->pstKey, key, false)) {
                keys += " " + pair;
            }
            // As many lines as the buffer of a command makes necessary.
            std::string line;
            const auto send = [&] {
                EXPECT_THAT(run(paths[set_handler] + keys + line + (large ? " end" : "")),
                            EndsWith("Command execute success!"))
                    << line;
                line.clear();
            };
            for (const std::string &pair : pairs(*flat.pstTable->pstRow, record, round % 2 == 0)) {
                if (keys.size() + line.size() + pair.size() > 400) {
                    send();
                }
                line += " " + pair;
            }
            send();
            EXPECT_EQ(stored(*flat.pstTable, key.data()), expected);

            Bytes back(record.size());
            ASSERT_EQ(flat.pfnGet(0, key.data(), back.data()), NP_OK);
            const std::string shown = run(paths[get_handler] + keys);
            for (const std::string &pair : pairs(*flat.pstTable->pstRow, back, true)) {
                std::istringstream stream(pair);
                std::string name, value;
                while (stream >> name >> value && value != "plus" && value != "minus" &&
                       value != "ge" && value != "fe" && value != "gpon") {
                    char text[80];
                    std::snprintf(text, sizeof(text), "\r\n    %-25s:   %s", name.c_str(),
                                  value.c_str());
                    EXPECT_THAT(shown, HasSubstr(text));
                }
            }
        }
    }
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
    return Np_RowValidate(sizeof(Pair), image, fields, checks).enFault;
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
// A selector may stand behind what it selects, but it has to be a plain value that a parse can
// find.
constexpr NpField g_astBehind[] = {
    NP_F(ulSecond, .stAt = {4, 31, 0}, .pstWhen = NP_WHEN(ulFirst, 1)),
    NP_F(ulFirst, .stAt = {0, 31, 0})};
static_assert(judge(g_astBehind) == NP_ROW_GOOD && !Np_RowOrdered(g_astBehind));
constexpr NpField g_astNoSelector[] = {
    NP_F(ulSecond, .stAt = {4, 31, 0}, .pstWhen = NP_WHEN(ulFirst, 1))};
static_assert(judge(g_astNoSelector) == NP_ROW_SELECTOR);
constexpr NpField g_astNoValue[] = {
    NP_F(ulFirst, .stAt = {0, 31, 0}),
    NP_F(ulSecond, .stAt = {4, 31, 0}, .pstWhen = NP_WHEN(ulFirst, 0))};
static_assert(judge(g_astNoValue) == NP_ROW_SELECTOR);
constexpr NpField g_astInner[] = {
    NP_F(ulFirst, .stAt = {0, 31, 0}),
    NP_F(ulSecond, .stAt = {4, 31, 0}, .pstWhen = NP_WHEN(ulFirst, 1, NP_WHEN(aucByte[0], 1)))};
static_assert(judge(g_astInner) == NP_ROW_SELECTOR);
constexpr NpField g_astUnread[] = {
    NP_F(ulFirst, .bLost = true),
    NP_F(ulSecond, .stAt = {4, 31, 0}, .pstWhen = NP_WHEN(ulFirst, 1))};
static_assert(judge(g_astUnread) == NP_ROW_UNREADABLE);
constexpr NpField g_astHanded[] = {
    NP_F(ulFirst, .bHanded = true),
    NP_F(ulSecond, .stAt = {4, 31, 0}, .pstWhen = NP_WHEN(ulFirst, 1))};
static_assert(judge(g_astHanded) == NP_ROW_GOOD);
// One place for two fields, if no record has both.
template <auto pstA, auto pstB>
constexpr NpField g_astShared[] = {NP_F(ulFirst, .stAt = {0, 31, 0}),
                                   NP_F(ulSecond, .stAt = {4, 31, 0}, .pstWhen = pstA),
                                   NP_F(aucByte, .stAt = {4, 7, 0}, .sStep = 8, .pstWhen = pstB)};
static_assert(judge(g_astShared<NP_WHEN_SET(ulFirst), NP_WHEN(ulFirst, 1)>) == NP_ROW_GOOD);
static_assert(judge(g_astShared<NP_WHEN_SET(ulFirst), NP_WHEN(ulFirst, 2)>) == NP_ROW_OVERLAP);
static_assert(judge(g_astShared<NP_WHEN_BITS(ulFirst, 64), NP_WHEN_NO_BITS(ulFirst, 64)>) ==
              NP_ROW_GOOD);
static_assert(judge(g_astShared<NP_WHEN_BITS(ulFirst, 64), NP_WHEN_NO_BITS(ulFirst, 32)>) ==
              NP_ROW_OVERLAP);
static_assert(judge(g_astShared<NP_WHEN_IS(ulFirst, 500), NP_WHEN_NOT(ulFirst, 1)>) ==
              NP_ROW_OVERLAP);
static_assert(judge(g_astShared<NP_WHEN_IS(ulFirst, 500), NP_WHEN(ulFirst, 1)>) == NP_ROW_GOOD);

constexpr NpField g_astConst[] = {Np_Const({0, 3, 0}, 5), NP_F(ulSecond, .stAt = {4, 31, 0})};
static_assert(judge(g_astConst) == NP_ROW_GOOD && judge(g_astConst, {}, 4) == NP_ROW_LEAVES_IMAGE);
constexpr NpField g_astWideConst[] = {Np_Const({0, 1, 0}, 5)};
static_assert(judge(g_astWideConst) == NP_ROW_CONSTANT);
constexpr NpField g_astCoveredConst[] = {Np_Const({4, 3, 0}, 5),
                                         NP_F(ulSecond, .stAt = {4, 31, 0})};
static_assert(judge(g_astCoveredConst) == NP_ROW_OVERLAP);

// The bits of a limit that depends on another field, in both orders of its lines.
constexpr NpCheck g_astSmallFirst[] = {
    NP_C(ulSecond, Np_Most(1023), .pstWhen = NP_WHEN(ulFirst, 8)),
    NP_C(ulSecond, Np_Most(8191), .pstWhen = NP_WHEN_NOT(ulFirst, 8))};
constexpr NpCheck g_astLargeFirst[] = {g_astSmallFirst[1], g_astSmallFirst[0]};
constexpr NpField g_astTen[] = {NP_F(ulFirst, .stAt = {0, 31, 0}),
                                NP_F(ulSecond, .stAt = {4, 9, 0})};
constexpr NpField g_astThirteen[] = {NP_F(ulFirst, .stAt = {0, 31, 0}),
                                     NP_F(ulSecond, .stAt = {4, 12, 0})};
static_assert(judge(g_astTen, g_astSmallFirst) == NP_ROW_TOO_NARROW &&
              judge(g_astTen, g_astLargeFirst) == NP_ROW_TOO_NARROW);
static_assert(judge(g_astThirteen, g_astSmallFirst) == NP_ROW_GOOD &&
              judge(g_astThirteen, g_astLargeFirst) == NP_ROW_GOOD);
constexpr NpCheck g_astLostSelector[] = {
    NP_C(ulSecond, Np_Most(1), .pstWhen = NP_WHEN(aucByte[0], 1))};
static_assert(judge(g_astTen, g_astLostSelector) == NP_ROW_SELECTOR);
constexpr NpField g_astKey[] = {NP_F(ulFirst, .stAt = {0, 31, 0}, .pszKey = "a"),
                                NP_F(ulSecond, .stAt = {4, 31, 0}, .pszKey = "a")};
static_assert(judge(g_astKey) == NP_ROW_SAME_KEY);
static_assert(Np_RowValidate(8, 8, g_astGood, g_astCheck).enFault == NP_ROW_LEAVES_RECORD);
constexpr NpField g_astFar[] = {
    Np_FieldMake<uint8_t *>("far", 0, 8, 0, {.pstWhen = NP_WHEN(ulSecond, 1), .usCount = 9}),
    NP_F(ulSecond, .stAt = {4, 31, 0})};
static_assert(judge(g_astFar) == NP_ROW_NOT_STORED);
}  // namespace faults

TEST_F(Rows, MixedFieldsReadFromTheCommandLine)
{
    const NpRow &row = mixed_row::g_stRow;
    // A port that the chip has not is refused, and no image is made of it.
    Mixed mixed = {1, 0, 0, {16, 0, 0, 0}, {}, 0};
    Bytes image(16);
    EXPECT_NE(Np_Row_Build(&row, 0, &mixed, image.data()), NP_OK);
    for (const int32_t gain : {INT32_MIN, INT32_MAX}) {
        mixed = {0, gain, 0, {}, {}, 0};
        EXPECT_EQ(Np_Row_Check(&row, 0, &mixed), NP_ERR_PARAM) << gain;
    }

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

// A record that ends in one that is described elsewhere, a union whose kind a shadow keeps.
struct Notice {
    uint32_t ulValid;
    uint32_t ulQueueID;
    uint32_t ulFrameInfoType;
    NpFrameInfo unFrameInfo;
};

namespace notice_row {
using R = Notice;
constexpr const NpWhen *g_pstValid = NP_WHEN(ulValid, 1u << 1);
constexpr NpField g_astFront[] = {
    NP_F(ulValid, .stAt = {7, 7, 7}),
    NP_F(ulQueueID, .stAt = {4, 23, 8}),
    NP_F(ulFrameInfoType, .stWords = frame_info::g_astTypeWords, .bHanded = true),
};
constexpr NpCheck g_astFrontCheck[] = {NP_C(ulValid, Np_Flag(NP_SAY_VALID)),
                                       NP_C(ulQueueID, Np_Most(0x1ff))};
constexpr auto g_astField = Np_JoinFields(
    g_astFront,
    Np_FrameInfoFields<offsetof(R, ulFrameInfoType), offsetof(R, unFrameInfo), 8, g_pstValid>());
constexpr auto g_astCheck = Np_JoinFields(
    g_astFrontCheck,
    Np_FrameInfoChecks<offsetof(R, ulFrameInfoType), offsetof(R, unFrameInfo), g_pstValid>());
constexpr NpRow g_stRow = Np_RowMake<R>(
    {.ucModule = NP_M_COMM, .pszArg = "pstNotice", .usImageSize = 12}, g_astField, g_astCheck);
// A header whose words stand the other way round; what could be set freely is bound to its kind.
constexpr auto g_astTurned = Np_Inside<insert::fwd::g_astField<4, 0>, 8, g_pstValid>();
static_assert(g_astTurned[0].usBit == 16 && g_astTurned[2].usBit == 45 &&
              g_astTurned[2].usOffset == 8 && !g_astTurned[2].bPlain);
static_assert(!g_astTurned[3].bFree && g_astTurned[3].pstWhen->usOffset == 44 &&
              g_astTurned[3].pstWhen->pstAnd == g_pstValid);
}  // namespace notice_row

TEST_F(Rows, RecordsInsideOthersLieAndTellAsTheirOwn)
{
    const NpRow &row = notice_row::g_stRow;
    Notice notice = {1, 0x1ff, 1, {}};
    notice.unFrameInfo.stEther = {3, 1, 0x1ff, 5, 0x7f};
    Bytes image(12);
    ASSERT_EQ(Np_Row_Build(&row, 0, &notice, image.data()), NP_OK);
    EXPECT_EQ(image, (Bytes{0, 0, 0, 0, 0, 0xff, 0x01, 0x80, 0x7f, 0xff, 0xf5, 0}));
    Notice back = {0, 0, 1, {}};
    ASSERT_EQ(Np_Row_Parse(&row, 0, image.data(), &back), NP_OK);
    EXPECT_EQ(std::memcmp(&back, &notice, sizeof(back)), 0);
    back.ulFrameInfoType = 7;
    ASSERT_EQ(Np_Row_Parse(&row, 0, image.data(), &back), NP_OK);
    EXPECT_EQ(back.unFrameInfo.stLoopBack.ulRsvd, 0xf5ff7fu);

    const auto refused = [&] {
        return failures(
            row, [&] { return Np_Row_Check(&row, 0, &notice); }, NP_ERR_PARAM);
    };
    notice.unFrameInfo.stEther.ulTsAddr = 0x200;
    EXPECT_EQ(refused(), Words{"param error! punFrameInfo->stEther.ulTsAddr=0x00000200\r\n"});
    notice.ulFrameInfoType = 8;
    EXPECT_EQ(refused(), Words{"param error! ulFrameInfoType=0x00000008\r\n"});
    notice.ulQueueID = 0x200;
    EXPECT_EQ(refused(), Words{"param error! (pstNotice->ulQueueID)=0x00000200\r\n"});
    notice = {0, 0, 8, {}};
    EXPECT_EQ(Np_Row_Check(&row, 0, &notice), NP_OK);

    // A member of the union is read behind its kind, with its own range, and traced alone.
    words("ulValid 1 ulFrameInfoType gpon ulPriOrSCR x");
    out.take();
    EXPECT_EQ(Np_SMD_RowScan(&row, &notice, false), 1u);
    EXPECT_THAT(out.take(), EndsWith("ulPriOrSCR[0, 1]: \n"));
    Np_PrintLevelSet(NP_M_COMM, NP_PRINT_TRACE, 1);
    Np_Row_Trace(&row, &notice);
    Np_PrintLevelSet(NP_M_COMM, NP_PRINT_TRACE, 0);
    EXPECT_THAT(out.take(), EndsWith(" ulValid=0x1 ulQueueID=0x0 ulFrameInfoType=0x2 "
                                     "stGpon.ulPriOrSCR=0x0 stGpon.ulGemPortID=0x0 \r\n"));
}

TEST_F(Rows, RulesMasksAndHandedSelectors)
{
    const NpRow &row = rule_row::g_stRow;
    // Without its mask a value reads back as 0, with any mask as it was, under all ones.
    for (const uint32_t on : {0u, 1u, 0x80000000u}) {
        Rule rule = {0, 3, 9, 0x123, 5, on, 6, 0x1abc, 1};
        Bytes image(16);
        ASSERT_EQ(Np_Row_Build(&row, 0, &rule, image.data()), NP_OK);
        // The form stands nowhere: a parse takes it as its caller says.
        Rule read;
        std::memset(static_cast<void *>(&read), 0xa5, sizeof(read));
        read.ulForm = 0;
        ASSERT_EQ(Np_Row_Parse(&row, 0, image.data(), &read), NP_OK);
        rule.ulVlan = on != 0 ? 0x123 : 0;
        rule.ulVlanMask = on != 0 ? 0xfff : 0;
        EXPECT_EQ(std::memcmp(&rule, &read, sizeof(rule)), 0);
        read.ulForm = 1;
        ASSERT_EQ(Np_Row_Parse(&row, 0, image.data(), &read), NP_OK);
        EXPECT_EQ(read.ulForm, 1u);
        EXPECT_EQ(read.ulLag, 0u);  // both conditions have to hold
        rule.ulOn = 0;
        ASSERT_EQ(Np_Row_Build(&row, 0, &rule, image.data()), NP_OK);
        ASSERT_EQ(Np_Row_Parse(&row, 0, image.data(), &read), NP_OK);
        EXPECT_EQ(read.ulID, 0u);  // its selector stands behind it
    }

    // The prompt tells the range that holds; the parameter tells all.
    NpSmdParam param;
    ASSERT_EQ(Np_SMD_RowParam(&row, 1, &param), 0u);
    EXPECT_EQ(param.stItem.lMax, 8191);
    ASSERT_EQ(param.ulRangeNum, 2u);
    EXPECT_EQ(param.astRange[0].lMax, 1023);
    EXPECT_STREQ(param.astRange[0].stOf.pszOf, "ulKind");
    EXPECT_EQ(param.astRange[1].stOf.ulMask, ~0x18u);
    g_ulNpPubPrompt = 1;
    for (const auto &[kind, range] : {std::pair{3u, "[0, 1023]"}, std::pair{2u, "[0, 8191]"}}) {
        Rule rule = {0, kind, 0, 0, 0, 0, 0, 0, 1};
        words("id x");
        out.take();
        EXPECT_EQ(Np_SMD_RowScan(&row, &rule, false), 1u);
        EXPECT_THAT(out.take(), HasSubstr(range));
    }
    // A masked value is a parameter of its own.
    Rule rule = {};
    words("vlan 7 vlanmask 1");
    EXPECT_EQ(Np_SMD_RowScan(&row, &rule, false), 0u);
    EXPECT_EQ(rule.ulVlan, 7u);
    EXPECT_EQ(words_left(), 0);
}

}  // namespace

}  // namespace ldsdk::test
