#include "host/pcap/capture.h"

#include "chipmodel/model.h"
#include "host/write_file.h"

#include <dlfcn.h>
#include <pcap/pcap.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <vector>

namespace ldsdk::host {

namespace {

constexpr int kSnapLength = 65535;
constexpr uint64_t kTicksPerSecond = 10000;
constexpr uint64_t kMicrosecondsPerTick = 100;

// The functions of libpcap that are used here.
struct Library {
    decltype(&pcap_fopen_offline) open_offline;
    decltype(&pcap_datalink) datalink;
    decltype(&pcap_datalink_val_to_name) datalink_name;
    decltype(&pcap_next_ex) next;
    decltype(&pcap_geterr) error;
    decltype(&pcap_close) close;
    decltype(&pcap_open_dead) open_dead;
    decltype(&pcap_dump_fopen) dump_open;
    decltype(&pcap_dump) dump;
    decltype(&pcap_dump_flush) dump_flush;
    decltype(&pcap_dump_close) dump_close;
};

template <typename Function>
void resolve(void *handle, const char *name, Function &function)
{
    function = reinterpret_cast<Function>(::dlsym(handle, name));
    if (function == nullptr) {
        throw std::runtime_error(std::string("libpcap has no ") + name);
    }
}

const Library &library()
{
    static const Library loaded = [] {
        void *handle = ::dlopen("libpcap.so.0.8", RTLD_NOW | RTLD_LOCAL);
        if (handle == nullptr) {
            throw std::runtime_error(std::string("libpcap is missing: ") + ::dlerror());
        }
        Library pcap = {};
        resolve(handle, "pcap_fopen_offline", pcap.open_offline);
        resolve(handle, "pcap_datalink", pcap.datalink);
        resolve(handle, "pcap_datalink_val_to_name", pcap.datalink_name);
        resolve(handle, "pcap_next_ex", pcap.next);
        resolve(handle, "pcap_geterr", pcap.error);
        resolve(handle, "pcap_close", pcap.close);
        resolve(handle, "pcap_open_dead", pcap.open_dead);
        resolve(handle, "pcap_dump_fopen", pcap.dump_open);
        resolve(handle, "pcap_dump", pcap.dump);
        resolve(handle, "pcap_dump_flush", pcap.dump_flush);
        resolve(handle, "pcap_dump_close", pcap.dump_close);
        return pcap;
    }();
    return loaded;
}

struct Close {
    void operator()(pcap_t *handle) const
    {
        library().close(handle);
    }
    void operator()(pcap_dumper_t *dumper) const
    {
        library().dump_close(dumper);
    }
};
using Handle = std::unique_ptr<pcap_t, Close>;
using Dumper = std::unique_ptr<pcap_dumper_t, Close>;

// Of a stream, which goes with the handle.
Handle open_capture(std::FILE *stream, const std::string &name)
{
    char reason[PCAP_ERRBUF_SIZE] = "";
    Handle handle(stream == nullptr ? nullptr : library().open_offline(stream, reason));
    if (handle == nullptr) {
        const std::string what = stream == nullptr ? std::strerror(errno) : reason;
        if (stream != nullptr) {
            std::fclose(stream);
        }
        throw std::runtime_error(name + ": " + what);
    }
    const int link = library().datalink(handle.get());
    if (link != DLT_EN10MB) {
        const char *link_name = library().datalink_name(link);
        throw std::runtime_error(name + ": its frames are of type " +
                                 (link_name != nullptr ? link_name : std::to_string(link)) +
                                 "; expected Ethernet (EN10MB)");
    }
    return handle;
}

void append_words(std::vector<uint8_t> &bytes, const uint32_t (&words)[2])
{
    for (const uint32_t word : words) {
        for (int shift = 24; shift >= 0; shift -= 8) {
            bytes.push_back(static_cast<uint8_t>(word >> shift));
        }
    }
}

std::vector<uint8_t> message_frame(const model::Packet &packet)
{
    std::vector<uint8_t> frame = {
        2, 0, 0, 0, 0, 2, 2, 0, 0, 0, 0, 1, kMessageEtherType >> 8, kMessageEtherType & 0xff};
    append_words(frame, packet.head);
    frame.insert(frame.end(), packet.data, packet.data + packet.length);
    return frame;
}

void dump(pcap_dumper_t *dumper, uint64_t tick, const uint8_t *data, size_t size)
{
    pcap_pkthdr header = {};
    header.ts.tv_sec = static_cast<time_t>(tick / kTicksPerSecond);
    header.ts.tv_usec = static_cast<suseconds_t>(tick % kTicksPerSecond * kMicrosecondsPerTick);
    header.caplen = static_cast<bpf_u_int32>(size);
    header.len = header.caplen;
    library().dump(reinterpret_cast<u_char *>(dumper), &header, data);
}

FeedResult feed(const Handle &handle, const std::string &name, uint32_t chip, uint32_t phy)
{
    FeedResult result = {};
    bool refused = false;
    const auto wrong = [&](const std::string &what) {
        return std::runtime_error(name + ": after " + std::to_string(result.frames) +
                                  " frames: " + what);
    };
    while (true) {
        pcap_pkthdr *header = nullptr;
        const u_char *data = nullptr;
        const int more = library().next(handle.get(), &header, &data);
        if (more == PCAP_ERROR_BREAK) {
            return result;
        }
        if (more != 1) {
            throw wrong(library().error(handle.get()));
        }
        if (!refused && (header->caplen == 0 || header->caplen > model::kPacketBytes)) {
            throw wrong("a frame of " + std::to_string(header->caplen) + " bytes; expected 1 to " +
                        std::to_string(model::kPacketBytes));
        }
        result.frames++;
        refused = refused ||
                  model::receive_put_frame(chip, model::frame_source(data, header->caplen, phy),
                                           data, header->caplen) != model::kOk;
        if (!refused) {
            result.fed++;
            result.cut += header->caplen < header->len ? 1 : 0;
        }
    }
}

// Text that a stream is written to.
struct Memory {
    ~Memory()
    {
        std::free(data);
    }
    char *data = nullptr;
    size_t size = 0;
};

}  // namespace

FeedResult feed_capture(const std::string &path, uint32_t chip, uint32_t phy)
{
    std::FILE *stream =
        path == "-" ? ::fdopen(::dup(STDIN_FILENO), "rb") : std::fopen(path.c_str(), "rbe");
    return feed(open_capture(stream, path), path, chip, phy);
}

FeedResult feed_capture(std::string_view bytes, const std::string &name, uint32_t chip,
                        uint32_t phy)
{
    // Opened for reading, so nothing is written to the bytes.
    std::FILE *stream = ::fmemopen(const_cast<char *>(bytes.data()), bytes.size(), "rb");
    return feed(open_capture(stream, name), name, chip, phy);
}

std::string capture_bytes(uint32_t chip, SaveResult &result)
{
    Memory memory;
    const Handle handle(library().open_dead(DLT_EN10MB, kSnapLength));
    std::FILE *stream = ::open_memstream(&memory.data, &memory.size);
    if (handle == nullptr || stream == nullptr) {
        throw std::runtime_error("out of memory");
    }
    Dumper dumper(library().dump_open(handle.get(), stream));
    if (dumper == nullptr) {
        throw std::runtime_error(library().error(handle.get()));
    }
    result = {};
    result.lost = model::sent_lost(chip);
    const uint32_t count = model::sent_count(chip);
    for (uint32_t index = 0; index < count; index++) {
        model::Packet packet = {};
        model::sent_get(chip, index, &packet);
        if (model::packet_is_message(packet.head)) {
            const std::vector<uint8_t> frame = message_frame(packet);
            dump(dumper.get(), packet.tick, frame.data(), frame.size());
            result.messages++;
            continue;
        }
        dump(dumper.get(), packet.tick, packet.data, packet.length);
        result.packets++;
    }
    if (library().dump_flush(dumper.get()) != 0) {
        throw std::runtime_error("out of memory");
    }
    dumper.reset();
    return {memory.data, memory.size};
}

SaveResult save_capture(const std::string &path, uint32_t chip)
{
    SaveResult result = {};
    write_file(path, capture_bytes(chip, result));
    return result;
}

}  // namespace ldsdk::host
