#include "qelcore/qce/cunsupportedextensionexception.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/ucs/climessage.h"

namespace qce {

cUnsupportedExtensionException::cUnsupportedExtensionException(const qstd::cAsciiString& className,
                                                               const qstd::cAsciiString& extensionName,
                                                               bool otherFound, const char* file, unsigned int line)
    : tException(qucs::cLIMessage("$QTR$Extension type \"%type%\" not supported in \"%extension%\"!")
                     << extensionName << className,
                 file, line),
      msClassName(className),
      msExtensionName(extensionName),
      mbOtherExtensionsFound(otherFound) {
  // The one text callers get, for both cases; the flag tells them apart.
  setMsg(qucs::cLIMessage("$QTR$No %s% of type \"%specialized%\" found!") << className << extensionName);
}

void cUnsupportedExtensionException::store(qsa::cAbstractSerializer& s) const {
  cBugException::store(s);
  msClassName >> s;
  msExtensionName >> s;
  mbOtherExtensionsFound >> s;
}

void cUnsupportedExtensionException::load(qsa::cAbstractDeserializer& d) {
  cUnsupportedExtensionException read(*this);
  read.cBugException::load(d);
  read.msClassName << d;
  read.msExtensionName << d;
  read.mbOtherExtensionsFound << d;
  swap(read);
}

}  // namespace qce
