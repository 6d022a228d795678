#include "qelcore/qp/csynchronizable.h"

namespace qp {

cSynchronizable::~cSynchronizable() {}

}  // namespace qp
