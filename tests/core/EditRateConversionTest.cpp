#include "core/EditRateConversion.h"
#include "core/KelMediaLibException.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <utility>

using KelMediaLib::EditRate;
using KelMediaLib::KelMediaLibException;
using KelMediaLib::rescaleEditUnits;
using KelMediaLib::secondsToEditUnits;

namespace {

const long long maxCount = std::numeric_limits<long long>::max();
const long long minCount = std::numeric_limits<long long>::min();
const unsigned long maxRate = std::numeric_limits<unsigned long>::max();
const EditRate ntsc(30000, 1001);
const EditRate film(24000, 1001);

void expectRefused(const std::function<long long()>& convert, const std::string& because) {
  try {
    const long long result = convert();
    ADD_FAILURE() << "converted to " << result;
  } catch (const KelMediaLibException& e) {
    EXPECT_NE(std::string::npos, std::string(e.what()).find(because)) << e.what();
  }
}

TEST(EditRateConversionTest, RescalesToTheNearestUnitWithHalvesAwayFromZero) {
  struct Case {
    long long count;
    EditRate from;
    EditRate to;
    long long expected;
  };
  const Case cases[] = {
      {10, EditRate(25), EditRate(30), 12},                    // exactly 12
      {2000, EditRate(8000), EditRate(30), 8},                 // 7.5
      {-2000, EditRate(8000), EditRate(30), -8},               // -7.5
      {11025, EditRate(44100), film, 6},                       // 5.994
      {20020, EditRate(48000), film, 10},                      // exactly 10
      {15, ntsc, EditRate(30), 15},                            // 15.015
      {15, ntsc, film, 12},                                    // exactly 12
      {1, EditRate(3), EditRate(1), 0},                        // 0.333
      {2, EditRate(3), EditRate(1), 1},                        // 0.667
      {-1, EditRate(3), EditRate(1), 0},                       // -0.333
      {maxCount, EditRate(2), EditRate(1), maxCount / 2 + 1},  // ends in .5
      {minCount, EditRate(2), EditRate(1), minCount / 2},
      {maxCount, ntsc, ntsc, maxCount},
      {minCount, EditRate(30), EditRate(30), minCount},
      // Rates whose products overflow 64 bits still convert exactly.
      {5, EditRate(maxRate, maxRate - 1), EditRate(maxRate, maxRate - 1), 5},
      {5, EditRate(maxRate), EditRate(maxRate - 1), 5},  // 4.9999...
      {maxCount, EditRate(maxRate, 3), EditRate(maxRate, 3), maxCount},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.expected, rescaleEditUnits(c.count, c.from, c.to))
        << c.count << " at " << c.from << " to " << c.to;
  }
}

TEST(EditRateConversionTest, SecondsConvertAtTheirExactBinaryValue) {
  const std::pair<double, std::pair<EditRate, long long>> cases[] = {
      {0.25, {EditRate(30), 8}},  // 7.5
      {-0.25, {EditRate(30), -8}},
      // 0.15 is a little below 0.15: 1.4999... units, though 0.15 * 10
      // rounds to 1.5 in double.
      {0.15, {EditRate(10), 1}},
      {0.5, {EditRate(1), 1}},
      {2.5, {EditRate(1), 3}},
      {1.001, {ntsc, 30}},  // 29.999999999999997
      {5.0, {film, 120}},   // 119.88
      {5e-324, {EditRate(30), 0}},
      {-0.0, {EditRate(30), 0}},
      {std::ldexp(1.0, 62), {EditRate(1), 4611686018427387904LL}},
      {-std::ldexp(1.0, 63), {EditRate(1), minCount}},
      {3.0, {EditRate(1, 2), 2}},  // 1.5
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.second.second, secondsToEditUnits(c.first, c.second.first))
        << c.first << " s at " << c.second.first;
  }
}

TEST(EditRateConversionTest, RefusesZeroRatesOddTimesAndResultsBeyond64Bits) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  expectRefused([] { return rescaleEditUnits(maxCount, EditRate(1), EditRate(2)); }, "64-bit");
  expectRefused([] { return rescaleEditUnits(minCount, EditRate(1), EditRate(2)); }, "64-bit");
  expectRefused([] { return rescaleEditUnits(3, EditRate(1, maxRate), EditRate(maxRate)); },
                "64-bit");
  expectRefused([] { return rescaleEditUnits(1, EditRate(0), EditRate(30)); }, "0/1");
  expectRefused([] { return rescaleEditUnits(1, EditRate(30), EditRate(0)); }, "0/1");
  expectRefused([] { return secondsToEditUnits(std::ldexp(1.0, 63), EditRate(1)); }, "64-bit");
  expectRefused([] { return secondsToEditUnits(1e300, EditRate(30)); }, "64-bit");
  expectRefused([] { return secondsToEditUnits(1.0, EditRate(maxRate)); }, "64-bit");
  expectRefused([] { return secondsToEditUnits(1.0, EditRate(0)); }, "0/1");
  for (const double odd : {nan, infinity, -infinity}) {
    expectRefused([odd] { return secondsToEditUnits(odd, EditRate(30)); }, "finite");
  }
}

}  // namespace
