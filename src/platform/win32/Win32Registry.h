#pragma once

#include "platform/Registry.h"

namespace tessivo {

class Win32Registry : public Registry {
 public:
  std::uint32_t read(RegistryRoot root, const std::string& key, const std::string& name,
                     std::string& value) const override;
  std::uint32_t write(RegistryRoot root, const std::string& key, const std::string& name,
                      const std::string& value) override;
  std::uint32_t deleteValue(RegistryRoot root, const std::string& key,
                            const std::string& name) override;
  std::uint32_t deleteKey(RegistryRoot root, const std::string& key) override;
};

}  // namespace tessivo
