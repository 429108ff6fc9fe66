#pragma once

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "platform/Registry.h"

namespace tessivo {

/// A registry in memory, keys and names compared without regard to case. A key is there when a
/// value was written to it or below it. One call can be made to fail.
struct FakeRegistry : Registry {
  static constexpr std::uint32_t kNotFound = 2;
  static constexpr std::uint32_t kDenied = 5;

  std::uint32_t read(RegistryRoot root, const std::string& key, const std::string& name,
                     std::string& value) const override {
    if (const auto error = begin()) return error;
    const auto found = values.find(place(root, key) + '\\' + upper(name));
    if (found == values.end()) return kNotFound;
    value = found->second;
    return 0;
  }
  std::uint32_t write(RegistryRoot root, const std::string& key, const std::string& name,
                      const std::string& value) override {
    if (const auto error = begin()) return error;
    if (refusesWrites) return kDenied;
    put(root, key, name, value);
    return 0;
  }
  std::uint32_t deleteValue(RegistryRoot root, const std::string& key,
                            const std::string& name) override {
    if (const auto error = begin()) return error;
    return values.erase(place(root, key) + '\\' + upper(name)) == 0 ? kNotFound : 0;
  }
  std::uint32_t deleteKey(RegistryRoot root, const std::string& key) override {
    if (const auto error = begin()) return error;
    const std::string all = place(root, key);
    if (keys.erase(all) == 0) return kNotFound;
    const auto below = std::any_of(keys.begin(), keys.end(), [&](const auto& other) {
      return other.first.starts_with(all + '\\');
    });
    if (below) {
      keys[all] = true;
      return kDenied;
    }
    std::erase_if(values, [&](const auto& value) {
      return value.first.substr(0, value.first.rfind('\\')) == all;
    });
    return 0;
  }

  /// A test's own writing, which neither counts nor fails.
  void put(RegistryRoot root, const std::string& key, const std::string& name,
           const std::string& value) {
    const std::string all = place(root, key);
    for (auto end = all.find('\\'); end != std::string::npos; end = all.find('\\', end + 1)) {
      keys[all.substr(0, end)] = true;
    }
    keys[all] = true;
    values[all + '\\' + upper(name)] = value;
  }
  void putClass(const std::string& key, const std::string& value) {
    put(RegistryRoot::classesRoot, key, "", value);
  }
  /// The default value of a class; "-" when there is none.
  std::string classValue(const std::string& key) const {
    const auto found = values.find(place(RegistryRoot::classesRoot, key) + '\\');
    return found == values.end() ? "-" : found->second;
  }
  bool hasClass(const std::string& key) const {
    return keys.contains(place(RegistryRoot::classesRoot, key));
  }

  std::map<std::string, std::string> values;
  std::map<std::string, bool> keys;
  mutable int calls = 0;
  int failAt = 0;  ///< the number of the call that fails, from 1; 0: none; -1: all

  bool refusesWrites = false;        ///< as the system does to whom it has not elevated
  std::function<void()> whenCalled;  ///< before each call

  static std::string upper(const std::string& text) { return toUpper(text); }

 private:
  static std::string place(RegistryRoot root, const std::string& key) {
    return std::to_string(static_cast<int>(root)) + '\\' + toUpper(key);
  }
  std::uint32_t begin() const {
    if (whenCalled) whenCalled();
    return ++calls == failAt || failAt < 0 ? kDenied : 0;
  }
};

}  // namespace tessivo
