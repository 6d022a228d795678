#include "qelcore/std/cstdexceptionfactory.h"

#include <cstring>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cnumberconversionexception.h"
#include "qelcore/std/coserrorexception.h"
#include "qelcore/std/coutofboundsexception.h"
#include "qelcore/std/coutofrangeexception.h"
#include "qelcore/std/ctextparseexception.h"
#include "qelcore/std/ctypeerrorexception.h"
#include "qelcore/std/ctypemissmatchexception.h"

namespace qstd {

namespace {

template <typename E>
cAbstractException* create() {
  return new E;
}

const struct {
  const char* name;
  cAbstractException* (*create)();
} kClasses[] = {
    {"cBugException", create<cBugException>},
    {"cRuntimeException", create<cRuntimeException>},
    {"cOutOfBoundsException", create<cOutOfBoundsException>},
    {"cOutOfRangeException", create<cOutOfRangeException>},
    {"cOSErrorException", create<cOSErrorException>},
    {"cTextParseException", create<cTextParseException>},
    {"cTypeErrorException", create<cTypeErrorException>},
    {"cTypeMissmatchException", create<cTypeMissmatchException>},
    {"cNumberConversionException", create<cNumberConversionException>},
};

}  // namespace

cSTDExceptionFactory::~cSTDExceptionFactory() {}

cAbstractException* cSTDExceptionFactory::createException(const cAsciiString& typeName) const {
  for (const auto& c : kClasses)
    if (typeName.size() == std::strlen(c.name) && std::memcmp(typeName.c_str(), c.name, typeName.size()) == 0)
      return c.create();
  return nullptr;
}

}  // namespace qstd
