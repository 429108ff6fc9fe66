#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/Log.h"
#include "ui/Control.h"
#include "ui/win32/UiFonts.h"

namespace tessivo::ui {

/// What the windows of one form share. It lives as long as any of them.
///
/// The rule of the game: a listener may unload or destroy the form while Windows is still inside a
/// message of one of its windows. The peers go at once and the windows fall silent and vanish from
/// the screen, but they are destroyed only when the outermost message of the form is done. So every
/// window procedure opens a `Dispatch` first and touches no peer after a user verb without asking
/// whether it is still there.
class FormContext {
 public:
  FormContext(Log& log, std::shared_ptr<const UiFonts> fonts, TwipsPerPixel twips)
      : log_(log), fonts_(std::move(fonts)), twips_(twips) {}

  Log& log() const { return log_; }
  const UiFonts& fonts() const { return *fonts_; }
  const TwipsPerPixel& twips() const { return twips_; }
  /// The form is on a monitor of another resolution now: other twips, and fonts to match.
  void setTwips(TwipsPerPixel twips);

  /// Marks the time in which a message of one of the form's windows is handled.
  class Dispatch {
   public:
    explicit Dispatch(std::shared_ptr<FormContext> context) : context_(std::move(context)) {
      ++context_->depth_;
    }
    ~Dispatch();
    Dispatch(const Dispatch&) = delete;
    Dispatch& operator=(const Dispatch&) = delete;

   private:
    std::shared_ptr<FormContext> context_;
  };

  /// Destroys the window: now, or hides it now and destroys it after the present message.
  void destroy(HWND window);

  /// A brush of that colour for as long as the form lives.
  HBRUSH brush(COLORREF colour);

  /// Gives the control's window a tool tip; an empty text takes it away.
  void setToolTip(HWND control, const std::string& text);
  /// A mouse message that the tool tips have not seen.
  void tellToolTips(MSG message);
  /// The form's window is going.
  void dropToolTips();

  HWND form = nullptr;
  /// The window that gets the keyboard when the form is activated next; may be gone.
  HWND focus = nullptr;

 private:
  HWND toolTips();

  Log& log_;
  std::shared_ptr<const UiFonts> fonts_;
  TwipsPerPixel twips_;
  int depth_ = 0;
  std::vector<HWND> doomed_;
  std::map<COLORREF, UniqueGdi<HBRUSH>> brushes_;
  HWND toolTips_ = nullptr;
};

COLORREF toColorRef(Colour colour);

/// The colour behind a control: its own, else that of the nearest container that has one, else the
/// system's.
COLORREF backColourOf(const Control& control);
/// Whether the user has the system show everything in strong contrast.
bool highContrast();
/// The colour of a control's text: its own, else `standard`. In high contrast its own counts only
/// together with a background of the program's: on the system's background only the system's text
/// can be read for sure.
COLORREF textColourOf(const Control& control, COLORREF standard, bool strong = highContrast());

/// Rectangles of models and of windows.
Rect toPixels(const Rect& twips, TwipsPerPixel perPixel);
Rect toTwips(const Rect& pixels, TwipsPerPixel perPixel);
Rect toRect(const RECT& edges);

/// The pointer's shape as Windows' own; null for the standard one.
HCURSOR cursorOf(PointerShape shape);

}  // namespace tessivo::ui
