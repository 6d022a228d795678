/// \class qp::cBasicProcessData
/// The process data that a default-constructed process keeps for itself.
#ifndef QELCORE_QP_CBASICPROCESSDATA_H
#define QELCORE_QP_CBASICPROCESSDATA_H

#include "qelcore/qelexport.h"
#include "qelcore/qp/cabstractprocessdata.h"

namespace qp {

class QEL_EXPORT cBasicProcessData : public cAbstractProcessData {
public:
  /// See cAbstractProcessData.
  explicit cBasicProcessData(cLocker* locker = nullptr) : cAbstractProcessData(locker) {}
  ~cBasicProcessData() override;
};

}  // namespace qp

#endif
