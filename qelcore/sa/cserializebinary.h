/// \class qsa::cSerializeBinary
/// The binary archive writer: values as tagged little-endian elements in a
/// growing byte array (see cSerializeBinaryShared for the type ids).
///
/// Every operation is transactional on the write position: one that fails
/// leaves the position where it was, so nothing of it counts. The position may
/// lie before the end of the array (after a dropped context, rewind() or
/// patch()): writes then overwrite in place.
#ifndef QELCORE_SA_CSERIALIZEBINARY_H
#define QELCORE_SA_CSERIALIZEBINARY_H

#include <cstring>

#include "qelcore/qelexport.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/cserializebinaryshared.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarray.h"
#include "qelcore/std/tarrayref.h"

namespace qsa {

class cSBinaryStoreContextData;
class cAbstractTypeReference;

class QEL_EXPORT cSerializeBinary : public cAbstractSerializer, public cSerializeBinaryShared {
public:
  /// How Unicode strings are stored (UCS-4 by default).
  enum StringStoreMode : unsigned int {
    /// Unicode strings as their 32-bit characters (id 11).
    StoreUCS4 = 0,
    /// Unicode strings as UTF-8 (id 16).
    StoreUTF8 = 1
  };

  cSerializeBinary();
  /// Writes into `target` (not owned), from its beginning.
  explicit cSerializeBinary(qstd::tArray<char>& target);
  /// Copies the written bytes into an array of its own; open contexts stay behind.
  cSerializeBinary(const cSerializeBinary& other);
  ~cSerializeBinary() override;

  void storeBlock(const char* pData, unsigned int iSize) override;
  void store(const qucs::cString& value) override;
  /// One reservation for the whole element: nothing can fail after it.
  void store(const qstd::cAsciiString& value) final { storeAsciiChars(value.c_str(), value.size()); }
  /// The fixed-width values are written inline; the format is fixed, so a
  /// derived archive cannot change them.
  void store(double value) final { putFixed(idDouble, doubleBits(value)); }
  void store(bool value) final { putFixed(idBool, value ? 1u : 0u); }
  void store(long long value) final { putFixed(idInt64, static_cast<unsigned long long>(value)); }
  void store(unsigned long long value) final { putFixed(idUInt64, value); }
  void store(int value) final { putFixed(idInt32, static_cast<unsigned int>(value)); }
  void store(unsigned int value) final { putFixed(idUInt32, value); }
  void store(short value) final { putFixed(idInt16, static_cast<unsigned short>(value)); }
  void store(unsigned short value) final { putFixed(idUInt16, value); }
  void store(char value) final { putFixed(idChar, static_cast<unsigned char>(value)); }
  void store(unsigned char value) final { putFixed(idUChar, value); }
  using cAbstractSerializer::store;

  ///@{
  /// Stores `count` values as consecutive elements: the same bytes as storing
  /// them one at a time, in one pass over the buffer. Nothing is written when
  /// it fails.
  void storeValues(const int* values, unsigned int count) { putValues(idInt32, values, count); }
  void storeValues(const unsigned int* values, unsigned int count) { putValues(idUInt32, values, count); }
  void storeValues(const long long* values, unsigned int count) { putValues(idInt64, values, count); }
  void storeValues(const unsigned long long* values, unsigned int count) { putValues(idUInt64, values, count); }
  void storeValues(const double* values, unsigned int count) { putValues(idDouble, values, count); }
  ///@}

  /// An ASCII string element from characters that are not in a cAsciiString
  /// (see stdstrings.h): the same bytes as store(const cAsciiString&).
  void storeAsciiChars(const char* chars, unsigned int length) {
    if (length > 0xFFFFFFFFu - 8) throwStringTooLong(length);
    const unsigned int pos = miPos;
    char* p = reserveFast(pos, 8 + length);
    putTagged32(p, idAsciiString, length);
    if (length) copyBytes(p + 8, chars, length);
    miPos = pos + 8 + length;
  }

  /// Back to the first element of the open context, or of the archive.
  void rewind() override;
  /// Empties the archive; refused while a context is open.
  void clear() override;
  cContextRef newContext(const char* pName) override;
  void releaseCurrentContext() override;
  cAbstractSerializer& newLabel(const qstd::cAsciiString& name) override;
  /// The written bytes; refused while a context is open.
  qstd::tArrayRef<char> data() override;
  /// Exchanges the written bytes with `other`; writing goes on after what
  /// `other` held. Refused while a context is open.
  void swapData(qstd::tArray<char>& other) override;

  /// The array written into, cut to the written bytes. The own array keeps
  /// its pool, so that storing on after this does not allocate again.
  qstd::tArray<char>& ownData();
  /// Rewrites the element at `position` with the referenced value; the write
  /// position stays. The value must have the element's type and size (a value
  /// made of several elements, those of the elements that follow): otherwise
  /// the type mismatch or the patch size error is thrown and nothing changes.
  void patch(unsigned int position, const cAbstractTypeReference& value);
  /// Bytes stored so far: where the next element goes.
  unsigned int currentPos() const { return miPos; }
  /// Sets how Unicode strings are stored from now on.
  void setStringStoreMode(StringStoreMode mode) { meStringStoreMode = mode; }
  /// How Unicode strings are stored.
  StringStoreMode stringStoreMode() const { return meStringStoreMode; }

private:
  friend class cSBinaryStoreContextData;
  cSerializeBinary& operator=(const cSerializeBinary&) = delete;

  /// Makes room for n bytes at the write position; returns where they go.
  char* reserve(unsigned long long n);
  /// Room for n bytes at `pos`, the write position. Inline for the two
  /// common cases: writing inside the array, and appending to an outside
  /// array while its pool has room. The pool grows geometrically in
  /// reserve(), and the own array is then sized to the whole pool, so a
  /// growing archive nearly always takes the first case: one comparison, and
  /// no size kept in memory from store to store. Everything else goes out of
  /// line. The callers pass the position in and write it back themselves,
  /// which keeps it in a register.
  char* reserveFast(unsigned int pos, unsigned int n) {
    const unsigned int end = pos + n;
    const unsigned int size = mrData.size();
    if (end <= size && end >= pos) return mrData.begin() + pos;
    if (pos == size && mrData._poolSize() - size >= n) {
      mrData.appendElements(n);  // within the pool: no allocation
      return mrData.begin() + pos;
    }
    return reserve(n);
  }
  void putFixed(unsigned int id, unsigned char v) {
    const unsigned int pos = miPos;
    char* p = reserveFast(pos, 5);
    put32(p, id);
    p[4] = static_cast<char>(v);
    miPos = pos + 5;
  }
  void putFixed(unsigned int id, unsigned short v) {
    const unsigned int pos = miPos;
    char* p = reserveFast(pos, 6);
    put32(p, id);
    put16(p + 4, v);
    miPos = pos + 6;
  }
  void putFixed(unsigned int id, unsigned int v) {
    const unsigned int pos = miPos;
    char* p = reserveFast(pos, 8);
    putTagged32(p, id, v);
    miPos = pos + 8;
  }
  void putFixed(unsigned int id, unsigned long long v) {
    const unsigned int pos = miPos;
    char* p = reserveFast(pos, 12);
    putTagged64(p, id, v);
    miPos = pos + 12;
  }
  template <class T>
  void putValues(unsigned int id, const T* values, unsigned int count) {
    static_assert(sizeof(T) == 4 || sizeof(T) == 8, "32- and 64-bit values");
    QEL_ASSERT((values != 0) || (count == 0), "sa/cserializebinary");
    const unsigned int size = 4 + sizeof(T);
    char* p = reserve(static_cast<unsigned long long>(size) * count);
    for (unsigned int i = 0; i < count; ++i, p += size) {
      if (sizeof(T) == 4)
        putTagged32(p, id, static_cast<unsigned int>(bitsOf(values[i])));
      else
        putTagged64(p, id, bitsOf(values[i]));
    }
    miPos += size * count;
  }
  [[noreturn]] static void throwStringTooLong(unsigned int n);
  static unsigned long long elementEnd(const char* pData, unsigned int pos, unsigned int limit);
  /// Cuts the array to the written bytes.
  void cutAtPosition();
  void storeTypeId(unsigned int id);
  void storeRaw(const char* p, unsigned int n);
  void detachContexts();

  qstd::tArray<char> mOwnData;
  qstd::tArray<char>& mrData;
  unsigned int miPos;
  cSBinaryStoreContextData* mpCurrent;
  StringStoreMode meStringStoreMode;
};

// Streaming into a binary archive by its own type writes inline.
inline cSerializeBinary& operator>>(char v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
inline cSerializeBinary& operator>>(unsigned char v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
inline cSerializeBinary& operator>>(short v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
inline cSerializeBinary& operator>>(unsigned short v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
inline cSerializeBinary& operator>>(int v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
inline cSerializeBinary& operator>>(unsigned int v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
inline cSerializeBinary& operator>>(double v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
inline cSerializeBinary& operator>>(long long v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
inline cSerializeBinary& operator>>(unsigned long long v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
inline cSerializeBinary& operator>>(bool v, cSerializeBinary& s) {
  s.store(v);
  return s;
}
// The other standard integer types by their width (see cabstractserializer.h).
inline cSerializeBinary& operator>>(signed char v, cSerializeBinary& s) { return static_cast<char>(v) >> s; }
inline cSerializeBinary& operator>>(long v, cSerializeBinary& s) { return static_cast<tByWidth<long>>(v) >> s; }
inline cSerializeBinary& operator>>(unsigned long v, cSerializeBinary& s) {
  return static_cast<tByWidth<unsigned long>>(v) >> s;
}
inline cSerializeBinary& operator>>(const qstd::cAsciiString& v, cSerializeBinary& s) {
  s.store(v);
  return s;
}

}  // namespace qsa

#endif
