// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <string>
#include <utility>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QString>
#include <gtest/gtest.h>

#include "base/input/message_boxes.h"
#include "tests/wav/normalizer_window.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

/// The normalizer in place, with "Undo" beside "Normalize".
class UndoOfNormalizer : public NormalizingWindow {
 protected:
  void SetUp() override { record.WavOverwriteSource = true; }

  // The one question about an interrupted pass over in.wav.
  void ExpectInterruptionAsked() {
    const auto asked = Boxes();
    ASSERT_EQ(asked.size(), 1U);
    const auto text = QString::fromStdString(asked.front());
    static const QRegularExpression expected(
        u"\\AThe normalization of in\\.wav was interrupted at 91 %\\.\r\n\r\n"
        "Finish: normalizes the rest\\.\r\nUndo: makes the recording what it was\\.\r\n"
        "Later: leaves it as it is\\.\\z"_s);
    EXPECT_TRUE(expected.match(text).hasMatch()) << asked.front();
  }

  // A piece and a part of a second one.
  static constexpr std::size_t Blocks = 70;
  static constexpr int AfterOnePiece = 91;  // percent, rounded down

  [[nodiscard]] bool IsUndoShown() const { return Control("Undo")->isVisible(); }
  [[nodiscard]] QDir Records() const { return QDir(folder.filePath(u"Brindle2.undo"_s)); }
  [[nodiscard]] qsizetype RecordCount() const { return Records().entryList(QDir::Files).size(); }

  // A pass over Long(Blocks) that is aborted after a piece: its file is neither old nor new.
  void AbortPass() {
    record.WavMultiBuffer = true;
    OpenScanned(Long(Blocks));
    LetUpdatesCome();
    AbortAfterOnePiece();
    ClickOn("btnNorm");
    clock.AdvanceAtEveryLook(0);
    EXPECT_NE(BytesOf("in.wav"), BytesOf(Long(Blocks)));
    EXPECT_NE(BytesOf("in.wav"), BytesOf(LongAmplified(Blocks)));
    questions.asked.clear();
  }

  void AbortAfterOnePiece() {
    During("Normalizing...", [this] {
      if (Progress() < AfterOnePiece) {
        AbortAfterOnePiece();
        return;
      }
      questions.Answer(BoxAnswer::Yes);
      ClickOn("Cancel");
    });
  }

  // As after a crash: the window goes, the file and its record stay.
  void CloseNormalizer() {
    window->close();
    RunDeletions();
    EXPECT_EQ(window, nullptr);
  }
};

TEST_F(UndoOfNormalizer, IsThereAfterAPassInPlaceAndTakesItBack) {
  OpenScanned(Quiet());
  EXPECT_FALSE(IsUndoShown());
  Normalize();
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(QuietAmplified()));
  EXPECT_TRUE(IsUndoShown());
  EXPECT_EQ(RecordCount(), 1);
  ClickOn("Undo");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
  EXPECT_FALSE(IsUndoShown());
  EXPECT_EQ(RecordCount(), 0);
  EXPECT_EQ(Shown(), Scanned);
  EXPECT_EQ(Peaks(), "-16384 8191");
}

TEST_F(UndoOfNormalizer, ShowsWhatItDoesAndNormalizesNothingAfterIt) {
  OpenScanned(Long(Blocks));
  Normalize();
  record.WavAutoNormalize = true;
  LetUpdatesCome();
  During("Undoing...", [this] {
    EXPECT_EQ(Shown(), "info scan abort progress Undoing...");
    EXPECT_EQ(Disabled(), "TargetFile Target btnOpen btnScan btnNorm");
    EXPECT_FALSE(Control("Undo")->isEnabled());
    EXPECT_GT(Progress(), 0);
  });
  ClickOn("Undo");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Long(Blocks)));
  EXPECT_EQ(Shown(), Scanned);
}

TEST_F(UndoOfNormalizer, IsNotThereAfterAPassToATarget) {
  record.WavOverwriteSource = false;
  OpenScanned(Quiet());
  Normalize();
  EXPECT_FALSE(IsUndoShown());
  EXPECT_EQ(RecordCount(), 0);
}

TEST_F(UndoOfNormalizer, GoesBackOnePassAfterTwo) {
  OpenScanned(Quiet());
  Normalize();
  const auto first = BytesOf("in.wav");
  record.WavNormalizePercent = 50;
  ClickOn("btnScan");
  PercNorm->setText(u"50"_s);
  Normalize();
  EXPECT_NE(BytesOf("in.wav"), first);
  EXPECT_EQ(RecordCount(), 1) << "the record of the first pass stays";
  ClickOn("Undo");
  EXPECT_EQ(BytesOf("in.wav"), first);
}

TEST_F(UndoOfNormalizer, IsThereWhenTheFileIsOpenedAgain) {
  OpenScanned(Quiet());
  Normalize();
  CloseNormalizer();
  OpenNormalizer();
  EXPECT_FALSE(IsUndoShown());
  OpenFile(PathOf("in.wav"));
  EXPECT_TRUE(IsUndoShown());
  OpenFile(Put("other.wav", Quiet()));
  EXPECT_FALSE(IsUndoShown());
  OpenFile(PathOf("in.wav"));
  ClickOn("Undo");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
}

TEST_F(UndoOfNormalizer, TakesAnAbortedPassBack) {
  AbortPass();
  EXPECT_TRUE(IsUndoShown());
  ClickOn("Undo");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Long(Blocks)));
  EXPECT_EQ(Boxes(), Texts());
}

TEST_F(UndoOfNormalizer, CanBeAbortedAndTakenUpAgain) {
  OpenScanned(Long(Blocks));
  Normalize();
  questions.asked.clear();
  LetUpdatesCome();
  During("Undoing...", [this] { ClickOn("Cancel"); });
  ClickOn("Undo");
  clock.AdvanceAtEveryLook(0);
  EXPECT_NE(BytesOf("in.wav"), BytesOf(Long(Blocks)));
  EXPECT_EQ(Shown(), Loaded);
  EXPECT_TRUE(IsUndoShown());
  ClickOn("Undo");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Long(Blocks)));
  EXPECT_EQ(Boxes(), Texts()) << "nothing is lost, so nothing is asked";
}

TEST_F(UndoOfNormalizer, LeavesAFileAloneThatWasChangedSince) {
  OpenScanned(Quiet());
  Normalize();
  questions.asked.clear();
  auto changed = BytesOf("in.wav");
  changed[50] = static_cast<char>(changed[50] ^ 1);
  Put("in.wav", changed);
  questions.Answer(BoxAnswer::Ok);
  ClickOn("Undo");
  EXPECT_EQ(Boxes(), Texts{"Cannot write " + PathOf("in.wav").toStdString() +
                           ": the file was changed since it was normalized"});
  EXPECT_EQ(BytesOf("in.wav"), changed);
}

TEST_F(UndoOfNormalizer, InterruptedPassIsFinishedWhenItsFileIsOpened) {
  AbortPass();
  questions.Answer(BoxAnswer::Finish, [this] { ExpectInterruptionAsked(); });
  questions.Answer(BoxAnswer::Ok);
  OpenFile(PathOf("in.wav"));
  EXPECT_EQ(Boxes(), Texts{"The normalization of in.wav is complete."});
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(LongAmplified(Blocks)));
  EXPECT_EQ(Shown(), AfterAPass);
  ClickOn("Undo");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Long(Blocks)));
}

TEST_F(UndoOfNormalizer, InterruptedPassIsUndoneWhenItsFileIsOpened) {
  AbortPass();
  questions.Answer(BoxAnswer::Undo);
  OpenFile(PathOf("in.wav"));
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Long(Blocks)));
  EXPECT_EQ(RecordCount(), 0);
}

TEST_F(UndoOfNormalizer, InterruptedPassCanWait) {
  AbortPass();
  const auto aborted = BytesOf("in.wav");
  for (int i = 0; i < 2; ++i) {
    questions.Answer(BoxAnswer::Later);
    OpenFile(PathOf("in.wav"));
    ExpectInterruptionAsked();
    EXPECT_EQ(BytesOf("in.wav"), aborted);
    EXPECT_TRUE(IsUndoShown());
  }
}

TEST_F(UndoOfNormalizer, WindowOffersAPassThatIsWaiting) {
  AbortPass();
  CloseNormalizer();
  questions.Answer(BoxAnswer::Undo);
  OpenNormalizer();
  AwaitEnd();
  ExpectInterruptionAsked();
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Long(Blocks)));
  EXPECT_EQ(Info(), "in.wav 44100Hz 16bit Stereo 0:00:26.006");
  EXPECT_EQ(Shown(), Scanned);
}

TEST_F(UndoOfNormalizer, WindowOpensNothingWhenTheWaitingPassGoesOnWaiting) {
  AbortPass();
  CloseNormalizer();
  questions.Answer(BoxAnswer::Later);
  OpenNormalizer();
  AwaitEnd();
  ExpectInterruptionAsked();
  EXPECT_EQ(Text("WavInfo1"), "No File Loaded");
  EXPECT_FALSE(IsUndoShown());
}

TEST_F(UndoOfNormalizer, WaitingPassOverAFileThatIsNotThereIsKeptInSilence) {
  AbortPass();
  CloseNormalizer();
  ASSERT_TRUE(QFile::rename(PathOf("in.wav"), PathOf("away.wav")));
  OpenNormalizer();
  AwaitEnd();
  EXPECT_EQ(RecordCount(), 1);
  questions.Answer(BoxAnswer::Undo);
  OpenFile(PathOf("away.wav"));
  EXPECT_EQ(BytesOf("away.wav"), BytesOf(Long(Blocks))) << "it is found by what it is, too";
}

TEST_F(UndoOfNormalizer, DamagedRecordIsToldOnceAndSetAside) {
  AbortPass();
  const auto aborted = BytesOf("in.wav");
  CloseNormalizer();
  const auto path = Records().filePath(Records().entryList(QDir::Files).constFirst());
  QFile damaged(path);
  ASSERT_TRUE(damaged.open(QIODevice::ReadWrite));
  ASSERT_TRUE(damaged.seek(40));
  ASSERT_EQ(damaged.write("damage"), 6);
  damaged.close();
  questions.Answer(BoxAnswer::Ok);
  OpenNormalizer();
  AwaitEnd();
  EXPECT_EQ(Boxes(), Texts{"The record of a normalization is damaged, or of another version. It "
                           "cannot be used, and was set aside as\r\n" +
                           QDir::toNativeSeparators(path + u".unusable"_s).toStdString()});
  EXPECT_TRUE(QFile::exists(path + u".unusable"_s));
  EXPECT_EQ(BytesOf("in.wav"), aborted);
  CloseNormalizer();
  OpenNormalizer();
  AwaitEnd();
  EXPECT_EQ(Boxes(), Texts());
}

TEST_F(UndoOfNormalizer, AnotherRecordingAtThePathOfAMovedOneLeavesItsRecordAlone) {
  AbortPass();
  ASSERT_TRUE(QFile::rename(PathOf("in.wav"), PathOf("moved.wav")));
  OpenFile(Put("in.wav", Quiet()));
  EXPECT_FALSE(IsUndoShown());
  ClickOn("btnScan");
  Normalize();
  questions.Answer(BoxAnswer::Undo);
  OpenFile(PathOf("moved.wav"));
  EXPECT_EQ(BytesOf("moved.wav"), BytesOf(Long(Blocks)));
}

TEST_F(UndoOfNormalizer, RecordOfARestoredFileIsToldOnce) {
  AbortPass();
  Put("in.wav", Long(Blocks));
  questions.Answer(BoxAnswer::Finish);
  questions.Answer(BoxAnswer::Ok);
  OpenFile(PathOf("in.wav"));
  EXPECT_EQ(Boxes().back(), "Cannot write " + PathOf("in.wav").toStdString() +
                                ": the file was changed since it was normalized");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Long(Blocks)));
  OpenFile(PathOf("in.wav"));
  EXPECT_EQ(Boxes(), Texts());
  EXPECT_FALSE(IsUndoShown());
}

TEST_F(UndoOfNormalizer, NothingIsTakenUpOfAFileThatDoesNotOpen) {
  AbortPass();
  CloseNormalizer();
  questions.Answer(BoxAnswer::Undo, [this] { Put("in.wav", QByteArray("no recording")); });
  questions.Answer(BoxAnswer::Ok);
  OpenNormalizer();
  AwaitEnd();
  EXPECT_EQ(Boxes().back(), Refused);
  EXPECT_FALSE(IsUndoShown());
  EXPECT_EQ(Shown(), "");
}

TEST_F(UndoOfNormalizer, RecordThatVanishesMeanwhileIsNotAskedAbout) {
  AbortPass();
  CloseNormalizer();
  QFile foreign(Records().filePath(u"foreign.undo"_s));
  ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
  ASSERT_EQ(foreign.write("this is no record"), 17);
  foreign.close();
  questions.Answer(BoxAnswer::Ok, [this] {
    for (const auto& name : Records().entryList({u"*.undo"_s}, QDir::Files)) {
      EXPECT_TRUE(QFile::remove(Records().filePath(name)));
    }
  });
  OpenNormalizer();
  AwaitEnd();
  EXPECT_EQ(Boxes().size(), 1U);
}

TEST_F(UndoOfNormalizer, NameWithAPercentSignIsNoPattern) {
  AbortPass();
  CloseNormalizer();
  ASSERT_TRUE(QFile::rename(PathOf("in.wav"), PathOf("mix%2.wav")));
  OpenNormalizer();
  questions.Answer(BoxAnswer::Later);
  OpenFile(PathOf("mix%2.wav"));
  const auto asked = Boxes();
  ASSERT_EQ(asked.size(), 1U);
  EXPECT_TRUE(asked.front().starts_with("The normalization of mix%2.wav was interrupted at 91 %."));
}

/// A record that cannot be written: a file stands where its folder should be.
class NoWayBack : public UndoOfNormalizer {
 protected:
  static constexpr const char* Question = "\r\n\r\nNormalize without a way back?";

  void SetUp() override {
    UndoOfNormalizer::SetUp();
    Put("Brindle2.undo", QByteArray("a file"));
    OpenScanned(Quiet());
  }

  void ExpectAsked() {
    ASSERT_EQ(questions.asked.size(), 1U);
    const auto& asked = questions.asked.front();
    EXPECT_TRUE(asked.text.starts_with("Cannot write ")) << asked.text;
    EXPECT_TRUE(asked.text.ends_with(Question)) << asked.text;
    EXPECT_EQ(asked.buttons, BoxButtons::YesNoDefaultNo);
  }
};

TEST_F(NoWayBack, NoLeavesTheFileAsItIs) {
  questions.Answer(BoxAnswer::No);
  ClickOn("btnNorm");
  ExpectAsked();
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
  EXPECT_EQ(Shown(), AfterAPass);
}

TEST_F(NoWayBack, YesNormalizesWithoutUndo) {
  questions.Answer(BoxAnswer::Yes, [this] { ExpectAsked(); });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(QuietAmplified()));
  EXPECT_FALSE(IsUndoShown());
}

}  // namespace
}  // namespace brindle
