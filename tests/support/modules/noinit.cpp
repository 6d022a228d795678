// A library that exports none of the sections.
#include "qelcore/qcs/cmodulesections.h"

QEL_MODULE_SECTION int notASection() { return 1; }
