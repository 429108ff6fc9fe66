#pragma once

#include <unknwn.h>

#include <utility>

namespace tessivo {

/// Owns one reference to a COM object. Not tied to a thread; the object's own threading rules
/// apply.
template <typename T>
class ComPtr {
 public:
  ComPtr() = default;
  ComPtr(std::nullptr_t) {}
  /// Adds a reference: for an interface that somebody else owns.
  explicit ComPtr(T* borrowed) : p_(borrowed) {
    if (p_) p_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.p_) {}
  ComPtr(ComPtr&& other) noexcept : p_(std::exchange(other.p_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(p_, other.p_);
    return *this;
  }
  ~ComPtr() { reset(); }

  /// Releases the reference. The pointer is empty before the object can call back.
  void reset() {
    if (T* p = std::exchange(p_, nullptr)) p->Release();
  }

  T* get() const { return p_; }
  T* operator->() const { return p_; }
  explicit operator bool() const { return p_ != nullptr; }

  /// For functions that hand out a reference by address; what was held is released first.
  T** put() {
    reset();
    return &p_;
  }
  void** putVoid() { return reinterpret_cast<void**>(put()); }

  /// The object's other interface; empty when it has none. Give `id` where the headers tie none to
  /// the type.
  template <typename U>
  ComPtr<U> as(const IID& id = __uuidof(U)) const {
    ComPtr<U> other;
    if (p_) p_->QueryInterface(id, other.putVoid());
    return other;
  }

 private:
  T* p_ = nullptr;
};

}  // namespace tessivo
