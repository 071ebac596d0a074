// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/settings/settings_lines.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <ostream>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include <QByteArray>
#include <QString>
#include <gtest/gtest.h>

#include "base/settings/settings.h"
#include "tests/base/settings/known_lines.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr std::size_t LineOfSaveOnExit = 12;
constexpr float LargestSingle = std::numeric_limits<float>::max();
constexpr double LargestDouble = std::numeric_limits<double>::max();

std::string Written(const Stored& stored) {
  return WriteLines(stored.record, stored.saveOnExit).toStdString();
}

// The texts of a written file; empty if a line does not end with CR LF or has a CR or LF in it.
std::vector<std::string> TextsOf(std::string_view bytes) {
  constexpr std::string_view end = "\r\n";
  std::vector<std::string> texts;
  while (!bytes.empty()) {
    const auto length = bytes.find(end);
    if (length == std::string_view::npos ||
        bytes.substr(0, length).find_first_of(end) != std::string_view::npos) {
      return {};
    }
    texts.emplace_back(bytes.substr(0, length));
    bytes.remove_prefix(length + end.size());
  }
  return texts;
}

std::string TextOnLine(const Stored& stored, std::size_t number) {
  const auto texts = TextsOf(Written(stored));
  return number <= texts.size() ? texts[number - 1] : "there is no such line";
}

std::optional<Stored> ReadFrom(const std::string& bytes, const Settings& over = {}) {
  const auto read = ReadLines(QByteArray::fromStdString(bytes), over);
  if (!read) {
    return std::nullopt;
  }
  return Stored{read->record, read->saveOnExit};
}

std::optional<Stored> ReadWith(std::size_t number, std::string_view text) {
  return ReadFrom(Joined(TextsWith(number, text), "\r\n"));
}

const KnownLine& LineAt(std::size_t number) { return KnownLines().at(number - 1); }

Value ValueAt(const Stored& stored, std::size_t number) {
  return ValueIn(stored, LineAt(number).field);
}

Stored BuiltIn() {
  Stored stored;
  for (const auto& line : KnownLines()) {
    Put(line.builtIn, line.field, stored);
  }
  return stored;
}

// The numbers, from 1, of the lines whose value has this type; line 12 counts for no type.
template <class Type>
std::vector<std::size_t> LinesOfType() {
  std::vector<std::size_t> numbers;
  for (std::size_t number = 1; number <= KnownLines().size(); ++number) {
    if (number != LineOfSaveOnExit && std::holds_alternative<Type>(LineAt(number).builtIn)) {
      numbers.push_back(number);
    }
  }
  return numbers;
}

void ExpectSame(const Stored& actual, const Stored& expected) {
  for (const auto& line : KnownLines()) {
    const auto value = ValueIn(actual, line.field);
    const auto wanted = ValueIn(expected, line.field);
    EXPECT_EQ(value, wanted) << line.name << ": " << Shown(value) << ", not " << Shown(wanted);
  }
}

TEST(SettingsLinesTest, FirstRunWritesTheseBytes) {
  Settings record;
  ResetToBuiltIn(record);
  EXPECT_EQ(WriteLines(record, true).toStdString(),
            "0.5859375\r\n0.5859375\r\n2\r\n1\r\n1\r\n400\r\n1\r\n1\r\n1\r\n100\r\n"
            "0\r\n1\r\n128\r\n1\r\n700\r\n0\r\n0\r\n910\r\n0\r\n224\r\n"
            "550\r\n700\r\n0\r\n1300\r\n700\r\n700\r\n10\r\n1024\r\n1\r\n#FALSE#\r\n"
            "#TRUE#\r\n#TRUE#\r\n100\r\n6\r\n592\r\n336\r\n1\r\n3\r\n1.778\r\n#TRUE#\r\n"
            "\r\nC:\\Out.wav\r\n");
}

TEST(SettingsLinesTest, ExtraMaterialOfTwentyFiveIsStillOnItsLineWhenTheDefaultsAreLoaded) {
  Stored stored;
  stored.record.ExtraMaterial = 25;
  ResetToBuiltIn(stored.record);
  EXPECT_EQ(TextOnLine(stored, 16), "25");
}

TEST(SettingsLinesTest, RecordOfZerosIsWrittenAndReadBack) {
  const Stored zeros;
  const auto texts = TextsOf(Written(zeros));
  ASSERT_EQ(texts.size(), 42U);
  for (std::size_t number = 1; number <= texts.size(); ++number) {
    const auto& value = LineAt(number).builtIn;
    const bool isText = std::holds_alternative<QString>(value);
    const bool isBoolean = std::holds_alternative<bool>(value) && number != LineOfSaveOnExit;
    EXPECT_EQ(texts[number - 1], isText ? "" : isBoolean ? "#FALSE#" : "0") << "line " << number;
  }
  const auto read = ReadFrom(Written(zeros), BuiltInSettings());
  ASSERT_TRUE(read);
  ExpectSame(*read, zeros);
}

struct LineCase {
  std::string name;
  std::size_t number = 0;
};

std::vector<LineCase> EveryLine() {
  std::vector<LineCase> cases;
  for (std::size_t number = 1; number <= KnownLines().size(); ++number) {
    cases.push_back({"Line" + std::to_string(number) + LineAt(number).name, number});
  }
  return cases;
}

class LineTest : public ::testing::TestWithParam<LineCase> {
 protected:
  [[nodiscard]] static std::size_t Number() { return GetParam().number; }
  [[nodiscard]] static const KnownLine& Line() { return LineAt(Number()); }
};

TEST_P(LineTest, AnotherValueOfItsFieldChangesThisLineAndNoOther) {
  auto stored = BuiltIn();
  Put(Line().other, Line().field, stored);
  EXPECT_EQ(Written(stored), Joined(TextsWith(Number(), Line().otherText), "\r\n"));
}

TEST_P(LineTest, AnotherTextOnItChangesItsFieldAndNoOther) {
  const auto read = ReadWith(Number(), Line().otherText);
  ASSERT_TRUE(read);
  auto expected = BuiltIn();
  Put(Line().other, Line().field, expected);
  ExpectSame(*read, expected);
}

TEST_P(LineTest, IsReadOverWhatTheRecordHeld) {
  Stored before;
  Put(Line().other, Line().field, before);
  const auto read = ReadFrom(Joined(BuiltInTexts(), "\r\n"), before.record);
  ASSERT_TRUE(read);
  ExpectSame(*read, BuiltIn());
}

TEST_P(LineTest, LeftOutMakesTheFileUnusable) {
  auto texts = BuiltInTexts();
  texts.erase(texts.begin() + static_cast<std::ptrdiff_t>(Number()) - 1);
  EXPECT_FALSE(ReadFrom(Joined(texts, "\r\n")));
}

TEST_P(LineTest, WrittenTwiceMakesTheFileUnusable) {
  auto texts = BuiltInTexts();
  texts.insert(texts.begin() + static_cast<std::ptrdiff_t>(Number()) - 1, Line().builtInText);
  EXPECT_FALSE(ReadFrom(Joined(texts, "\r\n")));
}

INSTANTIATE_TEST_SUITE_P(Lines, LineTest, ::testing::ValuesIn(EveryLine()), NameOf);

TEST(SettingsLinesTest, TableHoldsEveryFieldInItsPlaceAndKeepsTwoOfThem) {
  const auto table = SettingsLines();
  ASSERT_EQ(table.size(), KnownLines().size());
  for (std::size_t number = 1; number <= table.size(); ++number) {
    const auto& line = table[number - 1];
    EXPECT_EQ(line.keptByDefaults, number == 16 || number == 17) << "line " << number;
    EXPECT_EQ(std::holds_alternative<SaveOnExitLine>(line.field), number == LineOfSaveOnExit)
        << "line " << number;
    Stored stored;
    Put(LineAt(number).other, line.field, stored);
    EXPECT_EQ(ValueAt(stored, number), LineAt(number).other) << "line " << number;
  }
}

TEST(SettingsLinesTest, RunTimeFieldsStayWhenAFileIsRead) {
  Settings record;
  record.AppFolder = u"/home/ann/brindle"_s;
  record.SpinRepeatInterval = 0.05F;
  record.SpinFirstDelay = 0.5F;
  record.AdvancedCaller = 2;
  record.SplashDone = 1;
  record.ResolutionIncrement = 16;
  const auto read = ReadFrom(Joined(BuiltInTexts(), "\r\n"), record);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->record.AppFolder.toStdString(), "/home/ann/brindle");
  EXPECT_EQ(read->record.SpinRepeatInterval, 0.05F);
  EXPECT_EQ(read->record.SpinFirstDelay, 0.5F);
  EXPECT_EQ(read->record.AdvancedCaller, 2);
  EXPECT_EQ(read->record.SplashDone, 1);
  EXPECT_EQ(read->record.ResolutionIncrement, 16);
}

TEST(SettingsLinesTest, RunTimeFieldsAreNotWritten) {
  auto stored = BuiltIn();
  const auto before = Written(stored);
  stored.record.AppFolder = u"/home/ann/brindle"_s;
  stored.record.SpinRepeatInterval = 0.05F;
  stored.record.SpinFirstDelay = 0.5F;
  stored.record.AdvancedCaller = 2;
  stored.record.SplashDone = 1;
  stored.record.ResolutionIncrement = 16;
  EXPECT_EQ(Written(stored), before);
}

struct DoubleCase {
  const char* name = "";
  double value = 0;
  const char* text = "";
  double readBack = 0;
};

class DoubleTest : public ::testing::TestWithParam<DoubleCase> {};

TEST_P(DoubleTest, IsWrittenAndReadBackOnEveryLineOfItsType) {
  for (const auto number : LinesOfType<double>()) {
    if (SettingsLines()[number - 1].isExact) {
      continue;
    }
    auto stored = BuiltIn();
    Put(GetParam().value, LineAt(number).field, stored);
    ASSERT_EQ(TextOnLine(stored, number), GetParam().text) << "line " << number;
    const auto read = ReadFrom(Written(stored));
    ASSERT_TRUE(read) << "line " << number;
    Put(GetParam().readBack, LineAt(number).field, stored);
    ExpectSame(*read, stored);
  }
}

const std::vector<DoubleCase> DoubleCases{
    {"Zero", 0, "0", 0},
    {"NegativeZero", -0.0, "0", 0},
    {"Largest", LargestDouble, "1.79769313486231E+308", 1.79769313486231E+308},
    {"NegativeLargest", -LargestDouble, "-1.79769313486231E+308", -1.79769313486231E+308},
    {"SmallestNormal", std::numeric_limits<double>::min(), "2.2250738585072E-308",
     2.2250738585072E-308},
    {"Smallest", std::numeric_limits<double>::denorm_min(), "4.94065645841247E-324",
     std::numeric_limits<double>::denorm_min()},
    {"NegativeSmallest", -std::numeric_limits<double>::denorm_min(), "-4.94065645841247E-324",
     -std::numeric_limits<double>::denorm_min()},
    {"FifteenWholeDigits", 123456789012345, "123456789012345", 123456789012345},
    {"FifteenDigitsWithAFraction", 1234567.89012345, "1234567.89012345", 1234567.89012345},
    {"FifteenDecimals", 0.123456789012345, "0.123456789012345", 0.123456789012345},
    {"NegativeFifteenDecimals", -0.123456789012345, "-0.123456789012345", -0.123456789012345},
    {"SixteenDigitsAreRounded", 1234567890123456, "1234567890123460", 1234567890123460},
    {"NinesRoundUpToANewDigit", 999999999999999.9, "1000000000000000", 1000000000000000},
    {"SumOfTenths", 0.1 + 0.2, "0.3", 0.3},
    {"Third", 1.0 / 3, "0.333333333333333", 0.333333333333333},
    {"TwoThirds", 2.0 / 3, "0.666666666666667", 0.666666666666667},
    {"LargestPlain", 1e20, "100000000000000000000", 1e20},
    {"FirstWithAnExponent", 1e21, "1E+21", 1e21},
    {"SmallestPlain", 1e-15, "0.000000000000001", 1e-15},
    {"FirstWithANegativeExponent", 1e-16, "1E-16", 1e-16},
    {"FractionAndExponent", -1.5e300, "-1.5E+300", -1.5e300},
    {"InfinityIsStoredAsZero", std::numeric_limits<double>::infinity(), "0", 0},
    {"NegativeInfinityIsStoredAsZero", -std::numeric_limits<double>::infinity(), "0", 0},
    {"NotANumberIsStoredAsZero", std::numeric_limits<double>::quiet_NaN(), "0", 0},
};

INSTANTIATE_TEST_SUITE_P(Doubles, DoubleTest, ::testing::ValuesIn(DoubleCases), NameOf);

class ExactDoubleTest : public ::testing::TestWithParam<DoubleCase> {};

// The running time and the size of the converter are worked out from what was typed.
TEST_P(ExactDoubleTest, IsWrittenInAsFewDigitsAsGiveItAgain) {
  for (const std::size_t number : {10U, 28U}) {
    auto stored = BuiltIn();
    Put(GetParam().value, LineAt(number).field, stored);
    ASSERT_EQ(TextOnLine(stored, number), GetParam().text) << "line " << number;
    const auto read = ReadFrom(Written(stored));
    ASSERT_TRUE(read) << "line " << number;
    Put(GetParam().readBack, LineAt(number).field, stored);
    ExpectSame(*read, stored);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Doubles, ExactDoubleTest,
    ::testing::ValuesIn(std::vector<DoubleCase>{
        {"Zero", 0, "0", 0},
        {"Whole", 100, "100", 100},
        {"Half", 90.5, "90.5", 90.5},
        {"Third", 1.0 / 3, "0.3333333333333333", 1.0 / 3},
        {"TwoThousandFramesOfNtsc", 2000 / 29.97 / 60, "1.1122233344455568", 2000 / 29.97 / 60},
        {"SumOfTenths", 0.1 + 0.2, "0.30000000000000004", 0.1 + 0.2},
        {"SixteenDigits", 1234567890123456, "1234567890123456", 1234567890123456},
        {"Largest", LargestDouble, "1.7976931348623157E+308", LargestDouble},
        {"Smallest", std::numeric_limits<double>::denorm_min(), "5E-324",
         std::numeric_limits<double>::denorm_min()},
        {"InfinityIsStoredAsZero", std::numeric_limits<double>::infinity(), "0", 0},
        {"NotANumberIsStoredAsZero", std::numeric_limits<double>::quiet_NaN(), "0", 0},
    }),
    NameOf);

std::string FifteenDigitsOf(double value) {
  std::array<char, 40> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value,
                                 std::chars_format::scientific, 14);
  return {text.data(), end.ptr};
}

TEST(SettingsLinesTest, RandomDoublesReadBackToTheSameFifteenDigits) {
  constexpr int rounds = 1000;
  std::mt19937_64 random(20260115);
  const auto numbers = LinesOfType<double>();
  for (int round = 0; round < rounds; ++round) {
    Stored stored;
    for (const auto number : numbers) {
      auto value = std::bit_cast<double>(random());
      // The largest doubles have no 15 digits of their own within the range.
      if (!std::isfinite(value) || std::fabs(value) > 1e308) {
        value = static_cast<double>(random() % 1000000) / 997;
      }
      Put(value, LineAt(number).field, stored);
    }
    const auto read = ReadFrom(Written(stored));
    ASSERT_TRUE(read);
    for (const auto number : numbers) {
      ASSERT_EQ(FifteenDigitsOf(std::get<double>(ValueAt(*read, number))),
                FifteenDigitsOf(std::get<double>(ValueAt(stored, number))));
    }
    ASSERT_EQ(Written(*read), Written(stored));
  }
}

struct SingleCase {
  const char* name = "";
  float value = 0;
  const char* text = "";
  float readBack = 0;
};

class SingleTest : public ::testing::TestWithParam<SingleCase> {};

TEST_P(SingleTest, IsWrittenAndReadBackOnEveryLineOfItsType) {
  for (const auto number : LinesOfType<float>()) {
    auto stored = BuiltIn();
    Put(GetParam().value, LineAt(number).field, stored);
    ASSERT_EQ(TextOnLine(stored, number), GetParam().text) << "line " << number;
    const auto read = ReadFrom(Written(stored));
    ASSERT_TRUE(read) << "line " << number;
    Put(GetParam().readBack, LineAt(number).field, stored);
    ExpectSame(*read, stored);
  }
}

const float BesideATieOfDoubles = std::bit_cast<float>(0x15AE43FDU);

const std::vector<SingleCase> SingleCases{
    {"Zero", 0, "0", 0},
    {"NegativeZero", -0.0F, "0", 0},
    {"Largest", LargestSingle, "3.4028235E+38", LargestSingle},
    {"NegativeLargest", -LargestSingle, "-3.4028235E+38", -LargestSingle},
    {"SmallestNormal", std::numeric_limits<float>::min(), "1.1754944E-38",
     std::numeric_limits<float>::min()},
    {"Smallest", std::numeric_limits<float>::denorm_min(), "1E-45",
     std::numeric_limits<float>::denorm_min()},
    {"CustomAspectOfAFirstRun", 1.778F, "1.778", 1.778F},
    {"Tenth", 0.1F, "0.1", 0.1F},
    {"Third", 1.0F / 3, "0.33333334", 1.0F / 3},
    {"NegativeThird", -1.0F / 3, "-0.33333334", -1.0F / 3},
    {"LastOfTheWholeNumbersInARow", 16777216, "16777216", 16777216},
    {"FirstWithAnExponent", 1e21F, "1E+21", 1e21F},
    {"SmallestPlain", 1e-15F, "0.000000000000001", 1e-15F},
    {"FirstWithANegativeExponent", 1e-16F, "1E-16", 1e-16F},
    // Rounded to a double first, its text becomes a tie, and the tie goes to the next Single.
    {"BesideATieOfDoubles", BesideATieOfDoubles, "7.038531E-26", BesideATieOfDoubles},
    {"InfinityIsStoredAsZero", std::numeric_limits<float>::infinity(), "0", 0},
    {"NotANumberIsStoredAsZero", std::numeric_limits<float>::quiet_NaN(), "0", 0},
};

INSTANTIATE_TEST_SUITE_P(Singles, SingleTest, ::testing::ValuesIn(SingleCases), NameOf);

TEST(SettingsLinesTest, RandomSinglesReadBackAsTheyWere) {
  constexpr int rounds = 3000;
  std::mt19937 random(20260116);
  for (int round = 0; round < rounds; ++round) {
    Stored stored;
    for (const auto field : {&Settings::WavTolerance, &Settings::CustomAspect}) {
      const auto value = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
      stored.record.*field = std::isfinite(value) ? value : 0;
    }
    const auto read = ReadFrom(Written(stored));
    ASSERT_TRUE(read);
    ASSERT_EQ(read->record.WavTolerance, stored.record.WavTolerance);
    ASSERT_EQ(read->record.CustomAspect, stored.record.CustomAspect);
  }
}

struct IntegerCase {
  const char* name = "";
  std::int16_t value = 0;
  const char* text = "";
};

class IntegerTest : public ::testing::TestWithParam<IntegerCase> {};

TEST_P(IntegerTest, IsWrittenAndReadBackOnEveryLineOfItsType) {
  for (const auto number : LinesOfType<std::int16_t>()) {
    auto stored = BuiltIn();
    Put(GetParam().value, LineAt(number).field, stored);
    ASSERT_EQ(TextOnLine(stored, number), GetParam().text) << "line " << number;
    const auto read = ReadFrom(Written(stored));
    ASSERT_TRUE(read) << "line " << number;
    ExpectSame(*read, stored);
  }
}

const std::vector<IntegerCase> IntegerCases{
    {"First", -32768, "-32768"},
    {"NextToFirst", -32767, "-32767"},
    {"MinusOne", -1, "-1"},
    {"Zero", 0, "0"},
    {"One", 1, "1"},
    {"Thousands", 10000, "10000"},
    {"NextToLast", 32766, "32766"},
    {"Last", 32767, "32767"},
};

INSTANTIATE_TEST_SUITE_P(Integers, IntegerTest, ::testing::ValuesIn(IntegerCases), NameOf);

struct TextCase {
  const char* name = "";
  QString text;
};

class TextTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(TextTest, IsWrittenRawInUtf8AndReadBackOnBothPathLines) {
  for (const auto number : LinesOfType<QString>()) {
    auto stored = BuiltIn();
    Put(GetParam().text, LineAt(number).field, stored);
    ASSERT_EQ(TextOnLine(stored, number), GetParam().text.toUtf8().toStdString());
    const auto read = ReadFrom(Written(stored));
    ASSERT_TRUE(read) << "line " << number;
    ExpectSame(*read, stored);
  }
}

const std::vector<TextCase> TextCases{
    {"Empty", u""_s},
    {"WindowsPath", u"C:\\Out.wav"_s},
    {"Umlauts", u"C:\\Größe\\Öl.wav"_s},
    {"OtherScripts", u"/ήχος/звук/音.wav"_s},
    {"RightToLeft", u"/צליל/صوت.wav"_s},
    {"BeyondTheBasicPlane", u"/\U0001F3B5/\U00010348.wav"_s},
    {"AccentAsACharacterOfItsOwn", u"/e\u0301/\u00E9.wav"_s},
    {"FirstAndLastCharacters", u"\u0001\u007F\u0080\u07FF\u0800\uFFFD\uFFFF\U0010FFFF"_s},
    {"ByteOrderMarkInside", u"/a\uFEFFb.wav"_s},
    {"ByteOrderMarkInFront", u"\uFEFF/a.wav"_s},
    {"QuotesAround", u"\"C:\\My Sound\\a.wav\""_s},
    {"QuoteInFront", u"\"a"_s},
    {"ApostropheInside", u"/ann's/a.wav"_s},
    {"BlanksAtTheEnds", u"  /a b.wav  "_s},
    {"TabsAtTheEnds", u"\t/a\tb.wav\t"_s},
    {"BlankAlone", u" "_s},
    {"CommaInside", u"/a,b.wav"_s},
    {"NumberSign", u"#"_s},
    {"BooleanWord", u"#TRUE#"_s},
    {"Number", u"12"_s},
    {"Percent", u"%1%s%n"_s},
    {"NulInside", QString(u"/a"_s + QChar(0) + u"b.wav"_s)},
    {"FourHundredCharacters", QString(400, u'x')},
    {"HundredThousandCharacters", QString(100000, u'ß')},
};

INSTANTIATE_TEST_SUITE_P(Texts, TextTest, ::testing::ValuesIn(TextCases), NameOf);

TEST(SettingsLinesTest, NonAsciiTextIsUtf8ByteForByte) {
  auto stored = BuiltIn();
  stored.record.WavSourceFile = u"ß€\U0001F3B5"_s;
  EXPECT_EQ(TextOnLine(stored, 41), "\xC3\x9F\xE2\x82\xAC\xF0\x9F\x8E\xB5");
}

TEST(SettingsLinesTest, BytesThatAreNoUtf8AreReadWithoutHarm) {
  const auto read = ReadWith(42, "/a\xFF\xC3/b\xED\xA0\x80.wav");
  ASSERT_TRUE(read);
  EXPECT_TRUE(read->record.WavTargetFile.startsWith(u"/a"_s));
  EXPECT_TRUE(read->record.WavTargetFile.endsWith(u".wav"_s));
}

TEST(SettingsLinesTest, PathWithABreakIsWrittenAsAnEmptyLine) {
  for (const auto& text : {u"a\nb"_s, u"a\rb"_s, u"a\r\nb"_s, u"\n"_s, u"\r"_s, u"\r\n"_s, u"a\n"_s,
                           u"a\r"_s, u"\na"_s, u"\ra"_s}) {
    for (const auto number : LinesOfType<QString>()) {
      auto stored = BuiltIn();
      Put(text, LineAt(number).field, stored);
      EXPECT_EQ(Written(stored), Joined(TextsWith(number, ""), "\r\n")) << "line " << number;
    }
  }
}

TEST(SettingsLinesTest, EveryFieldAtItsEndAtOnceIsReadBack) {
  Stored stored;
  stored.saveOnExit = true;
  for (const auto& line : KnownLines()) {
    std::visit(
        [&](const auto& held) {
          using Type = std::decay_t<decltype(held)>;
          if constexpr (std::is_same_v<Type, QString>) {
            Put(u" \"ü\" # "_s, line.field, stored);
          } else if constexpr (std::is_same_v<Type, double>) {
            Put(-1.79769313486231E+308, line.field, stored);
          } else {
            Put(std::numeric_limits<Type>::max(), line.field, stored);
          }
        },
        line.builtIn);
  }
  const auto read = ReadFrom(Written(stored));
  ASSERT_TRUE(read);
  ExpectSame(*read, stored);
}

struct BytesCase {
  const char* name = "";
  std::string bytes;
};

std::string WithoutLastEnd(std::string bytes, std::size_t endLength) {
  bytes.resize(bytes.size() - endLength);
  return bytes;
}

std::string TextsInFrontOf(std::size_t number, std::string_view end) {
  auto texts = BuiltInTexts();
  texts.resize(number - 1);
  return Joined(texts, end);
}

std::string MixedEnds() {
  std::string bytes;
  for (const auto& text : BuiltInTexts()) {
    bytes += text + (bytes.size() % 2 == 0 ? "\n" : "\r\n");
  }
  return bytes;
}

class UsableTest : public ::testing::TestWithParam<BytesCase> {};

TEST_P(UsableTest, IsReadAsTheBuiltInValues) {
  const auto read = ReadFrom(GetParam().bytes);
  ASSERT_TRUE(read);
  ExpectSame(*read, BuiltIn());
}

const std::vector<BytesCase> UsableCases{
    {"CrLf", Joined(BuiltInTexts(), "\r\n")},
    {"CrLfWithoutTheLast", WithoutLastEnd(Joined(BuiltInTexts(), "\r\n"), 2)},
    {"Lf", Joined(BuiltInTexts(), "\n")},
    {"LfWithoutTheLast", WithoutLastEnd(Joined(BuiltInTexts(), "\n"), 1)},
    {"Mixed", MixedEnds()},
    {"LfButForTheLast", TextsInFrontOf(42, "\n") + "C:\\Out.wav\r\n"},
    {"CrLfButForTheLast", TextsInFrontOf(42, "\r\n") + "C:\\Out.wav\n"},
};

INSTANTIATE_TEST_SUITE_P(LineEnds, UsableTest, ::testing::ValuesIn(UsableCases), NameOf);

class UnusableTest : public ::testing::TestWithParam<BytesCase> {};

TEST_P(UnusableTest, GivesNothing) { EXPECT_FALSE(ReadFrom(GetParam().bytes)); }

std::vector<BytesCase> UnusableCases() {
  const auto crLf = Joined(BuiltInTexts(), "\r\n");
  const auto lf = Joined(BuiltInTexts(), "\n");
  return {
      {"NoBytes", ""},
      {"OneLineEnd", "\r\n"},
      {"OneLine", "0.5859375\r\n"},
      {"OneLineWithoutEnd", "0.5859375"},
      {"NulAlone", std::string(1, '\0')},
      {"FortyOneLines", TextsInFrontOf(42, "\r\n")},
      {"FortyOneLinesOfLf", TextsInFrontOf(42, "\n")},
      {"FortyOneLinesWithoutTheLastEnd", TextsInFrontOf(41, "\r\n") + "a"},
      {"BlankLastLineMissing", TextsInFrontOf(41, "\r\n") + "/a.wav\r\n"},
      {"FortyThreeLines", crLf + "1\r\n"},
      {"FortyThreeLinesWithoutTheLastEnd", crLf + "1"},
      {"FortyThreeLinesOfLf", lf + "1\n"},
      {"BlankLineTooMany", crLf + "\r\n"},
      {"BlankLineOfLfTooMany", lf + "\n"},
      {"BlankTooMany", crLf + " "},
      {"BlankLineInFront", "\r\n" + crLf},
      {"TwiceTheFile", crLf + crLf},
      {"FortyTwoBlankLines", Joined(std::vector<std::string>(42), "\r\n")},
      {"CrAlone", Joined(BuiltInTexts(), "\r")},
      {"CrTwice", Joined(BuiltInTexts(), "\r\r\n")},
      {"LfCr", Joined(BuiltInTexts(), "\n\r")},
      {"ByteOrderMarkAlone", "\xEF\xBB\xBF"},
      {"ByteOrderMarkTwice", "\xEF\xBB\xBF\xEF\xBB\xBF" + crLf},
      {"ByteOrderMarkOfSixteenBits", "\xFF\xFE" + crLf},
      {"LinesTurnedRound",
       [] {
         auto texts = BuiltInTexts();
         std::reverse(texts.begin(), texts.end());
         return Joined(texts, "\r\n");
       }()},
      {"OneMebibyteOfZeros", std::string(1 << 20, '\0')},
      {"OneMebibyteOfLineEnds", std::string(1 << 20, '\n')},
  };
}

INSTANTIATE_TEST_SUITE_P(Bytes, UnusableTest, ::testing::ValuesIn(UnusableCases()), NameOf);

TEST(SettingsLinesTest, ByteOrderMarkInFrontIsNoPartOfTheFirstNumber) {
  auto texts = BuiltInTexts();
  texts.front() = "0.25";
  const auto read = ReadFrom("\xEF\xBB\xBF" + Joined(texts, "\r\n"));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->record.VideoFrameOverhead, 0.25);
}

TEST(SettingsLinesTest, BlankLastLineIsALineAndGivesAnEmptyTarget) {
  for (const auto* end : {"\r\n", "\n"}) {
    const auto read = ReadFrom(TextsInFrontOf(41, end) + "/a.wav" + end + end);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->record.WavSourceFile.toStdString(), "/a.wav");
    EXPECT_TRUE(read->record.WavTargetFile.isEmpty());
  }
}

TEST(SettingsLinesTest, EmptySourceLineIsALine) {
  const auto read = ReadFrom(TextsInFrontOf(41, "\r\n") + "\r\n/b.wav\r\n");
  ASSERT_TRUE(read);
  EXPECT_TRUE(read->record.WavSourceFile.isEmpty());
  EXPECT_EQ(read->record.WavTargetFile.toStdString(), "/b.wav");
}

TEST(SettingsLinesTest, LoneCrAtTheEndBelongsToTheLastText) {
  const auto read = ReadFrom(TextsInFrontOf(42, "\r\n") + "/b.wav\r");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->record.WavTargetFile.toStdString(), "/b.wav\r");
}

TEST(SettingsLinesTest, FileCutAnywhereBeforeItsLastLineIsUnusable) {
  const auto bytes = Joined(BuiltInTexts(), "\r\n");
  const auto lastLine = bytes.find("C:\\Out.wav");
  for (std::size_t length = 0; length <= lastLine; ++length) {
    EXPECT_FALSE(ReadFrom(bytes.substr(0, length))) << length << " bytes";
  }
}

class WrongTypeTest : public LineTest {
 protected:
  static void ExpectUnusable(std::string_view text) {
    EXPECT_FALSE(ReadWith(Number(), text)) << '"' << text << '"';
  }
  static bool HoldsBoolean() {
    return std::holds_alternative<bool>(Line().builtIn) && Number() != LineOfSaveOnExit;
  }
};

TEST_P(WrongTypeTest, MakesTheFileUnusable) {
  using namespace std::string_view_literals;
  constexpr std::array forEveryLine{""sv,
                                    " "sv,
                                    "\t"sv,
                                    "abc"sv,
                                    "1,5"sv,
                                    "12e"sv,
                                    "12xyz"sv,
                                    "1e999"sv,
                                    "-1e999"sv,
                                    "inf"sv,
                                    "nan"sv,
                                    "-nan"sv,
                                    "0x10"sv,
                                    "&H10"sv,
                                    R"("1")"sv,
                                    "1 2"sv,
                                    "1;"sv,
                                    "1,"sv,
                                    "- 1"sv,
                                    "--1"sv,
                                    "1-"sv,
                                    "."sv,
                                    "-"sv,
                                    "+"sv,
                                    "-."sv,
                                    "e5"sv,
                                    ".e5"sv,
                                    "1.2.3"sv,
                                    "1e1.5"sv,
                                    "1e+"sv,
                                    "1d2"sv,
                                    "1\r"sv,
                                    "\v1"sv,
                                    "1\f"sv,
                                    "\xC2\xA0"
                                    "1"sv,
                                    "\xD9\xA1"sv,
                                    "\xEF\xBC\x91"sv,
                                    "\xE2\x88\x92"
                                    "1"sv,
                                    "\0"sv,
                                    "1\0"sv,
                                    "\0"
                                    "1"sv,
                                    "#1#"sv,
                                    "1#"sv,
                                    "#NULL#"sv,
                                    "#true#"sv,
                                    "#false#"sv,
                                    "#True#"sv,
                                    "TRUE"sv,
                                    "True"sv,
                                    "#TRUE"sv,
                                    "TRUE#"sv,
                                    "##TRUE##"sv,
                                    "# TRUE #"sv,
                                    "#TRUE#,"sv,
                                    R"("#TRUE#")"sv,
                                    "#TRUE# #TRUE#"sv,
                                    "#TRUE##FALSE#"sv,
                                    "#TRUE#\0"sv,
                                    "#TRUE#\r"sv,
                                    "#ERROR 1#"sv};
  for (const auto text : forEveryLine) {
    ExpectUnusable(text);
  }
}

TEST_P(WrongTypeTest, OfTheOtherKindMakesTheFileUnusable) {
  if (HoldsBoolean()) {
    for (const auto* text : {"0", "1", "-1", "0.5", " 1 "}) {
      ExpectUnusable(text);
    }
  } else {
    for (const auto* text : {"#TRUE#", "#FALSE#", " #TRUE# "}) {
      ExpectUnusable(text);
    }
  }
}

std::vector<LineCase> EveryLineOfAValue() {
  auto cases = EveryLine();
  cases.resize(40);
  return cases;
}

INSTANTIATE_TEST_SUITE_P(Lines, WrongTypeTest, ::testing::ValuesIn(EveryLineOfAValue()), NameOf);

TEST(SettingsLinesTest, WrongValueOnTheLastValueLineLeavesTheRecordAsItWas) {
  Stored before;
  for (const auto& line : KnownLines()) {
    Put(line.other, line.field, before);
  }
  const auto kept = before;
  EXPECT_FALSE(ReadFrom(Joined(TextsWith(40, "abc"), "\r\n"), before.record));
  ExpectSame(before, kept);
}

struct ReadCase {
  const char* name = "";
  std::string_view text;
  double expected = 0;
};

class ReadDoubleTest : public ::testing::TestWithParam<ReadCase> {};

TEST_P(ReadDoubleTest, IsReadOnEveryLineOfItsType) {
  for (const auto number : LinesOfType<double>()) {
    const auto read = ReadWith(number, GetParam().text);
    ASSERT_TRUE(read) << "line " << number;
    EXPECT_EQ(std::get<double>(ValueAt(*read, number)), GetParam().expected) << "line " << number;
  }
}

const std::vector<ReadCase> ReadDoubleCases{
    {"Whole", "100", 100},
    {"Plus", "+100", 100},
    {"Minus", "-100", -100},
    {"BlanksAround", "  100.5  ", 100.5},
    {"TabsAround", "\t100.5\t", 100.5},
    {"MixedBlanksAround", " \t 100.5\t \t", 100.5},
    {"PeriodBehind", "12.", 12},
    {"PeriodInFront", ".5", 0.5},
    {"SignAndPeriodInFront", "-.5", -0.5},
    {"LeadingZeros", "00012.50", 12.5},
    {"Exponent", "1e2", 100},
    {"CapitalExponent", "1E2", 100},
    {"ExponentWithPlus", "1.5E+300", 1.5e300},
    {"ExponentWithMinus", "2E-16", 2e-16},
    {"PeriodThenExponent", "12.e1", 120},
    {"Largest", "1.7976931348623157E+308", LargestDouble},
    {"TooSmallToTell", "1e-400", 0},
    {"NegativeZero", "-0", 0},
    {"MoreDigitsThanADoubleHas", "0.1000000000000000055511151231257827", 0.1},
    {"TieIsNotRounded", "2.5", 2.5},
};

INSTANTIATE_TEST_SUITE_P(Values, ReadDoubleTest, ::testing::ValuesIn(ReadDoubleCases), NameOf);

TEST(SettingsLinesTest, NumberOfFourThousandDigitsIsRead) {
  const auto read = ReadWith(10, "1." + std::string(4000, '0') + "1");
  ASSERT_TRUE(read);
  EXPECT_EQ(read->record.MovieLength, 1);
}

class ReadIntegerTest : public ::testing::TestWithParam<ReadCase> {};

TEST_P(ReadIntegerTest, IsReadOnEveryLineOfItsType) {
  for (const auto number : LinesOfType<std::int16_t>()) {
    const auto read = ReadWith(number, GetParam().text);
    ASSERT_TRUE(read) << "line " << number;
    EXPECT_EQ(std::get<std::int16_t>(ValueAt(*read, number)), GetParam().expected)
        << "line " << number;
  }
}

const std::vector<ReadCase> ReadIntegerCases{
    {"Zero", "0", 0},
    {"NegativeZero", "-0", 0},
    {"Plus", "+7", 7},
    {"BlanksAround", " \t7\t ", 7},
    {"PeriodBehind", "7.", 7},
    {"Exponent", "1e2", 100},
    {"HalfGoesToZero", "0.5", 0},
    {"OneAndAHalf", "1.5", 2},
    {"TwoAndAHalf", "2.5", 2},
    {"ThreeAndAHalf", "3.5", 4},
    {"NegativeHalf", "-0.5", 0},
    {"NegativeTwoAndAHalf", "-2.5", -2},
    {"NegativeThreeAndAHalf", "-3.5", -4},
    {"JustAboveTwoAndAHalf", "2.5000000000001", 3},
    {"JustBelowThreeAndAHalf", "3.4999999999999", 3},
    {"Last", "32767", 32767},
    {"JustAboveTheLast", "32767.4", 32767},
    {"HalfAboveTheLast", "32767.5", 32767},
    {"AboveTheType", "40000", 32767},
    {"FarAboveTheType", "1e300", 32767},
    {"AboveThirtyTwoBits", "4294967297", 32767},
    {"First", "-32768", -32768},
    {"BelowTheType", "-40000", -32768},
    {"FarBelowTheType", "-1e300", -32768},
};

INSTANTIATE_TEST_SUITE_P(Values, ReadIntegerTest, ::testing::ValuesIn(ReadIntegerCases), NameOf);

class ReadSingleTest : public ::testing::TestWithParam<ReadCase> {};

TEST_P(ReadSingleTest, IsReadOnEveryLineOfItsType) {
  for (const auto number : LinesOfType<float>()) {
    const auto read = ReadWith(number, GetParam().text);
    ASSERT_TRUE(read) << "line " << number;
    EXPECT_EQ(std::get<float>(ValueAt(*read, number)), static_cast<float>(GetParam().expected))
        << "line " << number;
  }
}

const std::vector<ReadCase> ReadSingleCases{
    {"Whole", "6", 6},
    {"Fraction", "1.778", 1.778},
    {"BlanksAround", "\t 2.35 \t", 2.35},
    {"Negative", "-0.1", -0.1},
    {"WholeNumberBetweenTwoSinglesGoesToTheEven", "16777217", 16777216},
    {"NextWholeNumberBetweenTwoSinglesGoesToTheEven", "16777219", 16777220},
    {"LastOfTheType", "3.4028235E+38", LargestSingle},
    {"AboveTheType", "1e39", LargestSingle},
    {"FarAboveTheType", "1e300", LargestSingle},
    {"BelowTheType", "-1e39", -LargestSingle},
    {"FarBelowTheType", "-1e300", -LargestSingle},
    {"TooSmallToTell", "1e-60", 0},
};

INSTANTIATE_TEST_SUITE_P(Values, ReadSingleTest, ::testing::ValuesIn(ReadSingleCases), NameOf);

TEST(SettingsLinesTest, BlanksAroundABooleanAreAllowed) {
  for (const auto number : LinesOfType<bool>()) {
    for (const auto* blanks : {"", " ", "\t", " \t  "}) {
      for (const bool value : {true, false}) {
        const auto read =
            ReadWith(number, std::string(blanks) + (value ? "#TRUE#" : "#FALSE#") + blanks);
        ASSERT_TRUE(read) << "line " << number;
        EXPECT_EQ(std::get<bool>(ValueAt(*read, number)), value) << "line " << number;
      }
    }
  }
}

struct BoxCase {
  const char* name = "";
  const char* text = "";
  bool ticked = false;
};

class SaveOnExitTest : public ::testing::TestWithParam<BoxCase> {};

TEST_P(SaveOnExitTest, IsTickedForOneOnly) {
  const auto read = ReadWith(LineOfSaveOnExit, GetParam().text);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->saveOnExit, GetParam().ticked);
  auto expected = BuiltIn();
  expected.saveOnExit = GetParam().ticked;
  ExpectSame(*read, expected);
}

const std::vector<BoxCase> BoxCases{
    {"Zero", "0", false},
    {"One", "1", true},
    {"OneWithBlanksAround", " 1\t", true},
    {"OneAsAnExponent", "1e0", true},
    {"Two", "2", false},
    {"HalfGoesToZero", "0.5", false},
    {"JustAboveHalf", "0.50000000000001", true},
    {"AboveHalf", "0.6", true},
    {"BelowOneAndAHalf", "1.4", true},
    {"OneAndAHalfGoesToTwo", "1.5", false},
    {"MinusOne", "-1", false},
    {"BeyondTheType", "1e5", false},
    {"FarBeyondTheType", "1e300", false},
    {"OneMoreThanSixteenBits", "65537", false},
};

INSTANTIATE_TEST_SUITE_P(CheckBox, SaveOnExitTest, ::testing::ValuesIn(BoxCases), NameOf);

class Damage {
 public:
  explicit Damage(std::uint32_t seed) : random_(seed) {}

  std::size_t Below(std::size_t end) { return random_() % end; }

  // One to four small changes somewhere in the bytes.
  void Change(std::string& bytes) {
    for (auto changes = 1 + Below(4); changes > 0; --changes) {
      ChangeOnce(bytes);
    }
  }

 private:
  void ChangeOnce(std::string& bytes) {
    using namespace std::string_view_literals;
    constexpr std::array pieces{
        "\r"sv,   "\n"sv,   "\r\n"sv,         "\0"sv,     " "sv, "\t"sv, "-"sv,  "."sv,
        "e"sv,    "9"sv,    "1e999"sv,        "#TRUE#"sv, "#"sv, ","sv,  "E+"sv, "0"sv,
        "\xFF"sv, "\xC3"sv, "\xEF\xBB\xBF"sv, R"(")"sv};
    const auto at = Below(bytes.size() + 1);
    const auto length = std::min(bytes.size() - at, 1 + Below(12));
    switch (Below(6)) {
      case 0:
        bytes.insert(at, pieces.at(Below(pieces.size())));
        break;
      case 1:
        bytes.erase(at, length);
        break;
      case 2:
        bytes.insert(Below(bytes.size() + 1), bytes.substr(at, length));
        break;
      case 3:
        bytes.replace(at, std::min<std::size_t>(length, 1), pieces.at(Below(pieces.size())));
        break;
      case 4:
        if (at < bytes.size()) {
          bytes[at] = static_cast<char>(Below(256));
        }
        break;
      default:
        if (Below(20) == 0) {
          bytes.resize(at);
        } else if (at < bytes.size()) {
          bytes[at] = static_cast<char>('0' + Below(10));
        }
    }
  }

  std::mt19937 random_;
};

TEST(SettingsLinesTest, DamagedFileIsRefusedOrReadAndThenStable) {
  constexpr int rounds = 8000;
  std::vector<std::string> otherTexts;
  for (const auto& line : KnownLines()) {
    otherTexts.emplace_back(line.otherText);
  }
  const std::array sound{Joined(BuiltInTexts(), "\r\n"), Joined(BuiltInTexts(), "\n"),
                         Joined(otherTexts, "\r\n"), MixedEnds(),
                         Joined(TextsWith(42, "/\xC3\xA4/\xF0\x9F\x8E\xB5 \"x\" #.wav"), "\n")};
  int readable = 0;
  Damage damage(20260117);
  for (int round = 0; round < rounds; ++round) {
    auto bytes = sound.at(damage.Below(sound.size()));
    damage.Change(bytes);
    const auto first = ReadFrom(bytes, BuiltInSettings());
    if (!first) {
      continue;
    }
    ++readable;
    const auto written = Written(*first);
    ASSERT_EQ(TextsOf(written).size(), 42U) << bytes;
    const auto second = ReadFrom(written);
    ASSERT_TRUE(second) << bytes;
    ASSERT_EQ(Written(*second), written) << bytes;
  }
  RecordProperty("readable", readable);
  EXPECT_GT(readable, rounds / 20);
  EXPECT_LT(readable, rounds - rounds / 20);
}

}  // namespace
}  // namespace brindle
