#include "qelcore/std/tsharedobjectdata.h"

#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/climessage.h"

namespace qstd {

void tSharedObjectData::release(tSharedObjectData* data) {
  if (data->dropReference()) destroy(data);
}

void tSharedObjectData::throwWrongSharedObjectDereference() {
  cSTDExceptions::throwBug(qucs::cLIMessage("$QTR$Invalid shared object dereference!"), __FILE__, __LINE__);
}

}  // namespace qstd
