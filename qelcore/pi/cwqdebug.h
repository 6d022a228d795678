/// \class qpi::cWqDebug
/// The works of a queue as a graph in the dot language, one node per work
/// (its kind, name, timing and flags) and an edge from each parent to the
/// works added while it ran.
///
/// \code
///   qstd::cAsciiString graph = qpi::cWqDebug::dot(&queue);   // null: the main queue
///   // write it to works.dot, then: dot -Tpng works.dot -o works.png
/// \endcode
#ifndef QELCORE_PI_CWQDEBUG_H
#define QELCORE_PI_CWQDEBUG_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"

namespace qpi {

class cWorkQueue;

class QEL_EXPORT cWqDebug {
public:
  cWqDebug() = delete;
  /// A null queue means the system's main work queue.
  static qstd::cAsciiString dot(cWorkQueue* wq);
};

}  // namespace qpi

#endif
