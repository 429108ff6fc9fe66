#include "screen/engines/media_foundation/MediaPresentation.h"

#include <mfapi.h>
#include <mferror.h>

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "screen/engines/embedded/PictureWindow.h"
#include "screen/engines/embedded/RunsOnWine.h"
#include "screen/engines/media_foundation/PlaybackTopology.h"

namespace tessivo {
namespace {

constexpr double kTicksPerSecond = 1e7;
constexpr DWORD kSourceSettlesMs = 100;

std::int32_t millisecondsOf(UINT64 ticks) {
  constexpr UINT64 kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::min<UINT64>(ticks / 10000, kMost));
}

/// Once, for the life of the process: Wine's does not work any more after a shutdown.
HRESULT startMediaFoundation() {
  static const HRESULT result = MFStartup(MF_VERSION, MFSTARTUP_FULL);
  return result;
}

HRESULT startSession(IMFMediaSession* session, std::optional<double> seconds) {
  PROPVARIANT position;
  PropVariantInit(&position);  // empty: from where it is
  if (seconds) {
    position.vt = VT_I8;
    position.hVal.QuadPart = static_cast<LONGLONG>(*seconds * kTicksPerSecond);
  }
  const GUID timeFormat = GUID_NULL;
  return session->Start(&timeFormat, &position);
}

void applyTo(IMFAudioStreamVolume* volume, float amplitude) {
  UINT32 channels = 0;
  if (FAILED(volume->GetChannelCount(&channels)) || channels == 0) return;
  const std::vector<float> all(channels, amplitude);
  volume->SetAllVolumes(channels, all.data());
}

}  // namespace

MediaPresentation::MediaPresentation(HWND engineWindow, WPARAM serial, Order order)
    : AttemptThread(engineWindow, serial),
      order_(std::move(order)),
      amplitude_(order_.amplitude),
      waits_(order_.waits) {}

MediaPresentation::~MediaPresentation() {
  if (grabbed_) grabbed_->forget();
}

template <typename T>
ComPtr<T> MediaPresentation::held(const ComPtr<T>& member) const {
  const std::lock_guard lock(mutex_);
  return member;
}

void MediaPresentation::close() {
  ComPtr<IMFMediaSession> session;
  {
    const std::lock_guard lock(mutex_);
    if (std::exchange(closing_, true)) return;
    if (!starting_) session = session_;
  }
  if (session) session->Close();
}

ComPtr<IMFMediaSession> MediaPresentation::sessionToStart() {
  const std::lock_guard lock(mutex_);
  if (closing_ || !session_) return {};
  starting_ = runsOnWine();
  return session_;
}

void MediaPresentation::startIsOver() {
  if (runsOnWine()) Sleep(kSourceSettlesMs);
  noStart();
}

void MediaPresentation::noStart() {
  ComPtr<IMFMediaSession> session;
  {
    const std::lock_guard lock(mutex_);
    if (std::exchange(starting_, false) && closing_) session = session_;
  }
  if (session) session->Close();
}

void MediaPresentation::pause() {
  if (const auto session = held(session_)) session->Pause();
}

void MediaPresentation::start(std::optional<double> seconds) {
  if (const auto session = held(session_)) startSession(session.get(), seconds);
}

void MediaPresentation::setAmplitude(float amplitude) {
  amplitude_ = amplitude;
  if (const auto volume = held(volume_)) applyTo(volume.get(), amplitude);
}

double MediaPresentation::position() const {
  MFTIME time = 0;
  const auto clock = held(clock_);
  if (!clock || FAILED(clock->GetTime(&time))) return order_.startSeconds;
  return static_cast<double>(time) / kTicksPerSecond;
}

void MediaPresentation::fitPicture() {
  RECT area{};
  GetClientRect(order_.picture, &area);
  if (const auto display = held(display_)) display->SetVideoPosition(nullptr, &area);
}

bool MediaPresentation::paint(HDC dc) const {
  if (const auto grabbed = held(grabbed_)) return grabbed->paint(dc);
  const auto display = held(display_);
  return display && SUCCEEDED(display->RepaintVideo());
}

void MediaPresentation::run() {
  if (const HRESULT hr = startMediaFoundation(); FAILED(hr)) return fail(hr);
  HRESULT hr = openSource();
  if (SUCCEEDED(hr)) hr = openSession();
  if (SUCCEEDED(hr)) hr = setTopology(true);
  if (FAILED(hr)) fail(hr);
  followSession();
}

HRESULT MediaPresentation::openSource() {
  ComPtr<IMFSourceResolver> resolver;
  HRESULT hr = MFCreateSourceResolver(resolver.put());
  if (FAILED(hr)) return hr;
  constexpr DWORD kFlags = MF_RESOLUTION_MEDIASOURCE |
                           MF_RESOLUTION_CONTENT_DOES_NOT_HAVE_TO_MATCH_EXTENSION_OR_MIME_TYPE;
  const wchar_t* const text = order_.source.text.c_str();
  MF_OBJECT_TYPE type = MF_OBJECT_INVALID;
  ComPtr<IUnknown> object;
  if (order_.source.isUrl) {
    hr = resolver->CreateObjectFromURL(text, kFlags, nullptr, &type, object.put());
  } else {
    // A path is no URL: "100%25.mp4" is a file of that name.
    ComPtr<IMFByteStream> bytes;
    hr = MFCreateFile(MF_ACCESSMODE_READ, MF_OPENMODE_FAIL_IF_NOT_EXIST, MF_FILEFLAGS_NONE, text,
                      bytes.put());
    if (FAILED(hr)) return hr;
    hr = resolver->CreateObjectFromByteStream(bytes.get(), text, kFlags, nullptr, &type,
                                              object.put());
  }
  if (FAILED(hr)) return hr;
  source_ = object.as<IMFMediaSource>();
  if (!source_) return MF_E_UNSUPPORTED_BYTESTREAM_TYPE;
  return source_->CreatePresentationDescriptor(presentation_.put());
}

HRESULT MediaPresentation::openSession() {
  presentation_->GetUINT64(MF_PD_DURATION, &duration_);
  post(EngineEvent::opened, millisecondsOf(duration_));
  ComPtr<IMFMediaSession> session;
  if (const HRESULT hr = MFCreateMediaSession(nullptr, session.put()); FAILED(hr)) return hr;
  bool closing = false;
  {
    const std::lock_guard lock(mutex_);
    session_ = session;
    closing = closing_;
  }
  if (closing) session->Close();  // close() came too early to see the session
  return S_OK;
}

HRESULT MediaPresentation::setTopology(bool withSound) {
  const PlaybackTopology wanted =
      playbackTopology(source_.get(), presentation_.get(), order_.picture, withSound);
  if (!wanted.topology) return MF_E_TOPO_UNSUPPORTED;
  hasPicture_ = wanted.hasPicture;
  withSound_ = wanted.hasSound;
  {
    const std::lock_guard lock(mutex_);
    grabbed_ = wanted.grabbed;
  }
  return session_->SetTopology(0, wanted.topology.get());
}

void MediaPresentation::followSession() {
  if (!session_) return;
  for (;;) {
    ComPtr<IMFMediaEvent> event;
    if (const HRESULT hr = session_->GetEvent(0, event.put()); FAILED(hr)) return fail(hr);
    MediaEventType type = MEUnknown;
    HRESULT status = S_OK;
    event->GetType(&type);
    event->GetStatus(&status);
    if (type == MESessionClosed) return;
    handleEvent(event.get(), type, status);
  }
}

void MediaPresentation::handleEvent(IMFMediaEvent* event, MediaEventType type, HRESULT status) {
  if (FAILED(status)) {
    startIsOver();
    // A machine without a sound device still shows the picture.
    if (type == MESessionTopologySet && withSound_ && hasPicture_ &&
        SUCCEEDED(setTopology(false))) {
      return;
    }
    return fail(status);
  }
  UINT32 topologyStatus = MF_TOPOSTATUS_INVALID;
  switch (type) {
    case MESessionTopologyStatus:
      event->GetUINT32(MF_EVENT_TOPOLOGY_STATUS, &topologyStatus);
      if (topologyStatus == MF_TOPOSTATUS_READY) sessionIsReady();
      return;
    case MESessionStarted:
      post(EngineEvent::playing);
      // The system's renderer has shown its first frame when everything has started.
      if (held(display_)) PictureWindow::noteFrame(order_.picture);
      return startIsOver();
    case MESessionPaused:
      return post(EngineEvent::paused);
    case MESessionEnded:
      return post(EngineEvent::ended);
    default:
      return;
  }
}

void MediaPresentation::sessionIsReady() {
  if (failed_) return;
  takeServices();
  {
    const std::lock_guard lock(mutex_);
    ready_ = true;
    if (waits_) return;
  }
  begin();
}

void MediaPresentation::go() {
  {
    const std::lock_guard lock(mutex_);
    waits_ = false;
    if (!ready_) return;
  }
  begin();
}

void MediaPresentation::takeServices() {
  ComPtr<IMFClock> clock;
  ComPtr<IMFAudioStreamVolume> volume;
  ComPtr<IMFVideoDisplayControl> display;
  session_->GetClock(clock.put());
  MFGetService(session_.get(), MR_STREAM_VOLUME_SERVICE, __uuidof(IMFAudioStreamVolume),
               volume.putVoid());
  MFGetService(session_.get(), MR_VIDEO_RENDER_SERVICE, __uuidof(IMFVideoDisplayControl),
               display.putVoid());
  {
    const std::lock_guard lock(mutex_);
    clock_ = clock.as<IMFPresentationClock>();
    volume_ = volume;
    display_ = display;
  }
  if (volume) applyTo(volume.get(), amplitude_);
  if (display) {
    display->SetAspectRatioMode(MFVideoARMode_PreservePicture);
    display->SetBorderColor(RGB(0, 0, 0));
    fitPicture();
  }
}

void MediaPresentation::begin() {
  double start = order_.startSeconds;
  if (duration_ != 0) start = std::min(start, static_cast<double>(duration_) / kTicksPerSecond);
  const auto session = sessionToStart();
  if (!session) return;
  if (const HRESULT hr = startSession(session.get(), start); FAILED(hr)) {
    noStart();
    fail(hr);
  }
}

void MediaPresentation::fail(HRESULT reason) {
  if (failed_.exchange(true)) return;
  post(EngineEvent::failed, reason);
}

void MediaPresentation::letGo() {
  // Released here, also when something throws.
  presentation_.reset();
  const ComPtr<IMFMediaSource> source = std::exchange(source_, {});
  ComPtr<IMFMediaSession> session;
  {
    const std::lock_guard lock(mutex_);
    display_.reset();
    volume_.reset();
    clock_.reset();
    session = std::exchange(session_, {});
  }
  // Wine's source reports that it has stopped a moment before it has; shut down in that moment, it
  // would free everything twice.
  if (session && runsOnWine()) Sleep(kSourceSettlesMs);
  if (source) source->Shutdown();
  if (session) session->Shutdown();
}

}  // namespace tessivo
