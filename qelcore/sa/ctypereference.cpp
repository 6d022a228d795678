#include "qelcore/sa/ctypereference.h"

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qsa {

cAbstractTypeReference::~cAbstractTypeReference() {}

cTypeReference::~cTypeReference() {}

const char* cTypeReference::typeName() const { return mpInfo ? mpInfo->mpName : "invalid"; }

void cTypeReference::store(cAbstractSerializer& s) const {
  if (!mpInfo) throwMissmatch("value", false);
  mpInfo->mpStore(mpValue, s);
}

void cTypeReference::load(cAbstractDeserializer& d) {
  if (!mpInfo || mbConst) throwMissmatch(mpInfo ? mpInfo->mpName : "value", true);
  mpInfo->mpLoad(mpValue, d);
}

void cTypeReference::throwMissmatch(const char* pExpected, bool bWritable) const {
  qstd::cAsciiString got;
  if (!mpInfo) {
    got = "invalid";
  } else {
    if (mbConst) got = "const ";
    got += mpInfo->mpName;
  }
  qstd::cAsciiString expected(pExpected);
  if (!bWritable) expected = qstd::cAsciiString("const ") + expected;
  qstd::cSTDExceptions::throwTypeMissmatch(expected, got);
}

}  // namespace qsa
