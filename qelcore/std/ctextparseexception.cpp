#include "qelcore/std/ctextparseexception.h"

#include <utility>

namespace qstd {

cTextParseException::cTextParseException() : miRow(0), miColumn(0) {}

cTextParseException::cTextParseException(const qucs::cLIMessage& msg, const cAsciiString& format, unsigned int row,
                                         unsigned int column)
    : mFormat(format), miRow(row), miColumn(column) {
  setMsg(msg);
}

cTextParseException::cTextParseException(const qucs::cLIMessage& msg, const cAsciiString& format,
                                         const qucs::cString& file, unsigned int row, unsigned int column)
    : mFormat(format), mFileName(file), miRow(row), miColumn(column) {
  setMsg(msg);
}

cTextParseException::cTextParseException(const cTextParseException& other)
    : cRuntimeException(other),
      mFormat(other.mFormat),
      mFileName(other.mFileName),
      miRow(other.miRow),
      miColumn(other.miColumn) {}

cTextParseException& cTextParseException::operator=(const cTextParseException& other) {
  if (this != &other) {
    cTextParseException copy(other);
    swap(copy);
  }
  return *this;
}

cTextParseException::~cTextParseException() {}

void cTextParseException::swap(cTextParseException& other) {
  cRuntimeException::swap(other);
  mFormat.swap(other.mFormat);
  mFileName.swap(other.mFileName);
  std::swap(miRow, other.miRow);
  std::swap(miColumn, other.miColumn);
}

cAbstractException* cTextParseException::createObject() const { return new cTextParseException; }
cAbstractException* cTextParseException::clone() const { return new cTextParseException(*this); }
cAsciiString cTextParseException::typeName() const { return cAsciiString("cTextParseException"); }

}  // namespace qstd
