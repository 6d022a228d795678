// An ordered frame of typed references to values: by convention the first
// entry refers to the return value, the others to the arguments of a call.
// It carries calls whose signature the caller does not know when it is built
// (indirect slot calls, construction arguments of modules).
//
//   int iResult; qstd::cAsciiString name("x"); double d = 1.5;
//   qsa::cReferenceFrame frame;
//   frame.add(iResult).add(name).add(d);          // typeString(): "piInt32, cAsciiString, piDouble"
//   frame.rewind();
//   int& r = frame.next<int>();                   // checked: a wrong type throws
//
// The frame refers to the values, it does not own them; they must outlive it.
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
  cReferenceFrame(const cReferenceFrame& other);
  cReferenceFrame& operator=(const cReferenceFrame& other);
  ~cReferenceFrame();
  void swap(cReferenceFrame& other);

  // Appends a reference to `value` (constant when `value` is).
  template <class T>
  cReferenceFrame& add(T& value) {
    return add(cTypeReference(value));
  }
  cReferenceFrame& add(const cTypeReference& reference);
  // Removes every entry and rewinds.
  void clear();

  unsigned int count() const { return static_cast<unsigned int>(mEntries.size()); }
  bool empty() const { return mEntries.empty(); }
  // Range-checked access to one entry.
  const cTypeReference& at(unsigned int index) const;
  template <class T>
  T& get(unsigned int index) const {
    return at(index).get<T>();
  }
  const char* typeName(unsigned int index) const { return at(index).typeName(); }
  // The type names of the entries from `from` on, joined by ", ".
  qstd::cAsciiString typeString(unsigned int from = 0) const;

  // Sequential reading: rewind() goes back to the first entry; next<T>()
  // returns the current entry as a T and moves on, but only when the type
  // matches (a failed access moves nothing).
  void rewind() { miPos = 0; }
  unsigned int position() const { return miPos; }
  void setPosition(unsigned int position);
  bool atEnd() const { return miPos >= mEntries.size(); }
  template <class T>
  T& next() {
    T& value = at(miPos).get<T>();
    ++miPos;
    return value;
  }
  const cTypeReference& nextReference();

  // Stores the referenced values from `from` on, in order.
  void store(cAbstractSerializer& s, unsigned int from = 0) const;
  // Loads the referenced values from `from` on, in order.
  void load(cAbstractDeserializer& d, unsigned int from = 0);
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
