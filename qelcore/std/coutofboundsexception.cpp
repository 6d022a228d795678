#include "qelcore/std/coutofboundsexception.h"

namespace qstd {

namespace {

qucs::cLIMessage boundsMessage(const char* container, const char* operation) {
  qucs::cLIMessage msg;
  if (container && operation)
    msg << "$QTR$Out of bounds condition detected in \"%container%\" while executing \"%operation%\"!" << container
        << operation;
  else if (container)
    msg << "$QTR$Out of bounds condition detected in \"%container%\"!" << container;
  else
    msg << "$QTR$Out of bounds condition detected!";
  return msg;
}

}  // namespace

cOutOfBoundsException::cOutOfBoundsException(const char* container, const char* operation, const char* file,
                                             unsigned int line)
    : tException(boundsMessage(container, operation), file, line),
      mContainer(container ? container : ""),
      mOperation(operation ? operation : "") {}

}  // namespace qstd
