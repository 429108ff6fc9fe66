#include "screen/engines/media_foundation/GrabbedPicture.h"

#include <mfapi.h>

#include <new>

#include "screen/engines/embedded/Letterbox.h"
#include "screen/engines/embedded/PictureWindow.h"

namespace tessivo {
namespace {

constexpr UINT32 kLargestSide = 16384;

}  // namespace

GrabbedPicture::GrabbedPicture(HWND picture, UINT32 width, UINT32 height, UINT32 aspectX,
                               UINT32 aspectY)
    : picture_(picture),
      width_(static_cast<LONG>(width)),
      height_(static_cast<LONG>(height)),
      shownWidth_(MulDiv(width_, static_cast<int>(aspectX), static_cast<int>(aspectY))),
      shownHeight_(height_) {}

ComPtr<GrabbedPicture> GrabbedPicture::create(IMFStreamDescriptor* stream, HWND picture) {
  ComPtr<GrabbedPicture> result;
  ComPtr<IMFMediaTypeHandler> handler;
  ComPtr<IMFMediaType> type;
  UINT32 width = 0;
  UINT32 height = 0;
  UINT32 aspectX = 1;
  UINT32 aspectY = 1;
  if (FAILED(stream->GetMediaTypeHandler(handler.put())) ||
      FAILED(handler->GetCurrentMediaType(type.put())) ||
      FAILED(MFGetAttributeSize(type.get(), MF_MT_FRAME_SIZE, &width, &height)) || width == 0 ||
      height == 0 || width > kLargestSide || height > kLargestSide) {
    return result;
  }
  if (FAILED(MFGetAttributeRatio(type.get(), MF_MT_PIXEL_ASPECT_RATIO, &aspectX, &aspectY)) ||
      aspectX == 0 || aspectY == 0) {
    aspectX = aspectY = 1;
  }
  *result.put() = new GrabbedPicture(picture, width, height, aspectX, aspectY);
  return result;
}

ComPtr<IMFActivate> GrabbedPicture::sink() {
  ComPtr<IMFMediaType> type;
  ComPtr<IMFActivate> sink;
  if (SUCCEEDED(MFCreateMediaType(type.put())) &&
      SUCCEEDED(type->SetGUID(MF_MT_MAJOR_TYPE, MFMediaType_Video)) &&
      SUCCEEDED(type->SetGUID(MF_MT_SUBTYPE, MFVideoFormat_RGB32))) {
    MFCreateSampleGrabberSinkActivate(type.get(), this, sink.put());
  }
  return sink;
}

bool GrabbedPicture::paint(HDC dc) const {
  const std::lock_guard lock(mutex_);
  if (frame_.empty()) return false;
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof(format.bmiHeader);
  format.bmiHeader.biWidth = width_;
  format.bmiHeader.biHeight = -height_;  // the top row first
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  RECT area{};
  GetClientRect(picture_, &area);
  const Rect place = letterbox(area.right, area.bottom, shownWidth_, shownHeight_);
  SetStretchBltMode(dc, COLORONCOLOR);
  StretchDIBits(dc, place.left, place.top, place.width, place.height, 0, 0, width_, height_,
                frame_.data(), &format, DIB_RGB_COLORS, SRCCOPY);
  ExcludeClipRect(dc, place.left, place.top, place.left + place.width, place.top + place.height);
  FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  return true;
}

void GrabbedPicture::forget() {
  const std::lock_guard lock(mutex_);
  forgotten_ = true;
  std::vector<BYTE>().swap(frame_);  // an assignment of nothing keeps the memory
}

HRESULT GrabbedPicture::OnProcessSample(REFGUID, DWORD, LONGLONG, LONGLONG, const BYTE* bytes,
                                        DWORD size) {
  const auto expected = static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * 4;
  if (size < expected) return S_OK;
  bool first = false;
  try {
    const std::lock_guard lock(mutex_);
    if (forgotten_) return S_OK;
    first = frame_.empty();
    frame_.assign(bytes, bytes + expected);
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
  if (first) PictureWindow::noteFrame(picture_);
  InvalidateRect(picture_, nullptr, FALSE);
  return S_OK;
}

HRESULT GrabbedPicture::QueryInterface(REFIID id, void** object) {
  *object = nullptr;
  if (id != __uuidof(IUnknown) && id != __uuidof(IMFClockStateSink) &&
      id != __uuidof(IMFSampleGrabberSinkCallback)) {
    return E_NOINTERFACE;
  }
  *object = static_cast<IMFSampleGrabberSinkCallback*>(this);
  AddRef();
  return S_OK;
}

ULONG GrabbedPicture::AddRef() {
  return ++references_;
}

ULONG GrabbedPicture::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
}

}  // namespace tessivo
