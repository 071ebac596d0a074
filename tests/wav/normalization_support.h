// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/wav_builder.h"
#include "wav/gain.h"
#include "wav/normalization.h"

namespace brindle {

using Opened = WatchedPass::Opened;
using Ended = WatchedPass::Ended;

inline constexpr double Gain = -1.75;

/// A folder with a source of these parts, and a place for its target. What is behind the samples
/// must be too short for a block to reach it.
class PassFolder : public TemporaryFolder {
 public:
  explicit PassFolder(const WavParts& parts)
      : source_(parts.Bytes()),
        mapped_(MappedWords(source_, parts.Start(), parts.samples.size(), Gain)) {
    Put("source.wav", source_);
  }

  [[nodiscard]] PassFiles Files(bool isInPlace = false) const {
    return {.source = PathOf("source.wav"), .target = PathOf("target.wav"), .isInPlace = isInPlace};
  }
  [[nodiscard]] PassFiles FilesTo(const QString& target) const {
    return {.source = PathOf("source.wav"), .target = target};
  }
  /// The bytes of the source.
  [[nodiscard]] const std::string& Source() const { return source_; }
  /// The bytes with every word of the samples mapped by the gain.
  [[nodiscard]] const std::string& Mapped() const { return mapped_; }

  /// What the output holds when the words below `end` (a count of bytes) are written.
  [[nodiscard]] std::string WrittenTo(std::size_t end, bool isInPlace) const {
    return mapped_.substr(0, end) + (isInPlace ? source_.substr(end) : std::string());
  }
  [[nodiscard]] std::string Output(bool isInPlace) const {
    return Bytes(isInPlace ? "source.wav" : "target.wav");
  }

 private:
  std::string source_;
  std::string mapped_;
};

/// Big files are not printed when they differ.
inline std::string FirstDifference(const std::string& actual, const std::string& expected) {
  if (actual == expected) {
    return "none";
  }
  std::size_t at = 0;
  while (at < actual.size() && at < expected.size() && actual[at] == expected[at]) {
    ++at;
  }
  return "at byte " + std::to_string(at) + ", lengths " + std::to_string(actual.size()) + " and " +
         std::to_string(expected.size());
}

/// Makes a folder the current one for as long as it lives.
class CurrentFolder {
 public:
  explicit CurrentFolder(const QString& path) { EXPECT_TRUE(QDir::setCurrent(path)); }
  CurrentFolder(const CurrentFolder&) = delete;
  CurrentFolder& operator=(const CurrentFolder&) = delete;
  CurrentFolder(CurrentFolder&&) = delete;
  CurrentFolder& operator=(CurrentFolder&&) = delete;
  ~CurrentFolder() { QDir::setCurrent(before_); }

 private:
  QString before_ = QDir::currentPath();
};

/// A pass of its own files, whose targets and questions are looked at.
class FilesOfPass : public ::testing::Test {
 protected:
  [[nodiscard]] std::string RunTo(const QString& target, Buffering buffering = Buffering::Single) {
    return RunPass(folder_.FilesTo(target), buffering, Gain, questions_);
  }
  [[nodiscard]] std::string RunInPlace() {
    return RunPass(folder_.Files(true), Buffering::Single, Gain, questions_);
  }
  [[nodiscard]] std::string Run(bool isInPlace) {
    return isInPlace ? RunInPlace() : RunTo(Target());
  }

  static std::string CannotReadBecause(const QString& path, const std::string& reason) {
    return "Cannot read " + NativePath(path) + ": " + reason;
  }
  static std::string CannotWriteBecause(const QString& path, const std::string& reason) {
    return "Cannot write " + NativePath(path) + ": " + reason;
  }

  void ExpectSourceIntact() const {
    EXPECT_EQ(FirstDifference(folder_.Bytes("source.wav"), folder_.Source()), "none");
  }
  void ExpectNothingAsked() const {
    EXPECT_EQ(questions_.asked, 0);
    EXPECT_EQ(questions_.worksInPlace, 0);
  }
  void ExpectMapped(const char* name) const {
    EXPECT_EQ(FirstDifference(folder_.Bytes(name), folder_.Mapped()), "none");
  }
  /// The pass found out by itself that it works in place.
  void ExpectWorkedInPlace() const {
    EXPECT_EQ(questions_.asked, 0);
    EXPECT_EQ(questions_.worksInPlace, 1);
    ExpectMapped("source.wav");
  }

  [[nodiscard]] const PassFolder& Folder() const { return folder_; }
  [[nodiscard]] QString Source() const { return folder_.PathOf("source.wav"); }
  [[nodiscard]] QString Target() const { return folder_.PathOf("target.wav"); }
  [[nodiscard]] ScriptedQuestions& Questions() { return questions_; }

 private:
  PassFolder folder_{{.samples = Noise(3 * Block + 11), .behind = "LIST and more"}};
  ScriptedQuestions questions_;
};

class SourceOfPass : public FilesOfPass {
 protected:
  // Nothing may become of a target while the source is no good.
  void ExpectTargetLeftAlone(const std::string& message) {
    EXPECT_EQ(RunTo(Target()), message);
    EXPECT_FALSE(QFileInfo::exists(Target()));
    Questions().answer = true;
    Folder().Put("target.wav", "an older file");
    EXPECT_EQ(RunTo(Target()), message);
    EXPECT_EQ(Folder().Bytes("target.wav"), "an older file");
    EXPECT_EQ(RunTo(Folder().Path()), message);
    ExpectNothingAsked();
  }
};

/// A source that changes while the pass has it open.
class ChangingSource : public FilesOfPass {
 protected:
  struct Moment {
    std::string name;
    Buffering buffering = Buffering::Single;
    bool isInPlace = false;
    bool isBetween = false;  // Open() and Run(), else at the first update
  };

  // Changes the source at the moment; what comes of the pass in words.
  std::string RunWith(const Moment& moment, const std::function<void()>& change) {
    WatchedPass pass;
    ObserverOfPass observer;
    const ReadClock clock(1);
    if (pass.Open(Folder().Files(moment.isInPlace), Questions()) != Opened::Yes) {
      return "not opened";
    }
    if (moment.isBetween) {
      change();
    } else {
      observer.onUpdate = [&](std::size_t index) {
        if (index == 0) {
          change();
        }
      };
    }
    const auto ended = pass.Run(GainTable(Gain), moment.buffering, clock, observer);
    EXPECT_EQ(pass.Throughput() == 0, ended != Ended::Completed);
    EXPECT_EQ(pass.Error().has_value(), ended == Ended::Failed);
    return ended == Ended::Failed ? TextOf(pass.Error()) : TextOf(ended);
  }

  inline static const std::vector<Moment> Moments{
      {"between", Buffering::Single, false, true},
      {"between, multi", Buffering::Multi, false, true},
      {"between, in place", Buffering::Single, true, true},
      {"between, multi in place", Buffering::Multi, true, true},
      {"while it runs", Buffering::Single, false, false},
      {"while it runs in place", Buffering::Single, true, false},
      {"at the words", Buffering::Multi, false, false},
      {"at the words in place", Buffering::Multi, true, false},
  };

  void StartAnew() {
    Folder().Put("source.wav", Folder().Source());
    QFile::remove(Target());
  }
};

class TargetOfPass : public FilesOfPass {
 protected:
  using Check = std::function<std::string()>;
  static std::string Here(const Check& check) { return check(); }

  /// `run` runs the pass, here or in a process of its own.
  void ExpectRefused(const QString& target, const std::string& reason,
                     std::string (*run)(const Check&) = Here) {
    const auto names = Folder().Names();
    {
      // Relative paths must not lead to the folder that the tests run in.
      const CurrentFolder current(Folder().Path());
      EXPECT_EQ(run([&] {
                  Questions().answer = true;
                  const auto result = RunTo(target);
                  return result +
                         (Questions().asked + Questions().worksInPlace == 0 ? "" : ", asked");
                }),
                CannotWriteBecause(target, reason));
    }
    EXPECT_EQ(Folder().Names(), names);
    ExpectSourceIntact();
  }
};

/// Targets that are the source.
class SameFileOfPass : public FilesOfPass {
 protected:
  /// `relink` makes the target the source while the question about overwriting it stands.
  void ExpectNothingDeletedAfter(const std::function<void()>& relink) {
    Questions().answer = true;
    Questions().whenAsked = relink;
    EXPECT_EQ(RunTo(Target()), CannotWriteBecause(Target(), "it became the source"));
    EXPECT_EQ(Questions().asked, 1);
    EXPECT_EQ(Questions().worksInPlace, 0);
    ExpectSourceIntact();
    EXPECT_EQ(FirstDifference(Folder().Bytes("target.wav"), Folder().Source()), "none");
    EXPECT_EQ(Folder().Names(), (Names{"source.wav", "target.wav"}));
  }
};

}  // namespace brindle
