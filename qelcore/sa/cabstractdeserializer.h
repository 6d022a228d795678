/// \class qsa::cAbstractDeserializer
/// The reading side of every archive.
///
/// Loading is written `value << deserializer`: the value is filled from the
/// archive. Objects that archive themselves provide
/// \code
///   cAbstractDeserializer& operator<<(cAbstractDeserializer&);
/// \endcode
/// Labels in front of a value are skipped when the value is loaded, so
/// readers load in the order the writer stored, with or without labels.
/// A load that fails leaves the reader where it stood; objects made of several
/// values keep that promise with a cPositionGuard over the whole sequence, and
/// change themselves only when every value was read.
#ifndef QELCORE_SA_CABSTRACTDESERIALIZER_H
#define QELCORE_SA_CABSTRACTDESERIALIZER_H

#include "qelcore/qelexport.h"
#include "qelcore/sa/cabstractserializer.h"
#include "qelcore/sa/ccontext.h"
#include "qelcore/sa/ccontextref.h"
#include "qelcore/sa/cpositionguard.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/std/tarray.h"

namespace qucs {
class cString;
}

namespace qsa {

class cAbstractSerializer;
class cReferenceFrame;

class QEL_EXPORT cAbstractDeserializer {
public:
  cAbstractDeserializer() : mbPreferNoLabels(false), mpPosition(0) {}
  /// A copy keeps the label preference; its position is its own (trackPosition()).
  cAbstractDeserializer(const cAbstractDeserializer& other) : mbPreferNoLabels(other.mbPreferNoLabels), mpPosition(0) {}
  /// Takes the label preference over; the position stays this archive's.
  cAbstractDeserializer& operator=(const cAbstractDeserializer& other) {
    mbPreferNoLabels = other.mbPreferNoLabels;
    return *this;
  }
  virtual ~cAbstractDeserializer();

  /// Loads one block of bytes into `block` (replaced).
  virtual void loadBlock(qstd::tArray<char>& block) = 0;
  ///@{
  /// Loads one value of the archive's own kinds; a wrong kind or the end throws, and the position stays.
  virtual void load(qucs::cString& value) = 0;
  virtual void load(qstd::cAsciiString& value) = 0;
  virtual void load(double& value) = 0;
  virtual void load(bool& value) = 0;
  virtual void load(long long& value) = 0;
  virtual void load(unsigned long long& value) = 0;
  virtual void load(int& value) = 0;
  virtual void load(unsigned int& value) = 0;
  ///@}
  /// Loads an int and keeps its low 16 bits unless the archive knows 16-bit values.
  virtual void load(short& value);
  /// Loads an unsigned int and keeps its low 16 bits unless the archive knows 16-bit values.
  virtual void load(unsigned short& value);
  ///@{
  /// Loads one byte.
  virtual void load(unsigned char& value) = 0;
  virtual void load(char& value) = 0;
  ///@}
  /// Back to the start.
  virtual void rewind() = 0;
  /// End of the current context; labels with nothing after them do not count.
  virtual bool eoc() const = 0;
  /// Copies the rest of the current context into `out`.
  virtual void reserialize(cAbstractSerializer& out) = 0;
  /// Whether a context comes next.
  virtual bool isContext() = 0;
  /// Whether a label comes next.
  virtual bool isLabel() = 0;
  /// A null name accepts any context. Keep the result in a cContext.
  virtual cContextRef getContext(const char* pName) = 0;
  /// The name of the context that comes next, without entering it.
  virtual qstd::cAsciiString getNextContextTypeName() = 0;
  /// The name of the label that comes next, without moving.
  virtual qstd::cAsciiString getNextLabelName() = 0;
  /// Leaves the innermost entered context, skipping what is left of it.
  virtual void releaseCurrentContext() = 0;
  /// Moves right after the label; throws when the context has none of that name.
  virtual cAbstractDeserializer& findLabel(const qstd::cAsciiString& name) = 0;
  /// Like findLabel(), but answers false (and moves nothing) when there is none.
  virtual bool tryFindLabel(const qstd::cAsciiString& name) = 0;

  /// Values that can be read with or without labels are read without them.
  void setPreferNoLabels(bool bPrefer) { mbPreferNoLabels = bPrefer; }
  /// See setPreferNoLabels().
  bool noLabelsPreferred() const { return mbPreferNoLabels; }

protected:
  /// An archive that keeps its read position in an unsigned counter names it
  /// here, so that cPositionGuard can put it back when a sequence of values fails.
  void trackPosition(unsigned int* pPosition) { mpPosition = pPosition; }

private:
  friend class cPositionGuard;

  bool mbPreferNoLabels;
  unsigned int* mpPosition;
};

inline cPositionGuard::cPositionGuard(cAbstractDeserializer& archive) : cPositionGuard(archive.mpPosition) {}

inline cAbstractDeserializer& operator<<(char& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
inline cAbstractDeserializer& operator<<(unsigned char& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
inline cAbstractDeserializer& operator<<(short& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
inline cAbstractDeserializer& operator<<(unsigned short& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
inline cAbstractDeserializer& operator<<(int& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
inline cAbstractDeserializer& operator<<(unsigned int& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
inline cAbstractDeserializer& operator<<(double& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
inline cAbstractDeserializer& operator<<(long long& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
inline cAbstractDeserializer& operator<<(unsigned long long& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
inline cAbstractDeserializer& operator<<(bool& v, cAbstractDeserializer& d) {
  d.load(v);
  return d;
}
/// The other standard integer types by their width (see cabstractserializer.h).
template <class I, class D>
inline D& loadByWidth(I& v, D& d) {
  tByWidth<I> x;
  d.load(x);
  v = static_cast<I>(x);
  return d;
}
inline cAbstractDeserializer& operator<<(signed char& v, cAbstractDeserializer& d) { return loadByWidth(v, d); }
inline cAbstractDeserializer& operator<<(long& v, cAbstractDeserializer& d) { return loadByWidth(v, d); }
inline cAbstractDeserializer& operator<<(unsigned long& v, cAbstractDeserializer& d) { return loadByWidth(v, d); }
/// A byte array is loaded as one block.
inline cAbstractDeserializer& operator<<(qstd::tArray<char>& v, cAbstractDeserializer& d) {
  d.loadBlock(v);
  return d;
}
/// Other arrays, as their writer stored them ("Grow", then "Data"). The
/// array changes, and the reader moves, only when all of it was read.
template <class T, class Traits>
cAbstractDeserializer& operator<<(qstd::tArray<T, Traits>& v, cAbstractDeserializer& d) {
  cPositionGuard guard(d);
  unsigned int growStep = 0;
  growStep << d;
  qstd::tArray<T, Traits> read;
  read.setGrowStep(growStep);
  if constexpr (sizeof(T) == 1) {
    qstd::tArray<char> block;
    d.loadBlock(block);
    if (block.size()) read.setData(reinterpret_cast<const T*>(block.data()), block.size());
  } else {
    unsigned int n = 0;
    n << d;
    // Elements are appended as they are read: the count alone allocates nothing.
    for (unsigned int i = 0; i < n; ++i) {
      T element;
      element << d;
      read.append(element);
    }
  }
  guard.commit();
  v.swap(read);
  return d;
}

/// Loads every entry of the frame, in order, into the values it refers to.
QEL_EXPORT cAbstractDeserializer& operator<<(cReferenceFrame& frame, cAbstractDeserializer& d);

}  // namespace qsa

#endif
