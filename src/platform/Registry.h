#pragma once

#include <cstdint>
#include <string>

namespace tessivo {

/// The roots of the registry.
enum class RegistryRoot { classesRoot, currentUser, localMachine, users, currentConfig };

/// Keys and values of the system's registry. A key is named by its path below the root, without a
/// backslash at either end; the value with an empty name is the key's default value. Every
/// operation returns 0, or the system's error.
class Registry {
 public:
  virtual ~Registry() = default;
  /// A text, or a number as a text; other kinds of values are an error. On an error `value` is left
  /// as it was.
  virtual std::uint32_t read(RegistryRoot root, const std::string& key, const std::string& name,
                             std::string& value) const = 0;
  /// Writes a text, making the keys on the way there.
  virtual std::uint32_t write(RegistryRoot root, const std::string& key, const std::string& name,
                              const std::string& value) = 0;
  virtual std::uint32_t deleteValue(RegistryRoot root, const std::string& key,
                                    const std::string& name) = 0;
  /// A key that has keys below it stays and is an error.
  virtual std::uint32_t deleteKey(RegistryRoot root, const std::string& key) = 0;
};

}  // namespace tessivo
