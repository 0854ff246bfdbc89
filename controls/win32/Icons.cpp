#include "controls/win32/Icons.h"

namespace controls {
namespace {

using LoadFunction = HRESULT(WINAPI*)(HINSTANCE, PCWSTR, int width, int height, HICON* icon);

// Only the library's newer edition has the function, which the program's manifest asks for.
LoadFunction FindFunction() {
  FARPROC found = GetProcAddress(GetModuleHandleW(L"comctl32.dll"), "LoadIconWithScaleDown");
  // By way of void*: the compiler warns of any direct cast between function types.
  return reinterpret_cast<LoadFunction>(reinterpret_cast<void*>(found));
}

}  // namespace

// LoadImage takes the nearest size, and so may enlarge a smaller one.
IconHandle LoadIconOfSize(int resource, int size) {
  HINSTANCE program = GetModuleHandleW(nullptr);
  PCWSTR name = MAKEINTRESOURCEW(resource);
  const LoadFunction load = FindFunction();
  HICON icon = nullptr;
  if (load && SUCCEEDED(load(program, name, size, size, &icon))) return IconHandle(icon);
  return IconHandle(
      static_cast<HICON>(LoadImageW(program, name, IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

}  // namespace controls
