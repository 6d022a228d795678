/// \class qsa::cReferenceFrame
/// An ordered frame of typed references to values: by convention the first
/// entry refers to the return value, the others to the arguments of a call.
/// It carries calls whose signature the caller does not know when it is built
/// (indirect slot calls, construction arguments of modules).
///
/// \code
///   int iResult; qstd::cAsciiString name("x"); double d = 1.5;
///   qsa::cReferenceFrame frame;
///   frame.add(iResult).add(name).add(d);          // typeString(): "piInt32, cAsciiString, piDouble"
///   frame.rewind();
///   int& r = frame.next<int>();                   // checked: a wrong type throws
/// \endcode
///
/// The frame refers to the values, it does not own them; they must outlive it.
#ifndef QELCORE_SA_CREFERENCEFRAME_H
#define QELCORE_SA_CREFERENCEFRAME_H

#include <vector>

#include "qelcore/qelexport.h"
#include "qelcore/sa/ctypereference.h"

namespace qstd {
class cAsciiString;
}

namespace qsa {

class QEL_EXPORT cReferenceFrame {
public:
  cReferenceFrame();
  ///@{
  /// Copies the references (not the values) and the position; swap() exchanges two frames.
  cReferenceFrame(const cReferenceFrame& other);
  cReferenceFrame& operator=(const cReferenceFrame& other);
  ~cReferenceFrame();
  void swap(cReferenceFrame& other);
  ///@}

  /// Appends a reference to `value` (constant when `value` is).
  template <class T>
  cReferenceFrame& add(T& value) {
    return add(cTypeReference(value));
  }
  /// Appends `reference`.
  cReferenceFrame& add(const cTypeReference& reference);
  /// Removes every entry and rewinds.
  void clear();

  /// How many entries there are.
  unsigned int count() const { return static_cast<unsigned int>(mEntries.size()); }
  /// No entries.
  bool empty() const { return mEntries.empty(); }
  /// Range-checked access to one entry.
  const cTypeReference& at(unsigned int index) const;
  /// The value at `index` as a T; a wrong type throws the type mismatch.
  template <class T>
  T& get(unsigned int index) const {
    return at(index).get<T>();
  }
  /// The type name of the entry at `index`.
  const char* typeName(unsigned int index) const { return at(index).typeName(); }
  /// The type names of the entries from `from` on, joined by ", ".
  qstd::cAsciiString typeString(unsigned int from = 0) const;

  /// Sequential reading: rewind() goes back to the first entry; next<T>()
  /// returns the current entry as a T and moves on, but only when the type
  /// matches (a failed access moves nothing).
  void rewind() { miPos = 0; }
  /// The current entry's index.
  unsigned int position() const { return miPos; }
  /// Moves to the entry at `position` (up to count()).
  void setPosition(unsigned int position);
  /// No current entry left.
  bool atEnd() const { return miPos >= mEntries.size(); }
  /// The current entry as a T, then moves on (see above).
  template <class T>
  T& next() {
    T& value = at(miPos).get<T>();
    ++miPos;
    return value;
  }
  /// The current entry itself, then moves on.
  const cTypeReference& nextReference();

  /// Stores the referenced values from `from` on, in order.
  void store(cAbstractSerializer& s, unsigned int from = 0) const;
  /// Loads the referenced values from `from` on, in order.
  void load(cAbstractDeserializer& d, unsigned int from = 0);
  /// store(s).
  cAbstractSerializer& operator>>(cAbstractSerializer& s) const {
    store(s);
    return s;
  }

private:
  std::vector<cTypeReference> mEntries;
  unsigned int miPos;
};

}  // namespace qsa

#endif
