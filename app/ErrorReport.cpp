#include "app/ErrorReport.h"

#include <new>

#include "app/StringIds.h"
#include "controls/Desktop.h"
#include "data/RunTimeError.h"
#include "data/Text.h"

namespace app {
namespace {

// Standard texts exist for the numbers that fit a resource id.
constexpr long kLargestStandardNumber = 65535 - kErrorTexts;

std::wstring StandardText(const mGlobal& global, long number) {
  if (number > 0 && number <= kLargestStandardNumber) {
    std::wstring text = global.LoadResString(kErrorTexts + static_cast<int>(number));
    if (!text.empty()) return text;
  }
  return global.LoadResString(kErrorTexts);
}

void Show(const mGlobal& global, std::wstring_view procedure, const data::RunTimeError& error) {
  std::wstring report(procedure);
  report += L" Error [" + data::Decimal(error.Number()) + L"]\r\n";
  report += error.Text().empty() ? StandardText(global, error.Number()) : error.Text();
  global.desktop.SetMousePointer(controls::MousePointer::kDefault);
  global.desktop.MsgBox(report, controls::kExclamation, global.LoadResString(kTitle));
}

}  // namespace

void ReportError(const mGlobal& global, std::wstring_view procedure) noexcept {
  try {
    throw;
  } catch (const data::RunTimeError& error) {
    Show(global, procedure, error);
  } catch (const std::bad_alloc&) {
    Show(global, procedure, data::RunTimeError(data::kOutOfMemory));
  }
}

}  // namespace app
