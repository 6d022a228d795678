#include "qelcore/rmi/cpublicslot.h"

#include "qelcore/rmi/cabstractslotcall.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qrmi {

cPublicSlot::cPublicSlot(const qstd::cAsciiString& name, const qstd::cAsciiString& returnTypeName,
                         const qstd::cAsciiString& paramTypeNames, const qstd::cAsciiString& description,
                         qstd::tAutoPtr<cAbstractSlotCall> slot)
    : msName(name),
      msReturnTypeName(returnTypeName),
      msParamTypeNames(paramTypeNames),
      msDescription(description),
      mpSlot(nullptr) {
  setSlot(slot);
}

cPublicSlot::cPublicSlot(qsa::cAbstractDeserializer& in) : mpSlot(nullptr) { *this << in; }

cPublicSlot::~cPublicSlot() { delete mpSlot; }

void cPublicSlot::setSlot(qstd::tAutoPtr<cAbstractSlotCall> slot) {
  delete mpSlot;
  mpSlot = slot.release();
  if (mpSlot) mpSlot->setPublicSlot(this);
}

cSSValue& cPublicSlot::addParameter() {
  mvParameters.push_back(cSSValue());
  return mvParameters.back();
}

qsa::cAbstractSerializer& cPublicSlot::operator>>(qsa::cAbstractSerializer& out) const {
  qsa::cPositionGuard guard(out);
  out.store(msName);
  out.store(msReturnTypeName);
  out.store(msParamTypeNames);
  out.store(msDescription);
  out.store(static_cast<unsigned int>(mvParameters.size()));
  for (const cSSValue& p : mvParameters) p >> out;
  mReturnValue >> out;
  guard.commit();
  return out;
}

qsa::cAbstractDeserializer& cPublicSlot::operator<<(qsa::cAbstractDeserializer& in) {
  qsa::cPositionGuard guard(in);
  qstd::cAsciiString name, returnTypeName, paramTypeNames, description;
  in.load(name);
  in.load(returnTypeName);
  in.load(paramTypeNames);
  in.load(description);
  unsigned int count = 0;
  in.load(count);
  tParameters parameters;
  // Every entry is read before it is kept: a forged count ends with the data.
  for (unsigned int i = 0; i < count; ++i) {
    cSSValue p;
    p << in;
    parameters.push_back(p);
  }
  cSSValue returnValue;
  returnValue << in;
  guard.commit();
  msName.swap(name);
  msReturnTypeName.swap(returnTypeName);
  msParamTypeNames.swap(paramTypeNames);
  msDescription.swap(description);
  mvParameters.swap(parameters);
  mReturnValue = returnValue;
  return in;
}

}  // namespace qrmi
