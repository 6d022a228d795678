#include "qelcore/rmi/cpublicsignal.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/cstdexceptions.h"

namespace qrmi {

cPublicSignal::cPublicSignal(const qstd::cAsciiString& name, const qstd::cAsciiString& returnTypeName,
                             const qstd::cAsciiString& paramTypeNames, const qstd::cAsciiString& description,
                             cAbstractSignal::InterfaceType type, cAbstractSignal& signal)
    : msName(name),
      msReturnTypeName(returnTypeName),
      msParamTypeNames(paramTypeNames),
      msDescription(description),
      meType(type),
      mpSignal(&signal),
      mpOwnedSignal(nullptr),
      mpOwner(nullptr) {}

cPublicSignal::cPublicSignal(qsa::cAbstractDeserializer& in)
    : meType(cAbstractSignal::eProvidedInterface), mpSignal(nullptr), mpOwnedSignal(nullptr), mpOwner(nullptr) {
  *this << in;
}

void cPublicSignal::adoptSignal(qstd::tAutoPtr<cAbstractSignal> signal) {
  if (mpSignal && mpSignal->isPublicSignal() == this) mpSignal->setPublicSignal(nullptr);
  delete mpOwnedSignal;
  mpOwnedSignal = signal.release();
  mpSignal = mpOwnedSignal;
}

cPublicSignal::~cPublicSignal() {
  // The signal outlives its description only as a signal no longer public.
  if (mpSignal && mpSignal->isPublicSignal() == this) mpSignal->setPublicSignal(nullptr);
  delete mpOwnedSignal;
}

cSSValue& cPublicSignal::addParameter() {
  mvParameters.push_back(cSSValue());
  return mvParameters.back();
}

qsa::cAbstractSerializer& cPublicSignal::operator>>(qsa::cAbstractSerializer& out) const {
  qsa::cPositionGuard guard(out);
  out.store(msName);
  out.store(msReturnTypeName);
  out.store(msParamTypeNames);
  out.store(msDescription);
  out.store(static_cast<unsigned int>(meType));
  out.store(static_cast<unsigned int>(mvParameters.size()));
  for (const cSSValue& p : mvParameters) p >> out;
  mReturnValue >> out;
  guard.commit();
  return out;
}

qsa::cAbstractDeserializer& cPublicSignal::operator<<(qsa::cAbstractDeserializer& in) {
  qsa::cPositionGuard guard(in);
  qstd::cAsciiString name, returnTypeName, paramTypeNames, description;
  unsigned int type = 0, count = 0;
  in.load(name);
  in.load(returnTypeName);
  in.load(paramTypeNames);
  in.load(description);
  in.load(type);
  if (type > cAbstractSignal::eRequiredInterface)
    qstd::cSTDExceptions::throwOutOfRange("cPublicSignal", "operator<<", qstd::OutOfRangeValue, type,
                                          cAbstractSignal::eProvidedInterface, cAbstractSignal::eRequiredInterface);
  in.load(count);
  tParameters parameters;
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
  meType = static_cast<cAbstractSignal::InterfaceType>(type);
  mvParameters.swap(parameters);
  mReturnValue = returnValue;
  return in;
}

}  // namespace qrmi
