#include "browser/evidence/HtmlPage.h"

#include "browser/evidence/HtmlStyle.h"
#include "browser/evidence/HtmlText.h"

namespace browser {

std::string BeginningOfPage(std::wstring_view title) {
  std::string page =
      "<!DOCTYPE html>\n<html lang=\"fr\">\n<head>\n<title>" + HtmlText(title) + "</title>\n";
  page += kHtmlStyle;
  page += "</head>\n<body>\n";
  return page;
}

}  // namespace browser
