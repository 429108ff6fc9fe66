#include "ssp/win32/SettingsDialog.h"

#include <windows.h>

#include <string>

#include "platform/win32/Win32Displays.h"
#include "platform/win32/Win32FileDialogs.h"
#include "platform/win32/Win32MessageLoop.h"
#include "platform/win32/Win32Messaging.h"
#include "platform/win32/Win32TimerService.h"
#include "platform/win32/WindowsText.h"
#include "ssp/Placement.h"
#include "ui/Timer.h"
#include "ui/win32/FormContext.h"
#include "ui/win32/Win32Toolkit.h"

namespace tessivo::ssp {
namespace {

constexpr int kOwnerCheckMs = 250;

HWND windowOf(const ui::Form& form) {
  return reinterpret_cast<HWND>(form.nativeHandle());
}

HWND findOwner(const SaverArguments& arguments) {
  if (arguments.task != SaverTask::configure || arguments.ownerCaption.empty()) return nullptr;
  return reinterpret_cast<HWND>(Win32Messaging().findTopLevel(arguments.ownerCaption));
}

/// Whether the window, or one that it stays above, stays above all others.
bool isAboveAll(HWND window) {
  for (; window; window = GetWindow(window, GW_OWNER)) {
    if (GetWindowLongPtrW(window, GWL_EXSTYLE) & WS_EX_TOPMOST) return true;
  }
  return false;
}

Rect workAreaAt(POINT point, DWORD otherwise) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromPoint(point, otherwise), &monitor);
  return ui::toRect(monitor.rcWork);
}

/// Around the point, or in the middle of the primary monitor.
void place(ui::Form& form, const SaverArguments& arguments) {
  POINT middle{arguments.middle.x, arguments.middle.y};
  Rect work = workAreaAt(middle, MONITOR_DEFAULTTONEAREST);
  if (arguments.task != SaverTask::configure) {
    work = workAreaAt({0, 0}, MONITOR_DEFAULTTOPRIMARY);
    middle = {work.left + work.width / 2, work.top + work.height / 2};
  }
  const Rect at = form.windowRect();
  const Point corner = cornerAround({middle.x, middle.y}, {at.width, at.height}, work);
  SetWindowPos(windowOf(form), nullptr, corner.x, corner.y, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void configureSaver(const SaverProgram& program, const SaverArguments& arguments,
                    const SettingsFile& file, Log& log) {
  const TwipsPerPixel twips = Win32Displays().twipsPerPixel();
  Win32MessageLoop loop;
  loop.setFilter([](MSG& message) { return ui::Win32Toolkit::translate(message); });
  Win32TimerService timers(log);
  Win32FileDialogs dialogs(log);
  ui::Win32Toolkit toolkit(twips, log);
  const auto form = program.makeForm(file.read(), dialogs, twips);
  form->setSave([&file](const std::string& text) { return file.save(text); });
  form->onUnload.listen([&loop] { loop.quit(); });

  const HWND owner = findOwner(arguments);
  form->setTopmost(isAboveAll(owner));
  toolkit.open(*form);
  if (!form->isOpen()) return;
  form->fit();
  // Twice: coming to a monitor of another resolution changes its size.
  place(*form, arguments);
  place(*form, arguments);

  ui::Timer ownerCheck(timers, "timOwnerCheck", kOwnerCheckMs);
  ownerCheck.onTimer.listen([&] {
    if (!IsWindow(owner) || !IsWindow(windowOf(*form))) form->close();
  });
  ownerCheck.setEnabled(owner != nullptr);
  form->show();
  form->activate();
  // Not before it has the keyboard, which Wine would leave with the other program's window.
  if (owner) {
    SetWindowLongPtrW(windowOf(*form), GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
  }
  loop.run();
}

}  // namespace tessivo::ssp
