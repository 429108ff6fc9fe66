#include "ssp/win32/PictureReader.h"

#include <windows.h>
// After windows.h, which it needs:
#include <wincodec.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "base/Geometry.h"
#include "platform/win32/ComPtr.h"
#include "platform/win32/WindowsText.h"
#include "ssp/PictureShape.h"
#include "ssp/win32/DibPicture.h"

namespace tessivo::ssp {
namespace {

constexpr UINT kBytesPerPixel = 4;

/// A picture's pixels, blue in the lowest byte.
struct Pixels {
  Size size;
  std::vector<std::uint32_t> values;
};

/// 1 where the file does not say, or the system does not tell.
Orientation orientationOf(IWICBitmapFrameDecode& frame) {
  ComPtr<IWICMetadataQueryReader> reader;
  if (FAILED(frame.GetMetadataQueryReader(reader.put()))) return 1;
  // In a JPEG file, in a TIFF file.
  for (const wchar_t* const place : {L"/app1/ifd/{ushort=274}", L"/ifd/{ushort=274}"}) {
    PROPVARIANT value{};
    if (FAILED(reader->GetMetadataByName(place, &value))) continue;
    const Orientation orientation = value.vt == VT_UI2 ? value.uiVal : 1;
    PropVariantClear(&value);
    return orientation;
  }
  return 1;
}

/// Whether the pixels are no colours but numbers of colours, between which there is nothing.
bool isIndexed(IWICBitmapSource& source) {
  WICPixelFormatGUID format{};
  if (FAILED(source.GetPixelFormat(&format))) return false;
  const std::array kIndexed{&GUID_WICPixelFormat1bppIndexed, &GUID_WICPixelFormat2bppIndexed,
                            &GUID_WICPixelFormat4bppIndexed, &GUID_WICPixelFormat8bppIndexed,
                            &GUID_WICPixelFormatBlackWhite};
  return std::any_of(kIndexed.begin(), kIndexed.end(),
                     [&](const GUID* indexed) { return IsEqualGUID(*indexed, format) != 0; });
}

/// Clear parts show black: their colours are multiplied with how much is seen of them. Null when
/// the system cannot.
ComPtr<IWICBitmapSource> converted(IWICImagingFactory& factory, IWICBitmapSource& source) {
  ComPtr<IWICFormatConverter> converter;
  if (FAILED(factory.CreateFormatConverter(converter.put())) ||
      FAILED(converter->Initialize(&source, GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                   nullptr, 0, WICBitmapPaletteTypeCustom))) {
    return nullptr;
  }
  return ComPtr<IWICBitmapSource>(converter.get());
}

ComPtr<IWICBitmapSource> scaled(IWICImagingFactory& factory, IWICBitmapSource& source, Size size) {
  ComPtr<IWICBitmapScaler> scaler;
  if (FAILED(factory.CreateBitmapScaler(scaler.put())) ||
      FAILED(scaler->Initialize(&source, static_cast<UINT>(size.width),
                                static_cast<UINT>(size.height), WICBitmapInterpolationModeFant))) {
    return nullptr;
  }
  return ComPtr<IWICBitmapSource>(scaler.get());
}

/// The frame in that size. Fewer pixels are converted where it can be scaled first.
bool readScaled(IWICImagingFactory& factory, IWICBitmapSource& frame, Pixels& into) {
  const bool indexed = isIndexed(frame);
  ComPtr<IWICBitmapSource> source =
      indexed ? converted(factory, frame) : scaled(factory, frame, into.size);
  if (!source) return false;
  source = indexed ? scaled(factory, *source.get(), into.size) : converted(factory, *source.get());
  if (!source) return false;
  const auto width = static_cast<UINT>(into.size.width);
  const auto height = static_cast<UINT>(into.size.height);
  into.values.resize(std::size_t{width} * height);
  return SUCCEEDED(source->CopyPixels(nullptr, width * kBytesPerPixel,
                                      width * height * kBytesPerPixel,
                                      reinterpret_cast<BYTE*>(into.values.data())));
}

Pixels readFitted(const std::string& path, Size area) {
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IWICBitmapDecoder> decoder;
  ComPtr<IWICBitmapFrameDecode> frame;
  UINT width = 0;
  UINT height = 0;
  if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IWICImagingFactory, factory.putVoid())) ||
      FAILED(factory->CreateDecoderFromFilename(toWide(path).c_str(), nullptr, GENERIC_READ,
                                                WICDecodeMetadataCacheOnDemand, decoder.put())) ||
      FAILED(decoder->GetFrame(0, frame.put())) || FAILED(frame->GetSize(&width, &height)) ||
      cannotBeDecoded(width, height)) {
    return {};
  }
  const Orientation orientation = orientationOf(*frame.get());
  const Size stored{static_cast<std::int32_t>(width), static_cast<std::int32_t>(height)};
  const bool turned = liesOnASide(orientation);
  Pixels pixels;
  pixels.size = fittedInto(stored, turned ? Size{area.height, area.width} : area);
  if (!readScaled(*factory.get(), *frame.get(), pixels)) return {};
  if (orientation == 1) return pixels;
  pixels.values = turnedUpright(pixels.values, pixels.size, orientation);
  if (turned) std::swap(pixels.size.width, pixels.size.height);
  return pixels;
}

}  // namespace

UniqueGdi<HBITMAP> readPicture(const std::string& path, Size area) {
  const Pixels pixels = readFitted(path, area);
  if (pixels.values.empty()) return nullptr;
  std::uint8_t* bytes = nullptr;
  UniqueGdi<HBITMAP> picture = makeDib(area, &bytes);
  if (!picture) return nullptr;
  const Point corner{(area.width - pixels.size.width) / 2, (area.height - pixels.size.height) / 2};
  auto* const target = reinterpret_cast<std::uint32_t*>(bytes);
  for (std::int32_t y = 0; y < pixels.size.height; ++y) {
    const auto row = pixels.values.begin() + std::ptrdiff_t{y} * pixels.size.width;
    std::copy(row, row + pixels.size.width,
              target + std::ptrdiff_t{corner.y + y} * area.width + corner.x);
  }
  return picture;
}

}  // namespace tessivo::ssp
