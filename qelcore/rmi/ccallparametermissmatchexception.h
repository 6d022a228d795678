// The arguments or the result of an indirect slot call did not fit the slot.
#ifndef QELCORE_RMI_CCALLPARAMETERMISSMATCHEXCEPTION_H
#define QELCORE_RMI_CCALLPARAMETERMISSMATCHEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cbugexception.h"

namespace qrmi {

class QEL_EXPORT cCallParameterMissmatchException : public qstd::cBugException {
public:
  cCallParameterMissmatchException();
  cCallParameterMissmatchException(const qucs::cLIMessage& msg, const qstd::cAsciiString& slotName, const char* file,
                                   unsigned int line);
  cCallParameterMissmatchException(const cCallParameterMissmatchException& other);
  cCallParameterMissmatchException& operator=(const cCallParameterMissmatchException& other);
  ~cCallParameterMissmatchException() override;
  void swap(cCallParameterMissmatchException& other);

  qstd::cAbstractException* createObject() const override;
  qstd::cAbstractException* clone() const override;
  qstd::cAsciiString typeName() const override;
  const qstd::cAsciiString& slotName() const { return msSlot; }

private:
  qstd::cAsciiString msSlot;
};

}  // namespace qrmi

#endif
