// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/numbers/numeric_text.h"

#include <bit>
#include <cmath>
#include <limits>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace std::string_literals;

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double LargestDouble = std::numeric_limits<double>::max();
constexpr double SmallestNormal = std::numeric_limits<double>::min();
constexpr double SmallestSubnormal = std::numeric_limits<double>::denorm_min();
constexpr float InfinityF = std::numeric_limits<float>::infinity();

struct NumericCase {
  const char* name = "";
  std::string text;
  std::optional<double> value;  // nothing: the text is not numeric
};

const std::vector<NumericCase> NumericCases{
    {"WholeDigits", "12", 12},
    {"PeriodBehindTheDigits", "12.", 12},
    {"PeriodBeforeTheDigits", ".5", 0.5},
    {"PeriodAmongTheDigits", "0.5", 0.5},
    {"Zero", "0", 0},
    {"ZeroWithAPeriod", "0.", 0},
    {"NegativeZero", "-0", -0.0},
    {"Negative", "-7", -7},
    {"NegativeFraction", "-.5", -0.5},
    {"PlusSign", "+7", 7},
    {"PlusSignBeforeAPeriod", "+.5", 0.5},
    {"LeadingZeros", "007", 7},
    {"LeadingSpaces", "  3", 3},
    {"LeadingTab", "\t3", 3},
    {"TrailingSpaces", "3  ", 3},
    {"TrailingTab", "3\t", 3},
    {"BlanksAroundAnExponent", " -1e3 ", -1000},
    {"MixedBlanksOnBothSides", " \t1e3\t ", 1000},
    {"LowerCaseExponent", "1e3", 1000},
    {"UpperCaseExponent", "1E3", 1000},
    {"ExponentWithPlus", "1.5E+3", 1500},
    {"ExponentWithMinus", "15e-1", 1.5},
    {"ExponentBehindATrailingPeriod", "5.e3", 5000},
    {"ExponentBehindALeadingPeriod", ".5e1", 5},
    {"ExponentWithLeadingZeros", "1e0005", 100000},
    {"ExponentZero", "7e0", 7},
    {"ExponentMinusZero", "7e-0", 7},
    {"MoreDigitsThanADoubleHolds", "123456789012345678901234567890",
     123456789012345678901234567890.0},
    {"FourHundredFractionDigits", "0." + std::string(398, '3'), 1.0 / 3},
    {"OneWithThreeHundredAndEightZeros", "1" + std::string(308, '0'), 1e308},
    {"TwoWithThreeHundredAndEightZeros", "2" + std::string(308, '0'), std::nullopt},
    {"FourHundredWholeDigits", std::string(400, '1'), std::nullopt},
    {"FourHundredZeros", std::string(400, '0'), 0},
    {"TinyMantissaLiftedByItsExponent", "0." + std::string(390, '0') + "1e391", 1},
    {"HugeMantissaLoweredByItsExponent", "1" + std::string(390, '0') + "e-390", 1},
    {"TinyMantissaWithoutExponent", "0." + std::string(390, '0') + "1", 0},
    {"JustBelowLargest", "1.7976931348623155e308", 1.7976931348623155e308},
    {"Largest", "1.7976931348623157e308", LargestDouble},
    {"NegativeLargest", "-1.7976931348623157e308", -LargestDouble},
    {"LastThatRoundsToTheLargest", "1.7976931348623158079e308", LargestDouble},
    {"FirstBeyondTheLargest", "1.7976931348623158080e308", std::nullopt},
    {"FirstBeyondTheNegativeLargest", "-1.7976931348623158080e308", std::nullopt},
    {"ExponentFarAboveTheRange", "1e999", std::nullopt},
    {"NegativeFarAboveTheRange", "-1e999", std::nullopt},
    {"PlusFarAboveTheRange", "+1e+999", std::nullopt},
    {"ZeroWithAHugeExponent", "0e999", 0},
    {"ZeroWithAnEndlessExponent", "-0.000e99999999999999999999", -0.0},
    {"EndlessExponent", "1e99999999999999999999", std::nullopt},
    {"EndlessExponentWithPlus", "1e+99999999999999999999", std::nullopt},
    {"EndlessNegativeExponent", "1e-99999999999999999999", 0},
    {"LargestMachineWordAsExponent", "1e9223372036854775807", std::nullopt},
    {"LargestMachineWordAsExponentOfTen", "10e9223372036854775807", std::nullopt},
    {"LowestMachineWordAsExponent", "1e-9223372036854775808", 0},
    {"LowestMachineWordAsExponentOfAThousandth", "0.001e-9223372036854775808", 0},
    {"LargestThirtyTwoBitExponentOfTen", "10e2147483647", std::nullopt},
    {"LowestThirtyTwoBitExponentOfAThousandth", "0.001e-2147483648", 0},
    {"SmallestNormal", "2.2250738585072014e-308", SmallestNormal},
    {"LargestSubnormal", "2.2250738585072009e-308", 2.2250738585072009e-308},
    {"SmallestSubnormal", "4.9406564584124654e-324", SmallestSubnormal},
    {"JustAboveHalfTheSmallestSubnormal", "2.4703282292062328e-324", SmallestSubnormal},
    {"JustBelowHalfTheSmallestSubnormal", "2.4703282292062327e-324", 0},
    {"FarBelowTheRange", "1e-999", 0},
    {"NegativeFarBelowTheRange", "-1e-999", 0},

    {"Empty", "", std::nullopt},
    {"OnlyASpace", " ", std::nullopt},
    {"OnlyATab", "\t", std::nullopt},
    {"OnlyAMinus", "-", std::nullopt},
    {"OnlyAPlus", "+", std::nullopt},
    {"OnlyAPeriod", ".", std::nullopt},
    {"OnlyMinusPeriod", "-.", std::nullopt},
    {"OnlyPlusPeriod", "+.", std::nullopt},
    {"CommaAsDecimalSeparator", "1,5", std::nullopt},
    {"CommaAsGroupSeparator", "1,500", std::nullopt},
    {"UnderscoreAsGroupSeparator", "1_500", std::nullopt},
    {"ApostropheAsGroupSeparator", "1'500", std::nullopt},
    {"HexadecimalWithAmpersand", "&H10", std::nullopt},
    {"HexadecimalWithX", "0x10", std::nullopt},
    {"HexadecimalFloat", "0x1p3", std::nullopt},
    {"ExponentWithoutDigits", "12e", std::nullopt},
    {"ExponentWithOnlyAPlus", "12e+", std::nullopt},
    {"ExponentWithOnlyAMinus", "12E-", std::nullopt},
    {"ExponentWithTwoSigns", "12e--3", std::nullopt},
    {"OnlyAnExponent", "e5", std::nullopt},
    {"PeriodAndExponent", ".e5", std::nullopt},
    {"SignAndExponent", "-e5", std::nullopt},
    {"FractionInTheExponent", "1e5.0", std::nullopt},
    {"TwoExponents", "1e5e5", std::nullopt},
    {"ExponentLetterD", "1d5", std::nullopt},
    {"Inf", "inf", std::nullopt},
    {"NegativeInf", "-inf", std::nullopt},
    {"UpperCaseInf", "INF", std::nullopt},
    {"Infinity", "infinity", std::nullopt},
    {"Nan", "nan", std::nullopt},
    {"MixedCaseNan", "NaN", std::nullopt},
    {"NanWithPayload", "nan(1)", std::nullopt},
    {"TwoMinusSigns", "--5", std::nullopt},
    {"PlusMinus", "+-5", std::nullopt},
    {"MinusPlus", "-+5", std::nullopt},
    {"BlankBehindTheSign", "- 5", std::nullopt},
    {"SignBehindTheDigits", "5-", std::nullopt},
    {"TwoPeriods", "1.2.3", std::nullopt},
    {"TwoPeriodsTogether", "1..2", std::nullopt},
    {"TwoLeadingPeriods", "..5", std::nullopt},
    {"BlankAmongDigits", "1 2", std::nullopt},
    {"BlankBeforeTheExponent", "12 e5", std::nullopt},
    {"BlankInTheExponent", "12e 5", std::nullopt},
    {"LettersBehind", "12xyz", std::nullopt},
    {"UnitBehind", "-3.5kg", std::nullopt},
    {"FloatSuffix", "5f", std::nullopt},
    {"PercentBehind", "5%", std::nullopt},
    {"CurrencyBefore", "$5", std::nullopt},
    {"Letters", "abc", std::nullopt},
    {"LineFeedBehind", "1\n", std::nullopt},
    {"CarriageReturnBehind", "1\r", std::nullopt},
    {"FormFeedBefore", "\f1", std::nullopt},
    {"VerticalTabBefore", "\v1", std::nullopt},
    {"NulBehind", "1\0"s, std::nullopt},
    {"NulBefore", "\0001"s, std::nullopt},
    {"NulAmongDigits", "1\0002"s, std::nullopt},
    {"NoBreakSpaceBefore", "\xC2\xA0\x31", std::nullopt},
    {"ArabicIndicDigits", "\xD9\xA1\xD9\xA2", std::nullopt},
    {"FullWidthDigits", "\xEF\xBC\x91\xEF\xBC\x92", std::nullopt},
    {"TypographicMinus", "\xE2\x88\x92\x35", std::nullopt},
    {"SuperscriptTwo", "5\xC2\xB2", std::nullopt},
    {"LoneHighByte", "5\xFF", std::nullopt},
};

class NumericTextTest : public testing::TestWithParam<NumericCase> {};

TEST_P(NumericTextTest, IsNumericOrNot) {
  EXPECT_EQ(IsNumeric(GetParam().text), GetParam().value.has_value());
}

TEST_P(NumericTextTest, NumberIsTheValueOrZero) {
  EXPECT_EQ(NumberOf(GetParam().text), GetParam().value.value_or(0));
}

INSTANTIATE_TEST_SUITE_P(Texts, NumericTextTest, testing::ValuesIn(NumericCases), NameOf);

struct LeadingCase {
  const char* name = "";
  std::string text;
  double value = 0;
};

const std::vector<LeadingCase> LeadingCases{
    {"LettersBehind", "12xyz", 12},
    {"UnitBehind", "-3.5kg", -3.5},
    {"LetterBehindAnExponent", "1e5x", 100000},
    {"ExponentWithoutDigits", "12e", 12},
    {"ExponentWithOnlyASign", "12e+", 12},
    {"ExponentSignThenLetter", "12e-x", 12},
    {"BeyondTheRange", "1e999", 0},
    {"Empty", "", 0},
    {"Letters", "abc", 0},
    {"NumericText", "12.5", 12.5},
    {"NumericTextWithBlanks", " \t-12.5\t ", -12.5},
    {"BlanksThenWord", "  \t12 apples", 12},
    {"OnlyBlanks", " \t ", 0},
    {"TrailingPeriod", "12.", 12},
    {"TrailingPeriodThenLetter", "12.x", 12},
    {"TwoPeriods", "1.2.3", 1.2},
    {"TwoPeriodsTogether", "1..2", 1},
    {"LeadingPeriodTwice", ".5.5", 0.5},
    {"TwoLeadingPeriods", "..5", 0},
    {"Comma", "1,5", 1},
    {"HexadecimalWithAmpersand", "&H10", 0},
    {"HexadecimalWithX", "0x10", 0},
    {"OnlyAPeriod", ".", 0},
    {"OnlyAMinus", "-", 0},
    {"OnlyMinusPeriod", "-.", 0},
    {"PeriodAndExponent", ".e5", 0},
    {"NegativeLeadingPeriodWithExponent", "-.5e1x", -5},
    {"TrailingPeriodWithExponent", "5.e2x", 500},
    {"PlusSign", "+5x", 5},
    {"TwoMinusSigns", "--5", 0},
    {"BlankBehindTheSign", "- 5", 0},
    {"SecondNumberBehindABlank", "12 34", 12},
    {"SecondExponent", "1e5e5", 1e5},
    {"FractionBehindTheExponent", "1e2.5", 100},
    {"LettersThenNumber", "x12", 0},
    {"Inf", "inf", 0},
    {"NegativeInfinity", "-infinity", 0},
    {"Nan", "nan", 0},
    {"LineFeedBefore", "\n5", 0},
    {"LineFeedBehind", "5\n6", 5},
    {"NulBehind", "5\0006"s, 5},
    {"NulBefore", "\0005"s, 0},
    {"HighBytesBehind", "5\xC2\xB2", 5},
    {"ArabicIndicDigits", "\xD9\xA1", 0},
    {"NegativeBeyondTheRange", "-1e999", 0},
    {"BeyondTheRangeThenLetters", "1e999xyz", 0},
    {"BelowTheRangeThenLetters", "1e-999xyz", 0},
    {"FourHundredDigits", std::string(400, '9'), 0},
    {"LargestThenLetter", "1.7976931348623157e308x", LargestDouble},
    {"FirstBeyondTheLargestThenLetter", "1.7976931348623158080e308x", 0},
    {"SmallestSubnormalThenLetter", "4.9406564584124654e-324x", SmallestSubnormal},
    {"EndlessExponent", "1e99999999999999999999x", 0},
    {"EndlessNegativeExponent", "1e-99999999999999999999x", 0},
    {"LargestMachineWordAsExponentOfTen", "10e9223372036854775807x", 0},
};

class LeadingNumberTest : public testing::TestWithParam<LeadingCase> {};

TEST_P(LeadingNumberTest, IsTheValueOfTheLongestPrefix) {
  EXPECT_EQ(LeadingNumber(GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, LeadingNumberTest, testing::ValuesIn(LeadingCases), NameOf);

struct JustBegunCase {
  const char* name = "";
  std::string text;
  bool expected = false;
};

const std::vector<JustBegunCase> JustBegunCases{
    {"Minus", "-", true},
    {"Plus", "+", true},
    {"Period", ".", true},
    {"MinusPeriod", "-.", true},
    {"PlusPeriod", "+.", true},
    {"Empty", "", false},
    {"Digit", "0", false},
    {"MinusDigit", "-0", false},
    {"MinusPeriodDigit", "-.5", false},
    {"BlankBefore", " -", false},
    {"BlankBehind", "- ", false},
    {"TwoMinusSigns", "--", false},
    {"PlusMinus", "+-", false},
    {"TwoPeriods", "..", false},
    {"PeriodMinus", ".-", false},
    {"PeriodExponent", ".e", false},
    {"NulBehind", "-\0"s, false},
    {"Comma", ",", false},
};

class JustBegunTest : public testing::TestWithParam<JustBegunCase> {};

TEST_P(JustBegunTest, OnlyTheFiveBeginningsAre) {
  EXPECT_EQ(IsJustBegun(GetParam().text), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Texts, JustBegunTest, testing::ValuesIn(JustBegunCases), NameOf);

struct TextOfCase {
  const char* name = "";
  double value = 0;
  std::string expected;
};

const std::vector<TextOfCase> TextOfCases{
    {"Zero", 0, "0"},
    {"NegativeZero", -0.0, "0"},
    {"One", 1, "1"},
    {"NegativeOne", -1, "-1"},
    {"Half", 0.5, "0.5"},
    {"NegativeHalf", -0.5, "-0.5"},
    {"TrailingZerosOfAWholeNumberStay", 100, "100"},
    {"PowerOfTwo", 1024, "1024"},
    {"Tenth", 0.1, "0.1"},
    {"SumOfTenths", 0.1 + 0.2, "0.3"},
    {"SumOfTypedSizes", 33.1 + 67.2, "100.3"},
    {"Third", 1.0 / 3, "0.333333333333333"},
    {"TwoThirds", 2.0 / 3, "0.666666666666667"},
    {"ZerosBehindThePeriod", 0.00001, "0.00001"},
    {"FifteenNines", 999999999999999, "999999999999999"},
    {"SixteenDigits", 1234567890123456, "1234567890123460"},
    {"LastExactWholeNumber", 9007199254740992, "9007199254740990"},
    {"SixteenthDigitBelowHalf", 999999999999999.4, "999999999999999"},
    {"SixteenthDigitLiftsEveryNine", 999999999999999.6, "1000000000000000"},
    {"ExactHalfBehindAnEvenDigit", 100000000000000.5, "100000000000000"},
    {"ExactHalfBehindAnOddDigit", 100000000000001.5, "100000000000002"},
    {"SeemingHalfThatIsAbove", 1.000000000000005, "1.00000000000001"},
    {"SeemingHalfBehindAnEvenDigitThatIsAbove", 1.000000000000025, "1.00000000000003"},
    {"SeemingHalfThatIsBelow", 9.999999999999995e-16, "9.99999999999999E-16"},
    {"JustBelowTheSmallestPlain", 9.99999999999999e-16, "9.99999999999999E-16"},
    {"SmallestPlain", 1e-15, "0.000000000000001"},
    {"RoundsUpToTheSmallestPlain", 9.999999999999996e-16, "0.000000000000001"},
    {"NegativeSmallestPlain", -1e-15, "-0.000000000000001"},
    {"JustAboveTheSmallestPlain", 1.00000000000001e-15, "0.00000000000000100000000000001"},
    {"SmallWithAnExponent", 2e-16, "2E-16"},
    {"NegativeSmallWithAnExponent", -2e-16, "-2E-16"},
    {"TwentyZeros", 1e20, "100000000000000000000"},
    {"LargestPlain", 9.99999999999999e20, "999999999999999000000"},
    {"StaysBelowTheFirstWithAnExponent", 9.9999999999999949e20, "999999999999999000000"},
    {"RoundsUpToTheFirstWithAnExponent", 9.9999999999999956e20, "1E+21"},
    {"FirstWithAnExponent", 1e21, "1E+21"},
    {"JustAboveTheFirstWithAnExponent", 1.00000000000001e21, "1.00000000000001E+21"},
    {"NegativeFirstWithAnExponent", -1e21, "-1E+21"},
    {"LargeWithAnExponent", 1.5e300, "1.5E+300"},
    {"NegativeLargeWithAnExponent", -1.5e300, "-1.5E+300"},
    {"LastThatStaysInTheRange", 1.7976931348623149e308, "1.79769313486231E+308"},
    {"FirstThatWouldLeaveTheRange", 1.7976931348623151e308, "1.79769313486231E+308"},
    {"Largest", LargestDouble, "1.79769313486231E+308"},
    {"NegativeLargest", -LargestDouble, "-1.79769313486231E+308"},
    {"SmallestNormal", SmallestNormal, "2.2250738585072E-308"},
    {"LargestSubnormal", 2.2250738585072009e-308, "2.2250738585072E-308"},
    {"SmallestSubnormal", SmallestSubnormal, "4.94065645841247E-324"},
    {"NegativeSmallestSubnormal", -SmallestSubnormal, "-4.94065645841247E-324"},
    {"Infinity", Infinity, ""},
    {"NegativeInfinity", -Infinity, ""},
    {"NotANumber", NotANumber, ""},
};

class TextOfTest : public testing::TestWithParam<TextOfCase> {};

TEST_P(TextOfTest, HasFifteenDigits) { EXPECT_EQ(TextOf(GetParam().value), GetParam().expected); }

TEST_P(TextOfTest, ReadsBackToTheSameText) {
  const auto& expected = GetParam().expected;
  if (!expected.empty()) {
    EXPECT_TRUE(IsNumeric(expected));
    EXPECT_EQ(TextOf(NumberOf(expected)), expected);
  }
}

INSTANTIATE_TEST_SUITE_P(Numbers, TextOfTest, testing::ValuesIn(TextOfCases), NameOf);

struct SingleCase {
  const char* name = "";
  float value = 0;
  std::string expected;
};

const std::vector<SingleCase> SingleCases{
    {"ThreeDecimals", 1.778F, "1.778"},
    {"Zero", 0.0F, "0"},
    {"NegativeZero", -0.0F, "0"},
    {"Half", 0.5F, "0.5"},
    {"NegativeFraction", -1.5F, "-1.5"},
    {"Tenth", 0.1F, "0.1"},
    {"Twentieth", 0.05F, "0.05"},
    {"FrameRate", 23.976F, "23.976"},
    {"OtherFrameRate", 29.97F, "29.97"},
    {"Third", 1.0F / 3, "0.33333334"},
    {"TwoToTheTwentyFourth", 16777216.0F, "16777216"},
    {"Hundred", 100.0F, "100"},
    {"SmallestPlain", 1e-15F, "0.000000000000001"},
    {"BelowTheSmallestPlain", 9.9e-16F, "9.9E-16"},
    {"TwentyZeros", 1e20F, "100000000000000000000"},
    {"LargePlain", 9.9e20F, "990000000000000000000"},
    {"FirstWithAnExponent", 1e21F, "1E+21"},
    {"Largest", std::numeric_limits<float>::max(), "3.4028235E+38"},
    {"NegativeLargest", std::numeric_limits<float>::lowest(), "-3.4028235E+38"},
    {"SmallestNormal", std::numeric_limits<float>::min(), "1.1754944E-38"},
    {"SmallestSubnormal", std::numeric_limits<float>::denorm_min(), "1E-45"},
    {"Infinity", InfinityF, ""},
    {"NegativeInfinity", -InfinityF, ""},
    {"NotANumber", std::numeric_limits<float>::quiet_NaN(), ""},
};

class TextOfSingleTest : public testing::TestWithParam<SingleCase> {};

TEST_P(TextOfSingleTest, HasTheFewestDigits) {
  EXPECT_EQ(TextOfSingle(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Numbers, TextOfSingleTest, testing::ValuesIn(SingleCases), NameOf);

TEST(ExactTextOfTest, ReadsBackAsTheVerySameNumber) {
  EXPECT_EQ(ExactTextOf(100), "100");
  EXPECT_EQ(ExactTextOf(1.0 / 3), "0.3333333333333333");
  EXPECT_EQ(ExactTextOf(-0.0), "0");
  EXPECT_EQ(ExactTextOf(std::numeric_limits<double>::quiet_NaN()), "");
  std::mt19937_64 random(20261122);
  for (int i = 0; i < 20000; ++i) {
    const auto value = std::bit_cast<double>(random());
    if (std::isfinite(value)) {
      ASSERT_EQ(NumberOf(ExactTextOf(value)), value);
    }
  }
}

struct TypingCase {
  const char* name = "";
  std::string typed;
  double value = 0;
  std::string expected;
};

const std::vector<TypingCase> TypingCases{
    {"WholeNumber", "10", 10, "10"},
    {"TrailingPeriodStays", "10.", 10, "10."},
    {"ZeroBehindThePeriodStays", "10.0", 10, "10.0"},
    {"ZerosBehindThePeriodStay", "10.00", 10, "10.00"},
    {"DigitBehindTheZeros", "10.05", 10.05, "10.05"},
    {"ZeroBehindADecimalStays", "10.50", 10.5, "10.50"},
    {"ZerosBehindDecimalsStay", "10.0500", 10.05, "10.0500"},
    {"DecimalsWithoutTrailingZeros", "12.345", 12.345, "12.345"},
    {"Zero", "0", 0, "0"},
    {"ZeroPeriod", "0.", 0, "0."},
    {"ZeroPeriodZero", "0.0", 0, "0.0"},
    {"LeadingPeriodGetsItsZero", ".5", 0.5, "0.5"},
    {"LeadingPeriodAndZero", ".0", 0, "0.0"},
    {"PeriodAlone", ".", 0, "0."},
    {"LeadingZerosGo", "007.0", 7, "7.0"},
    {"ZerosOfAWholeNumberAreNotDoubled", "100", 100, "100"},
    {"PlusSignGoes", "+10.0", 10, "10.0"},
    {"MinusSignStays", "-10.0", -10, "-10.0"},
    {"LeadingBlankGoes", " 10.0", 10, "10.0"},
    {"ExponentIsWrittenOut", "1e3", 1000, "1000"},
    {"ExponentBehindZerosIsWrittenOut", "1.0e3", 1000, "1000"},
    {"SecondPeriodIsNoTail", "10..", 0, "0"},
    {"SecondFractionIsNoTail", "1.0.0", 0, "0"},
    {"LettersAreNoTail", "10.0x", 0, "0"},
    {"ValueOfAnotherTextDropsTheTail", "10.0", 11, "11"},
    {"ZerosBehindSixteenDigitsAreNoFraction", "10.000000000000000010", 10, "10"},
    {"ZerosDoNotReachIntoAnExponent", "0.00000000000000020", 2e-16, "2E-16"},
    {"ZerosDoNotLengthenAnExponent", "0.000000000000000150", 1.5e-16, "1.5E-16"},
    {"PeriodDoesNotFollowAnExponent", "1000000000000000000000.", 1e21, "1E+21"},
    {"PeriodBehindTheLargestPlain", "100000000000000000000.", 1e20, "100000000000000000000."},
    {"Empty", "", 0, "0"},
    {"Infinity", "1.0", Infinity, ""},
    {"NotANumber", "1.0", NotANumber, ""},
};

class TextWhileTypingTest : public testing::TestWithParam<TypingCase> {};

TEST_P(TextWhileTypingTest, KeepsWhatMoreDigitsCanFollow) {
  EXPECT_EQ(TextWhileTyping(GetParam().typed, GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Fields, TextWhileTypingTest, testing::ValuesIn(TypingCases), NameOf);

struct FormattedCase {
  const char* name = "";
  double value = 0;
  std::string pattern;
  std::string expected;
};

const std::vector<FormattedCase> FormattedCases{
    {"OneDecimalHalfGoesUp", 612.25, "#.0", "612.3"},
    {"OneDecimalWithoutWholeDigit", 0.5, "#.0", ".5"},
    {"OneDecimalOfZero", 0, "#.0", ".0"},
    {"OneDecimalOfNegativeZero", -0.0, "#.0", ".0"},
    {"OneDecimalJustBelowHalf", 0.0499999999999999, "#.0", ".0"},
    {"OneDecimalHalf", 0.05, "#.0", ".1"},
    {"OneDecimalNegativeHalf", -0.05, "#.0", "-.1"},
    {"OneDecimalNegativeBelowHalfLosesItsSign", -0.04, "#.0", ".0"},
    {"OneDecimalOfAWholeNumber", 7, "#.0", "7.0"},
    {"OneDecimalCarriesIntoTheWhole", 99.95, "#.0", "100.0"},
    {"OneDecimalCarriesIntoNoWhole", 0.95, "#.0", "1.0"},

    {"WholeBelowHalfIsEmpty", 0.4, "#", ""},
    {"WholeZeroIsEmpty", 0, "#", ""},
    {"WholeHalfIsOne", 0.5, "#", "1"},
    {"WholeTwoAndAHalfIsThree", 2.5, "#", "3"},
    {"WholeThreeAndAHalfIsFour", 3.5, "#", "4"},
    {"WholeFifteenDigitsBelowHalf", 0.499999999999999, "#", ""},
    {"WholeSixteenDigitsBelowHalf", 0.4999999999999999, "#", "1"},
    {"WholeNegativeBelowHalfIsEmpty", -0.4, "#", ""},
    {"WholeNegativeHalf", -0.5, "#", "-1"},
    {"WholeNegativeTwoAndAHalf", -2.5, "#", "-3"},
    {"WholeOne", 1, "#", "1"},
    {"WholeCarries", 99.5, "#", "100"},
    {"WholeHasManyDigits", 1234567890, "#", "1234567890"},
    {"WholeHasNoExponent", 1e21, "#", "1000000000000000000000"},
    {"WholeLargest", LargestDouble, "#", "179769313486231" + std::string(294, '0')},
    {"WholeNegativeHuge", -1e300, "#", "-1" + std::string(300, '0')},
    {"WholeSmallestSubnormal", SmallestSubnormal, "#", ""},
    {"WholeWithAPeriodDropsIt", 5, "#.", "5"},
    {"WholeWithAPeriodRounds", 5.5, "#.", "6"},

    {"ThreeOptionalDecimalsNotNeeded", 100.0001, "#0.###", "100"},
    {"ThreeOptionalDecimalsHalf", 100.0005, "#0.###", "100.001"},
    {"ThreeOptionalDecimalsJustBelowHalf", 100.000499999999, "#0.###", "100"},
    {"ThreeOptionalDecimalsOneNeeded", 1.5, "#0.###", "1.5"},
    {"ThreeOptionalDecimalsTwoNeeded", 1.25, "#0.###", "1.25"},
    {"ThreeOptionalDecimalsZeroAmongThem", 1.005, "#0.###", "1.005"},
    {"ThreeOptionalDecimalsOfZero", 0, "#0.###", "0"},
    {"ThreeOptionalDecimalsOfAFraction", 0.25, "#0.###", "0.25"},
    {"ThreeOptionalDecimalsTooSmall", 0.0004, "#0.###", "0"},
    {"ThreeOptionalDecimalsNegativeTooSmall", -0.0004, "#0.###", "0"},
    {"ThreeOptionalDecimalsNegativeHalf", -0.0005, "#0.###", "-0.001"},
    {"ThreeOptionalDecimalsTrailingZerosOfTheWhole", 90, "#0.###", "90"},
    {"ThreeOptionalDecimalsTiny", 1e-300, "#0.###", "0"},
    {"ThreeOptionalDecimalsCarryAway", 1.9996, "#0.###", "2"},

    {"TwoDigitsTwoDecimals", 30, "00.00", "30.00"},
    {"TwoDigitsFilledUp", 5, "00.00", "05.00"},
    {"TwoDigitsOfZero", 0, "00.00", "00.00"},
    {"TwoDigitsOfAFraction", 0.25, "00.00", "00.25"},
    {"TwoDigitsAreNoLimit", 123.456, "00.00", "123.46"},
    {"TwoDigitsRoundUpToTheNextWhole", 59.995, "00.00", "60.00"},
    {"TwoDigitsJustBelowRoundingUp", 59.99499, "00.00", "59.99"},
    {"TwoDigitsHalfAsTyped", 1.005, "00.00", "01.01"},
    {"TwoDigitsOtherHalfAsTyped", 2.675, "00.00", "02.68"},
    {"TwoDigitsNegative", -0.3, "00.00", "-00.30"},
    {"TwoDigitsNegativeTooSmallLosesItsSign", -0.004, "00.00", "00.00"},
    {"TwoDigitsNegativeHalf", -0.005, "00.00", "-00.01"},
    {"TwoDigitsSmallestSubnormal", -SmallestSubnormal, "00.00", "00.00"},
    {"TwoDigitsThreeOptionalDecimalsNegative", -0.3, "00.###", "-00.3"},
    {"TwoDigitsThreeOptionalDecimalsOfZero", 0, "00.###", "00"},
    {"TwoDigitsThreeOptionalDecimalsNegativeTooSmall", -0.0001, "00.###", "00"},
    {"RequiredAndOptionalDecimalNotNeeded", 1.5, "#0.0#", "1.5"},
    {"RequiredAndOptionalDecimalNeeded", 1.25, "#0.0#", "1.25"},
    {"RequiredAndOptionalDecimalOfAWhole", 1, "#0.0#", "1.0"},
    {"ThreeDigits", 7, "000", "007"},
    {"NothingNeeded", 0.001, "#.##", ""},

    {"Infinity", Infinity, "00.00", ""},
    {"NegativeInfinity", -Infinity, "#", ""},
    {"NotANumber", NotANumber, "#0.###", ""},
};

class FormattedTest : public testing::TestWithParam<FormattedCase> {};

TEST_P(FormattedTest, FillsThePattern) {
  EXPECT_EQ(Formatted(GetParam().value, GetParam().pattern), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Patterns, FormattedTest, testing::ValuesIn(FormattedCases), NameOf);

}  // namespace
}  // namespace brindle
