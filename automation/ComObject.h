#pragma once

#include <windows.h>

#include <unknwn.h>

#include <array>
#include <memory>

namespace automation {

// What every COM object of ours has in common: it is made with one reference, which belongs to its
// maker, is used in the apartment that made it, and ends with its last reference. Interfaces are
// those that it offers, IDispatch and the like; the first one is also its IUnknown.
template <typename First, typename... Others>
class ComObject : public First, public Others... {
 public:
  ComObject() = default;
  virtual ~ComObject() = default;
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (id == IID_IUnknown || IsFirst(id)) {
      *object = static_cast<First*>(this);
    } else {
      (Offer<Others>(id, object), ...);
    }
    if (*object == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

  // After the last reference nobody owns the object but the object itself, for as long as it takes
  // to end.
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) const std::unique_ptr<ComObject> last(this);
    return left;
  }

 protected:
  // An object may have its first interface under another identifier too.
  virtual bool IsFirst(REFIID id) const { return id == __uuidof(First); }

  ULONG References() const { return references_; }

 private:
  template <typename Interface>
  void Offer(REFIID id, void** object) {
    if (id == __uuidof(Interface)) *object = static_cast<Interface*>(this);
  }

  ULONG references_ = 1;
};

}  // namespace automation
