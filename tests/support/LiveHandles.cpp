// The owner of handles as all of a test program has it, the libraries of the product included.

#include "tests/support/LiveHandles.h"

#include "platform/dialog/UniqueHandleInstances.h"
