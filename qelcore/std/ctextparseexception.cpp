#include "qelcore/std/ctextparseexception.h"

namespace qstd {

cTextParseException::cTextParseException(const qucs::cLIMessage& msg, const cAsciiString& format, unsigned int row,
                                         unsigned int column, const char* file, unsigned int line)
    : tException(msg, file, line), mFormat(format), miRow(row), miColumn(column) {}

cTextParseException::cTextParseException(const qucs::cLIMessage& msg, const cAsciiString& format,
                                         const qucs::cString& fileName, unsigned int row, unsigned int column,
                                         const char* file, unsigned int line)
    : tException(msg, file, line), mFormat(format), mFileName(fileName), miRow(row), miColumn(column) {}

}  // namespace qstd
