#include "qelcore/sa/cabstractcontextdata.h"

namespace qsa {

cAbstractContextData::~cAbstractContextData() {}

}  // namespace qsa
