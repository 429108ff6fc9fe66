#pragma once

#include "platform/TrayIcons.h"

namespace tessivo {

class Win32TrayIcons : public TrayIcons {
 public:
  void add(const TrayIconRecord& record) override;
  void remove(const TrayIconRecord& record) override;
};

}  // namespace tessivo
