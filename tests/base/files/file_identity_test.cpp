// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/files/file_identity.h"

#include <limits>
#include <ostream>
#include <vector>

#include <QString>
#include <gtest/gtest.h>

#include "tests/support/named_case.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr auto Ones = std::numeric_limits<quint64>::max();

struct IdentityCase {
  const char* name = "";
  FileIdentity one;
  FileIdentity other;
  bool isSame = false;
};

class FileIdentityTest : public ::testing::TestWithParam<IdentityCase> {};

TEST_P(FileIdentityTest, IsThatOfOneFileOrOfTwo) {
  const auto& [name, one, other, isSame] = GetParam();
  EXPECT_EQ(one.IsSameFile(other), isSame);
  EXPECT_EQ(other.IsSameFile(one), isSame);
}

INSTANTIATE_TEST_SUITE_P(
    Files, FileIdentityTest,
    ::testing::ValuesIn(std::vector<IdentityCase>{
        {"OneNumber", {1, 0, 7, u"a"_s}, {1, 0, 7, u"b"_s}, true},
        {"OneNumberWithoutPaths", {1, 0, 7, {}}, {1, 0, 7, {}}, true},
        {"TwoNumbers", {1, 0, 7, u"a"_s}, {1, 0, 8, u"a"_s}, false},
        {"TwoVolumes", {1, 0, 7, u"a"_s}, {2, 0, 7, u"a"_s}, false},
        {"OneLongNumber", {1, 5, 7, {}}, {1, 5, 7, {}}, true},
        {"LongNumbersWithDifferentUpperHalves", {1, 5, 7, u"a"_s}, {1, 6, 7, u"a"_s}, false},
        {"NoNumbersOnePath", {1, 0, 0, u"a"_s}, {1, 0, 0, u"a"_s}, true},
        {"NoNumbersOnePathInAnotherCase", {1, 0, 0, u"D:\\A"_s}, {1, 0, 0, u"d:\\a"_s}, true},
        {"NoNumbersTwoPaths", {1, 0, 0, u"a"_s}, {1, 0, 0, u"b"_s}, false},
        {"NoNumbersNoPaths", {1, 0, 0, {}}, {1, 0, 0, {}}, false},
        {"NoNumbersAPathAndNone", {1, 0, 0, u"a"_s}, {1, 0, 0, {}}, false},
        {"OnesTwoPaths", {1, 0, Ones, u"a"_s}, {1, 0, Ones, u"b"_s}, false},
        {"OnesOnePath", {1, 0, Ones, u"a"_s}, {1, 0, Ones, u"a"_s}, true},
        {"OnesNoPaths", {1, 0, Ones, {}}, {1, 0, Ones, {}}, false},
        {"OnesTwiceTwoPaths", {1, Ones, Ones, u"a"_s}, {1, Ones, Ones, u"b"_s}, false},
        {"OnesTwiceNoPaths", {1, Ones, Ones, {}}, {1, Ones, Ones, {}}, false},
        {"OnesInFrontOfANumber", {1, Ones, 7, {}}, {1, Ones, 7, {}}, true},
    }),
    NameOf);

TEST(FileNumberTest, IsNoneWhereTheSystemGivesNone) {
  EXPECT_EQ((FileIdentity{.low = 7}.Number()), 7U);
  EXPECT_EQ((FileIdentity{.high = 5, .low = 7}.Number()), 2U);
  EXPECT_EQ(FileIdentity().Number(), 0U);
  EXPECT_EQ((FileIdentity{.low = Ones}.Number()), 0U);
  EXPECT_EQ((FileIdentity{.high = Ones, .low = Ones}.Number()), 0U);
}

}  // namespace
}  // namespace brindle
