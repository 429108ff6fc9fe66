#include "fakes/NoToolkit.h"
#include "forms/FormWorld.h"

namespace tessivo::ui {
namespace {

/// The world of the models: what they hold is what is seen.
class ModelFormWorld : public FormWorld {
 public:
  Toolkit& toolkit() override { return toolkit_; }

  std::string text(const Control& control) override {
    if (const auto* captioned = dynamic_cast<const Captioned*>(&control)) {
      return captioned->caption();
    }
    return dynamic_cast<const Form&>(control).caption();
  }
  bool isVisible(const Control& control) override { return control.visible(); }
  bool isEnabled(const Control& control) override { return control.enabled(); }
  Rect bounds(const Control& control) override {
    const Rect& at = control.bounds();
    return {at.left / 15, at.top / 15, at.width / 15, at.height / 15};
  }
  bool isChecked(const CheckBox& box) override { return box.checked(); }
  int position(const Slider& slider) override { return slider.value(); }
  int maximum(const Slider& slider) override { return slider.max(); }
  int entryCount(const ComboBox& box) override { return static_cast<int>(box.items().size()); }
  int chosenEntry(const ComboBox& box) override { return box.listIndex(); }
  int selectedTab(const TabStrip& tabs) override { return tabs.selected(); }
  int rowCount(const ListView& list) override { return list.rowCount(); }
  int selectedRow(const ListView& list) override { return list.selected(); }
  std::string cell(const ListView& list, int row, int column) override {
    return column == 0 ? "" : list.row(row).subItems.at(static_cast<std::size_t>(column) - 1);
  }
  bool isTicked(const ListView& list, int row) override { return list.row(row).checked; }

  void click(Button& button) override { button.click(); }
  void click(CheckBox& box) override { box.click(); }
  void choose(ComboBox& box, int entry) override { box.choose(entry); }
  void chooseTab(TabStrip& tabs, int tab) override { tabs.choose(tab); }
  void type(TextBox& box, const std::string& text) override { box.type(text); }
  void dragTo(Slider& slider, int value) override {
    slider.press();
    slider.drag(value);
    slider.release();
  }
  void pressKey(Slider& slider, KeyCode key, int reached) override {
    slider.keyDown(key);
    slider.drag(reached);
    slider.commit();
    slider.keyUp(key);
  }
  void clickRow(ListView& list, int row) override { list.clickRow(row); }
  void tickRow(ListView& list, int row) override { list.tick(row, !list.row(row).checked); }
  void mouse(Control& control, const MouseEvent& at) override {
    control.mouseDown(at);
    control.mouseUp(at);
    if (at.button == MouseButton::left) control.click();
  }
  void close(Form& form) override { form.close(); }

 private:
  tessivo::NoToolkit toolkit_;
};

}  // namespace

std::unique_ptr<FormWorld> makeFormWorld() {
  return std::make_unique<ModelFormWorld>();
}

}  // namespace tessivo::ui
