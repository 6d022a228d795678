// Malformed text in a file or stream of a named format.
#ifndef QELCORE_STD_CTEXTPARSEEXCEPTION_H
#define QELCORE_STD_CTEXTPARSEEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

class QEL_EXPORT cTextParseException : public tException<cTextParseException, cRuntimeException> {
public:
  static const char* staticTypeName() { return "cTextParseException"; }

  cTextParseException() : miRow(0), miColumn(0) {}
  cTextParseException(const qucs::cLIMessage& msg, const cAsciiString& format, unsigned int row, unsigned int column,
                      const char* file = "unknown", unsigned int line = 0);
  cTextParseException(const qucs::cLIMessage& msg, const cAsciiString& format, const qucs::cString& fileName,
                      unsigned int row, unsigned int column, const char* file = "unknown", unsigned int line = 0);

  const cAsciiString& format() const { return mFormat; }
  const qucs::cString& fileName() const { return mFileName; }
  unsigned int row() const { return miRow; }
  unsigned int column() const { return miColumn; }

private:
  cAsciiString mFormat;
  qucs::cString mFileName;
  unsigned int miRow;
  unsigned int miColumn;
};

}  // namespace qstd

#endif
