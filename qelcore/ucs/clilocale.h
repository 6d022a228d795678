/// \class qucs::cLILocale
/// A locale: a name and the translation table its messages are rendered
/// with.
#ifndef QELCORE_UCS_CLILOCALE_H
#define QELCORE_UCS_CLILOCALE_H

#include "qelcore/qelexport.h"
#include "qelcore/std/casciistring.h"
#include "qelcore/ucs/clitrtable.h"

namespace qucs {

class cLIMessage;
class cString;

class QEL_EXPORT cLILocale {
public:
  cLILocale();
  /// Named `name`, with an empty table.
  explicit cLILocale(const qstd::cAsciiString& name);
  /// Named `name`, translating through `table`.
  cLILocale(const qstd::cAsciiString& name, const cLITrTable& table);
  ///@{
  /// Copies the name and the table.
  cLILocale(const cLILocale& other);
  cLILocale& operator=(const cLILocale& other);
  ///@}
  virtual ~cLILocale();
  /// Exchanges two locales.
  void swap(cLILocale& other);

  /// The locale's name ("de_DE").
  const qstd::cAsciiString& name() const { return msName; }
  /// See name().
  void setName(const qstd::cAsciiString& name) { msName = name; }
  ///@{
  /// The translations.
  const cLITrTable& trTable() const { return mTable; }
  cLITrTable& trTable() { return mTable; }
  ///@}
  /// Replaces the translations.
  void setTrTable(const cLITrTable& table) { mTable = table; }

  /// Whether the table has a translated template for the message's key.
  bool hasTranslation(const cLIMessage& msg) const;
  /// Renders the message through its translated template; without one it
  /// renders untranslated and returns false.
  bool translate(const cLIMessage& msg, cString& out) const;

private:
  qstd::cAsciiString msName;
  cLITrTable mTable;
};

}  // namespace qucs

#endif
