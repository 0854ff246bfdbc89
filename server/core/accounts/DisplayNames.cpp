#include "server/core/accounts/DisplayNames.h"

#include "server/core/sql/Query.h"

namespace server {

DisplayNames::DisplayNames(std::shared_ptr<Database> database) : database_(std::move(database)) {}

std::wstring DisplayNames::Find(std::wstring_view text, std::int32_t code) {
  if (!loaded_ || loadedIn_ != database_->ReadNumber()) Load();
  const auto texts = codes_.find(code);
  if (texts == codes_.end()) return std::wstring(text);
  const auto found = texts->second.find(text);
  return found == texts->second.end() ? std::wstring(text) : found->second;
}

void DisplayNames::Load() {
  codes_.clear();
  loaded_ = false;
  Query query(database_->Get(), "SELECT CODE, GIVEN, MAPPED FROM QRDISPLAY");
  while (query.Next()) {
    codes_[static_cast<std::int32_t>(query.Number(0))].emplace(query.WideText(1),
                                                               query.WideText(2));
  }
  loadedIn_ = database_->ReadNumber();
  loaded_ = true;
}

}  // namespace server
