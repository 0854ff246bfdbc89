#include "browser/rules/AccountName.h"

#include <string_view>

#include "data/Text.h"

namespace browser {
namespace {

// Where the addition begins; the end of the text where there is none.
std::size_t Opening(const controls::TreeNodes& nodes, controls::NodeId account) {
  const std::wstring& text = nodes.Text(account);
  if (nodes.StoredName(account).find(L'(') != std::wstring::npos) return text.size();
  const std::size_t opening = text.find(L'(');
  return opening == std::wstring::npos ? text.size() : opening;
}

}  // namespace

std::wstring AccountName(const controls::TreeNodes& nodes, controls::NodeId account) {
  const std::wstring_view text = nodes.Text(account);
  return std::wstring(data::Trim(text.substr(0, Opening(nodes, account))));
}

std::wstring AccountAddition(const controls::TreeNodes& nodes, controls::NodeId account) {
  std::wstring_view text = nodes.Text(account);
  const std::size_t opening = Opening(nodes, account);
  if (opening == text.size()) return {};
  text.remove_prefix(opening + 1);
  if (text.ends_with(L')')) text.remove_suffix(1);
  return std::wstring(text);
}

}  // namespace browser
