#include "qelcore/sa/cdeserializebinary.h"

#include <cstring>
#include <utility>
#include <vector>

#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/csaexceptions.h"
#include "qelcore/sa/detail/csbinaryloadcontextdata.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/cstring.h"

namespace qsa {

cDeserializeBinary::cDeserializeBinary()
    : mbOwnsData(false), mpBytes(0), miSize(0), miPos(0), mpCurrent(0), miLimit(0) {
  trackPosition(&miPos);
}

cDeserializeBinary::cDeserializeBinary(const qstd::tConstArrayRef<char>& data)
    : mbOwnsData(false), mpBytes(0), miSize(0), miPos(0), mpCurrent(0), miLimit(0) {
  trackPosition(&miPos);
  setData(data);
}

cDeserializeBinary::cDeserializeBinary(const qstd::tArray<char>& data)
    : mbOwnsData(false), mpBytes(0), miSize(0), miPos(0), mpCurrent(0), miLimit(0) {
  trackPosition(&miPos);
  setData(data);
}

cDeserializeBinary::cDeserializeBinary(qstd::tArray<char>& data, bool bTakeOver)
    : mbOwnsData(false), mpBytes(0), miSize(0), miPos(0), mpCurrent(0), miLimit(0) {
  trackPosition(&miPos);
  if (bTakeOver) {
    mOwnData.swap(data);
    setData(static_cast<const qstd::tArray<char>&>(mOwnData));
    mbOwnsData = true;
  } else {
    setData(static_cast<const qstd::tArray<char>&>(data));
  }
}

cDeserializeBinary::cDeserializeBinary(cDeserializeBinary& other)
    : cAbstractDeserializer(other),
      mOwnData(other.mOwnData),
      mbOwnsData(other.mbOwnsData),
      mData(other.mData),
      mpBytes(other.mpBytes),
      miSize(other.miSize),
      miPos(other.miPos),
      mpCurrent(0),
      miLimit(other.miSize),
      mLastLabel(other.mLastLabel) {
  trackPosition(&miPos);
  if (mbOwnsData) {
    mData = qstd::tConstArrayRef<char>(mOwnData);
    mpBytes = miSize ? mOwnData.data() : 0;
  }
}

cDeserializeBinary::~cDeserializeBinary() { detachContexts(); }

void cDeserializeBinary::detachContexts() {
  for (cSBinaryLoadContextData* p = mpCurrent; p; p = p->mpEnclosing) {
    p->mbLeft = true;
    p->mpDeserializer = 0;
  }
  mpCurrent = 0;
}

void cDeserializeBinary::setData(const qstd::tConstArrayRef<char>& data) {
  detachContexts();
  qstd::tConstArrayRef<char> view(data);
  mData.swap(view);
  mbOwnsData = false;
  miSize = mData.size();
  mpBytes = miSize ? mData.data() : 0;
  miPos = 0;
  mLastLabel.clear();
  updateLimit();
}

void cDeserializeBinary::setData(const qstd::tArray<char>& data) { setData(qstd::tConstArrayRef<char>(data)); }

void cDeserializeBinary::setData(const char* pData, unsigned int iSize) {
  qstd::tArray<char> copy(pData, iSize);
  mOwnData.swap(copy);
  setData(static_cast<const qstd::tArray<char>&>(mOwnData));
  mbOwnsData = true;
}

void cDeserializeBinary::updateLimit() { miLimit = mpCurrent ? mpCurrent->endPos() : miSize; }

unsigned int cDeserializeBinary::contextDepth() const {
  unsigned int n = 0;
  for (const cSBinaryLoadContextData* p = mpCurrent; p; p = p->mpEnclosing) ++n;
  return n;
}

// --- reading primitives ----------------------------------------------------
// Invariant: miPos <= miLimit <= miSize, so miLimit - miPos is what remains.

const char* cDeserializeBinary::loadRaw(unsigned long long n) {
  if (n > miLimit - miPos) cSAExceptions::throwEndOfContext();
  const char* p = mpBytes + miPos;
  miPos += static_cast<unsigned int>(n);
  return p;
}

unsigned int cDeserializeBinary::loadU32() { return get32(loadRaw(4)); }

void cDeserializeBinary::throwMissmatch(const char* expected, unsigned int got) const {
  cSAExceptions::throwTypeMissmatch(qstd::cAsciiString(expected), qstd::cAsciiString(idToString(got)), mLastLabel);
}

void cDeserializeBinary::loadLabelName() {
  const unsigned int id = loadU32();
  if (id != idAsciiString) throwMissmatch(idToString(idAsciiString), id);
  const unsigned int n = loadU32();
  const char* p = loadRaw(n);
  mLastLabel.setData(p, n);
}

unsigned int cDeserializeBinary::getNextTypeId(bool bSkipLabels) {
  for (;;) {
    if (miLimit - miPos < 4) cSAExceptions::throwEndOfContext();
    const unsigned int id = get32(mpBytes + miPos);
    miPos += 4;
    if (id != idLabel || !bSkipLabels) return id;
    loadLabelName();
  }
}

void cDeserializeBinary::expectTypeId(unsigned int id) {
  const unsigned int got = getNextTypeId(id != idLabel);
  if (got != id) throwMissmatch(idToString(id), got);
}

// One fixed-size element behind labels, or a failure (the inline path took the rest).
const char* cDeserializeBinary::loadFixed(unsigned int id, unsigned int n) {
  cPositionGuard guard(miPos);
  expectTypeId(id);
  const char* p = loadRaw(n);
  guard.commit();
  return p;
}

// A fixed-size element that must come next, labels not allowed (headers).
const char* cDeserializeBinary::loadFixedDirect(unsigned int id, unsigned int n) {
  const unsigned int got = getNextTypeId(false);
  if (got != id) throwMissmatch(idToString(id), got);
  return loadRaw(n);
}

// A string behind labels, or a failure (the inline path took the rest).
void cDeserializeBinary::loadAsciiString(qstd::cAsciiString& value) {
  cPositionGuard guard(miPos);
  expectTypeId(idAsciiString);
  const unsigned int n = loadU32();
  const char* p = loadRaw(n);
  value.setData(p, n);
  guard.commit();
}

void cDeserializeBinary::load(qucs::cString& value) {
  cPositionGuard guard(miPos);
  const unsigned int id = getNextTypeId(true);
  qucs::cString text;
  if (id == idStringUTF8) {
    const unsigned int n = loadU32();
    const char* p = loadRaw(n);
    if (n) qucs::cEnDecUTF8::defaultEnDec().decode(qstd::tConstArrayRef<char>(mData, p - mpBytes, n), text);
  } else if (id == idString) {
    const unsigned int n = loadU32();
    const char* p = loadRaw(4ull * n);
    if (n) {
      text.appendElements(n);
      unsigned int* pChars = text.data();
      for (unsigned int i = 0; i < n; ++i) pChars[i] = get32(p + 4 * i);
    }
  } else {
    throwMissmatch("unicode string", id);
  }
  value.swap(text);
  guard.commit();
}

const char* cDeserializeBinary::loadBlockHeader(unsigned long long& size) {
  const unsigned int id = getNextTypeId(true);
  if (id == idRawBytes)
    size = loadU32();
  else if (id == idRawBytes64)
    size = get64(loadRaw(8));
  else
    throwMissmatch("block", id);
  if (size > miLimit - miPos) cSAExceptions::throwEndOfContext();
  return mpBytes + miPos;
}

void cDeserializeBinary::getNextBlockInfo(unsigned int& position, unsigned long long& size) {
  cPositionGuard guard(miPos);
  unsigned long long n = 0;
  loadBlockHeader(n);
  position = miPos;
  size = n;
}

void cDeserializeBinary::loadBlock(qstd::tArray<char>& block) {
  cPositionGuard guard(miPos);
  unsigned long long n = 0;
  const char* p = loadBlockHeader(n);
  block.setData(p, static_cast<unsigned int>(n));
  miPos += static_cast<unsigned int>(n);
  guard.commit();
}

// --- contexts --------------------------------------------------------------

unsigned int cDeserializeBinary::expectContext() {
  const unsigned int id = getNextTypeId(true);
  if (id != idContext && id != idContext64) throwMissmatch("context", id);
  return id;
}

// Reads a context header up to its first element; checks that the size fits.
void cDeserializeBinary::readContextHeader(sContextHeader& header) {
  header.miBegin = miPos;
  const unsigned int id = expectContext();
  header.miStart = miPos;
  if (id == idContext)
    header.miSize = get32(loadFixedDirect(idUInt32, 4));
  else
    header.miSize = get64(loadFixedDirect(idUInt64, 8));
  header.mbHasName = get32(loadFixedDirect(idBool, 4)) != 0;
  header.mName.clear();
  if (header.mbHasName) {
    const unsigned int n = get32(loadFixedDirect(idAsciiString, 4));
    const char* p = loadRaw(n);
    header.mName.setData(p, n);
  }
  // A size that ends inside the header or past what remains is no context.
  if (header.miSize < miPos - header.miStart || header.miSize > miLimit - header.miStart)
    cSAExceptions::throwEndOfContext();
}

cContextRef cDeserializeBinary::openContext(const char* pName, sContextHeader& header) {
  cPositionGuard guard(miPos);
  readContextHeader(header);
  if (pName && !(header.mName == pName))
    qstd::cSTDExceptions::throwTypeMissmatch(qstd::cAsciiString("context ") + pName,
                                             qstd::cAsciiString("context ") + header.mName);
  cSBinaryLoadContextData* pData =
      new cSBinaryLoadContextData(*this, mpCurrent, header.miBegin, header.miStart, miPos, header.miSize);
  mpCurrent = pData;
  updateLimit();
  guard.commit();
  return cContextRef(pData);
}

cContextRef cDeserializeBinary::getContext(const char* pName) {
  sContextHeader header;
  return openContext(pName, header);
}

qstd::cAsciiString cDeserializeBinary::getNextContextTypeName() {
  cPositionGuard guard(miPos);
  const qstd::cAsciiString lastLabel(mLastLabel);
  sContextHeader header;
  try {
    readContextHeader(header);
  } catch (...) {
    mLastLabel = lastLabel;
    throw;
  }
  mLastLabel = lastLabel;
  return header.mName;
}

void cDeserializeBinary::releaseCurrentContext() {
  if (!mpCurrent) return;
  cSBinaryLoadContextData* pData = mpCurrent;
  pData->finish();
  pData->leave();
}

void cDeserializeBinary::rewind() { miPos = mpCurrent ? mpCurrent->miHeaderEnd : 0; }

// --- looking ahead ---------------------------------------------------------

bool cDeserializeBinary::peekPastLabels(unsigned int& id) const {
  unsigned int p = miPos;
  while (miLimit - p >= 4) {
    id = get32(mpBytes + p);
    if (id != idLabel) return true;
    p += 4;
    if (miLimit - p < 8 || get32(mpBytes + p) != idAsciiString) return false;
    const unsigned int n = get32(mpBytes + p + 4);
    p += 8;
    if (n > miLimit - p) return false;
    p += n;
  }
  return false;
}

bool cDeserializeBinary::eoc() const {
  if (miPos >= miLimit) return true;
  unsigned int id = 0;
  if (peekPastLabels(id)) return false;
  // Only complete labels up to the end count as nothing; a torn element does not.
  unsigned int p = miPos;
  while (miLimit - p >= 12 && get32(mpBytes + p) == idLabel && get32(mpBytes + p + 4) == idAsciiString) {
    const unsigned int n = get32(mpBytes + p + 8);
    if (n > miLimit - p - 12) return false;
    p += 12 + n;
  }
  return p == miLimit;
}

bool cDeserializeBinary::isLabel() { return miLimit - miPos >= 4 && get32(mpBytes + miPos) == idLabel; }

bool cDeserializeBinary::isContext() {
  unsigned int id = 0;
  return peekPastLabels(id) && (id == idContext || id == idContext64);
}

unsigned int cDeserializeBinary::nextTypeId() const {
  if (miLimit - miPos < 4) cSAExceptions::throwEndOfContext();
  return get32(mpBytes + miPos);
}

qstd::cAsciiString cDeserializeBinary::getNextLabelName() {
  cPositionGuard guard(miPos);
  expectTypeId(idLabel);
  loadLabelName();
  guard.commit();
  return mLastLabel;
}

// --- skipping and labels ---------------------------------------------------

void cDeserializeBinary::skipType(unsigned int id) {
  switch (id) {
    case idRawBytes:
    case idAsciiString:
    case idStringUTF8:
      loadRaw(loadU32());
      break;
    case idUChar:
    case idChar:
      loadRaw(1);
      break;
    case idUInt32:
    case idInt32:
    case idBool:
      loadRaw(4);
      break;
    case idUInt64:
    case idInt64:
    case idDouble:
      loadRaw(8);
      break;
    case idString:
      loadRaw(4ull * loadU32());
      break;
    case idContext:
    case idContext64: {
      const unsigned int start = miPos;
      unsigned long long size;
      if (id == idContext)
        size = get32(loadFixedDirect(idUInt32, 4));
      else
        size = get64(loadFixedDirect(idUInt64, 8));
      if (size < miPos - start || size > miLimit - start) cSAExceptions::throwEndOfContext();
      miPos = start + static_cast<unsigned int>(size);
      break;
    }
    case idLabel: {
      const unsigned int nameId = loadU32();
      if (nameId != idAsciiString) throwMissmatch(idToString(idAsciiString), nameId);
      loadRaw(loadU32());
      break;
    }
    case idRawBytes64:
      loadRaw(get64(loadRaw(8)));
      break;
    case idUInt16:
    case idInt16:
      loadRaw(2);
      break;
    default:
      break;
  }
}

bool cDeserializeBinary::trySeekToLabel(const qstd::cAsciiString& name) {
  cPositionGuard guard(miPos);
  const qstd::cAsciiString lastLabel(mLastLabel);
  try {
    unsigned int end = miLimit;
    for (int pass = 0; pass < 2; ++pass) {
      if (pass == 1) {
        // Second pass: from the beginning of the context up to where the first began.
        end = guard.saved();
        miPos = mpCurrent ? mpCurrent->miHeaderEnd : 0;
      }
      while (miPos < end) {
        const unsigned int id = getNextTypeId(false);
        if (id == idLabel) {
          loadLabelName();
          if (mLastLabel == name) {
            guard.commit();
            return true;
          }
        } else if (id >= idInvalidLast) {
          cSAExceptions::throwInvalidTypeId(id);
        } else {
          skipType(id);
        }
      }
    }
  } catch (...) {
    mLastLabel = lastLabel;
    throw;
  }
  mLastLabel = lastLabel;
  return false;
}

cAbstractDeserializer& cDeserializeBinary::findLabel(const qstd::cAsciiString& name) {
  if (!trySeekToLabel(name)) cSAExceptions::throwLabelNotFound(name);
  return *this;
}

bool cDeserializeBinary::tryFindLabel(const qstd::cAsciiString& name) { return trySeekToLabel(name); }

// --- copying ---------------------------------------------------------------

void cDeserializeBinary::reserialize(cAbstractSerializer& out) {
  cPositionGuard guard(miPos);
  // Nested contexts are followed with an explicit stack: a deeply nested
  // archive must not exhaust the call stack.
  struct sLevel {
    cContextRef mIn;
    cContextRef mOut;
  };
  std::vector<sLevel> levels;
  for (;;) {
    if (miPos >= miLimit) {
      if (levels.empty()) break;
      sLevel& level = levels.back();
      cContext out(level.mOut);
      cContext in(level.mIn);
      out.release();
      in.release();
      levels.pop_back();
      continue;
    }
    const unsigned int id = nextTypeId();
    switch (id) {
      case idRawBytes:
      case idRawBytes64: {
        qstd::tArray<char> block;
        loadBlock(block);
        out.storeBlock(block.data(true), block.size());
        break;
      }
      case idUChar: {
        unsigned char v;
        load(v);
        out.store(v);
        break;
      }
      case idChar: {
        char v;
        load(v);
        out.store(v);
        break;
      }
      case idUInt32: {
        unsigned int v;
        load(v);
        out.store(v);
        break;
      }
      case idInt32: {
        int v;
        load(v);
        out.store(v);
        break;
      }
      case idUInt64: {
        unsigned long long v;
        load(v);
        out.store(v);
        break;
      }
      case idInt64: {
        long long v;
        load(v);
        out.store(v);
        break;
      }
      case idBool: {
        bool v;
        load(v);
        out.store(v);
        break;
      }
      case idDouble: {
        double v;
        load(v);
        out.store(v);
        break;
      }
      case idAsciiString: {
        qstd::cAsciiString v;
        load(v);
        out.store(v);
        break;
      }
      case idString:
      case idStringUTF8: {
        qucs::cString v;
        load(v);
        out.store(v);
        break;
      }
      case idUInt16: {
        unsigned short v;
        load(v);
        out.store(v);
        break;
      }
      case idInt16: {
        short v;
        load(v);
        out.store(v);
        break;
      }
      case idLabel:
        out.newLabel(getNextLabelName());
        break;
      case idContext:
      case idContext64: {
        sContextHeader header;
        sLevel level;
        level.mIn = openContext(0, header);
        levels.push_back(std::move(level));
        levels.back().mOut = out.newContext(header.mbHasName ? header.mName.c_str() : 0);
        break;
      }
      default:
        cSAExceptions::throwInvalidTypeId(id);
    }
  }
  guard.commit();
}

// ---------------------------------------------------------------------------

cSBinaryLoadContextData::cSBinaryLoadContextData(cDeserializeBinary& deserializer, cSBinaryLoadContextData* pEnclosing,
                                                 unsigned int iBegin, unsigned int iStart, unsigned int iHeaderEnd,
                                                 unsigned long long iSize)
    : mpDeserializer(&deserializer),
      mpEnclosing(pEnclosing),
      miBegin(iBegin),
      miStart(iStart),
      miHeaderEnd(iHeaderEnd),
      miSize(iSize),
      mbFinished(false),
      mbLeft(false) {}

cSBinaryLoadContextData::~cSBinaryLoadContextData() { leave(); }

void cSBinaryLoadContextData::finish() {
  if (!mbLeft) mbFinished = true;
}

void cSBinaryLoadContextData::rewind() {
  if (mbLeft) return;
  mpDeserializer->miPos = miHeaderEnd;
}

void cSBinaryLoadContextData::leave() {
  if (mbLeft) return;
  cDeserializeBinary& d = *mpDeserializer;
  while (d.mpCurrent && d.mpCurrent != this) {
    cSBinaryLoadContextData* pInner = d.mpCurrent;
    pInner->mbLeft = true;
    d.mpCurrent = pInner->mpEnclosing;
  }
  d.miPos = mbFinished ? endPos() : miBegin;
  d.mpCurrent = mpEnclosing;
  d.updateLimit();
  mbLeft = true;
}

}  // namespace qsa
