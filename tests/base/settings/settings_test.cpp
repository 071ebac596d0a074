// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/settings/settings.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

#include <QString>
#include <gtest/gtest.h>

#include "base/settings/settings_lines.h"
#include "tests/base/settings/known_lines.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

static_assert(std::is_same_v<decltype(Settings::SpinRepeatInterval), float>);
static_assert(std::is_same_v<decltype(Settings::SpinFirstDelay), float>);
static_assert(std::is_same_v<decltype(Settings::AdvancedCaller), std::int16_t>);
static_assert(std::is_same_v<decltype(Settings::SplashDone), std::int16_t>);
static_assert(std::is_same_v<decltype(Settings::ResolutionIncrement), std::int16_t>);

struct FieldCase {
  KnownLine line;
};

void PrintTo(const FieldCase& row, std::ostream* out) { *out << row.line.name; }

constexpr auto NameOf = [](const auto& info) { return std::string(info.param.line.name); };

std::vector<FieldCase> FieldsOfTheRecord() {
  std::vector<FieldCase> fields;
  for (const auto& line : KnownLines()) {
    if (!std::holds_alternative<SaveOnExitLine>(line.field)) {
      fields.push_back({line});
    }
  }
  return fields;
}

bool IsKeptByDefaults(const KnownLine& line) {
  const std::string_view name = line.name;
  return name == "ExtraMaterial" || name == "HDVideoMode";
}

class FieldTest : public ::testing::TestWithParam<FieldCase> {
 protected:
  [[nodiscard]] static const KnownLine& Line() { return GetParam().line; }
};

TEST_P(FieldTest, StartsAtZeroOrEmpty) {
  const Value start = ValueIn({Settings{}}, Line().field);
  const Value zero = std::visit(
      [](const auto& held) { return Value(std::decay_t<decltype(held)>{}); }, Line().builtIn);
  EXPECT_EQ(start, zero) << Shown(start);
}

TEST_P(FieldTest, HasItsBuiltInValue) {
  const Value builtIn = ValueIn({BuiltInSettings()}, Line().field);
  EXPECT_EQ(builtIn, Line().builtIn) << Shown(builtIn);
}

TEST_P(FieldTest, HasItsBuiltInValueAfterAResetOfAFreshRecord) {
  Stored stored;
  ResetToBuiltIn(stored.record);
  const Value reset = ValueIn(stored, Line().field);
  EXPECT_EQ(reset, Line().builtIn) << Shown(reset);
}

TEST_P(FieldTest, IsResetFromAnotherValueUnlessItIsOneOfTheTwoKept) {
  Stored stored;
  Put(Line().other, Line().field, stored);
  ResetToBuiltIn(stored.record);
  const Value reset = ValueIn(stored, Line().field);
  EXPECT_EQ(reset, IsKeptByDefaults(Line()) ? Line().other : Line().builtIn) << Shown(reset);
}

INSTANTIATE_TEST_SUITE_P(Record, FieldTest, ::testing::ValuesIn(FieldsOfTheRecord()), NameOf);

TEST(SettingsTest, ExtraMaterialKeepsTwentyFiveWhenTheDefaultsAreLoaded) {
  Settings record;
  record.ExtraMaterial = 25;
  record.HDVideoMode = 1;
  record.MovieLength = 90;
  ResetToBuiltIn(record);
  EXPECT_EQ(record.ExtraMaterial, 25);
  EXPECT_EQ(record.HDVideoMode, 1);
  EXPECT_EQ(record.MovieLength, 100);
}

TEST(SettingsTest, RunTimeFieldsStartAtZeroOrEmpty) {
  const Settings record;
  EXPECT_TRUE(record.AppFolder.isEmpty());
  EXPECT_EQ(record.SpinRepeatInterval, 0.0F);
  EXPECT_EQ(record.SpinFirstDelay, 0.0F);
  EXPECT_EQ(record.AdvancedCaller, 0);
  EXPECT_EQ(record.SplashDone, 0);
  EXPECT_EQ(record.ResolutionIncrement, 0);
}

TEST(SettingsTest, RunTimeFieldsKeepTheirValuesWhenTheDefaultsAreLoaded) {
  Settings record;
  record.AppFolder = u"/home/ann/brindle"_s;
  record.SpinRepeatInterval = 0.05F;
  record.SpinFirstDelay = 0.5F;
  record.AdvancedCaller = 2;
  record.SplashDone = 1;
  record.ResolutionIncrement = 16;
  ResetToBuiltIn(record);
  EXPECT_EQ(record.AppFolder.toStdString(), "/home/ann/brindle");
  EXPECT_EQ(record.SpinRepeatInterval, 0.05F);
  EXPECT_EQ(record.SpinFirstDelay, 0.5F);
  EXPECT_EQ(record.AdvancedCaller, 2);
  EXPECT_EQ(record.SplashDone, 1);
  EXPECT_EQ(record.ResolutionIncrement, 16);
}

}  // namespace
}  // namespace brindle
