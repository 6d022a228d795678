#include "qelcore/qcs/cmoduleloadexception.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"

namespace qcs {

cModuleLoadException::cModuleLoadException(KindOfProblem problem, const qucs::cString& fileName,
                                           const qucs::cLIMessage& msg, const char* file, unsigned int line)
    : tException(msg, file, line), meProblem(problem), mFileName(fileName) {}

void cModuleLoadException::store(qsa::cAbstractSerializer& s) const {
  cRuntimeException::store(s);
  static_cast<unsigned int>(meProblem) >> s;
  mFileName >> s;
}

void cModuleLoadException::load(qsa::cAbstractDeserializer& d) {
  cModuleLoadException read(*this);
  read.cRuntimeException::load(d);
  unsigned int problem = 0;
  problem << d;
  read.meProblem = static_cast<KindOfProblem>(problem);
  read.mFileName << d;
  swap(read);
}

}  // namespace qcs
