// What screen readers are told beyond what the system itself tells, as it is sent to the system.

#include <windows.h>
// windows.h comes first: the headers below need its types.
#include <objbase.h>
#include <oleacc.h>

#include "automation/ComObject.h"
#include "controls/win32/ControlPeer.h"
#include "tests/controls/ControlsTest.h"

// Not every set of headers ties the interface to its identifier.
__CRT_UUID_DECL(IAccPropServices, 0x6e26e776, 0x04f0, 0x495d, 0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e,
                0x31, 0x69)

namespace controls_test {
namespace {

constexpr GUID kServicesClass = {
    0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr GUID kName = {
    0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};
constexpr GUID kDescription = {
    0x4d48dfe4, 0xbd3f, 0x491f, {0xa6, 0x48, 0x49, 0x2d, 0x6f, 0x20, 0xc5, 0x88}};
constexpr GUID kLiveSetting = {
    0xc12bcd8e, 0x2a8e, 0x4950, {0x8a, 0xe7, 0x36, 0x25, 0x11, 0x1d, 0x58, 0xeb}};

std::wstring PropertyName(const GUID& id) {
  if (id == kName) return L"name";
  if (id == kDescription) return L"description";
  return id == kLiveSetting ? L"live" : L"other";
}

// Stands in for the system's service and its class, and writes down what it is told.
class RecordingServices final : public automation::ComObject<IClassFactory, IAccPropServices> {
 public:
  Events told;
  HWND window = nullptr;

  HRESULT WINAPI CreateInstance(IUnknown*, REFIID id, void** object) override {
    return QueryInterface(id, object);
  }
  HRESULT WINAPI LockServer(BOOL) override { return S_OK; }

  HRESULT WINAPI SetHwndPropStr(HWND of, DWORD, DWORD child, MSAAPROPID id, LPCWSTR text) override {
    window = of;
    told.push_back(PropertyName(id) + L" " + std::to_wstring(child) + L" " + text);
    return S_OK;
  }
  HRESULT WINAPI SetHwndProp(HWND of, DWORD, DWORD child, MSAAPROPID id, VARIANT value) override {
    window = of;
    told.push_back(PropertyName(id) + L" " + std::to_wstring(child) + L" " +
                   std::to_wstring(value.lVal));
    return S_OK;
  }
  HRESULT WINAPI ClearHwndProps(HWND, DWORD, DWORD child, const MSAAPROPID* ids, int) override {
    told.push_back(L"clear " + PropertyName(ids[0]) + L" " + std::to_wstring(child));
    return S_OK;
  }

  HRESULT WINAPI SetPropValue(const BYTE*, DWORD, MSAAPROPID, VARIANT) override { return E_FAIL; }
  HRESULT WINAPI SetPropServer(const BYTE*, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                               AnnoScope) override {
    return E_FAIL;
  }
  HRESULT WINAPI ClearProps(const BYTE*, DWORD, const MSAAPROPID*, int) override { return E_FAIL; }
  HRESULT WINAPI SetHwndPropServer(HWND, DWORD, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                   AnnoScope) override {
    return E_FAIL;
  }
  HRESULT WINAPI ComposeHwndIdentityString(HWND, DWORD, DWORD, BYTE**, DWORD*) override {
    return E_FAIL;
  }
  HRESULT WINAPI DecomposeHwndIdentityString(const BYTE*, DWORD, HWND*, DWORD*, DWORD*) override {
    return E_FAIL;
  }
  HRESULT WINAPI SetHmenuProp(HMENU, DWORD, MSAAPROPID, VARIANT) override { return E_FAIL; }
  HRESULT WINAPI SetHmenuPropStr(HMENU, DWORD, MSAAPROPID, LPCWSTR) override { return E_FAIL; }
  HRESULT WINAPI SetHmenuPropServer(HMENU, DWORD, const MSAAPROPID*, int, IAccPropServer*,
                                    AnnoScope) override {
    return E_FAIL;
  }
  HRESULT WINAPI ClearHmenuProps(HMENU, DWORD, const MSAAPROPID*, int) override { return E_FAIL; }
  HRESULT WINAPI ComposeHmenuIdentityString(HMENU, DWORD, BYTE**, DWORD*) override {
    return E_FAIL;
  }
  HRESULT WINAPI DecomposeHmenuIdentityString(const BYTE*, DWORD, HMENU*, DWORD*) override {
    return E_FAIL;
  }
};

class NativeAnnotation : public ControlsTest {
 protected:
  NativeAnnotation() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    CoRegisterClassObject(kServicesClass, static_cast<IClassFactory*>(&services),
                          CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie);
  }
  ~NativeAnnotation() override {
    form.Unload();
    CoRevokeClassObject(cookie);
    CoUninitialize();
  }

  RecordingServices services;
  DWORD cookie = 0;
};

TEST_F(NativeAnnotation, AButtonIsSpokenOfByItsAccessibleNameAndKeepsItsCaption) {
  form.ok.SetCaption(L">");
  form.ok.SetAccessibleName(L"Ajouter");
  EXPECT_EQ(services.told, Events{L"name 0 Ajouter"});
  EXPECT_EQ(services.window, form.ok.BackEnd().window);
  EXPECT_EQ(form.ok.BackEnd().WindowText(), L">");
  EXPECT_EQ(form.ok.Caption(), L">");
  form.ok.SetAccessibleName(L"");
  EXPECT_EQ(services.told.back(), L"clear name 0");
}

TEST_F(NativeAnnotation, AnAccessibleNameGoesWithItsForm) {
  form.ok.SetAccessibleName(L"Ajouter");
  form.Unload();
  EXPECT_EQ(services.told.back(), L"clear name 0");
  form.Show();
  EXPECT_EQ(form.ok.AccessibleName(), L"");
}

TEST_F(NativeAnnotation, AButtonIsDescribedByWhyItIsOffAsLongAsThatHolds) {
  form.ok.SetEnabled(false);
  form.ok.SetWhyDisabled(L"Sélectionnez un groupe");
  form.ok.SetWhyDisabled(L"Sélectionnez un groupe");
  EXPECT_EQ(services.told, Events{L"description 0 Sélectionnez un groupe"});
  EXPECT_EQ(services.window, form.ok.BackEnd().window);
  form.ok.SetWhyDisabled(L"");
  EXPECT_EQ(services.told.back(), L"clear description 0");
  form.ok.SetWhyDisabled(L"Lecture interrompue");
  form.Unload();
  EXPECT_EQ(services.told.back(), L"clear description 0");
}

TEST_F(NativeAnnotation, ABoxIsSpokenOfByItsCueWhichTheSystemShows) {
  form.name.SetCue(L"Rechercher");
  EXPECT_EQ(services.told, Events{L"name 0 Rechercher"});
  EXPECT_EQ(services.window, form.name.BackEnd().window);
  wchar_t shown[32] = {};
  form.name.BackEnd().Send(EM_GETCUEBANNER, controls::AsWParam(&shown[0]), 32);
  EXPECT_EQ(std::wstring(shown), L"Rechercher");
  form.Unload();
  EXPECT_EQ(services.told.back(), L"clear name 0");
}

// Events that the system was told of.
struct LiveEvents {
  static inline std::vector<HWND> windows;
  static void CALLBACK Note(HWINEVENTHOOK, DWORD, HWND window, LONG, LONG, DWORD, DWORD) {
    windows.push_back(window);
  }
};

TEST_F(NativeAnnotation, ALabelThatIsAnnouncedIsALiveRegionThatHasChanged) {
  constexpr DWORD kLiveRegionChanged = 0x8019;
  LiveEvents::windows.clear();
  HWINEVENTHOOK hook =
      SetWinEventHook(kLiveRegionChanged, kLiveRegionChanged, nullptr, LiveEvents::Note,
                      GetCurrentProcessId(), 0, WINEVENT_OUTOFCONTEXT);
  ASSERT_NE(hook, nullptr);
  form.label.SetPlainCaption(L"trois utilisateurs");
  form.label.Announce();
  form.label.Announce();
  user.Settle();
  UnhookWinEvent(hook);
  HWND window = form.label.BackEnd().window;
  EXPECT_EQ(LiveEvents::windows, (std::vector<HWND>{window, window}));
  EXPECT_EQ(services.told, Events{L"live 0 1"});
  EXPECT_EQ(services.window, window);
}

}  // namespace
}  // namespace controls_test
