#include "qelcore/sa/cserializebinary.h"

#include "qelcore/sa/cabstracttypereference.h"
#include "qelcore/sa/csaexceptions.h"
#include "qelcore/sa/detail/csbinarystorecontextdata.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cendecutf8.h"
#include "qelcore/ucs/cstring.h"

namespace qsa {

cSerializeBinary::cSerializeBinary() : mrData(mOwnData), miPos(0), mpCurrent(0), meStringStoreMode(StoreUCS4) {
  setPreferNoLabels(true);
  trackPosition(&miPos);
}

cSerializeBinary::cSerializeBinary(qstd::tArray<char>& target)
    : mrData(target), miPos(0), mpCurrent(0), meStringStoreMode(StoreUCS4) {
  setPreferNoLabels(true);
  trackPosition(&miPos);
}

cSerializeBinary::cSerializeBinary(const cSerializeBinary& other)
    : cAbstractSerializer(other),
      mOwnData(other.mrData.size() ? other.mrData.data() : 0, other.miPos),
      mrData(mOwnData),
      miPos(other.miPos),
      mpCurrent(0),
      meStringStoreMode(other.meStringStoreMode) {
  trackPosition(&miPos);
}

cSerializeBinary::~cSerializeBinary() { detachContexts(); }

void cSerializeBinary::detachContexts() {
  // Guards that outlive the archive must not touch it any more.
  for (cSBinaryStoreContextData* p = mpCurrent; p; p = p->mpEnclosing) {
    p->mbLeft = true;
    p->mpSerializer = 0;
  }
  mpCurrent = 0;
}

char* cSerializeBinary::reserve(unsigned long long n) {
  const unsigned long long need = miPos + n;
  const unsigned int size = mrData.size();
  if (need > size) {
    if (need > 0xFFFFFFFFull)
      qstd::cSTDExceptions::throwOutOfRange("cSerializeBinary", "storeRaw", qstd::OutOfRangeSize,
                                            static_cast<long long>(need), 0, 0xFFFFFFFFll);
    if (need > mrData._poolSize()) {
      // The array grows in sectors of 2^growStep; a sector of at least half
      // the new size makes the pool the next power of two, so a growing
      // archive doubles and is copied only a few times, and the stores in
      // between append inline (reserveFast).
      const unsigned int oldStep = mrData.growStep();
      unsigned int step = 5;
      while (step < 30 && (1ull << (step + 1)) < need) ++step;
      if (step > (oldStep & 31)) mrData.setGrowStep(step);
      try {
        mrData.appendElements(static_cast<unsigned int>(need) - size);
      } catch (...) {
        mrData.setGrowStep(oldStep);
        throw;
      }
      mrData.setGrowStep(oldStep);
    } else {
      mrData.appendElements(static_cast<unsigned int>(need) - size);
    }
    // The own array takes the whole pool at once: what lies past the write
    // position is scratch that nobody sees (data(), ownData() and swapData()
    // stop at the position), and the stores up to the next growth overwrite
    // in place instead of counting every element into the array's size.
    if (&mrData == &mOwnData) mrData.appendElements(mrData._poolSize() - mrData.size());
  }
  return mrData.data() + miPos;
}

void cSerializeBinary::storeTypeId(unsigned int id) {
  put32(reserve(4), id);
  miPos += 4;
}

void cSerializeBinary::storeRaw(const char* p, unsigned int n) {
  if (!p || n == 0) return;
  std::memcpy(reserve(n), p, n);
  miPos += n;
}

void cSerializeBinary::storeBlock(const char* pData, unsigned int iSize) {
  cPositionGuard guard(miPos);
  if (iSize < 0xFFFFFFFFu) {
    char* p = reserve(8);
    put32(p, idRawBytes);
    put32(p + 4, iSize);
    miPos += 8;
  } else {
    char* p = reserve(12);
    put32(p, idRawBytes64);
    put64(p + 4, iSize);
    miPos += 12;
  }
  storeRaw(pData, iSize);
  guard.commit();
}

void cSerializeBinary::store(const qucs::cString& value) {
  cPositionGuard guard(miPos);
  const unsigned int n = value.size();
  if (meStringStoreMode == StoreUCS4) {
    if (n > (0xFFFFFFFFu - 8) / 4)
      qstd::cSTDExceptions::throwOutOfRange("cSerializeBinary", "store", qstd::OutOfRangeSize, n, 0,
                                            (0xFFFFFFFFu - 8) / 4);
    char* p = reserve(8 + n * 4);
    put32(p, idString);
    put32(p + 4, n);
    const unsigned int* pChars = value.data(true);
    for (unsigned int i = 0; i < n; ++i) put32(p + 8 + 4 * i, pChars[i]);
    miPos += 8 + n * 4;
  } else if (meStringStoreMode == StoreUTF8) {
    qstd::tArray<char> bytes;
    qucs::cEnDecUTF8::defaultEnDec().encode(value, bytes);
    char* p = reserve(8);
    put32(p, idStringUTF8);
    put32(p + 4, bytes.size());
    miPos += 8;
    storeRaw(bytes.data(true), bytes.size());
  }
  guard.commit();
}

void cSerializeBinary::throwStringTooLong(unsigned int n) {
  qstd::cSTDExceptions::throwOutOfRange("cSerializeBinary", "store", qstd::OutOfRangeSize, n, 0, 0xFFFFFFFFu - 8);
}

void cSerializeBinary::rewind() { miPos = mpCurrent ? mpCurrent->miHeaderEnd : 0; }

void cSerializeBinary::clear() {
  if (mpCurrent) cSAExceptions::throwSerializerClearWithOpenContexts();
  mrData.clear();
  miPos = 0;
}

cContextRef cSerializeBinary::newContext(const char* pName) {
  cPositionGuard guard(miPos);
  const unsigned int begin = miPos;
  storeTypeId(idContext);
  const unsigned int sizePos = miPos;
  store(0u);
  store(pName != 0);
  if (pName) store(qstd::cAsciiString(pName));
  cSBinaryStoreContextData* pData = new cSBinaryStoreContextData(*this, mpCurrent, begin, sizePos);
  mpCurrent = pData;
  guard.commit();
  return cContextRef(pData);
}

void cSerializeBinary::releaseCurrentContext() {
  if (!mpCurrent) return;
  cSBinaryStoreContextData* pData = mpCurrent;
  pData->finish();
  pData->leave();
}

cAbstractSerializer& cSerializeBinary::newLabel(const qstd::cAsciiString& name) {
  cPositionGuard guard(miPos);
  storeTypeId(idLabel);
  store(name);
  guard.commit();
  return *this;
}

qstd::tArrayRef<char> cSerializeBinary::data() {
  if (mpCurrent) cSAExceptions::throwSerializerDataWithOpenContexts();
  return qstd::tArrayRef<char>(mrData, 0, miPos);
}

void cSerializeBinary::swapData(qstd::tArray<char>& other) {
  if (mpCurrent) cSAExceptions::throwSerializerDataWithOpenContexts();
  cutAtPosition();
  mrData.swap(other);
  miPos = mrData.size();
}

qstd::tArray<char>& cSerializeBinary::ownData() {
  cutAtPosition();
  return mrData;
}

void cSerializeBinary::cutAtPosition() {
  if (mrData.size() <= miPos) return;
  if (&mrData != &mOwnData) {
    mrData.truncate(miPos);
    return;
  }
  // The own array ran ahead to its whole pool (see reserve()); the pool
  // stays, so that handing the bytes out between stores never reallocates.
  const bool fit = mrData.fitOnErase();
  mrData.setFitOnErase(false);
  mrData.truncate(miPos);
  mrData.setFitOnErase(fit);
}

void cSerializeBinary::patch(unsigned int position, const cAbstractTypeReference& value) {
  // Written as a fresh element elsewhere first, so that a value of another
  // size is refused before anything is overwritten.
  cSerializeBinary element;
  element.setStringStoreMode(meStringStoreMode);
  value.store(element);
  const unsigned int n = element.miPos;
  if (static_cast<unsigned long long>(position) + n > miPos)
    qstd::cSTDExceptions::throwOutOfRange("cSerializeBinary", "patch", qstd::OutOfRangeValue, position, 0,
                                          miPos >= n ? miPos - n : 0);
  if (n == 0) return;
  // Element by element: each must find one of its own type and size in place.
  const char* pOld = mrData.data();
  const char* pNew = element.mrData.data();
  unsigned int at = position;
  for (unsigned int from = 0; from < n;) {
    const unsigned int id = get32(pNew + from);
    if (miPos - at < 4 || get32(pOld + at) != id)
      qstd::cSTDExceptions::throwTypeMissmatch(
          qstd::cAsciiString(idToString(id)),
          qstd::cAsciiString(miPos - at < 4 ? "end of data" : idToString(get32(pOld + at))));
    const unsigned long long newEnd = elementEnd(pNew, from, n);
    const unsigned long long oldEnd = elementEnd(pOld, at, miPos);
    if (oldEnd - at != newEnd - from) cSAExceptions::throwPatchSizeMissmatch(at, oldEnd - at, newEnd - from);
    at = static_cast<unsigned int>(oldEnd);
    from = static_cast<unsigned int>(newEnd);
  }
  std::memcpy(mrData.data() + position, pNew, n);
}

// Where the element that starts at `pos` ends, as its header tells; past
// `limit` when the header is cut off or the element is none this writer makes.
unsigned long long cSerializeBinary::elementEnd(const char* pData, unsigned int pos, unsigned int limit) {
  const unsigned long long past = static_cast<unsigned long long>(limit) + 1;
  const unsigned int body = pos + 4;
  const unsigned int left = limit - body;
  switch (get32(pData + pos)) {
    case idUChar:
    case idChar:
      return body + 1ull;
    case idUInt16:
    case idInt16:
      return body + 2ull;
    case idUInt32:
    case idInt32:
    case idBool:
      return body + 4ull;
    case idUInt64:
    case idInt64:
    case idDouble:
      return body + 8ull;
    case idRawBytes:
    case idAsciiString:
    case idStringUTF8:
      return left < 4 ? past : body + 4ull + get32(pData + body);
    case idString:
      return left < 4 ? past : body + 4ull + 4ull * get32(pData + body);
    case idRawBytes64:
      return left < 8 ? past : body + 8ull + get64(pData + body);
    case idContext:
      // The size counts from the size element on.
      return left < 8 ? past : body + static_cast<unsigned long long>(get32(pData + body + 4));
    case idContext64:
      return left < 12 ? past : body + get64(pData + body + 4);
    case idLabel:
      return left < 8 ? past : body + 8ull + get32(pData + body + 4);
    default:
      return past;
  }
}

// ---------------------------------------------------------------------------

cSBinaryStoreContextData::cSBinaryStoreContextData(cSerializeBinary& serializer, cSBinaryStoreContextData* pEnclosing,
                                                   unsigned int iBegin, unsigned int iSizePos)
    : mpSerializer(&serializer),
      mpEnclosing(pEnclosing),
      miBegin(iBegin),
      miSizePos(iSizePos),
      miHeaderEnd(serializer.miPos),
      miEnd(0),
      mbFinished(false),
      mbLeft(false) {}

cSBinaryStoreContextData::~cSBinaryStoreContextData() { leave(); }

void cSBinaryStoreContextData::finish() {
  if (mbLeft || mbFinished) return;
  cSerializeBinary& s = *mpSerializer;
  miEnd = s.miPos;
  // The size element was written with the header, so it is overwritten in place.
  cSerializeBinary::put32(s.mrData.data() + miSizePos + 4, miEnd - miSizePos);
  mbFinished = true;
}

void cSBinaryStoreContextData::rewind() {
  if (mbLeft) return;
  mpSerializer->miPos = miHeaderEnd;
}

void cSBinaryStoreContextData::leave() {
  if (mbLeft) return;
  cSerializeBinary& s = *mpSerializer;
  // Contexts opened inside this one and still held elsewhere are dropped with it.
  while (s.mpCurrent && s.mpCurrent != this) {
    cSBinaryStoreContextData* pInner = s.mpCurrent;
    pInner->mbLeft = true;
    s.mpCurrent = pInner->mpEnclosing;
  }
  s.miPos = mbFinished ? miEnd : miBegin;
  s.mpCurrent = mpEnclosing;
  mbLeft = true;
}

}  // namespace qsa
