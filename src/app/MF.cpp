#include "app/MF.h"

#include <algorithm>
#include <utility>

#include "base/Utf16Bytes.h"

namespace tessivo {

MF::~MF() {
  UFV();
  CFM();
}

MappingHandle MF::OFM() {
  UFV();
  CFM();
  return mapping_ = memory_.createFileMapping(strFMN_, lngFS_);
}

const std::uint8_t* MF::MFV() {
  UFV();
  if (mapping_ != 0) view_ = memory_.mapView(mapping_);
  return view_.data();
}

std::string MF::RF() const {
  const auto wanted = static_cast<std::size_t>(std::max(0, lngFS_));
  return fromUtf16Bytes(view_.first(std::min(wanted, view_.size())));
}

std::int32_t MF::WF(const std::string& text) {
  const auto bytes = toUtf16Bytes(text);
  if (bytes.size() > view_.size()) return 0;
  std::ranges::copy(bytes, view_.begin());
  return static_cast<std::int32_t>(bytes.size());
}

bool MF::UFV() {
  return !view_.empty() && memory_.unmapView(std::exchange(view_, {}));
}

bool MF::CFM() {
  return mapping_ != 0 && memory_.closeHandle(std::exchange(mapping_, 0));
}

}  // namespace tessivo
