// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "wav/pass_records.h"

namespace brindle {
namespace {

TEST(PassRecordsTest, LinksNamedLikeRecordsAreLeftAlone) {
  const TemporaryFolder folder;
  const TemporaryFolder elsewhere;
  elsewhere.Put("victim", "not a record, and not here");
  ASSERT_TRUE(QFile::link(elsewhere.PathOf("victim"), folder.PathOf("link.undo")));
  const auto names = folder.Names();
  RecordProblems problems;
  EXPECT_TRUE(PassRecords(folder.Path()).Find(&problems).empty());
  EXPECT_EQ(problems.setAside, QStringList());
  EXPECT_EQ(folder.Names(), names);
  EXPECT_EQ(elsewhere.Bytes("victim"), "not a record, and not here");
}

}  // namespace
}  // namespace brindle
