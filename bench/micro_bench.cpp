// Microcode: the disassembler beside a general one, image load beside a copy, the check of groups.
#include "bench/bench.h"

#include "chipmodel/atom.h"
#include "host/asm_instruction.h"
#include "host/assembler.h"
#include "ldsdk/ldsdk.h"
#include "sdk/micro/disasm.h"
#include "sdk/micro/group.h"

#include <capstone/capstone.h>
#include <sys/mman.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

namespace {

using ldsdk::bench::AddTarget;
using ldsdk::bench::chip_up;
using Kind = ldsdk::bench::Target::Kind;

constexpr size_t kInstructions = 4096;

// Operands at random for each instruction in turn, of all opcodes that have a name.
void disassemble(benchmark::State &state)
{
    std::mt19937_64 random(48);
    std::vector<uint8_t> code;
    for (uint32_t opcode = 0x10; code.size() < 6 * kInstructions; opcode = opcode % 64 + 1) {
        if (opcode < 0x10 || opcode == 64 || atom_opcode[opcode].ucGroup == ATOM_GROUP_INVALID) {
            continue;
        }
        const uint64_t word = uint64_t{opcode} << 42 | (random() & 0x3ffffffffff);
        for (int shift = 40; shift >= 0; shift -= 8) {
            code.push_back(static_cast<uint8_t>(word >> shift));
        }
    }
    char text[NP_DISASM_TEXT_SIZE];
    size_t at = 0;
    for (auto _ : state) {
        soc_np_atom_disasm_instruction(&code[at], text);
        benchmark::DoNotOptimize(text);
        at = at + 6 == code.size() ? 0 : at + 6;
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(disassemble);

// ARM code in the same manner: sixteen common instructions, register fields at random.
void disassemble_by_capstone(benchmark::State &state)
{
    constexpr uint32_t kForms[] = {
        0xe0800000,  // add
        0xe0400000,  // sub
        0xe1a00000,  // mov
        0xe3a00001,  // mov immediate
        0xe2800010,  // add immediate
        0xe1500000,  // cmp
        0xe3500005,  // cmp immediate
        0xe5900004,  // ldr
        0xe5800008,  // str
        0xe5d00001,  // ldrb
        0xe1d000b2,  // ldrh
        0xe0000090,  // mul
        0xe1800000,  // orr
        0xe0000000,  // and
        0xe1a00100,  // lsl
        0xe2000003,  // and immediate
    };
    std::mt19937 random(32);
    std::vector<uint8_t> code;
    for (size_t i = 0; i < kInstructions; i++) {
        // Rn, Rd and Rm of the low eight registers; comparisons have no Rd, moves no Rn.
        const uint32_t form = kForms[i % std::size(kForms)];
        const uint32_t kind = form >> 21 & 0xf;
        const bool data = form >> 26 == 0x38 && (form & 0x90) != 0x90;
        const bool compare = data && kind == 0xa;
        const bool move = data && kind == 0xd;
        uint32_t word = form;
        word |= move ? 0 : (random() & 7) << 16;
        word |= compare ? 0 : (random() & 7) << 12;
        word |= data && (form >> 25 & 1) == 0 ? random() & 7 : 0;
        for (int shift = 0; shift < 32; shift += 8) {
            code.push_back(static_cast<uint8_t>(word >> shift));
        }
    }
    csh handle = 0;
    if (cs_open(CS_ARCH_ARM, CS_MODE_ARM, &handle) != CS_ERR_OK) {
        state.SkipWithError("capstone does not open");
        return;
    }
    cs_insn *instruction = cs_malloc(handle);
    const uint8_t *at = code.data();
    size_t left = code.size();
    uint64_t address = 0;
    for (auto _ : state) {
        if (!cs_disasm_iter(handle, &at, &left, &address, instruction)) {
            state.SkipWithError("capstone refuses its input");
            break;
        }
        benchmark::DoNotOptimize(instruction->op_str);
        if (left == 0) {
            at = code.data();
            left = code.size();
        }
    }
    state.SetItemsProcessed(state.iterations());
    cs_free(instruction, 1);
    cs_close(&handle);
}
BENCHMARK(disassemble_by_capstone);
const AddTarget disasm_target({Kind::kSpeedAtLeast, "disassemble", "disassemble_by_capstone", 3,
                               "disassembled instructions / capstone's"});

void assemble_one(benchmark::State &state)
{
    const char *const lines[] = {"MOV (CC0 = TRUE) VOID = 0x0", "ADD R1W = R2W, 0x10",
                                 "LOOKUP %RD[0xC, 0x3] = 0x4, R3W, 2", "JMP (CC2 = EQ) 21"};
    size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ldsdk::host::assemble_instruction(lines[i++ % 4]));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(assemble_one);

// ---- groups -------------------------------------------------------------------------------------

void group_ecc(benchmark::State &state)
{
    uint32_t group[NP_GROUP_WORDS] = {1, 2, 3, 4, 5, 6};
    for (auto _ : state) {
        group[0] = Np_Micro_GroupEccGet(group);
        benchmark::DoNotOptimize(group);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(group_ecc);

void group_ecc_of_the_model(benchmark::State &state)
{
    uint8_t group[32] = {1, 2, 3, 4, 5, 6};
    for (auto _ : state) {
        group[0] = static_cast<uint8_t>(ldsdk::model::group_ecc(group) >> 24);
        benchmark::DoNotOptimize(group);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(group_ecc_of_the_model);

// ---- load ---------------------------------------------------------------------------------------

// An image that fills instruction memory.
const std::vector<uint8_t> &full_image()
{
    static const std::vector<uint8_t> image =
        ldsdk::host::assemble(".org 32768\n.section rules\n.word 1\n.section data\n.word 1\n", "")
            .image;
    return image;
}

uint8_t *low_memory(size_t size)
{
    void *at = ::mmap(reinterpret_cast<void *>(0x30000000), size, PROT_READ | PROT_WRITE,
                      MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (at == MAP_FAILED || reinterpret_cast<uintptr_t>(at) + uint64_t{size} > 1ull << 32) {
        std::fputs("bench: no memory below 4 GiB\n", stderr);
        std::exit(1);
    }
    return static_cast<uint8_t *>(at);
}

// A load swaps its image, so each one begins with a fresh copy of it, as users have to.
void image_load(benchmark::State &state)
{
    chip_up();
    const std::vector<uint8_t> &image = full_image();
    uint8_t *place = low_memory(image.size());
    const NpMicroLoad request = {
        static_cast<uint32_t>(image.size()),
        static_cast<uint32_t>(reinterpret_cast<uintptr_t>(place)),
    };
    for (auto _ : state) {
        std::memcpy(place, image.data(), image.size());
        if (Np_Micro_Load(0, &request) != 0) {
            state.SkipWithError("the load fails");
            break;
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(image.size()));
    ::munmap(place, image.size());
}
BENCHMARK(image_load);

void image_copy(benchmark::State &state)
{
    const std::vector<uint8_t> &image = full_image();
    std::vector<uint8_t> place(image.size());
    for (auto _ : state) {
        std::memcpy(place.data(), image.data(), image.size());
        benchmark::DoNotOptimize(place.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(image.size()));
}
BENCHMARK(image_copy);

void image_assemble(benchmark::State &state)
{
    std::string all;
    for (int i = 0; i < 4096; i++) {
        all += "        ADD R1W = R2W, 0x10    ; comment\n";
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(ldsdk::host::assemble(all, ""));
    }
    state.SetItemsProcessed(state.iterations() * 4096);
}
BENCHMARK(image_assemble);

}  // namespace
