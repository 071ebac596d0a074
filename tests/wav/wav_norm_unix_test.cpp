// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <string>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "base/input/message_boxes.h"
#include "tests/support/interposed_calls.h"
#include "tests/wav/normalizer_window.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

TEST_F(NormalizerWindow, ShowsATitleThatLooksLikeMarkup) {
  ExpectTitleShown(u"x<i>a&b<i>"_s + QString(150, u'm') + u".wav"_s);
}

TEST_F(NormalizingWindow, WorksInPlaceWhereTheTargetIsALinkToTheSource) {
  OpenScanned(Quiet());
  ASSERT_TRUE(QFile::link(PathOf("in.wav"), PathOf("out.wav")));
  Normalize();
  EXPECT_EQ(Boxes(), Texts{StatisticsWithoutTime("200", false)});
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(QuietAmplified()));
  EXPECT_TRUE(IsChecked(u"Output(0)"_s));
}

// The target is the only file by then: deleting it would lose the recording.
TEST_F(NormalizingWindow, DeletesNoTargetThatBecameTheSourceUnderItsQuestion) {
  Put("out.wav", QByteArray("precious"));
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Yes, [&] {
    QFile::remove(PathOf("out.wav"));
    EXPECT_TRUE(QFile::rename(PathOf("in.wav"), PathOf("out.wav")));
    EXPECT_TRUE(QFile::link(PathOf("out.wav"), PathOf("in.wav")));
  });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), (Texts{Overwrite, "Cannot write " + PathOf("out.wav").toStdString() +
                                           ": it became the source"}));
  EXPECT_EQ(BytesOf("out.wav"), BytesOf(Quiet()));
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
  EXPECT_EQ(Shown(), AfterAPass);
  EXPECT_EQ(Disabled(), "");
  EXPECT_FALSE(IsChecked(u"Output(0)"_s));
}

TEST_F(NormalizingWindow, TellsOfATargetOfAnotherPlatform) {
  record.WavTargetFile = u"C:\\Output.wav:relative"_s;
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{"Cannot write C:\\Output.wav:relative: not an absolute path"});
  EXPECT_EQ(Shown(), AfterAPass);
  EXPECT_EQ(Disabled(), "");
  EXPECT_EQ(BytesOf("in.wav"), BytesOf(Quiet()));
}

TEST_F(NormalizingWindow, TellsOfASourceThatBecomesShorter) {
  OpenScanned(Long(4));
  LetUpdatesCome();
  During("Normalizing...", [&] { QFile::resize(PathOf("in.wav"), 100000); });
  questions.Answer(BoxAnswer::Ok);
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(),
            Texts{"Cannot read " + PathOf("in.wav").toStdString() + ": the file became shorter"});
  EXPECT_EQ(Shown(), AfterAPass);
  EXPECT_EQ(Disabled(), "");
}

TEST_F(NormalizingWindow, TellsOfADiskThatIsFullWhenAllSeemsWritten) {
  OpenScanned(Quiet());
  questions.Answer(BoxAnswer::Ok);
  InterposedCalls calls;
  calls.sync = [](const std::string&) { return ENOSPC; };
  ClickOn("btnNorm");
  EXPECT_EQ(Boxes(), Texts{"Cannot write " + PathOf("out.wav").toStdString() + ": " +
                           qt_error_string(ENOSPC).toStdString()});
  EXPECT_EQ(Shown(), AfterAPass);
  EXPECT_EQ(Disabled(), "");
}

}  // namespace
}  // namespace brindle
