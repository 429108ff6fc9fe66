#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ui/Control.h"
#include "ui/Menu.h"

namespace tessivo::ui {

enum class WindowState { normal = 0, minimised = 1, maximised = 2 };

/// The bits of a form's window style that the program switches.
namespace frame {
inline constexpr std::uint32_t kSystemMenu = 0x80000;
inline constexpr std::uint32_t kMaximiseBox = 0x10000;
inline constexpr std::uint32_t kMinimiseBox = 0x20000;
inline constexpr std::uint32_t kCaption = 0xC00000;
inline constexpr std::uint32_t kSizingFrame = 0x40000;
inline constexpr std::uint32_t kAll = 0xCF0000;
}  // namespace frame

/// The real window behind a form.
class FormPeer : public Peer {
 public:
  virtual void windowStateChanged() = 0;
  virtual void topmostChanged() = 0;
  /// The window style's frame bits were changed; the frame is not recomputed yet.
  virtual void frameStyleChanged() = 0;
  /// Moves and sizes the window (pixels), recomputing the frame; order above other windows stays.
  virtual void setWindowPos(const Rect& pixels) = 0;
  /// The outer rectangle in pixels.
  virtual Rect windowRect() const = 0;
  /// The inner size in twips (only width and height count).
  virtual Rect innerSize() const = 0;
  /// Brings the window to the front and gives it the keyboard.
  virtual void activate() = 0;
  /// Shows the menu at the place (twips of the form's inside; nothing: at the pointer); returns the
  /// entry chosen, nothing when none was.
  virtual MenuItem* popupMenu(MenuItem& menu, std::optional<Point> at) = 0;
};

/// A key on its way to a control of the form.
struct KeyPress {
  KeyCode code = 0;
  bool control = false;            ///< the Ctrl key is down
  bool repeated = false;           ///< the key is held
  const Control* focus = nullptr;  ///< where it goes; nothing: to the form itself
  bool handled = false;            ///< set by a listener: it goes no further
};

/// Files that another program dropped on a form.
class DroppedFiles {
 public:
  virtual ~DroppedFiles() = default;
  virtual std::uint32_t count() const = 0;
  virtual std::string path(std::uint32_t index) const = 0;  ///< from 0
};

class Form;

/// Makes the real windows of a form; the native tests' toolkit makes none.
class Toolkit {
 public:
  virtual ~Toolkit() = default;
  /// Creates the form's window, hidden, with all its controls. The form is complete and has its
  /// designed bounds. Ends with one `onResize`: the inner size is now the real one.
  virtual void open(Form& form) = 0;
  /// Opens and shows a dialog over the middle of its owner, on the owner's monitor, with the owner
  /// switched off (without an owner: in the middle of the primary monitor), and returns when the
  /// dialog has been unloaded. Everything else goes on meanwhile.
  virtual void showModal(Form& dialog) = 0;
};

/// A top-level window. Bounds in twips of the virtual screen, outer size. Life: constructed with
/// its controls, opened by a toolkit, shown and hidden, unloaded (its windows are gone, the object
/// stays as it was).
class Form : public Container {
 public:
  Form(std::string name, std::string caption, TwipsPerPixel twipsPerPixel);
  ~Form() override;

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption);
  TwipsPerPixel twipsPerPixel() const { return twipsPerPixel_; }

  // Designed properties, fixed before the form is opened.
  bool controlBox() const { return controlBox_; }
  bool maxButton() const { return maxButton_; }
  bool minButton() const { return minButton_; }
  void setBoxes(bool controlBox, bool minButton, bool maxButton);
  /// The form that this one stays above (a dialog's); it must be open by then. Nothing: none.
  Form* owner() const { return owner_; }
  void setOwner(Form* owner);
  bool acceptsFiles() const { return acceptsFiles_; }
  void setAcceptsFiles(bool accepts) { acceptsFiles_ = accepts; }
  /// Smallest outer size in twips that the user can give the window; 0: the system's.
  void setMinimumSize(std::int32_t width, std::int32_t height) {
    minimumSize_ = {0, 0, width, height};
  }
  const Rect& minimumSize() const { return minimumSize_; }
  /// Greatest outer height in twips, also when maximised; 0: the system's.
  void setMaximumHeight(std::int32_t height) { maximumHeight_ = height; }
  std::int32_t maximumHeight() const { return maximumHeight_; }
  /// Whether the form keeps its size in twips on a monitor with another resolution; a form that
  /// does not keeps its size in pixels. Before the form is opened.
  bool followsResolution() const { return followsResolution_; }
  void setFollowsResolution(bool follows) { followsResolution_ = follows; }

  // Placement, at once or one edge at a time. All in twips. Raises `onResize` when the size
  // differs.
  void setBounds(const Rect& twips);
  std::int32_t left() const { return bounds().left; }
  std::int32_t top() const { return bounds().top; }
  std::int32_t width() const { return bounds().width; }
  std::int32_t height() const { return bounds().height; }
  void setLeft(std::int32_t v) { setBounds({v, top(), width(), height()}); }
  void setTop(std::int32_t v) { setBounds({left(), v, width(), height()}); }
  void setWidth(std::int32_t v) { setBounds({left(), top(), v, height()}); }
  void setHeight(std::int32_t v) { setBounds({left(), top(), width(), v}); }
  /// The inner size in twips.
  std::int32_t scaleWidth() const { return innerSize().width; }
  std::int32_t scaleHeight() const { return innerSize().height; }
  /// Sizes the form so that its inside is that large, in twips.
  void setInnerSize(std::int32_t width, std::int32_t height);
  /// The outer rectangle in pixels.
  Rect windowRect() const;

  WindowState windowState() const { return windowState_; }
  void setWindowState(WindowState state);
  std::uint32_t frameStyle() const { return frameStyle_; }
  void setFrameStyle(std::uint32_t bits);
  /// Moves and sizes the window in pixels, recomputing the frame.
  void setWindowPos(const Rect& pixels);
  /// A click on a form without a title bar neither activates it nor brings it to the front: the
  /// panel above the show stays there.
  bool clickActivates() const { return (frameStyle_ & frame::kCaption) != 0; }
  /// Above all windows that are not topmost themselves.
  bool topmost() const { return topmost_; }
  void setTopmost(bool topmost);

  bool isOpen() const { return peer() != nullptr; }
  void show() { setVisible(true); }
  void hide() { setVisible(false); }
  void activate();
  /// Hides the form and destroys its windows and those of its controls; the forms that it owns go
  /// first.
  void unload();
  /// Pops the menu up at the pointer and carries out the entry that the user chose, after the menu
  /// is gone. Without a peer it only raises `onPopup`.
  void popupMenu(MenuItem& menu, std::optional<Point> at = std::nullopt);

  // What the user or the system does.
  /// The window was moved or sized; raises `onResize` when the size differs.
  void noteMoved(const Rect& twips);
  void noteWindowState(WindowState state);
  void close() { onClose.raise(); }
  /// A key goes down anywhere in the form; the listeners see it before the control. Returns whether
  /// one of them dealt with it.
  bool pressKey(KeyPress press);
  /// The form came to a monitor where a twip takes another number of pixels.
  void noteTwipsPerPixel(TwipsPerPixel twips);

  Signal<KeyPress&> onKey;
  Signal<> onResize;
  /// The user asks to close the window; the form decides what that means.
  Signal<> onClose;
  Signal<> onActivate;
  Signal<> onDeactivate;
  Signal<MenuItem&> onPopup;
  Signal<const DroppedFiles&> onFilesDropped;
  /// The form is about to go.
  Signal<> onUnload;
  /// The session ends: save what must be saved, ask nothing.
  Signal<> onEndSession;

  void accept(ControlVisitor&) override {}

 private:
  FormPeer* formPeer() const { return static_cast<FormPeer*>(peer()); }
  Rect innerSize() const;

  std::string caption_;
  TwipsPerPixel twipsPerPixel_;
  bool controlBox_ = true;
  bool maxButton_ = true;
  bool minButton_ = true;
  bool acceptsFiles_ = false;
  bool followsResolution_ = false;
  Rect minimumSize_;
  std::int32_t maximumHeight_ = 0;
  WindowState windowState_ = WindowState::normal;
  Form* owner_ = nullptr;
  std::vector<Form*> owned_;
  std::uint32_t frameStyle_ = frame::kAll;
  bool topmost_ = false;
};

}  // namespace tessivo::ui
