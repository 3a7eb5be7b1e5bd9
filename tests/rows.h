// What tests of described rows share: the rows that there are, legal records, what a call traces,
// and the words of a command line.
#pragma once

#include "tests/shell.h"

#include "sdk/access/regtable.h"
#include "sdk/module/smd_row.h"
#include "sdk/record/describe.h"
#include "sdk/record/list.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <random>
#include <span>

namespace ldsdk::test {

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

inline const Flat kFlat[] = {
#define NP_TABLE_ROW(stTable, Record, Wrapper, Handler, enForm) \
    {#Wrapper,                                                  \
     &stTable,                                                  \
     Handler##_Set,                                             \
     Handler##_Get,                                             \
     Np_SMD_RowCall<Wrapper##_Get, Record>,                     \
     Np_SMD_RowCall<Wrapper##_Set, const Record>},
#include "sdk/record/list.h"
};

// Every described row that has an image.
inline std::vector<const NpRow *> image_rows()
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

}  // namespace ldsdk::test
