#include "ssp/SettingsForm.h"

#include <optional>
#include <utility>

namespace tessivo::ssp {
namespace {

// Twips.
constexpr std::int32_t kMargin = 240;
constexpr std::int32_t kRowHeight = 345;
constexpr std::int32_t kRowGap = 120;
constexpr std::int32_t kLabelWidth = 1080;
constexpr std::int32_t kLabelDrop = 45;  ///< its text on one line with the control's
constexpr std::int32_t kControlWidth = 4800;
constexpr std::int32_t kProblemGap = 90;  ///< above and below the line
constexpr std::int32_t kProblemHeight = 285;
constexpr std::int32_t kButtonWidth = 1260;
constexpr std::int32_t kButtonHeight = 405;
constexpr std::int32_t kButtonGap = 120;
constexpr ui::Colour kProblemColour = 0xC00000;
constexpr ui::KeyCode kEnter = 13;
constexpr ui::KeyCode kEscape = 27;

}  // namespace

SettingsForm::SettingsForm(std::string name, std::string caption, TwipsPerPixel twipsPerPixel)
    : Form(std::move(name), std::move(caption), twipsPerPixel), labProblem(this, "labProblem", "") {
  labProblem.setColours(kProblemColour, std::nullopt);
  setBoxes(true, false, false);
  setFrameStyle(frameStyle() & ~ui::frame::kSizingFrame);
  setFollowsResolution(true);
  setBounds({0, 0, 6000, 3000});
  onClose.listen([this] { unload(); });
  onResize.listen([this] { layOut(); });
  onKey.listen([this](ui::KeyPress& press) { handleKey(press); });
}

SettingsForm::~SettingsForm() {
  Form::unload();
}

void SettingsForm::fit() {
  const auto rows = static_cast<std::int32_t>(rows_.size());
  setInnerSize(kMargin + kLabelWidth + kControlWidth + kMargin,
               kMargin + rows * (kRowHeight + kRowGap) - kRowGap + kProblemGap + kProblemHeight +
                   kProblemGap + kButtonHeight + kMargin);
}

void SettingsForm::addRow(ui::Label* label, ui::Control& control, ui::Control* button) {
  rows_.push_back({label, &control, button});
}

void SettingsForm::setButtons(ui::Button& ok, ui::Button& cancel) {
  ok_ = &ok;
  cancel_ = &cancel;
  ok.onClick.listen([this] { confirm(); });
  cancel.onClick.listen([this] { close(); });
}

std::string SettingsForm::save() {
  std::string hindrance = problem();
  if (hindrance.empty() && save_ && !save_(settingsText())) {
    hindrance = "无法保存设置，请检查文件夹是否可写。";
  }
  return hindrance;
}

void SettingsForm::confirm() {
  labProblem.setCaption(save());
  if (!labProblem.caption().empty()) return;
  accepted_ = true;
  unload();
}

void SettingsForm::handleKey(ui::KeyPress& press) {
  const bool onButton = dynamic_cast<const ui::Button*>(press.focus) != nullptr;
  press.handled = press.code == kEscape || (press.code == kEnter && !onButton);
  if (press.handled) press.code == kEscape ? close() : confirm();
}

void SettingsForm::layOut() {
  std::int32_t y = kMargin;
  for (const Row& row : rows_) {
    const std::int32_t left = kMargin + kLabelWidth;
    std::int32_t right = scaleWidth() - kMargin;
    if (row.label) {
      row.label->setBounds({kMargin, y + kLabelDrop, kLabelWidth, kRowHeight - kLabelDrop});
    }
    if (row.button) {
      row.button->setBounds({right - kButtonWidth, y, kButtonWidth, kRowHeight});
      right -= kButtonWidth + kButtonGap;
    }
    row.control->setBounds({left, y, right - left, kRowHeight});
    y += kRowHeight + kRowGap;
  }
  labProblem.setBounds(
      {kMargin, y - kRowGap + kProblemGap, scaleWidth() - kMargin - kMargin, kProblemHeight});
  const std::int32_t top = scaleHeight() - kMargin - kButtonHeight;
  const std::int32_t cancelLeft = scaleWidth() - kMargin - kButtonWidth;
  cancel_->setBounds({cancelLeft, top, kButtonWidth, kButtonHeight});
  ok_->setBounds({cancelLeft - kButtonGap - kButtonWidth, top, kButtonWidth, kButtonHeight});
}

}  // namespace tessivo::ssp
