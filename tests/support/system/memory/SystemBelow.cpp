#include <array>
#include <ctime>
#include <string_view>
#include <unordered_map>

#include "controls/Form.h"
#include "controls/MsgBox.h"
#include "controls/memory/DesktopPeer.h"
#include "data/Text.h"
#include "tests/support/system/ScriptedSystem.h"

namespace test_support {
namespace {

struct Entry {
  int id;
  std::string_view text;
};

constexpr Entry kEntries[] = {
#define UADMIN_STRING(id, text) {id, text},
#include "resources/strings_fr.h"
#undef UADMIN_STRING
};

std::unordered_map<int, std::wstring> MakeTable() {
  std::unordered_map<int, std::wstring> table;
  for (const Entry& entry : kEntries) table.emplace(entry.id, data::FromUtf8(entry.text));
  return table;
}

// A program that runs with nobody before it.
class UnattendedSystem : public controls::System {
 public:
  int MsgBox(const controls::Form*, const std::wstring&, int style, const std::wstring&) override {
    return (style & controls::kYesNo) != 0 ? controls::kResultNo : controls::kResultOk;
  }
  int PopupMenu(controls::TreeView&, controls::NodeId,
                const std::vector<controls::MenuItem>&) override {
    return 0;
  }
  controls::HelpOutcome HtmlHelp(const controls::Form&, const std::wstring&, int) override {
    return controls::HelpOutcome::kLibraryMissing;
  }
  bool SetClipboardText(const controls::Form*, const std::wstring&) override { return false; }
  void Beep() override {}
  std::optional<std::wstring> AskSaveFile(const controls::Form&, const std::wstring&,
                                          const std::wstring&,
                                          const std::vector<controls::FileKind>&) override {
    return std::nullopt;
  }
  bool EscapePressed() override { return false; }
  std::wstring Setting(const std::wstring&) const override { return {}; }
  void KeepSetting(const std::wstring&, const std::wstring&) override {}
  void BlockSessionEnd(const controls::Form&, const std::wstring&) override {}
  void UnblockSessionEnd(const controls::Form&) override {}
  void HandleInput(controls::Form& form) override {
    form.OwnerDesktop().BackEnd().HandleUntilUnloaded(form);
  }

  std::wstring LoadResString(int id) const override {
    static const std::unordered_map<int, std::wstring> table = MakeTable();
    const auto found = table.find(id);
    return found == table.end() ? std::wstring() : found->second;
  }
  int UserDefaultLcid() const override { return 0; }
  std::wstring ProgramFolder() const override { return {}; }
  std::wstring CommandLine() const override { return {}; }
  std::wstring LocalDataFolder() const override { return {}; }
  std::optional<std::wstring> Policy(const std::wstring&, const std::wstring&) const override {
    return std::nullopt;
  }
  std::wstring LocalTime(std::chrono::system_clock::time_point time) const override {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::array<char, 32> text = {};
    std::strftime(text.data(), text.size(), "%d/%m/%Y %H:%M:%S", std::localtime(&seconds));
    return data::FromUtf8(text.data());
  }
  std::wstring ComputerName() const override { return L"MEMOIRE"; }
  std::wstring UserName() const override { return L"MEMOIRE\\personne"; }
};

}  // namespace

std::unique_ptr<controls::System> MakeSystemBelow() {
  return std::make_unique<UnattendedSystem>();
}

}  // namespace test_support
