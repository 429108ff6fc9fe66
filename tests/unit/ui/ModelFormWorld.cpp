#include "fakes/NoToolkit.h"
#include "forms/FormWorld.h"
#include "ui/Mnemonics.h"

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
    return column == 0 ? list.row(row).title
                       : list.row(row).subItems.at(static_cast<std::size_t>(column) - 1);
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
  void clickRow(ListView& list, int row) override {
    list.mouseDown({});
    list.clickRow(row);
    list.mouseUp({});
  }
  void tickRow(ListView& list, int row) override {
    list.clickRow(row);
    list.tick(row, !list.row(row).checked);
  }
  void mouse(Control& control, const MouseEvent& at) override {
    control.mouseDown(at);
    control.mouseUp(at);
    if (at.button == MouseButton::left) control.click();
  }
  void close(Form& form) override { form.close(); }

  bool hasFocus(const Control& control) override { return control.hasFocus(); }
  void doubleClickRow(ListView& list, int row) override {
    pointTo(list, row);
    if (row >= 0) list.clickRow(row);
    list.doubleClick();
  }
  void rightClickRow(ListView& list, int row) override {
    const MouseEvent at = pointTo(list, row);
    if (row >= 0) list.clickRow(row);
    list.mouseUp({MouseButton::right, at.x, at.y});
  }
  void setColumnWidth(ListView& list, int column, std::int32_t twips) override {
    list.setColumnWidth(column, twips);
  }
  void hold(Button& button) override { button.mouseDown({}); }
  void release(Button& button) override {
    button.click();
    button.mouseUp({});
  }
  void mouseDown(Control& control, const MouseEvent& at) override { control.mouseDown(at); }
  void mouseMove(Control& control, const MouseEvent& at) override { control.mouseMove(at); }
  void mouseUp(Control& control, const MouseEvent& at) override { control.mouseUp(at); }
  void key(Form& form, Control& focus, KeyCode code, bool control) override {
    if (form.pressKey({code, control, false, &focus, false})) return;
    focus.keyDown(code);
    const bool clicks = code == ' ' || code == '\r';
    const bool clickable = dynamic_cast<Button*>(&focus) || dynamic_cast<PictureBox*>(&focus);
    if (clicks && clickable) focus.click();
    focus.keyUp(code);
  }
  void mnemonic(Form& form, char letter) override {
    if (Control* control = controlOfMnemonic(form, static_cast<unsigned char>(letter))) {
      control->click();
    }
  }
  void drop(Form& form, const std::vector<std::string>& paths) override {
    struct Drop : DroppedFiles {
      explicit Drop(const std::vector<std::string>& p) : paths(p) {}
      std::uint32_t count() const override { return static_cast<std::uint32_t>(paths.size()); }
      std::string path(std::uint32_t index) const override { return paths[index]; }
      const std::vector<std::string>& paths;
    };
    form.onFilesDropped.raise(Drop(paths));
  }
  void answerDialogs(std::function<void(Form&)> answer) override {
    toolkit_.whenModal = std::move(answer);
  }

 protected:
  void chooseInMenu(Form&, MenuItem& menu, int entry) override {
    for (std::size_t i = 0; i < menu.count(); ++i) {
      MenuItem& item = menu.item(i);
      if (item.isSeparator() || !item.visible()) continue;
      if (entry-- == 0) return item.choose();
    }
  }

 private:
  static MouseEvent pointTo(ListView& list, int row) {
    const int target = row < 0 ? list.rowCount() : row;
    const MouseEvent at{MouseButton::left, 600, list.topOf(target) + ListView::kModelRowHeight / 2};
    list.mouseMove(at);
    return at;
  }

  tessivo::NoToolkit toolkit_;
};

}  // namespace

std::unique_ptr<FormWorld> makeFormWorld() {
  return std::make_unique<ModelFormWorld>();
}

}  // namespace tessivo::ui
