#pragma once

#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>

#include "platform/TrayIcons.h"

namespace tessivo {

class Win32TrayIcons : public TrayIcons {
 public:
  void add(const TrayIconRecord& record) override;
  void remove(const TrayIconRecord& record) override;
};

/// The record as the shell wants it, texts cut to their fields, without the picture.
NOTIFYICONDATAW shellRecord(const TrayIconRecord& record);

}  // namespace tessivo
