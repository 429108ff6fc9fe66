#pragma once

#include <gtest/gtest.h>

#include "fakes/FakeLog.h"
#include "forms/TestForm.h"
#include "ui/win32/Win32Toolkit.h"
#include "win32/ui/RealControls.h"

namespace tessivo::ui {

/// A test form with real windows. No event of it may end in an error.
class OpenForm : public testing::Test {
 protected:
  void SetUp() override { toolkit.open(form); }
  void TearDown() override { EXPECT_TRUE(log.lines.empty()) << log.lines.front(); }

  HWND window() const { return windowOf(form); }
  void addRows(int count) {
    for (int i = 0; i < count; ++i)
      form.lvRows.append({"k" + std::to_string(i), "0", {"片", "C:"}});
  }
  /// A key for the control with the keyboard, as the message loop passes it on.
  static bool pressKey(HWND target, WPARAM key) {
    return Win32Toolkit::translate({target, WM_KEYDOWN, key, 0, 0, {}});
  }

  FakeLog log;
  Win32Toolkit toolkit{TwipsPerPixel{}, log};
  TestForm form;
};

}  // namespace tessivo::ui
