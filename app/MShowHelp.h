#pragma once

#include "app/mGlobal.h"

namespace controls {
class Form;
}

namespace app {

// Topic numbers of the help file, one a window.
enum HelpTopic : int {
  kTopicUserGroupPerm = 109,
  kTopicNewUser = 1201,
  kTopicEditUser = 1202,
  kTopicNewGroup = 1203,
  kTopicEditGroup = 1204,
  kTopicAddUserInGroup = 1205,
  kTopicListGroups = 1206,
  kTopicListPermissions = 1207,
  kTopicList = 1208,
  kTopicJournal = 1209,
};

// The help file's full path: it lies beside the executable.
std::wstring HelpFile(const mGlobal& global);

// Opens the program's help file at a topic, for a window's help button and its F1 key. When it
// cannot be shown, the standard error report says whether the help library (error 53), its function
// (453), the help file (53) or the topic (5) is missing, or the viewer refuses the file (75).
void MShowHelp(const mGlobal& global, const controls::Form& form, int topic);

}  // namespace app
