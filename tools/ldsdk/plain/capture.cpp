// In place of host/pcap on machines that have no libpcap.
#include "host/pcap/capture.h"

#include <stdexcept>

namespace ldsdk::host {

namespace {

std::runtime_error refused()
{
    return std::runtime_error("capture files need libpcap, which this build is without");
}

}  // namespace

FeedResult feed_capture(const std::string &, uint32_t, uint32_t)
{
    throw refused();
}

FeedResult feed_capture(std::string_view, const std::string &, uint32_t, uint32_t)
{
    throw refused();
}

SaveResult save_capture(const std::string &, uint32_t)
{
    throw refused();
}

std::string capture_bytes(uint32_t, SaveResult &)
{
    throw refused();
}

}  // namespace ldsdk::host
