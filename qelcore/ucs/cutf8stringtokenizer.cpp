#include "qelcore/ucs/cutf8stringtokenizer.h"

#include "qelcore/std/cstdexceptions.h"

namespace qucs {

cUTF8StringTokenizer::cUTF8StringTokenizer(const cString& text, const cString& separators, const cString& keyTokens,
                                           bool emptyTokens)
    : mText(text),
      mTokenizer(mText.data(true), mText.size(), separators.data(true), separators.size(), keyTokens.data(true),
                 keyTokens.size(), emptyTokens),
      mbLastWasKey(false),
      miLastStart(0) {}

// The inner tokenizer points into mText: copies point into their own text.
cUTF8StringTokenizer::cUTF8StringTokenizer(const cUTF8StringTokenizer& other)
    : mText(other.mText),
      mTokenizer(other.mTokenizer),
      mbLastWasKey(other.mbLastWasKey),
      miLastStart(other.miLastStart) {
  mTokenizer.rebind(mText.data(true));
}

cUTF8StringTokenizer& cUTF8StringTokenizer::operator=(const cUTF8StringTokenizer& other) {
  if (this != &other) {
    cString text(other.mText);
    qstd::tTokenizer<unsigned int> tokenizer(other.mTokenizer);
    mText.swap(text);
    mTokenizer = tokenizer;
    mTokenizer.rebind(mText.data(true));
    mbLastWasKey = other.mbLastWasKey;
    miLastStart = other.miLastStart;
  }
  return *this;
}

cUTF8StringTokenizer::~cUTF8StringTokenizer() {}

bool cUTF8StringTokenizer::hasMoreTokens() const { return mTokenizer.hasMoreTokens(); }

cString cUTF8StringTokenizer::nextToken() {
  cString token;
  if (!nextToken(token)) qstd::cSTDExceptions::throwElementNotFound("cUTF8StringTokenizer", "nextToken");
  return token;
}

bool cUTF8StringTokenizer::nextToken(cString& token) {
  unsigned int start = 0;
  unsigned int length = 0;
  bool isKey = false;
  if (!mTokenizer.next(start, length, isKey)) return false;
  cString result;
  result.append(mText.data(true) + start, length);
  token.swap(result);
  mbLastWasKey = isKey;
  miLastStart = start;
  return true;
}

unsigned int cUTF8StringTokenizer::countTokens() const { return mTokenizer.countTokens(); }

void cUTF8StringTokenizer::reset() {
  mTokenizer.reset();
  mbLastWasKey = false;
  miLastStart = 0;
}

qstd::tVector<cString> cUTF8StringTokenizer::remainingTokens() {
  qstd::tVector<cString> tokens;
  cString token;
  while (nextToken(token)) tokens.append(token);
  return tokens;
}

}  // namespace qucs
