#include "qelcore/ucs/clitrtable.h"

#include <string>
#include <unordered_map>
#include <utility>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/ucs/cstring.h"

namespace qucs {

class cLITrTable::cLITrTableImpl {
public:
  std::unordered_map<std::string, cString> mEntries;

  static std::string keyOf(const qstd::cAsciiString& key) { return std::string(key.c_str(), key.size()); }
};

cLITrTable::cLITrTable() : mpImpl(new cLITrTableImpl) {}
cLITrTable::cLITrTable(const cLITrTable& other) : mpImpl(new cLITrTableImpl(*other.mpImpl)) {}

cLITrTable& cLITrTable::operator=(const cLITrTable& other) {
  if (this != &other) {
    cLITrTable copy(other);
    swap(copy);
  }
  return *this;
}

cLITrTable::~cLITrTable() { delete mpImpl; }
void cLITrTable::swap(cLITrTable& other) { std::swap(mpImpl, other.mpImpl); }

void cLITrTable::add(const qstd::cAsciiString& key, const cString& translation) {
  mpImpl->mEntries[cLITrTableImpl::keyOf(key)] = translation;
}

bool cLITrTable::remove(const qstd::cAsciiString& key) {
  return mpImpl->mEntries.erase(cLITrTableImpl::keyOf(key)) != 0;
}

void cLITrTable::clear() { mpImpl->mEntries.clear(); }
unsigned int cLITrTable::size() const { return static_cast<unsigned int>(mpImpl->mEntries.size()); }

const cString* cLITrTable::has(const qstd::cAsciiString& key) const {
  auto it = mpImpl->mEntries.find(cLITrTableImpl::keyOf(key));
  return it == mpImpl->mEntries.end() ? nullptr : &it->second;
}

const cString& cLITrTable::find(const qstd::cAsciiString& key) const {
  const cString* t = has(key);
  if (!t) qstd::cSTDExceptions::throwElementNotFound("cLITrTable", "find");
  return *t;
}

}  // namespace qucs
