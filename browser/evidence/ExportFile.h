#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "app/mGlobal.h"

namespace controls {
class Form;
}

namespace browser {

// Asks over a window for the file of an export, a table or a page; nothing where the user has
// thought better of it. name is proposed, the day added to it.
std::optional<std::wstring> AskExportFile(const app::mGlobal& global, const controls::Form& form,
                                          const std::wstring& title, const std::wstring& name);

// Whether the file of this path is a page to read. One of any other name is a table.
bool IsPage(std::wstring_view path);

// The present date and time where the program runs, as every export has it, whatever its reader is
// used to.
std::wstring ExportTime();

}  // namespace browser
