// A range whose end does not fit the index type (index + count overflows).
#ifndef QELCORE_STD_COUTOFBOUNDSEXCEPTION_H
#define QELCORE_STD_COUTOFBOUNDSEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

namespace qstd {

class QEL_EXPORT cOutOfBoundsException : public cBugException {
public:
  cOutOfBoundsException();
  // Either name may be null; the message names what is given.
  cOutOfBoundsException(const char* container, const char* operation);
  cOutOfBoundsException(const cOutOfBoundsException& other);
  cOutOfBoundsException& operator=(const cOutOfBoundsException& other);
  ~cOutOfBoundsException() override;
  void swap(cOutOfBoundsException& other);

  cAbstractException* createObject() const override;
  cAbstractException* clone() const override;
  cAsciiString typeName() const override;

  const cAsciiString& container() const { return mContainer; }
  const cAsciiString& operation() const { return mOperation; }

private:
  cAsciiString mContainer;
  cAsciiString mOperation;
};

}  // namespace qstd

#endif
