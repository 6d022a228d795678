// A hash map keyed by object address, for bookkeeping that must find an
// object's record in O(1) among many (a receiver's entries per signal, a
// queue's entry per work). Open addressing with linear probing and
// backward-shift deletion: no node allocations, no tombstones; the table
// only grows.
//
//   tPointerMap<cWork, tJobs::iterator> where;
//   where.insert(&work) = it;
//   if (tJobs::iterator* at = where.find(&work)) ...;
//   where.erase(&work);
#ifndef QELCORE_STD_DETAIL_TPOINTERMAP_H
#define QELCORE_STD_DETAIL_TPOINTERMAP_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace qstd {
namespace detail {

template <class K, class V>
class tPointerMap {
public:
  // The value stored for `key`, or null.
  V* find(const K* key) {
    const std::size_t i = slotOf(key);
    return i == kNone ? nullptr : &mvTable[i].mValue;
  }
  // The value stored for `key`; a new one is value-initialised.
  V& insert(const K* key) {
    if ((miUsed + 1) * 4 > mvTable.size() * 3) grow();
    std::size_t i = home(key);
    while (mvTable[i].mpKey && mvTable[i].mpKey != key) i = next(i);
    if (!mvTable[i].mpKey) {
      mvTable[i].mpKey = key;
      mvTable[i].mValue = V();
      ++miUsed;
    }
    return mvTable[i].mValue;
  }
  // Later entries of the probe chain move up into the hole, so that no
  // chain is broken.
  void erase(const K* key) {
    std::size_t hole = slotOf(key);
    if (hole == kNone) return;
    for (std::size_t j = next(hole); mvTable[j].mpKey; j = next(j)) {
      const std::size_t h = home(mvTable[j].mpKey);
      if (((j - h) & mask()) >= ((j - hole) & mask())) {
        mvTable[hole] = mvTable[j];
        hole = j;
      }
    }
    mvTable[hole].mpKey = nullptr;
    --miUsed;
  }
  void clear() {
    for (cSlot& s : mvTable) s.mpKey = nullptr;
    miUsed = 0;
  }
  std::size_t size() const { return miUsed; }

private:
  struct cSlot {
    V mValue;
    const K* mpKey;
  };

  static const std::size_t kNone = ~std::size_t(0);

  std::size_t slotOf(const K* key) const {
    if (mvTable.empty()) return kNone;
    for (std::size_t i = home(key);; i = next(i)) {
      if (mvTable[i].mpKey == key) return i;
      if (!mvTable[i].mpKey) return kNone;
    }
  }
  std::size_t mask() const { return mvTable.size() - 1; }
  std::size_t next(std::size_t i) const { return (i + 1) & mask(); }
  std::size_t home(const K* key) const {
    const std::uint64_t x = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(key));
    return static_cast<std::size_t>((x * 0x9E3779B97F4A7C15ull) >> 32) & mask();
  }
  void grow() {
    std::vector<cSlot> old;
    old.swap(mvTable);
    mvTable.resize(old.empty() ? 32 : old.size() * 2, cSlot{V(), nullptr});
    miUsed = 0;
    for (const cSlot& s : old)
      if (s.mpKey) insert(s.mpKey) = s.mValue;
  }

  std::vector<cSlot> mvTable;
  std::size_t miUsed = 0;
};

}  // namespace detail
}  // namespace qstd

#endif
