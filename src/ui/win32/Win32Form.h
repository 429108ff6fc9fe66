#pragma once

#include <windows.h>

#include <memory>
#include <optional>

#include "ui/Form.h"
#include "ui/win32/FormContext.h"
#include "ui/win32/InputVerbs.h"

namespace tessivo::ui {

/// The real window of a form. Created hidden; the toolkit puts the controls in and calls `opened`.
class Win32Form final : public FormPeer {
 public:
  Win32Form(Form& form, std::shared_ptr<FormContext> context);
  ~Win32Form() override;
  Win32Form(const Win32Form&) = delete;
  Win32Form& operator=(const Win32Form&) = delete;

  /// The form whose window this is or holds this; null when it is none of ours.
  static Win32Form* of(HWND window);

  /// The controls are there: tells the form its real placement and shows it if it is to be seen.
  void opened();
  /// Gives the keyboard to the control after `current` in tab order; the form itself takes it when
  /// no control can.
  void moveFocus(const Control* current, bool backwards);
  /// A key, or a letter with Alt, before it goes to the control that has the keyboard; whether the
  /// form has dealt with it. Both may end the life of this object.
  bool pressKey(const Control* focus, KeyCode key, bool repeated);
  bool pressMnemonic(char32_t letter);
  bool isDialog() const { return form_.owner() != nullptr; }
  HWND window() const { return window_; }

  void changed(Aspect aspect) override;
  void bringToFront() override;
  void setFocus() override;
  void repaint() override;
  WindowHandle nativeHandle() const override { return reinterpret_cast<WindowHandle>(window_); }
  void windowStateChanged() override;
  void topmostChanged() override;
  void frameStyleChanged() override;
  void setWindowPos(const Rect& pixels) override;
  Rect windowRect() const override;
  Rect innerSize() const override;
  void activate() override;
  MenuItem* popupMenu(MenuItem& menu, std::optional<Point> at) override;

 private:
  static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  std::optional<LRESULT> handleOwn(UINT message, WPARAM wParam, LPARAM lParam);

  static void registerClass();
  void create();
  void takeResolution();
  void changeResolution(UINT dpi, const RECT& suggested);
  void placeMinimised(const Rect& pixels);
  void showOrHide();
  void notePlacement();
  void noteActivation(bool active);
  void restoreFocus();
  void takeDrop(WPARAM drop);
  void limitSize(MINMAXINFO& limits) const;
  void eraseBackground(HDC dc) const;
  bool setPointer(WORD hitTest) const;

  Form& form_;
  std::shared_ptr<FormContext> context_;
  InputVerbs input_;
  HWND window_ = nullptr;
  bool opened_ = false;
  Rect lastInner_{0, 0, -1, -1};  ///< inner size at the last onResize, pixels
};

}  // namespace tessivo::ui
