// The whole public interface of QELCore in one include.
#ifndef QELCORE_QELCORE_H
#define QELCORE_QELCORE_H

#include "qelcore/qelexport.h"

// pi: platform interface
#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/cdebugstderr.h"

#endif
