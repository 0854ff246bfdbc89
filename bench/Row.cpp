#include "bench/Row.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace bench {
namespace {

double MedianOf(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

std::string Formatted(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

}  // namespace

double SecondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Comparison::Add(double seconds, double floorSeconds) {
  seconds_.push_back(seconds);
  floors_.push_back(floorSeconds);
  ratios_.push_back(seconds / floorSeconds);
}

double Comparison::Median() const {
  return MedianOf(seconds_);
}

double Comparison::FloorMedian() const {
  return MedianOf(floors_);
}

double Comparison::Ratio() const {
  return MedianOf(ratios_);
}

void PrintRow(const std::string& name, const std::vector<std::string>& cells) {
  std::printf("| %-34s |", name.c_str());
  for (const std::string& cell : cells) std::printf(" %11s |", cell.c_str());
  std::printf("\n");
  std::fflush(stdout);
}

std::string Milliseconds(double seconds) {
  return Formatted("%.1f ms", seconds * 1000);
}

std::string Times(double ratio) {
  return Formatted("%.2f", ratio);
}

}  // namespace bench
