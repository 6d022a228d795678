/// \class qstd::tHash
/// An unordered map from keys to values. Look-ups come in pairs: find() and
/// get() throw when the key is missing, has() and tryFind() do not.
#ifndef QELCORE_STD_THASH_H
#define QELCORE_STD_THASH_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <unordered_map>
#include <utility>

#include "qelcore/std/casciistring.h"
#include "qelcore/std/cstdexceptions.h"
#include "qelcore/std/tarray.h"
#include "qelcore/std/tvector.h"

namespace qstd {

/// Hash of a key; the library's arrays and strings hash their bytes.
template <typename K>
struct tHashFunction {
  /// std::hash of the key.
  std::size_t operator()(const K& key) const { return std::hash<K>()(key); }
};

/// The hash of `n` bytes at `data`, for keys hashed by content.
inline std::size_t hashBytes(const void* data, std::size_t n) {
  // FNV-1a: short keys, good spread, no tables.
  std::uint64_t h = 14695981039346656037ull;
  const unsigned char* p = static_cast<const unsigned char*>(data);
  for (std::size_t i = 0; i < n; ++i) {
    h ^= p[i];
    h *= 1099511628211ull;
  }
  return static_cast<std::size_t>(h ^ (h >> 32));
}

/// Arrays hash their bytes.
template <typename T, typename Traits>
struct tHashFunction<tArray<T, Traits>> {
  /// The hash of the elements' bytes.
  std::size_t operator()(const tArray<T, Traits>& key) const {
    return hashBytes(key.data(true), static_cast<std::size_t>(key.size()) * sizeof(T));
  }
};

/// Strings hash their bytes.
template <>
struct tHashFunction<cAsciiString> {
  /// The hash of the characters.
  std::size_t operator()(const cAsciiString& key) const { return hashBytes(key.c_str(), key.size()); }
};

/// Key equality by content (the arrays' own operator== also tells a never
/// allocated array from an emptied one).
template <typename K>
struct tHashEqual {
  /// a == b.
  bool operator()(const K& a, const K& b) const { return a == b; }
};
/// Arrays compare their elements.
template <typename T, typename Traits>
struct tHashEqual<tArray<T, Traits>> {
  /// Whether both hold the same elements.
  bool operator()(const tArray<T, Traits>& a, const tArray<T, Traits>& b) const {
    return a.isEqual(b.data(true), b.size());
  }
};
/// Strings compare their bytes.
template <>
struct tHashEqual<cAsciiString> {
  /// Whether both hold the same characters.
  bool operator()(const cAsciiString& a, const cAsciiString& b) const { return a.isEqual(b.data(true), b.size()); }
};

template <typename K, typename V, typename H = tHashFunction<K>>
class tHash {
  typedef std::unordered_map<K, V, H, tHashEqual<K>> tMap;

public:
  ///@{
  /// Iterators over the entries.
  typedef typename tMap::iterator iterator;
  typedef typename tMap::const_iterator const_iterator;
  ///@}

  /// The number of entries.
  unsigned int size() const { return static_cast<unsigned int>(mMap.size()); }
  /// Whether there is none.
  bool empty() const { return mMap.empty(); }
  /// Removes every entry.
  void clear() { mMap.clear(); }

  ///@{
  /// Adds or replaces; returns true when the key is new.
  bool set(const K& key, const V& value) {
    std::pair<iterator, bool> r = mMap.insert(std::make_pair(key, value));
    if (!r.second) {
      r.first->second = value;
    }
    return r.second;
  }
  bool set(const K& key, V&& value) {
    iterator it = mMap.find(key);
    if (it != mMap.end()) {
      it->second = std::move(value);
      return false;
    }
    mMap.emplace(key, std::move(value));
    return true;
  }
  ///@}
  /// Adds only when the key is new; returns whether it did.
  bool insert(const K& key, const V& value) { return mMap.insert(std::make_pair(key, value)).second; }

  /// Whether the key is present.
  bool has(const K& key) const { return mMap.find(key) != mMap.end(); }
  ///@{
  /// The value of the key; null when it is missing.
  V* tryFind(const K& key) {
    iterator it = mMap.find(key);
    return it == mMap.end() ? nullptr : &it->second;
  }
  const V* tryFind(const K& key) const {
    const_iterator it = mMap.find(key);
    return it == mMap.end() ? nullptr : &it->second;
  }
  ///@}
  ///@{
  /// The value of the key; a missing key throws cBugException.
  V& find(const K& key) {
    V* v = tryFind(key);
    if (v == nullptr) {
      cSTDExceptions::throwElementNotFound("tHash", "find");
    }
    return *v;
  }
  const V& find(const K& key) const {
    const V* v = tryFind(key);
    if (v == nullptr) {
      cSTDExceptions::throwElementNotFound("tHash", "find");
    }
    return *v;
  }
  V& get(const K& key) { return find(key); }
  const V& get(const K& key) const { return find(key); }
  ///@}
  /// The value, default-constructed first when the key is new.
  V& operator[](const K& key) { return mMap[key]; }
  /// Returns whether the key was there.
  bool remove(const K& key) { return mMap.erase(key) != 0; }

  /// The keys, in no particular order.
  tVector<K> keys() const {
    tVector<K> result;
    result.reserve(size());
    for (const_iterator it = mMap.begin(); it != mMap.end(); ++it) {
      result.append(it->first);
    }
    return result;
  }

  ///@{
  /// Entries are pairs: it->first is the key, it->second the value.
  iterator begin() { return mMap.begin(); }
  iterator end() { return mMap.end(); }
  const_iterator begin() const { return mMap.begin(); }
  const_iterator end() const { return mMap.end(); }
  ///@}
  /// Exchanges the contents.
  void swap(tHash& other) { mMap.swap(other.mMap); }

private:
  tMap mMap;
};

}  // namespace qstd

#endif
