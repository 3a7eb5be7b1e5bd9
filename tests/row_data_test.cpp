// Every described row against what is written down of it in tests/rows.txt: its checks, their order
// and messages, and the place of each field. The reader here is the tests' own: of a description it
// takes only where a member stands in the caller's record.
#include "tests/rows.h"

#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace ldsdk::test {

namespace {

// ---- the file -----------------------------------------------------------------------------------

// A number, or the words of a port.
using Value = std::vector<uint32_t>;

struct Spot {
    std::string text;  // as messages have it, "astStatus[ulI].ulStatus"
    std::string name;  // the member, "astStatus.ulStatus"
    uint32_t first = 0, last = 0;
    bool in_key = false;
};

struct Condition {
    Spot spot;
    std::string op;  // "=": one of the list; "!=": none of it; "&": has one of its bits
    std::vector<uint32_t> list;
};

struct Entry {
    std::vector<Condition> when;
    Spot spot;
    std::string kind, text;  // of a check, and
    uint32_t code = NP_ERR_PARAM;
    int64_t bad = 0;
    bool least = false;                                 // it refuses what lies below
    Value value;                                        // a bad port, a base, a constant
    std::vector<std::pair<uint32_t, uint32_t>> pieces;  // lowest bit in the image, and width
    int32_t step = 0;
    bool is_switch = false;   // all ones if not 0
    bool is_inverse = false;  // each bit the other way
    uint32_t from = 0;
    std::map<Value, uint32_t> coded;
};

struct Written {
    std::string arg, key_arg;
    bool bare = false, tells = false;
    std::map<std::string, std::vector<Entry>> lists;  // base, check, place

    const std::vector<Entry> &list(const std::string &name) const
    {
        static const std::vector<Entry> none;
        const auto found = lists.find(name);
        return found != lists.end() ? found->second : none;
    }
};

int64_t number(const std::string &word)
{
    return std::stoll(word, nullptr, 0);
}

std::vector<std::string> split(const std::string &text, char at)
{
    Words parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, at);) {
        parts.push_back(part);
    }
    return parts;
}

Value value_of(const std::string &word)
{
    Value value;
    for (const std::string &part : split(word, '/')) {
        value.push_back(static_cast<uint32_t>(number(part)));
    }
    return value;
}

// "3" or "3..5"
std::pair<uint32_t, uint32_t> span_of(const std::string &word)
{
    const size_t dots = word.find("..");
    return {number(word), number(dots == std::string::npos ? word : word.substr(dots + 2))};
}

Spot spot_of(const std::string &word)
{
    Spot spot;
    const size_t hash = word.find('#');
    spot.text = word.substr(0, hash);
    spot.name = std::regex_replace(spot.text, std::regex("\\[[^\\]0-9]*\\]"), "");
    if (hash != std::string::npos) {
        std::tie(spot.first, spot.last) = span_of(word.substr(hash + 1));
    }
    return spot;
}

// "a=1|3..5 b!=0 c&0x40"
std::vector<Condition> conditions_of(const std::string &text)
{
    std::vector<Condition> all;
    for (const std::string &word : split(text, ' ')) {
        const size_t at = word.find_first_of("=!&"), list = word.find_last_of("=&") + 1;
        all.push_back({spot_of(word.substr(0, at)), word.substr(at, list - at), {}});
        for (const std::string &part : split(word.substr(list), '|')) {
            const auto [first, last] = span_of(part);
            for (uint32_t v = first; v <= last; v++) {
                all.back().list.push_back(v);
            }
        }
    }
    return all;
}

std::smatch match(const std::string &text, const std::string &form)
{
    std::smatch found;
    if (!std::regex_match(text, found, std::regex("(?:with ([^:]*): )?" + form))) {
        throw std::invalid_argument("can not be read");
    }
    return found;
}

Entry check_of(const std::string &text)
{
    const std::smatch found = match(text,
                                    "(key )?(?:code (\\w+) )?(?:(enable|valid|bool|alone|port) )?"
                                    "([^ ]+)(?: (<?)([-/\\w]+))?(?: \"(.*)\")?");
    Entry entry;
    entry.when = conditions_of(found[1]);
    entry.spot = spot_of(found[5]);
    entry.spot.in_key = found[2].matched;
    entry.code = found[3].matched ? 0x9a000000 | number(found[3]) : NP_ERR_PARAM;
    entry.kind = found[4];
    entry.least = found[6] == "<";
    if (found[7].matched) {
        entry.value = value_of(found[7]);
        entry.bad = number(found[7]) - entry.least;
    }
    entry.text = std::regex_replace(std::regex_replace(found[8].str(), std::regex("\\\\r"), "\r"),
                                    std::regex("\\\\n"), "\n");
    return entry;
}

// unit: the last that was named, its first bit and its bits.
Entry place_of(const std::string &text, std::pair<uint32_t, uint32_t> &unit)
{
    const std::string piece = "(?:[wb]\\d+(?: \\d+(?::\\d+)?)?|\\d+(?::\\d+)?)";
    const std::smatch found = match(text, "([^ ]+) (" + piece + "(?: \\+ " + piece +
                                              ")*)(?: step (-?\\d+))?(?: (switch|inverse))?(?: "
                                              ">>(\\d+))?(?: \\{(.*)\\})?(?: = (\\w+))?");
    Entry entry;
    entry.when = conditions_of(found[1]);
    if (found[2] != "const") {
        entry.spot = spot_of(found[2]);
    }
    for (const std::string &each : split(found[3], '+')) {
        std::smatch bits;
        std::regex_match(each, bits, std::regex(" ?(?:([wb])(\\d+))? ?(?:(\\d+)(?::(\\d+))?)? ?"));
        if (bits[1].matched) {
            unit.second = bits[1] == "w" ? 32 : 8;
            unit.first = unit.second * number(bits[2]);
        }
        const uint32_t high = bits[3].matched ? number(bits[3]) : unit.second - 1;
        const uint32_t low = !bits[3].matched ? 0 : bits[4].matched ? number(bits[4]) : high;
        entry.pieces.emplace_back(unit.first + low, high - low + 1);
        entry.step += static_cast<int32_t>(high - low + 1);
    }
    entry.step = found[4].matched ? number(found[4]) : entry.step;
    entry.is_switch = found[5] == "switch";
    entry.is_inverse = found[5] == "inverse";
    entry.from = found[6].matched ? number(found[6]) : 0;
    for (const std::string &pair : split(found[7], ' ')) {
        entry.coded[value_of(pair.substr(0, pair.find('-')))] =
            number(pair.substr(pair.find('>') + 1));
    }
    entry.value = found[8].matched ? value_of(found[8]) : Value{};
    return entry;
}

std::map<std::string, Written> read()
{
    std::map<std::string, Written> rows;
    std::ifstream file(LDSDK_SOURCE_DIR "/tests/rows.txt");
    EXPECT_TRUE(file.is_open());
    // One string for each row and each of its lists, without ends of lines.
    Words lines;
    for (std::string line; std::getline(file, line);) {
        if (std::regex_search(line, std::regex("^([^ #]| (base|check|place) )"))) {
            lines.emplace_back();
        }
        if (line[0] != '#' && !line.empty()) {
            lines.back() += line + " ";
        }
    }
    Written *row = nullptr;
    for (std::string line : lines) {
        std::istringstream words(line);
        std::string list, word;
        words >> list;
        if (line[0] != ' ') {
            EXPECT_FALSE(rows.contains(list)) << list << " stands there twice";
            row = &rows[list];
            words >> row->arg;
            while (words >> word) {
                row->bare |= word == "bare";
                row->tells |= word == "tells";
                row->key_arg = word.substr(0, 4) == "key=" ? word.substr(4) : row->key_arg;
            }
            continue;
        }
        // Entries end at a comma, but for those in quotes.
        line = std::regex_replace(line.substr(list.size() + 1), std::regex(" +"), " ") + ",";
        std::pair<uint32_t, uint32_t> unit;
        bool quoted = false;
        size_t begin = 1;
        for (size_t at = 1; at < line.size(); at++) {
            quoted ^= line[at] == '"';
            if (line[at] != ',' || quoted) {
                continue;
            }
            const size_t end = line.find_last_not_of(' ', at - 1) + 1;
            const std::string text = line.substr(begin, end - begin);
            begin = at + 2;
            try {
                row->lists[list].push_back(list == "place" ? place_of(text, unit) : check_of(text));
            }
            catch (const std::exception &error) {
                ADD_FAILURE() << "rows.txt: " << text << ": " << error.what();
            }
        }
    }
    return rows;
}

const std::map<std::string, Written> &written()
{
    static const std::map<std::string, Written> all = read();
    return all;
}

// ---- a row of the list beside its lines ---------------------------------------------------------

// A row, and all that names it: records here are the caller's with the key behind them.
struct Target {
    std::string name;
    const NpRow *row;
    const NpRow *key_row;           // null: a loose row
    const NpTable *table;           // null: rows in no store of their own
    std::function<NpSetCall> set;   // as the exported function
    std::function<NpSetCall> test;  // its checks
    std::function<NpGetCall> get;
    const Written *lines = nullptr;

    const NpRow &row_of(const Spot &spot) const
    {
        return spot.in_key ? *key_row : *row;
    }

    // Where a member of the caller's record stands. A check may have one that is no field.
    struct Member {
        size_t offset, stride, size;
    };
    Member member(const Spot &spot) const
    {
        Member found = {SIZE_MAX, 0, 0};
        for (const NpField &each : fields_of(row_of(spot))) {
            if (each.ucSize != 0 && each.pszName == spot.name && each.usOffset < found.offset) {
                found = {each.usOffset, each.usStride, each.ucSize};
            }
        }
        for (const NpCheck &each : checks_of(row_of(spot))) {
            if (found.size == 0 && each.pszText == spot.name) {
                found = {each.usOffset, each.usStride, each.ucSize};
            }
        }
        return found.size != 0 ? found : throw std::invalid_argument(name + " has no " + spot.name);
    }

    size_t offset(const Spot &spot, uint32_t element) const
    {
        return member(spot).offset + element * member(spot).stride;
    }

    const uint8_t *key(const Bytes &record) const
    {
        return record.data() + row->usRecordSize;
    }

    Value load(const Spot &spot, uint32_t element, const Bytes &record) const
    {
        const size_t size = member(spot).size;
        Value value((size + 3) / 4);
        const uint8_t *from = spot.in_key ? key(record) : record.data();
        std::memcpy(value.data(), from + offset(spot, element), size);
        return value;
    }

    void put(const Spot &spot, uint32_t element, const Value &value, Bytes &record) const
    {
        const size_t at = offset(spot, element) + (spot.in_key ? row->usRecordSize : 0);
        std::memcpy(&record[at], value.data(),
                    std::min<size_t>(member(spot).size, 4 * value.size()));
    }

    bool holds(const std::vector<Condition> &when, const Bytes &record) const
    {
        return std::all_of(when.begin(), when.end(), [&](const Condition &each) {
            const uint32_t value = load(each.spot, each.spot.first, record)[0];
            const auto &list = each.list;
            return each.op == "&" ? (value & list.at(0)) != 0
                                  : (std::find(list.begin(), list.end(), value) != list.end()) ==
                                        (each.op == "=");
        });
    }

    Bytes base() const
    {
        Bytes record(row->usRecordSize + (key_row != nullptr ? key_row->usRecordSize : 0u));
        for (const Entry &entry : lines->list("base")) {
            for (uint32_t i = entry.spot.first; i <= entry.spot.last; i++) {
                put(entry.spot, i, entry.value, record);
            }
        }
        return record;
    }

    // Bounds of a field, by the checks that are done in a record.
    std::pair<int64_t, int64_t> range(const Spot &spot, const Bytes &record) const
    {
        int64_t low = 0;
        int64_t high = (int64_t{1} << 8 * std::min<size_t>(member(spot).size, 4)) - 1;
        for (const Entry &check : lines->list("check")) {
            if (check.spot.in_key == spot.in_key && check.kind != "port" &&
                offset(check.spot, 0) == offset(spot, 0) && holds(check.when, record)) {
                const bool flag = check.kind != "" && check.kind != "alone";
                (check.least ? low : high) = check.least ? check.bad + 1
                                             : flag      ? 1
                                                         : std::min(high, check.bad - 1);
            }
        }
        return {low, high};
    }

    // Values of a selector with which a condition holds, or those with which it does not.
    std::vector<uint32_t> samples(const Condition &when, bool fulfil, const Bytes &record) const
    {
        const int64_t high = range(when.spot, record).second;
        std::set<uint32_t> values(when.list.begin(), when.list.end());
        if (!fulfil || when.op != "=") {
            values.insert({1, 32, static_cast<uint32_t>(high)});
        }
        for (uint32_t v = 0; !fulfil && v < 16; v++) {
            values.insert(v);
        }
        std::vector<uint32_t> list;
        for (const uint32_t v : values) {
            Bytes with = record;
            put(when.spot, when.spot.first, {v}, with);
            if (v <= high && holds({when}, with) == fulfil) {
                list.push_back(v);
            }
        }
        return list;
    }

    // Records in which all conditions hold: each value of each, with the first of the others.
    std::vector<Bytes> fulfilled(const std::vector<Condition> &when, const Bytes &from) const
    {
        std::vector<Bytes> records = {from};
        for (const bool first : {true, false}) {
            for (const Condition &each : when) {
                const auto values = samples(each, true, records[0]);
                for (size_t i = first ? 0 : 1; i < (first ? 1 : values.size()); i++) {
                    Bytes record = records[0];
                    put(each.spot, each.spot.first, {values.at(i)}, record);
                    first ? void(records[0] = record) : records.push_back(record);
                }
            }
        }
        return records;
    }

    // Calls with each bit that an element of a field has in the image, from its lowest up.
    static void bits(const Entry &place, uint32_t element, const std::function<void(size_t)> &call)
    {
        for (size_t p = place.pieces.size(); p-- > 0;) {
            const auto [low, width] = place.pieces[p];
            for (uint32_t n = low; n < low + width; n++) {
                call(static_cast<size_t>(n + int64_t{place.step} *
                                                 (int64_t{element} - place.spot.first)));
            }
        }
    }

    // The row's bytes of a record, by the lines alone, and the bits of all that it has.
    Bytes image(const Bytes &record, Bytes &taken) const
    {
        Bytes bytes(row->usImageSize);
        taken = bytes;
        for (const Entry &place : lines->list("place")) {
            for (uint32_t i = place.spot.first; i <= place.spot.last; i++) {
                if (!holds(place.when, record)) {
                    continue;
                }
                const bool constant = place.spot.name.empty();
                const Value value = constant ? place.value : load(place.spot, i, record);
                if (!place.coded.empty() && !place.coded.contains(value)) {
                    throw std::invalid_argument(place.spot.name + " has no code for " +
                                                testing::PrintToString(value));
                }
                uint64_t rest = place.coded.empty() ? value.at(0) : place.coded.at(value);
                rest = place.is_switch && rest != 0 ? UINT64_MAX : rest >> place.from;
                rest = place.is_inverse ? ~rest : rest;
                bits(place, i, [&](size_t bit) {
                    bytes.at(bit / 8) |= static_cast<uint8_t>((rest & 1) << bit % 8);
                    taken[bit / 8] |= static_cast<uint8_t>(1u << bit % 8);
                    rest >>= 1;
                });
            }
        }
        return bytes;
    }
};

class RowData : public Rows {
  protected:
    // Runs a test of each row, telling what of the lines it can not do.
    static void each(const std::function<void(const Target &)> &test)
    {
        std::vector<Target> all;
        for (const NpTableInfo &flat : all_tables()) {
            const NpTable *table = flat.pstTable;
            all.push_back({name_of(flat), table->pstRow, table->pstKey, table, flat.pfnSet,
                           [table](uint32_t chip, const void *key, const void *record) {
                               return Np_Table_Check(table, chip, key, record);
                           },
                           flat.pfnGet});
        }
        static const NpPriBlock split = {8, {10, 10, 10, 10, 10, 10, 10, 30}};
        for (const NpPriTableInfo &pri : std::span(g_astNpPriTable, g_ulNpPriTableNum)) {
            const NpPriTable *table = pri.pstTable;
            ASSERT_EQ(Np_PriTable_Assign(table, 0, &split), NP_OK);
            all.push_back({name_of(pri), table->pstRow, table->pstKey, nullptr, pri.pfnSet,
                           [table](uint32_t chip, const void *key, const void *record) {
                               uint32_t number = 0;
                               std::memcpy(&number, key, sizeof(number));
                               return Np_PriTable_Check(table, chip, number, record);
                           },
                           pri.pfnGet});
        }
        for (const auto &[name, row] : loose_rows()) {
            const auto check_row = [loose = row](uint32_t chip, const void *, const void *record) {
                return Np_Row_Check(loose, chip, record);
            };
            all.push_back({name, row, nullptr, nullptr, check_row, check_row, nullptr});
        }
        auto unknown = written();
        for (Target &target : all) {
            SCOPED_TRACE(target.name);
            unknown.erase(target.name);
            if (!written().contains(target.name)) {
                ADD_FAILURE() << "tests/rows.txt has no line of it";
                continue;
            }
            target.lines = &written().at(target.name);
            try {
                test(target);
            }
            catch (const std::exception &error) {
                ADD_FAILURE() << "rows.txt: " << error.what();
            }
        }
        for (uint32_t i = 0; i < g_ulNpPriTableNum; i++) {
            Np_PriTable_Free(g_astNpPriTable[i].pstTable, 0);
        }
        for (const auto &[name, lines] : unknown) {
            ADD_FAILURE() << "rows.txt: the list of tables has no " << name;
        }
    }

    static uint32_t check(const Target &target, const Bytes &record)
    {
        return target.test(0, target.key(record), record.data());
    }

    static uint32_t set(const Target &target, const Bytes &record)
    {
        return target.set(0, target.key(record), record.data());
    }

    static void spoil(const Target &target, const Entry &step, Bytes &record)
    {
        target.put(step.spot, step.spot.first,
                   step.kind == "port" ? step.value : Value{static_cast<uint32_t>(step.bad)},
                   record);
    }

    // What a bad value prints.
    static Words message(const Target &target, const Entry &step)
    {
        const Written &lines = *target.lines;
        std::string format = step.text;
        if (step.kind == "port") {
            format = "port check failed! ulReturn=0x%08x\r\n";
        }
        else if (step.kind != "" && step.kind != "alone") {
            format = (step.kind == "bool" ? "true/false" : step.kind) + " Para error: 0x%08x \r\n";
        }
        else if (format.find('%') == std::string::npos) {
            const std::string &arg = step.spot.in_key ? lines.key_arg : lines.arg;
            const std::string name = (step.kind == "alone" || arg.empty() ? "" : arg + "->") +
                                     (format.empty() ? step.spot.text : format);
            format = "param error! " + (lines.bare ? name : "(" + name + ")") + "=0x%08x\r\n";
        }
        Words expected;
        for (const auto &[line, value] : {std::pair{format, static_cast<uint32_t>(step.bad)},
                                          {"Func error return: 0x%08x \r\n", step.code}}) {
            char text[200];
            std::snprintf(text, sizeof(text), line.c_str(),
                          step.kind == "port" ? step.code : value);
            expected.push_back(text);
        }
        expected.resize(lines.tells ? 2 : 1);
        return expected;
    }

    static std::string hex(const Bytes &bytes)
    {
        std::string text;
        for (size_t i = 0; i < bytes.size(); i++) {
            char byte[8];
            std::snprintf(byte, sizeof(byte), "%s%02x", i % 4 == 0 ? " " : "", bytes[i]);
            text += byte;
        }
        return text;
    }

    // What stands in the store over ones. A loose row shares its image with others, whose bits
    // stay.
    static void expect_place(const Target &target, const Bytes &record)
    {
        Bytes found(NP_ROW_IMAGE_MAX, 0xff), taken;
        Bytes expected = target.image(record, taken);
        if (target.table != nullptr) {
            fill(*target.table, target.key(record), found);
            ASSERT_EQ(set(target, record), NP_OK);
            found = stored(*target.table, target.key(record));
        }
        else {
            ASSERT_EQ(Np_Row_Build(target.row, 0, record.data(), found.data()), NP_OK);
            EXPECT_TRUE(std::equal(expected.begin(), expected.end(), found.begin()));
            std::fill(found.begin(), found.end(), 0xff);
            ASSERT_EQ(Np_Row_Fill(target.row, 0, record.data(), found.data()), NP_OK);
            found.resize(expected.size());
            for (size_t i = 0; i < expected.size(); i++) {
                expected[i] |= static_cast<uint8_t>(~taken[i]);
            }
        }
        EXPECT_EQ(hex(found), hex(expected));
    }
};

// With a check and any later one failing, the earlier one speaks, and nothing crosses the bus. What
// lies just inside a limit is taken.
TEST_F(RowData, ChecksComeInTheirOrder)
{
    const Bytes before = store();
    each([&](const Target &target) {
        std::vector<Entry> steps = target.lines->list("check");
        for (size_t k = 0; k < steps.size(); k++) {
            // Flags print nothing but their value: each its own.
            steps[k].bad = steps[k].value.empty() ? static_cast<int64_t>(2 + k) : steps[k].bad;
        }
        BusTap bus;
        EXPECT_EQ(check(target, target.base()), NP_OK) << "the base is not legal";
        for (size_t k = 0; k < steps.size(); k++) {
            const Entry &step = steps[k];
            for (size_t later = k; later < steps.size(); later++) {
                SCOPED_TRACE(step.spot.text + " before " + steps[later].spot.text);
                Bytes from = target.base();
                if (later != k) {
                    from = target.fulfilled(steps[later].when, from)[0];
                    spoil(target, steps[later], from);
                }
                for (Bytes &record : target.fulfilled(step.when, from)) {
                    if (!target.holds(steps[later].when, record)) {
                        continue;  // not both are done; in a union they may share a place
                    }
                    spoil(target, step, record);
                    EXPECT_EQ(failures(
                                  target.row_of(step.spot), [&] { return set(target, record); },
                                  step.code),
                              message(target, step));
                    Bytes read = record;
                    EXPECT_TRUE(!step.spot.in_key ||
                                target.get(0, target.key(record), read.data()) == step.code);
                }
            }
            for (Bytes &record : target.fulfilled(step.when, target.base())) {
                const auto [low, high] = target.range(step.spot, record);
                for (const int64_t inside : {low, high}) {
                    if (step.kind != "port") {
                        target.put(step.spot, step.spot.first, {static_cast<uint32_t>(inside)},
                                   record);
                    }
                    EXPECT_EQ(check(target, record), NP_OK) << step.spot.text << " " << inside;
                }
            }
        }
        EXPECT_TRUE(bus.take().empty());
        // Each check of the description is written down, in a record in which it is done.
        const auto named = [&](const NpRow &row, const NpCheck &each) {
            for (const Entry &step : steps) {
                const size_t at = target.offset(step.spot, step.spot.first);
                for (Bytes &record : target.fulfilled(step.when, target.base())) {
                    spoil(target, step, record);
                    if (&target.row_of(step.spot) == &row && at >= each.usOffset &&
                        at <= each.usOffset + each.usStride * (each.usCount - 1u) &&
                        Np_Row_IsThere(each.pstWhen,
                                       step.spot.in_key ? target.key(record) : record.data())) {
                        return true;
                    }
                }
            }
            return each.stLimit.enKind < NP_BOUND_PORT && each.ucSize < 4 &&
                   (Np_Row_LimitMax(&each.stLimit) + 1) >> 8 * each.ucSize != 0;  // can not fail
        };
        for (const NpRow *row : {target.row, target.key_row}) {
            for (const NpCheck &each : row != nullptr ? checks_of(*row) : checks_of(NpRow{})) {
                EXPECT_TRUE(named(*row, each)) << "no check has " << each.pszText;
            }
        }
    });
    EXPECT_EQ(store(), before);
}

// Each field alone, with all of its legal bits and with each of them, stands in its place and
// nowhere else, and what stood there before is gone. A conditional one stands there under its
// conditions alone.
TEST_F(RowData, FieldsStandInTheirPlaces)
{
    size_t cases = 0;
    each([&](const Target &target) {
        std::vector<Entry> places = target.lines->list("place");
        expect_place(target, target.base());
        std::set<size_t> described, told;
        for (const Entry &place : places) {
            for (uint32_t i = place.spot.first; i <= place.spot.last; i++) {
                Target::bits(place, i, [&](size_t bit) { told.insert(bit); });
            }
        }
        std::erase_if(places, [](const Entry &place) { return place.spot.name.empty(); });
        // Each stored element of the description is written down, with its selector.
        for (const NpField &field : fields_of(*target.row)) {
            const Spot whole = {field.pszName, field.pszName, 0, field.usCount - 1u};
            for (uint32_t i = 0; field.ucWidth != 0 && i < field.usCount; i++) {
                for (uint32_t n = 0; n < field.ucWidth; n++) {
                    described.insert(static_cast<size_t>(Np_ElementBit(field, i)) + n);
                }
                const size_t at = field.usOffset + i * field.usStride;
                const auto has = [&](const Entry &place) {
                    const auto &when = place.when;
                    return at >= target.offset(place.spot, place.spot.first) &&
                           at <= target.offset(place.spot, place.spot.last) &&
                           (field.pstWhen == nullptr ||
                            std::any_of(when.begin(), when.end(), [&](const Condition &each) {
                                return target.offset(each.spot, each.spot.first) ==
                                       field.pstWhen->usOffset;
                            }));
                };
                EXPECT_TRUE(field.ucSize == 0 || std::any_of(places.begin(), places.end(), has))
                    << "no place has " << field.pszName << "#" << i;
            }
            // What has no line has no place.
            if (field.ucSize != 0 && field.ucSize <= 4 &&
                std::none_of(places.begin(), places.end(),
                             [&](const Entry &place) { return place.spot.name == whole.name; })) {
                places.emplace_back().spot = whole;
            }
        }
        std::vector<size_t> differ;
        std::set_symmetric_difference(described.begin(), described.end(), told.begin(), told.end(),
                                      std::back_inserter(differ));
        EXPECT_THAT(differ, testing::IsEmpty()) << "bits that only one side has";
        for (const Entry &place : places) {
            for (uint32_t i = place.spot.first; i <= place.spot.last; i++) {
                SCOPED_TRACE(place.spot.name + "#" + std::to_string(i));
                const auto expect = [&](Bytes record, const Value &value) {
                    // In a union, what is stored in another form takes its own values only.
                    const size_t at = target.offset(place.spot, i);
                    for (const Entry &other : places) {
                        const size_t first = target.offset(other.spot, 0);
                        if (!other.coded.empty() && other.spot.name != place.spot.name &&
                            at >= first && at < first + target.member(other.spot).size &&
                            target.holds(other.when, record)) {
                            return;
                        }
                    }
                    SCOPED_TRACE(testing::PrintToString(value));
                    target.put(place.spot, i, value, record);
                    expect_place(target, record);
                    cases++;
                };
                for (const Bytes &record : target.fulfilled(place.when, target.base())) {
                    for (const auto &[value, stored] : place.coded) {
                        expect(record, value);
                    }
                    const auto [low, high] = target.range(place.spot, record);
                    std::set<int64_t> values = {low, high};
                    for (int64_t bit = 1; bit <= high; bit <<= 1) {
                        values.insert(std::max(bit, low));
                    }
                    for (const int64_t value : place.coded.empty() ? values : std::set<int64_t>{}) {
                        expect(record, {static_cast<uint32_t>(value)});
                    }
                }
                for (const Condition &each : place.when) {
                    const Bytes there = target.fulfilled(place.when, target.base())[0];
                    for (const uint32_t other : target.samples(each, false, there)) {
                        SCOPED_TRACE(each.spot.name + "=" + std::to_string(other));
                        Bytes record = there;
                        target.put(each.spot, each.spot.first, {other}, record);
                        const auto high =
                            static_cast<uint32_t>(target.range(place.spot, record).second);
                        const Value value =
                            place.coded.empty() ? Value{high} : place.coded.rbegin()->first;
                        target.put(place.spot, i, value, record);
                        if (check(target, record) == NP_OK) {  // else it is a union's other member
                            expect(record, value);
                        }
                    }
                }
            }
        }
    });
    EXPECT_GT(cases, 1000u);
}

}  // namespace

}  // namespace ldsdk::test
