// The whole public interface of QELCore in one include.
#ifndef QELCORE_QELCORE_H
#define QELCORE_QELCORE_H

#include "qelcore/qelexport.h"

// pi: platform interface
#include "qelcore/pi/cabstractout.h"
#include "qelcore/pi/cdebugstderr.h"

// std: exceptions and number conversion
#include "qelcore/std/cabstractexception.h"
#include "qelcore/std/cabstractexceptionfactory.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cnumberconversion.h"
#include "qelcore/std/cnumberconversionexception.h"
#include "qelcore/std/cnumberconversionformat.h"
#include "qelcore/std/coserrorexception.h"
#include "qelcore/std/coutofboundsexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/std/cstdexceptionfactory.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/ctextparseexception.h"
#include "qelcore/std/ctypeerrorexception.h"
#include "qelcore/std/ctypemissmatchexception.h"

// ucs: Unicode strings and messages
#include "qelcore/ucs/clilocale.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/clitrtable.h"
#include "qelcore/ucs/cstring.h"

#endif
