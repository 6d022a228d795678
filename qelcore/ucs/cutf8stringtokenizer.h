/// \class qucs::cUTF8StringTokenizer
/// Splits a cString into tokens by separator and key-token characters (rules
/// as tTokenizer; works on code points, so any Unicode character may serve as
/// separator). Keeps its own copy of the text.
///
/// \code
///   cUTF8StringTokenizer tok(cString("a, b;c"), cString(", "), cString(";"));
///   while (tok.hasMoreTokens()) { cString t = tok.nextToken(); ... }
/// \endcode
#ifndef QELCORE_UCS_CUTF8STRINGTOKENIZER_H
#define QELCORE_UCS_CUTF8STRINGTOKENIZER_H

#include "qelcore/qelexport.h"
#include "qelcore/std/ttokenizer.h"
#include "qelcore/std/tvector.h"
#include "qelcore/ucs/cstring.h"

namespace qucs {

class QEL_EXPORT cUTF8StringTokenizer {
public:
  /// `separators` and `keyTokens` are sets of characters.
  cUTF8StringTokenizer(const cString& text, const cString& separators = cString(" "),
                       const cString& keyTokens = cString(), bool emptyTokens = false);
  ///@{
  /// The same text, sets and position.
  cUTF8StringTokenizer(const cUTF8StringTokenizer& other);
  cUTF8StringTokenizer& operator=(const cUTF8StringTokenizer& other);
  ///@}
  ~cUTF8StringTokenizer();

  /// Whether nextToken() has one more.
  bool hasMoreTokens() const;
  /// The next token; none left throws cBugException (element not found).
  cString nextToken();
  /// The next token into `token`; false (and `token` unchanged) at the end.
  bool nextToken(cString& token);
  /// Whether the token returned last was a key token.
  bool lastWasKeyToken() const { return mbLastWasKey; }
  /// Where the token returned last started in the text.
  unsigned int lastTokenStart() const { return miLastStart; }
  /// How many tokens are left, without moving on.
  unsigned int countTokens() const;
  /// Back to the start of the text.
  void reset();
  /// All tokens from the current position on.
  qstd::tVector<cString> remainingTokens();
  /// The text being split.
  const cString& text() const { return mText; }

private:
  cString mText;
  qstd::tTokenizer<unsigned int> mTokenizer;
  bool mbLastWasKey;
  unsigned int miLastStart;
};

}  // namespace qucs

#endif
