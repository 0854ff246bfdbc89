#pragma once

#include <cstdint>
#include <string>

#include "app/JournalLine.h"
#include "data/WriteObserver.h"

namespace controls {
class Desktop;
}

namespace app {

// What this program has changed, for whoever asks later: a line for each command, in a file a month
// in a folder of the user's. It is told of every write by the connection itself, so that none can
// be left out; the command adds for whom and in which words. A journal that cannot be written
// hinders nothing.
class Journal final : public data::WriteObserver {
 public:
  explicit Journal(const controls::Desktop& desktop) : desktop_(desktop) {}
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  // Finds out where the journal is and who works; nothing is written before, nor where an
  // administrator has switched it off.
  void Open(const std::wstring& sessionUserText);

  // The folder of its files; empty while it is closed or switched off.
  const std::wstring& Folder() const { return folder_; }

  // True once, when a line could not be written.
  bool TakeTrouble();

  // A command that may change something. What is changed while it lives becomes one line, which is
  // written at its end; without a change there is none.
  class Command {
   public:
    // account is the one at hand; an id of -1 stands for none.
    Command(Journal& journal, const JournalEntry::Account& account);
    ~Command();
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    // Writes the line. what may be empty: then it is made from the first change.
    void Finish(const std::wstring& what, bool complete);

   private:
    Journal* journal_;  // null when the line is written
  };

  void Written(data::Write write) override;
  void Failed(const data::Write* write, const data::RunTimeError& error,
              bool mayTellSecrets) override;

 private:
  void Finish(const std::wstring& what, bool complete);
  void Append(const std::wstring& file, const std::string& line);

  const controls::Desktop& desktop_;
  std::wstring folder_;
  JournalAuthor author_;
  JournalEntry entry_;        // of the command that runs
  data::Write firstAttempt_;  // of its writes, also if it failed
  bool attempted_ = false;    // a write
  bool inCommand_ = false;
  bool cutShort_ = false;  // the last line may have been written in part
  bool trouble_ = false;
  bool told_ = false;
};

}  // namespace app
