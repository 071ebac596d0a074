// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The commands that work on recordings: what they leave in the file system, and what they say.

#include <cstdint>
#include <string>
#include <vector>

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

#include "tests/cli/run_command.h"
#include "tests/wav/wav_builder.h"

namespace brindle {
namespace {

class Recordings : public ::testing::Test {
 protected:
  // So long that a scan and a pass have several pieces.
  static std::string Recording(std::int16_t level, std::size_t words = 1000) {
    std::vector<std::int16_t> levels(words);
    for (std::size_t i = 0; i < levels.size(); ++i) {
      levels[i] = static_cast<std::int16_t>(i % 2 == 0 ? level : -level / 2);
    }
    return WavParts{.levels = levels}.Bytes();
  }

  void Put(const char* name, const std::string& bytes) const { Files().Put(name, bytes); }
  [[nodiscard]] std::string PathOf(const char* name) const {
    return Files().PathOf(name).toStdString();
  }
  [[nodiscard]] std::string Bytes(const char* name) const { return Files().Bytes(name); }
  [[nodiscard]] const TemporaryFolder& Files() const { return runner_.folder; }

  [[nodiscard]] RunResult Run(const std::vector<std::string>& arguments) const {
    return runner_.Run(arguments);
  }
  // The same, interrupted when the program looks for that the n-th time.
  [[nodiscard]] RunResult RunInterrupted(int look,
                                         const std::vector<std::string>& arguments) const {
    FakeConsole console;
    console.interruptedAtLook = look;
    return runner_.Run(arguments, console);
  }

  // The first line of an answer.
  static std::string FirstLine(const RunResult& result) {
    return result.answer.substr(0, result.answer.find('\n'));
  }

  CommandRunner runner_;
};

TEST_F(Recordings, HaveTheirPeaksTold) {
  Put("a.wav", Recording(16384));
  const auto result = Run({"peaks", PathOf("a.wav")});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.answer, PathOf("a.wav") +
                               ": -8192 to 16384\n"
                               "  Peaks at -25% and 50% of full scale. 44100Hz 16bit Stereo "
                               "0:00:00.011\n");
}

TEST_F(Recordings, AreScannedThoughOneOfThemFails) {
  Put("a.wav", Recording(100));
  Put("text.wav", "hello");
  Put("compressed.wav", WavParts{.levels = {1, 2}, .format = 85}.Bytes());
  const auto result =
      Run({"peaks", PathOf("text.wav"), PathOf("gone.wav"), PathOf("compressed.wav"),
           Files().Path().toStdString(), "", "caf\xe9.wav", PathOf("a.wav")});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(FirstLine(result), PathOf("a.wav") + ": -50 to 100");
  EXPECT_EQ(result.errors, "brindle: cannot read " + PathOf("text.wav") +
                               ": this file does not appear to be a valid WAV\n"
                               "brindle: cannot read " +
                               PathOf("gone.wav") + ": " + NoSuchFile() +
                               "\nbrindle: cannot read " + PathOf("compressed.wav") +
                               ": this program only accepts uncompressed PCM WAV files\n"
                               "brindle: cannot read " +
                               Files().Path().toStdString() +
                               ": not a file\n"
                               "brindle: cannot read \"\": it has no name\n"
                               "brindle: cannot read \"caf\\xe9.wav\": its name is not UTF-8\n");
}

TEST_F(Recordings, OfAnotherWidthAreProcessedWithAWarning) {
  Put("a.wav", WavParts{.levels = {1, 2, 3, 4}, .bits = 24}.Bytes());
  const auto result = Run({"peaks", PathOf("a.wav")});
  EXPECT_EQ(result.code, 0);
  EXPECT_EQ(result.errors, "brindle: " + PathOf("a.wav") +
                               " has samples of 24 bits; they are processed as if they had 16\n");
}

TEST_F(Recordings, AreNormalizedIntoAnotherFile) {
  const auto original = Recording(16384);
  Put("a.wav", original);
  const auto result =
      Run({"normalize", PathOf("a.wav"), "--to", "50%", "--tolerance", "0", "-o", PathOf("b.wav")});
  EXPECT_EQ(result.code, 0) << result.errors;
  EXPECT_EQ(FirstLine(result), PathOf("a.wav") + ": amplified to 100% in " + PathOf("b.wav"));
  EXPECT_EQ(Bytes("a.wav"), original);
  EXPECT_EQ(Bytes("b.wav"), Recording(16384));

  const auto louder = Run({"normalize", PathOf("a.wav"), "-o", PathOf("c.wav")});
  EXPECT_EQ(louder.code, 0) << louder.errors;
  EXPECT_EQ(FirstLine(louder), PathOf("a.wav") + ": amplified to 199.99% in " + PathOf("c.wav"));
  EXPECT_EQ(FirstLine(Run({"peaks", PathOf("c.wav")})), PathOf("c.wav") + ": -16384 to 32767");
}

TEST_F(Recordings, AreNormalizedIntoAFolder) {
  Put("a.wav", Recording(1000));
  Put("b.wav", Recording(2000));
  QDir(Files().Path()).mkdir(QStringLiteral("out"));
  const auto result =
      Run({"normalize", PathOf("a.wav"), PathOf("b.wav"), "--output", PathOf("out")});
  EXPECT_EQ(result.code, 0) << result.errors;
  EXPECT_EQ(FirstLine(Run({"peaks", PathOf("out/a.wav")})),
            PathOf("out/a.wav") + ": -16384 to 32767");
  EXPECT_EQ(FirstLine(Run({"peaks", PathOf("out/b.wav")})),
            PathOf("out/b.wav") + ": -16384 to 32767");
}

TEST_F(Recordings, ReplaceNothingUnasked) {
  Put("a.wav", Recording(1000));
  Put("b.wav", "precious");
  const std::vector<std::string> arguments{"normalize", PathOf("a.wav"), "-o", PathOf("b.wav")};
  const auto result = Run(arguments);
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.errors,
            "brindle: cannot write " + PathOf("b.wav") + ": it exists; --force replaces it\n");
  EXPECT_EQ(Bytes("b.wav"), "precious");

  auto forced = arguments;
  forced.emplace_back("--force");
  EXPECT_EQ(Run(forced).code, 0);
  EXPECT_EQ(Bytes("b.wav").size(), Recording(1000).size());
}

TEST_F(Recordings, AreNotOverwrittenUnasked) {
  const auto original = Recording(1000);
  Put("a.wav", original);
  QDir(Files().Path()).mkdir(QStringLiteral("folder"));
  for (const auto* const output : {"a.wav", "./a.wav", "folder/../a.wav"}) {
    const auto result = Run({"normalize", PathOf("a.wav"), "-o", PathOf(output), "--force"});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.errors, "brindle: cannot write " + PathOf(output) +
                                 ": it is the recording itself; --in-place writes over it\n");
    EXPECT_EQ(Bytes("a.wav"), original);
  }
}

TEST_F(Recordings, AreNormalizedInPlaceAndUndone) {
  const auto original = Recording(1000, 200000);
  Put("a.wav", original);
  const auto normalized = Run({"normalize", PathOf("a.wav"), "--in-place"});
  EXPECT_EQ(normalized.code, 0) << normalized.errors;
  EXPECT_EQ(FirstLine(normalized), PathOf("a.wav") + ": amplified to 3276.7%");
  EXPECT_NE(Bytes("a.wav"), original);
  EXPECT_EQ(Bytes("a.wav").size(), original.size());

  const auto undone = Run({"undo", PathOf("a.wav")});
  EXPECT_EQ(undone.code, 0) << undone.errors;
  EXPECT_EQ(undone.answer, PathOf("a.wav") + ": undone\n");
  EXPECT_TRUE(Bytes("a.wav") == original);

  const auto again = Run({"undo", PathOf("a.wav")});
  EXPECT_EQ(again.code, 3);
  EXPECT_EQ(again.errors, "brindle: there is nothing to undo for " + PathOf("a.wav") +
                              ": no normalization of it in place is on record\n");
}

TEST_F(Recordings, ThatWereChangedSinceAreNotTouched) {
  Put("a.wav", Recording(1000, 200000));
  ASSERT_EQ(Run({"normalize", PathOf("a.wav"), "--in-place"}).code, 0);
  auto changed = Bytes("a.wav");
  changed[5000] = static_cast<char>(changed[5000] + 1);
  Put("a.wav", changed);
  const auto result = Run({"undo", PathOf("a.wav")});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.answer, "");
  EXPECT_TRUE(result.errors.starts_with("brindle: cannot ")) << result.errors;
  EXPECT_TRUE(Bytes("a.wav") == changed);
}

TEST_F(Recordings, ThatAreLoudEnoughAreLeftAsTheyAre) {
  const auto original = Recording(32000);
  Put("a.wav", original);
  const auto inPlace = Run({"normalize", PathOf("a.wav"), "--in-place"});
  EXPECT_EQ(inPlace.code, 0);
  EXPECT_EQ(inPlace.answer, PathOf("a.wav") +
                                ": normalization is not required\n"
                                "  an amplification of 102.4% is within the tolerance of 6%\n");
  EXPECT_EQ(Bytes("a.wav"), original);

  const auto result = Run({"normalize", PathOf("a.wav"), "-o", PathOf("b.wav")});
  EXPECT_EQ(result.code, 3);
  EXPECT_EQ(result.errors, "brindle: " + PathOf("a.wav") +
                               " needs no normalization: an amplification of 102.4% is within the "
                               "tolerance of 6%; --tolerance 0 makes a copy all the same\n");
  EXPECT_FALSE(QFile::exists(Files().PathOf("b.wav")));
  EXPECT_EQ(Run({"normalize", PathOf("a.wav"), "-o", PathOf("b.wav"), "--tolerance", "0"}).code, 0);
}

TEST_F(Recordings, OfSilenceCannotBeAmplified) {
  Put("a.wav", Recording(0));
  const auto result = Run({"normalize", PathOf("a.wav"), "-o", PathOf("b.wav")});
  EXPECT_EQ(result.code, 3);
  EXPECT_EQ(result.errors,
            "brindle: " + PathOf("a.wav") + " needs no normalization: it is silent\n");
}

// The scan leaves out the last words of the last block.
TEST_F(Recordings, WhoseLoudestSampleIsLeftOutByTheScanAreNotCutOff) {
  std::vector<std::int16_t> levels(100000, 100);
  levels[levels.size() - 3000] = 20000;
  Put("a.wav", WavParts{.levels = levels}.Bytes());
  ASSERT_EQ(FirstLine(Run({"peaks", PathOf("a.wav")})), PathOf("a.wav") + ": 0 to 100");
  EXPECT_EQ(FirstLine(Run({"peaks", PathOf("a.wav"), "--every-sample"})),
            PathOf("a.wav") + ": 0 to 20000");
  EXPECT_EQ(FirstLine(Run({"normalize", PathOf("a.wav"), "-o", PathOf("b.wav")})),
            PathOf("a.wav") + ": amplified to 163.84% in " + PathOf("b.wav"));
  EXPECT_EQ(FirstLine(Run({"normalize", PathOf("a.wav"), "-o", PathOf("c.wav"), "--cut-off"})),
            PathOf("a.wav") + ": amplified to 32767% in " + PathOf("c.wav"));
}

TEST_F(Recordings, ThatCannotBeTakenBackAreNotOverwritten) {
  const auto original = Recording(1000);
  Put("a.wav", original);
  Put("Brindle2.undo", "a file where the folder of the records would be");
  const auto result = Run({"normalize", PathOf("a.wav"), "--in-place"});
  EXPECT_EQ(result.code, 1);
  EXPECT_TRUE(
      result.errors.starts_with("brindle: cannot write " + Native(Files().PathOf("Brindle2.undo"))))
      << result.errors;
  EXPECT_TRUE(result.errors.ends_with(
      PathOf("a.wav") + " is as it was, and --without-undo normalizes it without a way back\n"))
      << result.errors;
  EXPECT_EQ(Bytes("a.wav"), original);
  EXPECT_EQ(Run({"normalize", PathOf("a.wav"), "--in-place", "--without-undo"}).code, 0);
  EXPECT_NE(Bytes("a.wav"), original);
}

TEST_F(Recordings, AfterAnInterruptionAreLeftAlone) {
  Put("a.wav", Recording(1000));
  Put("b.wav", Recording(1000));
  const auto result = RunInterrupted(1, {"peaks", PathOf("a.wav"), PathOf("b.wav")});
  EXPECT_EQ(result.code, 130);
  EXPECT_EQ(FirstLine(result), PathOf("a.wav") + ": -500 to 1000");
  EXPECT_EQ(result.answer.find("b.wav"), std::string::npos);
}

// A long job: time passes so fast that every block of a pass is a piece of its own.
class LongJob : public Recordings {
 protected:
  static constexpr int FirstLook = 1;  // at a piece; the look before is at the file
  void SetUp() override {
    runner_.clock.tick = 1;
    original_ = Recording(1000, Words);
    Put("a.wav", original_);
    Put("b.wav", original_);
  }

  static constexpr std::size_t Words = 5000000;  // several pieces of a record
  std::string original_;
};

TEST_F(LongJob, ShowsItsProgress) {
  FakeConsole console;
  ASSERT_EQ(runner_.Run({"peaks", PathOf("a.wav")}, console).code, 0);
  ASSERT_GT(console.progress.size(), 10U);
  const auto& middle = console.progress.at(console.progress.size() / 2);
  EXPECT_EQ(middle.substr(0, 10), "[#########");
  EXPECT_NE(middle.find(" left  "), std::string::npos) << middle;
  EXPECT_TRUE(middle.ends_with("a.wav")) << middle;
  EXPECT_EQ(console.progress.back().substr(0, 18), "[#################");
}

TEST_F(LongJob, OfAScanLeavesTheRecording) {
  const auto result = RunInterrupted(FirstLook, {"normalize", PathOf("a.wav"), "--in-place"});
  EXPECT_EQ(result.code, 130);
  EXPECT_EQ(result.errors,
            "brindle: interrupted while scanning " + PathOf("a.wav") + ", which is as it was\n");
  EXPECT_TRUE(Bytes("a.wav") == original_);
}

TEST_F(LongJob, InPlaceCanBeFinishedOrTakenBack) {
  ASSERT_EQ(Run({"normalize", PathOf("b.wav"), "--in-place"}).code, 0);
  const auto whole = Bytes("b.wav");

  const auto scanned = static_cast<int>(Words * 2 / 65536);
  const auto interrupted =
      RunInterrupted(scanned + 40, {"normalize", PathOf("a.wav"), PathOf("b.wav"), "--in-place"});
  EXPECT_EQ(interrupted.code, 130);
  EXPECT_EQ(interrupted.errors,
            "brindle: interrupted: " + PathOf("a.wav") +
                " is only partly normalized; \"brindle undo\" takes it back, \"brindle normalize "
                "--finish\" goes on\n");
  const auto partly = Bytes("a.wav");
  EXPECT_FALSE(partly == original_ || partly == whole);

  const auto refused = Run({"normalize", PathOf("a.wav"), "--in-place"});
  EXPECT_EQ(refused.code, 3);
  EXPECT_EQ(refused.errors,
            "brindle: a normalization of " + PathOf("a.wav") +
                " was interrupted; \"brindle normalize --finish\" goes on with it, \"brindle "
                "undo\" takes it back\n");
  EXPECT_TRUE(Bytes("a.wav") == partly);

  const auto finished = Run({"normalize", "--finish", PathOf("a.wav")});
  EXPECT_EQ(finished.code, 0) << finished.errors;
  EXPECT_EQ(finished.answer, PathOf("a.wav") + ": its normalization is complete\n");
  EXPECT_TRUE(Bytes("a.wav") == whole);

  const auto stopped = RunInterrupted(2, {"undo", PathOf("a.wav")});
  EXPECT_EQ(stopped.code, 130);
  EXPECT_EQ(stopped.errors, "brindle: interrupted: " + PathOf("a.wav") +
                                " is only partly undone; \"brindle undo\" goes on\n");
  EXPECT_EQ(Run({"undo", PathOf("a.wav")}).code, 0);
  EXPECT_TRUE(Bytes("a.wav") == original_);
  EXPECT_EQ(Run({"normalize", "--finish", PathOf("a.wav")}).code, 3);
}

TEST_F(LongJob, IntoAFileLeavesItIncomplete) {
  const auto scanned = static_cast<int>(Words * 2 / 65536);
  const auto result =
      RunInterrupted(scanned + 40, {"normalize", PathOf("a.wav"), "-o", PathOf("c.wav")});
  EXPECT_EQ(result.code, 130);
  EXPECT_EQ(result.errors, "brindle: interrupted: " + PathOf("c.wav") + " is not complete\n");
  EXPECT_LT(Bytes("c.wav").size(), original_.size());
  EXPECT_TRUE(Bytes("a.wav") == original_);
}

}  // namespace
}  // namespace brindle
