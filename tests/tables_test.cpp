// The flat tables: what is written of each, and their command lines.
#include "tests/rows.h"

#include <set>
#include <sstream>

namespace ldsdk::test {

namespace {

using testing::EndsWith;
using testing::HasSubstr;

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

static_assert(sizeof(NpVlan) == 28 * 4);
static_assert(sizeof(NpVlanOption) == 64 * 4);
static_assert(sizeof(NpMet) == 4 * 4);

}  // namespace

}  // namespace ldsdk::test
