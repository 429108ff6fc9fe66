#pragma once

#include "platform/Pointer.h"

namespace tessivo {

/// The mouse pointer of Windows.
class Win32Pointer : public Pointer {
 public:
  Point position() const override;
  int changeDisplayCount(bool show) override;
};

}  // namespace tessivo
