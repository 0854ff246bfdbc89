#include "browser/evidence/RightsExport.h"

#include <array>
#include <chrono>
#include <ctime>

#include "app/MQVXMsgBox.h"
#include "app/ReplacedFile.h"
#include "app/Reported.h"
#include "app/StringIds.h"
#include "browser/evidence/AccessReport.h"
#include "controls/Desktop.h"
#include "data/Text.h"

namespace browser {
namespace {

// How often the user is listened to; asking costs more than writing what a user may do.
constexpr std::chrono::milliseconds kListening{50};

constexpr const wchar_t* kTable = L"csv";
constexpr const wchar_t* kPage = L"html";

std::wstring Formatted(const char* format, const std::tm& time) {
  std::array<char, 64> text = {};
  std::strftime(text.data(), text.size(), format, &time);
  return data::FromUtf8(text.data());
}

// The program has one thread: nobody else asks for a time at this moment.
std::wstring LocalTime(const char* format) {
  const std::time_t now = std::time(nullptr);
  return Formatted(format, *std::localtime(&now));
}

std::wstring UtcTime() {
  const std::time_t now = std::time(nullptr);
  return Formatted("%Y-%m-%dT%H:%M:%SZ", *std::gmtime(&now));
}

bool IsPage(std::wstring path) {
  for (wchar_t& letter : path) {
    if (letter >= L'A' && letter <= L'Z') letter = static_cast<wchar_t>(letter + (L'a' - L'A'));
  }
  return path.ends_with(L".html") || path.ends_with(L".htm");
}

}  // namespace

bool RightsExport::AskWhere() {
  const auto text = [this](int id) { return global_.LoadResString(id); };
  const auto path = global_.desktop.AskSaveFile(
      form_, text(app::kExportTitle),
      app::FillIn(text(app::kExportFileName), {LocalTime("%Y-%m-%d")}),
      {{text(app::kExportCsvKind), kTable}, {text(app::kExportHtmlKind), kPage}});
  path_ = path.value_or(std::wstring());
  return path.has_value();
}

std::wstring RightsExport::Write(int permissions, bool incomplete,
                                 const std::function<void(int done, int total)>& progress) {
  bool whole = false;
  const app::Outcome outcome = app::Reported(
      global_, L"ExportRights", [&] { whole = WriteFile(permissions, incomplete, progress); });
  if (outcome == app::Outcome::kFailed) return {};
  if (!whole) return global_.LoadResString(app::kExportStopped);
  if (incomplete) {
    app::MQVXMsgBox(global_).ShowInformation(global_.LoadResString(app::kExportIncomplete));
  }
  return app::FillIn(global_.LoadResString(app::kExported), {path_});
}

// False when the user has stopped it.
bool RightsExport::WriteFile(int permissions, bool incomplete,
                             const std::function<void(int done, int total)>& progress) const {
  app::ReplacedFile file(global_, path_);
  auto next = std::chrono::steady_clock::now();
  ReportContext report{global_, users_, groups_, {}, {}, {}};
  report.head = {UtcTime(),
                 LocalTime("%d/%m/%Y %H:%M:%S"),
                 global_.sessionUserText,
                 global_.sessionId,
                 AccountsIn(users_),
                 AccountsIn(groups_),
                 permissions,
                 incomplete};
  report.Write = [&](const std::string& bytes) { file.Write(bytes); };
  report.GoesOn = [&](int done, int total) {
    const auto now = std::chrono::steady_clock::now();
    if (now < next) return true;
    next = now + kListening;
    progress(done, total);
    return !global_.desktop.EscapePressed();
  };
  if (!(IsPage(path_) ? WriteHtml(report) : WriteCsv(report))) return false;
  file.Finish();
  return true;
}

}  // namespace browser
