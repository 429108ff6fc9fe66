// The controller's part in the system's screen saver and in the program's own.
#include "app/Controler.h"

namespace tessivo {

/// The show is never blanked by the system while the program runs.
void Controler::holdSystemAwake() {
  m_objScreenSaveAndPower_ = std::make_unique<ScreenSaveAndPower>(services_.power);
  m_objScreenSaveAndPower_->CloseScreenSave();
  m_objScreenSaveAndPower_->DisEnablePowerSaver();
  services_.log.info("the system's screen saver and sleep are switched off");
}

void Controler::startScreenSaver(const std::string& folder) {
  const SaverServices services{services_.idleInput, services_.timers, services_.processes,
                               services_.files,     services_.log,    services_.applicationFolder};
  m_objScreenSaverCtrl_ = std::make_unique<ScreenSaverCtrl>(services, [this] {
    return screen_ ? PlayWindow{screen_->boolMaxSize(), screen_->caption()} : PlayWindow{};
  });
  m_objScreenSaverCtrl_->lngDelayMinute(config_.lngSSDelayMinute());
  m_objScreenSaverCtrl_->strScreenSaverProcName(config_.strScrSavProcName());
  m_objScreenSaverCtrl_->strScrSavPrcsFolderPath(folder);
  switchScreenSaver(config_.boolScreenSaver());
}

void Controler::switchScreenSaver(bool on) {
  m_objScreenSaverCtrl_->lngWorkState(on ? saverState::waitting_saver
                                         : saverState::unenabled_saver);
}

void Controler::endScreenSavers() {
  if (m_objScreenSaveAndPower_) {
    m_objScreenSaveAndPower_->EnablePowerSaver();
    m_objScreenSaveAndPower_->OpenScreenSave();
    m_objScreenSaveAndPower_.reset();
    services_.log.info("the system's screen saver and sleep are switched on");
  }
  if (m_objScreenSaverCtrl_) {
    switchScreenSaver(false);
    m_objScreenSaverCtrl_.reset();
  }
}

void Controler::setPlayPosiForScreenSaver(const Rect& pixels) {
  if (!m_objScreenSaverCtrl_) return;
  m_objScreenSaverCtrl_->SetPlayArea(pixels.left, pixels.top, pixels.width, pixels.height);
}

void Controler::previewAScrSavProcByName(const std::string& name) {
  if (m_objScreenSaverCtrl_) m_objScreenSaverCtrl_->previewAScrSavProcByName(name);
}

std::string Controler::showAScrSavPrcPramConfigFace(const std::string& name, std::int32_t x,
                                                    std::int32_t y,
                                                    const std::string& ownerCaption) {
  if (!m_objScreenSaverCtrl_) return "";
  return m_objScreenSaverCtrl_->showAScrSavPrcPramConfigFace(name, x, y, ownerCaption);
}

std::vector<std::string> Controler::screenSaverNames() {
  std::vector<std::string> names;
  if (!m_objScreenSaverCtrl_) return names;
  m_objScreenSaverCtrl_->getScrSaverProcNameList();
  for (std::int32_t i = 1; i <= m_objScreenSaverCtrl_->lngGetScrSavPrcNameLstItmCount(); ++i) {
    names.push_back(m_objScreenSaverCtrl_->strGetScrSavPrcNameByIndex(i));
  }
  return names;
}

void Controler::saveRunPram(const RunParameter& parameter) {
  config_.boolPlayNextOnErr(parameter.boolPlayNextOnErr);
  config_.boolPopuMainFaceForErr(parameter.boolPopuMainFaceForErr);
  config_.boolSavePlayList(parameter.boolSavePlayList);
  config_.boolScreenSaver(parameter.boolScreenSaver);
  config_.lngSSDelayMinute(parameter.lngSSDelayMinute);
  config_.strScrSavProcName(parameter.strScrSavProcName);
  if (!config_.boolSaveData()) {
    services_.log.error("settings not saved: " + config_.strReport());
  }
  if (!m_objScreenSaverCtrl_) return;
  m_objScreenSaverCtrl_->lngDelayMinute(parameter.lngSSDelayMinute);
  m_objScreenSaverCtrl_->strScreenSaverProcName(parameter.strScrSavProcName);
  switchScreenSaver(parameter.boolScreenSaver);
}

}  // namespace tessivo
