/// \class qce::cNetAbstractIPCapInfo
/// A marker of IP capabilities; socket implementations derive their
/// capability descriptions from it.
#ifndef QELCORE_QCE_NET_CNETABSTRACTIPCAPINFO_H
#define QELCORE_QCE_NET_CNETABSTRACTIPCAPINFO_H

#include "qelcore/qelexport.h"

namespace qce {

class QEL_EXPORT cNetAbstractIPCapInfo {
public:
  virtual ~cNetAbstractIPCapInfo();
};

}  // namespace qce

#endif
