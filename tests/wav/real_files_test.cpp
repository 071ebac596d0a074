// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// Files that other programs made, and what those programs read in them after a pass.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/wav/pass_support.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/peak_scan.h"
#include "wav/wav_header.h"

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

constexpr double TargetPercent = 95;

// What the program writes to its standard output. A program that is not there is a failure.
std::string OutputOf(const QString& program, const QStringList& arguments) {
  QProcess process;
  auto environment = QProcessEnvironment::systemEnvironment();
  environment.insert(u"LC_ALL"_s, u"C"_s);
  process.setProcessEnvironment(environment);
  process.setStandardInputFile(QProcess::nullDevice());
  process.start(program, arguments);
  const bool isFinished = process.waitForStarted() && process.waitForFinished();
  EXPECT_TRUE(isFinished && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0)
      << program.toStdString() << ": " << process.errorString().toStdString() << "\n"
      << process.readAllStandardError().toStdString();
  return process.readAllStandardOutput().toStdString();
}

std::vector<std::int16_t> WordsOf(const std::string& bytes) {
  std::vector<std::int16_t> words(bytes.size() / 2);
  std::memcpy(words.data(), bytes.data(), words.size() * 2);
  return words;
}

struct Program {
  QString name;
  QStringList arguments;  // "FILE" stands for the file to be made
};

// Tones and noise, the same in every run.
Program Sox(int channels, const QString& bits, const QStringList& synth,
            const QString& type = u"wav"_s, int rate = 44100) {
  return {u"sox"_s,
          QStringList{u"-V1"_s, u"-R"_s, u"-D"_s, u"-n"_s, u"-r"_s, QString::number(rate), u"-c"_s,
                      QString::number(channels), u"-b"_s, bits, u"-t"_s, type, u"FILE"_s} +
              synth};
}

Program Ffmpeg(const QString& expression, const QStringList& options) {
  return {u"ffmpeg"_s, QStringList{u"-nostdin"_s, u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s,
                                   expression} +
                           options + QStringList{u"-f"_s, u"wav"_s, u"FILE"_s}};
}

const QStringList Tones{u"synth"_s,  u"2"_s,  u"sine"_s, u"440"_s,
                        u"square"_s, u"97"_s, u"vol"_s,  u"0.4"_s};
const QString Hum = u"aevalsrc=0.3*sin(2*PI*(330+40*t)*t)+0.1*sin(2*PI*1013*t):s=44100:d=2.5"_s;
const QString Hiss = u"anoisesrc=seed=7:color=pink:amplitude=0.6:sample_rate=48000:duration=2"_s;

struct FileCase {
  std::string name;
  Program maker;
  int channels = 0;
  int bits = 0;
  int rate = 44100;
  bool isRefused = false;  // made in the extensible format, which is not opened
  bool hasChunkBehind = false;
};

const std::vector<FileCase> Files{
    {"SoxMono",
     Sox(1, u"16"_s, {u"synth"_s, u"3.3"_s, u"sawtooth"_s, u"220"_s, u"vol"_s, u"0.5"_s}), 1, 16},
    {"SoxStereo", Sox(2, u"16"_s, Tones), 2, 16},
    {"SoxNoise", Sox(2, u"16"_s, {u"synth"_s, u"1.7"_s, u"pinknoise"_s, u"vol"_s, u"0.7"_s}), 2,
     16},
    {"SoxSixChannels", Sox(6, u"16"_s, Tones), 6, 16, 44100, true},
    {"SoxSixChannelsPlain", Sox(6, u"16"_s, Tones, u"wavpcm"_s), 6, 16},
    {"SoxEightBits", Sox(2, u"8"_s, Tones), 2, 8},
    {"SoxTwentyFourBits", Sox(2, u"24"_s, Tones, u"wavpcm"_s), 2, 24},
    {"SoxLowRate",
     Sox(1, u"16"_s, {u"synth"_s, u"20000s"_s, u"sine"_s, u"300"_s, u"vol"_s, u"0.2"_s}, u"wav"_s,
         8000),
     1, 16, 8000},
    {"SoxBelowABlock",
     Sox(1, u"16"_s, {u"synth"_s, u"777s"_s, u"sine"_s, u"300"_s, u"vol"_s, u"0.2"_s}), 1, 16},
    // 65536 * 3 bytes to the sample.
    {"SoxWholeBlocks",
     Sox(2, u"16"_s, {u"synth"_s, u"49152s"_s, u"sine"_s, u"300"_s, u"vol"_s, u"0.2"_s}), 2, 16},
    // Above two of the large blocks.
    {"SoxLong",
     Sox(2, u"16"_s, {u"synth"_s, u"50"_s, u"sine"_s, u"300-3000"_s, u"vol"_s, u"0.6"_s}), 2, 16},
    {"FfmpegMono", Ffmpeg(Hum, {u"-c:a"_s, u"pcm_s16le"_s}), 1, 16},
    {"FfmpegTitled",
     Ffmpeg(Hum, {u"-ac"_s, u"2"_s, u"-metadata"_s, u"title=A longer title"_s, u"-metadata"_s,
                  u"artist=Nobody"_s, u"-c:a"_s, u"pcm_s16le"_s}),
     2, 16},
    {"FfmpegBare", Ffmpeg(Hiss, {u"-bitexact"_s, u"-c:a"_s, u"pcm_s16le"_s}), 1, 16, 48000},
    {"FfmpegChunkBehind", Ffmpeg(Hiss, {u"-write_peak"_s, u"on"_s, u"-c:a"_s, u"pcm_s16le"_s}), 1,
     16, 48000, false, true},
    {"FfmpegBroadcast",
     Ffmpeg(Hum, {u"-write_bext"_s, u"1"_s, u"-metadata"_s, u"originator=Nobody"_s, u"-c:a"_s,
                  u"pcm_s16le"_s}),
     1, 16},
    {"FfmpegSixChannels", Ffmpeg(Hum, {u"-ac"_s, u"6"_s, u"-c:a"_s, u"pcm_s16le"_s}), 6, 16, 44100,
     true},
    {"FfmpegEightBits", Ffmpeg(Hum, {u"-c:a"_s, u"pcm_u8"_s}), 1, 8},
    {"FfmpegTwentyFourBits", Ffmpeg(Hum, {u"-c:a"_s, u"pcm_s24le"_s}), 1, 24, 44100, true},
};

class RealFile : public ::testing::TestWithParam<FileCase> {
 protected:
  void SetUp() override {
    auto arguments = GetParam().maker.arguments;
    arguments.replaceInStrings(u"FILE"_s, Source());
    (void)OutputOf(GetParam().maker.name, arguments);
    bytes_ = folder_.Bytes("source.wav");
    ASSERT_GT(bytes_.size(), 1000U);
  }

  // What the two programs say of format and length, but for the name.
  static std::string FactsOf(const QString& path) {
    const auto facts = OutputOf(u"soxi"_s, {path}) +
                       OutputOf(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-show_entries"_s,
                                               u"stream=codec_name,sample_rate,channels,"
                                               "bits_per_sample,duration_ts"_s,
                                               u"-of"_s, u"csv"_s, path});
    return QString::fromStdString(facts).remove(path).toStdString();
  }
  // The samples of a 16-bit file as the two programs read them.
  static std::string ReadBySox(const QString& path) {
    return OutputOf(u"sox"_s, {u"-V1"_s, u"-D"_s, path, u"-t"_s, u"raw"_s, u"-e"_s,
                               u"signed-integer"_s, u"-b"_s, u"16"_s, u"-L"_s, u"-"_s});
  }
  static std::string ReadByFfmpeg(const QString& path) {
    return OutputOf(u"ffmpeg"_s, {u"-nostdin"_s, u"-v"_s, u"error"_s, u"-i"_s, path, u"-f"_s,
                                  u"s16le"_s, u"-c:a"_s, u"pcm_s16le"_s, u"-"_s});
  }

  // What a pass makes of the source, which stays as it is.
  [[nodiscard]] std::string Normalized(const GainTable& table, Buffering buffering,
                                       bool isInPlace) const {
    folder_.Put("worked.wav", bytes_);
    QFile::remove(Target());
    WatchedPass pass;
    ScriptedQuestions questions;
    EXPECT_EQ(
        pass.Open(
            {.source = folder_.PathOf("worked.wav"), .target = Target(), .isInPlace = isInPlace},
            questions),
        WatchedPass::Opened::Yes)
        << TextOf(pass.Error());
    const ReadClock clock(1);
    ObserverOfPass observer;
    EXPECT_EQ(pass.Run(table, buffering, clock, observer), WatchedPass::Ended::Completed)
        << TextOf(pass.Error());
    if (isInPlace) {
      return folder_.Bytes("worked.wav");
    }
    EXPECT_TRUE(folder_.Bytes("worked.wav") == bytes_);
    return folder_.Bytes("target.wav");
  }

  void ExpectHeader() const {
    const auto header = ReadHeader(Source());
    if (GetParam().isRefused) {
      ASSERT_FALSE(header);
      ASSERT_TRUE(std::holds_alternative<WavRefusal>(header.error()));
      EXPECT_EQ(std::get<WavRefusal>(header.error()), WavRefusal::NotPcm);
      return;
    }
    ASSERT_TRUE(header);
    const auto& facts = *header;
    EXPECT_EQ(facts.sampleRate, GetParam().rate);
    EXPECT_EQ(facts.channels, GetParam().channels);
    EXPECT_EQ(facts.bitsPerSample, GetParam().bits);
    const auto frames = OutputOf(u"soxi"_s, {u"-s"_s, Source()});
    ASSERT_TRUE(facts.Duration().has_value());
    EXPECT_DOUBLE_EQ(facts.Duration().value_or(0), std::stod(frames) / GetParam().rate);
  }

  [[nodiscard]] QString Source() const { return folder_.PathOf("source.wav"); }
  [[nodiscard]] QString Target() const { return folder_.PathOf("target.wav"); }
  [[nodiscard]] const TemporaryFolder& Folder() const { return folder_; }
  [[nodiscard]] const std::string& Bytes() const { return bytes_; }

 private:
  TemporaryFolder folder_;
  std::string bytes_;
};

TEST_P(RealFile, IsReadNormalizedByThosePrograms) {
  ExpectHeader();
  const ReadClock clock;
  ScriptedObserver observer;
  const auto scan = ScanPeaks(Source(), clock, observer);
  ASSERT_EQ(TextOf(scan.error), "no error");
  const auto gain = GainFor(scan.lowest, scan.highest, TargetPercent);
  ASSERT_TRUE(gain.has_value());
  const GainTable table(gain.value_or(1));

  const auto start = Bytes().find("data") + 8;
  const auto mapped = [&] {
    std::uint32_t declared = 0;
    std::memcpy(&declared, Bytes().data() + start - 4, sizeof(declared));
    EXPECT_EQ(start + declared + declared % 2 < Bytes().size(), GetParam().hasChunkBehind);
    auto bytes = Bytes();
    for (auto i = start; i + 1 < start + declared; i += 2) {
      std::int16_t word = 0;
      std::memcpy(&word, bytes.data() + i, sizeof(word));
      word = table(word);
      std::memcpy(bytes.data() + i, &word, sizeof(word));
    }
    return bytes;
  }();
  EXPECT_FALSE(mapped == Bytes());
  for (const auto buffering : {Buffering::Single, Buffering::Multi}) {
    for (const bool isInPlace : {true, false}) {
      EXPECT_TRUE(Normalized(table, buffering, isInPlace) == mapped)
          << (buffering == Buffering::Single ? "single" : "multi")
          << (isInPlace ? " in place" : "");
    }
  }

  // The target of the last pass.
  EXPECT_EQ(FactsOf(Target()), FactsOf(Source()));
  if (GetParam().bits == 16) {
    auto expected = WordsOf(ReadBySox(Source()));
    ASSERT_FALSE(expected.empty());
    EXPECT_TRUE(expected == WordsOf(ReadByFfmpeg(Source())));
    std::transform(expected.begin(), expected.end(), expected.begin(), table);
    EXPECT_TRUE(WordsOf(ReadBySox(Target())) == expected);
    EXPECT_TRUE(WordsOf(ReadByFfmpeg(Target())) == expected);
  }
}

INSTANTIATE_TEST_SUITE_P(Files, RealFile, ::testing::ValuesIn(Files), NameOf);

}  // namespace
}  // namespace brindle
