#pragma once

#include <string>
#include <vector>

#include "ui/Controls.h"
#include "ui/Form.h"

namespace tessivo::ui {

inline std::string joined(const std::vector<std::string>& steps) {
  std::string all;
  for (const auto& step : steps) all += (all.empty() ? "" : " | ") + step;
  return all;
}

/// A form with a control of each kind, which writes down what happens to it.
struct TestForm : Form {
  explicit TestForm(TwipsPerPixel twips = {}) : Form("frmTest", "泰思维 测试", twips) {
    setBounds({1500, 1500, 9000, 7500});
    place();
    fill();
  }
  ~TestForm() override { unload(); }

  /// What has happened since the last call, in order.
  std::string trace() {
    const std::string all = joined(steps);
    steps.clear();
    return all;
  }
  /// Writes down each mouse event, click and key of the control.
  void watch(Control& control) {
    const auto note = [this](std::string step) { return [this, step] { steps.push_back(step); }; };
    control.onClick.listen(note("click"));
    control.onDoubleClick.listen(note("double click"));
    const auto mouse = [this](std::string what) {
      return [this, what](const MouseEvent& e) {
        steps.push_back(what + " " + std::to_string(static_cast<int>(e.button)) + " at " +
                        std::to_string(e.x) + "," + std::to_string(e.y));
      };
    };
    control.onMouseDown.listen(mouse("down"));
    control.onMouseMove.listen(mouse("move"));
    control.onMouseUp.listen(mouse("up"));
    control.onKeyDown.listen([this](int key) { steps.push_back("key " + std::to_string(key)); });
    control.onKeyUp.listen([this](int key) { steps.push_back("key up " + std::to_string(key)); });
  }

  std::vector<std::string> steps;

  TabStrip tsLists{this, "tsLists"};
  PictureBox picPage{this, "picPage"};
  ListView lvRows{&picPage, "lvRows"};
  Label labText{this, "labText", "停止: "};
  TextBox txtName{this, "txtName", false};
  TextBox txtLink{this, "txtLink", true};
  Slider sldJinDu{this, "sldJinDu"};
  ComboBox comboRule{this, "comboRule"};
  CheckBox chkAll{this, "chkAll", "全选"};
  Button cmdOk{this, "cmdOk", "确定"};
  Button cmdNo{this, "cmdNo", "否"};

 private:
  void place() {
    tsLists.setBounds({150, 150, 8400, 3000});
    picPage.setBounds({225, 600, 8250, 2475});
    lvRows.setBounds({75, 75, 8100, 2250});
    labText.setBounds({150, 3300, 2400, 300});
    txtName.setBounds({2700, 3300, 5850, 330});
    sldJinDu.setBounds({150, 3750, 6150, 450});
    txtLink.setBounds({6450, 3750, 2100, 330});
    comboRule.setBounds({150, 4350, 4200, 330});
    chkAll.setBounds({4500, 4350, 1500, 330});
    cmdOk.setBounds({6150, 4350, 1125, 375});
    cmdNo.setBounds({7425, 4350, 1125, 375});
  }
  void fill() {
    tsLists.addTab("播放列表");
    tsLists.addTab("播放错误日志");
    lvRows.setHasCheckBoxes(true);
    lvRows.addColumn("", 375);
    lvRows.addColumn("名称", 3500);
    lvRows.addColumn("路径", 10000);
    comboRule.addItem("仅使用RealPlayer播放引擎", 2);
    comboRule.addItem("仅使用MediaPlayer播放引擎", 3);
    comboRule.addItem("优先使用RealPlayer播放引擎", 0);
  }
};

}  // namespace tessivo::ui
