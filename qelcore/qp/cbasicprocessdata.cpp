#include "qelcore/qp/cbasicprocessdata.h"

namespace qp {

cBasicProcessData::~cBasicProcessData() {}

}  // namespace qp
