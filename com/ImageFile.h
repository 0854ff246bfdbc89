#pragma once

#include <string>

namespace com {

enum class ImageKind { kMissing, kOwnMachine, kOtherMachine, kUnknown };

// What machine a program file is made for, compared with this program's. A name without a folder is
// looked for as the system does.
ImageKind ReadImageKind(const std::wstring& path);

}  // namespace com
