/// \class qstd::cBugException
/// A violated precondition or broken invariant: a programming error.
#ifndef QELCORE_STD_CBUGEXCEPTION_H
#define QELCORE_STD_CBUGEXCEPTION_H

#include "qelcore/qelexport.h"
#include "qelcore/std/texception.h"
#include "qelcore/ucs/climessage.h"

namespace qstd {

class QEL_EXPORT cBugException : public tException<cBugException, cAbstractException> {
public:
  /// "cBugException", the name in the exception registry.
  static const char* staticTypeName() { return "cBugException"; }

  /// File "unknown", line 0, no message.
  cBugException();
  /// `msg`, raised at `file`:`line`.
  cBugException(const qucs::cLIMessage& msg, const char* file, unsigned int line);

  /// The message.
  const qucs::cLIMessage* liMessage() const override;
  /// The base's fields, then the message.
  void store(qsa::cAbstractSerializer& s) const override;
  void load(qsa::cAbstractDeserializer& d) override;

  /// Same as cSTDExceptions::throwAssertionFailed.
  [[noreturn]] static void throwAssertionFailed(const char* expr, const char* file, unsigned int line);

protected:
  /// Replaces the message (for derived classes that build theirs late).
  void setMsg(const qucs::cLIMessage& msg);

private:
  qucs::cLIMessage mMessage;
};

}  // namespace qstd

#endif
