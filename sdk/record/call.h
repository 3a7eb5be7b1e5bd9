// Exported functions as the engines call them: the record, and the key that names it, as plain
// memory. The arguments are told by the function's own type.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

using NpGetCall = uint32_t(uint32_t ulChipID, const void *pvKey, void *pvRecord);
using NpSetCall = uint32_t(uint32_t ulChipID, const void *pvKey, const void *pvRecord);
using NpKeyCall = uint32_t(uint32_t ulChipID, const void *pvKey);

namespace np_call {

// One argument out of plain memory: a word of it, or a pointer to it.
template <typename Arg>
Arg Take(const void *pvFrom, uint32_t ulWord)
{
    if constexpr (std::is_pointer_v<Arg>) {
        return static_cast<Arg>(const_cast<void *>(pvFrom));
    }
    else {
        Arg value;
        __builtin_memcpy(&value, static_cast<const uint32_t *>(pvFrom) + ulWord, sizeof(value));
        return value;
    }
}

template <auto pfnCall, typename... Args, size_t... aulAt>
uint32_t WithRecord(uint32_t (*)(uint32_t, Args...), std::index_sequence<aulAt...>,
                    uint32_t ulChipID, const void *pvKey, const void *pvRecord)
{
    constexpr size_t ulLast = sizeof...(Args) - 1;
    return pfnCall(ulChipID, Take<Args>(aulAt == ulLast ? pvRecord : pvKey,
                                        aulAt == ulLast ? 0 : static_cast<uint32_t>(aulAt))...);
}

template <auto pfnCall, typename... Args, size_t... aulAt>
uint32_t WithKey(uint32_t (*)(uint32_t, Args...), std::index_sequence<aulAt...>, uint32_t ulChipID,
                 [[maybe_unused]] const void *pvKey)
{
    return pfnCall(ulChipID, Take<Args>(pvKey, static_cast<uint32_t>(aulAt))...);
}

template <typename... Args>
constexpr auto Places(uint32_t (*)(uint32_t, Args...))
{
    return std::index_sequence_for<Args...>{};
}

}  // namespace np_call

// pfnCall(chip, key words or a key record, record or its one word)
template <auto pfnCall>
uint32_t Np_GetCall(uint32_t ulChipID, const void *pvKey, void *pvRecord)
{
    return np_call::WithRecord<pfnCall>(pfnCall, np_call::Places(pfnCall), ulChipID, pvKey,
                                        pvRecord);
}
template <auto pfnCall>
uint32_t Np_SetCall(uint32_t ulChipID, const void *pvKey, const void *pvRecord)
{
    return np_call::WithRecord<pfnCall>(pfnCall, np_call::Places(pfnCall), ulChipID, pvKey,
                                        pvRecord);
}
// Tells whether a Set takes its record as a word, which cannot be missing.
template <typename... Args>
consteval bool Np_TakesWord(uint32_t (*)(uint32_t, Args...))
{
    const bool abWord[] = {!std::is_pointer_v<Args>...};
    return abWord[sizeof...(Args) - 1];
}
// pfnCall(chip, key words or a key record)
template <auto pfnCall>
uint32_t Np_KeyCallOf(uint32_t ulChipID, const void *pvKey)
{
    return np_call::WithKey<pfnCall>(pfnCall, np_call::Places(pfnCall), ulChipID, pvKey);
}

// A function of any arguments behind the chip, each taken from where one of a list of pointers
// points: a record, or a word. Surplus pointers are ignored.
struct NpAnyCall {
    uint32_t (*pfnCall)(uint32_t ulChipID, void *const *ppvArg);
    uint32_t ulArgNum;
};

namespace np_call {

template <auto pfnCall, typename... Args, size_t... aulAt>
uint32_t WithAny(uint32_t (*)(uint32_t, Args...), std::index_sequence<aulAt...>, uint32_t ulChipID,
                 void *const *ppvArg)
{
    return pfnCall(ulChipID, Take<Args>(ppvArg[aulAt], 0)...);
}

template <auto pfnCall>
uint32_t Any(uint32_t ulChipID, void *const *ppvArg)
{
    return WithAny<pfnCall>(pfnCall, Places(pfnCall), ulChipID, ppvArg);
}

template <typename... Args>
consteval uint32_t Count(uint32_t (*)(uint32_t, Args...))
{
    return sizeof...(Args);
}

}  // namespace np_call

template <auto pfnCall>
consteval NpAnyCall Np_AnyCall()
{
    return {np_call::Any<pfnCall>, np_call::Count(pfnCall)};
}
