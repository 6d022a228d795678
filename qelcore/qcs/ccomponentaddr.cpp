#include "qelcore/qcs/ccomponentaddr.h"

#include <cstring>
#include <utility>

#include "qelcore/qcs/cqcsexceptions.h"
#include "qelcore/qcs/detail/decimaltext.h"
#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/std/cruntimeexception.h"

namespace qcs {

cComponentAddr::cComponentAddr(const qstd::cAsciiString& text) : miModuleID(0), miQueueID(0), mbValid(false) {
  fromString(text);
}

void cComponentAddr::swap(cComponentAddr& other) {
  std::swap(miModuleID, other.miModuleID);
  std::swap(miQueueID, other.miQueueID);
  std::swap(mbValid, other.mbValid);
}

void cComponentAddr::appendTo(qstd::cAsciiString& out) const {
  char text[2 * detail::MaxUInt32Digits + 1];
  unsigned int n = detail::writeDecimal(miQueueID, text);
  text[n++] = ':';
  n += detail::writeDecimal(miModuleID, text + n);
  out.append(text, n);
}

qstd::cAsciiString cComponentAddr::toString() const {
  char text[2 * detail::MaxUInt32Digits + 1];
  unsigned int n = detail::writeDecimal(miQueueID, text);
  text[n++] = ':';
  n += detail::writeDecimal(miModuleID, text + n);
  return qstd::cAsciiString(text, n);
}

void cComponentAddr::fromString(const qstd::cAsciiString& text) { fromString(text.c_str(), text.size()); }

void cComponentAddr::fromString(const char* text, unsigned int length) {
  if (!text) length = 0;
  unsigned int queueID = 0;
  unsigned int moduleID = 0;
  try {
    const char* colon = length ? static_cast<const char*>(std::memchr(text, ':', length)) : nullptr;
    if (!colon || colon == text) {
      // A leading colon is the key where the queue id should be: the item
      // after it is then no colon either, or the empty queue id is refused.
      if (!colon || length < 2 || text[1] != ':') cQCSExceptions::throwExpectingColon();
    }
    const unsigned int queueLength = static_cast<unsigned int>(colon - text);
    detail::readDecimal(text, queueLength, queueID);
    detail::readDecimal(colon + 1, length - queueLength - 1, moduleID);
  } catch (const qstd::cRuntimeException& cause) {
    cQCSExceptions::throwMalformedComponentAddress(qstd::cAsciiString(text, length), cause);
  }
  miQueueID = queueID;
  miModuleID = moduleID;
  mbValid = true;
}

qsa::cAbstractSerializer& cComponentAddr::operator>>(qsa::cAbstractSerializer& s) const {
  if (s.noLabelsPreferred()) {
    miModuleID >> s;
    miQueueID >> s;
  } else {
    miModuleID >> s.newLabel("ID");
    miQueueID >> s.newLabel("Queue");
  }
  return s;
}

qsa::cAbstractDeserializer& cComponentAddr::operator<<(qsa::cAbstractDeserializer& d) {
  unsigned int moduleID = 0;
  unsigned int queueID = 0;
  moduleID << d;
  queueID << d;
  miModuleID = moduleID;
  miQueueID = queueID;
  mbValid = true;
  return d;
}

}  // namespace qcs
