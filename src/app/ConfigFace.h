#pragma once

#include <string>
#include <utility>
#include <vector>

#include "app/Controler.h"
#include "config/frmSysConfig.h"
#include "platform/Clock.h"
#include "platform/Processes.h"

namespace tessivo {

/// Opens the settings dialog, and stands between it and the controller. One dialog at a time.
class ConfigFace : private SysConfigHost {
 public:
  ConfigFace(SysConfigServices services, const Clock& clock, const Processes& processes,
             Controler& controler)
      : services_(std::move(services)),
        clock_(clock),
        processes_(processes),
        controler_(controler) {}

  /// Shows the dialog over the owner and returns when it has been closed; one that is up comes to
  /// the front instead.
  void open(ui::Form& owner);

 private:
  const SysConfig& config() const override { return controler_.config(); }
  std::vector<std::string> screenSaverNames() override { return controler_.screenSaverNames(); }
  void saveRunPram(const RunParameter& parameter) override { controler_.saveRunPram(parameter); }
  void previewAScrSavProcByName(const std::string& name) override {
    controler_.previewAScrSavProcByName(name);
  }
  void showScreenSaverSettings(ui::Form& owner, const std::string& name, std::int32_t left,
                               std::int32_t top) override;

  SysConfigServices services_;
  const Clock& clock_;
  const Processes& processes_;
  Controler& controler_;
  frmSysConfig* shown_ = nullptr;  ///< the dialog that is up
};

}  // namespace tessivo
