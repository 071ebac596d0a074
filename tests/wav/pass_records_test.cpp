// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/pass_records.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "base/files/system_disk.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/wav/memory_disk.h"
#include "tests/wav/normalization_support.h"
#include "tests/wav/record_bytes.h"
#include "tests/wav/wav_builder.h"
#include "tests/wav/way_back_support.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/pass_record.h"
#include "wav/piece_grid.h"
#include "wav/record_hash.h"
#include "wav/undo_pass.h"
#include "wav/way_back.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

std::string Original() { return WavParts{.samples = Noise(Block + 300)}.Bytes(); }

// The facts of a pass over one piece of a recording that nobody looks at.
PassFacts FactsOf(const QString& recording, qint64 created) {
  PassFacts facts;
  facts.path = recording;
  facts.stamp = {.volume = 7, .number = static_cast<quint64>(created) + 1000};
  facts.created = created;
  facts.fileLength = 144;
  facts.headLength = 44;
  facts.grid = {.start = 45, .end = 145, .size = BlockSize};
  facts.bitsRoom = 1;
  return facts;
}

// Puts the record of such a pass into the folder, as it is when the pass has ended.
void PutRecord(const Disk& disk, const QString& path, const PassFacts& facts, bool isComplete) {
  auto record = PassRecord::Create(disk, path, facts);
  ASSERT_TRUE(record) << record.error().reason.toStdString();
  PieceBuffer piece(facts.grid.size);
  const auto words = piece.Words(facts.grid.BytesOf(0));
  ASSERT_TRUE(record->Protect(0, piece, HashOfPiece(words)));
  if (isComplete) {
    PieceFacts noted;
    noted.bitsHash = HashOf({});
    ASSERT_TRUE(record->Note(0, noted));
    ASSERT_TRUE(record->Mark(1, 0));
    ASSERT_TRUE(record->GiveRoomBack());
  }
}

QString RecordPath(qint64 number) {
  return QString::fromUtf8(StateFolder) + u"/%1.undo"_s.arg(number, 16, 16, QChar(u'0'));
}
QString RecordingNumber(qint64 number) { return u"/music/%1.wav"_s.arg(number); }

std::vector<qint64> CreatedOf(const std::vector<FoundRecord>& found) {
  std::vector<qint64> created;
  for (const auto& record : found) {
    created.push_back(record.facts.created);
  }
  return created;
}

QStringList AsideIn(const MemoryDisk& disk) {
  RecordProblems problems;
  static_cast<void>(RecordsOn(disk).Find(&problems));
  return problems.setAside;
}

TEST(PassRecordsTest, AnEmptyOrMissingFolderHasNoRecords) {
  const MemoryDisk disk({});
  EXPECT_TRUE(RecordsOn(disk).Find().empty());
  EXPECT_FALSE(RecordsOn(disk).FindFor(RecordingPath()));
  const TemporaryFolder folder;
  EXPECT_TRUE(PassRecords(folder.PathOf("missing")).Find().empty());
  EXPECT_FALSE(QDir(folder.PathOf("missing")).exists());
}

TEST(PassRecordsTest, TheNewestComesFirst) {
  const MemoryDisk disk({});
  for (const qint64 created : {30, 10, 20, 50, 40}) {
    PutRecord(disk, RecordPath(created), FactsOf(RecordingNumber(created), created), created != 20);
  }
  EXPECT_EQ(CreatedOf(RecordsOn(disk).Find()), (std::vector<qint64>{50, 40, 30, 20, 10}));
}

TEST(PassRecordsTest, SayHowFarThePassCame) {
  const DiskImage image{{Recording, WavParts{.samples = Noise(4 * Block)}.Bytes()}};
  std::unique_ptr<const MemoryDisk> made;
  std::vector<FoundRecord> found;
  // A pass that waits for a busy machine says so, too, and is aborted before its first piece is
  // done.
  for (int tries = 0; tries < 100 && (found.empty() || found.front().boundary == 0); ++tries) {
    made = std::make_unique<MemoryDisk>(image);
    ASSERT_EQ(NormalizeOn(*made, {}, 1), "aborted");
    found = RecordsOn(*made).Find();
    ASSERT_EQ(found.size(), 1U);
  }
  const auto& disk = *made;
  EXPECT_FALSE(found.front().isComplete);
  EXPECT_EQ(found.front().boundary, 1);
  EXPECT_EQ(found.front().Percent(), 25);
  EXPECT_EQ(found.front().facts.path, RecordingPath());
  EXPECT_EQ(FinishOn(disk), "completed");
  found = RecordsOn(disk).Find();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_TRUE(found.front().isComplete);
  EXPECT_EQ(found.front().Percent(), 100);
}

TEST(PassRecordsTest, APercentageIsRoundedDown) {
  FoundRecord found;
  found.facts.fileLength = 1000;
  found.facts.grid = {.start = 1, .end = 1001, .size = 10};
  for (const qint64 boundary : {0, 1, 49, 50, 99, 100}) {
    found.boundary = boundary;
    EXPECT_EQ(found.Percent(), boundary);
  }
  found.facts.fileLength = 1001;
  EXPECT_EQ(found.Percent(), 99);
  found.facts.fileLength = 0;
  EXPECT_EQ(found.Percent(), 0);
}

// What is no record, or none for this version.

TEST(PassRecordsTest, ForeignFilesAreSetAsideOnce) {
  MemoryDisk disk({});
  disk.Put("/state/text.undo", "What I undid today, and why");
  disk.Put("/state/settings.ini", "[none of its business]");
  disk.Put("/state/older.undo.unusable", "set aside before");
  const auto before = disk.Files();
  EXPECT_EQ(AsideIn(disk), QStringList(u"/state/text.undo.unusable"_s));
  EXPECT_EQ(AsideIn(disk), QStringList());
  auto after = before;
  after["/state/text.undo.unusable"] = after["/state/text.undo"];
  after.erase("/state/text.undo");
  EXPECT_EQ(disk.Files(), after);
}

TEST(PassRecordsTest, RecordsOfANewerVersionAreSetAside) {
  MemoryDisk disk({});
  const auto facts = FactsOf(RecordingPath(), 1);
  PutRecord(disk, RecordPath(1), facts, true);
  auto record = *disk.Bytes(RecordPath(1).toStdString());
  record[MarkBytes - 1] = '2';
  disk.Put(RecordPath(1).toStdString(), record);
  const auto opened = PassRecord::Open(disk, RecordPath(1), RecordUse::Working);
  ASSERT_TRUE(opened && !*opened);
  EXPECT_EQ(opened->error(), RecordFault::Newer);
  EXPECT_EQ(AsideIn(disk), QStringList(RecordPath(1) + u".unusable"_s));
  EXPECT_EQ(disk.Bytes(RecordPath(1).toStdString() + ".unusable"), record);
}

TEST(PassRecordsTest, RecordsThatWereNeverBegunAreRemoved) {
  MemoryDisk disk({});
  disk.Put("/state/empty.undo", "");
  disk.Put("/state/room.undo", std::string(10000, '\0'));
  disk.Put("/state/half.undo", "Brindle" + std::string(10000, '\0'));
  // Created, but nothing was protected yet.
  ASSERT_TRUE(PassRecord::Create(disk, RecordPath(1), FactsOf(RecordingPath(), 1)));
  EXPECT_EQ(AsideIn(disk), QStringList());
  EXPECT_EQ(disk.Files(), DiskImage());
}

TEST(PassRecordsTest, WhatCannotBeSetAsideStaysAndIsNotReported) {
  MemoryDisk disk({});
  disk.Put("/state/text.undo", "foreign");
  disk.SetFailure(
      [](MemoryDisk::Call call, const std::string&) { return call == MemoryDisk::Call::Rename; });
  EXPECT_EQ(AsideIn(disk), QStringList());
  EXPECT_EQ(disk.Bytes("/state/text.undo"), "foreign");
}

TEST(PassRecordsTest, FoldersNamedLikeRecordsAreLeftAlone) {
  const TemporaryFolder folder;
  ASSERT_TRUE(QDir(folder.Path()).mkdir(u"folder.undo"_s));
  const auto names = folder.Names();
  RecordProblems problems;
  EXPECT_TRUE(PassRecords(folder.Path()).Find(&problems).empty());
  EXPECT_EQ(problems.setAside, QStringList());
  EXPECT_EQ(folder.Names(), names);
}

// Two programs.

TEST(PassRecordsTest, ARecordInUseIsLeftOutAndLeftAlone) {
  const MemoryDisk disk({{Recording, Original()}});
  ASSERT_EQ(NormalizeOn(disk, {}), "completed");
  const auto found = RecordsOn(disk).FindFor(RecordingPath());
  ASSERT_TRUE(found);
  {
    const auto used = RecordsOn(disk).Open(*found);
    ASSERT_TRUE(used);
    const auto before = disk.Files();
    EXPECT_TRUE(RecordsOn(disk).Find().empty());
    EXPECT_FALSE(RecordsOn(disk).FindFor(RecordingPath()));
    const auto second = RecordsOn(disk).Open(*found);
    ASSERT_FALSE(second);
    EXPECT_EQ(second.error().reason, u"another program is using the file"_s);
    EXPECT_EQ(disk.Files(), before);
  }
  EXPECT_TRUE(RecordsOn(disk).FindFor(RecordingPath()));
}

TEST(PassRecordsTest, ARecordThatAnotherProgramLooksAtIsFound) {
  const MemoryDisk disk({{Recording, Original()}});
  ASSERT_EQ(NormalizeOn(disk, {}), "completed");
  const auto path = RecordsOn(disk).FindFor(RecordingPath()).value().path;
  const auto looked = PassRecord::Open(disk, path, RecordUse::Looking);
  ASSERT_TRUE(looked && *looked);
  EXPECT_TRUE(RecordsOn(disk).FindFor(RecordingPath()));
  const auto working = PassRecord::Open(disk, path, RecordUse::Working);
  ASSERT_TRUE(working);
  ASSERT_FALSE(*working);
  EXPECT_EQ(working->error(), RecordFault::InUse);
}

TEST(PassRecordsTest, ARecordThatCannotBeReadIsToldAndStays) {
  MemoryDisk disk({{Recording, Original()}});
  ASSERT_EQ(NormalizeOn(disk, {}), "completed");
  const auto record = RecordsOn(disk).FindFor(RecordingPath()).value().path;
  const auto before = disk.Files();
  disk.SetFailure([&](MemoryDisk::Call call, const std::string& path) {
    return call == MemoryDisk::Call::Open && path == record.toStdString();
  });
  const auto messages = WayBack(QString::fromLatin1(StateFolder), disk).SetUnusableAside();
  ASSERT_EQ(messages.size(), 1);
  EXPECT_EQ(messages.front(), CannotRead(ErrorOf(record, u"the disk refuses"_s)));
  EXPECT_EQ(disk.Files(), before);
}

TEST(PassRecordsTest, ARecordThatWasRemovedMeanwhileIsAnError) {
  const MemoryDisk disk({{Recording, Original()}});
  ASSERT_EQ(NormalizeOn(disk, {}), "completed");
  const auto found = RecordsOn(disk).FindFor(RecordingPath());
  ASSERT_TRUE(found);
  RecordsOn(disk).Remove(found->path);
  RecordsOn(disk).Remove(found->path);
  EXPECT_FALSE(RecordsOn(disk).Open(*found));
}

TEST(PassRecordsTest, ARecordingInUseIsNotTouched) {
  const MemoryDisk disk({{Recording, Original()}});
  ASSERT_EQ(NormalizeOn(disk, {}), "completed");
  const auto before = disk.Files();
  const auto other = disk.Open(RecordingPath(), OpenFor::Changing);
  ASSERT_TRUE(other && (*other)->Lock(true));
  const auto message = CannotWriteRecording("another program is using the file");
  EXPECT_EQ(UndoOn(disk), message);
  EXPECT_EQ(FinishOn(disk), message);
  EXPECT_EQ(disk.Files().at(Recording), before.at(Recording));
  (*other)->Unlock();
  EXPECT_EQ(UndoOn(disk), "completed");
}

// What is kept.

constexpr auto Most = static_cast<qint64>(PassRecords::MostRecords);

TEST(PassRecordsTest, OnlyTheNewestCompletePassesAreKept) {
  const MemoryDisk disk({});
  for (qint64 i = 1; i <= Most + 5; ++i) {
    PutRecord(disk, RecordPath(i), FactsOf(RecordingNumber(i), i), true);
  }
  RecordsOn(disk).RemoveOlderThan(FactsOf(RecordingNumber(Most + 5), Most + 5));
  const auto created = CreatedOf(RecordsOn(disk).Find());
  EXPECT_EQ(created.size(), PassRecords::MostRecords);
  EXPECT_EQ(created.front(), Most + 5);
  EXPECT_EQ(created.back(), 6);
}

TEST(PassRecordsTest, InterruptedPassesAreNeverRemovedByTheLimits) {
  const MemoryDisk disk({});
  for (qint64 i = 1; i <= Most + 5; ++i) {
    PutRecord(disk, RecordPath(i), FactsOf(RecordingNumber(i), i), i > 3);
  }
  RecordsOn(disk).RemoveOlderThan(FactsOf(RecordingNumber(Most + 5), Most + 5));
  const auto created = CreatedOf(RecordsOn(disk).Find());
  ASSERT_EQ(created.size(), PassRecords::MostRecords + 3);
  EXPECT_EQ(std::vector<qint64>(created.end() - 4, created.end()),
            (std::vector<qint64>{6, 3, 2, 1}));
}

TEST(PassRecordsTest, WhatWasSetAsideGoesWhenThereIsTooMuch) {
  MemoryDisk disk({});
  for (qint64 i = 1; i < Most - 1; ++i) {
    PutRecord(disk, RecordPath(i), FactsOf(RecordingNumber(i), i), true);
  }
  disk.Put("/state/a.undo.unusable", "foreign");
  disk.Put("/state/b.undo.unusable", "foreign");
  disk.Put("/state/another.unusable", "none of ours");
  RecordsOn(disk).RemoveOlderThan(FactsOf(RecordingNumber(Most), Most));
  EXPECT_EQ(RecordsOn(disk).Find().size(), PassRecords::MostRecords - 2);
  EXPECT_TRUE(disk.Bytes("/state/a.undo.unusable"));
  EXPECT_FALSE(disk.Bytes("/state/b.undo.unusable"));
  EXPECT_TRUE(disk.Bytes("/state/another.unusable"));
}

// As long as no more than these are kept, the room they take counts.
TEST(PassRecordsTest, OnlySoManyBytesAreKept) {
  const TemporaryFolder folder;
  const PassRecords records(folder.Path());
  const auto path = [&](qint64 number) {
    return folder.Path() + u"/%1.undo"_s.arg(number, 16, 16, QChar(u'0'));
  };
  // The room is set aside in no file system that knows of holes.
  const auto put = [&](qint64 number, qint64 bytes, bool isComplete) {
    PutRecord(TheSystemsDisk(), path(number), FactsOf(RecordingNumber(number), number), isComplete);
    std::filesystem::resize_file(path(number).toStdU16String(), static_cast<std::uintmax_t>(bytes));
  };
  const qint64 much = PassRecords::MostBytes / 2;
  put(1, much, false);
  put(2, much, true);
  put(3, 200'000, true);
  put(4, much, true);
  put(5, PassRecords::MostBytes * 2, true);
  records.RemoveOlderThan(FactsOf(RecordingNumber(5), 5));
  // The newest one stays, however long it is, and does not count.
  EXPECT_EQ(CreatedOf(records.Find()), (std::vector<qint64>{5, 4, 3, 1}));
}

TEST(PassRecordsTest, OlderOnesOfTheSameRecordingAreRemoved) {
  const MemoryDisk disk({});
  const auto ofOneFile = [](qint64 created) {
    auto facts = FactsOf(RecordingNumber(1), created);
    facts.stamp.number = 1;
    return facts;
  };
  auto another = ofOneFile(3);
  another.fileLength += 2;
  auto elsewhere = ofOneFile(2);
  elsewhere.stamp.number = 2;
  PutRecord(disk, RecordPath(0), ofOneFile(0), true);
  PutRecord(disk, RecordPath(1), ofOneFile(1), false);
  PutRecord(disk, RecordPath(2), elsewhere, true);
  PutRecord(disk, RecordPath(3), another, true);
  PutRecord(disk, RecordPath(4), ofOneFile(4), true);
  PutRecord(disk, RecordPath(5), ofOneFile(5), true);
  RecordsOn(disk).RemoveOlderThan(ofOneFile(4));
  // An interrupted pass is needed once the newer one is undone. Another recording may have taken
  // the path or the number of this one, and what another program began later is none of its
  // business.
  EXPECT_EQ(CreatedOf(RecordsOn(disk).Find()), (std::vector<qint64>{5, 4, 3, 2, 1}));
}

TEST(PassRecordsTest, ARecordWhoseRecordingIsGoneIsKept) {
  const MemoryDisk disk({{Recording, Original()}});
  ASSERT_EQ(NormalizeOn(disk, {}), "completed");
  ASSERT_TRUE(disk.Remove(RecordingPath()));
  EXPECT_EQ(RecordsOn(disk).Find().size(), 1U);
  PutRecord(disk, RecordPath(1), FactsOf(RecordingNumber(1), 9'999'999'999'999), true);
  RecordsOn(disk).RemoveOlderThan(FactsOf(RecordingNumber(1), 9'999'999'999'999));
  EXPECT_EQ(RecordsOn(disk).Find().size(), 2U);
  EXPECT_EQ(UndoOn(disk), "no record");
  EXPECT_EQ(RecordsOn(disk).Find().size(), 2U);
}

// On the system's disks.

class RecordsOnDisk : public ::testing::Test {
 protected:
  void SetUp() override {
    folder_.Put("sound.wav", Original());
    ASSERT_EQ(Normalize(folder_.PathOf("sound.wav")), "completed");
    ASSERT_NE(folder_.Bytes("sound.wav"), Original());
  }

  [[nodiscard]] std::string Normalize(const QString& path) const {
    const ReadClock clock;
    Normalization pass({.source = path, .isInPlace = true});
    if (const auto opened = pass.Open(); !opened) {
      return TextOf(opened);
    }
    auto facts = pass.FactsFor(2, Buffering::Single, {});
    auto record = records_.Create(*facts);
    if (!record) {
      return CannotWrite(record.error()).toStdString();
    }
    if (const auto kept = pass.KeepRecord(std::move(*record)); !kept) {
      return TextOf(kept);
    }
    pass.Start(GainTable(2), Buffering::Single, clock);
    return brindle::Run(pass);
  }
  [[nodiscard]] std::string Undo(const QString& path) const {
    const ReadClock clock;
    const auto found = records_.FindFor(path);
    if (!found) {
      return "no record";
    }
    auto record = records_.Open(*found);
    if (!record) {
      return CannotRead(record.error()).toStdString();
    }
    UndoPass undo(path, std::move(*record), clock);
    return brindle::Run(undo);
  }

  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }
  [[nodiscard]] const PassRecords& Records() const { return records_; }

 private:
  TemporaryFolder folder_;
  PassRecords records_{folder_.Path() + u"/state/of/the/program"_s};
};

TEST_F(RecordsOnDisk, AnUndoGivesTheOriginal) {
  EXPECT_EQ(Undo(Folder().PathOf("sound.wav")), "completed");
  EXPECT_EQ(FirstDifference(Folder().Bytes("sound.wav"), Original()), "none");
}

TEST_F(RecordsOnDisk, ARecordingIsKnownAfterItWasRenamed) {
  ASSERT_TRUE(QFile::rename(Folder().PathOf("sound.wav"), Folder().PathOf("renamed.wav")));
  EXPECT_FALSE(Records().FindFor(Folder().PathOf("other.wav")));
  EXPECT_EQ(Undo(Folder().PathOf("renamed.wav")), "completed");
  EXPECT_EQ(FirstDifference(Folder().Bytes("renamed.wav"), Original()), "none");
}

TEST_F(RecordsOnDisk, AnotherFileAtThePathIsNotTouched) {
  const auto path = Folder().PathOf("sound.wav");
  ASSERT_TRUE(QFile::rename(path, Folder().PathOf("renamed.wav")));
  const auto other = WavParts{.samples = Noise(Block + 300), .channels = 1}.Bytes();
  Folder().Put("sound.wav", other);
  EXPECT_EQ(Undo(path), "no record");
  EXPECT_EQ(FirstDifference(Folder().Bytes("sound.wav"), other), "none");
}

TEST_F(RecordsOnDisk, ANewerPassReplacesTheOlderRecordEvenUnderAnotherName) {
  ASSERT_TRUE(QFile::rename(Folder().PathOf("sound.wav"), Folder().PathOf("renamed.wav")));
  ASSERT_EQ(Normalize(Folder().PathOf("renamed.wav")), "completed");
  const auto found = Records().Find();
  ASSERT_EQ(found.size(), 2U);
  Records().RemoveOlderThan(found.front().facts);
  ASSERT_EQ(Records().Find().size(), 1U);
  EXPECT_EQ(Records().Find().front().facts.path, Folder().PathOf("renamed.wav"));
}

}  // namespace
}  // namespace brindle
