#include "app/LocaleFont.h"

#include "controls/Desktop.h"
#include "controls/Form.h"

namespace app {
namespace {

constexpr int kFontSize = 9;

struct Row {
  int lcid;
  int charset;
  const wchar_t* face;
};

// The face names are those under which Windows lists the fonts of each language.
constexpr Row kFonts[] = {
    {2052, 134, L"\x5B8B\x4F53"},                                      // Chinese, simplified
    {1042, 129, L"\xAD74\xB9BC"},                                      // Korean
    {1028, 136, L"\x65B0\x7D30\x660E\x9AD4"},                          // Chinese, traditional
    {1041, 128, L"\xFF2D\xFF33\x0020\xFF30\x30B4\x30B7\x30C3\x30AF"},  // Japanese
};

}  // namespace

std::optional<controls::Font> LocaleFont(int lcid) {
  for (const Row& row : kFonts) {
    if (row.lcid == lcid) return controls::Font{row.face, kFontSize, row.charset};
  }
  return std::nullopt;
}

void SetLocaleFont(controls::Form& form) {
  const std::optional<controls::Font> font = LocaleFont(form.OwnerDesktop().UserDefaultLcid());
  if (font) form.SetFont(*font);
}

}  // namespace app
