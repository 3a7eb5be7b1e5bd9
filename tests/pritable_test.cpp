// Priority CAM tables: what holds for each of the list, over any sequence of calls.
#include "tests/rows.h"

#include "sdk/lookup/lcam.h"

#include <cctype>
#include <optional>

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;

constexpr uint32_t kStepNum = 400;

// A rule as it should stand: key and mask of the CAM's bits, and what else its image has.
struct Rule {
    uint32_t pri = 0;
    bool on = true;
    Bytes image;
};

// A table beside what should be in it.
struct Owner {
    const NpPriTableInfo &info;
    const NpPriTable &table = *info.pstTable;
    const NpLcamConfig &cam = g_stNpLcamConfig_TarnB[table.ucLcamTable];
    size_t key_bytes = 5u << cam.ulType;
    size_t ad_bytes = 4u << cam.ulType;
    uint32_t keys = Np_GLB_CapGet(table.enRows);
    const NpField *mark = nullptr;  // a field of the AD that tells rules apart
    std::map<uint32_t, Rule> rules;

    explicit Owner(const NpPriTableInfo &info_) : info(info_)
    {
        for (const NpField &field : fields_of(*table.pstRow)) {
            mark = field.ucWidth > 7 && field.usBit >= 8 * table.usAd && field.pstWord == nullptr &&
                           (mark == nullptr || field.ucWidth > mark->ucWidth)
                       ? &field
                       : mark;
        }
    }

    // What a share of the priorities, the same for all, leaves of the table: nothing.
    void assign(uint32_t priorities)
    {
        NpPriBlock split = {};
        split.ulMaxPriNum = priorities;
        for (uint32_t i = 0; i < priorities; i++) {
            split.ulPriPercent[i] = 100 / priorities + (i == 0 ? 100 % priorities : 0);
        }
        table.pulUsedNum[0] = 0;
        ASSERT_EQ(Np_PriTable_Assign(&table, 0, &split), NP_OK);
        for (uint32_t at = 0; at < cam.ulEntryNum; at++) {
            ASSERT_EQ(Np_Tarn_LCAM_TcamDelete(0, table.ucLcamTable, at), NP_OK);
        }
        rules.clear();
    }

    // A legal record of a priority; wide: of its masks, few are there, so that rules meet.
    Bytes record(Maker &maker, uint32_t key, uint32_t pri, bool wide) const
    {
        while (true) {
            Bytes bytes = maker.record(*table.pstRow);
            for (const NpField &field : fields_of(*table.pstRow)) {
                const bool mask = field.ucSize != 0 && field.usBit >= 8 * table.usMask &&
                                  field.usBit < 8 * table.usAd && field.ucWidth != 0;
                for (uint32_t i = 0; wide && mask && i < field.usCount; i++) {
                    if (maker.number() % 4 != 0) {
                        Np_Row_Store(&field, i, 0, bytes.data());
                    }
                }
            }
            std::memcpy(&bytes[table.usPri], &pri, sizeof(pri));
            Np_Row_Store(mark, 0, key, bytes.data());
            if (read(image(bytes), bytes).first == NP_OK) {
                return bytes;
            }
        }
    }

    // What the CAM keeps of a record's image: no key bit without its mask.
    Bytes image(const Bytes &record) const
    {
        Bytes bytes(Np_ImageRoom(*table.pstRow));
        EXPECT_EQ(Np_Row_Build(table.pstRow, 0, record.data(), bytes.data()), NP_OK);
        for (size_t i = 0; i < table.usMask; i++) {
            const uint8_t kept = i + 1 < key_bytes ? 0xff : i + 1 == key_bytes ? 0x0f : 0;
            bytes[table.usMask + i] &= kept;
            bytes[i] &= bytes[table.usMask + i];
        }
        return bytes;
    }

    // How a rule's image reads, over a record that has what the image has not.
    std::pair<uint32_t, Bytes> read(const Bytes &from, const Bytes &handed) const
    {
        Bytes back = handed;
        const uint32_t result = Np_Row_Parse(table.pstRow, 0, from.data(), back.data());
        return {result, back};
    }

    uint32_t set(uint32_t key, const Bytes &record)
    {
        const uint32_t result = info.pfnSet(0, &key, record.data());
        if (result == NP_OK) {
            uint32_t pri = 0;
            std::memcpy(&pri, &record[table.usPri], sizeof(pri));
            rules[key] = {pri, true, image(record)};
        }
        return result;
    }
    uint32_t del(uint32_t key)
    {
        rules.erase(key);
        return info.pfnDel(0, &key);
    }

    model::TcamEntry entry(uint32_t at, uint32_t chip = 0) const
    {
        model::TcamEntry found = {};
        EXPECT_EQ(model::tcam_entry_get(
                      chip,
                      {cam.ulType, cam.ulBlock, cam.ulTcam + (at / cam.ulDepthNum << cam.ulType),
                       cam.ulDepth + at % cam.ulDepthNum},
                      &found),
                  model::kOk);
        return found;
    }

    // The whole of the chip's rows and of the soft tables, the keys' first.
    Bytes all() const
    {
        Bytes bytes;
        const auto add = [&](const void *from, size_t size) {
            const auto *first = static_cast<const uint8_t *>(from);
            bytes.insert(bytes.end(), first, first + size);
        };
        add(table.ppstKeyInfo[0], keys * sizeof(NpPriCamKeyInfo));
        add(table.ppulEntryKey[0], keys * sizeof(uint32_t));
        add(table.ppstPriPoint[0], (table.pulPriMax[0] + 1) * sizeof(NpPriBlockPoint));
        add(&table.pulUsedNum[0], sizeof(uint32_t));
        if (table.ppulKept != nullptr) {
            add(table.ppulKept[0], keys * sizeof(uint32_t));
        }
        for (uint32_t at = 0; at < cam.ulEntryNum; at++) {
            const model::TcamEntry found = entry(at);
            add(&found.valid, sizeof(found.valid));
            add(found.data, sizeof(found.data));
            add(found.mask, sizeof(found.mask));
            add(found.ad, sizeof(found.ad));
        }
        return bytes;
    }

    // Chip, soft tables and rules are of one mind, each priority stands below the next lower one,
    // and nothing matches that is no rule.
    void check() const
    {
        ASSERT_EQ(table.pulUsedNum[0], rules.size());
        uint32_t last = UINT32_MAX;
        size_t found = 0;
        for (uint32_t at = 0; at < cam.ulEntryNum; at++) {
            const uint32_t key = table.ppulEntryKey[0][at];
            if (key == NP_PRICAM_NONE) {
                ASSERT_FALSE(entry(at).valid) << at;
                continue;
            }
            ASSERT_TRUE(rules.contains(key)) << at;
            const Rule &rule = rules.at(key);
            ASSERT_EQ(table.ppstKeyInfo[0][key].ulCamEntry, at);
            ASSERT_EQ(table.ppstKeyInfo[0][key].ulPri, rule.pri);
            ASSERT_LE(rule.pri, last) << at;
            ASSERT_EQ(entry(at).valid, rule.on) << at;
            last = rule.pri;
            found++;
        }
        ASSERT_EQ(found, rules.size());
    }

    // What a Get gives of a key, which a rule should be there for or not.
    void check(uint32_t key) const
    {
        Bytes back(table.pstRow->usRecordSize, 0xa5);
        const uint32_t result = info.pfnGet(0, &key, back.data());
        if (!rules.contains(key)) {
            ASSERT_EQ(result, NP_ERR_NOT_EXIST);
            ASSERT_EQ(back, Bytes(back.size(), 0xa5));
            return;
        }
        const Rule &rule = rules.at(key);
        Bytes expected(back.size(), 0xa5);
        for (const NpField &field : fields_of(*table.pstRow)) {
            if (field.bHanded) {
                Np_Row_Store(&field, 0, table.ppulKept[0][key], expected.data());
            }
        }
        const auto [parsed, record] = read(rule.image, expected);
        ASSERT_EQ(result, parsed);
        expected = record;
        std::memcpy(&expected[table.usPri], &rule.pri, sizeof(rule.pri));
        for (const NpField &field : fields_of(*table.pstRow)) {
            for (uint32_t i = 0; field.ucSize != 0 && i < field.usCount; i++) {
                const auto at = field.usOffset + i * field.usStride;
                ASSERT_TRUE(std::equal(&back[at], &back[at] + field.ucSize, &expected[at]))
                    << field.pszName;
            }
        }
        ASSERT_EQ(back, expected);
        // The row itself: what the builder made, by the CAM's own reader.
        Bytes row(rule.image.size());
        ASSERT_EQ(Np_Tarn_LCAM_TcamRead(0, table.ucLcamTable, Np_PriTable_Entry(&table, 0, key),
                                        row.data(), &row[table.usMask], &row[table.usAd]),
                  NP_OK);
        ASSERT_EQ(row, rule.image);
    }

    bool matches(const Rule &rule, const Bytes &probe) const
    {
        for (size_t i = 0; i < table.usMask; i++) {
            if (((probe[i] ^ rule.image[i]) & rule.image[table.usMask + i]) != 0) {
                return false;
            }
        }
        return true;
    }

    // The greatest priority that matches a key, -1 for none.
    int best(const std::map<uint32_t, Rule> &of, const Bytes &probe) const
    {
        int pri = -1;
        for (const auto &[key, rule] : of) {
            pri = rule.on && matches(rule, probe) ? std::max<int>(pri, rule.pri) : pri;
        }
        return pri;
    }

    // The mark of the rule that a packet with this key meets.
    std::optional<uint32_t> find(uint32_t chip, const Bytes &probe) const
    {
        model::LcamResult result = {};
        EXPECT_EQ(
            model::lookup_lcam(chip, {cam.ulType, cam.ulBlock, cam.ulCid, probe.data()}, &result),
            model::kOk);
        if (!result.hit) {
            return {};
        }
        uint64_t word = 0;
        std::memcpy(&word, result.ad, sizeof(word));
        return static_cast<uint32_t>(word >> (mark->usBit - 8 * table.usAd)) & mark->ulMask;
    }
};

class PriTables : public Rows {
  protected:
    static void each(const std::function<void(Owner &)> &test)
    {
        for (uint32_t i = 0; i < g_ulNpPriTableNum; i++) {
            SCOPED_TRACE(g_astNpPriTable[i].pszGet);
            Owner owner(g_astNpPriTable[i]);
            ASSERT_NE(owner.mark, nullptr);
            test(owner);
        }
    }
};

// Sets, gets, deletes and state changes against a map; refused calls change nothing at all.
TEST_F(PriTables, AgreeWithAMapOverAnySequence)
{
    Maker maker(51);
    each([&](Owner &owner) {
        ASSERT_NO_FATAL_FAILURE(owner.assign(8));
        // Few keys, so that they meet again; as many for the blocks to borrow from each other.
        const uint32_t keys = std::min(owner.keys, 96u);
        for (uint32_t step = 0; step < kStepNum; step++) {
            SCOPED_TRACE(step);
            const uint32_t key = step % 40 < 30 ? maker.number() % keys : owner.keys - 1;
            const bool known = owner.rules.contains(key);
            const uint32_t pri = known ? owner.rules[key].pri : maker.number() % 8;
            const Bytes record = owner.record(maker, key, pri, false);
            switch (maker.number() % 8) {
                case 0:
                    ASSERT_EQ(owner.del(key), NP_OK);
                    break;
                case 1: {
                    const uint32_t on = maker.number() % 2;
                    ASSERT_EQ(Np_PriTable_StateSet(&owner.table, 0, key, on),
                              known ? NP_OK : NP_ERR_NOT_EXIST);
                    uint32_t state = 7;
                    ASSERT_EQ(Np_PriTable_StateGet(&owner.table, 0, key, &state),
                              known ? NP_OK : NP_ERR_NOT_EXIST);
                    ASSERT_EQ(state, known ? on : 7);
                    if (known) {
                        owner.rules[key].on = on != 0;
                    }
                    break;
                }
                case 2: {
                    const Bytes before = owner.all();
                    Bytes other = record;
                    const uint32_t far = owner.keys, next = (pri + 1) % 8, high = 8;
                    ASSERT_EQ(owner.info.pfnSet(0, &far, record.data()), NP_ERR_PARAM);
                    ASSERT_EQ(owner.info.pfnDel(0, &far), NP_ERR_PARAM);
                    ASSERT_EQ(owner.info.pfnGet(0, &far, other.data()), NP_ERR_PARAM);
                    ASSERT_EQ(owner.info.pfnSet(0, &key, nullptr), NP_ERR_NULL_PTR);
                    ASSERT_EQ(owner.info.pfnGet(0, &key, nullptr), NP_ERR_NULL_PTR);
                    ASSERT_EQ(Np_PriTable_StateSet(&owner.table, 0, key, 2), NP_ERR_PARAM);
                    ASSERT_EQ(Np_PriTable_StateSet(&owner.table, 0, far, 1), NP_ERR_PARAM);
                    ASSERT_EQ(Np_PriTable_StateGet(&owner.table, 0, key, nullptr), NP_ERR_NULL_PTR);
                    std::memcpy(&other[owner.table.usPri], &high, sizeof(high));
                    ASSERT_EQ(owner.info.pfnSet(0, &key, other.data()), NP_ERR_PARAM);
                    std::memcpy(&other[owner.table.usPri], &next, sizeof(next));
                    if (known) {
                        ASSERT_EQ(owner.info.pfnSet(0, &key, other.data()), NP_ERR_PRIORITY);
                    }
                    NpPriBlock bad = {2, {50, 49}};
                    ASSERT_EQ(Np_PriTable_Assign(&owner.table, 0, &bad), NP_ERR_PARAM);
                    ASSERT_EQ(owner.all(), before);
                    break;
                }
                default:
                    ASSERT_EQ(owner.set(key, record), NP_OK);
                    break;
            }
            ASSERT_NO_FATAL_FAILURE(owner.check());
            ASSERT_NO_FATAL_FAILURE(owner.check(key));
        }
        // Everything deleted: no row matches, and the blocks are empty again.
        for (uint32_t key = 0; key < owner.keys; key++) {
            ASSERT_EQ(owner.del(key), NP_OK);
        }
        owner.check();
        for (uint32_t at = 0; at < owner.cam.ulEntryNum; at++) {
            const model::TcamEntry entry = owner.entry(at);
            const Bytes zero(sizeof(entry.data));
            ASSERT_TRUE(std::equal(zero.begin(), zero.end(), entry.data) &&
                        std::equal(zero.begin(), zero.end(), entry.mask));
        }
    });
}

// Every key at once, and another one when the count says that the table is full.
TEST_F(PriTables, FillToTheLastRow)
{
    Maker maker(52);
    each([&](Owner &owner) {
        ASSERT_NO_FATAL_FAILURE(owner.assign(8));
        for (uint32_t key = 0; key < owner.keys; key++) {
            // Upwards, downwards and all of one: each block gives way to each other.
            const uint32_t pri = key * 3 < owner.keys ? 7 : key * 3 < owner.keys * 2 ? key % 8 : 0;
            ASSERT_EQ(owner.set(key, owner.record(maker, key, pri, false)), NP_OK) << key;
        }
        ASSERT_NO_FATAL_FAILURE(owner.check());
        ASSERT_EQ(owner.del(5), NP_OK);
        owner.table.pulUsedNum[0] = owner.keys;
        const Bytes before = owner.all();
        FrameTap tap;
        EXPECT_EQ(owner.set(5, owner.record(maker, 5, 7, false)), NP_ERR_TABLE_FULL);
        EXPECT_EQ(tap.take_count(), 0u);
        EXPECT_EQ(owner.all(), before);
        owner.table.pulUsedNum[0] = owner.keys - 1;
        EXPECT_EQ(owner.set(5, owner.record(maker, 5, 7, false)), NP_OK);
        owner.check();
    });
}

// Chip 1 follows frame by frame: no search meets half a rule, or one that is worse than a rule that
// was there before and after.
TEST_F(PriTables, BetterRulesWinAtEveryFrame)
{
    ASSERT_EQ(model::attach(1), model::kOk);
    ASSERT_EQ(Qd_LCAM_CamIdModeSet(1, 1), model::kOk);
    Maker maker(53);
    each([&](Owner &owner) {
        ASSERT_NO_FATAL_FAILURE(owner.assign(4));
        size_t met = 0;
        for (uint32_t step = 0; step < 150; step++) {
            SCOPED_TRACE(step);
            const auto before = owner.rules;
            const uint32_t key = maker.number() % 24;
            const uint32_t pri = before.contains(key) ? before.at(key).pri : maker.number() % 4;
            const Bytes record = owner.record(maker, key, pri, true);
            // Blocks without room of their own: the first inserts shift the others.
            FrameTap tap;
            ASSERT_EQ(maker.number() % 3 == 0 ? owner.del(key) : owner.set(key, record), NP_OK);
            auto stable = before;
            stable.erase(key);
            std::vector<Bytes> probes = {Bytes(owner.key_bytes), owner.image(record)};
            for (const auto &[other, rule] : stable) {
                if (probes.size() < 6) {
                    probes.push_back(rule.image);
                }
            }
            for (Bytes &probe : probes) {
                probe.resize(std::max<size_t>(owner.key_bytes, owner.table.usMask));
            }
            const auto fits = [&](const std::map<uint32_t, Rule> &of, uint32_t found,
                                  const Bytes &probe) {
                return of.contains(found) && owner.matches(of.at(found), probe);
            };
            std::vector<Bytes> frames;
            for (Bytes sent = tap.take(); !sent.empty(); sent = tap.take()) {
                frames.push_back(sent);
            }
            for (const Bytes &sent : frames) {
                NpRbaReqCmd request = {};
                NpRbaRspCmd response = {};
                std::copy(sent.begin(), sent.end(), request.aucByte);
                ASSERT_EQ(Qd_RBA_CommandSend(1, &request, &response), model::kOk);
                for (const Bytes &probe : probes) {
                    const std::optional<uint32_t> found = owner.find(1, probe);
                    const int least = owner.best(stable, probe);
                    ASSERT_TRUE(found || least < 0);
                    if (found) {
                        const bool old = fits(before, *found, probe);
                        ASSERT_TRUE(old || fits(owner.rules, *found, probe));
                        ASSERT_GE(static_cast<int>((old ? before : owner.rules).at(*found).pri),
                                  least);
                        met++;
                    }
                }
            }
            for (const Bytes &probe : probes) {
                const std::optional<uint32_t> found = owner.find(0, probe);
                ASSERT_EQ(found ? static_cast<int>(owner.rules.at(*found).pri) : -1,
                          owner.best(owner.rules, probe));
            }
        }
        EXPECT_GT(met, 1000u);
    });
    model::detach(1);
}

// A disabled rule that others push about stays disabled, until it is set again.
TEST_F(PriTables, DisabledRulesStayDisabledWhereverTheyAreMoved)
{
    Maker maker(54);
    each([&](Owner &owner) {
        ASSERT_NO_FATAL_FAILURE(owner.assign(2));
        const NpPriBlock split = {3, {0, 100, 0}};
        ASSERT_EQ(Np_PriTable_Assign(&owner.table, 0, &split), NP_OK);
        ASSERT_EQ(owner.set(0, owner.record(maker, 0, 1, false)), NP_OK);
        ASSERT_EQ(Np_PriTable_StateSet(&owner.table, 0, 0, 0), NP_OK);
        owner.rules[0].on = false;
        const uint32_t at = Np_PriTable_Entry(&owner.table, 0, 0);
        for (uint32_t key = 1; key < 5; key++) {
            ASSERT_EQ(owner.set(key, owner.record(maker, key, key % 2 == 0 ? 1 : 0, false)), NP_OK);
            ASSERT_NO_FATAL_FAILURE(owner.check());
        }
        EXPECT_NE(Np_PriTable_Entry(&owner.table, 0, 0), at);
        owner.check(0);
        ASSERT_EQ(owner.set(0, owner.record(maker, 0, 1, false)), NP_OK);
        owner.check();
    });
}

// Soft tables that are gone are an error and no fault.
TEST_F(PriTables, AnswerWithoutTheirSoftTables)
{
    Maker maker(55);
    each([&](Owner &owner) {
        Bytes record = owner.record(maker, 1, 0, false);
        const uint32_t key = 1;
        Np_PriTable_Free(&owner.table, 0);
        Np_PriTable_Free(&owner.table, 0);
        EXPECT_EQ(owner.info.pfnSet(0, &key, record.data()), NP_ERR_NULL_PTR);
        EXPECT_EQ(owner.info.pfnGet(0, &key, record.data()), NP_ERR_NULL_PTR);
        EXPECT_EQ(owner.info.pfnDel(0, &key), NP_ERR_NULL_PTR);
        EXPECT_EQ(Np_PriTable_Entry(&owner.table, 0, key), NP_PRICAM_NONE);
    });
}

// ---- the command line ---------------------------------------------------------------------------

TEST_F(PriTables, CommandsDoWhatTheFunctionsDo)
{
    g_ulNpPubPrompt = 0;
    struct Handlers {
        NpCliHandler get, set, del;
    };
    const Handlers handlers[] = {
#define NP_PRI_ROW(stTable, pfnGet, pfnSet, pfnDel, pfnGetHandler, pfnSetHandler, pfnDelHandler) \
    {pfnGetHandler, pfnSetHandler, pfnDelHandler},
#include "sdk/tables/list.h"
    };
    std::map<NpCliHandler, std::string> paths = command_paths();
    Maker maker(56);
    size_t index = 0;
    each([&](Owner &owner) {
        const Handlers &handler = handlers[index++];
        ASSERT_NO_FATAL_FAILURE(owner.assign(8));
        for (uint32_t round = 0; round < 12; round++) {
            const uint32_t key = maker.number() % owner.keys;
            const uint32_t pri =
                owner.rules.contains(key) ? owner.rules[key].pri : maker.number() % 8;
            const Bytes record = owner.record(maker, key, pri, false);
            const std::string name = " " + pairs(*owner.table.pstKey,
                                                 Bytes(reinterpret_cast<const uint8_t *>(&key),
                                                       reinterpret_cast<const uint8_t *>(&key + 1)),
                                                 false)[0];
            Words words = pairs(*owner.table.pstRow, record, round % 2 == 0);
            const auto pair_of = [&](const char *wanted) {
                return std::find_if(words.begin(), words.end(), [&](const std::string &pair) {
                    return pair.substr(0, pair.find(' ')) == wanted;
                });
            };
            std::string always;
            for (const NpField &field : fields_of(*owner.table.pstRow)) {
                const auto pair = pair_of(field.pszKey);
                // A value without its mask is not kept: both go in one line.
                for (const NpField &mask : fields_of(*owner.table.pstRow)) {
                    if (pair != words.end() && field.bRead &&
                        mask.usOffset == field.pstWhen->usOffset && &mask > &field) {
                        *pair_of(mask.pszKey) += " " + *pair;
                        words.erase(pair_of(field.pszKey));
                        break;
                    }
                }
                // A new rule gets its priority with its first line; what does not read back as it
                // was written is said with each.
                if (field.usOffset == owner.table.usPri ||
                    (field.pstCoding != nullptr && field.pstCoding->bOneWay)) {
                    always += " " + *pair_of(field.pszKey);
                }
            }
            std::string line;
            const auto send = [&] {
                EXPECT_THAT(run(paths[handler.set] + name + always + line + " end"),
                            EndsWith("Command execute success!"))
                    << line;
                line.clear();
            };
            for (const std::string &pair : words) {
                if (line.size() + pair.size() > 380) {
                    send();
                }
                line += " " + pair;
            }
            send();
            owner.rules[key] = {pri, true, owner.image(record)};
            ASSERT_NO_FATAL_FAILURE(owner.check());
            ASSERT_NO_FATAL_FAILURE(owner.check(key));
            Bytes back(record.size());
            ASSERT_EQ(owner.info.pfnGet(0, &key, back.data()), NP_OK);
            const std::string shown = run(paths[handler.get] + name);
            for (const NpField &field : fields_of(*owner.table.pstRow)) {
                if (field.ucType == NP_SMD_NUMBER && !field.bHidden && !field.bLost &&
                    Np_Row_IsThere(field.pstWhen, back.data())) {
                    char text[80];
                    std::snprintf(text, sizeof(text), "\r\n    %-25s:   %u ", field.pszKey,
                                  Np_Row_Load(&field, 0, back.data()));
                    EXPECT_THAT(shown, HasSubstr(text));
                }
            }
            if (round % 3 == 0) {
                EXPECT_THAT(run(paths[handler.del] + name), EndsWith("success!"));
                owner.rules.erase(key);
                ASSERT_NO_FATAL_FAILURE(owner.check());
                EXPECT_THAT(run(paths[handler.get] + name), HasSubstr("0x9a000015("));
            }
        }
    });
}

}  // namespace

}  // namespace ldsdk::test
