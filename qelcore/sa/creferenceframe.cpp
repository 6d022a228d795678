#include "qelcore/sa/creferenceframe.h"

#include "qelcore/sa/cabstractdeserializer.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/cpositionguard.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"

namespace qsa {

cReferenceFrame::cReferenceFrame() : miPos(0) {}

cReferenceFrame::cReferenceFrame(const cReferenceFrame& other) : mEntries(other.mEntries), miPos(other.miPos) {}

cReferenceFrame& cReferenceFrame::operator=(const cReferenceFrame& other) {
  if (this != &other) {
    mEntries = other.mEntries;
    miPos = other.miPos;
  }
  return *this;
}

cReferenceFrame::~cReferenceFrame() {}

void cReferenceFrame::swap(cReferenceFrame& other) {
  mEntries.swap(other.mEntries);
  const unsigned int pos = miPos;
  miPos = other.miPos;
  other.miPos = pos;
}

cReferenceFrame& cReferenceFrame::add(const cTypeReference& reference) {
  mEntries.push_back(reference);
  return *this;
}

void cReferenceFrame::clear() {
  mEntries.clear();
  miPos = 0;
}

const cTypeReference& cReferenceFrame::at(unsigned int index) const {
  if (index >= mEntries.size())
    qstd::cSTDExceptions::throwOutOfRange("cReferenceFrame", "at", qstd::OutOfRangeIndex, index, 0,
                                          mEntries.empty() ? 0 : static_cast<long long>(mEntries.size()) - 1);
  return mEntries[index];
}

qstd::cAsciiString cReferenceFrame::typeString(unsigned int from) const {
  qstd::cAsciiString s;
  for (unsigned int i = from; i < mEntries.size(); ++i) {
    if (i != from) s += ", ";
    s += mEntries[i].typeName();
  }
  return s;
}

void cReferenceFrame::setPosition(unsigned int position) {
  if (position > mEntries.size())
    qstd::cSTDExceptions::throwOutOfRange("cReferenceFrame", "setPosition", qstd::OutOfRangeValue, position, 0,
                                          static_cast<long long>(mEntries.size()));
  miPos = position;
}

const cTypeReference& cReferenceFrame::nextReference() {
  const cTypeReference& r = at(miPos);
  ++miPos;
  return r;
}

void cReferenceFrame::store(cAbstractSerializer& s, unsigned int from) const {
  cPositionGuard guard(s);
  for (unsigned int i = from; i < mEntries.size(); ++i) mEntries[i].store(s);
  guard.commit();
}

void cReferenceFrame::load(cAbstractDeserializer& d, unsigned int from) {
  cPositionGuard guard(d);
  for (unsigned int i = from; i < mEntries.size(); ++i) mEntries[i].load(d);
  guard.commit();
}

}  // namespace qsa
