#pragma once

#include <unknwn.h>

namespace tessivo {

// COM objects are deleted by their own Release; the interfaces have no virtual destructor.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Reference counting and the table of interfaces of a COM object of ours. Made with one reference,
/// which goes to the maker. Single thread only.
template <typename First, typename... Others>
// NOLINTNEXTLINE(cppcoreguidelines-virtual-class-destructor): deleted by its own Release
class ComObject : public First, public Others... {
 public:
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID id, void** result) override {
    if (!result) return E_POINTER;
    *result = find(id);
    if (!*result) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  ComObject() = default;
  virtual ~ComObject() = default;

  /// An object that answers to more identifiers adds them here.
  virtual void* find(REFIID id) {
    if (id == __uuidof(IUnknown)) return static_cast<First*>(this);
    void* found = match<First>(id);
    ((found = found ? found : match<Others>(id)), ...);
    return found;
  }

 private:
  template <typename Interface>
  void* match(REFIID id) {
    return id == __uuidof(Interface) ? static_cast<Interface*>(this) : nullptr;
  }

  ULONG references_ = 1;
};

#pragma GCC diagnostic pop

}  // namespace tessivo
