/// \class qstd::cAsciiStringTokenizer
/// Splits a cAsciiString into tokens (rules as tTokenizer). Keeps its own
/// copy of the text, so it may be built from a temporary.
///
/// \code
///   cAsciiStringTokenizer tok("10.0.0.1:80", ".", ":");
///   while (tok.hasMoreTokens()) { cAsciiString t = tok.nextToken(); ... }
/// \endcode
#ifndef QELCORE_STD_CASCIISTRINGTOKENIZER_H
#define QELCORE_STD_CASCIISTRINGTOKENIZER_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/ttokenizer.h"
#include "qelcore/std/tvector.h"

namespace qstd {

class QEL_EXPORT cAsciiStringTokenizer {
public:
  /// `separators` and `keyTokens` are sets of characters (zero-terminated).
  cAsciiStringTokenizer(const cAsciiString& text, const char* separators = " ", const char* keyTokens = "",
                        bool emptyTokens = false);
  ///@{
  /// The same text, sets and position.
  cAsciiStringTokenizer(const cAsciiStringTokenizer& other);
  cAsciiStringTokenizer& operator=(const cAsciiStringTokenizer& other);
  ///@}
  ~cAsciiStringTokenizer();

  /// Whether nextToken() has one more.
  bool hasMoreTokens() const;
  /// The next token; an empty string when none is left, so that parsers can
  /// treat a missing part like an empty one.
  cAsciiString nextToken();
  /// The next token into `token`; false (and `token` unchanged) at the end.
  bool nextToken(cAsciiString& token);
  /// Whether the token returned last was a key token.
  bool lastWasKeyToken() const { return mbLastWasKey; }
  /// Where the token returned last started in the text.
  unsigned int lastTokenStart() const { return miLastStart; }
  /// How many tokens are left, without moving on.
  unsigned int countTokens() const;
  /// Back to the start of the text.
  void reset();
  /// All tokens from the current position on.
  tVector<cAsciiString> remainingTokens();
  /// The text being split.
  const cAsciiString& text() const { return mText; }

private:
  cAsciiString mText;
  tTokenizer<char> mTokenizer;
  bool mbLastWasKey;
  unsigned int miLastStart;
};

}  // namespace qstd

#endif
