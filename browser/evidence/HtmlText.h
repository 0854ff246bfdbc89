#pragma once

#include <string>
#include <string_view>

namespace browser {

// A text as it stands between the tags, or in the quoted attributes, of an HTML page in UTF-8.
// Control characters, which a page may not have, are shown as such.
std::string HtmlText(std::wstring_view text);

}  // namespace browser
