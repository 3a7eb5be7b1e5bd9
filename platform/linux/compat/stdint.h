/* The kernel keeps these names in a header of its own. */
#include <linux/stddef.h>
#include <linux/types.h>
