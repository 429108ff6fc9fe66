#include "ui/win32/ControlWindow.h"

#include <utility>

#include "platform/win32/Guarded.h"
#include "platform/win32/WindowsText.h"
#include "ui/Form.h"
#include "ui/win32/AccessibleName.h"
#include "ui/win32/Win32Form.h"

namespace tessivo::ui {
namespace {

constexpr wchar_t kLinkProperty[] = L"TessivoPeer";
constexpr UINT kSettle = WM_APP + 1;

}  // namespace

ControlWindow::ControlWindow(Control& model, std::shared_ptr<FormContext> context,
                             InputVerbs::Extras extras)
    : model_(model), context_(std::move(context)), input_(model, context_->twips(), extras) {}

ControlWindow::~ControlWindow() {
  if (link_) link_->control = nullptr;
  context_->destroy(window_);
}

void ControlWindow::create(const wchar_t* windowClass, const std::string& text, DWORD style,
                           DWORD exStyle) {
  const Rect at = toPixels(model_.bounds(), context_->twips());
  const DWORD state = (model_.visible() ? WS_VISIBLE : 0) | (model_.enabled() ? 0 : WS_DISABLED) |
                      (model_.focusable() ? WS_TABSTOP : 0);
  window_ = CreateWindowExW(exStyle, windowClass, toWide(text).c_str(),
                            WS_CHILD | WS_CLIPSIBLINGS | state | style, at.left, at.top, at.width,
                            windowHeight(at.height),
                            reinterpret_cast<HWND>(model_.parent()->nativeHandle()), nullptr,
                            GetModuleHandleW(nullptr), nullptr);
  if (!window_) {
    context_->log().error("no window for " + model_.name() + ", error " +
                          std::to_string(GetLastError()));
    return;
  }
  link_ = new Link{this, context_};
  SetPropW(window_, kLinkProperty, link_);
  nameWindow(window_, model_.name(), model_.accessibleName());
  SetWindowSubclass(window_, subclassProc, 0, reinterpret_cast<DWORD_PTR>(link_));
  send(WM_SETFONT, reinterpret_cast<WPARAM>(context_->fonts().plain()), FALSE);
  context_->setToolTip(window_, model_.toolTip());
}

void ControlWindow::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::bounds:
      return place();
    case Aspect::visible:
      ShowWindow(window_, model_.visible() ? SW_SHOWNA : SW_HIDE);
      return;
    case Aspect::enabled:
      return setEnabled(model_.enabled());
    case Aspect::toolTip:
      return context_->setToolTip(window_, model_.toolTip());
    case Aspect::colours:
      if (window_)
        RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
      return;
    case Aspect::scale:
      send(WM_SETFONT, reinterpret_cast<WPARAM>(context_->fonts().plain()), TRUE);
      return place();
    default:
      return;
  }
}

void ControlWindow::postpone() {
  if (!std::exchange(postponed_, true)) PostMessageW(window_, kSettle, 0, 0);
}

void ControlWindow::settle() {
  if (std::exchange(postponed_, false)) carryOver();
}

void ControlWindow::place() {
  const Rect at = toPixels(model_.bounds(), context_->twips());
  SetWindowPos(window_, nullptr, at.left, at.top, at.width, windowHeight(at.height),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void ControlWindow::setEnabled(bool enabled) {
  const bool hadFocus = GetFocus() == window_;
  EnableWindow(window_, enabled);
  if (enabled || !hadFocus) return;
  // A disabled window that keeps the keyboard swallows every key.
  if (auto* form = Win32Form::of(window_)) form->moveFocus(&model_, false);
}

void ControlWindow::toFront() {
  SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void ControlWindow::takeFocus() {
  // Giving the keyboard to a window of an inactive form would activate that form.
  context_->focus = window_;
  if (GetActiveWindow() == context_->form) SetFocus(window_);
}

void ControlWindow::redraw() {
  if (window_) {
    RedrawWindow(window_, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
  }
}

LRESULT ControlWindow::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto alive = input_.alive();
  input_.before(window, message, wParam, lParam);
  if (!*alive) return 0;
  const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
  if (*alive) input_.after(window, message, wParam, lParam);
  return result;
}

HBRUSH ControlWindow::onColour(HDC dc) {
  const COLORREF back = backColourOf(model_);
  SetTextColor(dc, textColourOf(model_, GetSysColor(COLOR_BTNTEXT)));
  SetBkColor(dc, back);
  return context_->brush(back);
}

LRESULT CALLBACK ControlWindow::subclassProc(HWND window, UINT message, WPARAM wParam,
                                             LPARAM lParam, UINT_PTR id, DWORD_PTR reference) {
  auto* link = reinterpret_cast<Link*>(reference);
  if (message == WM_NCDESTROY) {
    if (link->control) {
      link->control->window_ = nullptr;
      link->control->link_ = nullptr;
    }
    delete link;
    RemovePropW(window, kLinkProperty);
    RemoveWindowSubclass(window, subclassProc, id);
    return DefSubclassProc(window, message, wParam, lParam);
  }
  const FormContext::Dispatch dispatch(link->context);
  if (!link->control) return DefSubclassProc(window, message, wParam, lParam);
  if (message == WM_SETCURSOR) {
    const HCURSOR cursor = cursorOf(link->control->model_.pointerShape());
    if (cursor && LOWORD(lParam) == HTCLIENT) {
      SetCursor(cursor);
      return TRUE;
    }
  }
  LRESULT result = 0;
  guarded(link->context->log(), [&] {
    link->control->settle();
    if (message != kSettle) result = link->control->handle(window, message, wParam, lParam);
  });
  return result;
}

ControlWindow::Link* ControlWindow::linkOf(HWND window) {
  return static_cast<Link*>(GetPropW(window, kLinkProperty));
}

Control* ControlWindow::modelOf(HWND window) {
  const Link* link = linkOf(window);
  return link && link->control ? &link->control->model_ : nullptr;
}

std::optional<LRESULT> ControlWindow::reflect(UINT message, WPARAM wParam, LPARAM lParam) {
  HWND child = nullptr;
  switch (message) {
    case WM_NOTIFY:
      child = reinterpret_cast<NMHDR*>(lParam)->hwndFrom;
      break;
    case WM_COMMAND:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
      child = reinterpret_cast<HWND>(lParam);
      break;
    default:
      return std::nullopt;
  }
  const Link* link = child ? linkOf(child) : nullptr;
  if (!link || !link->control) return std::nullopt;
  return reflectTo(*link->control, message, wParam, lParam);
}

std::optional<LRESULT> ControlWindow::reflectTo(ControlWindow& control, UINT message, WPARAM wParam,
                                                LPARAM lParam) {
  switch (message) {
    case WM_NOTIFY:
      return control.onNotify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_COMMAND:
      control.onCommand(HIWORD(wParam));
      return 0;
    case WM_HSCROLL:
    case WM_VSCROLL:
      control.onScroll(LOWORD(wParam));
      return 0;
    default:
      return reinterpret_cast<LRESULT>(control.onColour(reinterpret_cast<HDC>(wParam)));
  }
}

}  // namespace tessivo::ui
