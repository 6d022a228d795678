/// \class qsa::cAbstractSerializer
/// The writing side of every archive.
///
/// Storing is written `value >> serializer`: the value flows into the archive.
/// Objects that archive themselves provide
/// \code
///   cAbstractSerializer& operator>>(cAbstractSerializer&) const;
/// \endcode
/// and ask noLabelsPreferred() before writing labels.
#ifndef QELCORE_SA_CABSTRACTSERIALIZER_H
#define QELCORE_SA_CABSTRACTSERIALIZER_H

#include <type_traits>

#include "qelcore/qelexport.h"
#include "qelcore/sa/ccontext.h"
#include "qelcore/sa/ccontextref.h"
#include "qelcore/sa/cpositionguard.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tarray.h"
#include "qelcore/std/tarrayref.h"

namespace qucs {
class cString;
}

namespace qsa {

class QEL_EXPORT cAbstractSerializer {
public:
  cAbstractSerializer() : mbPreferNoLabels(false), mpPosition(0) {}
  /// A copy keeps the label preference; its position is its own (trackPosition()).
  cAbstractSerializer(const cAbstractSerializer& other) : mbPreferNoLabels(other.mbPreferNoLabels), mpPosition(0) {}
  /// Takes the label preference over; the position stays this archive's.
  cAbstractSerializer& operator=(const cAbstractSerializer& other) {
    mbPreferNoLabels = other.mbPreferNoLabels;
    return *this;
  }
  virtual ~cAbstractSerializer();

  /// Stores `iSize` bytes as one block.
  virtual void storeBlock(const char* pData, unsigned int iSize) = 0;
  ///@{
  /// Stores one value of the archive's own kinds.
  virtual void store(const qucs::cString& value) = 0;
  virtual void store(const qstd::cAsciiString& value) = 0;
  virtual void store(double value) = 0;
  virtual void store(bool value) = 0;
  virtual void store(long long value) = 0;
  virtual void store(unsigned long long value) = 0;
  virtual void store(int value) = 0;
  virtual void store(unsigned int value) = 0;
  ///@}
  /// Stored as int unless the archive knows 16-bit values.
  virtual void store(short value);
  /// Stored as unsigned int unless the archive knows 16-bit values.
  virtual void store(unsigned short value);
  ///@{
  /// Stores one byte.
  virtual void store(char value) = 0;
  virtual void store(unsigned char value) = 0;
  ///@}
  /// Back to the start: the next store overwrites.
  virtual void rewind() = 0;
  /// Drops everything stored.
  virtual void clear() = 0;
  /// A null name opens an unnamed context. Keep the result in a cContext.
  virtual cContextRef newContext(const char* pName) = 0;
  /// Finishes and leaves the innermost open context, if any.
  virtual void releaseCurrentContext() = 0;
  /// Returns the serializer, so the labelled value can follow: `v >> s.newLabel("x")`.
  virtual cAbstractSerializer& newLabel(const qstd::cAsciiString& name) = 0;
  /// The bytes stored so far.
  virtual qstd::tArrayRef<char> data() = 0;
  /// Exchanges the stored bytes with `other`.
  virtual void swapData(qstd::tArray<char>& other) = 0;
  /// Writes data() to the file through the system's file system, replacing
  /// it in one step (an atomic save: a failure leaves the old file intact).
  virtual void storeToFile(const qucs::cString& path);

  /// A string literal would otherwise be stored as a bool.
  void store(const char*) = delete;

  /// Values that can be stored with or without labels go without them.
  void setPreferNoLabels(bool bPrefer) { mbPreferNoLabels = bPrefer; }
  /// See setPreferNoLabels().
  bool noLabelsPreferred() const { return mbPreferNoLabels; }

protected:
  /// An archive that keeps its write position in an unsigned counter names it
  /// here, so that cPositionGuard can put it back when a sequence of values fails.
  void trackPosition(unsigned int* pPosition) { mpPosition = pPosition; }

private:
  friend class cPositionGuard;

  bool mbPreferNoLabels;
  unsigned int* mpPosition;
};

inline cPositionGuard::cPositionGuard(cAbstractSerializer& archive) : cPositionGuard(archive.mpPosition) {}

inline cAbstractSerializer& operator>>(char v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
inline cAbstractSerializer& operator>>(unsigned char v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
inline cAbstractSerializer& operator>>(short v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
inline cAbstractSerializer& operator>>(unsigned short v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
inline cAbstractSerializer& operator>>(int v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
inline cAbstractSerializer& operator>>(unsigned int v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
inline cAbstractSerializer& operator>>(double v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
inline cAbstractSerializer& operator>>(long long v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
inline cAbstractSerializer& operator>>(unsigned long long v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
inline cAbstractSerializer& operator>>(bool v, cAbstractSerializer& s) {
  s.store(v);
  return s;
}
/// The other standard integer types (signed char; long and unsigned long, which std::int64_t, std::size_t and their
/// kin are on some platforms) go as the fixed-width type of their width and signedness: a long is a piInt64 where it
/// has 64 bits and a piInt32 where it has 32. Loading reads the same type.
template <class I, bool Signed = std::is_signed<I>::value>
using tByWidth = std::conditional_t<sizeof(I) == 1, char,
                                    std::conditional_t<sizeof(I) == 4, std::conditional_t<Signed, int, unsigned int>,
                                                       std::conditional_t<Signed, long long, unsigned long long>>>;
inline cAbstractSerializer& operator>>(signed char v, cAbstractSerializer& s) { return static_cast<char>(v) >> s; }
inline cAbstractSerializer& operator>>(long v, cAbstractSerializer& s) { return static_cast<tByWidth<long>>(v) >> s; }
inline cAbstractSerializer& operator>>(unsigned long v, cAbstractSerializer& s) {
  return static_cast<tByWidth<unsigned long>>(v) >> s;
}
/// A byte array is stored as one block.
inline cAbstractSerializer& operator>>(const qstd::tArray<char>& v, cAbstractSerializer& s) {
  s.storeBlock(v.size() ? v.data(true) : 0, v.size());
  return s;
}
cAbstractSerializer& operator>>(const char*, cAbstractSerializer&) = delete;

/// Other arrays: the labelled items "Grow" (the grow step) and "Data" (the
/// element count, then the elements; bytes as one block).
template <class T, class Traits>
cAbstractSerializer& operator>>(const qstd::tArray<T, Traits>& v, cAbstractSerializer& s) {
  cPositionGuard guard(s);
  const bool labels = !s.noLabelsPreferred();
  if (labels) s.newLabel("Grow");
  s.store(v.growStep());
  if (labels) s.newLabel("Data");
  if constexpr (sizeof(T) == 1) {
    s.storeBlock(v.size() ? reinterpret_cast<const char*>(v.data()) : 0, v.size());
  } else {
    s.store(v.size());
    for (unsigned int i = 0; i < v.size(); ++i) v[i] >> s;
  }
  guard.commit();
  return s;
}

}  // namespace qsa

#endif
