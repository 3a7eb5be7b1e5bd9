// The table of status codes and their texts.
#pragma once

#include <cstdint>

struct NpErrNoDes {
    uint32_t ulCode;
    const char *pszText;  // some texts begin with a blank, which belongs to them
};

inline constexpr uint32_t NP_ERR_NO_DES_NUM = 71;

extern const NpErrNoDes g_astErrNoDes[NP_ERR_NO_DES_NUM];
