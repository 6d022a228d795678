/// \class qucs::cLITrTable
/// A translation table: message keys (the templates without their marker)
/// mapped to translated templates.
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
  ///@{
  /// Copies the translations.
  cLITrTable(const cLITrTable& other);
  cLITrTable& operator=(const cLITrTable& other);
  ///@}
  virtual ~cLITrTable();
  /// Exchanges two tables.
  void swap(cLITrTable& other);

  /// Adds or replaces the translation of `key`.
  void add(const qstd::cAsciiString& key, const cString& translation);
  /// Returns false when the key was not there.
  bool remove(const qstd::cAsciiString& key);
  /// Removes every translation.
  void clear();
  /// How many translations there are.
  unsigned int size() const;
  /// No translations.
  bool empty() const { return size() == 0; }

  /// The translation, or null.
  const cString* has(const qstd::cAsciiString& key) const;
  /// The translation; a missing key throws cBugException "Element could not
  /// be found ...".
  const cString& find(const qstd::cAsciiString& key) const;

private:
  class cLITrTableImpl;
  cLITrTableImpl* mpImpl;
};

}  // namespace qucs

#endif
