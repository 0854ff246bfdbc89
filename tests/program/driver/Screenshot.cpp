#include "tests/program/driver/Screenshot.h"

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <memory>
#include <type_traits>
#include <vector>

namespace driver {
namespace {

struct ScreenReleaser {
  void operator()(HDC dc) const { ReleaseDC(nullptr, dc); }
};
struct ContextDeleter {
  void operator()(HDC dc) const { DeleteDC(dc); }
};
struct BitmapDeleter {
  void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using Screen = std::unique_ptr<std::remove_pointer_t<HDC>, ScreenReleaser>;
using Context = std::unique_ptr<std::remove_pointer_t<HDC>, ContextDeleter>;
using Bitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter>;

BITMAPINFO Format(LONG width, LONG height) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  return info;
}

std::vector<std::uint32_t> ReadPixels(const RECT& area) {
  const LONG width = area.right - area.left;
  const LONG height = area.bottom - area.top;
  if (width <= 0 || height <= 0) return {};
  const Screen screen(GetDC(nullptr));
  const Context memory(CreateCompatibleDC(screen.get()));
  const Bitmap bitmap(CreateCompatibleBitmap(screen.get(), width, height));
  const HGDIOBJ before = SelectObject(memory.get(), bitmap.get());
  BitBlt(memory.get(), 0, 0, width, height, screen.get(), area.left, area.top, SRCCOPY);
  SelectObject(memory.get(), before);
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width) * height);
  BITMAPINFO info = Format(width, height);
  GetDIBits(memory.get(), bitmap.get(), 0, static_cast<UINT>(height), pixels.data(), &info,
            DIB_RGB_COLORS);
  // The fourth byte means nothing here, and transparency to some who read it.
  for (std::uint32_t& pixel : pixels) pixel |= 0xFF000000U;
  return pixels;
}

bool IsOneColour(const std::vector<std::uint32_t>& pixels) {
  return std::all_of(pixels.begin(), pixels.end(),
                     [&](std::uint32_t pixel) { return pixel == pixels.front(); });
}

}  // namespace

bool SaveScreenshot(const RECT& area, const std::filesystem::path& file) {
  const std::vector<std::uint32_t> pixels = ReadPixels(area);
  if (pixels.empty() || IsOneColour(pixels)) return false;
  const BITMAPINFO info = Format(area.right - area.left, area.bottom - area.top);
  const auto size = static_cast<DWORD>(pixels.size() * sizeof pixels[0]);
  BITMAPFILEHEADER header{};
  header.bfType = 0x4D42;
  header.bfOffBits = sizeof header + sizeof info.bmiHeader;
  header.bfSize = header.bfOffBits + size;
  std::ofstream out(file, std::ios::binary);
  out.write(reinterpret_cast<const char*>(&header), sizeof header);
  out.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof info.bmiHeader);
  out.write(reinterpret_cast<const char*>(pixels.data()), size);
  return out.good();
}

bool SaveScreenshot(const std::filesystem::path& file) {
  const RECT all{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  return SaveScreenshot(all, file);
}

}  // namespace driver
