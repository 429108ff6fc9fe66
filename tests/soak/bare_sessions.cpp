// What the system itself keeps of each item: a file is played again and again, broken off after a
// moment, by Media Foundation or DirectShow alone, with nothing of the player's code but ComPtr.
//
//   bare_sessions.exe session|graph FILE TIMES MILLISECONDS
//
// Prints what an item has cost, the first ten left out. bare-sessions.sh provides a desktop, sound
// and media.
#include <dshow.h>
#include <mfapi.h>
#include <mfidl.h>
#include <windows.h>
// After windows.h, which it needs:
#include <psapi.h>

#include <atomic>
#include <cstdio>
#include <stdexcept>
#include <string>

#include "platform/win32/ComPtr.h"

namespace tessivo {
namespace {

constexpr int kFirstItems = 10;

void need(HRESULT hr, const char* what) {
  if (FAILED(hr)) throw std::runtime_error(what);
}

// COM objects are deleted by their own Release; the interfaces have no virtual destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// A picture that takes frames and does nothing with them. It says how many of it are left.
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): deleted by its own Release
class Grabber final : public IMFSampleGrabberSinkCallback {
 public:
  static inline std::atomic<int> alive = 0;
  Grabber() { ++alive; }
  Grabber(const Grabber&) = delete;
  Grabber& operator=(const Grabber&) = delete;
  STDMETHODIMP QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id != __uuidof(IUnknown) && id != __uuidof(IMFClockStateSink) &&
        id != __uuidof(IMFSampleGrabberSinkCallback)) {
      return E_NOINTERFACE;
    }
    *object = static_cast<IMFSampleGrabberSinkCallback*>(this);
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }
  STDMETHODIMP OnClockStart(MFTIME, LONGLONG) override { return S_OK; }
  STDMETHODIMP OnClockStop(MFTIME) override { return S_OK; }
  STDMETHODIMP OnClockPause(MFTIME) override { return S_OK; }
  STDMETHODIMP OnClockRestart(MFTIME) override { return S_OK; }
  STDMETHODIMP OnClockSetRate(MFTIME, float) override { return S_OK; }
  STDMETHODIMP OnSetPresentationClock(IMFPresentationClock*) override { return S_OK; }
  STDMETHODIMP OnProcessSample(REFGUID, DWORD, LONGLONG, LONGLONG, const BYTE*, DWORD) override {
    return S_OK;
  }
  STDMETHODIMP OnShutdown() override { return S_OK; }

 private:
  ~Grabber() { --alive; }
  std::atomic<ULONG> references_ = 1;
};

#pragma GCC diagnostic pop

ComPtr<IMFActivate> rendererOf(const GUID& type) {
  ComPtr<IMFActivate> renderer;
  if (type == MFMediaType_Audio) {
    need(MFCreateAudioRendererActivate(renderer.put()), "sound renderer");
    return renderer;
  }
  ComPtr<IMFMediaType> frames;
  need(MFCreateMediaType(frames.put()), "media type");
  frames->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video);
  frames->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_RGB32);
  ComPtr<Grabber> grabber;
  *grabber.put() = new Grabber;
  need(MFCreateSampleGrabberSinkActivate(frames.get(), grabber.get(), renderer.put()), "grabber");
  return renderer;
}

ComPtr<IMFMediaSource> open(const wchar_t* file) {
  ComPtr<IMFSourceResolver> resolver;
  ComPtr<IMFByteStream> bytes;
  ComPtr<IUnknown> object;
  MF_OBJECT_TYPE type = MF_OBJECT_INVALID;
  need(MFCreateSourceResolver(resolver.put()), "resolver");
  need(MFCreateFile(MF_ACCESSMODE_READ, MF_OPENMODE_FAIL_IF_NOT_EXIST, MF_FILEFLAGS_NONE, file,
                    bytes.put()),
       "file");
  need(resolver->CreateObjectFromByteStream(bytes.get(), file, MF_RESOLUTION_MEDIASOURCE, nullptr,
                                            &type, object.put()),
       "source");
  return object.as<IMFMediaSource>();
}

ComPtr<IMFTopology> topologyOf(IMFMediaSource* source) {
  // MF_TOPOLOGY_ENUMERATE_SOURCE_TYPES, absent from our headers.
  constexpr GUID kEnumerateSourceTypes = {
      0x6248c36d, 0x5d0b, 0x4f40, {0xa0, 0xbb, 0xb0, 0xb3, 0x05, 0xf7, 0x76, 0x98}};
  ComPtr<IMFTopology> topology;
  ComPtr<IMFPresentationDescriptor> presentation;
  DWORD count = 0;
  need(MFCreateTopology(topology.put()), "topology");
  topology->SetUINT32(kEnumerateSourceTypes, TRUE);
  need(source->CreatePresentationDescriptor(presentation.put()), "presentation");
  presentation->GetStreamDescriptorCount(&count);
  for (DWORD i = 0; i < count; ++i) {
    BOOL selected = FALSE;
    GUID type{};
    ComPtr<IMFStreamDescriptor> stream;
    ComPtr<IMFMediaTypeHandler> handler;
    ComPtr<IMFTopologyNode> from;
    ComPtr<IMFTopologyNode> to;
    need(presentation->GetStreamDescriptorByIndex(i, &selected, stream.put()), "stream");
    need(stream->GetMediaTypeHandler(handler.put()), "handler");
    need(handler->GetMajorType(&type), "type");
    need(MFCreateTopologyNode(MF_TOPOLOGY_SOURCESTREAM_NODE, from.put()), "node");
    need(MFCreateTopologyNode(MF_TOPOLOGY_OUTPUT_NODE, to.put()), "node");
    from->SetUnknown(MF_TOPONODE_SOURCE, source);
    from->SetUnknown(MF_TOPONODE_PRESENTATION_DESCRIPTOR, presentation.get());
    from->SetUnknown(MF_TOPONODE_STREAM_DESCRIPTOR, stream.get());
    to->SetObject(rendererOf(type).get());
    to->SetUINT32(MF_TOPONODE_NOSHUTDOWN_ON_REMOVE, FALSE);
    topology->AddNode(from.get());
    topology->AddNode(to.get());
    need(from->ConnectOutput(0, to.get(), 0), "connection");
  }
  return topology;
}

/// Waits for an event of this type; the topology's means that it is ready.
void waitFor(IMFMediaSession* session, MediaEventType wanted) {
  for (;;) {
    ComPtr<IMFMediaEvent> event;
    MediaEventType type = MEUnknown;
    HRESULT status = S_OK;
    need(session->GetEvent(0, event.put()), "event");
    event->GetType(&type);
    event->GetStatus(&status);
    need(status, "session");
    UINT32 topology = 0;
    if (type != wanted) continue;
    if (type != MESessionTopologyStatus) return;
    event->GetUINT32(MF_EVENT_TOPOLOGY_STATUS, &topology);
    if (topology == MF_TOPOSTATUS_READY) return;
  }
}

void playSession(const wchar_t* file, DWORD milliseconds) {
  ComPtr<IMFMediaSession> session;
  const ComPtr<IMFMediaSource> source = open(file);
  const ComPtr<IMFTopology> topology = topologyOf(source.get());
  need(MFCreateMediaSession(nullptr, session.put()), "session");
  need(session->SetTopology(0, topology.get()), "topology of the session");
  waitFor(session.get(), MESessionTopologyStatus);
  PROPVARIANT fromTheBeginning;
  PropVariantInit(&fromTheBeginning);
  need(session->Start(&GUID_NULL, &fromTheBeginning), "start");
  waitFor(session.get(), MESessionStarted);
  Sleep(milliseconds);
  session->Close();
  waitFor(session.get(), MESessionClosed);
  Sleep(100);  // Wine's source has not stopped yet
  source->Shutdown();
  session->Shutdown();
}

void playGraph(const wchar_t* file, DWORD milliseconds) {
  ComPtr<IGraphBuilder> graph;
  need(CoCreateInstance(CLSID_FilterGraph, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IGraphBuilder),
                        graph.putVoid()),
       "graph");
  need(graph->RenderFile(file, nullptr), "file");
  if (const auto window = graph.as<IVideoWindow>(IID_IVideoWindow)) window->put_AutoShow(OAFALSE);
  const auto control = graph.as<IMediaControl>(IID_IMediaControl);
  need(control->Run(), "run");
  Sleep(milliseconds);
  control->Stop();
}

std::size_t kilobytes() {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.WorkingSetSize >> 10;
}

int measure(const std::wstring& engine, const wchar_t* file, int times, DWORD milliseconds) {
  const auto play = engine == L"graph" ? playGraph : playSession;
  std::size_t first = 0;
  for (int i = 0; i < kFirstItems + times; ++i) {
    if (i == kFirstItems) first = kilobytes();
    play(file, milliseconds);
  }
  Sleep(1000);
  const std::size_t last = kilobytes();
  std::printf("%.0f KB an item (%d items), %d of %d pictures never released\n",
              (static_cast<double>(last) - static_cast<double>(first)) / times, times,
              Grabber::alive.load(), kFirstItems + times);
  return 0;
}

}  // namespace
}  // namespace tessivo

int wmain(int count, wchar_t** arguments) {
  if (count != 5) {
    std::puts("bare_sessions.exe session|graph FILE TIMES MILLISECONDS");
    return 2;
  }
  CoInitializeEx(nullptr, COINIT_MULTITHREADED);
  MFStartup(MF_VERSION, MFSTARTUP_FULL);
  int result = 1;
  try {
    result = tessivo::measure(arguments[1], arguments[2], std::stoi(arguments[3]),
                              static_cast<DWORD>(std::stoul(arguments[4])));
  } catch (const std::exception& failure) {
    std::printf("failed: %s\n", failure.what());
  }
  std::fflush(stdout);
  // Wine keeps threads of what has been played.
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
  return result;
}
