#include "ui/TabOrder.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "ui/Button.h"

namespace tessivo::ui {
namespace {

void collect(const Container& container, const Control* current, std::vector<Control*>& out) {
  for (Control* child : container.children()) {
    const bool usable = child->visible() && child->enabled();
    // The current control counts even when it has just been disabled: it is where Tab starts from.
    if ((usable && child->focusable()) || child == current) out.push_back(child);
    const auto* inner = dynamic_cast<const Container*>(child);
    if (usable && inner) collect(*inner, current, out);
  }
}

Control* nextAfter(const Control* current, std::vector<Control*> order, bool backwards) {
  if (backwards) std::reverse(order.begin(), order.end());
  const auto at = std::find(order.begin(), order.end(), current);
  if (at != order.end()) {
    std::rotate(order.begin(), at, order.end());
    order.erase(order.begin());
  }
  return order.empty() ? nullptr : order.front();
}

}  // namespace

Control* nextInTabOrder(const Container& form, const Control* current, bool backwards) {
  std::vector<Control*> order;
  collect(form, current, order);
  return nextAfter(current, std::move(order), backwards);
}

Control* nextButton(const Control& button, bool backwards) {
  std::vector<Control*> order;
  for (Control* child : button.parent()->children()) {
    const bool usable = child->visible() && child->enabled();
    if (usable && dynamic_cast<const Button*>(child)) order.push_back(child);
  }
  return nextAfter(&button, std::move(order), backwards);
}

}  // namespace tessivo::ui
