#include "app/ConfigFace.h"

#include "saver/frmScrSaverPramSet.h"

namespace tessivo {

void ConfigFace::open(ui::Form& owner) {
  if (shown_) return shown_->activate();
  frmSysConfig dialog(services_, owner.twipsPerPixel(), *this);
  dialog.onUnload.listen([this] { shown_ = nullptr; });
  shown_ = &dialog;
  dialog.showOver(services_.toolkit, owner);
}

void ConfigFace::showScreenSaverSettings(ui::Form& owner, const std::string& name,
                                         std::int32_t left, std::int32_t top) {
  frmScrSaverPramSet waiter({services_.timers, clock_, processes_,
                             [this](const std::string& program, std::int32_t x, std::int32_t y,
                                    const std::string& caption) {
                               return controler_.showAScrSavPrcPramConfigFace(program, x, y,
                                                                              caption);
                             }},
                            owner.twipsPerPixel());
  waiter.strProcName(name);
  waiter.lngFaceLeft(left);
  waiter.lngFaceTop(top);
  waiter.showOver(services_.toolkit, owner);
}

}  // namespace tessivo
