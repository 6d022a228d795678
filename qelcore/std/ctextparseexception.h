/// \class qstd::cTextParseException
/// Malformed text in a file or stream of a named format.
#ifndef QELCORE_STD_CTEXTPARSEEXCEPTION_H
#define QELCORE_STD_CTEXTPARSEEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"
#include "qelcore/ucs/cstring.h"

namespace qstd {

class QEL_EXPORT cTextParseException : public tException<cTextParseException, cRuntimeException> {
public:
  /// "cTextParseException", the name in the exception registry.
  static const char* staticTypeName() { return "cTextParseException"; }

  cTextParseException() : miRow(0), miColumn(0) {}
  /// `msg` about text of `format` at `row`:`column`.
  cTextParseException(const qucs::cLIMessage& msg, const cAsciiString& format, unsigned int row, unsigned int column,
                      const char* file = "unknown", unsigned int line = 0);
  /// The same in the file `fileName`.
  cTextParseException(const qucs::cLIMessage& msg, const cAsciiString& format, const qucs::cString& fileName,
                      unsigned int row, unsigned int column, const char* file = "unknown", unsigned int line = 0);

  /// The name of the format being read.
  const cAsciiString& format() const { return mFormat; }
  /// The file read; empty for text in memory.
  const qucs::cString& fileName() const { return mFileName; }
  /// The line of the fault.
  unsigned int row() const { return miRow; }
  /// The column of the fault.
  unsigned int column() const { return miColumn; }

private:
  cAsciiString mFormat;
  qucs::cString mFileName;
  unsigned int miRow;
  unsigned int miColumn;
};

}  // namespace qstd

#endif
