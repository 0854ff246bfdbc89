#include "browser/pages/DeleteRecord.h"

#include "app/MQVXMsgBox.h"
#include "app/Reported.h"
#include "app/StringIds.h"

namespace browser {

std::optional<std::int32_t> DeleteRecord(const app::mGlobal& global, const std::wstring& sql) {
  return app::ReportedOr(global, L"DeleteRecord", std::optional<std::int32_t>(),
                         [&] { return std::optional(global.databaseConnection->Execute(sql)); });
}

void TellChangedMeanwhile(const app::mGlobal& global) {
  app::MQVXMsgBox(global).ShowInformation(global.LoadResString(app::kChangedMeanwhile1) + L"\r\n" +
                                          global.LoadResString(app::kChangedMeanwhile2));
}

}  // namespace browser
