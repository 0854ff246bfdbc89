#include "browser/evidence/RightsExport.h"

#include <array>
#include <chrono>
#include <ctime>

#include "app/MQVXMsgBox.h"
#include "app/ReplacedFile.h"
#include "app/Reported.h"
#include "app/StringIds.h"
#include "browser/evidence/AccessReport.h"
#include "browser/evidence/ExportFile.h"
#include "controls/Desktop.h"
#include "data/Text.h"

namespace browser {
namespace {

// How often the user is listened to; asking costs more than writing what a user may do.
constexpr std::chrono::milliseconds kListening{50};

// The program has one thread: nobody else asks for a time at this moment.
std::wstring UtcTime() {
  const std::time_t now = std::time(nullptr);
  std::array<char, 64> text = {};
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", std::gmtime(&now));
  return data::FromUtf8(text.data());
}

}  // namespace

bool RightsExport::AskWhere() {
  const auto path = AskExportFile(global_, form_, global_.LoadResString(app::kExportTitle),
                                  global_.LoadResString(app::kExportName));
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
  report.head = {UtcTime(),         ExportTime(),       global_.sessionUserText,
                 global_.sessionId, AccountsIn(users_), AccountsIn(groups_),
                 permissions,       incomplete};
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
