#include "controls/WindowMemory.h"

#include <array>
#include <cstdint>

namespace controls {
namespace {

constexpr unsigned kUnits = 96;
// Farther away, or larger, is no window.
constexpr int kMost = 100'000;
constexpr std::size_t kNumbers = 7;

// The number that the text begins with, which is then taken off with the blank after it.
std::optional<int> TakeNumber(std::wstring_view& text) {
  const bool negative = text.starts_with(L'-');
  if (negative) text.remove_prefix(1);
  if (text.empty() || text.front() < L'0' || text.front() > L'9') return std::nullopt;
  std::int64_t number = 0;
  while (!text.empty() && text.front() >= L'0' && text.front() <= L'9') {
    number = number * 10 + (text.front() - L'0');
    if (number > kMost) return std::nullopt;
    text.remove_prefix(1);
  }
  if (text.starts_with(L' ')) text.remove_prefix(1);
  return static_cast<int>(negative ? -number : number);
}

}  // namespace

WindowMemory Remember(const Area& window, bool maximised, const Monitor& monitor) {
  const auto units = [&monitor](int pixels) { return Scaled(pixels, monitor.dpi, kUnits); };
  const int left = units(window.left - monitor.work.left);
  const int top = units(window.top - monitor.work.top);
  return {monitor.work.left,
          monitor.work.top,
          {left, top, left + units(window.Width()), top + units(window.Height())},
          maximised};
}

Area PlaceOn(const Monitor& monitor, const WindowMemory& memory) {
  const int left = monitor.work.left + Scaled(memory.place.left, kUnits, monitor.dpi);
  const int top = monitor.work.top + Scaled(memory.place.top, kUnits, monitor.dpi);
  const Area place = {left, top, left + Scaled(memory.place.Width(), kUnits, monitor.dpi),
                      top + Scaled(memory.place.Height(), kUnits, monitor.dpi)};
  return FittedInto(place, monitor.work);
}

std::wstring Print(const WindowMemory& memory) {
  std::wstring text;
  for (const int number : {memory.monitorLeft, memory.monitorTop, memory.place.left,
                           memory.place.top, memory.place.right, memory.place.bottom}) {
    text += std::to_wstring(number) + L' ';
  }
  return text + (memory.maximised ? L'1' : L'0');
}

std::optional<WindowMemory> ReadWindowMemory(std::wstring_view text) {
  std::array<int, kNumbers> numbers{};
  for (int& number : numbers) {
    const std::optional<int> taken = TakeNumber(text);
    if (!taken) return std::nullopt;
    number = *taken;
  }
  const WindowMemory memory = {
      numbers[0], numbers[1], {numbers[2], numbers[3], numbers[4], numbers[5]}, numbers[6] != 0};
  const bool valid = text.empty() && memory.place.Width() > 0 && memory.place.Height() > 0;
  return valid ? std::optional(memory) : std::nullopt;
}

}  // namespace controls
