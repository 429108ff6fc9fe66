#pragma once

#include <cstddef>
#include <exception>
#include <thread>
#include <utility>

namespace tessivo {

/// Empties a container. What many elements keep is freed on another thread: a list of 100 000 would
/// keep the user interface waiting for 150 ms under Wine. The elements must not care on which
/// thread they end.
template <typename Container>
void clearQuickly(Container& all) {
  constexpr std::size_t kMany = 10000;
  if (all.size() < kMany) return all.clear();
  try {
    std::thread([gone = std::exchange(all, {})] {}).detach();
  } catch (const std::exception&) {
    // No thread, or no memory for one: they have been freed here.
  }
}

}  // namespace tessivo
