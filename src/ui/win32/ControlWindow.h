#pragma once

#include <windows.h>
// after windows.h
#include <commctrl.h>

#include <memory>
#include <optional>
#include <string>

#include "ui/win32/FormContext.h"
#include "ui/win32/InputVerbs.h"

namespace tessivo::ui {

/// The real control of one model: creates its window inside the parent's, carries the common
/// aspects over and passes the window's messages on. The window is subclassed as long as it exists;
/// a message that a control sends to its parent comes back here (`reflect`).
class ControlWindow {
 public:
  ControlWindow(Control& model, std::shared_ptr<FormContext> context,
                InputVerbs::Extras extras = {});
  virtual ~ControlWindow();
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;

  HWND window() const { return window_; }

  /// Carries one aspect over. What a kind of control adds comes in its own `apply`.
  virtual void apply(Aspect aspect);
  void toFront();
  void takeFocus();
  void redraw();

  /// Gives a message that a parent window got from a child to that child's peer. Nothing when the
  /// child has no peer or leaves the message to the system.
  static std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam);

  /// The model of a window; null when it is not one of ours.
  static Control* modelOf(HWND window);

 protected:
  /// Creates the window with the model's state. `style` without WS_CHILD and the like.
  void create(const wchar_t* windowClass, const std::string& text, DWORD style, DWORD exStyle = 0);

  /// One message of the window.
  virtual LRESULT handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  /// A notification that the window sent to its parent.
  virtual void onCommand(WORD /*code*/) {}
  virtual std::optional<LRESULT> onNotify(NMHDR& /*header*/) { return std::nullopt; }
  virtual void onScroll(WORD /*code*/) {}
  /// The brush behind the control's text; sets the text's colours.
  virtual HBRUSH onColour(HDC dc);
  /// Has `carryOver` called once, before the window handles its next message: at the latest on the
  /// next turn of the message loop. For state that may change thousands of times in one go.
  void postpone();
  virtual void carryOver() {}
  /// The height of the window for a model of that height, both in pixels.
  virtual std::int32_t windowHeight(std::int32_t height) const { return height; }

  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_, message, wParam, lParam);
  }
  FormContext& context() const { return *context_; }
  InputVerbs& input() { return input_; }

 private:
  struct Link {
    ControlWindow* control;
    std::shared_ptr<FormContext> context;
  };
  static LRESULT CALLBACK subclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR id, DWORD_PTR reference);
  static Link* linkOf(HWND window);
  static std::optional<LRESULT> reflectTo(ControlWindow& control, UINT message, WPARAM wParam,
                                          LPARAM lParam);
  void settle();
  void place();
  void setEnabled(bool enabled);

  Control& model_;
  std::shared_ptr<FormContext> context_;
  InputVerbs input_;
  HWND window_ = nullptr;
  Link* link_ = nullptr;  ///< owned by the window
  bool postponed_ = false;
};

/// A peer made of a ControlWindow: joins it to the interface through which the model knows it.
template <typename Interface = Peer>
class ControlPeer : public Interface, public ControlWindow {
 public:
  using ControlWindow::ControlWindow;
  void changed(Aspect aspect) override { apply(aspect); }
  void bringToFront() override { toFront(); }
  void setFocus() override { takeFocus(); }
  void repaint() override { redraw(); }
  WindowHandle nativeHandle() const override { return reinterpret_cast<WindowHandle>(window()); }
};

}  // namespace tessivo::ui
