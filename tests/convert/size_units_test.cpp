// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "convert/size_units.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "base/numbers/numeric_text.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

TEST(LargestSizeTest, IsTheSameNumberOfBytesInEachUnit) {
  EXPECT_EQ(LargestSize(SizeUnit::B), 1e20);
  EXPECT_EQ(LargestSize(SizeUnit::KB), 97656250000000000.0);
  EXPECT_EQ(LargestSize(SizeUnit::MB), 95367431640625.0);
  EXPECT_EQ(LargestSize(SizeUnit::GB), 93132257462.0);
}

struct SizesCase {
  std::string name;
  SizeUnit unit;
  std::string text;
  std::array<std::string, SizeUnits.size()> expected;  // the text itself in its own unit
};

class SizesFromOneUnit : public ::testing::TestWithParam<SizesCase> {};

TEST_P(SizesFromOneUnit, AreWorkedOutUnitByUnit) {
  const auto& [name, unit, text, expected] = GetParam();
  const auto sizes = SizesFrom(unit, NumberOf(text));
  for (const auto other : SizeUnits) {
    const auto i = IndexOf(other);
    EXPECT_EQ(other == unit ? text : TextOf(sizes.at(i)), expected.at(i));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Ordinary, SizesFromOneUnit,
    ::testing::Values(
        SizesCase{"OneMegabyte", SizeUnit::MB, "1", {"1048576", "1024", "1", "0.0009765625"}},
        SizesCase{
            "AMegabyteInBytes", SizeUnit::B, "1048576", {"1048576", "1024", "1", "0.0009765625"}},
        SizesCase{
            "AMegabyteInKilobytes", SizeUnit::KB, "1024", {"1048576", "1024", "1", "0.0009765625"}},
        SizesCase{"OneGigabyte", SizeUnit::GB, "1", {"1073741824", "1048576", "1024", "1"}},
        SizesCase{"OneByte",
                  SizeUnit::B,
                  "1",
                  {"1", "0.0009765625", "0.00000095367431640625", "0.000000000931322574615479"}},
        SizesCase{"TwelveKilobytes",
                  SizeUnit::KB,
                  "12",
                  {"12288", "12", "0.01171875", "0.000011444091796875"}},
        SizesCase{
            "NegativeMegabytes", SizeUnit::MB, "-5", {"-5242880", "-5120", "-5", "-0.0048828125"}}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Fractions, SizesFromOneUnit,
    ::testing::Values(
        SizesCase{"OfAKilobyte",
                  SizeUnit::KB,
                  "0.7",
                  {"716.8", "0.7", "0.00068359375", "0.000000667572021484375"}},
        SizesCase{
            "OfAMegabyte", SizeUnit::MB, "0.1", {"104857.6", "102.4", "0.1", "0.00009765625"}},
        SizesCase{"OfAGigabyte", SizeUnit::GB, "0.3", {"322122547.2", "314572.8", "307.2", "0.3"}},
        SizesCase{"WithoutLeadingZero", SizeUnit::GB, ".5", {"536870912", "524288", "512", ".5"}},
        SizesCase{"TooSmallForPlainDigits",
                  SizeUnit::KB,
                  "1e-13",
                  {"0.0000000001024", "1e-13", "9.765625E-17", "9.5367431640625E-20"}}),
    NameOf);

// In each row, computing a unit from the rounded text of the one before would give another last
// digit.
INSTANTIATE_TEST_SUITE_P(NoStepRounds, SizesFromOneUnit,
                         ::testing::Values(SizesCase{"FromBytes",
                                                     SizeUnit::B,
                                                     "254121.671411475",
                                                     {"254121.671411475", "248.165694737769",
                                                      "0.242349311267352", "0.000236669249284524"}},
                                           SizesCase{"FromKilobytes",
                                                     SizeUnit::KB,
                                                     "480842.856400566",
                                                     {"492383084.95418", "480842.856400566",
                                                      "469.573101953678", "0.458567482376638"}},
                                           SizesCase{"FromMegabytes",
                                                     SizeUnit::MB,
                                                     "6844033.2916124",
                                                     {"7176489052785.76", "7008290090.6111",
                                                      "6844033.2916124", "6683.62626134023"}},
                                           SizesCase{"FromGigabytes",
                                                     SizeUnit::GB,
                                                     "0.285714285714286",
                                                     {"306783378.285715", "299593.142857143",
                                                      "292.571428571429", "0.285714285714286"}}),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(Largest, SizesFromOneUnit,
                         ::testing::Values(SizesCase{"Bytes",
                                                     SizeUnit::B,
                                                     "1e20",
                                                     {"1e20", "97656250000000000", "95367431640625",
                                                      "93132257461.5479"}},
                                           SizesCase{"Kilobytes",
                                                     SizeUnit::KB,
                                                     "97656250000000000",
                                                     {"100000000000000000000", "97656250000000000",
                                                      "95367431640625", "93132257461.5479"}},
                                           SizesCase{"Megabytes",
                                                     SizeUnit::MB,
                                                     "95367431640625",
                                                     {"100000000000000000000", "97656250000000000",
                                                      "95367431640625", "93132257461.5479"}},
                                           SizesCase{"Gigabytes",
                                                     SizeUnit::GB,
                                                     "93132257462",
                                                     {"100000000000485000000", "97656250000474100",
                                                      "95367431641088", "93132257462"}}),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(
    OfNothing, SizesFromOneUnit,
    ::testing::Values(SizesCase{"NoBytes", SizeUnit::B, "", {"", "0", "0", "0"}},
                      SizesCase{"NoKilobytes", SizeUnit::KB, "", {"0", "", "0", "0"}},
                      SizesCase{"NoMegabytes", SizeUnit::MB, "", {"0", "0", "", "0"}},
                      SizesCase{"NoGigabytes", SizeUnit::GB, "", {"0", "0", "0", ""}},
                      SizesCase{"ZeroBytes", SizeUnit::B, "0", {"0", "0", "0", "0"}},
                      SizesCase{"ZeroKilobytes", SizeUnit::KB, "0.0", {"0", "0.0", "0", "0"}},
                      SizesCase{"AMinusSign", SizeUnit::MB, "-", {"0", "0", "-", "0"}},
                      SizesCase{"APeriod", SizeUnit::GB, ".", {"0", "0", "0", "."}}),
    NameOf);

TEST(SizesFromTest, WorkedOutAgainFromAnotherUnitIsTheSame) {
  std::mt19937 random(20261122);
  std::uniform_real_distribution<double> exponent(-6, 15);
  for (int i = 0; i < 2000; ++i) {
    const double size = std::pow(10, exponent(random));
    for (const auto unit : SizeUnits) {
      const auto sizes = SizesFrom(unit, size);
      for (const auto other : SizeUnits) {
        ASSERT_EQ(SizesFrom(other, sizes.at(IndexOf(other))), sizes);
      }
      for (std::size_t k = 1; k < sizes.size(); ++k) {
        ASSERT_EQ(sizes.at(k) * 1024, sizes.at(k - 1));
      }
    }
  }
}

struct TidiedCase {
  std::string name;
  std::string text;
  std::string bytes;   ///< how bytes are shown
  std::string others;  ///< how kilobytes, megabytes and gigabytes are shown
};

class TidiesSizes : public ::testing::TestWithParam<TidiedCase> {};

TEST_P(TidiesSizes, OfEachUnit) {
  const auto& [name, text, bytes, others] = GetParam();
  EXPECT_EQ(TidiedSize(SizeUnit::B, text), bytes);
  EXPECT_EQ(TidiedSize(SizeUnit::KB, text), others);
  EXPECT_EQ(TidiedSize(SizeUnit::MB, text), others);
  EXPECT_EQ(TidiedSize(SizeUnit::GB, text), others);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TidiesSizes,
    ::testing::Values(
        TidiedCase{"Empty", "", "", ""}, TidiedCase{"Zero", "0", "0", ""},
        TidiedCase{"ZeroWithDecimals", "0.00", "0", ""},
        TidiedCase{"Whole", "1024", "1024", "1024"},
        TidiedCase{"WholeWithDecimals", "12.0", "12", "12"},
        TidiedCase{"WholeWithExponent", "1e5", "100000", "100000"},
        TidiedCase{"Fraction", "0.0009765625", "0.0009765625", "0.0009765625"},
        TidiedCase{"TinyFraction", "9.5367431640625E-20", "9.5367431640625E-20",
                   "9.5367431640625E-20"},
        TidiedCase{"Negative", "-5120", "-5120", "-5120"},
        TidiedCase{"NegativeFraction", "-0.25", "-0.25", "-0.25"},
        TidiedCase{"NegativeBelowTheThreshold", "-99999999999.25", "-99999999999.25",
                   "-99999999999.25"},
        TidiedCase{"JustNotAboveTheThreshold", "9999999998.25", "9999999998.25", "9999999998.25"},
        TidiedCase{"AtTheThreshold", "9999999999", "9999999999", "9999999999"},
        TidiedCase{"JustAboveTheThreshold", "9999999999.04", "9999999999", "9999999999"},
        TidiedCase{"LargeFractionRoundsHalvesUp", "10000000000.25", "10000000000.3",
                   "10000000000.3"},
        TidiedCase{"LargeFractionThatVanishes", "10000000000.04", "10000000000", "10000000000"},
        TidiedCase{"LargeWithExponent", "1.5E+20", "150000000000000000000",
                   "150000000000000000000"},
        TidiedCase{"LargestGigabytes", "93132257461.5479", "93132257461.5", "93132257461.5"}),
    NameOf);

}  // namespace
}  // namespace brindle
