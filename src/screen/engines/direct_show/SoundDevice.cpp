#include "screen/engines/direct_show/SoundDevice.h"

#include <dshow.h>  // before the next, which lacks the types of wave formats
//
#include <dsound.h>

#include <mutex>

#include "platform/win32/ComPtr.h"

namespace tessivo {
namespace {

struct Shared {
  std::mutex mutex;
  int users = 0;
  ComPtr<IDirectSound8> device;
};

Shared& shared() {
  static auto& forGood = *new Shared;  // a thread that hangs may outlive the end of the program
  return forGood;
}

}  // namespace

SoundDevice::SoundDevice() {
  Shared& all = shared();
  const std::lock_guard lock(all.mutex);
  if (all.users++ > 0) return;
  CoCreateInstance(CLSID_DirectSound8, nullptr, CLSCTX_INPROC_SERVER, IID_IDirectSound8,
                   all.device.putVoid());
  if (all.device) all.device->Initialize(nullptr);
}

SoundDevice::~SoundDevice() {
  Shared& all = shared();
  const std::lock_guard lock(all.mutex);
  if (--all.users == 0) all.device = {};
}

}  // namespace tessivo
