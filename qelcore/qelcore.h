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

// std: arrays, strings, pointers, containers and tokenizers
#include "qelcore/std/casciistring.h"
#include "qelcore/std/casciistringtokenizer.h"
#include "qelcore/std/cconstcstringref.h"
#include "qelcore/std/tabstractarrayproxy.h"
#include "qelcore/std/tabstractconstarrayproxy.h"
#include "qelcore/std/tarray.h"
#include "qelcore/std/tarrayasciistringtraits.h"
#include "qelcore/std/tarraybyteleveltraits.h"
#include "qelcore/std/tarrayreadops.h"
#include "qelcore/std/tarrayref.h"
#include "qelcore/std/tautoptr.h"
#include "qelcore/std/tautoptrref.h"
#include "qelcore/std/tautoptrtype.h"
#include "qelcore/std/tconstarrayref.h"
#include "qelcore/std/thash.h"
#include "qelcore/std/tlist.h"
#include "qelcore/std/tptrlist.h"
#include "qelcore/std/tptrvector.h"
#include "qelcore/std/tsharedobject.h"
#include "qelcore/std/tsharedobjectdata.h"
#include "qelcore/std/tstack.h"
#include "qelcore/std/ttokenizer.h"
#include "qelcore/std/tvector.h"

// ucs: Unicode strings and messages
#include "qelcore/ucs/clilocale.h"
#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/clitrtable.h"
#include "qelcore/ucs/cstring.h"
#include "qelcore/ucs/cutf8stringtokenizer.h"

// std: time values and calendar types
#include "qelcore/std/cdate.h"
#include "qelcore/std/cdatetime.h"
#include "qelcore/std/ctime.h"

// ucs: encoders and decoders
#include "qelcore/ucs/cabstractendec.h"
#include "qelcore/ucs/cendecutf16.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/cucsexceptions.h"

// std: build information
#include "qelcore/std/cbuildinfo.h"

// sa: archives
#include "qelcore/sa/cabstractcontextdata.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/cabstracttypereference.h"
#include "qelcore/sa/ccontext.h"
#include "qelcore/sa/ccontextref.h"
#include "qelcore/sa/cpositionguard.h"
#include "qelcore/sa/cdeserializebinary.h"
#include "qelcore/sa/clabeledtypemissmatchexception.h"
#include "qelcore/sa/creferenceframe.h"
#include "qelcore/sa/csaexceptionfactory.h"
#include "qelcore/sa/csaexceptions.h"
#include "qelcore/sa/cserializebinary.h"
#include "qelcore/sa/cserializebinaryshared.h"
#include "qelcore/sa/cserializedebug.h"
#include "qelcore/sa/cserializetotypestring.h"
#include "qelcore/sa/ctypereference.h"
#include "qelcore/sa/pitypes.h"

// rmi: signals and slots
#include "qelcore/rmi/cabstractrmifactory.h"
#include "qelcore/rmi/cabstractsignal.h"
#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/rmi/cabstractslotcalln.h"
#include "qelcore/rmi/ccallparametermissmatchexception.h"
#include "qelcore/rmi/cconnectable.h"
#include "qelcore/rmi/cdirectlocalslotcalln.h"
#include "qelcore/rmi/cindirectlazyslotcalln.h"
#include "qelcore/rmi/cindirectresolvingslotcalln.h"
#include "qelcore/rmi/cnosuchsignalexception.h"
#include "qelcore/rmi/cnosuchslotexception.h"
#include "qelcore/rmi/cpublicsignal.h"
#include "qelcore/rmi/cpublicslot.h"
#include "qelcore/rmi/crmiexceptionfactory.h"
#include "qelcore/rmi/crmiexceptions.h"
#include "qelcore/rmi/cssvalue.h"
#include "qelcore/rmi/cunconnectedsignalexception.h"
#include "qelcore/rmi/localsignaln.h"
#include "qelcore/rmi/signal0.h"
#include "qelcore/rmi/ttypestring.h"

#endif
