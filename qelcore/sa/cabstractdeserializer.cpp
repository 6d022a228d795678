#include "qelcore/sa/cabstractdeserializer.h"

#include "qelcore/sa/creferenceframe.h"

namespace qsa {

cAbstractDeserializer::~cAbstractDeserializer() {}

void cAbstractDeserializer::load(short& value) {
  int v = 0;
  load(v);
  value = static_cast<short>(v & 0xFFFF);
}

void cAbstractDeserializer::load(unsigned short& value) {
  unsigned int v = 0;
  load(v);
  value = static_cast<unsigned short>(v & 0xFFFFu);
}

cAbstractDeserializer& operator<<(cReferenceFrame& frame, cAbstractDeserializer& d) {
  frame.load(d);
  return d;
}

}  // namespace qsa
