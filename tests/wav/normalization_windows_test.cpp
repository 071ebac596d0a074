// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cstddef>
#include <string_view>
#include <windows.h>

#include <QDir>
#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "tests/wav/normalization_support.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/pass_windows_support.h"
#include "wav/gain.h"
#include "wav/normalization.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

// Sources.

TEST_F(SourceOfPass, Devices) {
  for (const auto& device :
       {u"NUL"_s, u"COM1"_s, Folder().PathOf("NUL"), Folder().PathOf("COM1"), u"\\\\.\\NUL"_s}) {
    const auto run = [&](bool isInPlace) {
      return RunPass({.source = device, .target = Target(), .isInPlace = isInPlace},
                     Buffering::Single, Gain, Questions());
    };
    EXPECT_EQ(run(false), CannotReadBecause(device, "not a file"));
    EXPECT_TRUE(run(true).ends_with(NativePath(device) + ": not a file"));
  }
  EXPECT_EQ(Folder().Names(), Names{"source.wav"});
  ExpectNothingAsked();
}

TEST_F(SourceOfPass, HeldAloneByAnother) {
  {
    const HeldFile holder(Source(), GENERIC_READ, 0);
    ASSERT_TRUE(holder.IsHeld());
    ExpectTargetLeftAlone(CannotReadBecause(Source(), ReasonOf(ERROR_SHARING_VIOLATION)));
  }
  ExpectSourceIntact();
}

TEST_F(SourceOfPass, ThatOthersMayOnlyRead) {
  {
    const HeldFile holder(Source(), GENERIC_READ, FILE_SHARE_READ);
    ASSERT_TRUE(holder.IsHeld());
    const auto message = CannotWriteBecause(Source(), ReasonOf(ERROR_SHARING_VIOLATION));
    EXPECT_EQ(RunInPlace(), message);
    EXPECT_EQ(RunTo(Source()), message) << "with itself as the target";
    EXPECT_EQ(RunTo(Target()), "completed");
  }
  ExpectSourceIntact();
  ExpectMapped("target.wav");
}

TEST_F(ChangingSource, CannotBeDeleted) {
  for (const auto& moment : Moments) {
    StartAnew();
    EXPECT_EQ(RunWith(moment, [&] { EXPECT_FALSE(QFile::remove(Source())); }), "completed")
        << moment.name;
    ExpectMapped(moment.isInPlace ? "source.wav" : "target.wav");
  }
}

// Targets.

TEST_F(TargetOfPass, Devices) {
  for (const auto& device :
       {Folder().PathOf("NUL"), Folder().PathOf("nul"), Folder().PathOf("COM1"),
        QDir::toNativeSeparators(Folder().PathOf("NUL")), u"\\\\.\\NUL"_s, u"\\\\.\\COM1"_s}) {
    ExpectRefused(device, "not a file");
  }
}

TEST_F(TargetOfPass, PathsThatLeanOnTheCurrentFolderOrDrive) {
  for (const auto& path : {u"C:target.wav"_s, u"\\target.wav"_s, u"/target.wav"_s, u"C:"_s}) {
    ExpectRefused(path, "not an absolute path");
  }
}

TEST_F(TargetOfPass, DevicesWithoutAFolder) {
  for (const auto& device : {u"NUL"_s, u"COM1"_s}) {
    ExpectRefused(device, "not an absolute path");
  }
}

TEST_F(TargetOfPass, OnADriveThatIsNotThere) {
  QString drive;
  for (const char16_t letter : std::u16string_view(u"QRSTUVWXYZ")) {
    if ((GetLogicalDrives() >> (letter - u'A') & 1U) == 0) {
      drive = QString(QChar(letter));
      break;
    }
  }
  ASSERT_FALSE(drive.isEmpty()) << "this machine has all of them";
  const auto path = drive + u":\\x.wav"_s;
  // Some systems miss the folder, some the file.
  const auto reason = ReasonOf(HeldFile(path, GENERIC_READ, SharedForChanging).Error());
  ExpectRefused(path, reason);
  ExpectRefused(QDir::fromNativeSeparators(path), reason);
}

TEST_F(TargetOfPass, HeldAloneByAnotherStays) {
  for (const char* bytes : {"an older file", ""}) {
    Folder().Put("target.wav", bytes);
    {
      const HeldFile holder(Target(), GENERIC_READ, 0);
      ASSERT_TRUE(holder.IsHeld());
      ExpectRefused(Target(), ReasonOf(ERROR_SHARING_VIOLATION));
    }
    EXPECT_EQ(Folder().Bytes("target.wav"), bytes);
  }
}

TEST_F(TargetOfPass, ThatOthersMayOnlyReadStays) {
  Folder().Put("target.wav", "an older file");
  {
    const HeldFile holder(Target(), GENERIC_READ, FILE_SHARE_READ);
    ASSERT_TRUE(holder.IsHeld());
    ExpectRefused(Target(), ReasonOf(ERROR_SHARING_VIOLATION));
  }
  EXPECT_EQ(Folder().Bytes("target.wav"), "an older file");
}

// As most programs hold a file: it can be changed, but not deleted.
TEST_F(TargetOfPass, ThatCannotBeDeletedStays) {
  Folder().Put("target.wav", "an older file");
  Questions().answer = true;
  {
    const HeldFile holder(Target(), GENERIC_READ, SharedForChanging);
    ASSERT_TRUE(holder.IsHeld());
    EXPECT_EQ(RunTo(Target()), CannotWriteBecause(Target(), ReasonOf(ERROR_SHARING_VIOLATION)));
  }
  EXPECT_EQ(Questions().asked, 1);
  EXPECT_EQ(Questions().worksInPlace, 0);
  EXPECT_EQ(Folder().Bytes("target.wav"), "an older file");
  ExpectSourceIntact();
}

// Who shares it for writing may also cut it short.
TEST_F(TargetOfPass, CutShortByAnotherHasNoHoleAndIsNoSuccess) {
  constexpr qint64 length = 1000;
  ObserverOfPass observer;
  observer.onUpdate = [&](std::size_t index) {
    if (index == 0) {
      EXPECT_TRUE(QFile::resize(Target(), length));
    }
  };
  {
    WatchedPass pass;
    ASSERT_EQ(pass.Open(Folder().Files(), Questions()), Opened::Yes);
    const ReadClock clock(1);
    EXPECT_EQ(pass.Run(GainTable(Gain), Buffering::Single, clock, observer), Ended::Failed);
    EXPECT_EQ(TextOf(pass.Error()), CannotWriteBecause(Target(), "the file became shorter"));
  }
  EXPECT_EQ(QFile(Target()).size(), length);
}

TEST_F(TargetOfPass, FilesAreClosedWithThePass) {
  {
    WatchedPass pass;
    ASSERT_EQ(pass.Open(Folder().Files(), Questions()), Opened::Yes);
    EXPECT_FALSE(CanBeHeldAlone(Source()));
    EXPECT_FALSE(CanBeHeldAlone(Target()));
  }
  EXPECT_TRUE(CanBeHeldAlone(Source()));
  EXPECT_TRUE(CanBeHeldAlone(Target()));
}

// Targets that are the source. Whoever asks is told that the file may be deleted: it must not be.

TEST_F(SameFileOfPass, OtherLetterCase) {
  Questions().answer = true;
  EXPECT_EQ(RunTo(Folder().PathOf("SOURCE.WAV")), "completed");
  ExpectWorkedInPlace();
  EXPECT_EQ(Folder().Names(), Names{"source.wav"});
}

TEST_F(SameFileOfPass, OtherLetterCaseOfEveryFolder) {
  Questions().answer = true;
  EXPECT_EQ(RunTo(Source().toUpper(), Buffering::Multi), "completed");
  ExpectWorkedInPlace();
  EXPECT_EQ(Folder().Names(), Names{"source.wav"});
}

TEST_F(SameFileOfPass, RoundaboutPathWithOtherSlashes) {
  ASSERT_TRUE(QDir().mkdir(Folder().PathOf("folder")));
  Questions().answer = true;
  EXPECT_EQ(RunTo(Folder().PathOf("folder\\..\\.\\Source.wav")), "completed");
  ExpectWorkedInPlace();
}

TEST_F(SameFileOfPass, FormForAnyLength) {
  Questions().answer = true;
  EXPECT_EQ(RunTo(u"\\\\?\\"_s + QDir::toNativeSeparators(Source())), "completed");
  ExpectWorkedInPlace();
}

TEST_F(SameFileOfPass, TrailingDot) {
  Questions().answer = true;
  EXPECT_EQ(RunTo(Source() + u'.'), "completed");
  ExpectWorkedInPlace();
  EXPECT_EQ(Folder().Names(), Names{"source.wav"});
}

}  // namespace
}  // namespace brindle
