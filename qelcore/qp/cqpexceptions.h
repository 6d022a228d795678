/// \class qp::cQPExceptions
/// The throw functions of the process subsystem.
#ifndef QELCORE_QP_CQPEXCEPTIONS_H
#define QELCORE_QP_CQPEXCEPTIONS_H

#include "qelcore/qelexport.h"

namespace qp {

class QEL_EXPORT cQPExceptions {
public:
  /// cBugException "Never use process data for more than one process!".
  [[noreturn]] static void throwProcessDataInUse(const char* file, unsigned int line);
};

}  // namespace qp

#endif
