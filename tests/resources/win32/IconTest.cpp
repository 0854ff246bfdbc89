#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <vector>

#include "ModuleResource.h"
#include "resources/ResourceIds.h"

namespace resources_test {
namespace {

constexpr int kIcons[] = {IDI_PROGRAM,
                          IDI_FOLDER_CLOSED,
                          IDI_FOLDER_OPEN,
                          IDI_USER,
                          IDI_USER_PROTECTED,
                          IDI_GROUP,
                          IDI_GROUP_PROTECTED,
                          IDI_PERMISSION,
                          IDI_PERMISSION_INHERITED};

// One picture of an icon as its directory describes it.
struct Picture {
  int width;
  int height;
  int bitsPerPixel;
};

// The directory is a header of three words, the last the number of entries of 14 bytes each.
std::vector<Picture> PicturesOf(int icon) {
  constexpr std::size_t kHeader = 6;
  constexpr std::size_t kEntry = 14;
  const auto directory = ModuleResource(icon, RT_GROUP_ICON);
  std::vector<Picture> pictures;
  for (std::size_t at = kHeader; at + kEntry <= directory.size(); at += kEntry) {
    const auto size = [](std::uint8_t stored) { return stored == 0 ? 256 : stored; };
    std::uint16_t bits = 0;
    std::memcpy(&bits, &directory[at + 6], sizeof bits);
    pictures.push_back({size(directory[at]), size(directory[at + 1]), bits});
  }
  return pictures;
}

TEST(Icons, EveryIconHasItsTenSizesInFullColour) {
  for (int icon : kIcons) {
    std::vector<int> sizes;
    for (const Picture& picture : PicturesOf(icon)) {
      EXPECT_EQ(picture.width, picture.height) << "icon " << icon;
      EXPECT_EQ(picture.bitsPerPixel, 32) << "icon " << icon << " at " << picture.width;
      sizes.push_back(picture.width);
    }
    EXPECT_EQ(sizes, (std::vector<int>{16, 20, 24, 28, 32, 36, 40, 48, 64, 256}))
        << "icon " << icon;
  }
}

// The picture's 32-bit pixels, top row first.
std::vector<std::uint32_t> PixelsOf(int icon, int size) {
  const HANDLE loaded = LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(icon), IMAGE_ICON,
                                   size, size, LR_DEFAULTCOLOR);
  ICONINFO parts = {};
  if (loaded == nullptr || !GetIconInfo(static_cast<HICON>(loaded), &parts)) return {};
  BITMAPINFO format = {};
  format.bmiHeader = {sizeof format.bmiHeader, size, -size, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  std::vector<std::uint32_t> pixels(static_cast<std::size_t>(size * size));
  const HDC screen = GetDC(nullptr);
  GetDIBits(screen, parts.hbmColor, 0, static_cast<UINT>(size), pixels.data(), &format,
            DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  DeleteObject(parts.hbmColor);
  DeleteObject(parts.hbmMask);
  DestroyIcon(static_cast<HICON>(loaded));
  return pixels;
}

std::uint32_t Alpha(std::uint32_t pixel) {
  return pixel >> 24;
}

TEST(Icons, EverySizeHasSoftEdgesAndACornerToSeeThrough) {
  for (int icon : kIcons) {
    for (int size : {16, 20, 24, 28, 32, 36, 40, 48, 64, 256}) {
      const std::vector<std::uint32_t> pixels = PixelsOf(icon, size);
      ASSERT_FALSE(pixels.empty()) << "icon " << icon << " at " << size;
      int solid = 0;
      int soft = 0;
      for (std::uint32_t pixel : pixels) {
        if (Alpha(pixel) == 255) ++solid;
        if (Alpha(pixel) > 0 && Alpha(pixel) < 255) ++soft;
      }
      EXPECT_GT(solid, size * size / 6) << "icon " << icon << " at " << size;
      EXPECT_GT(soft, 0) << "icon " << icon << " at " << size;
      EXPECT_LT(Alpha(pixels.front()), 128U) << "icon " << icon << " at " << size;
    }
  }
}

// Share of the pixels, in percent, that two icons draw clearly differently.
int DifferenceAt16(int first, int second) {
  const auto one = PixelsOf(first, 16);
  const auto other = PixelsOf(second, 16);
  if (one.size() != 256 || other.size() != 256) return -1;
  int different = 0;
  for (std::size_t i = 0; i < one.size(); ++i) {
    int distance = 0;
    for (int shift = 0; shift < 32; shift += 8) {
      const int a = static_cast<int>(one[i] >> shift & 0xFF);
      const int b = static_cast<int>(other[i] >> shift & 0xFF);
      distance += a > b ? a - b : b - a;
    }
    if (distance > 100) ++different;
  }
  return different * 100 / 256;
}

TEST(Icons, NoTwoLookAlikeAtTheTreesSize) {
  for (int first : kIcons) {
    for (int second : kIcons) {
      if (first >= second) continue;
      EXPECT_GT(DifferenceAt16(first, second), 10) << "icons " << first << " and " << second;
    }
  }
}

}  // namespace

}  // namespace resources_test
