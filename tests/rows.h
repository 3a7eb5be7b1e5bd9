// What tests of described rows share: the rows that there are, legal records, what a call traces,
// and the words of a command line.
#pragma once

#include "tests/scratch_rows.h"
#include "tests/shell.h"

#include "sdk/access/counter.h"
#include "sdk/access/regtable.h"
#include "sdk/cpuchan/message.h"
#include "sdk/cpuchan/packet.h"
#include "sdk/frame/registry.h"
#include "sdk/module/smd_row.h"
#include "sdk/record/describe.h"
#include "sdk/tables/list.h"
#include "sdk/tables/tables.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <random>
#include <span>

namespace ldsdk::test {

using Bytes = std::vector<uint8_t>;
using Words = std::vector<std::string>;

// The flat tables of the list.
inline std::span<const NpTableInfo> flat_tables()
{
    return {g_astNpTable, g_ulNpTableNum};
}

// "Np_VlanTbl" of the table that Np_VlanTbl_Get reads.
template <typename Info>
std::string name_of(const Info &table) requires requires
{
    table.pszGet;
}
{
    const std::string get = table.pszGet;
    return get.substr(0, get.size() - 4);
}

// The same with the test's own, which has no commands.
inline std::vector<NpTableInfo> all_tables()
{
    std::vector<NpTableInfo> all(flat_tables().begin(), flat_tables().end());
    all.push_back(kKeptTable);
    return all;
}

// Described rows that are no tables, with their names.
inline std::vector<std::pair<std::string, const NpRow *>> loose_rows()
{
    return {
#define NP_ENTRY_ROW(pstKey, pstData, pfnGet, pfnSet, pfnGetHandler, pfnSetHandler) \
    {&#pstData[1], pstData},
#define NP_LOOSE_ROW(stRow) {#stRow, &(stRow)},
#include "sdk/tables/list.h"
        {"mixed_row", &mixed_row::g_stRow},
        {"rule_row", &rule_row::g_stRow},
    };
}

// Every described row that has an image.
inline std::vector<const NpRow *> image_rows()
{
    std::vector<const NpRow *> rows;
    for (const NpTableInfo &flat : all_tables()) {
        rows.push_back(flat.pstTable->pstRow);
    }
    for (uint32_t i = 0; i < g_ulNpPriTableNum; i++) {
        rows.push_back(g_astNpPriTable[i].pstTable->pstRow);
    }
    for (const auto &[name, row] : loose_rows()) {
        if (row->usImageSize != 0) {
            rows.push_back(row);
        }
    }
    for (const NpRow *row : g_apstNpSendRow) {
        if (row != nullptr) {
            rows.push_back(row);
        }
    }
    for (const NpRow &row : g_astNpReceiveRow) {
        rows.push_back(&row);
    }
    rows.insert(rows.end(), {&g_stNpNormalAgeMsgRow, &g_stNpForceAgeMsgRow});
    return rows;
}

inline std::span<const NpField> fields_of(const NpRow &row)
{
    return {row.pstField, row.usFieldNum};
}

inline std::span<const NpCheck> checks_of(const NpRow &row)
{
    return {row.pstCheck, row.usCheckNum};
}

inline std::string name_of(const NpRow &row)
{
    return row.pszArg != nullptr ? row.pszArg : row.pstField[0].pszName;
}

// Ports that the chip has, for fields that hold one.
inline constexpr NpPortID kPorts[] = {{6, 0, 0, 0}, {6, 3, 2, 0}, {7, 5, 0, 0}, {1, 1, 0, 0}};

// The port of the greatest number that has a configuration row.
inline constexpr NpPortID kLastPort = {9, 0, 63, 1};

// How many rows a part's store has.
inline uint32_t rows_in(const NpTablePart &part)
{
    return part.pstStore == &g_stNpRegTableStore ? Np_RegTableRecordNumberGet(0, part.usID)
           : part.pstStore == &g_stNpCounterStore
               ? g_asttarnNpCntConfigDesc_TarnB[part.usID].ulCntNum
               : UINT32_MAX;
}

// Bytes of a row in a part's store.
inline uint32_t width_in(const NpTablePart &part)
{
    return part.pstStore == &g_stNpRegTableStore ? Np_RegTableRecordWidthGet(0, part.usID)
           : part.pstStore == &g_stNpCounterStore
               ? g_asttarnNpCntConfigDesc_TarnB[part.usID].ulCntWidth
           : part.pstStore == &g_stNpSmemStore
               ? static_cast<const NpSmemArray *>(part.pvWhere)->ucWidth
               : UINT32_MAX;
}

// Legal records at random.
class Maker {
  public:
    explicit Maker(uint32_t seed) : random_(seed) {}

    // One that builds and parses: the port behind a number, say, has to be there. force: a
    // condition that the record fulfils.
    Bytes record(const NpRow &row, const NpWhen *force = nullptr)
    {
        for (int tries = 0; tries < 1000; tries++) {
            const Bytes bytes = draw(row, force);
            Bytes image(Np_ImageRoom(row));
            Bytes back = bytes;
            if (row.usImageSize == 0 ||
                (Np_Row_Build(&row, 0, bytes.data(), image.data()) == NP_OK &&
                 Np_Row_Parse(&row, 0, image.data(), back.data()) == NP_OK)) {
                return bytes;
            }
        }
        ADD_FAILURE() << "no record of " << name_of(row) << " builds";
        return draw(row, force);
    }

    // A key whose row there is: not every port has one, and limits may be wider than the store.
    Bytes key(const NpTableInfo &flat)
    {
        while (true) {
            const Bytes bytes = record(*flat.pstTable->pstKey);
            uint32_t row = 0;
            EXPECT_EQ(Np_Table_Place(flat.pstTable, 0, bytes.data(), &row), NP_OK);
            if (row < rows_in(flat.pstTable->astPart[0])) {
                return bytes;
            }
        }
    }

    uint32_t number()
    {
        return random_();
    }

  private:
    Bytes draw(const NpRow &row, const NpWhen *force)
    {
        Bytes bytes(row.usRecordSize);
        // Selectors first, wherever they stand.
        for (const bool selectors : {true, false}) {
            for (const NpField &field : fields_of(row)) {
                if (selects(row, field) == selectors) {
                    fill(row, field, force, bytes);
                }
            }
        }
        return bytes;
    }

    static bool selects(const NpRow &row, const NpField &selector)
    {
        const auto asks = [&](const NpWhen *when) {
            for (; when != nullptr; when = when->pstAnd) {
                if (when->usOffset == selector.usOffset) {
                    return true;
                }
            }
            return false;
        };
        const auto fields = fields_of(row);
        const auto checks = checks_of(row);
        return std::any_of(fields.begin(), fields.end(),
                           [&](const NpField &field) { return asks(field.pstWhen); }) ||
               std::any_of(checks.begin(), checks.end(),
                           [&](const NpCheck &check) { return asks(check.pstWhen); });
    }

    void fill(const NpRow &row, const NpField &field, const NpWhen *force, Bytes &bytes)
    {
        if (field.ucFrom != 0 || field.ucSize == 0 || field.bFar ||
            !Np_Row_IsThere(field.pstWhen, bytes.data())) {
            return;
        }
        for (uint32_t i = 0; i < field.usCount; i++) {
            if (field.ucType == NP_SMD_PORT) {
                const NpPortID port = fitting_port(field);
                std::memcpy(bytes.data() + field.usOffset + i * field.usStride, &port,
                            sizeof(port));
                continue;
            }
            uint32_t number = value(row, field, bytes);
            for (const NpWhen *when = force; when != nullptr; when = when->pstAnd) {
                for (uint32_t v = 0; when->usOffset == field.usOffset; v++) {
                    number = when->enTest == NP_TEST_IS ? when->ulMask : v;
                    if (Np_WhenTakes(*when, number)) {
                        break;
                    }
                }
            }
            Np_Row_Store(&field, i, number, bytes.data());
        }
    }

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

    uint32_t value(const NpRow &row, const NpField &field, const Bytes &record)
    {
        const NpCheck *check = Np_Row_FieldCheck(&row, &field, record.data());
        uint32_t low = 0;
        uint32_t span = 0xffffffffu >> (32 - 8 * field.ucSize);
        if (check != nullptr) {
            low = Np_Row_LimitMin(&check->stLimit);
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

class Rows : public ShellUp {
  protected:
    // What a call traced as failures of the row's module, without positions.
    Words failures(const NpRow &row, const std::function<uint32_t()> &call, uint32_t result)
    {
        return ShellUp::failures(row.ucModule, call, result);
    }

    // The bytes of a table's row in chip memory, part behind part.
    static Bytes stored(const NpTable &table, const void *key)
    {
        Bytes bytes(Np_ImageRoom(*table.pstRow));
        uint32_t row = 0;
        EXPECT_EQ(Np_Table_Place(&table, 0, key, &row), NP_OK);
        EXPECT_EQ(Np_Table_Read(&table, 0, row, bytes.data()), NP_OK);
        bytes.resize(table.pstRow->usImageSize);
        for (uint32_t i = 0; i < table.ucPartNum; i++) {
            // What the windows show is what the table reads.
            const Bytes part = in_memory(table, i, row);
            EXPECT_TRUE(
                std::equal(part.begin(), part.end(), bytes.begin() + table.astPart[i].usByte));
        }
        return bytes;
    }

    // Writes over a row, around its engine. image: as long as the widest.
    static void fill(const NpTable &table, const void *key, const Bytes &image)
    {
        uint32_t row = 0;
        EXPECT_EQ(Np_Table_Place(&table, 0, key, &row), NP_OK);
        std::vector<uint32_t> words(image.size() / 4);
        std::memcpy(words.data(), image.data(), image.size());
        for (uint32_t i = 0; i < table.ucPartNum; i++) {
            const NpTablePart &part = table.astPart[i];
            EXPECT_EQ(part.pstStore->pfnWrite(0, &part, row, Np_PartSize(table, i),
                                              &words[part.usByte / 4]),
                      NP_OK);
        }
    }

    // A part of a row as the chip's windows show it.
    static Bytes in_memory(const NpTable &table, uint32_t index, uint32_t row)
    {
        constexpr uint32_t search_memory = 0x60000000;
        const NpTablePart &part = table.astPart[index];
        Bytes bytes(Np_PartSize(table, index));
        if (part.pstStore == &g_stNpRegTableStore) {
            uint32_t address = 0;
            EXPECT_EQ(Np_RegTableRealAddrGet(0, part.usID, row, &address), NP_OK);
            bytes = memory(address, bytes.size());
        }
        else if (part.pstStore == &g_stNpCounterStore) {
            // Bank 1 is the windows' first; a counter's words stand in memory highest first.
            const NpCntConfigDesc &type = g_asttarnNpCntConfigDesc_TarnB[part.usID];
            const Bytes shown = memory(search_memory + (type.ulMemBank << 21) + type.ulBaseAddr +
                                           (type.ulGap + type.ulCntWidth) * row,
                                       type.ulCntWidth);
            for (size_t i = 0; i < std::min(bytes.size(), shown.size()); i++) {
                bytes[i] = shown[shown.size() < 4 ? i : shown.size() - 4 - i / 4 * 4 + i % 4];
            }
        }
        else if (part.pstStore == &g_stNpSmemStore) {
            const auto *array = static_cast<const NpSmemArray *>(part.pvWhere);
            const Bytes shown = memory(
                search_memory | ((Np_GLB_CapGet(array->enBase) + row * array->usPitch) & 0x7ffffff),
                array->ucWidth);
            std::copy_n(shown.begin(), std::min(bytes.size(), shown.size()), bytes.begin());
        }
        else if (part.pstStore != &g_stNpRegisterStore) {  // the host keeps it
            uint32_t word = 0;
            EXPECT_EQ(part.pstStore->pfnRead(0, &part, row, sizeof(word), &word), NP_OK);
            std::memcpy(bytes.data(), &word, std::min(bytes.size(), sizeof(word)));
        }
        else {
            const auto *list = static_cast<const NpRegisterList *>(part.pvWhere);
            for (uint32_t i = list->ulNum; i-- > 0;) {  // the first address of a word counts
                const uint32_t word = peek(list->pstAt[i].ulAddress);
                std::memcpy(&bytes.at(4 * list->pstAt[i].ulWord), &word, 4);
            }
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

    // Where each command stands in the tree.
    static std::map<NpCliHandler, std::string> command_paths()
    {
        std::map<NpCliHandler, std::string> paths;
        const std::function<void(const NpCliCmdEntry &, const std::string &)> walk =
            [&](const NpCliCmdEntry &entry, const std::string &path) {
                for (uint32_t i = 0; i < entry.ulChildNum; i++) {
                    walk(entry.pstChildren[i], path + " " + entry.pstChildren[i].szName);
                }
                paths[entry.pfnHandler] = path;
            };
        walk(g_stNpSdkCmds[0], g_stNpSdkCmds[0].szName);
        return paths;
    }

    // Whether another variant of a union is there in a field's place.
    static bool gives_way(const NpRow &row, const NpField &field, const Bytes &record)
    {
        const auto fields = fields_of(row);
        return std::any_of(fields.begin(), fields.end(), [&](const NpField &other) {
            return &other != &field && other.usOffset == field.usOffset && !other.bFree &&
                   !other.bHidden && Np_Row_IsThere(other.pstWhen, record.data());
        });
    }

    // "name value" of all parameters of a record that are read now. Those that a selector lets in
    // stand behind it, on the same line.
    static Words pairs(const NpRow &row, const Bytes &record, bool text)
    {
        Words list;
        NpSmdParam param;
        uint32_t index = 0;
        for (const NpField &field : fields_of(row)) {
            const bool there = Np_Row_IsThere(field.pstWhen, record.data()) ||
                               (field.bFree && !gives_way(row, field, record));
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
                if (param.stOf.pszOf != nullptr) {
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

}  // namespace ldsdk::test
