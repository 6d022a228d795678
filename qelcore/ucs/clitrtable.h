// A translation table: message keys (the templates without their marker)
// mapped to translated templates.
#ifndef QELCORE_UCS_CLITRTABLE_H
#define QELCORE_UCS_CLITRTABLE_H

#include "qelcore/qelexport.h"

namespace qstd {
class cAsciiString;
}

namespace qucs {

class cString;

class QEL_EXPORT cLITrTable {
public:
  cLITrTable();
  cLITrTable(const cLITrTable& other);
  cLITrTable& operator=(const cLITrTable& other);
  virtual ~cLITrTable();
  void swap(cLITrTable& other);

  // Adds or replaces the translation of `key`.
  void add(const qstd::cAsciiString& key, const cString& translation);
  // Returns false when the key was not there.
  bool remove(const qstd::cAsciiString& key);
  void clear();
  unsigned int size() const;
  bool empty() const { return size() == 0; }

  // The translation, or null.
  const cString* has(const qstd::cAsciiString& key) const;
  // The translation; a missing key throws cBugException "Element could not
  // be found ...".
  const cString& find(const qstd::cAsciiString& key) const;

private:
  class cLITrTableImpl;
  cLITrTableImpl* mpImpl;
};

}  // namespace qucs

#endif
