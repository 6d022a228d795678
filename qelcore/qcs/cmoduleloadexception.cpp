#include "qelcore/qcs/cmoduleloadexception.h"

namespace qcs {

cModuleLoadException::cModuleLoadException(KindOfProblem problem, const qucs::cString& fileName,
                                           const qucs::cLIMessage& msg, const char* file, unsigned int line)
    : tException(msg, file, line), meProblem(problem), mFileName(fileName) {}

}  // namespace qcs
