// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Facts about films, held against what was encoded and against what ffprobe says.

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <sys/stat.h>
#include <vector>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "base/files/system_disk.h"
#include "media/film.h"
#include "media/film_json.h"
#include "media/libav/avi_layout.h"
#include "media/part_sizes.h"
#include "tests/media/avi_builder.h"
#include "tests/media/made_films.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

struct FilmCase {
  const char* name;
  const char* file;
  const char* arguments;
  const char* container;
  const char* codec;
  std::int64_t frames = 250;
  double rate = 25;
  double shape = 4.0 / 3;
  std::vector<std::string> audio = {};
  const char* parts = "matroska";
};

class FilmFacts : public testing::TestWithParam<FilmCase> {
 protected:
  static QString Path() {
    return MadeFilms::Make(QString::fromUtf8(GetParam().file),
                           QString::fromUtf8(GetParam().arguments));
  }
};

TEST_P(FilmFacts, AreThoseOfTheEncoder) {
  const auto& expected = GetParam();
  const auto read = ReadFilmAt(Path());
  ASSERT_TRUE(read) << ReasonFor(read);
  const auto& film = (*read)->Facts();
  EXPECT_EQ(film.container, expected.container);
  EXPECT_EQ(film.bytes, QFile(Path()).size());
  EXPECT_EQ(film.parts.container, expected.parts);
  ASSERT_TRUE(film.video);
  EXPECT_EQ(film.video->codec, expected.codec);
  EXPECT_EQ(film.video->frames, expected.frames);
  EXPECT_DOUBLE_EQ(film.video->frameRate.Value(), expected.rate);
  EXPECT_NEAR(film.video->Shape(), expected.shape, 0.001);
  EXPECT_NEAR(film.seconds, static_cast<double>(expected.frames) / expected.rate, 0.05);
  std::vector<std::string> codecs;
  for (const auto& audio : film.audio) {
    codecs.push_back(audio.codec);
    EXPECT_EQ(audio.sampleRate, 44100);
    EXPECT_EQ(audio.channels, 1);
    EXPECT_NEAR(audio.kilobitsPerSecond, static_cast<double>(audio.bytes) * 8 / 1000 / 10,
                audio.kilobitsPerSecond * 0.02);
  }
  EXPECT_EQ(codecs, expected.audio);
  EXPECT_EQ(film.framesBetweenAudio.has_value(), !codecs.empty());
}

TEST_P(FilmFacts, AreThoseOfFfprobe) {
  const auto read = ReadFilmAt(Path());
  ASSERT_TRUE(read) << ReasonFor(read);
  const auto& film = (*read)->Facts();
  const auto lines =
      OutputOf(QStringLiteral("ffprobe"),
               {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"),
                QStringLiteral("packet=stream_index,codec_type,size,flags"), QStringLiteral("-of"),
                QStringLiteral("default=nk=1:nw=1"), Path()})
          .split('\n');
  std::map<std::string, std::int64_t> bytes;
  std::size_t keys = 0;
  for (qsizetype i = 0; i + 3 < lines.size(); i += 4) {
    const auto type = lines[i].toStdString();
    bytes[type] += lines[i + 2].toLongLong();
    keys += type == "video" && lines[i + 3].startsWith('K') ? 1 : 0;
  }
  EXPECT_EQ(film.video->bytes, bytes["video"]);
  std::int64_t audioBytes = 0;
  for (const auto& audio : film.audio) {
    audioBytes += audio.bytes;
  }
  EXPECT_EQ(audioBytes, bytes["audio"]);
  EXPECT_EQ(film.containerBytes, film.bytes - bytes["video"] - bytes["audio"]);
  EXPECT_EQ(film.keyFrames.size(), keys);
  EXPECT_EQ(film.parts.end.videoBytes, bytes["video"]);
  EXPECT_EQ(film.parts.end.audioBytes, bytes["audio"]);
}

TEST_P(FilmFacts, AreBelievedByTheWindows) {
  const auto read = ReadFilmAt(Path());
  ASSERT_TRUE(read) << ReasonFor(read);
  const auto& film = (*read)->Facts();
  const auto again = FilmOfJson(QByteArray::fromStdString(JsonOf(film, "film")));
  ASSERT_TRUE(again) << again.error().toStdString();
  ASSERT_EQ(again->keyFrames.size(), film.keyFrames.size());
  for (std::size_t to = 1; to <= film.keyFrames.size(); ++to) {
    EXPECT_EQ(PartBytes(*again, to - 1, to), PartBytes(film, to - 1, to));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Each, FilmFacts,
    testing::Values(
        // The encoder puts an empty frame first, so that the audio is not late.
        FilmCase{.name = "AviWithVariableBitrateAudio",
                 .file = "plain.avi",
                 .arguments = "-c:v mpeg4 -g 25 -c:a libmp3lame -q:a 4",
                 .container = "avi",
                 .codec = "mpeg4",
                 .frames = 251,
                 .audio = {"mp3"},
                 .parts = "avi"},
        FilmCase{.name = "AviWithTwoTracks",
                 .file = "two.avi",
                 .arguments = "-c:v mpeg4 -g 25 -c:a ac3 -map 0 -map 1 -map 1",
                 .container = "avi",
                 .codec = "mpeg4",
                 .audio = {"ac3", "ac3"},
                 .parts = "avi"},
        FilmCase{.name = "AviWithPcm",
                 .file = "pcm.avi",
                 .arguments = "-c:v mpeg4 -g 25 -c:a pcm_s16le",
                 .container = "avi",
                 .codec = "mpeg4",
                 .audio = {"pcm_s16le"},
                 .parts = "avi"},
        FilmCase{.name = "AviWithFramesOutOfOrder",
                 .file = "bframes.avi",
                 .arguments = "-c:v mpeg4 -bf 2 -g 24 -an",
                 .container = "avi",
                 .codec = "mpeg4",
                 .parts = "avi"},
        FilmCase{.name = "AviOfOddShapeAndFilmRate",
                 .file = "odd.avi",
                 .arguments = "-vf setsar=64/45 -r 24000/1001 -c:v mpeg4 -g 25 -an",
                 .container = "avi",
                 .codec = "mpeg4",
                 .frames = 241,
                 .rate = 24000.0 / 1001,
                 .shape = 160.0 / 120 * 64 / 45,
                 .parts = "avi"},
        FilmCase{.name = "Mp4",
                 .file = "plain.mp4",
                 .arguments = "-c:v libx264 -g 25 -c:a aac",
                 .container = "mp4",
                 .codec = "h264",
                 .audio = {"aac"},
                 .parts = "mp4"},
        FilmCase{.name = "Mp4InFragments",
                 .file = "fragments.mp4",
                 .arguments = "-c:v libx264 -g 25 -c:a aac -movflags frag_keyframe+empty_moov",
                 .container = "mp4",
                 .codec = "h264",
                 .audio = {"aac"},
                 .parts = "mp4"},
        FilmCase{.name = "Mp4OfFilmRate",
                 .file = "film.mp4",
                 .arguments = "-r 24000/1001 -c:v libx264 -g 25 -an",
                 .container = "mp4",
                 .codec = "h264",
                 .frames = 241,
                 .rate = 24000.0 / 1001,
                 .parts = "mp4"},
        FilmCase{.name = "Mov",
                 .file = "plain.mov",
                 .arguments = "-c:v mpeg4 -g 25 -c:a aac",
                 .container = "mp4",
                 .codec = "mpeg4",
                 .audio = {"aac"},
                 .parts = "mp4"},
        FilmCase{.name = "Matroska",
                 .file = "plain.mkv",
                 .arguments = "-c:v libx264 -g 25 -c:a ac3",
                 .container = "matroska",
                 .codec = "h264",
                 .audio = {"ac3"}},
        FilmCase{.name = "MatroskaOfFilmRate",
                 .file = "film.mkv",
                 .arguments = "-r 24000/1001 -c:v mpeg4 -g 25 -an",
                 .container = "matroska",
                 .codec = "mpeg4",
                 .frames = 241,
                 .rate = 24000.0 / 1001},
        FilmCase{.name = "TransportStream",
                 .file = "plain.ts",
                 .arguments = "-c:v libx264 -g 25 -c:a aac",
                 .container = "mpegts",
                 .codec = "h264",
                 .audio = {"aac"}},
        FilmCase{.name = "ProgramStream",
                 .file = "plain.mpg",
                 .arguments = "-c:v mpeg2video -g 25 -c:a mp2",
                 .container = "mpeg",
                 .codec = "mpeg2video",
                 .audio = {"mp2"}},
        FilmCase{.name = "Flash",
                 .file = "plain.flv",
                 .arguments = "-c:v libx264 -g 25 -c:a aac",
                 .container = "flv",
                 .codec = "h264",
                 .audio = {"aac"}}),
    NameOf);

TEST(FilmReader, FindsKeyFramesWithoutAnIndex) {
  const auto whole = ReadFilmAt(MadeFilms::Avi());
  ASSERT_TRUE(whole);
  const TemporaryFolder folder;
  auto bytes = TemporaryFolder::BytesOf(MadeFilms::Avi());
  const auto place = bytes.rfind("idx1");
  ASSERT_NE(place, std::string::npos);
  folder.Put("cut.avi", bytes.substr(0, place));
  const auto cut = ReadFilmAt(folder.PathOf("cut.avi"));
  ASSERT_TRUE(cut) << ReasonFor(cut);
  const auto& expected = (*whole)->Facts();
  const auto& film = (*cut)->Facts();
  EXPECT_EQ(film.video->frames, expected.video->frames);
  ASSERT_EQ(film.keyFrames.size(), expected.keyFrames.size());
  for (std::size_t i = 0; i < film.keyFrames.size(); ++i) {
    EXPECT_EQ(film.keyFrames[i].frame, expected.keyFrames[i].frame);
    EXPECT_EQ(film.keyFrames[i].position, expected.keyFrames[i].position);
    EXPECT_EQ(film.keyFrames[i].audioBytes, expected.keyFrames[i].audioBytes);
  }
}

TEST(FilmReader, CountsFramesThatArePackedAndThoseThatAreDropped) {
  AviBuilder builder;
  builder.hasAudio = false;
  // A frame with another one in it, and a placeholder for that one; then nothing twice.
  for (int i = 0; i < 10; ++i) {
    for (const std::uint32_t size : {900U, 7U, 0U, 0U, 501U}) {
      builder.pieces.push_back({true, size, size == 900});
    }
  }
  builder.pieces.push_back({true, 0, false});
  const TemporaryFolder folder;
  builder.Write(folder.PathOf("a.avi"));
  const auto read = ReadFilmAt(folder.PathOf("a.avi"));
  ASSERT_TRUE(read) << ReasonFor(read);
  const auto& film = (*read)->Facts();
  EXPECT_EQ(film.video->frames, 51);
  EXPECT_EQ(film.seconds, 51.0 / 25);
  EXPECT_EQ(film.video->bytes, 10 * (900 + 7 + 501));
  ASSERT_EQ(film.keyFrames.size(), 10U);
  EXPECT_EQ(film.keyFrames[9].frame, 45);
}

// Whether nothing has to be read but the headers and the index.
bool HasUsableIndex(const QString& path) {
  const auto file = TheSystemsDisk().Open(path, OpenFor::Reading);
  EXPECT_TRUE(file);
  const auto layout = ReadAviLayout(**file, path, [](qint64) { return true; });
  EXPECT_TRUE(layout && *layout);
  return layout && *layout && (*layout)->hasIndex;
}

TEST(FilmReader, UsesTheIndexOfAnAviFile) {
  EXPECT_TRUE(HasUsableIndex(MadeFilms::Avi()));
  const auto longer = MadeFilms::Make(QStringLiteral("longer.avi"),
                                      QStringLiteral("-c:v mpeg4 -q:v 1 -g 25 -c:a pcm_s16le"));
  EXPECT_TRUE(HasUsableIndex(longer));
}

// 150 frames of 20 MB, and a second of audio every 25 of them.
AviBuilder Large() {
  AviBuilder builder;
  for (int i = 0; i < 150; ++i) {
    if (i % 25 == 0) {
      builder.pieces.push_back({false, 176400, true});
    }
    builder.pieces.push_back({true, 20'000'001, i % 10 == 0});
  }
  return builder;
}

TEST(FilmReader, ReadsMoreThanTwoGigabytes) {
  const TemporaryFolder folder;
  for (const bool isNew : {false, true}) {
    auto builder = Large();
    builder.hasNewIndex = isNew;
    builder.hasOldIndex = !isNew;
    builder.Write(folder.PathOf("large.avi"));
    EXPECT_TRUE(HasUsableIndex(folder.PathOf("large.avi")));
    const auto read = ReadFilmAt(folder.PathOf("large.avi"));
    ASSERT_TRUE(read) << ReasonFor(read);
    const auto& film = (*read)->Facts();
    EXPECT_GT(film.bytes, 3'000'000'000);
    EXPECT_EQ(film.video->frames, 150);
    EXPECT_EQ(film.video->bytes, 150 * std::int64_t{20'000'001});
    EXPECT_EQ(film.audio.front().bytes, 6 * 176400);
    EXPECT_EQ(film.keyFrames.size(), 15U);
    EXPECT_EQ(film.framesBetweenAudio, 25);
    // At frame 10, after 0.4 s: in the middle of the first second of audio.
    EXPECT_EQ(film.keyFrames[1].audioBytes, 176400 * 4 / 10);
    EXPECT_EQ(film.keyFrames[1].extraBytes, 24);
  }
}

TEST(FilmReader, ReadsSoundAlone) {
  const auto path =
      MadeFilms::Make(QStringLiteral("song.mp3"), QStringLiteral("-map 1 -c:a libmp3lame -q:a 4"));
  const auto read = ReadFilmAt(path);
  ASSERT_TRUE(read) << ReasonFor(read);
  const auto& film = (*read)->Facts();
  EXPECT_EQ(film.container, "mp3");
  EXPECT_FALSE(film.video);
  EXPECT_NEAR(film.seconds, 10, 0.1);
  EXPECT_TRUE(film.keyFrames.empty());
  EXPECT_EQ(film.parts.container, "");
}

TEST(FilmReader, StopsWhenItIsAskedTo) {
  const auto path =
      MadeFilms::Make(QStringLiteral("plain.ts"), QStringLiteral("-c:v libx264 -g 25 -c:a aac"));
  const auto read = MakeFilmReader()->Read(path, [](double) { return false; });
  EXPECT_EQ(ReasonFor(read), "aborted");
}

TEST(FilmReader, RefusesWhatIsNoFile) {
  const TemporaryFolder folder;
  EXPECT_EQ(ReasonFor(ReadFilmAt(folder.Path())), "not a file");
  EXPECT_EQ(ReasonFor(ReadFilmAt(QStringLiteral("/dev/zero"))), "not a file");
  ASSERT_EQ(mkfifo(qPrintable(folder.PathOf("fifo")), 0600), 0);
  EXPECT_EQ(ReasonFor(ReadFilmAt(folder.PathOf("fifo"))), "not a file");
  EXPECT_NE(ReasonFor(ReadFilmAt(folder.PathOf("gone"))), "");
  folder.Put("empty.avi", "");
  EXPECT_EQ(ReasonFor(ReadFilmAt(folder.PathOf("empty.avi"))), "it is empty");
}

TEST(FilmReader, RefusesWhatIsNoFilm) {
  const TemporaryFolder folder;
  folder.Put("text.avi", std::string(5000, 'a'));
  EXPECT_NE(ReasonFor(ReadFilmAt(folder.PathOf("text.avi"))), "");
  // Lists of other files, which the library could open.
  folder.Put("list.m3u8", "#EXTM3U\n#EXT-X-TARGETDURATION:10\n#EXTINF:10,\n/etc/passwd\n");
  EXPECT_NE(ReasonFor(ReadFilmAt(folder.PathOf("list.m3u8"))), "");
  folder.Put("list.ffconcat", "ffconcat version 1.0\nfile /etc/passwd\n");
  EXPECT_NE(ReasonFor(ReadFilmAt(folder.PathOf("list.ffconcat"))), "");
}

class DamagedFilm : public testing::TestWithParam<FilmCase> {
 protected:
  // The film or one clear reason, and no more frames than there were.
  void Read(const std::string& bytes) const {
    folder_.Put("film", bytes);
    const auto read = ReadFilmAt(folder_.PathOf("film"));
    if (!read) {
      EXPECT_NE(ReasonFor(read), "");
    } else {
      const auto again = FilmOfJson(QByteArray::fromStdString(JsonOf((*read)->Facts(), "film")));
      EXPECT_TRUE(again) << again.error().toStdString();
    }
  }

  static std::string Whole() {
    return TemporaryFolder::BytesOf(MadeFilms::Make(QString::fromUtf8(GetParam().file),
                                                    QString::fromUtf8(GetParam().arguments)));
  }

 private:
  TemporaryFolder folder_;
};

TEST_P(DamagedFilm, IsCutAtEveryThousandthByte) {
  const auto whole = Whole();
  for (std::size_t length = 1000; length < whole.size(); length += 1000) {
    SCOPED_TRACE(length);
    Read(whole.substr(0, length));
  }
}

TEST_P(DamagedFilm, HasSizesOfNothingAndOfEverything) {
  const auto whole = Whole();
  for (const auto& size : {std::string(4, '\0'), std::string(4, '\xFF')}) {
    for (std::size_t place = 0; place + 4 < std::min<std::size_t>(whole.size(), 600); place += 4) {
      SCOPED_TRACE(place);
      auto bytes = whole;
      bytes.replace(place, 4, size);
      Read(bytes);
    }
    for (std::size_t back = 4; back < 400; back += 4) {
      SCOPED_TRACE(back);
      auto bytes = whole;
      bytes.replace(whole.size() - back, 4, size);
      Read(bytes);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Each, DamagedFilm,
    testing::Values(FilmCase{.name = "Avi",
                             .file = "small.avi",
                             .arguments = "-t 2 -c:v mpeg4 -g 10 -c:a libmp3lame -q:a 9"},
                    FilmCase{.name = "Mp4",
                             .file = "small.mp4",
                             .arguments = "-t 2 -c:v libx264 -crf 40 -g 10 -c:a aac -b:a 32k"},
                    FilmCase{.name = "Matroska",
                             .file = "small.mkv",
                             .arguments = "-t 2 -c:v libx264 -crf 40 -g 10 -c:a aac -b:a 32k"}),
    NameOf);

TEST(LyingIndex, OfAnAviFileIsNotBelieved) {
  const auto whole = TemporaryFolder::BytesOf(MadeFilms::Avi());
  const auto expected = ReadFilmAt(MadeFilms::Avi());
  ASSERT_TRUE(expected);
  const auto index = whole.rfind("idx1");
  const TemporaryFolder folder;
  // Of the first entry, one in the middle, and the last: position and size.
  for (const std::size_t entry : {0U, 100U, 300U}) {
    for (const std::size_t field : {8U, 12U}) {
      for (const auto& lie : {std::string(4, '\xFF'), std::string("\x10\x27\0\0", 4)}) {
        auto bytes = whole;
        bytes.replace(index + 8 + entry * 16 + field, 4, lie);
        folder.Put("lie.avi", bytes);
        const auto read = ReadFilmAt(folder.PathOf("lie.avi"));
        ASSERT_TRUE(read) << ReasonFor(read);
        const auto& film = (*read)->Facts();
        EXPECT_EQ(film.video->frames, (*expected)->Facts().video->frames);
        EXPECT_EQ(film.video->bytes, (*expected)->Facts().video->bytes);
        EXPECT_EQ(film.audio.front().bytes, (*expected)->Facts().audio.front().bytes);
      }
    }
  }
}

}  // namespace
}  // namespace brindle
