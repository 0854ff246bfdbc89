#include "browser/lists/JournalList.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>

#include "app/JournalFiles.h"
#include "app/StringIds.h"
#include "controls/Desktop.h"
#include "data/Text.h"

namespace browser {
namespace {

// The texts of a row after those of its columns, which stand for two of them in the order of rows.
enum SortText : int { kSortedTime = 5, kSortedResult = 6 };

// As many digits as a moment of these centuries has, so that texts are in the order of numbers.
std::wstring Padded(std::int64_t number) {
  constexpr std::size_t kDigits = 16;
  const std::wstring digits = data::Decimal(number);
  return std::wstring(kDigits - std::min(digits.size(), kDigits), L'0') + digits;
}

std::wstring MomentOf(const app::JournalRecord& record) {
  using std::chrono::milliseconds;
  return Padded(std::chrono::floor<milliseconds>(record.time).time_since_epoch().count());
}

std::wstring WhoIn(const app::mGlobal& global, const app::JournalAuthor& author) {
  return app::FillIn(global.LoadResString(app::kJournalWho),
                     {author.session, author.user, author.computer});
}

std::wstring ResultOf(const app::mGlobal& global, const app::JournalRecord& record) {
  if (!record.error) return record.rows ? data::Decimal(*record.rows) : std::wstring();
  const std::wstring& text = record.error->text;
  return app::FillIn(
      global.LoadResString(text.empty() ? app::kJournalErrorNumber : app::kJournalError),
      {data::Decimal(record.error->number), text});
}

// Numbers of rows by their value, errors after them.
std::wstring ResultOrder(const app::JournalRecord& record, const std::wstring& result) {
  if (record.error) return result;
  return record.rows ? Padded(*record.rows) : std::wstring();
}

ListRow Row(const app::mGlobal& global, const app::JournalRecord& record) {
  const std::wstring result = ResultOf(global, record);
  return {{global.desktop.Surroundings().LocalTime(record.time), WhoIn(global, record.author),
           record.what, record.account, result, MomentOf(record), ResultOrder(record, result)}};
}

std::wstring NoticeOf(const app::mGlobal& global, const app::JournalContent& journal) {
  std::wstring notice;
  const auto add = [&notice](const std::wstring& text) {
    notice += (notice.empty() ? L"" : L" ") + text;
  };
  if (journal.failed) add(global.LoadResString(app::kJournalUnread));
  if (journal.unreadable > 0) {
    add(app::FillIn(global.LoadResString(app::kJournalUnreadable),
                    {data::GroupedDecimal(journal.unreadable)}));
  }
  if (journal.hasMore) add(global.LoadResString(app::kJournalHasMore));
  return notice;
}

}  // namespace

ListSource JournalList(const app::mGlobal& global) {
  const auto text = [&](int id) { return global.LoadResString(id); };
  const std::wstring& folder = global.journal.Folder();
  ListSource source;
  source.title = text(app::kJournalTitle);
  source.columns = {
      {.caption = text(app::kJournalTimeColumn), .share = 6, .sortedBy = kSortedTime},
      {.caption = text(app::kJournalWhoColumn), .share = 5},
      {.caption = text(app::kJournalWhatColumn), .share = 9},
      {.caption = text(app::kJournalAccountColumn), .share = 3},
      {.caption = text(app::kJournalResultColumn), .share = 4, .sortedBy = kSortedResult}};
  source.nothing = text(app::kJournalEmpty);
  source.topic = app::kTopicJournal;
  if (folder.empty()) {
    source.heading = source.title;
    source.notice = text(app::kJournalOff);
    return source;
  }
  source.heading = app::FillIn(text(app::kJournalFolder), {folder});
  const app::JournalContent journal = app::ReadJournal(folder);
  source.rows.reserve(journal.records.size());
  for (const app::JournalRecord& record : journal.records) {
    source.rows.push_back(Row(global, record));
  }
  source.notice = NoticeOf(global, journal);
  return source;
}

}  // namespace browser
