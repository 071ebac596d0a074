// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/reading.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "base/numbers/numeric_text.h"
#include "cli/printable.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

// What a text is read as: a number, with a word for its kind where there are several; or what is
// wrong with it.
template <class Value>
std::string Told(const Reading<Value>& reading, const std::function<std::string(Value)>& tell) {
  return reading ? tell(*reading) : reading.error();
}

std::string Size(std::string_view text) { return Told<double>(ReadMegaBytes(text), ExactTextOf); }
std::string Time(std::string_view text) {
  return Told<WrittenTime>(ReadTime(text), [](const WrittenTime& time) {
    return time.frames ? ExactTextOf(*time.frames) + " frames" : ExactTextOf(time.minutes);
  });
}
std::string Rate(std::string_view text) { return Told<double>(ReadRate(text), ExactTextOf); }
std::string KiloBits(std::string_view text) {
  return Told<double>(ReadKiloBits(text), ExactTextOf);
}
std::string Share(std::string_view text) { return Told<double>(ReadShare(text), ExactTextOf); }
std::string Percent(std::string_view text) { return Told<double>(ReadPercent(text), ExactTextOf); }
std::string Count(std::string_view text) {
  return Told<std::int16_t>(ReadCount(text),
                            [](std::int16_t count) { return std::to_string(count); });
}
std::string Switch(std::string_view text) {
  return Told<bool>(ReadSwitch(text), [](bool isOn) { return std::string(isOn ? "on" : "off"); });
}
std::string DivX(std::string_view text) {
  return Told<std::int16_t>(ReadDivX(text),
                            [](std::int16_t option) { return std::to_string(option); });
}
std::string Interval(std::string_view text) {
  return Told<WrittenInterval>(ReadInterval(text), [](const WrittenInterval& interval) {
    return ExactTextOf(interval.number) + (interval.isInMilliSeconds ? " ms" : " frames");
  });
}
std::string Ratio(std::string_view text) {
  return Told<float>(ReadRatio(text), [](float ratio) { return TextOfSingle(ratio); });
}

struct ReadingCase {
  std::string name;
  std::string (*read)(std::string_view) = nullptr;
  std::string text;
  std::string expected;
};

class Reads : public ::testing::TestWithParam<ReadingCase> {};

TEST_P(Reads, AsExpected) { EXPECT_EQ(GetParam().read(GetParam().text), GetParam().expected); }

constexpr auto NoSize = " is not a size, such as 700, 700MB, 4.7GB or 734003200B";
constexpr auto NoTime = " is not a running time, such as 102.5, 1:42:30 or 153750f";
constexpr auto NoRate = " is not a frame rate, such as 25, 23.976, pal, film or ntsc";
constexpr auto NoRatio = " is not a ratio, such as 16:9, 2.35, 4:3 or free";

INSTANTIATE_TEST_SUITE_P(
    Sizes, Reads,
    ::testing::Values(
        ReadingCase{"AreMegabytesWithoutAUnit", Size, "700", "700"},
        ReadingCase{"InMegabytes", Size, "700MB", "700"},
        ReadingCase{"InGigabytes", Size, "4.7GB", "4812.8"},
        ReadingCase{"InKilobytes", Size, "1536KB", "1.5"},
        ReadingCase{"InBytes", Size, "734003200B", "700"},
        ReadingCase{"InMebibytes", Size, "700MiB", "700"},
        ReadingCase{"InGibibytes", Size, "4.7GiB", "4812.8"},
        ReadingCase{"InKibibytes", Size, "1536KiB", "1.5"},
        ReadingCase{"InSmallLetters", Size, "700mb", "700"},
        ReadingCase{"WithABlankBeforeTheUnit", Size, "4.7 GB", "4812.8"},
        ReadingCase{"OfNothing", Size, "0", "0"},
        ReadingCase{"WithoutADigitBeforeThePeriod", Size, ".5GB", "512"},
        ReadingCase{"WithAPeriodAtTheEnd", Size, "5.MB", "5"},
        ReadingCase{"OfTheLargestSize", Size, "93132257462GB", "95367431641088"},
        ReadingCase{"AboveTheLargestSize", Size, "93132257463GB",
                    "\"93132257463GB\" is more than the largest size, 93132257462 GB"},
        ReadingCase{"AboveTheLargestSizeWithoutAUnit", Size, "95367431640626",
                    "\"95367431640626\" is more than the largest size, 95367431640625 MB"},
        ReadingCase{"WithAComma", Size, "4,7GB",
                    "\"4,7GB\" has a comma; decimals are written with a period: \"4.7GB\""},
        ReadingCase{"InMegabits", Size, "700Mb",
                    "\"700Mb\" ends in a small b, which stands for bits; bytes are a large B"},
        ReadingCase{"InTerabytes", Size, "1TB", std::string("\"1TB\"") + NoSize},
        ReadingCase{"InAUnitAlone", Size, "MB", std::string("\"MB\"") + NoSize},
        ReadingCase{"BelowNothing", Size, "-700", "\"-700\" is below 0"},
        ReadingCase{"OfNoText", Size, "", std::string("\"\"") + NoSize},
        ReadingCase{"OfABlank", Size, " ", std::string("\" \"") + NoSize},
        ReadingCase{"WithTwoPeriods", Size, "4.7.1GB", std::string("\"4.7.1GB\"") + NoSize},
        ReadingCase{"WithAnExponent", Size, "1e3", std::string("\"1e3\"") + NoSize},
        ReadingCase{"InHexadecimal", Size, "0x10", std::string("\"0x10\"") + NoSize},
        ReadingCase{"OfInfinity", Size, "inf", std::string("\"inf\"") + NoSize},
        ReadingCase{"WithAPlus", Size, "+5", std::string("\"+5\"") + NoSize},
        ReadingCase{"InOtherDigits", Size, "٧٠٠", std::string("\"٧٠٠\"") + NoSize},
        ReadingCase{"WithALineBreak", Size, "7\n", std::string("\"7\\x0a\"") + NoSize}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Times, Reads,
    ::testing::Values(
        ReadingCase{"AreMinutes", Time, "102.5", "102.5"},
        ReadingCase{"InHoursMinutesAndSeconds", Time, "1:42:30", "102.5"},
        ReadingCase{"WithAFractionOfASecond", Time, "1:42:30.5", "102.50833333333334"},
        ReadingCase{"WithZerosInFront", Time, "01:02:03", "62.05"},
        ReadingCase{"WithManyHours", Time, "100:00:00", "6000"},
        ReadingCase{"InFrames", Time, "153750f", "153750 frames"},
        ReadingCase{"OfNothing", Time, "0", "0"}, ReadingCase{"OfNoFrames", Time, "0f", "0 frames"},
        ReadingCase{"InHalfFrames", Time, "1.5f", "\"1.5f\" is not a whole number of frames"},
        ReadingCase{"InTwoParts", Time, "42:30",
                    "\"42:30\" has two parts; write hours, minutes and seconds: 1:42:30"},
        ReadingCase{"WithSixtyMinutes", Time, "1:60:00",
                    "\"1:60:00\" has minutes or seconds above 59"},
        ReadingCase{"WithSixtySeconds", Time, "1:00:60",
                    "\"1:00:60\" has minutes or seconds above 59"},
        ReadingCase{"WithTheLastSecond", Time, "0:59:59.999", "59.99998333333333"},
        ReadingCase{"InFourParts", Time, "1:2:3:4", std::string("\"1:2:3:4\"") + NoTime},
        ReadingCase{"WithAnEmptyPart", Time, "1::3", std::string("\"1::3\"") + NoTime},
        ReadingCase{"WithAFractionOfAnHour", Time, "1.5:00:00",
                    std::string("\"1.5:00:00\"") + NoTime},
        ReadingCase{"WithAComma", Time, "1:42:30,5",
                    "\"1:42:30,5\" has a comma; decimals are written with a period: "
                    "\"1:42:30.5\""},
        ReadingCase{"BelowNothing", Time, "-5", "\"-5\" is below 0"},
        ReadingCase{"OfNoNumber", Time, "f", std::string("\"f\"") + NoTime},
        ReadingCase{"OfTheMostMinutes", Time, "1000000000", "1000000000"},
        ReadingCase{"OfMoreThanTheMostMinutes", Time, "1000000001", "\"1000000001\" is too long"},
        ReadingCase{"OfMoreThanTheMostFrames", Time, "1000000000001f",
                    "\"1000000000001f\" is too long"},
        ReadingCase{"OfNoText", Time, "", std::string("\"\"") + NoTime}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Others, Reads,
    ::testing::Values(
        ReadingCase{"ARate", Rate, "25", "25"},
        ReadingCase{"ARateOfFilm", Rate, "23.976", "23.976"}, ReadingCase{"Pal", Rate, "pal", "25"},
        ReadingCase{"Film", Rate, "film", "23.976"}, ReadingCase{"Ntsc", Rate, "NTSC", "29.97"},
        ReadingCase{"ARateOfNothing", Rate, "0",
                    "\"0\" is not above 0 and at most 1000 frames per second"},
        ReadingCase{"TheLargestRate", Rate, "1000", "1000"},
        ReadingCase{"ARateThatIsTooLarge", Rate, "1000.1",
                    "\"1000.1\" is not above 0 and at most 1000 frames per second"},
        ReadingCase{"ARateWithAComma", Rate, "29,97",
                    "\"29,97\" has a comma; decimals are written with a period: \"29.97\""},
        ReadingCase{"AnUnknownSystem", Rate, "secam", std::string("\"secam\"") + NoRate},
        ReadingCase{"ABitrate", KiloBits, "192", "192"},
        ReadingCase{"ABitrateWithItsUnit", KiloBits, "192kbps", "192"},
        ReadingCase{"ABitrateWithAShortUnit", KiloBits, "192k", "192"},
        ReadingCase{"ListOfBitrates", KiloBits, "192,128",
                    "\"192,128\" has a comma; decimals are written with a period: \"192.128\""},
        ReadingCase{"ABitrateInMegabits", KiloBits, "5M",
                    "\"5M\" is not a bitrate in kbps, such as 192"},
        ReadingCase{"AShare", Share, "98%", "98"},
        ReadingCase{"AShareWithoutItsSign", Share, "97.5", "97.5"},
        ReadingCase{"TheWhole", Share, "100%", "100"},
        ReadingCase{"MoreThanTheWhole", Share, "100.1%", "\"100.1%\" is more than 100%"},
        ReadingCase{"AShareWithAComma", Share, "97,5%",
                    "\"97,5%\" has a comma; decimals are written with a period: \"97.5%\""},
        ReadingCase{"APercentageAboveTheWhole", Percent, "150", "150"},
        ReadingCase{"APercentageThatIsNone", Percent, "much",
                    "\"much\" is not a percentage, such as 98%"},
        ReadingCase{"ACount", Count, "2", "2"},
        ReadingCase{"TheLargestCount", Count, "32767", "32767"},
        ReadingCase{"ACountThatIsTooLarge", Count, "32768",
                    "\"32768\" is not a whole number from 1 to 32767"},
        ReadingCase{"ACountOfNothing", Count, "0", "\"0\" is not a whole number from 1 to 32767"},
        ReadingCase{"HalfACount", Count, "1.5", "\"1.5\" is not a whole number from 1 to 32767"},
        ReadingCase{"On", Switch, "on", "on"}, ReadingCase{"Off", Switch, "off", "off"},
        ReadingCase{"NeitherOnNorOff", Switch, "yes", "\"yes\" is neither on nor off"},
        ReadingCase{"DivX3", DivX, "3", "0"}, ReadingCase{"DivX4", DivX, "4", "1"},
        ReadingCase{"DivX5", DivX, "5", "1"}, ReadingCase{"DivX4And5", DivX, "4/5", "1"},
        ReadingCase{"DivX6", DivX, "6", "\"6\" is neither 3 nor 4/5"},
        ReadingCase{"AnIntervalInMilliSeconds", Interval, "400ms", "400 ms"},
        ReadingCase{"AnIntervalInFrames", Interval, "10", "10 frames"},
        ReadingCase{"AnIntervalInHalfFrames", Interval, "1.5",
                    "\"1.5\" is not a whole number of frames above 0"},
        ReadingCase{"AnIntervalOfNothing", Interval, "0ms", "\"0ms\" is not above 0"},
        ReadingCase{"AnIntervalInSeconds", Interval, "1s",
                    "\"1s\" is not an interval, such as 400ms or, in frames, 10"},
        ReadingCase{"AStandardRatio", Ratio, "16:9", "1.778"},
        ReadingCase{"ARatioOfTelevision", Ratio, "4:3", "1.33"},
        ReadingCase{"ARatioAsANumber", Ratio, "2.35", "2.35"},
        ReadingCase{"ARatioOfTwoNumbers", Ratio, "16:10", "1.6"},
        ReadingCase{"NoRatio", Ratio, "free", "0"},
        ReadingCase{"ARatioOfNothing", Ratio, "0", "\"0\" is not a ratio above 0 and below 100"},
        ReadingCase{"ARatioToNothing", Ratio, "16:0",
                    "\"16:0\" is not a ratio above 0 and below 100"},
        ReadingCase{"NothingToNothing", Ratio, "0:0",
                    "\"0:0\" is not a ratio above 0 and below 100"},
        ReadingCase{"ARatioThatIsTooLarge", Ratio, "100",
                    "\"100\" is not a ratio above 0 and below 100"},
        ReadingCase{"ARatioWithAComma", Ratio, "2,35",
                    "\"2,35\" has a comma; decimals are written with a period: \"2.35\""},
        ReadingCase{"ARatioOfWords", Ratio, "wide", std::string("\"wide\"") + NoRatio}),
    NameOf);

struct PrintableCase {
  std::string name;
  std::string text;
  std::string expected;
};

class MakesPrintable : public ::testing::TestWithParam<PrintableCase> {};

TEST_P(MakesPrintable, AsExpected) { EXPECT_EQ(Printable(GetParam().text), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Cases, MakesPrintable,
    ::testing::Values(PrintableCase{"PlainText", "a b", "a b"},
                      PrintableCase{"Umlauts", "Käse", "Käse"},
                      PrintableCase{"LongCharacters", "日本😀", "日本😀"},
                      PrintableCase{"LineBreak", "a\r\nb", "a\\x0d\\x0ab"},
                      PrintableCase{"EscapeSequence", "\x1b[2J", "\\x1b[2J"},
                      PrintableCase{"Delete", "\x7f", "\\x7f"},
                      PrintableCase{"ControlOfTwoBytes", "\xc2\x9b", "\\xc2\\x9b"},
                      PrintableCase{"Latin1", "caf\xe9", "caf\\xe9"},
                      PrintableCase{"CutShort", "\xe6\x97", "\\xe6\\x97"},
                      PrintableCase{"TooLongAForm", "\xc0\xaf", "\\xc0\\xaf"},
                      PrintableCase{"HalfOfAPair", "\xed\xa0\x80", "\\xed\\xa0\\x80"},
                      PrintableCase{"BeyondTheLast", "\xf4\x90\x80\x80", "\\xf4\\x90\\x80\\x80"},
                      PrintableCase{"Nothing", "", ""}),
    NameOf);

TEST(Quoting, CutsALongTextBetweenCharacters) {
  std::string umlauts;
  for (int i = 0; i < 50; ++i) {
    umlauts += "ü";
  }
  EXPECT_EQ(Quoted(umlauts), '"' + umlauts.substr(0, 60) + "...\"");
  EXPECT_EQ(Quoted(umlauts.substr(0, 60)), '"' + umlauts.substr(0, 60) + '"');
}

}  // namespace
}  // namespace brindle
