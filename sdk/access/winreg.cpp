// The memory model: chip addresses kept in host memory, for running the SDK without a chip.
#include "sdk/access/bus.h"

#include "platform/os.h"
#include "sdk/frame/base/text.h"
#include "sdk/frame/base/trace.h"

// One debug base in front of the rows; both are filled by hand only.
constinit uintptr_t g_ulTarnSocNpTestAddress = 0;
constinit NpTestRegMem g_stNpTestRegMem[NP_TEST_REG_MEM_NUM] = {
    {"CBUS model  memmory", 0x60000000, 0x7fffffff, nullptr},
    {"MAC  model 1  memmory", 0x80000000, 0x837fffff, nullptr},
    {"MAC  model 2  memmory", 0x88000000, 0x8fffffff, nullptr},
    {"", 0, 0, nullptr},
};

namespace {

inline constexpr uint32_t NP_SOC_ADDRESS_MASK = 0x0fffffff;

bool Np_WinRegIsEnd(const NpTestRegMem &stRow)
{
    return stRow.ulLast + 1 - stRow.ulFirst == 1;
}

// Where a word of the memory model stands, null when no row holds the address.
uint32_t *Np_WinRegFind(uint32_t ulAddr)
{
    for (NpTestRegMem &stRow : g_stNpTestRegMem) {
        if (Np_WinRegIsEnd(stRow)) {
            break;
        }
        if (ulAddr >= stRow.ulFirst && ulAddr <= stRow.ulLast && stRow.pucBuffer != nullptr) {
            return reinterpret_cast<uint32_t *>(stRow.pucBuffer + (ulAddr - stRow.ulFirst));
        }
    }
    return nullptr;
}

}  // namespace

uint32_t Np_WinRegInit(void)
{
    for (NpTestRegMem &stRow : g_stNpTestRegMem) {
        if (Np_WinRegIsEnd(stRow)) {
            break;
        }
        // Four bytes more, for a word access at the last address.
        const size_t ulSize = static_cast<size_t>(stRow.ulLast - stRow.ulFirst) + 1 + 4;
        stRow.pucBuffer = static_cast<uint8_t *>(Os_Alloc(ulSize));
        if (stRow.pucBuffer == nullptr) {
            Np_WinRegUnInit();
            return 1;
        }
    }
    return 0;
}

void Np_WinRegUnInit(void)
{
    for (NpTestRegMem &stRow : g_stNpTestRegMem) {
        Np_FreeAndForget(&stRow.pucBuffer);
    }
}

void Np_WinRegWrite(uint32_t, uint32_t ulAddr, uint32_t ulValue)
{
    uint32_t *pulWord = Np_WinRegFind(ulAddr);
    if (pulWord == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "reg_addr 0x%x  out of rang\n\r", ulAddr);
        return;
    }
    *pulWord = ulValue;
}

void Np_WinRegRead(uint32_t, uint32_t ulAddr, uint32_t *pulValue)
{
    const uint32_t *pulWord = Np_WinRegFind(ulAddr);
    if (pulWord == nullptr) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "reg_addr 0x%x  out of rang", ulAddr);
        return;
    }
    *pulValue = *pulWord;
}

void Np_TarnSocDebugRegWrite(uint32_t, uint32_t ulAddr, uint32_t ulValue)
{
    if (g_ulTarnSocNpTestAddress == 0) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "reg_addr 0x%x  out of rang", ulAddr);
        return;
    }
    Np_DeubgPrint(NP_M_COMM, NP_PRINT_DEBUG, "\r\n Write, Address:0x%x, Value:0x%x \r\n", ulAddr,
                  ulValue);
    Os_IoWrite32(g_ulTarnSocNpTestAddress + (ulAddr & NP_SOC_ADDRESS_MASK), ulValue);
}

void Np_TarnSocDebugRegRead(uint32_t, uint32_t ulAddr, uint32_t *pulValue)
{
    if (g_ulTarnSocNpTestAddress == 0) {
        NP_TRACE(NP_M_COMM, NP_PRINT_ERROR, "reg_addr 0x%x  out of rang", ulAddr);
        return;
    }
    *pulValue = Os_IoRead32(g_ulTarnSocNpTestAddress + (ulAddr & NP_SOC_ADDRESS_MASK));
    Np_DeubgPrint(NP_M_COMM, NP_PRINT_DEBUG, "\r\n Read, Address:0x%x, Value:0x%x \r\n", ulAddr,
                  *pulValue);
}
