#pragma once

#include <string>
#include <string_view>

namespace browser {

// What stands in every page before its content, up to the tag of its body, and after it. title is
// what the browser shows of it. The style of its parts is that of HtmlStyle.h.
std::string BeginningOfPage(std::wstring_view title);
inline constexpr std::string_view kEndOfPage = "</body>\n</html>\n";

}  // namespace browser
