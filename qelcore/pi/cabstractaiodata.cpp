#include "qelcore/pi/cabstractaiodata.h"

#include "qelcore/pi/cpiexceptions.h"

namespace qpi {

cAbstractAIOData::~cAbstractAIOData() {}

cFDAIOData* cAbstractAIOData::isFDAIOData() { return nullptr; }

cFDAIOData& cAbstractAIOData::fdAIOData() {
  cFDAIOData* data = isFDAIOData();
  if (!data) cPIExceptions::throwNoFdAIOData(__FILE__, __LINE__);
  return *data;
}

}  // namespace qpi
