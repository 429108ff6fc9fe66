#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/SharedMemory.h"

namespace tessivo {

/// A text in shared memory: how the shell's context menu hands over the names of many files. Used
/// in the order of its operations; what is still open at the end is given back.
class MF {
 public:
  explicit MF(SharedMemory& memory) : memory_(memory) {}
  ~MF();
  MF(const MF&) = delete;
  MF& operator=(const MF&) = delete;

  /// Name of the mapping.
  const std::string& strFMN() const { return strFMN_; }
  void strFMN(const std::string& name) { strFMN_ = name; }
  /// Its size in bytes.
  std::int32_t lngFS() const { return lngFS_; }
  void lngFS(std::int32_t bytes) { lngFS_ = bytes; }

  /// Opens the mapping or makes it, for everybody; its handle, 0 on failure.
  MappingHandle OFM();
  /// Maps the view; its address, null on failure.
  const std::uint8_t* MFV();
  /// The first `lngFS` bytes as UTF-16, unchanged: NULs and all. As many as the mapping has, when
  /// it has fewer.
  std::string RF() const;
  /// Writes the text as UTF-16, without a terminator; the number of bytes written: 0 when the
  /// mapping has not that many.
  std::int32_t WF(const std::string& text);
  /// Unmaps the view.
  bool UFV();
  /// Closes the handle.
  bool CFM();

 private:
  SharedMemory& memory_;
  std::string strFMN_;
  std::int32_t lngFS_ = 0;
  MappingHandle mapping_ = 0;
  std::span<std::uint8_t> view_;
};

}  // namespace tessivo
