// What can follow the words of a command line: completion and help of the prompt.
#include "tools/params/params.h"

#include "sdk/module/tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace ldsdk::tool {

namespace {

// The words that can come next, one behind the other, each with its help in brackets.
std::string next(NpCliHandler handler, const std::string &line)
{
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    std::string text;
    for (const NextWord &word : param_next_words(handler, words)) {
        text += (text.empty() ? "" : " ") + word.name +
                (word.help.empty() ? "" : "(" + word.help + ")");
    }
    return text;
}

TEST(NextWords, FollowTheLine)
{
    struct Case {
        NpCliHandler handler;
        const char *line;
        const char *next;
    };
    const Case cases[] = {
        // Keys in their order, by what the type has; then pairs that may be left out.
        {Np_SMD_ARL_ArlTbl_Add, "", "ulType(0 to 15)"},
        {Np_SMD_ARL_ArlTbl_Add, "ulType", "<0 to 15>"},
        {Np_SMD_ARL_ArlTbl_Add, "type 14", "ulVsi(0 to 15)"},
        {Np_SMD_ARL_ArlTbl_Add, "type 14 vsi 1 macaddr", "<xx-xx-xx-xx-xx-xx>"},
        {Np_SMD_ARL_ArlTbl_Add, "type 15 port",
         "adsl(port type) vdsl(port type) fe(port type) ge(port type) gint(port type) "
         "gpon(port type) epon(port type) xaui(port type) prbs(port type) cpu(port type) "
         "bonding(port type) loopback(port type) xdsl(port type)"},
        {Np_SMD_ARL_ArlTbl_Add, "type 15 port ge", "portid(<0 to 17>)"},
        {Np_SMD_ARL_ArlTbl_Add, "type 15 port ge portid", "<0 to 17>"},
        {Np_SMD_ARL_ArlTbl_Add, "type 15 port vdsl", "atm ptm"},
        {Np_SMD_ARL_ArlTbl_Add, "type 15 port vdsl ptm portid 1", "subportid(<0 to 63>)"},
        {Np_SMD_ARL_ArlTbl_Add, "type 15 port fe portid 1", "ulVsi(0 to 15)"},
        {Np_SMD_ARL_ArlTbl_Add, "ulType 6 aucMacAddr 00-11-22-33-44-55 ulIntfID 3 ulVmac 1",
         "ulVmacID(0 to 4095) ulL3(0 to 1) ulIftID(0 to 1023) <end of the line>"},
        {Np_SMD_ARL_ArlTbl_Add, "ulType 6 aucMacAddr 00-11-22-33-44-55 ulL3 0 ulClass",
         "<nothing>(\"ulClass\" is none of ..."},
        {Np_SMD_ARL_ArlTbl_Add, "ulSvlanID", "<nothing>(\"ulSvlanID\" is none of ..."},
        // Pairs that all must be there, with value words.
        {Np_SMD_ARL_ArlTbl_Del, "ulMacDelType", "static(0) dynamic(1) all(2)"},
        {Np_SMD_ARL_ArlTbl_Del, "ulMacDelType all", "ulType(0 to 15)"},
        {Np_SMD_ARL_ArlTbl_Get, "ulType 6 aucMacAddr 00-11-22-33-44-55", "<end of the line>"},
        {Np_SMD_ARL_ArlTbl_Get, "ulType 6 aucMacAddr 00-11-22-33-44-55 more",
         "<nothing>(the command is complete in front of \"more\")"},
        // Menus: any order, what a value lets in right behind it, numbers for names.
        {Np_SMD_MetTbl_Set, "index 1",
         "valid(0 to 1) op_code(0 flow, 1 flow_bundle, 7 discard; 0 to 7) nextmetid(0 to 32767) "
         "end(carries the command out)"},
        {Np_SMD_MetTbl_Set, "index 1 op_code", "flow(0) flow_bundle(1) discard(7)"},
        {Np_SMD_MetTbl_Set, "index 1 2 flow_bundle", "bundle_id(0 to 8191)"},
        {Np_SMD_MetTbl_Set, "index 1 op_code 7 discard_id 1 nextmetid", "<0 to 32767>"},
        {Np_SMD_MetTbl_Set, "index 1 valid 1 end", "<end of the line>"},
        {Np_SMD_MetTbl_Set, "index 1 nonsense", "<nothing>(\"nonsense\" is none of ..."},
        {Np_SMD_VlanOptionTbl_Set, "index 1 downoption12", "fwd(0) snooping(1) drop(2) cpu(3)"},
        // Values alone, and a format's fields.
        {Np_SMD_DFX_Prompt, "", "off(0) on(1)"},
        {Np_SMD_DFX_PortID2PhyID, "gpon portid", "<0 to 1>"},
        {Np_SMD_CPUTR_SendPkt, "insert_type queue ulFrameInfoType prbs", "ulPrbsChID(0 to 255)"},
        {Np_SMD_CPUTR_SendPkt, "insert_type 5",
         "ulCmGroupID(0 to 255) ulPktLen(0 to 10240) pucData(up to 255 bytes in hexadecimal) "
         "end(carries the command out)"},
    };
    for (const Case &row : cases) {
        const std::string found = next(row.handler, row.line);
        std::string expected = row.next;
        if (expected.ends_with("...")) {
            expected.resize(expected.size() - 3);
            EXPECT_THAT(found, testing::StartsWith(expected)) << row.line;
        }
        else {
            EXPECT_EQ(found, expected) << row.line;
        }
    }
}

// A command that works and has no description shows nothing here and in the reference page.
TEST(NextWords, KnowEveryCommandThatThereIs)
{
    static const NpCliHandler pending[] = {
#define NP_PENDING_HANDLER(Name) Name,
#include "sdk/module/pending_handlers.h"
    };
    static const std::map<std::string, NpCliHandler> handlers = {
#define NP_HANDLER(Name) {#Name, Name},
#include "sdk/module/handler_list.h"
    };
    size_t known = 0;
    for (const auto &[name, handler] : handlers) {
        if (std::find(std::begin(pending), std::end(pending), handler) == std::end(pending)) {
            EXPECT_NE(Np_SMD_CommandForm(handler), NP_FORM_UNKNOWN) << name;
            known++;
        }
    }
    EXPECT_GT(known, 50u);
}

}  // namespace

}  // namespace ldsdk::tool
