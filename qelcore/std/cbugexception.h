// A violated precondition or broken invariant: a programming error.
#ifndef QELCORE_STD_CBUGEXCEPTION_H
#define QELCORE_STD_CBUGEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/cabstractexception.h"
#include "qelcore/ucs/climessage.h"

namespace qstd {

class QEL_EXPORT cBugException : public cAbstractException {
public:
  cBugException();
  cBugException(const qucs::cLIMessage& msg, const char* file, unsigned int line);
  cBugException(const cBugException& other);
  cBugException& operator=(const cBugException& other);
  ~cBugException() override;
  void swap(cBugException& other);

  cAbstractException* createObject() const override;
  cAbstractException* clone() const override;
  cAsciiString typeName() const override;
  const qucs::cLIMessage* liMessage() const override;
  // The base's fields, then the message.
  void store(qsa::cAbstractSerializer& s) const override;
  void load(qsa::cAbstractDeserializer& d) override;

  // Same as cSTDExceptions::throwAssertionFailed.
  [[noreturn]] static void throwAssertionFailed(const char* expr, const char* file, unsigned int line);

protected:
  void setMsg(const qucs::cLIMessage& msg);

private:
  qucs::cLIMessage mMessage;
};

}  // namespace qstd

#endif
