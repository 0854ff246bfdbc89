#include "data/Collation.h"

#include <cstdint>
#include <utility>

namespace data {
namespace {

// What stands before the digits, in its order; letters come after them. The order is that of the
// system's own tables, where a text is compared sign by sign.
constexpr std::wstring_view kSigns =
    L"'-\x2013 \xA0\t\n\r!\"#$%&()*,./:;?@[\\]^_`{|}~\xA1\xA6\xA8\xAF\xB4\xB8\xBF\x2019"
    L"\xA2\xA3\xA4\xA5\x20AC+<=>\xB1\xAB\xBB\xD7\xF7\xA7\xA9\xAC\xAE\xB0\xB6\xB7";

// The letters from U+00C0 to U+017F: which letter each is, a digit standing for one of the pairs
// below, and the mark on it.
constexpr wchar_t kFirstMarked = 0xC0;
constexpr std::string_view kLetters =
    "AAAAAA1CEEEEIIIIDNOOOOO*OUUUUY23AAAAAA1CEEEEIIIIDNOOOOO*OUUUUY2Y"
    "AAAAAACCCCCCCCDDDDEEEEEEEEEEGGGGGGGGHHHHIIIIIIIIII44JJKKKLLLLLLL"
    "LLLNNNNNNNNNOOOOOO55RRRRRRSSSSSSSSTTTTTTUUUUUUUUUUUUWWYYYZZZZZZS";
constexpr std::string_view kMarks =
    "`'^~:o ,`'^:`'^:d~`'^~: /`'^:'  `'^~:o ,`'^:`'^:d~`'^~: /`'^:' :"
    "--uu;;''^^..vvvv==--uu..;;vv^^uu..,,^^==~~--uu;;.i  ^^,,i'',,vv*"
    "*ll'',,vvngg--uu\"\"  '',,vv''^^,,vv,,vv==~~--uuoo\"\";;^^^^:''..vvi";
static_assert(kLetters.size() == 0x180 - 0xC0 && kMarks.size() == kLetters.size());
constexpr std::string_view kPairs[] = {"AE", "TH", "SS", "IJ", "OE"};

// The marks in their order; a letter without one stands before all of them.
constexpr std::string_view kMarkOrder = "i'`.*^:vu-~o;,\"=l/ngd";

// The key's bytes. The first part has the letters, the second the marks; none of them is 0 or 1,
// so that what is shorter stands first and the first part decides.
constexpr unsigned kFirstSign = 2;
constexpr unsigned kFirstDigit = 110;
constexpr unsigned kFirstLetter = 120;
constexpr unsigned kOther = 0xFE;
constexpr char kEndOfPart = 1;
constexpr unsigned kNoMark = 2;
static_assert(kFirstSign + kSigns.size() <= kFirstDigit);

class KeyMaker {
 public:
  void Put(wchar_t c) {
    if (c >= L'a' && c <= L'z') {
      PutLetter(static_cast<char>(c - L'a' + 'A'), kNoMark);
    } else if (c >= L'A' && c <= L'Z') {
      PutLetter(static_cast<char>(c), kNoMark);
    } else if (c >= L'0' && c <= L'9') {
      PutByte(kFirstDigit + static_cast<unsigned>(c - L'0'), kNoMark);
    } else if (const std::size_t sign = kSigns.find(c); sign != std::wstring_view::npos) {
      PutByte(kFirstSign + static_cast<unsigned>(sign), kNoMark);
    } else if (c >= kFirstMarked && c < kFirstMarked + static_cast<wchar_t>(kLetters.size())) {
      PutMarked(static_cast<std::size_t>(c - kFirstMarked));
    } else {
      PutOther(static_cast<std::uint32_t>(c) & 0xFFFFU);
    }
  }

  std::string Key() && {
    while (!marks_.empty() && marks_.back() == kNoMark) marks_.pop_back();
    return letters_ + kEndOfPart + marks_;
  }

 private:
  void PutMarked(std::size_t place) {
    const char letter = kLetters[place];
    if (letter >= '1' && letter <= '5') {
      for (const char part : kPairs[letter - '1']) PutLetter(part, kNoMark);
      return;
    }
    const std::size_t mark = kMarkOrder.find(kMarks[place]);
    PutLetter(letter,
              mark == std::string_view::npos ? kNoMark : kNoMark + 1 + static_cast<unsigned>(mark));
  }
  void PutLetter(char letter, unsigned mark) {
    PutByte(kFirstLetter + static_cast<unsigned>(letter - 'A'), mark);
  }
  // Other scripts come last, in the order of their code units.
  void PutOther(std::uint32_t unit) {
    PutByte(kOther, kNoMark);
    for (const int shift : {10, 5, 0}) letters_ += static_cast<char>(2 + ((unit >> shift) & 63));
  }
  void PutByte(unsigned byte, unsigned mark) {
    letters_ += static_cast<char>(byte);
    marks_ += static_cast<char>(mark);
  }

  std::string letters_;
  std::string marks_;
};

}  // namespace

std::string CollationKey(std::wstring_view text) {
  KeyMaker maker;
  for (const wchar_t c : text) maker.Put(c);
  return std::move(maker).Key();
}

}  // namespace data
