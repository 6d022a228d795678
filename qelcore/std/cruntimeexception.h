// Bad input or a failed operation: a condition the program must expect.
#ifndef QELCORE_STD_CRUNTIMEEXCEPTION_H
#define QELCORE_STD_CRUNTIMEEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/ucs/climessage.h"

namespace qstd {

class QEL_EXPORT cRuntimeException : public cAbstractException {
public:
  cRuntimeException();
  cRuntimeException(const qucs::cLIMessage& msg, const char* file, unsigned int line);
  cRuntimeException(const cRuntimeException& other);
  cRuntimeException& operator=(const cRuntimeException& other);
  ~cRuntimeException() override;
  void swap(cRuntimeException& other);

  cAbstractException* createObject() const override;
  cAbstractException* clone() const override;
  cAsciiString typeName() const override;
  const qucs::cLIMessage* liMessage() const override;
  // The base's fields, then the message.
  void store(qsa::cAbstractSerializer& s) const override;
  void load(qsa::cAbstractDeserializer& d) override;

protected:
  void setMsg(const qucs::cLIMessage& msg);

private:
  qucs::cLIMessage mMessage;
};

}  // namespace qstd

#endif
