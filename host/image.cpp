#include "host/image.h"

#include "host/asm_instruction.h"
#include "ldsdk/host.h"
#include "ldsdk/micro.h"
#include "platform/bus.h"
#include "sdk/frame/registry.h"
#include "sdk/micro/group.h"
#include "sdk/micro/load.h"

#include <sys/mman.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace ldsdk::host {

namespace {

constexpr uint64_t kFourGib = 1ull << 32;

// Pages below 4 GiB.
class LowMemory {
  public:
    LowMemory() = default;
    explicit LowMemory(size_t size) : size_(std::max<size_t>(size, 1))
    {
        // The system takes the address as a wish: the first place that it grants in full counts.
        constexpr uint64_t kFirst = 0x10000000;
        constexpr uint64_t kStep = 0x04000000;
        for (uint64_t wish = kFirst; wish + size_ < kFourGib; wish += kStep) {
            void *at = ::mmap(reinterpret_cast<void *>(static_cast<uintptr_t>(wish)), size_,
                              PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
            if (at == MAP_FAILED) {
                continue;
            }
            if (reinterpret_cast<uintptr_t>(at) + uint64_t{size_} <= kFourGib) {
                at_ = at;
                return;
            }
            ::munmap(at, size_);
        }
        throw std::runtime_error("no memory below 4 GiB for an image of " + std::to_string(size) +
                                 " bytes");
    }
    ~LowMemory()
    {
        if (at_ != nullptr) {
            ::munmap(at_, size_);
        }
    }
    LowMemory(LowMemory &&other) noexcept
        : at_(std::exchange(other.at_, nullptr)), size_(std::exchange(other.size_, 0))
    {
    }
    LowMemory &operator=(LowMemory &&other) noexcept
    {
        std::swap(at_, other.at_);
        std::swap(size_, other.size_);
        return *this;
    }

    void *data() const
    {
        return at_;
    }
    // size bytes from an address on; null when they don't lie here.
    void *find(uint32_t wanted, uint32_t size) const
    {
        const uint64_t offset = uint64_t{wanted} - address();
        return at_ != nullptr && wanted >= address() && offset + size <= size_
                   ? static_cast<uint8_t *>(at_) + offset
                   : nullptr;
    }
    uint32_t address() const
    {
        return static_cast<uint32_t>(reinterpret_cast<uintptr_t>(at_));
    }

  private:
    void *at_ = nullptr;
    size_t size_ = 0;
};

// The SDK looks sections up where the image stands, so each chip's image stays.
std::array<LowMemory, NP_CHIP_NUM> &images()
{
    static std::array<LowMemory, NP_CHIP_NUM> kept;
    return kept;
}

// For the commands that name one.
constexpr OsImages kRegistered = {
    [](uint32_t address, uint32_t size) -> void * {
        for (const LowMemory &image : images()) {
            if (void *found = image.find(address, size); found != nullptr) {
                return found;
            }
        }
        return nullptr;
    },
    [](uint32_t) {},
};

template <typename Load>
uint32_t load_with(uint32_t chip, std::span<const uint8_t> image, Load load)
{
    Os_ImagesAttach(&kRegistered);
    LowMemory memory(image.size());
    if (!image.empty()) {
        std::memcpy(memory.data(), image.data(), image.size());
    }
    const NpMicroLoad request = {static_cast<uint32_t>(image.size()), memory.address()};
    const uint32_t status = load(&request);
    // A load that failed may have named the new image already: it replaces the old one either way.
    if (chip < NP_CHIP_NUM) {
        images()[chip] = std::move(memory);
    }
    return status;
}

}  // namespace

std::vector<uint8_t> read_image(const std::string &path)
{
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    if (error) {
        throw std::runtime_error(path + ": " + error.message());
    }
    if (size > kMaxImageSize) {
        throw std::runtime_error(path + ": " + std::to_string(size) + " bytes; expected at most " +
                                 std::to_string(kMaxImageSize));
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error(path + ": " + std::strerror(errno));
    }
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string missing_bytes(std::span<const uint8_t> image)
{
    const auto word = [&](size_t at) {
        return static_cast<uint64_t>(image[at]) << 24 | static_cast<uint64_t>(image[at + 1]) << 16 |
               static_cast<uint64_t>(image[at + 2]) << 8 | image[at + 3];
    };
    uint64_t end = 0;
    for (size_t entry = 0; entry < NP_MICRO_SECTION_NUM; entry++) {
        const size_t at = entry * sizeof(NpMicroSection);
        if (at + sizeof(NpMicroSection) > image.size() || word(at) == NP_MICRO_END) {
            break;
        }
        end = std::max(end, word(at + 4) + word(at + 8));
    }
    const uint64_t least = (end + 3) / 4 * 4 + NP_MICRO_TRAILER_SIZE;
    const std::string found = std::to_string(image.size()) + " bytes; expected ";
    if (image.size() < least) {
        return found + std::to_string(least) + " or more, for its sections and the version text";
    }
    return image.size() % 4 != 0 ? found + "a multiple of 4" : "";
}

uint32_t load_image(uint32_t chip, std::span<const uint8_t> image)
{
    return load_with(chip, image,
                     [&](const NpMicroLoad *request) { return Np_Micro_Load(chip, request); });
}

uint32_t online_load_image(uint32_t chip, uint32_t atoms, std::span<const uint8_t> image)
{
    return load_with(chip, image, [&](const NpMicroLoad *request) {
        return Np_Micro_OnlineLoad(chip, atoms, request);
    });
}

std::string example_image()
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto image = program.parent_path().parent_path() / "share" / "ldsdk" / "forward.npimg";
    return !error && std::filesystem::exists(image, error) ? image.string() : "";
}

std::string code_listing(uint32_t chip, uint32_t pc, uint32_t count)
{
    const auto word = [chip](uint32_t address) {
        uint32_t value = 0;
        if (ldsdk_model_peek(chip, address, &value) != LDSDK_HOST_OK) {
            throw std::runtime_error("chip " + std::to_string(chip) + " is not attached");
        }
        return value;
    };
    return code_listing(word, pc, count);
}

std::string code_listing(const WordReader &word, uint32_t pc, uint32_t count)
{
    if (pc >= NP_PC_NUM) {
        throw std::runtime_error("PC " + std::to_string(pc) + "; expected 0 to " +
                                 std::to_string(NP_PC_NUM - 1));
    }
    const uint32_t end = pc + std::min(count, NP_PC_NUM - pc);
    std::array<uint32_t, NP_GROUP_WORDS> group = {};
    std::string text;
    char line[160];
    for (uint32_t at = pc; at < end; at++) {
        const uint32_t slot = at % NP_GROUP_INSTR;
        if (at == pc || slot == 0) {
            const uint32_t address = NP_IMEM_BASE + at / NP_GROUP_INSTR * NP_GROUP_SIZE;
            for (uint32_t i = 0; i < NP_GROUP_WORDS; i++) {
                group[i] = word(address + 4 * i);
            }
            const uint32_t ecc = Np_Micro_GroupEccGet(group.data());
            const bool right = ecc == group[NP_GROUP_ECC_WORD];
            std::snprintf(line, sizeof line, "group %u  0x%08x  ECC 0x%08x ", at / NP_GROUP_INSTR,
                          address, group[NP_GROUP_ECC_WORD]);
            text += line;
            std::snprintf(line, sizeof line, "wrong, expected 0x%08x\n", ecc);
            text += right ? "ok\n" : line;
        }
        std::snprintf(line, sizeof line, "%08X  |  %s\n", at,
                      instruction_text(Np_Micro_GroupInstrGet(group.data(), slot)).c_str());
        text += line;
    }
    return text;
}

}  // namespace ldsdk::host
