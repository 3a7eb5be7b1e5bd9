/* The hooks that example_board keeps for a sibling. */
#ifndef EXAMPLE_BOARD_H
#define EXAMPLE_BOARD_H

#include <ldsdk/types.h>

void example_delay(uint32_t ulA, uint32_t ulB, uint32_t ulC);
void example_watchdog(void);
void example_record_error(uint32_t ulErrCode, uint32_t ulErrInfo);

#endif
