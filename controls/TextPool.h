#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace controls {

// A text of a pool, by number.
using TextRef = std::uint32_t;

// Texts kept once however many nodes show them, each with the key by which it is ordered. A text
// that nothing holds lives on until the next Sweep, so that a reference may be used again while
// nodes are taken away and put back.
class TextPool {
 public:
  explicit TextPool(std::function<std::string(std::wstring_view)> sortKey);

  TextRef Share(std::wstring_view text);
  void Hold(TextRef text) { ++At(text).holders; }
  void Release(TextRef text);
  // Frees the texts that nothing holds; their references end here.
  void Sweep();
  // Makes every text one that nothing holds, so that those which are wanted again before the next
  // sweep keep their keys and their places in the order.
  void ReleaseAll();

  const std::wstring& Text(TextRef text) const { return At(text).text; }
  // Whether a stands before b. Texts that the sort key holds for equal are ordered by their code
  // units: the order is total and does not depend on which came first.
  bool Before(TextRef a, TextRef b) const;
  // Numbers every text by its place in the order, so that Rank answers until a text is added.
  void RankAll();
  bool Ranked() const { return unranked_ == 0 && !texts_.empty(); }
  // How many texts have come since.
  std::size_t Unranked() const { return unranked_; }
  std::uint32_t Rank(TextRef text) const { return ranks_[text]; }

  std::size_t Count() const { return texts_.size() - free_.size(); }
  std::size_t Bytes() const;

 private:
  struct Entry {
    std::wstring text;
    mutable std::string sortKey;  // worked out from the text when it is first needed
    std::uint32_t holders = 0;
    bool used = false;
    bool idle = false;  // waits in idle_ for the next sweep
  };

  // The rank of a text that was added after the last RankAll.
  static constexpr std::uint32_t kUnranked = UINT32_MAX;

  Entry& At(TextRef text) { return texts_[text]; }
  const Entry& At(TextRef text) const { return texts_[text]; }
  const std::string& SortKey(TextRef text) const;
  bool IsRanked(TextRef text) const { return text < ranks_.size() && ranks_[text] != kUnranked; }
  void MarkIdle(TextRef text);

  std::function<std::string(std::wstring_view)> sortKey_;
  std::deque<Entry> texts_;  // a deque: the index below points into its texts
  std::vector<TextRef> free_;
  std::vector<TextRef> idle_;
  std::unordered_map<std::wstring_view, TextRef> index_;
  std::vector<std::uint32_t> ranks_;  // by reference
  std::size_t unranked_ = 0;
};

}  // namespace controls
