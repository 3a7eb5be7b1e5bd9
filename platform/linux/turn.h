/* Who is inside the SDK: what the files of ldsdk_arm share. */
#pragma once

#include <linux/types.h>

/* The turn of one command. 0, or -EINTR for a process that is killed while it waits. */
int turn_command_begin(void);
void turn_command_end(void);
/* Whether a command is under way and this is its process, outside of interrupts. */
bool turn_is_command(void);
/* At unload. */
void turn_end(void);
