#pragma once

#include <cstddef>
#include <string_view>

// Which letters of the alphabet the letters with marks, and the ligatures, are.
namespace data {

// The code units from a first one on. A star is a sign, or a letter of no alphabet that matters
// here; a digit is one of the pairs below.
struct LetterBlock {
  static constexpr std::string_view kPairs[] = {"AE", "TH", "SS", "IJ", "OE"};

  // The capital letter, or the two of a ligature, that a code unit is; empty where it is none of
  // this block.
  constexpr std::string_view At(std::size_t unit) const {
    if (unit < first || unit - first >= letters.size()) return {};
    const char letter = letters[unit - first];
    if (letter == '*') return {};
    if (letter >= '1' && letter <= '5') return kPairs[letter - '1'];
    return letters.substr(unit - first, 1);
  }

  std::size_t first;
  std::string_view letters;
};

inline constexpr LetterBlock kMarkedLetters{
    0xC0,
    "AAAAAA1CEEEEIIIIDNOOOOO*OUUUUY23AAAAAA1CEEEEIIIIDNOOOOO*OUUUUY2Y"
    "AAAAAACCCCCCCCDDDDEEEEEEEEEEGGGGGGGGHHHHIIIIIIIIII44JJKKKLLLLLLL"
    "LLLNNNNNNNNNOOOOOO55RRRRRRSSSSSSSSTTTTTTUUUUUUUUUUUUWWYYYZZZZZZS"};

// Two more blocks, with the letters of Vietnamese and Romanian among them.
inline constexpr LetterBlock kRareLetters{
    0x180,
    "********************************OO*************UU***************"
    "*************AAIIOOUUUUUUUUUU*AAAA****GGKKOOOO**J***GG**NNAA****"
    "AAAAEEEEIIIIOOOORRRRUUUUSSTT**HH******AAEEOOOOOOOOYY************"};
inline constexpr LetterBlock kStackedLetters{
    0x1E00,
    "AABBBBBBCCDDDDDDDDDDEEEEEEEEEEFFGGHHHHHHHHHHIIIIKKKKKKLLLLLLLLMM"
    "MMMMNNNNNNNNOOOOOOOOPPPPRRRRRRRRSSSSSSSSSSTTTTTTTTUUUUUUUUUUVVVV"
    "WWWWWWWWWWXXXXYYZZZZZZHTWY******AAAAAAAAAAAAAAAAAAAAAAAAEEEEEEEE"
    "EEEEEEEEIIIIOOOOOOOOOOOOOOOOOOOOOOOOUUUUUUUUUUUUUUYYYYYYYY******"};

static_assert(kMarkedLetters.first + kMarkedLetters.letters.size() == kRareLetters.first);

// Marks that stand as characters of their own after their letter.
inline constexpr std::size_t kFirstCombiningMark = 0x300;
inline constexpr std::size_t kLastCombiningMark = 0x36F;
constexpr bool IsCombiningMark(std::size_t unit) {
  return unit >= kFirstCombiningMark && unit <= kLastCombiningMark;
}

}  // namespace data
