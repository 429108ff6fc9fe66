#include "screen/engines/media_foundation/PlaybackTopology.h"

#include <mfapi.h>
#include <mmdeviceapi.h>

#include "screen/engines/embedded/RunsOnWine.h"

namespace tessivo {
namespace {

/// MF_TOPOLOGY_ENUMERATE_SOURCE_TYPES, absent from our headers: try every media type that a stream
/// offers, not only its first. Wine's sources need it.
constexpr GUID kEnumerateSourceTypes = {
    0x6248c36d, 0x5d0b, 0x4f40, {0xa0, 0xbb, 0xb0, 0xb3, 0x05, 0xf7, 0x76, 0x98}};

GUID majorTypeOf(IMFStreamDescriptor* stream) {
  ComPtr<IMFMediaTypeHandler> handler;
  GUID type = GUID_NULL;
  if (SUCCEEDED(stream->GetMediaTypeHandler(handler.put()))) handler->GetMajorType(&type);
  return type;
}

ComPtr<IMFActivate> videoRenderer(IMFStreamDescriptor* stream, HWND picture,
                                  ComPtr<GrabbedPicture>& grabbed) {
  ComPtr<IMFActivate> renderer;
  if (runsOnWine()) {
    grabbed = GrabbedPicture::create(stream, picture);
    if (grabbed) renderer = grabbed->sink();
  } else {
    MFCreateVideoRendererActivate(picture, renderer.put());
  }
  return renderer;
}

/// Without one a session of Wine that was refused its sound cannot be used any more.
bool soundDeviceIsThere() {
  ComPtr<IMMDeviceEnumerator> devices;
  if (FAILED(CoCreateInstance(__uuidof(MMDeviceEnumerator), nullptr, CLSCTX_INPROC_SERVER,
                              __uuidof(IMMDeviceEnumerator), devices.putVoid()))) {
    return true;  // the renderer will find out
  }
  ComPtr<IMMDevice> device;
  return SUCCEEDED(devices->GetDefaultAudioEndpoint(eRender, eMultimedia, device.put()));
}

ComPtr<IMFActivate> audioRenderer() {
  ComPtr<IMFActivate> renderer;
  MFCreateAudioRendererActivate(renderer.put());
  return renderer;
}

bool addBranch(IMFTopology* topology, IMFMediaSource* source,
               IMFPresentationDescriptor* presentation, IMFStreamDescriptor* stream,
               IMFActivate* renderer) {
  ComPtr<IMFTopologyNode> from;
  ComPtr<IMFTopologyNode> to;
  return SUCCEEDED(MFCreateTopologyNode(MF_TOPOLOGY_SOURCESTREAM_NODE, from.put())) &&
         SUCCEEDED(from->SetUnknown(MF_TOPONODE_SOURCE, source)) &&
         SUCCEEDED(from->SetUnknown(MF_TOPONODE_PRESENTATION_DESCRIPTOR, presentation)) &&
         SUCCEEDED(from->SetUnknown(MF_TOPONODE_STREAM_DESCRIPTOR, stream)) &&
         SUCCEEDED(MFCreateTopologyNode(MF_TOPOLOGY_OUTPUT_NODE, to.put())) &&
         SUCCEEDED(to->SetObject(renderer)) &&
         // The session takes the renderer down with its topology; nobody else would.
         SUCCEEDED(to->SetUINT32(MF_TOPONODE_NOSHUTDOWN_ON_REMOVE, FALSE)) &&
         SUCCEEDED(topology->AddNode(from.get())) && SUCCEEDED(topology->AddNode(to.get())) &&
         SUCCEEDED(from->ConnectOutput(0, to.get(), 0));
}

}  // namespace

PlaybackTopology playbackTopology(IMFMediaSource* source, IMFPresentationDescriptor* presentation,
                                  HWND picture, bool withSound) {
  PlaybackTopology result;
  ComPtr<IMFTopology> topology;
  if (FAILED(MFCreateTopology(topology.put()))) return result;
  topology->SetUINT32(kEnumerateSourceTypes, TRUE);
  DWORD count = 0;
  presentation->GetStreamDescriptorCount(&count);
  for (DWORD i = 0; i < count; ++i) {
    BOOL selected = FALSE;
    ComPtr<IMFStreamDescriptor> stream;
    if (FAILED(presentation->GetStreamDescriptorByIndex(i, &selected, stream.put()))) continue;
    const GUID type = majorTypeOf(stream.get());
    const bool sound = type == MFMediaType_Audio;
    bool used = false;
    if (selected && (sound ? withSound && soundDeviceIsThere() : type == MFMediaType_Video)) {
      const auto renderer =
          sound ? audioRenderer() : videoRenderer(stream.get(), picture, result.grabbed);
      used =
          renderer && addBranch(topology.get(), source, presentation, stream.get(), renderer.get());
    }
    if (!used) {
      presentation->DeselectStream(i);
      continue;
    }
    (sound ? result.hasSound : result.hasPicture) = true;
  }
  if (result.hasSound || result.hasPicture) result.topology = topology;
  return result;
}

}  // namespace tessivo
