/// \class qstd::tTokenizer
/// Splits a run of elements into tokens. Separators end tokens and are never
/// part of one; key tokens end tokens too and are returned as tokens of their
/// own (each key element alone). With "." as separator and ":" as key token,
/// "10.0.0.1:80" gives 10, 0, 0, 1, :, 80.
///
/// By default runs of separators count as one and no empty tokens occur.
/// With empty tokens on, every separator ends a field, and a field with
/// nothing in it is returned as one empty token: "1..2" gives 1, "", 2.
///
/// The tokenizer does not own the text; it must stay alive and unchanged.
#ifndef QELCORE_STD_TTOKENIZER_H
#define QELCORE_STD_TTOKENIZER_H

#include "qelcore/std/tarray.h"

namespace qstd {

template <typename C>
class tTokenizer {
public:
  /// Splits the `length` characters at `text` (not copied) at the separators; key tokens are tokens of their own; with `emptyTokens` two separators in a row give an empty token.
  tTokenizer(const C* text, unsigned int length, const C* separators, unsigned int separatorCount,
             const C* keyTokens = nullptr, unsigned int keyTokenCount = 0, bool emptyTokens = false)
      : mpText(text),
        miLength(length),
        mSeparators(separators, separatorCount),
        mKeyTokens(keyTokens, keyTokenCount),
        mbEmptyTokens(emptyTokens) {
    reset();
  }

  /// Scans `text` from now on (same length, same position): for owners that
  /// move their copy of the text.
  void rebind(const C* text) { mpText = text; }

  /// Back to the first token.
  void reset() {
    miPos = 0;
    mbFieldHasToken = false;
    mbDone = false;
  }

  /// The next token as start and length in the text; false when there is none
  /// left. `isKey` tells a key token from an ordinary one.
  bool next(unsigned int& start, unsigned int& length, bool& isKey) {
    return mbEmptyTokens ? nextWithEmpty(start, length, isKey) : nextSkipping(start, length, isKey);
  }
  /// The same without telling key tokens apart.
  bool next(unsigned int& start, unsigned int& length) {
    bool isKey = false;
    return next(start, length, isKey);
  }
  /// Whether next() has one more.
  bool hasMoreTokens() const {
    tTokenizer probe(*this);
    unsigned int start = 0;
    unsigned int length = 0;
    return probe.next(start, length);
  }
  /// Tokens left from the current position on.
  unsigned int countTokens() const {
    tTokenizer probe(*this);
    unsigned int start = 0;
    unsigned int length = 0;
    unsigned int n = 0;
    while (probe.next(start, length)) {
      ++n;
    }
    return n;
  }
  /// Where scanning goes on.
  unsigned int position() const { return miPos; }

  ///@{
  /// Whether `c` is one of the separators / key tokens.
  bool isSeparator(C c) const { return contains(mSeparators, c); }
  bool isKeyToken(C c) const { return contains(mKeyTokens, c); }
  ///@}

private:
  static bool contains(const tArray<C>& set, C c) {
    for (unsigned int i = 0; i < set.size(); ++i) {
      if (set[i] == c) {
        return true;
      }
    }
    return false;
  }

  bool nextSkipping(unsigned int& start, unsigned int& length, bool& isKey) {
    while (miPos < miLength && isSeparator(mpText[miPos])) {
      ++miPos;
    }
    if (miPos == miLength) {
      return false;
    }
    return takeToken(start, length, isKey);
  }

  bool nextWithEmpty(unsigned int& start, unsigned int& length, bool& isKey) {
    while (!mbDone) {
      if (miPos < miLength && !isSeparator(mpText[miPos])) {
        mbFieldHasToken = true;
        return takeToken(start, length, isKey);
      }
      // A separator or the end closes the field.
      const bool emptyField = !mbFieldHasToken;
      start = miPos;
      if (miPos == miLength) {
        mbDone = true;
      } else {
        ++miPos;
      }
      mbFieldHasToken = false;
      if (emptyField) {
        length = 0;
        isKey = false;
        return true;
      }
    }
    return false;
  }

  /// A key token or a run up to the next separator or key token.
  bool takeToken(unsigned int& start, unsigned int& length, bool& isKey) {
    start = miPos;
    if (isKeyToken(mpText[miPos])) {
      ++miPos;
      length = 1;
      isKey = true;
      return true;
    }
    while (miPos < miLength && !isSeparator(mpText[miPos]) && !isKeyToken(mpText[miPos])) {
      ++miPos;
    }
    length = miPos - start;
    isKey = false;
    return true;
  }

  const C* mpText;
  unsigned int miLength;
  tArray<C> mSeparators;
  tArray<C> mKeyTokens;
  bool mbEmptyTokens;
  unsigned int miPos;
  bool mbFieldHasToken;
  bool mbDone;
};

}  // namespace qstd

#endif
