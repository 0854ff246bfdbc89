#include "browser/evidence/ExportFile.h"

#include <array>
#include <ctime>

#include "app/StringIds.h"
#include "controls/Desktop.h"
#include "data/Text.h"

namespace browser {
namespace {

constexpr const wchar_t* kTable = L"csv";
constexpr const wchar_t* kPage = L"html";

// The program has one thread: nobody else asks for a time at this moment.
std::wstring LocalTime(const char* format) {
  const std::time_t now = std::time(nullptr);
  std::array<char, 64> text = {};
  std::strftime(text.data(), text.size(), format, std::localtime(&now));
  return data::FromUtf8(text.data());
}

}  // namespace

std::optional<std::wstring> AskExportFile(const app::mGlobal& global, const controls::Form& form,
                                          const std::wstring& title, const std::wstring& name) {
  const auto text = [&](int id) { return global.LoadResString(id); };
  return global.desktop.AskSaveFile(
      form, title, app::FillIn(text(app::kExportFileName), {name, LocalTime("%Y-%m-%d")}),
      {{text(app::kExportCsvKind), kTable}, {text(app::kExportHtmlKind), kPage}});
}

bool IsPage(std::wstring_view path) {
  std::wstring name(path);
  for (wchar_t& letter : name) {
    if (letter >= L'A' && letter <= L'Z') letter = static_cast<wchar_t>(letter + (L'a' - L'A'));
  }
  return name.ends_with(L".html") || name.ends_with(L".htm");
}

std::wstring ExportTime() {
  return LocalTime("%d/%m/%Y %H:%M:%S");
}

}  // namespace browser
