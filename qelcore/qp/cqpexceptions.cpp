#include "qelcore/qp/cqpexceptions.h"

#include "qelcore/std/cbugexception.h"
#include "qelcore/ucs/climessage.h"

namespace qp {

void cQPExceptions::throwProcessDataInUse(const char* file, unsigned int line) {
  throw qstd::cBugException(qucs::cLIMessage("$QTR$Never use process data for more than one process!"), file, line);
}

}  // namespace qp
