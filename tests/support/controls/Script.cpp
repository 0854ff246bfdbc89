#include "tests/support/controls/Script.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "controls/Form.h"
#include "controls/MsgBox.h"

namespace test_support {
namespace {

// For the test's log only: what is not ASCII is shown by its number.
std::string Shown(const std::wstring& text) {
  std::string shown;
  for (const wchar_t c : text) {
    const auto unit = static_cast<unsigned>(c) & 0xFFFFU;
    if (unit >= 32 && unit < 127) {
      shown += static_cast<char>(unit);
    } else {
      shown.append("<").append(std::to_string(unit)).append(">");
    }
  }
  return shown;
}

std::string Shown(const SeenBox& box) {
  std::string shown = "\"";
  shown.append(Shown(box.prompt)).append("\", style ").append(std::to_string(box.style));
  shown.append(", title \"").append(Shown(box.title)).append("\"");
  return shown;
}

bool Offers(const std::vector<controls::MenuItem>& items, int command) {
  return std::any_of(items.begin(), items.end(), [command](const controls::MenuItem& item) {
    return item.command == command && item.enabled;
  });
}

int RefusingAnswer(int style) {
  return (style & controls::kYesNo) != 0 ? controls::kResultNo : controls::kResultOk;
}

}  // namespace

Script::Script(std::function<void(controls::Form&)> discard) : discard_(std::move(discard)) {}

void Script::ExpectBox(ExpectedBox box, Where where) {
  boxes_.push_back({std::move(box), where});
}

void Script::ExpectMenu(MenuAnswer answer, Where where) {
  menus_.push_back({std::move(answer), where});
}

void Script::ExpectModal(FormScript script, Where where) {
  forms_.push_back({std::move(script), where});
}

int Script::AnswerBox(const std::wstring& prompt, int style, const std::wstring& title) {
  SeenBox seen{prompt, style, title, RefusingAnswer(style)};
  if (boxes_.empty()) {
    ADD_FAILURE() << "unexpected message box " << Shown(seen);
  } else {
    const WaitingBox expected = std::move(boxes_.front());
    boxes_.pop_front();
    Compare(expected, seen);
    seen.answer = expected.box.answer;
  }
  seen_.push_back(seen);
  return seen.answer;
}

int Script::AnswerMenu(const std::vector<controls::MenuItem>& items) {
  if (menus_.empty()) {
    ADD_FAILURE() << "unexpected menu of " << items.size() << " lines, the first \""
                  << (items.empty() ? std::string() : Shown(items.front().caption)) << "\"";
    return 0;
  }
  const WaitingMenu expected = std::move(menus_.front());
  menus_.pop_front();
  const int command = expected.answer(items);
  if (command == 0 || Offers(items, command)) return command;
  ADD_FAILURE_AT(expected.where.file_name(), expected.where.line())
      << "command " << command << " is not to be had from the menu";
  return 0;
}

void Script::Compare(const WaitingBox& expected, const SeenBox& seen) {
  const ExpectedBox& box = expected.box;
  if (box.prompt.value_or(seen.prompt) != seen.prompt ||
      box.style.value_or(seen.style) != seen.style ||
      box.title.value_or(seen.title) != seen.title) {
    const SeenBox wanted{box.prompt.value_or(seen.prompt), box.style.value_or(seen.style),
                         box.title.value_or(seen.title), 0};
    ADD_FAILURE_AT(expected.where.file_name(), expected.where.line())
        << "the message box is " << Shown(seen) << "\nexpected was       " << Shown(wanted);
  }
  const bool asks = (seen.style & controls::kYesNo) != 0;
  const bool yesOrNo = box.answer == controls::kResultYes || box.answer == controls::kResultNo;
  if (asks != yesOrNo) {
    ADD_FAILURE_AT(expected.where.file_name(), expected.where.line())
        << "answer " << box.answer << " is not a button of the message box " << Shown(seen);
  }
}

void Script::RunModal(controls::Form& form) {
  if (forms_.empty()) {
    ADD_FAILURE() << "unexpected modal form, template " << form.TemplateId() << ", caption \""
                  << Shown(form.Caption()) << "\"";
    discard_(form);
    return;
  }
  const WaitingForm expected = std::move(forms_.front());
  forms_.pop_front();
  expected.script(form);
  if (!form.IsLoaded()) return;
  ADD_FAILURE_AT(expected.where.file_name(), expected.where.line())
      << "the script has left the form of template " << form.TemplateId() << " open";
  discard_(form);
}

void Script::FailLeftovers() {
  for (const WaitingBox& waiting : boxes_) {
    ADD_FAILURE_AT(waiting.where.file_name(), waiting.where.line())
        << "the message box expected here has not appeared";
  }
  for (const WaitingMenu& waiting : menus_) {
    ADD_FAILURE_AT(waiting.where.file_name(), waiting.where.line())
        << "the menu expected here has not appeared";
  }
  for (const WaitingForm& waiting : forms_) {
    ADD_FAILURE_AT(waiting.where.file_name(), waiting.where.line())
        << "the modal form expected here has not appeared";
  }
  boxes_.clear();
  menus_.clear();
  forms_.clear();
}

}  // namespace test_support
