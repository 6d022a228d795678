/// \class qstd::cRuntimeException
/// Bad input or a failed operation: a condition the program must expect.
#ifndef QELCORE_STD_CRUNTIMEEXCEPTION_H
#define QELCORE_STD_CRUNTIMEEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/texception.h"
#include "qelcore/ucs/climessage.h"

namespace qstd {

class QEL_EXPORT cRuntimeException : public tException<cRuntimeException, cAbstractException> {
public:
  /// "cRuntimeException", the name in the exception registry.
  static const char* staticTypeName() { return "cRuntimeException"; }

  /// File "unknown", line 0, no message.
  cRuntimeException();
  /// `msg`, raised at `file`:`line`.
  cRuntimeException(const qucs::cLIMessage& msg, const char* file, unsigned int line);

  /// The message.
  const qucs::cLIMessage* liMessage() const override;
  /// The base's fields, then the message.
  void store(qsa::cAbstractSerializer& s) const override;
  void load(qsa::cAbstractDeserializer& d) override;

protected:
  /// Replaces the message (for derived classes that build theirs late).
  void setMsg(const qucs::cLIMessage& msg);

private:
  qucs::cLIMessage mMessage;
};

}  // namespace qstd

#endif
