#pragma once

#include "ui/Control.h"

namespace tessivo::ui {

/// A slider from `min` to `max`. The user moves it by `press`, `drag`…, `release` with the mouse,
/// or by `keyDown`, `drag`, `keyUp` with the keys: each drag raises `onScroll`; a release that ends
/// on another value than the one before raises `onChange`.
class Slider : public Control {
 public:
  using Control::Control;

  std::int32_t min() const { return min_; }
  std::int32_t max() const { return max_; }
  std::int32_t value() const { return value_; }
  /// Silent. The value is kept inside the new range.
  void setRange(std::int32_t min, std::int32_t max);
  /// Silent. A value outside the range becomes its nearer end.
  void setValue(std::int32_t value);

  /// The user moves the thumb; raises `onScroll` when the value differs.
  void drag(std::int32_t value);
  void press() { mouseDown({}); }
  void release() {
    commit();
    mouseUp({});
  }
  /// Raises `onChange` when the value differs from that of the last commit or set.
  void commit();

  Signal<> onScroll;
  Signal<> onChange;
  void accept(ControlVisitor& visitor) override;

 private:
  std::int32_t min_ = 0;
  std::int32_t max_ = 100;
  std::int32_t value_ = 0;
  std::int32_t committed_ = 0;
};

}  // namespace tessivo::ui
