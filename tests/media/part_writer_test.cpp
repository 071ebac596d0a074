// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The parts of a film: sizes, packets, and what is left when something fails.

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "media/film.h"
#include "media/part_sizes.h"
#include "tests/media/avi_builder.h"
#include "tests/media/made_films.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

struct PartsCase {
  const char* name;
  const char* file;
  const char* arguments;
  bool isPacked = true;  ///< its packets go into the parts as they are
};

QStringList Targets(const TemporaryFolder& folder, std::size_t count, const std::string& ending) {
  QStringList targets;
  for (std::size_t i = 1; i <= count; ++i) {
    targets.append(folder.PathOf(("part" + std::to_string(i) + "." + ending).c_str()));
  }
  return targets;
}

PartsState RunToEnd(PartsPass& pass) {
  while (true) {
    auto state = pass.Advance();
    if (!std::holds_alternative<PartsGoOn>(state)) {
      return state;
    }
  }
}

std::string ReasonOf(const PartsState& state) {
  const auto* failure = std::get_if<PartsFailed>(&state);
  return failure == nullptr ? "" : failure->error.reason.toStdString();
}

// The hashes of the packets of a track.
std::vector<std::string> HashesOf(const QString& film, const char* track) {
  const auto text =
      OutputOf(QStringLiteral("ffmpeg"),
               {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-i"), film,
                QStringLiteral("-map"), QString::fromUtf8(track), QStringLiteral("-c"),
                QStringLiteral("copy"), QStringLiteral("-f"), QStringLiteral("framehash"),
                QStringLiteral("-hash"), QStringLiteral("md5"), QStringLiteral("-")});
  std::vector<std::string> hashes;
  for (const auto& line : text.split('\n')) {
    const auto columns = line.split(',');
    if (!line.startsWith('#') && columns.size() > 5) {
      hashes.push_back(columns[5].trimmed().toStdString());
    }
  }
  return hashes;
}

class PartsOfAFilm : public testing::TestWithParam<PartsCase> {};

TEST_P(PartsOfAFilm, HaveAllPacketsOnceAndTheirSize) {
  const auto path =
      MadeFilms::Make(QString::fromUtf8(GetParam().file), QString::fromUtf8(GetParam().arguments));
  const auto read = ReadFilmAt(path);
  ASSERT_TRUE(read) << ReasonFor(read);
  const auto& film = (*read)->Facts();
  const auto size = PartBytes(film, 0, 4);
  const auto cuts = CutsFor(film, {size, size});
  ASSERT_TRUE(cuts);
  ASSERT_EQ(cuts->size(), 2U);
  const TemporaryFolder folder;
  const auto targets =
      Targets(folder, 3, film.parts.container == "matroska" ? "mkv" : film.parts.container);
  const auto pass = (*read)->WriteParts(*cuts, targets, false);
  const auto state = RunToEnd(*pass);
  const auto* done = std::get_if<PartsCompleted>(&state);
  ASSERT_NE(done, nullptr) << ReasonOf(state);
  EXPECT_EQ(folder.Names().size(), 3U);

  std::vector<std::size_t> ends = *cuts;
  ends.push_back(film.keyFrames.size());
  std::size_t from = 0;
  std::int64_t frames = 0;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    const auto& part = targets[static_cast<qsizetype>(i)];
    const auto expected = PartBytes(film, from, ends[i]);
    const auto written = QFile(part).size();
    EXPECT_EQ(done->bytes[i], written);
    if (film.parts.container == "avi") {
      EXPECT_EQ(written, expected);
    } else {
      EXPECT_LE(written, expected);
      EXPECT_GT(written, expected * 9 / 10 - 5000);
    }
    if (i + 1 < ends.size()) {
      EXPECT_LE(written, size);
    }
    // Decodes without a word, and begins with a key frame.
    EXPECT_EQ(
        OutputOf(QStringLiteral("ffmpeg"),
                 {QStringLiteral("-v"), QStringLiteral("warning"),
                  QStringLiteral("-guess_layout_max"), QStringLiteral("0"), QStringLiteral("-i"),
                  part, QStringLiteral("-f"), QStringLiteral("null"), QStringLiteral("-")}),
        "");
    const auto again = ReadFilmAt(part);
    ASSERT_TRUE(again) << ReasonFor(again);
    ASSERT_FALSE((*again)->Facts().keyFrames.empty());
    EXPECT_EQ((*again)->Facts().keyFrames.front().frame, 0);
    frames += (*again)->Facts().video->frames;
    from = ends[i];
  }
  EXPECT_EQ(frames, film.video->frames);
  for (std::size_t track = 0; GetParam().isPacked && track <= film.audio.size(); ++track) {
    const auto name = "0:" + std::to_string(track);
    std::vector<std::string> hashes;
    for (const auto& part : targets) {
      const auto own = HashesOf(part, name.c_str());
      hashes.insert(hashes.end(), own.begin(), own.end());
    }
    EXPECT_EQ(hashes, HashesOf(path, name.c_str()));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Each, PartsOfAFilm,
    testing::Values(PartsCase{"Avi", "plain.avi", "-c:v mpeg4 -g 25 -c:a libmp3lame -q:a 4"},
                    PartsCase{"AviWithTwoTracks", "two.avi",
                              "-c:v mpeg4 -g 25 -c:a ac3 -map 0 -map 1 -map 1"},
                    PartsCase{"AviWithPcm", "pcm.avi", "-c:v mpeg4 -g 25 -c:a pcm_s16le"},
                    PartsCase{"Mp4", "plain.mp4", "-c:v libx264 -g 25 -c:a aac"},
                    PartsCase{"Mp4OfFilmRate", "film.mp4", "-r 24000/1001 -c:v libx264 -g 25 -an"},
                    PartsCase{"Matroska", "plain.mkv", "-c:v libx264 -g 25 -c:a ac3"},
                    PartsCase{"TransportStream", "plain.ts", "-c:v libx264 -g 25 -c:a aac", false}),
    NameOf);

TEST(AviParts, OfSeveralSegmentsHaveTheSizeThatWasForeseen) {
  // A film that is nearly empty on the disk, and so are its parts not: they are removed at once.
  AviBuilder builder;
  for (int i = 0; i < 50; ++i) {
    builder.pieces.push_back({false, 176400 / 25 * 10, true});
    for (int frame = 0; frame < 10; ++frame) {
      builder.pieces.push_back({true, 4'300'001, frame == 0});
    }
  }
  builder.hasNewIndex = true;
  builder.hasOldIndex = false;
  const TemporaryFolder folder;
  builder.Write(folder.PathOf("large.avi"));
  const auto read = ReadFilmAt(folder.PathOf("large.avi"));
  ASSERT_TRUE(read) << ReasonFor(read);
  const auto& film = (*read)->Facts();
  const auto expected = PartBytes(film, 0, film.keyFrames.size());
  ASSERT_GT(expected, LargestPlainAvi);
  const auto targets = Targets(folder, 1, "avi");
  const auto pass = (*read)->WriteParts({}, targets, false);
  ASSERT_EQ(ReasonOf(RunToEnd(*pass)), "");
  EXPECT_EQ(QFile(targets[0]).size(), expected);
  const auto again = ReadFilmAt(targets[0]);
  ASSERT_TRUE(again) << ReasonFor(again);
  EXPECT_EQ((*again)->Facts().video->frames, 500);
  EXPECT_EQ((*again)->Facts().audio.front().bytes, film.audio.front().bytes);
  EXPECT_EQ((*again)->Facts().keyFrames.size(), film.keyFrames.size());
}

TEST(AviParts, HaveLongPiecesOfAudioCutInTwo) {
  AviBuilder builder;
  // A second of audio, then 25 frames, two of them key frames.
  for (int i = 0; i < 4; ++i) {
    builder.pieces.push_back({false, 176400, true});
    for (int frame = 0; frame < 25; ++frame) {
      builder.pieces.push_back({true, 1001, frame == 0 || frame == 10});
    }
  }
  const TemporaryFolder folder;
  builder.Write(folder.PathOf("a.avi"));
  const auto read = ReadFilmAt(folder.PathOf("a.avi"));
  ASSERT_TRUE(read) << ReasonFor(read);
  const auto& film = (*read)->Facts();
  const auto targets = Targets(folder, 3, "avi");
  const auto pass = (*read)->WriteParts({1, 3}, targets, false);
  ASSERT_EQ(ReasonOf(RunToEnd(*pass)), "");
  const std::vector<std::size_t> ends{0, 1, 3, 8};
  const std::vector<std::int64_t> audio{70560, 176400, 458640};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto& part = targets[static_cast<qsizetype>(i)];
    EXPECT_EQ(QFile(part).size(), PartBytes(film, ends[i], ends[i + 1]));
    const auto again = ReadFilmAt(part);
    ASSERT_TRUE(again) << ReasonFor(again);
    EXPECT_EQ((*again)->Facts().audio.front().bytes, audio[i]);
  }
}

class UnfinishedParts : public testing::Test {
 protected:
  void SetUp() override {
    auto read = ReadFilmAt(MadeFilms::Mp4());
    ASSERT_TRUE(read) << ReasonFor(read);
    film_ = std::move(*read);
    targets_ = Targets(folder_, 2, "mp4");
  }

  TemporaryFolder folder_;
  std::unique_ptr<FilmFile> film_;
  QStringList targets_;
};

TEST_F(UnfinishedParts, AreRemoved) {
  const auto avi = ReadFilmAt(MadeFilms::Avi());
  ASSERT_TRUE(avi);
  auto pass = (*avi)->WriteParts({3}, targets_, false);
  ASSERT_TRUE(std::holds_alternative<PartsGoOn>(pass->Advance()));
  EXPECT_FALSE(folder_.Names().empty());
  pass.reset();
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(UnfinishedParts, LeaveAFileThatIsThere) {
  folder_.Put("part2.mp4", "mine");
  auto pass = film_->WriteParts({3}, targets_, false);
  EXPECT_EQ(ReasonOf(RunToEnd(*pass)), "it exists already");
  pass.reset();
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"part2.mp4"});
  EXPECT_EQ(folder_.Bytes("part2.mp4"), "mine");
}

TEST_F(UnfinishedParts, OfAnEndedProgramAreWrittenOver) {
  folder_.Put("part1.mp4", "old");
  folder_.Put("part1.mp4.unfinished", std::string(5'000'000, 'a'));
  auto pass = film_->WriteParts({3}, targets_, true);
  EXPECT_EQ(ReasonOf(RunToEnd(*pass)), "");
  EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"part1.mp4", "part2.mp4"}));
  EXPECT_LT(QFile(targets_[0]).size(), 5'000'000);
}

TEST_F(UnfinishedParts, AreNotWrittenWhereThereIsNoFolder) {
  targets_ = {folder_.PathOf("gone/part1.mp4"), folder_.PathOf("gone/part2.mp4")};
  auto pass = film_->WriteParts({3}, targets_, true);
  EXPECT_NE(ReasonOf(RunToEnd(*pass)), "");
}

TEST_F(UnfinishedParts, AreRemovedWhenAFolderIsInTheWay) {
  QDir(folder_.Path()).mkdir(QStringLiteral("part2.mp4"));
  auto pass = film_->WriteParts({3}, targets_, true);
  EXPECT_EQ(ReasonOf(RunToEnd(*pass)), "not a file");
  pass.reset();
  EXPECT_EQ(folder_.Names(), std::vector<std::string>{"part2.mp4"});
}

}  // namespace
}  // namespace brindle
