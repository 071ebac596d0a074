// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The commands that work on films: what they say, and what they leave in the file system.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <QByteArray>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QString>
#include <gtest/gtest.h>

#include "media/film_json.h"
#include "media/libav/film_library.h"
#include "tests/cli/json_schema.h"
#include "tests/cli/run_command.h"
#include "tests/media/made_films.h"

namespace brindle {
namespace {

class Films : public ::testing::Test {
 protected:
  void SetUp() override {
    runner_.films = [] { return std::shared_ptr<FilmReader>(MakeFilmReader()); };
    film_ = MadeFilms::Avi().toStdString();
  }

  [[nodiscard]] RunResult Run(const std::vector<std::string>& arguments) const {
    return runner_.Run(arguments);
  }
  // Into the folder of the test.
  [[nodiscard]] RunResult RunParts(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(),
                     {"parts", film_, "--output-folder", runner_.folder.Path().toStdString()});
    return Run(arguments);
  }
  [[nodiscard]] std::string PathOf(const char* name) const {
    return runner_.folder.PathOf(name).toStdString();
  }

  static std::string FaultOf(const std::string& answer) {
    QFile file(QStringLiteral(BRINDLE_SOURCE "/docs/brindle.schema.json"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return JsonSchema(QJsonDocument::fromJson(file.readAll()).object()).FaultOf(answer);
  }

  CommandRunner runner_;
  std::string film_;
};

TEST_F(Films, AreDescribed) {
  const auto result = Run({"info", film_});
  EXPECT_EQ(result.code, 0) << result.errors;
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.answer.substr(0, result.answer.find('\n')),
            film_ + ": 0:00:10.04, 25 fps, 160 x 120, 1 audio track");
  EXPECT_NE(result.answer.find("\nvideo: mpeg4, 160 x 120 shown at 1.333 to 1, 251 frames"),
            std::string::npos)
      << result.answer;
  EXPECT_NE(result.answer.find("\naudio 1: mp3, "), std::string::npos);
  EXPECT_EQ(result.answer.find("\nframe "), std::string::npos);
}

TEST_F(Films, HaveTheirKeyFramesListed) {
  const auto result = Run({"info", film_, "--key-frames"});
  EXPECT_EQ(result.code, 0) << result.errors;
  EXPECT_NE(result.answer.find("\nframe 0 at byte "), std::string::npos) << result.answer;
}

TEST_F(Films, AreDescribedToPrograms) {
  const auto brief = Run({"info", film_, "--json"});
  EXPECT_EQ(brief.code, 0) << brief.errors;
  EXPECT_EQ(FaultOf(brief.answer), "");
  const auto film = FilmOfJson(QByteArray::fromStdString(brief.answer));
  ASSERT_TRUE(film) << film.error().toStdString();
  EXPECT_TRUE(film->keyFrames.empty());
  const auto whole = Run({"info", film_, "--json", "--key-frames"});
  EXPECT_EQ(FaultOf(whole.answer), "");
  const auto keys = FilmOfJson(QByteArray::fromStdString(whole.answer));
  ASSERT_TRUE(keys) << keys.error().toStdString();
  EXPECT_FALSE(keys->keyFrames.empty());
}

TEST_F(Films, ThatCannotBeReadAreReportedOnce) {
  const auto gone = PathOf("gone.avi");
  const auto result = Run({"info", gone, "--json"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.errors, "brindle: cannot read " + gone + ": " + NoSuchFile() + "\n");
  EXPECT_EQ(FaultOf(result.answer), "");
  EXPECT_NE(result.answer.find("\"error\":\"cannot read "), std::string::npos);
  EXPECT_EQ(Run({"info", PathOf("")}).code, 1);
}

TEST_F(Films, NeedWhatReadsThem) {
  runner_.films = []() -> tl::expected<std::shared_ptr<FilmReader>, std::string> {
    return tl::unexpected(std::string("there is none"));
  };
  const auto result = Run({"info", film_});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.errors, "brindle: there is none\n");
}

TEST_F(Films, AreNamed) {
  EXPECT_EQ(Run({"info"}).errors, "brindle: FILE is missing\n");
  EXPECT_EQ(Run({"info"}).code, 2);
  EXPECT_EQ(Run({"parts", "--size", "1"}).errors, "brindle: FILE is missing\n");
  EXPECT_EQ(Run({"parts", film_}).code, 2);
}

TEST_F(Films, TellAWindowHowFarTheyAre) {
  const auto result = Run({"info", film_, "--json", "--progress"});
  EXPECT_EQ(result.code, 0);
  EXPECT_TRUE(result.errors.starts_with("progress ")) << result.errors;
}

TEST_F(Films, AreLeftWhenInterrupted) {
  FakeConsole console;
  console.interruptedAtLook = 0;
  const auto result = runner_.Run({"info", film_}, console);
  EXPECT_EQ(result.code, 130);
  EXPECT_EQ(result.errors, "brindle: interrupted while reading " + film_ + "\n");
}

TEST_F(Films, AreCutIntoEqualParts) {
  const auto planned = RunParts({"--parts", "2", "--dry-run", "--json"});
  EXPECT_EQ(planned.code, 0) << planned.errors;
  EXPECT_EQ(FaultOf(planned.answer), "");
  EXPECT_TRUE(runner_.folder.Names().empty());
  const auto written = RunParts({"--parts", "2", "--json"});
  EXPECT_EQ(written.code, 0) << written.errors;
  EXPECT_EQ(FaultOf(written.answer), "");
  EXPECT_EQ(runner_.folder.Names(),
            (std::vector<std::string>{"plain.part1.avi", "plain.part2.avi"}));
  const auto parts = [](const RunResult& result) {
    return QJsonDocument::fromJson(QByteArray::fromStdString(result.answer))
        .object()[QStringLiteral("parts")]
        .toArray();
  };
  EXPECT_EQ(parts(planned), parts(written));
  ASSERT_EQ(parts(written).size(), 2);
  const auto first = parts(written)[0].toObject()[QStringLiteral("size_b")].toDouble();
  EXPECT_EQ(first, static_cast<double>(QFile(runner_.folder.PathOf("plain.part1.avi")).size()));
}

TEST_F(Films, AreCutIntoPartsOfASize) {
  const auto result = RunParts({"--size", "200KB"});
  EXPECT_EQ(result.code, 0) << result.errors;
  ASSERT_GT(runner_.folder.Names().size(), 1U);
  for (const auto& name : runner_.folder.Names()) {
    EXPECT_LE(QFile(runner_.folder.PathOf(name.c_str())).size(), 200 * 1024);
  }
}

TEST_F(Films, AreCutAtGivenFrames) {
  const auto keys =
      FilmOfJson(QByteArray::fromStdString(Run({"info", film_, "--json", "--key-frames"}).answer));
  ASSERT_TRUE(keys);
  const auto frame = keys->keyFrames[2].frame;
  const auto result = RunParts({"--cut", std::to_string(frame)});
  EXPECT_EQ(result.code, 0) << result.errors;
  EXPECT_NE(result.answer.find("frames 0 to " + std::to_string(frame - 1) + "\n"),
            std::string::npos)
      << result.answer;
  const auto wrong = RunParts({"--cut", std::to_string(frame + 1), "--force"});
  EXPECT_EQ(wrong.code, 3);
  EXPECT_EQ(wrong.errors, "brindle: frame " + std::to_string(frame + 1) + " is not a key frame\n");
  EXPECT_EQ(RunParts({"--cut", "0", "--force"}).code, 3);
}

TEST_F(Films, AreNotCutIntoPartsThatCannotBe) {
  const auto few = RunParts({"--size", "200KB", "--parts", "1"});
  EXPECT_EQ(few.code, 3);
  EXPECT_NE(few.errors.find("1 part of this size cannot hold the film; it takes "),
            std::string::npos)
      << few.errors;
  EXPECT_EQ(RunParts({"--size", "1KB"}).code, 3);
  EXPECT_EQ(RunParts({"--parts", "1000"}).code, 3);
  EXPECT_TRUE(runner_.folder.Names().empty());
}

TEST_F(Films, DoNotReplacePartsUnlessForced) {
  runner_.folder.Put("plain.part2.avi", "mine");
  const auto result = RunParts({"--parts", "2"});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.errors, "brindle: " + Native(runner_.folder.PathOf("plain.part2.avi")) +
                               " exists already; --force replaces it\n");
  EXPECT_EQ(runner_.folder.Names(), std::vector<std::string>{"plain.part2.avi"});
  EXPECT_EQ(runner_.folder.Bytes("plain.part2.avi"), "mine");
  EXPECT_EQ(RunParts({"--parts", "2", "--force"}).code, 0);
  EXPECT_NE(runner_.folder.Bytes("plain.part2.avi"), "mine");
}

TEST_F(Films, LeaveNoPartWhenInterrupted) {
  FakeConsole console;
  const auto path = runner_.folder.Path().toStdString();
  // While the film is read it is looked for some times; then while it is written.
  for (const int look : {5, 10, 20, 30}) {
    console.interruptedAtLook = look;
    const auto result =
        runner_.Run({"parts", film_, "--parts", "2", "-o", path, "--force"}, console);
    if (result.code != 0) {
      EXPECT_EQ(result.code, 130);
      EXPECT_TRUE(runner_.folder.Names().empty());
    }
  }
}

TEST_F(Films, SayWhereThereIsNoFolder) {
  const auto result = Run({"parts", film_, "--parts", "2", "-o", PathOf("gone")});
  EXPECT_EQ(result.code, 1);
  EXPECT_EQ(result.errors, "brindle: there is no folder " + PathOf("gone") + "\n");
}

}  // namespace
}  // namespace brindle
