// The host's C door and the reference sibling.
#include "host/image.h"
#include "host/sibling.h"
#include "ldsdk/host.h"
#include "sdk/access/bus.h"
#include "tests/fixture.h"
#include "tests/process.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <thread>

namespace ldsdk::test {

namespace {

constexpr uint32_t kAddress = 0x60222200;  // in a mapped window
constexpr uint32_t kAtomFault = 0x5;

std::string file_text(const std::string &name)
{
    std::ifstream file(std::string(LDSDK_SOURCE_DIR "/") + name);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

class Door : public Module {
  protected:
    Door()
    {
        ldsdk_model_attach(0);
        out.take();
    }
};

TEST_F(Door, AnswersWhatItsHeaderSays)
{
    uint32_t value = 0;
    struct {
        uint32_t got;
        uint32_t expected;
        const char *what;
    } const calls[] = {
        {ldsdk_model_peek(0, kAddress, &value), LDSDK_HOST_OK, "a word"},
        {ldsdk_model_peek(0, kAddress + 2, &value), LDSDK_HOST_ADDRESS, "not aligned"},
        {ldsdk_model_peek(0, 0x50000000, &value), LDSDK_HOST_ADDRESS, "nothing there"},
        {ldsdk_model_peek(0, kAddress, nullptr), LDSDK_HOST_NULL, "null"},
        {ldsdk_model_peek(1, kAddress, &value), LDSDK_HOST_CHIP, "not attached"},
        {ldsdk_model_peek(4, kAddress, &value), LDSDK_HOST_CHIP, "no such chip"},
        {ldsdk_model_poke(0, kAddress + 1, 0), LDSDK_HOST_ADDRESS, "not aligned"},
        {ldsdk_model_poke(1, kAddress, 0), LDSDK_HOST_CHIP, "not attached"},
        {ldsdk_model_advance(0, 10), LDSDK_HOST_OK, "time"},
        {ldsdk_model_advance(1, 10), LDSDK_HOST_CHIP, "not attached"},
        {ldsdk_model_attach(4), LDSDK_HOST_CHIP, "no such chip"},
        {ldsdk_image_load(0, nullptr, 4), LDSDK_HOST_NULL, "no image"},
        {ldsdk_image_load(0, &value, 0), LDSDK_HOST_NULL, "no byte"},
        {ldsdk_image_load(0, &value, SIZE_MAX), LDSDK_HOST_MEMORY, "too large"},
        {ldsdk_image_load(1, &value, 4), LDSDK_HOST_CHIP, "not attached"},
        {ldsdk_image_load(4, &value, 4), LDSDK_HOST_CHIP, "no such chip"},
        {ldsdk_image_load(0, &value, 4), NP_ERR_CHIP_ID, "not registered"},
    };
    for (const auto &call : calls) {
        EXPECT_EQ(call.got, call.expected) << call.what;
    }
    EXPECT_EQ(model::clock_now(0), 10u);
}

TEST_F(Door, PowerCycleForgetsAndChipsAreApart)
{
    uint32_t value = 0;
    ASSERT_EQ(ldsdk_model_attach(2), LDSDK_HOST_OK);
    EXPECT_EQ(ldsdk_model_reg_base(0), 0u);
    EXPECT_NE(ldsdk_model_reg_base(2), 0u);
    ldsdk_model_poke(0, kAddress, 0x11223344);
    ldsdk_model_poke(2, kAddress, 0x55667788);
    ldsdk_model_peek(0, kAddress, &value);
    EXPECT_EQ(value, 0x11223344u);
    ldsdk_model_attach(0);
    ldsdk_model_peek(0, kAddress, &value);
    EXPECT_EQ(value, 0u);
    ldsdk_model_peek(2, kAddress, &value);
    EXPECT_EQ(value, 0x55667788u);
}

TEST_F(Door, FaultTextsAreJudged)
{
    EXPECT_EQ(ldsdk_model_fault("alloc nth=4; bus busy"), LDSDK_HOST_OK);
    EXPECT_STREQ(ldsdk_model_error(), "");
    EXPECT_EQ(model::faults_count(), 2u);
    EXPECT_EQ(ldsdk_model_fault("alloc; Qd_Nothing nth=1"), LDSDK_HOST_DESCRIPTION);
    EXPECT_THAT(ldsdk_model_error(), testing::HasSubstr("\"Qd_Nothing\" (column 8)"));
    EXPECT_EQ(model::faults_count(), 2u);
    EXPECT_EQ(ldsdk_model_fault(nullptr), LDSDK_HOST_OK);
    EXPECT_EQ(model::faults_count(), 0u);
}

TEST_F(Door, CommandsGoThroughTheDevice)
{
    EXPECT_EQ(ldsdk_device_ioctl(nullptr), -14);
    std::string text;
    ldsdk_set_output(
        [](const char *piece, void *user) { *static_cast<std::string *>(user) += piece; }, &text);
    char buffer[512] = {};
    EXPECT_EQ(ldsdk_device_ioctl(buffer), -14);
    EXPECT_EQ(text, "\nError! cmd argc from userspace is 0.\n");
    ldsdk_set_output(nullptr, nullptr);
}

// An image comes from wherever the caller has it, and stays as it is there.
TEST_F(Door, LoadsAnImageFromAnywhere)
{
    host::Sibling sibling({});
    ASSERT_EQ(sibling.start(), NP_OK);
    const std::vector<uint8_t> image =
        host::read_image(std::string(LDSDK_LIBRARY_DIR "/") + "../share/ldsdk/forward.npimg");
    std::vector<uint8_t> bytes = image;
    ASSERT_GT(reinterpret_cast<uintptr_t>(bytes.data()), UINT32_MAX);
    EXPECT_EQ(ldsdk_image_load(0, bytes.data(), bytes.size()), NP_OK);
    EXPECT_EQ(bytes, image);
    char version[33] = {};
    EXPECT_EQ(Np_MicroVersion_Get(0, version), NP_OK);
    EXPECT_STREQ(version, std::string(image.end() - 32, image.end()).c_str());
    EXPECT_EQ(ldsdk_image_load(0, bytes.data(), 8), NP_ERR_NOT_EXIST);
}

// The sink runs within a command: another thread finds the door taken, the same one may ask.
TEST_F(Door, LetsOneThreadIn)
{
    static uint32_t value = 0;
    static char buffer[512] = {1};
    static uint32_t prints = 0;
    const auto sink = [](const char *, void *) {
        prints++;
        std::thread([] {
            EXPECT_EQ(ldsdk_model_attach(0), LDSDK_HOST_BUSY);
            EXPECT_EQ(ldsdk_model_peek(0, kAddress, &value), LDSDK_HOST_BUSY);
            EXPECT_EQ(ldsdk_model_poke(0, kAddress, 1), LDSDK_HOST_BUSY);
            EXPECT_EQ(ldsdk_model_advance(0, 1), LDSDK_HOST_BUSY);
            EXPECT_EQ(ldsdk_model_fault("alloc"), LDSDK_HOST_BUSY);
            EXPECT_STRNE(ldsdk_model_error(), "");
            EXPECT_EQ(ldsdk_image_load(0, &value, 4), LDSDK_HOST_BUSY);
            EXPECT_EQ(ldsdk_set_output(nullptr, nullptr), LDSDK_HOST_BUSY);
            EXPECT_EQ(ldsdk_device_ioctl(buffer), -16);
        }).join();
        EXPECT_EQ(ldsdk_model_peek(0, kAddress, &value), LDSDK_HOST_OK);
        EXPECT_EQ(ldsdk_device_ioctl(buffer), -16);
        EXPECT_EQ(ldsdk_image_load(0, &value, 4), LDSDK_HOST_BUSY);
    };
    ldsdk_model_poke(0, kAddress, 0x1234);
    EXPECT_EQ(ldsdk_set_output(sink, nullptr), LDSDK_HOST_OK);
    EXPECT_EQ(ldsdk_device_ioctl(buffer), 0);
    EXPECT_EQ(ldsdk_set_output(nullptr, nullptr), LDSDK_HOST_OK);
    EXPECT_GT(prints, 0u);
    EXPECT_EQ(value, 0x1234u);
    EXPECT_EQ(model::faults_count(), 0u);
    std::thread([] { EXPECT_EQ(ldsdk_model_advance(0, 1), LDSDK_HOST_OK); }).join();
}

TEST_F(Door, SiblingBringsAChipUpAndDown)
{
    {
        host::Sibling sibling({});
        ASSERT_EQ(sibling.start(), NP_OK) << sibling.failed_step();
        EXPECT_TRUE(sibling.is_up());
        EXPECT_EQ(sibling.bring_up(), NP_ERR_FAIL);
        EXPECT_TRUE(sibling.is_up());
    }
    EXPECT_EQ(g_aucNpInitFlag[0], 0);
}

TEST_F(Door, SiblingIsToldOfDriverFailures)
{
    host::Sibling::reset_counts();
    set_fault("Qd_PBA_AtomModeSet code=5");
    host::Sibling sibling({});
    EXPECT_EQ(sibling.start(), kAtomFault);
    EXPECT_STREQ(sibling.failed_step(), "bringing the chip up");
    EXPECT_FALSE(sibling.is_up());
    ASSERT_EQ(host::Sibling::errors().size(), 1u);
    EXPECT_EQ(host::Sibling::errors()[0].chip, 0u);
    EXPECT_EQ(host::Sibling::errors()[0].code, kAtomFault);
    EXPECT_EQ(host::Sibling::errors()[0].info, 0u);
    EXPECT_GT(host::Sibling::counts().watchdog_feeds, 0u);
    EXPECT_EQ(sibling.tear_down(), NP_OK);
}

TEST_F(Door, SiblingRefusesAChipThatIsNone)
{
    host::Sibling sibling({.chip = NP_CHIP_NUM});
    EXPECT_EQ(sibling.start(), NP_ERR_CHIP_ID);
    EXPECT_STREQ(sibling.failed_step(), "registering the hooks");
    EXPECT_EQ(sibling.register_slave_hooks({}), NP_ERR_CHIP_ID);
    EXPECT_EQ(host::Sibling({}).register_slave_hooks({}), NP_ERR_NULL_PTR);
}

TEST_F(Door, SlaveHooksTakeThePlaceOfTheBus)
{
    ldsdk_model_attach(1);
    host::Sibling::reset_counts();
    host::Sibling sibling({.chip = 1, .reg_base = ldsdk_model_reg_base(1)});
    ASSERT_EQ(sibling.register_chip(), NP_OK);
    const auto read = [](uint32_t address, uint32_t *value) {
        return ldsdk_model_peek(1, address, value);
    };
    const auto write = [](uint32_t address, uint32_t value) {
        return ldsdk_model_poke(1, address, value);
    };
    ASSERT_EQ(sibling.register_slave_hooks({read, write}), NP_OK);
    uint32_t value = 0xcafe0001;
    EXPECT_EQ(Np_Write(1, kAddress, &value), NP_OK);
    value = 0;
    EXPECT_EQ(Np_Read(1, kAddress, &value), NP_OK);
    EXPECT_EQ(value, 0xcafe0001u);
    EXPECT_EQ(host::Sibling::counts().slave_reads, 1u);
    EXPECT_EQ(host::Sibling::counts().slave_writes, 1u);
}

// What the page shows is what runs.
TEST(DoorPage, ShowsTheExamplesThatAreTested)
{
    const std::string page = file_text("docs/host-door.md");
    EXPECT_THAT(page, testing::HasSubstr("```c\n" + file_text("tests/door_test.c") + "```"));
    EXPECT_THAT(page, testing::HasSubstr("```python\n" + file_text("tests/door_test.py") + "```"));
    const Finished python = run({"python3", LDSDK_SOURCE_DIR "/tests/door_test.py", LDSDK_LIBRARY});
    EXPECT_EQ(python.status, 0) << python.err;
    EXPECT_THAT(python.out, testing::HasSubstr("Lodestone1.3.10.0022forQA02MXU"));
}

}  // namespace

}  // namespace ldsdk::test
