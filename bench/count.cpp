// One operation in a process of its own, for a tool that counts instructions (cmake/count.py): the
// chip comes up, the operation's preparation runs, and what is counted is one call of `counted`.
#include "chipmodel/model.h"
#include "ldsdk/host.h"
#include "ldsdk/ldsdk.h"
#include "platform/bus.h"
#include "platform/host/host_os.h"
#include "sdk/access/regtable.h"
#include "sdk/cpuchan/message.h"
#include "sdk/lookup/eml.h"
#include "sdk/lookup/lcam.h"

#include <array>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <string>
#include <string_view>

namespace {

namespace model = ldsdk::model;

constexpr uint32_t kRow = 17;
constexpr uint32_t kPlainTable = 82;  // a plain row of 16 bytes

// Every field is 1, so that each has something to store.
template <typename Record>
Record ones()
{
    std::array<uint32_t, sizeof(Record) / 4> words;
    words.fill(1);
    Record record;
    std::memcpy(&record, words.data(), sizeof(record));
    return record;
}

NpVlan g_vlan = ones<NpVlan>();
NpVlanOption g_option = ones<NpVlanOption>();
NpMet g_met = ones<NpMet>();

std::array<uint8_t, 16> g_row = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

const NpArlKey g_mac = {0, 100, 0, 0, 0, 0, 0, 0, {}, 0, 0, 0, {0, 0x11, 0x22, 0x33, 0x44, 0x55}};
NpArlData g_mac_data = {{0, 7}, 0, 0, 0, 0, 0, 0, 0, 0, 0};
NpArlInfo g_mac_info = {};

std::array<uint8_t, 16> g_item = {0, 0, 0x10, 0x32, 0x54, 0x76, 0x98, 0xba, 0xfc};
const std::array<uint8_t, 10> g_key = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
const std::array<uint8_t, 10> g_mask = {0xff, 0xff, 0xff, 0xff, 0xff};
const std::array<uint8_t, 8> g_ad = {1, 2, 3};

const std::array<uint8_t, 64> g_packet = {0x5a};
std::array<uint8_t, 2048> g_buffer = {};
InfoForSend g_send = {};
ReceiveInfo g_receive = {};
ArlAgeInfo g_age = {};
std::array<char, 512> g_line = {};

uint32_t nothing()
{
    return 0;
}

uint32_t vlan_set()
{
    return Np_VlanTbl_Set(0, kRow, &g_vlan);
}

uint32_t option_set()
{
    return Np_VlanOptionTbl_Set(0, kRow, &g_option);
}

uint32_t met_set()
{
    return Np_MetTbl_Set(0, kRow, &g_met);
}

uint32_t row_write()
{
    return Np_RegTableWrite(0, kPlainTable, kRow, g_row.data());
}

uint32_t mac_add()
{
    return Np_ArlTbl_Add(0, &g_mac, &g_mac_data);
}

uint32_t item_add()
{
    uint32_t location = NP_EML_IN_TABLE;
    return Np_Tarn_EML_ItemAdd(0, NP_EML_SMAC_BONDING, &location, nullptr, g_item.data());
}

uint32_t packet_fill()
{
    g_send.ulPktLen = static_cast<uint32_t>(g_packet.size());
    g_send.pucData = g_packet.data();
    g_send.ulSubType = 1;
    g_send.unInsertPkt.stInsertToFwd.ulIftID = 17;
    return 0;
}

uint32_t packet_send()
{
    return Np_Cputr_PktSend(0, &g_send);
}

// A packet that comes back, into a buffer.
uint32_t packet_return()
{
    g_receive.ulBufLen = static_cast<uint32_t>(g_buffer.size());
    g_receive.pucData = g_buffer.data();
    model::standin_loop_set(0, true);
    return packet_fill() | packet_send();
}

uint32_t message_fill()
{
    const NpForceAge request = {1, 17};
    return Np_Tarn_CputrMsg_ForceAgeInfoBuild(0, &request, &g_age);
}

template <const char *kText>
uint32_t line_fill()
{
    Np_INIT_SdkCmdTreeInstall();
    std::istringstream words(std::string("ldsdk ") + kText);
    int32_t count = 0;
    size_t at = sizeof(count);
    for (std::string word; words >> word; count++) {
        std::memcpy(g_line.data() + at, word.c_str(), word.size() + 1);
        at += word.size() + 1;
    }
    std::memcpy(g_line.data(), &count, sizeof(count));
    return 0;
}

// A command tells in its text whether it was understood.
bool g_refused = false;

void listen(const char *text, void *)
{
    g_refused = g_refused || std::strstr(text, "nvalid") != nullptr ||
                std::strstr(text, "error") != nullptr;
}

uint32_t line_run()
{
    const int result = ldsdk_device_ioctl(g_line.data());
    return result != 0 || g_refused ? 1 : 0;
}

constexpr char kVlanSet[] = "micro vlan vlan set index 17 ulFwd drop ulMstpID 1 end";
constexpr char kVlanGet[] = "micro vlan vlan get index 17";

struct Operation {
    const char *name;
    uint32_t (*prepare)();
    uint32_t (*work)();
};

// To count one more operation, give it a line here. Both functions answer 0.
constexpr Operation kOperations[] = {
    {"vlan_set", nothing, vlan_set},
    {"vlan_get", vlan_set, [] { return Np_VlanTbl_Get(0, kRow, &g_vlan); }},
    {"vlan_option_set", nothing, option_set},
    {"vlan_option_get", option_set, [] { return Np_VlanOptionTbl_Get(0, kRow, &g_option); }},
    {"met_set", nothing, met_set},
    {"met_get", met_set, [] { return Np_MetTbl_Get(0, kRow, &g_met); }},
    {"mac_add", nothing, mac_add},
    {"mac_get", mac_add, [] { return Np_ArlTbl_Get(0, &g_mac, &g_mac_data, &g_mac_info); }},
    {"mac_del", mac_add, [] { return Np_ArlTbl_Del(0, 2, &g_mac); }},
    {"eml_lookup", item_add,
     [] { return Np_Tarn_EML_ItemGet(0, NP_EML_SMAC_BONDING, nullptr, nullptr, g_item.data()); }},
    {"eml_add", nothing, item_add},
    {"lcam_write", nothing,
     [] {
         return Np_Tarn_LCAM_TcamWrite(0, NP_LCAM_L2PA, 3, g_key.data(), g_mask.data(),
                                       g_ad.data());
     }},
    {"row_write_16", nothing, row_write},
    {"row_read_16", row_write, [] { return Np_RegTableRead(0, kPlainTable, kRow, g_row.data()); }},
    {"packet_send", packet_fill, packet_send},
    {"packet_receive", packet_return, [] { return Np_Cputr_PktReceive(0, &g_receive); }},
    {"message", message_fill, [] { return Np_Tarn_CputrMsg_ForceAgeInfoSet(0, &g_age); }},
    {"command_vlan_set", line_fill<kVlanSet>, line_run},
    {"command_vlan_get", line_fill<kVlanGet>, line_run},
    {"bring_up", [] { return Np_INIT_SdkDestruct(0); }, [] { return Np_INIT_SdkInit(0); }},
    {"tear_down", nothing, [] { return Np_INIT_SdkDestruct(0); }},
};

bool chip_up()
{
    Os_HostSetSink(listen, nullptr);
    Os_BusAttach(&model::bus());
    return model::attach(0) == model::kOk && Np_GLB_ChipRegister(0, 1, 0, 0) == 0 &&
           Np_INIT_SdkInit(0) == 0;
}

}  // namespace

// The counting tool knows this function by name: it counts from its entry to its return.
extern "C" [[gnu::noipa]] uint32_t counted(uint32_t (*work)())
{
    const uint32_t result = work();
    asm volatile("" ::: "memory");  // no jump in place of the call
    return result;
}

int main(int argc, char **argv)
{
    if (argc != 2) {
        for (const Operation &operation : kOperations) {
            std::puts(operation.name);
        }
        return 0;
    }
    for (const Operation &operation : kOperations) {
        if (std::string_view(argv[1]) == operation.name) {
            if (!chip_up() || operation.prepare() != 0 || counted(operation.work) != 0) {
                std::fprintf(stderr, "count: %s fails\n", operation.name);
                return 1;
            }
            return 0;
        }
    }
    std::fprintf(stderr, "count: no operation %s\n", argv[1]);
    return 2;
}
