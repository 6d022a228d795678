#include "qelcore/std/casciistringtokenizer.h"

#include <cstring>

namespace qstd {

namespace {
unsigned int lengthOf(const char* set) { return set == nullptr ? 0 : static_cast<unsigned int>(std::strlen(set)); }
}  // namespace

cAsciiStringTokenizer::cAsciiStringTokenizer(const cAsciiString& text, const char* separators, const char* keyTokens,
                                             bool emptyTokens)
    : mText(text),
      mTokenizer(mText.c_str(), mText.size(), separators, lengthOf(separators), keyTokens, lengthOf(keyTokens),
                 emptyTokens),
      mbLastWasKey(false),
      miLastStart(0) {}

// The inner tokenizer points into mText: copies point into their own text.
cAsciiStringTokenizer::cAsciiStringTokenizer(const cAsciiStringTokenizer& other)
    : mText(other.mText),
      mTokenizer(other.mTokenizer),
      mbLastWasKey(other.mbLastWasKey),
      miLastStart(other.miLastStart) {
  mTokenizer.rebind(mText.c_str());
}

cAsciiStringTokenizer& cAsciiStringTokenizer::operator=(const cAsciiStringTokenizer& other) {
  if (this != &other) {
    cAsciiString text(other.mText);
    tTokenizer<char> tokenizer(other.mTokenizer);
    mText.swap(text);
    mTokenizer = tokenizer;
    mTokenizer.rebind(mText.c_str());
    mbLastWasKey = other.mbLastWasKey;
    miLastStart = other.miLastStart;
  }
  return *this;
}

cAsciiStringTokenizer::~cAsciiStringTokenizer() {}

bool cAsciiStringTokenizer::hasMoreTokens() const { return mTokenizer.hasMoreTokens(); }

cAsciiString cAsciiStringTokenizer::nextToken() {
  cAsciiString token;
  if (!nextToken(token)) {
    mbLastWasKey = false;
    miLastStart = mText.size();
  }
  return token;
}

bool cAsciiStringTokenizer::nextToken(cAsciiString& token) {
  unsigned int start = 0;
  unsigned int length = 0;
  bool isKey = false;
  if (!mTokenizer.next(start, length, isKey)) {
    return false;
  }
  token.setData(mText.c_str() + start, length);
  mbLastWasKey = isKey;
  miLastStart = start;
  return true;
}

unsigned int cAsciiStringTokenizer::countTokens() const { return mTokenizer.countTokens(); }

void cAsciiStringTokenizer::reset() {
  mTokenizer.reset();
  mbLastWasKey = false;
  miLastStart = 0;
}

tVector<cAsciiString> cAsciiStringTokenizer::remainingTokens() {
  tVector<cAsciiString> tokens;
  cAsciiString token;
  while (nextToken(token)) {
    tokens.append(token);
  }
  return tokens;
}

}  // namespace qstd
