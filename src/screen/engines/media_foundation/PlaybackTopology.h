#pragma once

#include <mfidl.h>
#include <windows.h>

#include "platform/win32/ComPtr.h"
#include "screen/engines/media_foundation/GrabbedPicture.h"

namespace tessivo {

/// What of a source is to be rendered.
struct PlaybackTopology {
  ComPtr<IMFTopology> topology;  ///< empty when there is nothing to render
  bool hasSound = false;
  bool hasPicture = false;
  ComPtr<GrabbedPicture> grabbed;  ///< what shows the picture, when it is not the system's renderer
};

/// The topology that plays the source's selected streams: video into `picture`, sound through the
/// default device unless `withSound` is off. The session finds the decoders.
PlaybackTopology playbackTopology(IMFMediaSource* source, IMFPresentationDescriptor* presentation,
                                  HWND picture, bool withSound);

}  // namespace tessivo
