#include "qelcore/ucs/clilocale.h"

#include "qelcore/ucs/climessage.h"
#include "qelcore/ucs/cstring.h"

namespace qucs {

cLILocale::cLILocale() {}
cLILocale::cLILocale(const qstd::cAsciiString& name) : msName(name) {}
cLILocale::cLILocale(const qstd::cAsciiString& name, const cLITrTable& table) : msName(name), mTable(table) {}
cLILocale::cLILocale(const cLILocale& other) : msName(other.msName), mTable(other.mTable) {}

cLILocale& cLILocale::operator=(const cLILocale& other) {
  if (this != &other) {
    cLILocale copy(other);
    swap(copy);
  }
  return *this;
}

cLILocale::~cLILocale() {}

void cLILocale::swap(cLILocale& other) {
  msName.swap(other.msName);
  mTable.swap(other.mTable);
}

bool cLILocale::hasTranslation(const cLIMessage& msg) const { return mTable.has(msg.key()) != nullptr; }

bool cLILocale::translate(const cLIMessage& msg, cString& out) const {
  if (const cString* translation = mTable.has(msg.key())) {
    msg.translate(*translation, out);
    return true;
  }
  msg.untranslated(out);
  return false;
}

}  // namespace qucs
