#include "data/Collation.h"

#include <array>
#include <cstdint>

#include "data/LatinLetters.h"

namespace data {
namespace {

// What stands before the digits, in its order; letters come after them.
constexpr std::wstring_view kSigns =
    L"'-\x2013 \xA0\t\n\r!\"#$%&()*,./:;?@[\\]^_`{|}~\xA1\xA6\xA8\xAF\xB4\xB8\xBF\x2019"
    L"\xA2\xA3\xA4\xA5\x20AC+<=>\xB1\xAB\xBB\xD7\xF7\xA7\xA9\xAC\xAE\xB0\xB6\xB7";

// The mark on each of the letters from U+00C0 to U+017F.
constexpr std::string_view kMarks =
    "`'^~:o ,`'^:`'^:d~`'^~: /`'^:'  `'^~:o ,`'^:`'^:d~`'^~: /`'^:' :"
    "--uu;;''^^..vvvv==--uu..;;vv^^uu..,,^^==~~--uu;;.i  ^^,,i'',,vv*"
    "*ll'',,vvngg--uu\"\"  '',,vv''^^,,vv,,vv==~~--uuoo\"\";;^^^^:''..vvi";
static_assert(kMarks.size() == kMarkedLetters.letters.size());

// The marks in their order; a letter without one stands before all of them.
constexpr std::string_view kMarkOrder = "i'`.*^:vu-~o;,\"=l/ngd";

// The signs above of marks that stand as characters of their own after their letter.
constexpr std::string_view kCombining = "`'^~--u.: o\"v";  // U+0300 to U+030C
constexpr std::size_t kCedilla = 0x327;

// The key's bytes. The first part has the letters, the second the marks; none of them is 0 or 1,
// so that what is shorter stands first and the first part decides.
constexpr unsigned kFirstSign = 2;
constexpr unsigned kFirstDigit = 110;
constexpr unsigned kFirstLetter = 120;
constexpr unsigned kOther = 0xFE;
constexpr char kEndOfPart = 1;
constexpr unsigned char kNoMark = 2;
constexpr unsigned kFirstRareMark = 30;      // capital and small letter share one
constexpr unsigned kFirstStackedMark = 130;  // the same
static_assert(kFirstSign + kSigns.size() <= kFirstDigit);
static_assert(kNoMark + 1 + kMarkOrder.size() < kFirstRareMark);
static_assert(kFirstRareMark + kRareLetters.letters.size() / 2 <= kFirstStackedMark);

constexpr unsigned char Letter(char letter) {
  return static_cast<unsigned char>(kFirstLetter + static_cast<unsigned>(letter - 'A'));
}

constexpr unsigned char MarkOf(char mark) {
  const std::size_t place = kMarkOrder.find(mark);
  if (place == std::string_view::npos) return kNoMark;
  return static_cast<unsigned char>(kNoMark + 1 + place);
}

// What a character adds to a key: one byte or, for a ligature, two; the mark is of the first.
struct Weight {
  unsigned char first = 0;  // 0: not in the table
  unsigned char second = 0;
  unsigned char mark = kNoMark;
};

using Weights = std::array<Weight, kRareLetters.first>;

constexpr Weights MakeWeights() {
  Weights weights{};
  for (std::size_t i = 0; i < kSigns.size(); ++i) {
    const auto sign = static_cast<std::uint32_t>(kSigns[i]);
    if (sign < weights.size()) weights[sign].first = static_cast<unsigned char>(kFirstSign + i);
  }
  for (unsigned i = 0; i < 10; ++i) {
    weights['0' + i].first = static_cast<unsigned char>(kFirstDigit + i);
  }
  for (char i = 0; i < 26; ++i) {
    const unsigned char letter = Letter(static_cast<char>('A' + i));
    weights[static_cast<std::size_t>('A' + i)].first = letter;
    weights[static_cast<std::size_t>('a' + i)].first = letter;
  }
  for (std::size_t i = 0; i < kMarkedLetters.letters.size(); ++i) {
    // The two signs among these letters are in the table already.
    const std::string_view letters = kMarkedLetters.At(kMarkedLetters.first + i);
    if (letters.empty()) continue;
    Weight& weight = weights[kMarkedLetters.first + i];
    weight.first = Letter(letters[0]);
    if (letters.size() > 1) {
      weight.second = Letter(letters[1]);
    } else {
      weight.mark = MarkOf(kMarks[i]);
    }
  }
  return weights;
}

constexpr Weights kWeights = MakeWeights();

class KeyMaker {
 public:
  explicit KeyMaker(std::string& key) : key_(key) {}

  void Put(std::size_t unit) {
    if (unit >= kWeights.size() || kWeights[unit].first == 0) {
      PutUncommon(unit);
      return;
    }
    const Weight& weight = kWeights[unit];
    PutByte(weight.first, weight.mark);
    if (weight.second != 0) PutByte(weight.second, kNoMark);
  }

  void Finish() {
    key_ += kEndOfPart;
    key_ += marks_;
  }

 private:
  void PutUncommon(std::size_t unit) {
    if (IsCombiningMark(unit) && places_ > 0) {
      PutCombining(unit);
    } else if (!PutFromBlock(unit, kRareLetters, kFirstRareMark) &&
               !PutFromBlock(unit, kStackedLetters, kFirstStackedMark)) {
      const std::size_t sign = kSigns.find(static_cast<wchar_t>(unit));
      if (sign == std::wstring_view::npos) {
        PutOther(unit);
      } else {
        PutByte(kFirstSign + static_cast<unsigned>(sign), kNoMark);
      }
    }
  }
  bool PutFromBlock(std::size_t unit, const LetterBlock& block, unsigned mark) {
    const std::string_view letter = block.At(unit);
    if (letter.empty()) return false;
    PutByte(Letter(letter[0]), mark + static_cast<unsigned>((unit - block.first) / 2));
    return true;
  }
  // The mark of the letter before it.
  void PutCombining(std::size_t unit) {
    const std::size_t place = unit - kFirstCombiningMark;
    const char sign = place < kCombining.size() ? kCombining[place] : unit == kCedilla ? ',' : '*';
    marks_.resize(places_, static_cast<char>(kNoMark));
    marks_.back() = static_cast<char>(MarkOf(sign));
  }
  // Other scripts come last, in the order of their code units.
  void PutOther(std::size_t unit) {
    PutByte(kOther, kNoMark);
    for (const int shift : {10, 5, 0}) key_ += static_cast<char>(2 + ((unit >> shift) & 63));
  }
  // Marks are noted up to the last letter that has one: most texts have none.
  void PutByte(unsigned byte, unsigned mark) {
    key_ += static_cast<char>(byte);
    ++places_;
    if (mark == kNoMark) return;
    marks_.resize(places_, static_cast<char>(kNoMark));
    marks_.back() = static_cast<char>(mark);
  }

  std::string& key_;
  std::string marks_;
  std::size_t places_ = 0;  // how many letters, signs and digits the key has
};

}  // namespace

void AppendCollationKey(std::string& key, std::wstring_view text) {
  KeyMaker maker(key);
  for (const wchar_t unit : text) maker.Put(static_cast<std::uint32_t>(unit) & 0xFFFFU);
  maker.Finish();
}

std::string CollationKey(std::wstring_view text) {
  std::string key;
  key.reserve(2 * text.size() + 1);
  AppendCollationKey(key, text);
  return key;
}

}  // namespace data
