// Described rows: what holds for every description, and what is written of each table.
#include "tests/shell.h"

#include "sdk/access/regtable.h"
#include "sdk/module/smd_row.h"
#include "sdk/record/describe.h"
#include "sdk/record/list.h"
#include "sdk/tables/arl.h"

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <set>

namespace {

using ldsdk::test::BusTap;
using ldsdk::test::Shell;
using testing::EndsWith;
using testing::HasSubstr;

using Bytes = std::vector<uint8_t>;
using Words = std::vector<std::string>;

// A flat table of the list, its exported functions taking plain memory.
struct Flat {
    const char *name;
    const NpTable *table;
    NpCliHandler set_handler, get_handler;
    uint32_t (*get)(uint32_t chip, const void *key, void *record);
    uint32_t (*set)(uint32_t chip, const void *key, const void *record);
};

const Flat kFlat[] = {
#define NP_TABLE_ROW(stTable, Record, Wrapper, Handler, enForm) \
    {#Wrapper,                                                  \
     &stTable,                                                  \
     Handler##_Set,                                             \
     Handler##_Get,                                             \
     Np_SMD_RowCall<Wrapper##_Get, Record>,                     \
     Np_SMD_RowCall<Wrapper##_Set, const Record>},
#include "sdk/record/list.h"
#include "sdk/tables/arl.h"
};

// Every described row that has an image.
std::vector<const NpRow *> image_rows()
{
    std::vector<const NpRow *> rows;
    for (const Flat &flat : kFlat) {
        rows.push_back(flat.table->pstRow);
    }
#define NP_KEYED_ROW(stKey, Key, stRow, Record, Wrapper, Handler, enForm) rows.push_back(&(stRow));
#define NP_LOOSE_ROW(stRow)         \
    if ((stRow).usImageSize != 0) { \
        rows.push_back(&(stRow));   \
    }
#include "sdk/record/list.h"
#include "sdk/tables/arl.h"
    return rows;
}

std::span<const NpField> fields_of(const NpRow &row)
{
    return {row.pstField, row.usFieldNum};
}

std::span<const NpCheck> checks_of(const NpRow &row)
{
    return {row.pstCheck, row.usCheckNum};
}

std::string name_of(const NpRow &row)
{
    return row.pszArg != nullptr ? row.pszArg : row.pstField[0].pszName;
}

// Ports that the chip has, for fields that hold one.
constexpr NpPortID kPorts[] = {{6, 0, 0, 0}, {6, 3, 2, 0}, {7, 5, 0, 0}, {1, 1, 0, 0}};

// Legal records at random.
class Maker {
  public:
    explicit Maker(uint32_t seed) : random_(seed) {}

    Bytes record(const NpRow &row)
    {
        Bytes bytes(row.usRecordSize);
        for (const NpField &field : fields_of(row)) {
            if (field.ucFrom != 0 || !Np_Row_IsThere(field.stWhen, bytes.data())) {
                continue;
            }
            for (uint32_t i = 0; i < field.usCount; i++) {
                if (field.ucType == NP_SMD_PORT) {
                    const NpPortID port = fitting_port(field);
                    std::memcpy(bytes.data() + field.usOffset + i * field.usStride, &port,
                                sizeof(port));
                }
                else {
                    Np_Row_Store(&field, i, value(row, field), bytes.data());
                }
            }
        }
        return bytes;
    }

    uint32_t number()
    {
        return random_();
    }

  private:
    // A port whose number the field has the bits for.
    NpPortID fitting_port(const NpField &field)
    {
        while (true) {
            const NpPortID &port = kPorts[random_() % std::size(kPorts)];
            uint32_t phy = 0;
            EXPECT_EQ(Np_PortID2PhyID(0, &port, &phy), NP_OK);
            if (field.ucWidth == 0 || phy >> field.ucWidth == 0) {
                return port;
            }
        }
    }

    uint32_t value(const NpRow &row, const NpField &field)
    {
        const NpCheck *check = Np_Row_FieldCheck(&row, &field);
        uint32_t low = 0;
        uint32_t span = 0xffffffffu >> (32 - 8 * field.ucSize);
        if (check != nullptr) {
            low = check->stLimit.ulMin;
            span = Np_Row_LimitMax(&check->stLimit) - low;
        }
        if (field.bCut) {
            span = std::min(span, 0xffffffffu >> (32 - field.ucWidth));
        }
        // Both ends, and what lies between.
        const uint32_t pick = random_() % 4;
        return pick == 0                         ? low
               : pick == 1 || span == UINT32_MAX ? low + span
                                                 : low + random_() % (span + 1);
    }

    std::mt19937 random_;
};

class Rows : public Shell {
  protected:
    Rows()
    {
        EXPECT_EQ(Np_GLB_ChipRegister(0, 1, 0, 0), NP_OK);
        EXPECT_EQ(Np_INIT_SdkInit(0), NP_OK);
    }
    ~Rows() override
    {
        EXPECT_EQ(Np_INIT_SdkDestruct(0), NP_OK);
    }

    // What a call traced as failures of the row's module, without positions.
    Words failures(const NpRow &row, const std::function<uint32_t()> &call, uint32_t result)
    {
        trace_errors(static_cast<NpModule>(row.ucModule));
        out.take();
        EXPECT_EQ(call(), result);
        Np_PrintLevelInit();
        Words lines;
        const std::string text = out.take();
        for (size_t at = text.find("\r\n["); at != std::string::npos;) {
            const size_t begin = text.find("]: ", at) + 3;
            at = text.find("\r\n[", begin);
            lines.push_back(text.substr(begin, at == std::string::npos ? at : at - begin));
        }
        return lines;
    }

    // The bytes of a table's row in chip memory, part behind part.
    static Bytes stored(const NpTable &table, const void *key)
    {
        Bytes bytes;
        const uint32_t *words = static_cast<const uint32_t *>(key);
        const uint32_t row = table.pfnRowNumber != nullptr ? table.pfnRowNumber(words) : words[0];
        for (uint32_t i = 0; i < table.ucPartNum; i++) {
            uint32_t address = 0;
            EXPECT_EQ(Np_RegTableRealAddrGet(0, table.astPart[i].usTableID, row, &address), NP_OK);
            const Bytes part = memory(address, Np_PartSize(table, i));
            bytes.insert(bytes.end(), part.begin(), part.end());
        }
        return bytes;
    }

    // The words of a parameter's value.
    static std::string value_words(const NpSmdParam &param, const uint8_t *value, bool text)
    {
        uint32_t word = 0;
        std::memcpy(&word, value, param.stItem.ulType == NP_SMD_DATA ? 0 : 4);
        char line[600] = {};
        switch (param.stItem.ulType) {
            case NP_SMD_ENUM:
                for (uint32_t i = 0; text && i < param.ulEnumNum; i++) {
                    if (param.pstEnum[i].ulValue == word) {
                        return param.pstEnum[i].pszText;
                    }
                }
                return std::to_string(word);
            case NP_SMD_SIGNED:
                return static_cast<int32_t>(word) < 0 ? "minus " + std::to_string(0u - word)
                                                      : "plus " + std::to_string(word);
            case NP_SMD_MAC:
                std::snprintf(line, sizeof(line), "%02x-%02x-%02x-%02x-%02x-%02x", value[0],
                              value[1], value[2], value[3], value[4], value[5]);
                return line;
            case NP_SMD_IPV4:
                std::snprintf(line, sizeof(line), "%u.%u.%u.%u", word >> 24, word >> 16 & 255,
                              word >> 8 & 255, word & 255);
                return line;
            case NP_SMD_DATA:
                for (int32_t i = 0; i < param.stItem.lMax; i++) {
                    std::snprintf(line + 2 * i, 3, "%02x", value[i]);
                }
                return line;
            case NP_SMD_PORT: {
                NpPortID port;
                std::memcpy(&port, value, sizeof(port));
                const std::string number = " portid " + std::to_string(port.ulPortID);
                return port.ulPortType == 7 ? "fe" + number
                       : port.ulPortType == 1
                           ? "gpon" + number
                           : "ge" + number + " subportid " + std::to_string(port.ulSubPortID);
            }
            default:
                return std::to_string(word);
        }
    }

    // "name value" of all parameters of a record that are read now. Those that a selector lets in
    // stand behind it, on the same line.
    static Words pairs(const NpRow &row, const Bytes &record, bool text)
    {
        Words list;
        NpSmdParam param;
        uint32_t index = 0;
        for (const NpField &field : fields_of(row)) {
            const bool there = Np_Row_IsThere(field.stWhen, record.data());
            const uint32_t count = field.bHidden ? 0 : field.bWhole ? 1 : field.usCount;
            for (uint32_t i = 0; i < count; i++, index++) {
                EXPECT_EQ(Np_SMD_RowParam(&row, index, &param), 0u);
                if (!there) {
                    continue;
                }
                Bytes value(record.begin() + field.usOffset + i * field.usStride, record.end());
                if (field.ucSize < 4 && !field.bWhole) {
                    const uint32_t number = Np_Row_Load(&field, i, record.data());
                    value.resize(4);
                    std::memcpy(value.data(), &number, 4);
                }
                value.resize(std::max<size_t>(value.size(), 16));
                const std::string pair =
                    std::string(param.stItem.szName) + " " + value_words(param, value.data(), text);
                if (param.pszOf != nullptr) {
                    list.back() += " " + pair;
                }
                else {
                    list.push_back(pair);
                }
            }
        }
        return list;
    }
};

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

// ---- what is written of each table --------------------------------------------------------------

// The messages of a table's checks in their order: the field as the command line's own name, a bad
// value, the message. With the checks from k on all failing, the k-th speaks.
struct Order {
    const char *table;
    struct Step {
        const char *field;
        uint32_t bad;
        const char *message;
    };
    std::vector<Step> steps;
};

const char kEnable[] = "enable Para error: 0x%08x \r\n";
const char kBool[] = "true/false Para error: 0x%08x \r\n";

const Order kOrders[] = {
    {"Np_MetTbl",
     {{"key ulIndex", 2000, "param error! (ulIndex)=0x%08x\r\n"},
      {"ulOpCode", 8, "param error! (pstMet->ulOpCode)=0x%08x\r\n"},
      {"unDstintf.ulOftID", 0x2000, "param error! (pstMet->unDstintf.ulOftID)=0x%08x\r\n"},
      {"ulValid", 2, kEnable},
      {"ulNextMetID", 0x8000, "param error! (pstMet->ulNextMetID)=0x%08x\r\n"}}},
    {"Np_BrltTbl",
     {{"key ulIndex", 64, "param error! (ulIndex)=0x%08x\r\n"},
      {"ulBcLimitCarProfile", 256, "param error! (pstBrl->ulBcLimitCarProfile)=0x%08x\r\n"},
      {"ulUnMcLimitCarProfile", 256, "param error! (pstBrl->ulUnMcLimitCarProfile)=0x%08x\r\n"},
      {"ulUnUcLimitCarProfile", 256, "param error! (pstBrl->ulUnUcLimitCarProfile)=0x%08x\r\n"}}},
    {"Np_MdiInfoTbl",
     {{"key ulMdiID", 4, "param error! (ulMdiID)=0x%08x\r\n"},
      {"key ulOffset", 128, "param error! (ulOffset)=0x%08x\r\n"},
      {"ulArriveTimeL16", 0x10000, "param error! (pstMdiInfo->ulArriveTimeL16)=0x%08x\r\n"},
      {"ulPktLen", 0x10000, "param error! (pstMdiInfo->ulPktLen)=0x%08x\r\n"}}},
    {"Np_VlanTbl",
     {{"key ulVlanID", 4096, "param error! (ulVlanID)=0x%08x\r\n"},
      {"ulMccLeafID", 2000, "param error! (pstVlan->ulMccLeafID)=0x%08x\r\n"},
      {"ulMstpID", 4, "param error! (pstVlan->ulMstpID)=0x%08x\r\n"},
      {"ulVlanIf", 32, "param error! (pstVlan->ulVlanIf)=0x%08x\r\n"},
      {"ulVrfID", 16, "param error! (pstVlan->ulVrfID)=0x%08x\r\n"},
      {"ulPortBitMap", 0x4000000, "param error! (pstVlan->ulPortBitMap)=0x%08x\r\n"},
      {"ulUrpfMode", 4, "param error! (pstVlan->ulUrpfMode)=0x%08x\r\n"},
      {"ulMcSearchMode", 8, "param error! (pstVlan->ulMcSearchMode)=0x%08x\r\n"},
      {"ulNLrnMode", 8, "param error! (pstVlan->ulNLrnMode)=0x%08x\r\n"},
      {"ulULrnMode", 8, "param error! (pstVlan->ulULrnMode)=0x%08x\r\n"},
      {"ulPppoeVmacMask", 4, "param error! (pstVlan->ulPppoeVmacMask)=0x%08x\r\n"},
      {"ulNonPppoeVmacMask", 4, "param error! (pstVlan->ulNonPppoeVmacMask)=0x%08x\r\n"},
      {"ulFwd", 4, "param error! (pstVlan->ulFwd)=0x%08x\r\n"},
      {"ulUpBcFilterEnable", 2, kEnable},
      {"ulUpBcNoDropEnable", 3, kEnable},
      {"ulUpUnMcFiterEnable", 4, kEnable},
      {"ulUpUnMcNoDropEnable", 5, kEnable},
      {"ulUpUnUcFiterEnable", 6, kEnable},
      {"ulUpUnUcNoDropEnable", 7, kEnable},
      {"ulBrasMacEnable", 8, kEnable},
      {"ulVlanIfEnable", 9, kEnable},
      {"ulMcModeEnable", 10, kEnable},
      {"ulDownBcFilterEnable", 11, kEnable},
      {"ulDownBcNoDropEnable", 12, kEnable},
      {"ulDownUnMcFiterEnable", 13, kEnable},
      {"ulDownUnMcNoDropEnable", 14, kEnable},
      {"ulDownUnUcFiterEnable", 15, kEnable},
      {"ulDownUnUcNoDropEnable", 16, kEnable},
      {"ulQinQ", 17, kEnable}}},
    {"Np_VlanOptionTbl",
     {{"key ulVlanID", 4096, "param error! (ulVlanID)=0x%08x\r\n"},
      {"aulDownAction 0", 4, "param error! (pstVlanOption->aulDownAction[ulIndex])=0x%08x\r\n"},
      {"aulUpAction 0", 5, "param error! (pstVlanOption->aulUpAction[ulIndex])=0x%08x\r\n"},
      {"aulDownAction 1", 6, "param error! (pstVlanOption->aulDownAction[ulIndex])=0x%08x\r\n"},
      {"aulUpAction 31", 7, "param error! (pstVlanOption->aulUpAction[ulIndex])=0x%08x\r\n"}}},
    {"Np_VlanPttTbl",
     {{"key ulVlanID", 4096, "param error! (ulVlanID)=0x%08x\r\n"},
      {"ulDownProtocolTempletID", 256,
       "param error! (pstVlanPtt->ulDownProtocolTempletID)=0x%08x\r\n"},
      {"ulUpProtocolTempletID", 256,
       "param error! (pstVlanPtt->ulUpProtocolTempletID)=0x%08x\r\n"}}},
    {"Np_LanVlanTbl",
     {{"key ulVlanID", 4096, "param error! (ulVlanID)=0x%08x\r\n"},
      {"ulBF", 2, kEnable},
      {"ulNDBC", 3, kEnable},
      {"ulNDUMC", 4, kEnable},
      {"ulNDUUC", 5, kEnable},
      {"ulUMF", 6, kEnable},
      {"ulUUF", 7, kEnable},
      {"ulWan", 8, kEnable}}},
    {"Np_IstpTbl",
     {{"key ulIstpID", 4, "param error! (ulIstpID)=0x%08x\r\n"},
      {"astStatus.ulStatus 0", 4,
       "param error! (pstIstp->astStatus[ulIstpPvtArrayIndex].ulStatus)=0x%08x\r\n"},
      {"astStatus.ulStatus 7", 5,
       "param error! (pstIstp->astStatus[ulIstpPvtArrayIndex].ulStatus)=0x%08x\r\n"}}},
    {"Np_EstpTbl",
     {{"key ulEstpID", 4, "param error! (ulEstpID)=0x%08x\r\n"},
      {"astStatus.ulStatus 0", 4,
       "param error! (pstEstp->astStatus[ulEstpPvtArrayIndex].ulStatus)=0x%08x\r\n"},
      {"astStatus.ulStatus 7", 5,
       "param error! (pstEstp->astStatus[ulEstpPvtArrayIndex].ulStatus)=0x%08x\r\n"}}},
    {"Np_DscpMapTbl",
     {{"key ulIndex", 8, "param error! (ulIndex)=0x%08x\r\n"},
      {"auc1P 0", 8, "param error! (pstDscpMap->auc1P[ulI])=0x%08x\r\n"},
      {"auc1P 63", 9, "param error! (pstDscpMap->auc1P[ulI])=0x%08x\r\n"}}},
    {"Np_PcpMapTbl",
     {{"key ulIndex", 8, "param error! (ulIndex)=0x%08x\r\n"},
      {"auc1P 0", 8, "param error! (pstPcpMap->auc1P[ulI])=0x%08x\r\n"},
      {"auc1P 7", 9, "param error! (pstPcpMap->auc1P[ulI])=0x%08x\r\n"}}},
    {"Np_IpMapTbl",
     {{"key ulIndex", 8, "param error! (ulIndex)=0x%08x\r\n"},
      {"auc1P 0", 8, "param error! (pstIpMap->auc1P[ulI])=0x%08x\r\n"},
      {"auc1P 7", 9, "param error! (pstIpMap->auc1P[ulI])=0x%08x\r\n"}}},
    {"Np_PriCarMapTbl",
     {{"key ulIndex", 1, "param error! ulIndex=0x%08x\r\n"},
      {"aucPriMap 0", 4, "param error! pstPriCarMap->aucPriMap[ulI][ulJ]=0x%08x\r\n"},
      {"aucPriMap 31", 5, "param error! pstPriCarMap->aucPriMap[ulI][ulJ]=0x%08x\r\n"}}},
    {"Np_VmacInfoTbl",
     {{"key ulVmacInfoID", 32, "param error! (ulVmacInfoID)=0x%08x\r\n"},
      {"ulVmacBase", 0x1000, "param error! (pstVmacInfo->ulVmacBase)=0x%08x\r\n"},
      {"ulVmacNumber", 33, "param error! (pstVmacInfo->ulVmacNumber)=0x%08x\r\n"}}},
    {"Np_UvtTbl",
     {{"key ulIndex", 512, "param error! ulIndex=0x%08x\r\n"},
      {"ulUmacUsed", 2, "param error! pstUvt->ulUmacUsed=0x%08x\r\n"},
      {"ulVmacUsed", 3, "param error! pstUvt->ulVmacUsed=0x%08x\r\n"},
      {"ulUsed", 4, kBool},
      {"ulStaticFlag", 5, kBool}}},
    {"Np_VmacOffsetTbl", {{"key ulIndex", 32, "param error! (ulIndex)=0x%08x\r\n"}}},
    {"Np_PortMacLimitTbl",
     {{"key ulIndex", 64, "param error! (ulIndex)=0x%08x\r\n"},
      {"usLimitNum", 1025, "param error! (pstPortLimitNum->usLimitNum)=0x%08x\r\n"}}},
    {"Np_GlbLanMacLimitTbl",
     {{"key ulIndex", 1, "param error! (ulIndex)=0x%08x\r\n"},
      {"usLimitNum", 1025, "param error! (pstGlbLimitNum->usLimitNum)=0x%08x\r\n"}}},
};

const Flat &flat_of(const std::string &name)
{
    for (const Flat &flat : kFlat) {
        if (flat.name == name) {
            return flat;
        }
    }
    ADD_FAILURE() << name;
    return kFlat[0];
}

// Stores a value in a field named "member" or "member element", of the key if "key" stands before.
void put(const Flat &flat, const std::string &place, uint32_t value, Bytes &key, Bytes &record)
{
    std::istringstream stream(place);
    std::string name;
    stream >> name;
    const bool in_key = name == "key";
    if (in_key) {
        stream >> name;
    }
    uint32_t element = 0;
    stream >> element;
    for (const NpField &field : fields_of(in_key ? *flat.table->pstKey : *flat.table->pstRow)) {
        if (field.pszName == name) {
            Np_Row_Store(&field, element, value, in_key ? key.data() : record.data());
            return;
        }
    }
    ADD_FAILURE() << flat.name << " has no " << place;
}

TEST_F(Rows, ChecksComeInTheirOrder)
{
    std::set<std::string> checked;
    for (const Order &order : kOrders) {
        SCOPED_TRACE(order.table);
        const Flat &flat = flat_of(order.table);
        checked.insert(order.table);
        Bytes key(flat.table->pstKey->usRecordSize);
        Bytes record(flat.table->pstRow->usRecordSize);
        for (size_t k = order.steps.size(); k-- > 0;) {
            const Order::Step &step = order.steps[k];
            SCOPED_TRACE(step.field);
            put(flat, step.field, step.bad, key, record);
            char message[120];
            std::snprintf(message, sizeof(message), step.message, step.bad);
            Words expected = {message};
            if (flat.table->pstRow->ucModule == NP_M_MC) {
                expected.push_back("Func error return: 0x9a000005 \r\n");
            }
            EXPECT_EQ(failures(
                          *flat.table->pstRow,
                          [&] { return flat.set(0, key.data(), record.data()); }, NP_ERR_PARAM),
                      expected);
        }
    }
    for (const Flat &flat : kFlat) {
        EXPECT_TRUE(checked.contains(flat.name)) << "no order is written down for " << flat.name;
    }
}

// Words of a row, by the fields that are set. A table that has one field for a line has all others
// at 0, so that each line is a place in the row.
struct Image {
    const char *table;
    const char *fields;  // "member[ element]=value, ..."
    std::vector<uint32_t> words;
};

const Image kImages[] = {
    {"Np_MetTbl", "ulValid=1", {0x80000000}},
    {"Np_MetTbl", "ulNextMetID=32767", {0x7fff0000}},
    {"Np_MetTbl", "ulOpCode=1, unDstintf.ulOftID=8191", {0x00003fff}},
    {"Np_MetTbl", "ulOpCode=0, unDstintf.ulOftID=4660", {0x00001234}},
    {"Np_MetTbl", "ulOpCode=3, unDstintf.ulOftID=8191", {0x00006000}},
    {"Np_MetTbl", "ulOpCode=7, unDstintf.ulOftID=5", {0x0000f805}},
    {"Np_MetTbl", "ulOpCode=7, unDstintf.ulOftID=8191", {0x0000f7ff}},
    {"Np_BrltTbl", "ulBcLimitCarProfile=255", {0, 0x000000ff}},
    {"Np_BrltTbl", "ulUnUcLimitCarProfile=255", {0, 0x0000ff00}},
    {"Np_BrltTbl", "ulUnMcLimitCarProfile=255", {0, 0x00ff0000}},
    {"Np_MdiInfoTbl", "ulArriveTimeH32=305419896", {0, 0x12345678}},
    {"Np_MdiInfoTbl", "ulArriveTimeL16=43981, ulPktLen=4660", {0x1234abcd, 0}},
    {"Np_VlanTbl", "ulPortBitMap=67108863", {0x03ffffff, 0, 0}},
    {"Np_VlanTbl", "ulVrfID=15", {0xf0000000, 0, 0}},
    {"Np_VlanTbl", "ulUrpfMode=3", {0x0c000000, 0, 0}},
    {"Np_VlanTbl", "ulVlanIf=31", {0, 0x0000001f, 0}},
    {"Np_VlanTbl", "ulMcSearchMode=7", {0, 0x00003800, 0}},
    {"Np_VlanTbl", "ulNLrnMode=7", {0, 0x0001c000, 0}},
    {"Np_VlanTbl", "ulPppoeVmacMask=3", {0, 0x00c00000, 0}},
    {"Np_VlanTbl", "ulNonPppoeVmacMask=3", {0, 0x00300000, 0}},
    {"Np_VlanTbl", "ulULrnMode=7", {0, 0x000e0000, 0}},
    {"Np_VlanTbl", "ulFwd=3", {0, 0xc0000000, 0}},
    {"Np_VlanTbl", "ulMcModeEnable=1", {0, 0x20000000, 0}},
    {"Np_VlanTbl", "ulMstpID=3", {0, 0x18000000, 0}},
    {"Np_VlanTbl", "ulQinQ=1", {0, 0x04000000, 0}},
    {"Np_VlanTbl", "ulBrasMacEnable=1", {0, 0x02000000, 0}},
    {"Np_VlanTbl", "ulVlanIfEnable=1", {0, 0x01000000, 0}},
    {"Np_VlanTbl", "ulUpUnUcNoDropEnable=1", {0, 0, 0x80000000}},
    {"Np_VlanTbl", "ulUpUnMcNoDropEnable=1", {0, 0, 0x40000000}},
    {"Np_VlanTbl", "ulUpBcNoDropEnable=1", {0, 0, 0x20000000}},
    {"Np_VlanTbl", "ulUpUnUcFiterEnable=1", {0, 0, 0x10000000}},
    {"Np_VlanTbl", "ulUpUnMcFiterEnable=1", {0, 0, 0x08000000}},
    {"Np_VlanTbl", "ulUpBcFilterEnable=1", {0, 0, 0x04000000}},
    {"Np_VlanTbl", "ulDownUnUcNoDropEnable=1", {0, 0, 0x00800000}},
    {"Np_VlanTbl", "ulDownUnMcNoDropEnable=1", {0, 0, 0x00400000}},
    {"Np_VlanTbl", "ulDownBcNoDropEnable=1", {0, 0, 0x00200000}},
    {"Np_VlanTbl", "ulDownUnUcFiterEnable=1", {0, 0, 0x00100000}},
    {"Np_VlanTbl", "ulDownUnMcFiterEnable=1", {0, 0, 0x00080000}},
    {"Np_VlanTbl", "ulDownBcFilterEnable=1", {0, 0, 0x00040000}},
    {"Np_VlanTbl", "ulMccLeafID=1999", {0, 0, 0x000007cf}},
    {"Np_VlanOptionTbl", "aulUpAction 0=3", {0x00000003, 0, 0, 0}},
    {"Np_VlanOptionTbl", "aulUpAction 17=3", {0, 0x0000000c, 0, 0}},
    {"Np_VlanOptionTbl", "aulDownAction 5=2", {0, 0, 0x00000800, 0}},
    {"Np_VlanOptionTbl", "aulDownAction 31=3", {0, 0, 0, 0xc0000000}},
    {"Np_VlanPttTbl", "ulUpProtocolTempletID=255, ulDownProtocolTempletID=255", {0x0000ffff}},
    {"Np_VlanPttTbl", "ulUpProtocolTempletID=1, ulDownProtocolTempletID=2", {0x00000201}},
    {"Np_LanVlanTbl", "ulWan=1", {0x80000000}},
    {"Np_LanVlanTbl", "ulNDUUC=1", {0x40000000}},
    {"Np_LanVlanTbl", "ulNDUMC=1", {0x20000000}},
    {"Np_LanVlanTbl", "ulNDBC=1", {0x10000000}},
    {"Np_LanVlanTbl", "ulUUF=1", {0x08000000}},
    {"Np_LanVlanTbl", "ulUMF=1", {0x04000000}},
    {"Np_LanVlanTbl", "ulBF=1", {0x02000000}},
    {"Np_LanVlanTbl", "ulUniPortBitMap=4294967295", {0x01ffffff}},
    {"Np_IstpTbl", "astStatus.ulStatus 0=3, astStatus.ulStatus 7=2", {0x00008003}},
    {"Np_EstpTbl", "astStatus.ulStatus 1=1, astStatus.ulStatus 6=3", {0x00003004}},
    {"Np_DscpMapTbl",
     "auc1P 0=1, auc1P 3=7, auc1P 63=5",
     {0x07000001, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x05000000}},
    {"Np_PcpMapTbl", "auc1P 0=1, auc1P 1=2, auc1P 7=7", {0x00000007, 0x01020000}},
    {"Np_IpMapTbl", "auc1P 0=3, auc1P 4=6", {0x06000000, 0x03000000}},
    {"Np_PriCarMapTbl", "aucPriMap 0=3", {0, 0x00030000}},
    {"Np_PriCarMapTbl", "aucPriMap 3=2, aucPriMap 4=1", {0, 0x01800000}},
    {"Np_PriCarMapTbl", "aucPriMap 8=1, aucPriMap 15=3", {0, 0x0000c001}},
    {"Np_PriCarMapTbl", "aucPriMap 16=1, aucPriMap 23=3", {0xc0010000, 0}},
    {"Np_PriCarMapTbl", "aucPriMap 27=2, aucPriMap 31=3", {0x0000c080, 0}},
    {"Np_VmacInfoTbl", "ulVmacBase=4095", {0x00000fff}},
    {"Np_VmacInfoTbl", "ulVmacNumber=32", {0x00200000}},
    {"Np_UvtTbl", "aucUmac 5=254", {0x000000fe, 0, 0, 0}},
    {"Np_UvtTbl", "aucUmac 2=1", {0x01000000, 0, 0, 0}},
    {"Np_UvtTbl", "aucUmac 1=255, aucUmac 0=18", {0, 0x000012ff, 0, 0}},
    {"Np_UvtTbl", "aucVmac 5=254, aucVmac 2=1", {0, 0, 0x010000fe, 0}},
    {"Np_UvtTbl", "aucVmac 1=255, aucVmac 0=18", {0, 0, 0, 0x000012ff}},
    {"Np_UvtTbl", "ulUmacUsed=1", {0, 0, 0, 0x80000000}},
    {"Np_UvtTbl", "ulVmacUsed=1", {0, 0, 0, 0x40000000}},
    {"Np_UvtTbl", "ulUsed=1", {0, 0, 0, 0x20000000}},
    {"Np_UvtTbl", "ulStaticFlag=1", {0, 0, 0, 0x10000000}},
    {"Np_VmacOffsetTbl", "ulVmacOffset 0=18", {0, 0, 0, 0, 0, 0, 0, 0x12000000}},
    {"Np_VmacOffsetTbl",
     "ulVmacOffset 3=18, ulVmacOffset 4=52",
     {0, 0, 0, 0, 0, 0, 0x34000000, 0x12}},
    {"Np_VmacOffsetTbl",
     "ulVmacOffset 31=255, ulVmacOffset 28=1",
     {0x010000ff, 0, 0, 0, 0, 0, 0, 0}},
    {"Np_PortMacLimitTbl", "usLimitNum=1024", {0x80000400}},
    {"Np_GlbLanMacLimitTbl", "usLimitNum=5", {0x80000005}},
};

TEST_F(Rows, FieldsStandInTheirPlaces)
{
    for (const Image &image : kImages) {
        SCOPED_TRACE(testing::Message() << image.table << " " << image.fields);
        const Flat &flat = flat_of(image.table);
        Bytes key(flat.table->pstKey->usRecordSize);
        Bytes record(flat.table->pstRow->usRecordSize);
        std::istringstream list(image.fields);
        for (std::string item; std::getline(list >> std::ws, item, ',');) {
            const size_t equals = item.find('=');
            put(flat, item.substr(0, equals),
                static_cast<uint32_t>(std::stoul(item.substr(equals + 1))), key, record);
        }
        // What stood there before is gone.
        for (uint32_t i = 0; i < flat.table->ucPartNum; i++) {
            const Bytes ones(NP_ROW_IMAGE_MAX, 0xff);
            ASSERT_EQ(Np_RegTableWrite(0, flat.table->astPart[i].usTableID, 0, ones.data()), NP_OK);
        }
        ASSERT_EQ(flat.set(0, key.data(), record.data()), NP_OK);
        Bytes expected(4 * image.words.size());
        for (size_t i = 0; i < expected.size(); i++) {
            expected[i] = static_cast<uint8_t>(image.words[i / 4] >> 8 * (i % 4));
        }
        EXPECT_EQ(stored(*flat.table, key.data()), expected);
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

// Where rows lie, by the addresses of the tables.
TEST_F(Rows, RowsLieAtTheirAddresses)
{
    NpVlan vlan = {};
    vlan.ulVlanIf = 9;
    vlan.ulMccLeafID = 1234;
    ASSERT_EQ(Np_VlanTbl_Set(0, 4095, &vlan), NP_OK);
    EXPECT_EQ(peek(0x60210000 + 8 * 4095 + 4), 9u);
    EXPECT_EQ(peek(0x64044000 + 4 * 4095), 1234u);
    const NpMdiInfo mdi = {7, 8, 9};
    ASSERT_EQ(Np_MdiInfoTbl_Set(0, 3, 127, &mdi), NP_OK);
    uint32_t address = 0;
    ASSERT_EQ(Np_RegTableRealAddrGet(0, 55, 511, &address), NP_OK);
    EXPECT_EQ(peek(address), 0x00090008u);
    EXPECT_EQ(peek(address + 4), 7u);
}

// A leaf without a destination keeps the caller's; one that discards reads back as it is stored.
TEST_F(Rows, LeavesReadBackByTheirOperation)
{
    for (const auto &[op, set, get] : std::initializer_list<std::array<uint32_t, 3>>{
             {0, 5, 5}, {1, 8191, 8191}, {3, 5, 77}, {6, 1, 77}, {7, 5, 6149}, {7, 8191, 6143}}) {
        NpMet met = {1, op, 0x7fff, {set}};
        ASSERT_EQ(Np_MetTbl_Set(0, 1999, &met), NP_OK);
        met = {0, 0, 0, {77}};
        ASSERT_EQ(Np_MetTbl_Get(0, 1999, &met), NP_OK);
        EXPECT_EQ(met.unDstintf.ulOftID, get) << op;
        EXPECT_EQ(met.ulOpCode, op);
        EXPECT_EQ(met.ulNextMetID, 0x7fffu);
        EXPECT_EQ(met.ulValid, 1u);
    }
}

// A row with its record, as its trace shows it: the named function, then every field.
TEST_F(Rows, TracesNameTheFunctionAndTheFields)
{
    Np_PrintLevelSet(NP_M_MC, NP_PRINT_TRACE, 1);
    const NpMet met = {1, 1, 2, {3}};
    EXPECT_EQ(Np_MetTbl_Set(0, 7, &met), NP_OK);
    const std::string text = out.take();
    EXPECT_THAT(text, HasSubstr("[Np_Tarn_MetTbl_Set "));
    EXPECT_THAT(text, HasSubstr("ulIndex=0x7 "));
    EXPECT_THAT(text, HasSubstr("ulValid=0x1 ulOpCode=0x1 "));
    EXPECT_THAT(text, HasSubstr("ulNextMetID=0x2 "));
    Np_Tarn_MC_MetTblParaTrace(&met);
    EXPECT_THAT(out.take(), HasSubstr("[Np_Tarn_MC_MetTblParaTrace "));
    trace_errors(NP_M_VLAN);
    NpVlan vlan = {};
    EXPECT_EQ(Np_Tarn_VLAN_VlanTblParaCheck(0, 4096, &vlan), NP_ERR_PARAM);
    EXPECT_THAT(out.take(), HasSubstr("[Np_Tarn_VLAN_VlanTblParaCheck "));
    // A record of many fields takes several lines, and loses none.
    NpVlanOption option = {};
    Np_PrintLevelSet(NP_M_VLAN, NP_PRINT_TRACE, 1);
    option.aulDownAction[31] = 3;
    Np_Tarn_VLAN_VlanOptionTblParaTrace(&option);
    EXPECT_THAT(out.take(), HasSubstr("0x3 "));
}

// The two rows of a VLAN on their own.
TEST_F(Rows, PartsBuildAndParseAlone)
{
    NpVlan vlan = {};
    vlan.ulFwd = 2;
    vlan.ulUpBcFilterEnable = 1;
    std::array<uint32_t, 2> row{};
    uint32_t extension = 0;
    ASSERT_EQ(Np_Tarn_VLAN_VlanTblBuild(0, &vlan, row.data()), NP_OK);
    ASSERT_EQ(Np_Tarn_VlanExtTblBuild(0, &vlan, &extension), NP_OK);
    EXPECT_EQ(row, (std::array<uint32_t, 2>{0, 0x80000000}));
    EXPECT_EQ(extension, 0x04000000u);
    NpVlan back = {};
    back.ulMccLeafID = 5;
    ASSERT_EQ(Np_Tarn_VLAN_VlanTblParse(0, row.data(), &back), NP_OK);
    EXPECT_EQ(back.ulFwd, 2u);
    EXPECT_EQ(back.ulMccLeafID, 5u);
    ASSERT_EQ(Np_Tarn_VlanExtTblParse(0, &extension, &back), NP_OK);
    EXPECT_EQ(back.ulUpBcFilterEnable, 1u);
    EXPECT_EQ(back.ulFwd, 2u);
    EXPECT_EQ(back.ulMccLeafID, 0u);
}

// ---- the command line ---------------------------------------------------------------------------

const std::string kSuccess = "\n\r Command execute success!";
const std::string kError = "\n\r Command execute error!";
const std::string kInvalidCommand = "\n\r Invalid command!";
const std::string kInvalidParameter = "\n\r Invalid parameter!";

// A line, what it prints, and what the leaf then holds.
TEST_F(Rows, LargeCommandsReadPairsInAnyOrderUpToEnd)
{
    g_ulNpPubPrompt = 0;
    const NpMet start = {1, 0, 100, {200}};
    const auto word = [](const NpMet &met) {
        return met.ulValid << 31 | met.ulNextMetID << 16 | met.ulOpCode << 13 |
               met.unDstintf.ulOftID;
    };
    const uint32_t kept = word(start);
    struct {
        const char *line;
        std::string prints;
        uint32_t stored;
    } const cases[] = {
        {"end", kSuccess, kept},
        {"valid 0 end", kSuccess, word({0, 0, 100, {200}})},
        {"nextmetid 32767 valid 0 end", kSuccess, word({0, 0, 32767, {200}})},
        {"op_code flow oft_id 7 nextmetid 9 end", kSuccess, word({1, 0, 9, {7}})},
        {"op_code flow_bundle bundle_id 31 end", kSuccess, word({1, 1, 100, {31}})},
        {"op_code discard discard_id 5 end", kSuccess, word({1, 7, 100, {6149}})},
        {"op_code 3 end", kSuccess, word({1, 3, 100, {0}})},            // a number that has no word
        {"2 flow oft_id 8 1 0 end", kSuccess, word({0, 0, 100, {8}})},  // by menu number
        {"ulValid 0 ulNextMetID 4 end", kSuccess, word({0, 0, 4, {200}})},
        {"nextmetid 32768 end", "\n\r ulReturn = 0x9a000005(NP_PARA_ERROR)", kept},
        {"valid 0", "cmd[please input valid cmd]<sz>:\n", kept},
        {"valid 0 end end", kError, kept},
        {"oft_id 7 end", kInvalidCommand, kept},  // only behind its operation
        {"op_code flow end", kError, kept},
        {"op_code flood end", kInvalidCommand, kept},
        {"valid x end", kInvalidCommand, kept},
        {"4 1 end", kInvalidCommand, kept},
        {"valids 1 end", kInvalidCommand, kept},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.line);
        ASSERT_EQ(Np_MetTbl_Set(0, 5, &start), NP_OK);
        const std::string printed = run(std::string("micro mc met set index 5 ") + c.line);
        if (c.prints.find("ulReturn") != std::string::npos) {
            EXPECT_THAT(printed, HasSubstr("ulReturn = 0x9a000005("));
        }
        else {
            EXPECT_THAT(printed, EndsWith(c.prints));
        }
        EXPECT_EQ(peek(0x60202000 + 4 * 5), c.stored);
    }
    EXPECT_THAT(run("micro mc met set index 2000 end"), HasSubstr("ulReturn = 0x9a000005("));
    EXPECT_THAT(run("micro mc met set valid 1"), EndsWith(kError));
    EXPECT_THAT(run("micro mc met get"), EndsWith(kError));
    EXPECT_THAT(run("micro mc met get index 5 index"), EndsWith(kError));
    g_ulNpPubPrompt = 1;
    EXPECT_EQ(run("micro mc met set index 5 end"),
              "\r\n| 01:valid\t\t| 02:op_code\t\t| 03:nextmetid\t\t\r\n| end\r\n" + kSuccess);
}

TEST_F(Rows, SmallCommandsReadPairsInTheirOrder)
{
    const NpBrl start = {1, 2, 3};
    struct {
        const char *line;
        std::string prints;
        uint32_t stored;
    } const cases[] = {
        {"car_1_profile 10 car_2_profile 20 car_3_profile 30", kSuccess, 0x001e140a},
        {"car_2_profile 20", kSuccess, 0x00031401},  // what is not named keeps its value
        {"", kSuccess, 0x00030201},
        {"car_3_profile 30 car_1_profile 10", kError, 0x00030201},
        {"car_1_profile 1 car_1_profile 2", kError, 0x00030201},
        {"car_1_profile 1 end", kError, 0x00030201},
        {"car_1_profile", "car_1_profile[0, 255]: \n", 0x00030201},
        {"car_1_profile 256", "", 0x00030201},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.line);
        ASSERT_EQ(Np_BrltTbl_Set(0, 63, &start), NP_OK);
        const std::string printed = run(std::string("micro mc brlt set index 63 ") + c.line);
        if (c.prints.empty()) {
            EXPECT_THAT(printed, HasSubstr("ulReturn = 0x9a000005("));
        }
        else {
            EXPECT_THAT(printed, EndsWith(c.prints));
        }
        NpBrl brl = {};
        ASSERT_EQ(Np_BrltTbl_Get(0, 63, &brl), NP_OK);
        EXPECT_EQ(brl.ulBcLimitCarProfile | brl.ulUnUcLimitCarProfile << 8 |
                      brl.ulUnMcLimitCarProfile << 16,
                  c.stored);
    }
    // A byte of the record takes no number that it would have to cut.
    EXPECT_THAT(run("micro qos pcp_map set index 0 auc1P0 261"), EndsWith(kInvalidParameter));
    EXPECT_THAT(run("micro qos pcp_map set index 0 1p0 5 1p7 6"), EndsWith(kSuccess));
    NpPcpMap map = {};
    ASSERT_EQ(Np_PcpMapTbl_Get(0, 0, &map), NP_OK);
    EXPECT_EQ(map.auc1P[0], 5);
    EXPECT_EQ(map.auc1P[7], 6);
    EXPECT_EQ(run("micro mc met get index 0"),
              "\n\r " + std::string(70, '-') +
                  "\r\n    valid                    :   0                        (0x0)"
                  "\r\n    op_code                  :   flow                     (0x0)"
                  "\r\n    oft_id                   :   0                        (0x0)"
                  "\r\n    nextmetid                :   0                        (0x0)"
                  "\n\r " +
                  std::string(70, '-') + kSuccess);
}

// What completion and help are told.
TEST_F(Rows, CommandsTellTheirParameters)
{
    NpSmdParam param;
    EXPECT_EQ(Np_SMD_CommandForm(Np_SMD_MetTbl_Set), NP_FORM_LARGE);
    EXPECT_EQ(Np_SMD_CommandForm(Np_SMD_MetTbl_Get), NP_FORM_GET);
    Words seen;
    for (uint32_t i = 0; Np_SMD_CommandParam(Np_SMD_MetTbl_Set, i, &param) == 0; i++) {
        seen.push_back(std::string(param.stItem.szName) + " " + std::to_string(param.stItem.lMin) +
                       ".." + std::to_string(param.stItem.lMax) + " #" +
                       std::to_string(param.stItem.ulPromptNo) + (param.bKey != 0 ? " key" : "") +
                       (param.pszOf != nullptr ? std::string(" of ") + param.pszOf + " " +
                                                     std::to_string(param.ulOfMask)
                                               : ""));
        for (uint32_t j = 0; j < param.ulEnumNum; j++) {
            seen.back() += std::string(" ") + param.pstEnum[j].pszText;
        }
    }
    EXPECT_EQ(seen, (Words{"index 0..1999 #0 key", "valid 0..1 #1",
                           "op_code 0..7 #2 flow flow_bundle discard",
                           "oft_id 0..8191 #0 of op_code 1", "bundle_id 0..8191 #0 of op_code 2",
                           "discard_id 0..8191 #0 of op_code 128", "nextmetid 0..32767 #3"}));
    EXPECT_EQ(Np_SMD_CommandParam(Np_SMD_MetTbl_Get, 1, &param), 1u);
    ASSERT_EQ(Np_SMD_CommandParam(Np_SMD_VlanOptionTbl_Set, 33, &param), 0u);
    EXPECT_STREQ(param.stItem.szName, "downoption0");
    EXPECT_EQ(param.ulRun, 32u);
    EXPECT_EQ(Np_SMD_CommandForm(nullptr), NP_FORM_UNKNOWN);
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

static_assert(sizeof(NpVlan) == 28 * 4);
static_assert(sizeof(NpVlanOption) == 64 * 4);
static_assert(sizeof(NpMet) == 4 * 4);

}  // namespace
