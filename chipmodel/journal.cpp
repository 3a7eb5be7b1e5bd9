#include "chipmodel/journal.h"

#include "chipmodel/bytes.h"
#include "chipmodel/line.h"

namespace ldsdk::model {

constinit uint32_t g_watch = 0;

namespace {

constinit Record g_records[kJournalSize] = {};
constinit uint64_t g_written = 0;  // since the journal was cleared

static_assert((kJournalSize & (kJournalSize - 1)) == 0);

void add_command(Line &line, const Record &record)
{
    line.add("rba %s addr=0x%08x ctrl=0x%04x class=%u", rba_op_name(record.command),
             static_cast<unsigned>(record.address), static_cast<unsigned>(record.value & 0xffff),
             static_cast<unsigned>(record.value >> 16));
    if (record.result != 0) {
        line.add(" = 0x%08x", static_cast<unsigned>(record.result));
        return;
    }
    line.add(" status=%u data=", static_cast<unsigned>(record.status));
    for (uint32_t at = 0; at < 16; at++) {
        line.add("%02x", static_cast<unsigned>(record.data[at]));
    }
}

void add_call(Line &line, const Record &record)
{
    const OpInfo &info = op_info(record.op);
    line.add("%s(%u", info.name, static_cast<unsigned>(record.chip));
    for (uint32_t number = 0; number < info.numbers; number++) {
        line.add(", 0x%x", static_cast<unsigned>(load_le32(record.data + 4 * number)));
    }
    line.add(") = 0x%x", static_cast<unsigned>(record.result));
}

}  // namespace

void journal_put(const Record &record)
{
    g_records[g_written % kJournalSize] = record;
    g_written++;
}

void journal_enable(bool on)
{
    g_watch = on ? g_watch | kWatchJournal : g_watch & ~kWatchJournal;
}

bool journal_enabled()
{
    return watched(kWatchJournal);
}

void journal_clear()
{
    g_written = 0;
}

uint32_t journal_count()
{
    return g_written < kJournalSize ? static_cast<uint32_t>(g_written) : kJournalSize;
}

uint64_t journal_lost()
{
    return g_written - journal_count();
}

const Record *journal_record(uint32_t index)
{
    return index < journal_count() ? &g_records[(journal_lost() + index) % kJournalSize] : nullptr;
}

size_t journal_format(const Record &record, char *buffer, size_t size)
{
    static constexpr const char *kAccess[] = {"read16", "write16", "read32", "write32"};
    Line line(buffer, size);
    line.add("%llu chip %u ", static_cast<unsigned long long>(record.tick),
             static_cast<unsigned>(record.chip));
    const auto address = static_cast<unsigned>(record.address);
    const auto value = static_cast<unsigned>(record.value);
    switch (record.kind) {
        case RecordKind::kRead16:
        case RecordKind::kWrite16:
            line.add("%s 0x%08x 0x%04x", kAccess[static_cast<uint32_t>(record.kind)], address,
                     value);
            break;
        case RecordKind::kRead32:
        case RecordKind::kWrite32:
            line.add("%s 0x%08x 0x%08x", kAccess[static_cast<uint32_t>(record.kind)], address,
                     value);
            break;
        case RecordKind::kClear:
            line.add("clear 0x%08x %u bytes", address, value);
            break;
        case RecordKind::kRba:
            add_command(line, record);
            break;
        case RecordKind::kCall:
            add_call(line, record);
            break;
    }
    return line.length();
}

}  // namespace ldsdk::model
