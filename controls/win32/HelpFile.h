#pragma once

#include <optional>
#include <string>

namespace controls {

// The help viewer shows no page of a file that carries the mark of a download, or that lies on
// another machine: its window opens and stays blank.
bool IsRefusedByViewer(const std::wstring& file);

// Whether a full path leads to another machine by its form alone.
bool NamesAnotherMachine(const std::wstring& path);

// What the viewer is to be given for a help file: the file itself, or, where it would be refused, a
// copy of the same bytes in this folder, which is made if need be. The folder has to be the user's
// own. Nothing where the viewer would refuse the copy too or none can be made.
std::optional<std::wstring> ViewableHelpFile(const std::wstring& file, const std::wstring& folder);

// The user's own folder for such copies, on this machine; empty where the system knows none.
std::wstring HelpCopyFolder();

}  // namespace controls
