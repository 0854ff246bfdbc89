#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

double SecondsOf(const std::function<void()>& work);

// A measured work beside its floor: pairs of seconds, taken in turn so that a drift of the machine
// meets both.
class Comparison {
 public:
  void Add(double seconds, double floorSeconds);

  double Median() const;
  double FloorMedian() const;
  // The median of the ratios, pair by pair.
  double Ratio() const;

 private:
  std::vector<double> seconds_;
  std::vector<double> floors_;
  std::vector<double> ratios_;
};

// Prints a row of a table: the name left-aligned, the cells after it right-aligned.
void PrintRow(const std::string& name, const std::vector<std::string>& cells);

// Numbers as cells: milliseconds with one decimal, a ratio with two, a count.
std::string Milliseconds(double seconds);
std::string Times(double ratio);

}  // namespace bench
