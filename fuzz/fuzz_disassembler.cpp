// The disassembler on any instruction: its text stays within its bounds, ends, and assembles to the
// same instruction or to one with the same text.
#include "fuzz/input.h"
#include "host/asm_instruction.h"
#include "sdk/micro/disasm.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>

namespace {

void demand(bool right)
{
    if (!right) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace ldsdk;
    fuzz::Input input(data, size);
    while (!input.empty()) {
        const auto first = input.take<uint8_t>();
        const auto group = input.take<uint32_t>();
        std::array<uint8_t, 24> code = {};
        const auto bytes = input.take_bytes(code.size());
        std::copy(bytes.begin(), bytes.end(), code.begin());

        // On the heap, where a byte too far is seen.
        const auto text = std::make_unique<char[]>(NP_DISASM_BUFFER_SIZE);
        Np_SMD_DFX_DisasmInstructionGroup(code.data(), text.get(), group, first & 7, first >> 3);
        demand(std::find(text.get(), text.get() + NP_DISASM_BUFFER_SIZE, '\0') !=
               text.get() + NP_DISASM_BUFFER_SIZE);

        const auto line = std::make_unique<char[]>(NP_DISASM_TEXT_SIZE);
        demand(soc_np_atom_disasm_instruction(code.data(), line.get()) == 0);
        demand(std::find(line.get(), line.get() + NP_DISASM_TEXT_SIZE, '\0') !=
               line.get() + NP_DISASM_TEXT_SIZE);
        try {
            const uint64_t word = host::assemble_instruction(line.get());
            demand(host::instruction_text(word) == line.get());
        }
        catch (const host::LineError &) {
            // A text that stands for no instruction.
        }
    }
    return 0;
}
