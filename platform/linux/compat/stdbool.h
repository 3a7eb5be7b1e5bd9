/* The kernel keeps these names in a header of its own. */
#include <linux/types.h>
