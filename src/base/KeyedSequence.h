#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/Text.h"

namespace tessivo {

/// An ordered list whose items are also found by a text key. Keys are compared as toUpper makes
/// them; several items may share a key, and then the first in list order is the one found.
///
/// `KeyOf` is a function object that gives the key of an item. The key of an item in the list must
/// not change. Indexes count from 0.
///
/// Cost with n items: append, next, previous and finding an item by key do not depend on n
/// (amortised); turning an index into an item or an item into its index, erasing and swapping take
/// O(log n). An item costs about three words beside its key.
///
/// When memory runs out an operation throws std::bad_alloc and has changed nothing.
///
/// How: each item has a slot in order of appending; erasing leaves the slot empty; a Fenwick tree
/// counts the used slots. When most slots are empty, all items move together.
template <typename Item, typename KeyOf>
class KeyedSequence {
 public:
  using ByKey = std::unordered_multimap<std::string, std::size_t>;
  /// All that takes long to free.
  struct Contents {
    std::vector<std::optional<Item>> items;  ///< in list order, with gaps where one was erased
    ByKey byKey;                             ///< each one's place among `items`
  };

  std::size_t size() const { return byKey_.size(); }
  bool empty() const { return size() == 0; }

  void append(Item item) {
    const auto slot = slots_.size();
    makeRoom(slots_);
    makeRoom(used_);
    byKey_.emplace(toUpper(KeyOf()(item)), slot);
    // From here on nothing is allocated.
    slots_.push_back(std::move(item));
    pushCount();
  }

  /// The item at an index below size().
  const Item& at(std::size_t index) const {
    assert(index < size());
    return *slots_[slotAt(index)];
  }

  /// The first item with this key; null when there is none. Valid until the list changes.
  const Item* find(std::string_view key) const {
    const auto slot = slotOfKey(key);
    return slot == kNone ? nullptr : &*slots_[slot];
  }

  /// The index of the first item with this key.
  std::optional<std::size_t> indexOfKey(std::string_view key) const {
    return indexOfSlot(slotOfKey(key));
  }

  /// The index of this very item (compared by ==).
  std::optional<std::size_t> indexOf(const Item& item) const { return indexOfSlot(slotOf(item)); }

  bool contains(const Item& item) const { return slotOf(item) != kNone; }

  /// The neighbours of an item; null at the end of the list and for an item that is not in it.
  const Item* next(const Item& item) const {
    const auto slot = slotOf(item);
    if (slot == kNone) return nullptr;
    if (slot + 1 < slots_.size() && slots_[slot + 1]) return &*slots_[recent_ = slot + 1];
    const auto index = usedBefore(slot) + 1;
    return index < size() ? &at(index) : nullptr;
  }
  const Item* previous(const Item& item) const {
    const auto slot = slotOf(item);
    if (slot == kNone) return nullptr;
    if (slot > 0 && slots_[slot - 1]) return &*slots_[recent_ = slot - 1];
    const auto index = usedBefore(slot);
    return index > 0 ? &at(index - 1) : nullptr;
  }

  /// Takes out the item at an index below size().
  void erase(std::size_t index) {
    assert(index < size());
    const auto slot = slotAt(index);
    byKey_.erase(entryOf(slot));
    slots_[slot].reset();
    for (auto i = slot + 1; i <= used_.size(); i += lowBit(i)) --used_[i - 1];
    if (slots_.size() > kFewSlots && size() < slots_.size() / 4) compact();
  }

  /// Swaps the item at `index` with the one after it; index + 1 must be below size().
  void swapWithNext(std::size_t index) {
    assert(index + 1 < size());
    const auto one = slotAt(index);
    const auto other = slotAt(index + 1);
    const auto entryOfOne = entryOf(one);
    const auto entryOfOther = entryOf(other);
    std::swap(slots_[one], slots_[other]);
    std::swap(entryOfOne->second, entryOfOther->second);
  }

  /// Empties the list and hands out what it held. Costs the same for any length.
  Contents takeAll() {
    used_.clear();
    return {std::exchange(slots_, {}), std::exchange(byKey_, {})};
  }

  /// Calls `visit` with every item in list order. `visit` must not change the list.
  template <typename Visit>
  void forEach(Visit visit) const {
    for (const auto& slot : slots_) {
      if (slot) visit(*slot);
    }
  }

 private:
  static constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();
  static constexpr std::size_t kFewSlots = 64;

  /// For one element more; grows like push_back.
  template <typename Element>
  static void makeRoom(std::vector<Element>& elements) {
    constexpr std::size_t kFirst = 16;
    if (elements.size() < elements.capacity()) return;
    elements.reserve(std::max(kFirst, elements.size() * 2));
  }

  static std::size_t lowBit(std::size_t i) { return i & (~i + 1); }

  /// Appends a used slot to the Fenwick tree: the sum over the subtrees that end just before it.
  void pushCount() {
    const auto i = used_.size() + 1;
    std::uint32_t count = 1;
    for (std::size_t step = 1; step < lowBit(i); step *= 2) count += used_[i - step - 1];
    used_.push_back(count);
  }

  std::size_t usedBefore(std::size_t slot) const {
    std::size_t count = 0;
    for (auto i = slot; i > 0; i -= lowBit(i)) count += used_[i - 1];
    return count;
  }

  /// Descends the tree to the slot with exactly `index` used slots before it.
  std::size_t slotAt(std::size_t index) const {
    if (size() == slots_.size()) return index;
    std::size_t step = 1;
    while (step * 2 <= used_.size()) step *= 2;
    std::size_t passed = 0;
    for (auto rest = index; step > 0; step /= 2) {
      if (passed + step <= used_.size() && used_[passed + step - 1] <= rest) {
        passed += step;
        rest -= used_[passed - 1];
      }
    }
    return passed;
  }

  std::optional<std::size_t> indexOfSlot(std::size_t slot) const {
    if (slot == kNone) return std::nullopt;
    return usedBefore(slot);
  }

  std::size_t slotOfKey(std::string_view key) const {
    auto first = kNone;
    const auto [begin, end] = byKey_.equal_range(toUpper(key));
    for (auto entry = begin; entry != end; ++entry) first = std::min(first, entry->second);
    return first;
  }

  std::size_t slotOf(const Item& item) const {
    if (recent_ < slots_.size() && slots_[recent_] && *slots_[recent_] == item) return recent_;
    const auto [begin, end] = byKey_.equal_range(toUpper(KeyOf()(item)));
    for (auto entry = begin; entry != end; ++entry) {
      if (*slots_[entry->second] == item) return entry->second;
    }
    return kNone;
  }

  typename ByKey::iterator entryOf(std::size_t slot) {
    auto entry = byKey_.equal_range(toUpper(KeyOf()(*slots_[slot]))).first;
    while (entry->second != slot) ++entry;
    return entry;
  }

  /// Only for less memory, so that it is left when there is none for it.
  void compact() {
    std::vector<std::optional<Item>> slots;
    std::vector<std::uint32_t> used;
    std::vector<std::size_t> moved;
    try {
      slots.reserve(size());
      used.reserve(size());
      moved.resize(slots_.size());
    } catch (const std::bad_alloc&) {
      return;
    }
    for (std::size_t slot = 0; slot < slots_.size(); ++slot) {
      if (!slots_[slot]) continue;
      moved[slot] = slots.size();
      slots.push_back(std::move(slots_[slot]));
    }
    for (auto& entry : byKey_) entry.second = moved[entry.second];
    slots_.swap(slots);
    used_.swap(used);
    while (used_.size() < slots_.size()) pushCount();
  }

  std::vector<std::optional<Item>> slots_;
  std::vector<std::uint32_t> used_;  ///< Fenwick tree over slots_: 1 for a used slot
  ByKey byKey_;
  mutable std::size_t recent_ = 0;  ///< where a walk along the list is likely to ask next
};

}  // namespace tessivo
