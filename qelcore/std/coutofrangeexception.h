// A value, index or size outside its allowed range.
#ifndef QELCORE_STD_COUTOFRANGEEXCEPTION_H
#define QELCORE_STD_COUTOFRANGEEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"
#include "qelcore/std/cstdexceptions.h"

namespace qstd {

class QEL_EXPORT cOutOfRangeException : public cBugException {
public:
  typedef qstd::OutOfRangeType OutOfRangeType;

  cOutOfRangeException();
  // Null names become "unknown".
  cOutOfRangeException(const char* container, const char* operation, OutOfRangeType type, long long value,
                       long long min, long long max);
  cOutOfRangeException(const cOutOfRangeException& other);
  cOutOfRangeException& operator=(const cOutOfRangeException& other);
  ~cOutOfRangeException() override;
  void swap(cOutOfRangeException& other);

  cAbstractException* createObject() const override;
  cAbstractException* clone() const override;
  cAsciiString typeName() const override;

  const cAsciiString& container() const { return mContainer; }
  const cAsciiString& operation() const { return mOperation; }
  OutOfRangeType outOfRangeType() const { return meType; }
  long long errornousValue() const { return miValue; }
  long long minValue() const { return miMin; }
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
