#pragma once

namespace tessivo {

/// For Wine, whose sound device crashes when one graph lets go of it while another one takes it:
/// each graph holds one of these from before it opens until after it has gone, so that the device
/// is taken with the first and let go with the last. Nothing of it is left while nothing plays:
/// Wine's device keeps threads of its own busy. Any thread.
class SoundDevice {
 public:
  SoundDevice();
  ~SoundDevice();
  SoundDevice(const SoundDevice&) = delete;
  SoundDevice& operator=(const SoundDevice&) = delete;
};

}  // namespace tessivo
