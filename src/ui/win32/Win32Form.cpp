#include "ui/win32/Win32Form.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/win32/Guarded.h"
#include "platform/win32/WindowsText.h"
#include "ui/Mnemonics.h"
#include "ui/TabOrder.h"
#include "ui/win32/ControlWindow.h"
#include "ui/win32/Win32DroppedFiles.h"
#include "ui/win32/Win32PopupMenu.h"

namespace tessivo::ui {
namespace {

constexpr wchar_t kWindowClass[] = L"TessivoForm";
constexpr int kProgramIcon = 1;
constexpr LONG kNoLimit = 32767;

/// The program's icon as wide and high as the system metric says. Not LR_SHARED, which answers any
/// size with the one that was loaded first.
HICON programIcon(int metric) {
  const int side = GetSystemMetrics(metric);
  const HANDLE icon = LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kProgramIcon),
                                 IMAGE_ICON, side, side, LR_DEFAULTCOLOR);
  return icon ? static_cast<HICON>(icon) : LoadIconW(nullptr, IDI_APPLICATION);
}

/// How a window comes to its state without taking the keyboard from another program.
int showCommand(WindowState state) {
  switch (state) {
    case WindowState::minimised:
      return SW_SHOWMINNOACTIVE;
    case WindowState::maximised:
      return SW_SHOWMAXIMIZED;
    case WindowState::normal:
      break;
  }
  return SW_SHOWNOACTIVATE;
}

WindowState stateOf(HWND window) {
  if (IsIconic(window)) return WindowState::minimised;
  return IsZoomed(window) ? WindowState::maximised : WindowState::normal;
}

struct DialogSearch {
  HWND owner = nullptr;
  HWND found = nullptr;
};

BOOL CALLBACK lookForDialog(HWND window, LPARAM into) {
  auto& search = *reinterpret_cast<DialogSearch*>(into);
  // Not its root owner, which for windows with a frame the system does not tell.
  HWND above = GetWindow(window, GW_OWNER);
  while (above && above != search.owner) above = GetWindow(above, GW_OWNER);
  if (above && IsWindowVisible(window) && IsWindowEnabled(window)) search.found = window;
  return search.found == nullptr;
}

/// The dialog that is up over the window; null when there is none. Not the last active pop-up: that
/// is the window itself when it was made active from outside.
HWND dialogOf(HWND owner) {
  DialogSearch search{owner};
  EnumThreadWindows(GetCurrentThreadId(), lookForDialog, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

bool canTakeFocus(HWND window) {
  return IsWindowVisible(window) && IsWindowEnabled(window);
}

}  // namespace

Win32Form::Win32Form(Form& form, std::shared_ptr<FormContext> context)
    : form_(form),
      context_(std::move(context)),
      input_(form, context_->twips(), {.clicks = true, .captures = true, .ownRightButton = false}) {
  registerClass();
  create();
}

Win32Form::~Win32Form() {
  if (window_) SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  context_->form = nullptr;
  context_->dropToolTips();
  context_->destroy(window_);
}

void Win32Form::registerClass() {
  // Loaded once: they belong to the class, which lasts as long as the program.
  static const HICON bigIcon = programIcon(SM_CXICON);
  static const HICON smallIcon = programIcon(SM_CXSMICON);
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.style = CS_DBLCLKS;
  windowClass.lpfnWndProc = windowProc;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hIcon = bigIcon;
  windowClass.hIconSm = smallIcon;
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.lpszClassName = kWindowClass;
  RegisterClassExW(&windowClass);  // fails harmlessly after the first time
}

void Win32Form::create() {
  const Rect at = toPixels(form_.bounds(), context_->twips());
  const HWND owner =
      form_.owner() ? reinterpret_cast<HWND>(form_.owner()->nativeHandle()) : nullptr;
  const DWORD exStyle = WS_EX_CONTROLPARENT | (form_.topmost() ? WS_EX_TOPMOST : 0);
  const DWORD style = WS_OVERLAPPED | WS_CLIPCHILDREN | (form_.enabled() ? 0 : WS_DISABLED);
  CreateWindowExW(exStyle, kWindowClass, toWide(form_.caption()).c_str(),
                  style | form_.frameStyle(), at.left, at.top, at.width, at.height, owner, nullptr,
                  GetModuleHandleW(nullptr), this);
  if (!window_) {
    context_->log().error("no window for " + form_.name() + ", error " +
                          std::to_string(GetLastError()));
    return;
  }
  // Windows gives every top-level window a caption at its creation.
  frameStyleChanged();
  SetWindowPos(window_, nullptr, at.left, at.top, at.width, at.height,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
  SendMessageW(window_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL),
               0);
  if (form_.followsResolution()) takeResolution();
  DragAcceptFiles(window_, form_.acceptsFiles());
}

/// The monitor on which the window came up need not have the resolution that the program began
/// with.
void Win32Form::takeResolution() {
  const TwipsPerPixel real = twipsPerPixelAt(GetDpiForWindow(window_));
  if (real.x == context_->twips().x) return;
  const Rect at = windowRect();
  context_->setTwips(real);
  form_.noteTwipsPerPixel(real);
  const Rect size = toPixels(form_.bounds(), real);
  SetWindowPos(window_, nullptr, at.left, at.top, size.width, size.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Win32Form::changeResolution(UINT dpi, const RECT& suggested) {
  if (!form_.followsResolution() || dpi == 0) return;
  const auto alive = input_.alive();
  context_->setTwips(twipsPerPixelAt(dpi));
  form_.noteTwipsPerPixel(context_->twips());
  const Rect at = toRect(suggested);
  SetWindowPos(window_, nullptr, at.left, at.top, at.width, at.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
  // The inside may have as many pixels as before and yet other twips.
  if (*alive) form_.onResize.raise();
}

Win32Form* Win32Form::of(HWND window) {
  const HWND root = window ? GetAncestor(window, GA_ROOT) : nullptr;
  if (!root) return nullptr;
  const auto procedure = reinterpret_cast<WNDPROC>(GetClassLongPtrW(root, GCLP_WNDPROC));
  if (procedure != windowProc) return nullptr;
  return reinterpret_cast<Win32Form*>(GetWindowLongPtrW(root, GWLP_USERDATA));
}

void Win32Form::opened() {
  const auto alive = input_.alive();
  opened_ = true;
  notePlacement();
  if (*alive && form_.visible()) showOrHide();
}

void Win32Form::changed(Aspect aspect) {
  const Rect at = toPixels(form_.bounds(), context_->twips());
  switch (aspect) {
    case Aspect::bounds:
      if (IsIconic(window_)) return placeMinimised(at);
      SetWindowPos(window_, nullptr, at.left, at.top, at.width, at.height,
                   SWP_NOZORDER | SWP_NOOWNERZORDER | SWP_NOACTIVATE);
      return;
    case Aspect::visible:
      return showOrHide();
    case Aspect::enabled:
      EnableWindow(window_, form_.enabled());
      return;
    case Aspect::caption:
      SetWindowTextW(window_, toWide(form_.caption()).c_str());
      return;
    case Aspect::colours:
      return repaint();
    case Aspect::pointer:
      setPointer(HTCLIENT);
      return;
    default:
      return;
  }
}

/// Where a minimised window will be when it is restored. The place stays, its size may change.
void Win32Form::placeMinimised(const Rect& pixels) {
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window_, &placement);
  RECT& normal = placement.rcNormalPosition;
  normal.right = normal.left + pixels.width;
  normal.bottom = normal.top + pixels.height;
  SetWindowPlacement(window_, &placement);
}

void Win32Form::showOrHide() {
  ShowWindow(window_, form_.visible() ? showCommand(form_.windowState()) : SW_HIDE);
  // The keyboard that came to a hidden window could not be passed on to a control.
  if (form_.visible() && GetFocus() == window_) restoreFocus();
}

void Win32Form::bringToFront() {
  SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Win32Form::setFocus() {
  if (GetActiveWindow() == window_) SetFocus(window_);
}

void Win32Form::repaint() {
  if (!window_) return;
  RedrawWindow(window_, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void Win32Form::windowStateChanged() {
  // A hidden form takes its state when it is shown.
  if (form_.visible() && stateOf(window_) != form_.windowState()) showOrHide();
}

void Win32Form::topmostChanged() {
  SetWindowPos(window_, form_.topmost() ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void Win32Form::frameStyleChanged() {
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE));
  SetWindowLongPtrW(window_, GWL_STYLE,
                    static_cast<LONG_PTR>((style & ~frame::kAll) | form_.frameStyle()));
}

void Win32Form::setWindowPos(const Rect& pixels) {
  SetWindowPos(window_, nullptr, pixels.left, pixels.top, pixels.width, pixels.height,
               SWP_NOZORDER | SWP_FRAMECHANGED | SWP_NOOWNERZORDER);
}

Rect Win32Form::windowRect() const {
  RECT edges{};
  GetWindowRect(window_, &edges);
  return toRect(edges);
}

Rect Win32Form::innerSize() const {
  RECT edges{};
  GetClientRect(window_, &edges);
  return toTwips(toRect(edges), context_->twips());
}

void Win32Form::activate() {
  if (IsIconic(window_)) ShowWindow(window_, SW_RESTORE);
  // While a dialog is up over the form, the keyboard is the dialog's.
  const HWND dialog = IsWindowEnabled(window_) ? nullptr : dialogOf(window_);
  const HWND target = dialog ? dialog : window_;
  SetForegroundWindow(target);
  constexpr UINT kStay = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE;
  if (GetForegroundWindow() != target && !form_.topmost()) {
    // The system did not give a program in the background the foreground: be seen at least.
    SetWindowPos(target, HWND_TOPMOST, 0, 0, 0, 0, kStay);
    SetWindowPos(target, HWND_NOTOPMOST, 0, 0, 0, 0, kStay);
  }
  // The foreground need not be in front where a window manager has its own mind.
  SetWindowPos(target, HWND_TOP, 0, 0, 0, 0, kStay);
}

MenuItem* Win32Form::popupMenu(MenuItem& menu, std::optional<Point> at) {
  std::optional<POINT> screen;
  if (at) {
    screen = POINT{tessivo::toPixels(at->x, context_->twips().x),
                   tessivo::toPixels(at->y, context_->twips().y)};
    ClientToScreen(window_, &*screen);
  }
  return runPopupMenu(window_, form_.clickActivates(), menu, screen);
}

bool Win32Form::pressKey(const Control* focus, KeyCode key, bool repeated) {
  const auto context = context_;
  const FormContext::Dispatch dispatch(context);
  const bool control = (GetKeyState(VK_CONTROL) & 0x8000) != 0;
  bool handled = false;
  guarded(context->log(), [&] {
    handled = form_.pressKey({key, control, repeated, focus, false});
  });
  return handled;
}

bool Win32Form::pressMnemonic(char32_t letter) {
  Control* const control = controlOfMnemonic(form_, letter);
  if (!control) return false;
  const auto context = context_;
  const FormContext::Dispatch dispatch(context);
  guarded(context->log(), [&] {
    control->setFocus();
    control->click();
  });
  return true;
}

LRESULT CALLBACK Win32Form::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    auto* created = static_cast<Win32Form*>(creation->lpCreateParams);
    created->window_ = window;
    created->context_->form = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* form = reinterpret_cast<Win32Form*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!form) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    form->window_ = nullptr;
    form->context_->form = nullptr;
    form->context_->dropToolTips();
    return DefWindowProcW(window, message, wParam, lParam);
  }
  const auto context = form->context_;
  const FormContext::Dispatch dispatch(context);
  LRESULT result = 0;
  guarded(context->log(), [&] { result = form->handle(message, wParam, lParam); });
  return result;
}

LRESULT Win32Form::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND window = window_;
  const auto alive = input_.alive();
  if (const auto reflected = ControlWindow::reflect(message, wParam, lParam)) return *reflected;
  if (!*alive) return 0;
  if (const auto done = handleOwn(message, wParam, lParam)) return *done;
  if (*alive) input_.before(window, message, wParam, lParam);
  if (!*alive) return 0;
  const LRESULT result = DefWindowProcW(window, message, wParam, lParam);
  if (*alive) input_.after(window, message, wParam, lParam);
  return result;
}

std::optional<LRESULT> Win32Form::handleOwn(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_CLOSE:
      form_.close();
      return 0;
    case WM_SIZE:
    case WM_MOVE:
      notePlacement();
      return 0;
    case WM_ACTIVATE:
      noteActivation(LOWORD(wParam) != WA_INACTIVE);
      return 0;
    case WM_MOUSEACTIVATE:
      return form_.clickActivates() ? std::nullopt : std::optional<LRESULT>(MA_NOACTIVATE);
    case WM_SETFOCUS:
      restoreFocus();
      return 0;
    case WM_DROPFILES:
      takeDrop(wParam);
      return 0;
    case WM_QUERYENDSESSION:
      return TRUE;
    case WM_ENDSESSION:
      if (wParam) form_.onEndSession.raise();
      return 0;
    case WM_DPICHANGED:
      changeResolution(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_GETMINMAXINFO:
      limitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
      return 0;
    case WM_ERASEBKGND:
      eraseBackground(reinterpret_cast<HDC>(wParam));
      return TRUE;
    case WM_SETCURSOR:
      return setPointer(LOWORD(lParam)) ? std::optional<LRESULT>(TRUE) : std::nullopt;
    default:
      return std::nullopt;
  }
}

/// Tells the form where its window is. A change of the inner size alone (the frame came or went)
/// is a resize too.
void Win32Form::notePlacement() {
  if (!opened_) return;
  const WindowState state = stateOf(window_);
  form_.noteWindowState(form_.visible() ? state : form_.windowState());
  if (state == WindowState::minimised) return;
  RECT inner{};
  GetClientRect(window_, &inner);
  const bool resized = std::exchange(lastInner_, toRect(inner)) != lastInner_;
  const Rect outer = toTwips(windowRect(), context_->twips());
  const bool raisesItself = outer.width != form_.width() || outer.height != form_.height();
  const auto alive = input_.alive();
  form_.noteMoved(outer);
  if (*alive && resized && !raisesItself) form_.onResize.raise();
}

void Win32Form::noteActivation(bool active) {
  if (!active) {
    const HWND focus = GetFocus();
    if (focus && IsChild(window_, focus)) context_->focus = focus;
    form_.onDeactivate.raise();
    return;
  }
  if (!IsIconic(window_)) restoreFocus();
  form_.onActivate.raise();
}

void Win32Form::restoreFocus() {
  const HWND focus = context_->focus;
  if (focus && IsChild(window_, focus) && canTakeFocus(focus)) {
    SetFocus(focus);
  } else {
    moveFocus(nullptr, false);
  }
}

void Win32Form::moveFocus(const Control* current, bool backwards) {
  const Control* next = nextInTabOrder(form_, current, backwards);
  const HWND target = next ? reinterpret_cast<HWND>(next->nativeHandle()) : nullptr;
  if (target && canTakeFocus(target)) {
    SetFocus(target);
  } else if (!current && GetFocus() != window_) {
    SetFocus(window_);
  }
}

void Win32Form::takeDrop(WPARAM drop) {
  const Win32DroppedFiles files(reinterpret_cast<HDROP>(drop));
  form_.onFilesDropped.raise(files);
}

void Win32Form::limitSize(MINMAXINFO& limits) const {
  const Rect smallest = toPixels(form_.minimumSize(), context_->twips());
  limits.ptMinTrackSize.x = std::max<LONG>(limits.ptMinTrackSize.x, smallest.width);
  limits.ptMinTrackSize.y = std::max<LONG>(limits.ptMinTrackSize.y, smallest.height);
  if (form_.maximumHeight() > 0) {
    const LONG highest = tessivo::toPixels(form_.maximumHeight(), context_->twips().y);
    limits.ptMaxTrackSize.y = std::min(limits.ptMaxTrackSize.y, highest);
    limits.ptMaxSize.y = std::min(limits.ptMaxSize.y, highest);
  }
  // Full screen: the program says how large the window is, the system must not cut it.
  if (!(form_.frameStyle() & frame::kSizingFrame)) limits.ptMaxTrackSize = {kNoLimit, kNoLimit};
}

void Win32Form::eraseBackground(HDC dc) const {
  RECT area{};
  GetClientRect(window_, &area);
  FillRect(dc, &area, context_->brush(backColourOf(form_)));
}

/// The form's pointer shape counts for its controls too: they ask their parent first.
bool Win32Form::setPointer(WORD hitTest) const {
  const HCURSOR cursor = cursorOf(form_.pointerShape());
  if (!cursor || hitTest != HTCLIENT) return false;
  SetCursor(cursor);
  return true;
}

}  // namespace tessivo::ui
