#include "app/MShowHelp.h"

#include "app/ErrorReport.h"
#include "app/StringIds.h"
#include "controls/Desktop.h"
#include "data/RunTimeError.h"

namespace app {
namespace {

void RaiseUnlessShown(const mGlobal& global, controls::HelpOutcome outcome) {
  using controls::HelpOutcome;
  switch (outcome) {
    case HelpOutcome::kShown:
      return;
    case HelpOutcome::kLibraryMissing:
      throw data::RunTimeError(data::kFileNotFound, global.LoadResString(kHelpLibraryMissing));
    case HelpOutcome::kFunctionMissing:
      throw data::RunTimeError(data::kEntryPointNotFound,
                               global.LoadResString(kHelpFunctionMissing));
    case HelpOutcome::kFileMissing:
      throw data::RunTimeError(data::kFileNotFound,
                               FillIn(global.LoadResString(kHelpFileMissing), {global.helpFile}));
    case HelpOutcome::kFileRefused:
      throw data::RunTimeError(data::kPathFileAccess,
                               FillIn(global.LoadResString(kHelpFileRefused), {global.helpFile}));
    case HelpOutcome::kTopicMissing:
      throw data::RunTimeError(data::kInvalidProcedureCall,
                               global.LoadResString(kHelpTopicMissing));
  }
}

}  // namespace

std::wstring HelpFile(const mGlobal& global) {
  return global.desktop.ProgramFolder() + L"\\ORMEX.chm";
}

void MShowHelp(const mGlobal& global, const controls::Form& form, int topic) {
  try {
    RaiseUnlessShown(global, global.desktop.HtmlHelp(form, global.helpFile, topic));
  } catch (...) {
    ReportError(global, L"MShowHelp");
  }
}

}  // namespace app
