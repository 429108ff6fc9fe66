#pragma once

#include <windows.h>
// After windows.h, which it needs:
#include <commctrl.h>

#include <memory>
#include <type_traits>

namespace tessivo {

template <typename Handle>
struct DeleteGdi {
  using pointer = Handle;
  void operator()(Handle handle) const { DeleteObject(handle); }
};

/// Owns a drawing object (HFONT, HBRUSH, HBITMAP …) that is not selected into anything.
template <typename Handle>
using UniqueGdi = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteGdi<Handle>>;

struct DestroyIconHandle {
  using pointer = HICON;
  void operator()(HICON icon) const { DestroyIcon(icon); }
};
using UniqueIcon = std::unique_ptr<std::remove_pointer_t<HICON>, DestroyIconHandle>;

struct DestroyImageList {
  using pointer = HIMAGELIST;
  void operator()(HIMAGELIST list) const { ImageList_Destroy(list); }
};
using UniqueImageList = std::unique_ptr<std::remove_pointer_t<HIMAGELIST>, DestroyImageList>;

}  // namespace tessivo
