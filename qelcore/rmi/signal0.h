/// \file
/// The typed signal and slot call templates in one include: local signals of
/// any arity (localSignal0 ... localSignal5, localSignalN), the direct slot
/// calls they create, and the slot calls that work through archives.
#ifndef QELCORE_RMI_SIGNAL0_H
#define QELCORE_RMI_SIGNAL0_H

#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/cdirectlocalslotcalln.h"
#include "qelcore/rmi/cindirectlazyslotcalln.h"
#include "qelcore/rmi/cindirectresolvingslotcalln.h"
#include "qelcore/rmi/localsignaln.h"

#endif
