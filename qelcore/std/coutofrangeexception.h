/// \class qstd::cOutOfRangeException
/// A value, index or size outside its allowed range.
#ifndef QELCORE_STD_COUTOFRANGEEXCEPTION_H
#define QELCORE_STD_COUTOFRANGEEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cstdexceptions.h"

namespace qstd {

class QEL_EXPORT cOutOfRangeException : public tException<cOutOfRangeException, cBugException> {
public:
  /// What was out of range: an index, a value or a size.
  typedef qstd::OutOfRangeType OutOfRangeType;
  /// "cOutOfRangeException", the name in the exception registry.
  static const char* staticTypeName() { return "cOutOfRangeException"; }

  cOutOfRangeException() : meType(OutOfRangeIndex), miValue(0), miMin(0), miMax(0) {}
  /// Null names become "unknown". Every kind is reported with the index text
  /// (existing translations depend on it); the kind stays available through
  /// outOfRangeType().
  cOutOfRangeException(const char* container, const char* operation, OutOfRangeType type, long long value,
                       long long min, long long max, const char* file = "unknown", unsigned int line = 0);

  /// The container class.
  const cAsciiString& container() const { return mContainer; }
  /// The operation that failed.
  const cAsciiString& operation() const { return mOperation; }
  /// What was out of range.
  OutOfRangeType outOfRangeType() const { return meType; }
  /// The value given.
  long long errornousValue() const { return miValue; }
  /// The smallest allowed.
  long long minValue() const { return miMin; }
  /// The largest allowed.
  long long maxValue() const { return miMax; }

private:
  cAsciiString mContainer;
  cAsciiString mOperation;
  OutOfRangeType meType;
  long long miValue;
  long long miMin;
  long long miMax;
};

}  // namespace qstd

#endif
