#include "chipmodel/fault.h"

#include "chipmodel/line.h"

namespace ldsdk::model {

namespace {

struct Fault {
    Op op;
    RbaOp command;  // kUnknown: any
    bool status;
    uint32_t value;
    uint64_t nth;    // first call that fails, from 1
    uint64_t count;  // calls that fail, 0 without end
    uint64_t seen;   // calls so far
};

struct FaultList {
    Fault rows[kFaultNum];
    uint32_t count;
};
constinit FaultList g_faults = {};

// ---- reading the text ---------------------------------------------------------------------------

struct Word {
    const char *text;
    size_t length;
};

size_t length_of(const char *text)
{
    size_t length = 0;
    while (text[length] != '\0') {
        length++;
    }
    return length;
}

bool is_blank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool word_is(const Word &word, const char *text)
{
    return length_of(text) == word.length && __builtin_memcmp(word.text, text, word.length) == 0;
}

// Cuts "key=" off the front of a word.
bool take_key(Word &word, const char *key)
{
    const size_t length = length_of(key);
    if (word.length < length || __builtin_memcmp(word.text, key, length) != 0) {
        return false;
    }
    word.text += length;
    word.length -= length;
    return true;
}

bool read_number(const Word &word, uint32_t &number)
{
    uint32_t base = 10;
    size_t at = 0;
    if (word.length > 2 && word.text[0] == '0' && (word.text[1] | 0x20) == 'x') {
        base = 16;
        at = 2;
    }
    if (at == word.length) {
        return false;
    }
    uint64_t sum = 0;
    for (; at < word.length; at++) {
        const char c = word.text[at];
        const char low = static_cast<char>(c | 0x20);
        uint32_t digit = 16;
        if (c >= '0' && c <= '9') {
            digit = static_cast<uint32_t>(c - '0');
        }
        else if (low >= 'a' && low <= 'f') {
            digit = static_cast<uint32_t>(low - 'a') + 10;
        }
        sum = sum * base + digit;
        if (digit >= base || sum > 0xffffffff) {
            return false;
        }
    }
    number = static_cast<uint32_t>(sum);
    return true;
}

bool find_op(const Word &word, Op &op)
{
    for (uint32_t row = 0; row < static_cast<uint32_t>(Op::kOpNum); row++) {
        if (word_is(word, op_info(static_cast<Op>(row)).name)) {
            op = static_cast<Op>(row);
            return true;
        }
    }
    return false;
}

bool find_command(const Word &word, RbaOp &command)
{
    for (uint32_t row = 1; row < static_cast<uint32_t>(RbaOp::kRbaOpNum); row++) {
        if (word_is(word, rba_op_name(static_cast<RbaOp>(row)))) {
            command = static_cast<RbaOp>(row);
            return true;
        }
    }
    return false;
}

class Reader {
  public:
    Reader(const char *text, FaultError &error) : at_(text), error_(error) {}

    bool read(FaultList &list)
    {
        while (true) {
            if (!read_fault(list)) {
                return false;
            }
            if (*at_ == '\0') {
                return true;
            }
            at_++;  // the semicolon
        }
    }

  private:
    // The next word, empty in front of a semicolon and at the end.
    Word next()
    {
        while (is_blank(*at_)) {
            at_++;
        }
        const char *begin = at_;
        while (*at_ != '\0' && *at_ != ';' && !is_blank(*at_)) {
            at_++;
        }
        return {begin, static_cast<size_t>(at_ - begin)};
    }

    bool wrong(const Word &word, const char *reason)
    {
        error_ = {word.text, reason};
        return false;
    }

    bool read_operation(const Word &word, Fault &fault)
    {
        fault = {Op::kOpNum, RbaOp::kUnknown, false, kErrFault, 1, 1, 0};
        if (word.length == 0) {
            return wrong(word, "operation expected");
        }
        if (word_is(word, "rba")) {
            fault.op = Op::Qd_RBA_CommandSend;
            return true;
        }
        if (word_is(word, "semaphore")) {
            fault.op = Op::Qd_RBA_CommandSend;
            fault.command = RbaOp::kSearchUpdateBuild;
            fault.status = true;
            fault.value = 5;
            return true;
        }
        if (!find_op(word, fault.op)) {
            return wrong(word, "unknown operation");
        }
        fault.count = fault.op == Op::kBus ? 0 : 1;
        return true;
    }

    bool read_word(Word word, Fault &fault)
    {
        const bool driver = fault.op < Op::kDriverOpNum;
        const bool rba = fault.op == Op::Qd_RBA_CommandSend;
        const Word whole = word;
        uint32_t number = 0;
        if (take_key(word, "nth=")) {
            if (!read_number(word, number) || number == 0) {
                return wrong(word, "number from 1 expected");
            }
            fault.nth = number;
            return true;
        }
        if (take_key(word, "count=")) {
            if (!read_number(word, number)) {
                return wrong(word, "number expected");
            }
            fault.count = number;
            return true;
        }
        if (take_key(word, "code=")) {
            if (!driver) {
                return wrong(whole, "only a driver function has a code");
            }
            if (!read_number(word, fault.value) || fault.value == 0) {
                return wrong(word, "number from 1 expected");
            }
            fault.status = false;
            return true;
        }
        if (take_key(word, "status=")) {
            if (!rba) {
                return wrong(whole, "only rba has a status");
            }
            if (!read_number(word, fault.value)) {
                return wrong(word, "number expected");
            }
            fault.status = true;
            return true;
        }
        if (take_key(word, "op=")) {
            if (!rba) {
                return wrong(whole, "only rba has commands");
            }
            return find_command(word, fault.command) || wrong(word, "unknown command");
        }
        if (word_is(word, "busy")) {
            return fault.op == Op::kBus || wrong(word, "only bus can be busy");
        }
        return wrong(word, "unknown word");
    }

    bool read_fault(FaultList &list)
    {
        const Word operation = next();
        if (word_is(operation, "clear")) {
            list.count = 0;
            const Word more = next();
            return more.length == 0 || wrong(more, "nothing may follow clear");
        }
        Fault fault;
        if (!read_operation(operation, fault)) {
            return false;
        }
        for (Word word = next(); word.length != 0; word = next()) {
            if (!read_word(word, fault)) {
                return false;
            }
        }
        if (list.count == kFaultNum) {
            return wrong(operation, "too many faults");
        }
        list.rows[list.count++] = fault;
        return true;
    }

    const char *at_;
    FaultError &error_;
};

void watch_faults()
{
    g_watch = g_faults.count != 0 ? g_watch | kWatchFaults : g_watch & ~kWatchFaults;
}

// A fault list does not fit on a kernel's stack.
constinit FaultList g_scratch = {};

}  // namespace

bool faults_set(const char *text, FaultError *error)
{
    if (text == nullptr) {
        faults_clear();
        return true;
    }
    FaultError ignored = {};
    g_scratch = g_faults;
    if (!Reader(text, error == nullptr ? ignored : *error).read(g_scratch)) {
        return false;
    }
    g_faults = g_scratch;
    watch_faults();
    return true;
}

void faults_clear()
{
    g_faults.count = 0;
    watch_faults();
}

uint32_t faults_count()
{
    return g_faults.count;
}

uint32_t fault_format(uint32_t index, char *buffer, size_t size)
{
    if (index >= g_faults.count) {
        return kErrParam;
    }
    const Fault &fault = g_faults.rows[index];
    const bool rba = fault.op == Op::Qd_RBA_CommandSend;
    Line line(buffer, size);
    line.add("%s", rba ? "rba" : op_info(fault.op).name);
    if (fault.command != RbaOp::kUnknown) {
        line.add(" op=%s", rba_op_name(fault.command));
    }
    line.add(" nth=%llu count=%llu", static_cast<unsigned long long>(fault.nth),
             static_cast<unsigned long long>(fault.count));
    if (fault.status || fault.op < Op::kDriverOpNum) {
        line.add(" %s=0x%x", fault.status ? "status" : "code", static_cast<unsigned>(fault.value));
    }
    line.add(" calls=%llu", static_cast<unsigned long long>(fault.seen));
    return kOk;
}

void fault_error_format(const char *text, const FaultError &error, char *buffer, size_t size)
{
    int length = 0;
    while (error.at[length] != '\0' && error.at[length] != ';' && !is_blank(error.at[length])) {
        length++;
    }
    Line line(buffer, size);
    const char *quote = length == 0 ? "" : "\"";
    line.add("%s at %s%.*s%s (column %u)", error.reason, quote, length == 0 ? 7 : length,
             length == 0 ? "the end" : error.at, quote, static_cast<unsigned>(error.at - text + 1));
}

FaultHit fault_check(Op op, RbaOp command)
{
    FaultHit result = {false, false, 0};
    for (uint32_t row = 0; row < g_faults.count; row++) {
        Fault &fault = g_faults.rows[row];
        if (fault.op != op || (fault.command != RbaOp::kUnknown && fault.command != command)) {
            continue;
        }
        fault.seen++;
        const bool hit =
            fault.seen >= fault.nth && (fault.count == 0 || fault.seen < fault.nth + fault.count);
        if (hit && !result.hit) {
            result = {true, fault.status, fault.value};
        }
    }
    return result;
}

}  // namespace ldsdk::model
