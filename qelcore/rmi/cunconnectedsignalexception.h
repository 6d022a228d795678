// An emission found no slot while its signal must be connected.
#ifndef QELCORE_RMI_CUNCONNECTEDSIGNALEXCEPTION_H
#define QELCORE_RMI_CUNCONNECTEDSIGNALEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cruntimeexception.h"

namespace qrmi {

class QEL_EXPORT cUnconnectedSignalException : public qstd::cRuntimeException {
public:
  cUnconnectedSignalException();
  cUnconnectedSignalException(const qucs::cLIMessage& msg, const char* file, unsigned int line);
  cUnconnectedSignalException(const cUnconnectedSignalException& other);
  cUnconnectedSignalException& operator=(const cUnconnectedSignalException& other);
  ~cUnconnectedSignalException() override;
  void swap(cUnconnectedSignalException& other);

  qstd::cAbstractException* createObject() const override;
  qstd::cAbstractException* clone() const override;
  qstd::cAsciiString typeName() const override;
};

}  // namespace qrmi

#endif
