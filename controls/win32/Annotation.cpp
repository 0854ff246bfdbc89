#include "controls/win32/Annotation.h"

#include <oleacc.h>

#include <utility>

namespace controls {
namespace {

// Not every import library has them.
constexpr GUID kServicesClass = {
    0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID kServicesInterface = {
    0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID kDescription = {
    0x4d48dfe4, 0xbd3f, 0x491f, {0xa6, 0x48, 0x49, 0x2d, 0x6f, 0x20, 0xc5, 0x88}};

constexpr GUID kName = {
    0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};

constexpr GUID kLiveSetting = {
    0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};
constexpr LONG kPolite = 1;

constexpr DWORD kClient = static_cast<DWORD>(OBJID_CLIENT);

}  // namespace

bool Annotation::Prepare() {
  if (services_ || !possible_) return possible_;
  void* made = nullptr;
  possible_ = SUCCEEDED(
      CoCreateInstance(kServicesClass, nullptr, CLSCTX_INPROC_SERVER, kServicesInterface, &made));
  services_ = possible_ ? static_cast<IAccPropServices*>(made) : nullptr;
  return possible_;
}

const GUID& Annotation::Property() const {
  switch (kind_) {
    case Kind::kName:
      return kName;
    case Kind::kLive:
      return kLiveSetting;
    default:
      return kDescription;
  }
}

void Annotation::Set(HWND window, DWORD child, const std::wstring& text) {
  Clear();
  if (text.empty() || !Prepare()) return;
  if (FAILED(services_->SetHwndPropStr(window, kClient, child, Property(), text.c_str()))) return;
  window_ = window;
  child_ = child;
}

void Annotation::SetLive(HWND window) {
  Clear();
  if (!Prepare()) return;
  VARIANT polite;
  polite.vt = VT_I4;
  polite.lVal = kPolite;
  if (FAILED(services_->SetHwndProp(window, kClient, CHILDID_SELF, Property(), polite))) return;
  window_ = window;
  child_ = CHILDID_SELF;
}

void Annotation::Clear() {
  HWND window = std::exchange(window_, nullptr);
  if (window) services_->ClearHwndProps(window, kClient, child_, &Property(), 1);
}

void Annotation::Reset() {
  Clear();
  if (IAccPropServices* services = std::exchange(services_, nullptr)) services->Release();
  possible_ = true;
}

}  // namespace controls
