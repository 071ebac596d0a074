// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The engine on real files, held byte for byte against the literal model.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include <QDir>
#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "base/time/clock.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/wav/literal_model.h"
#include "tests/wav/watched_pass.h"
#include "tests/wav/wav_builder.h"
#include "wav/gain.h"
#include "wav/normalization.h"
#include "wav/pass.h"
#include "wav/peak_scan.h"
#include "wav/wav_file.h"
#include "wav/wav_header.h"

namespace brindle {
namespace {

constexpr std::int64_t SmallBlock = 65536;
constexpr std::int64_t LargeBlock = 4194304;
constexpr std::int64_t NineMegabytes = 9'000'001;

// No level of the noise is clipped by them, none stays as it is, and what is mapped twice differs
// from what is mapped once.
struct Gain {
  explicit Gain(double gain) : table(gain), literal(TableLiterally(gain)) {}

  GainTable table;
  LiteralTable literal;
};

const Gain& Inverting() {
  static const Gain gain(-1.37);
  return gain;
}

const Gain& Halving() {
  static const Gain gain(0.5);
  return gain;
}

// Larger files are held against the model at fewer places, to stay quick.
constexpr std::int64_t LargeFile = 1'000'000;

// Every pass takes this long, too short for any update.
constexpr double PassSeconds = 0.125;

class BriefClock : public Clock {
 public:
  [[nodiscard]] double Now() const override { return calls_++ == 0 ? 1000 : 1000 + PassSeconds; }
  [[nodiscard]] float SecondsSinceMidnight() const override { return 0; }
  void After(double /*seconds*/, QObject* /*context*/, std::function<void()> /*action*/) override {}

 private:
  mutable std::int64_t calls_ = 0;
};

class NoUpdates : public PassObserver {
 public:
  [[nodiscard]] bool Update(const PassProgress& /*progress*/) override {
    ADD_FAILURE() << "an update within " << PassSeconds << " seconds";
    return true;
  }
};

class YesToAll : public TargetQuestions {
 public:
  [[nodiscard]] bool MayOverwrite() override {
    ++overwrites;
    return true;
  }
  void WorksInPlace() override { ADD_FAILURE() << "the target is not the source"; }

  int overwrites = 0;
};

// Any two bytes of it in a row are a level from 2048 to 20735 or from -20480 to -4097, whichever of
// them comes first; and no letter of a tag in small letters, nor a T, is among them.
const FileBytes& Noise() {
  static const FileBytes noise = [] {
    FileBytes bytes(16'000'000);
    std::uint32_t state = 12345;
    for (auto& byte : bytes) {
      state = state * 1664525 + 1013904223;
      const std::uint32_t random = state >> 16;
      byte =
          static_cast<std::uint8_t>(random % 2 == 0 ? 8 + random / 2 % 73 : 0xB0 + random / 2 % 64);
    }
    return bytes;
  }();
  return noise;
}

// The noise from the byte of the file on that this is, so that no two places look alike.
std::string NoiseFrom(std::size_t offset, std::int64_t size) {
  const auto from = Noise().begin() + static_cast<std::ptrdiff_t>(offset);
  return {from, from + static_cast<std::ptrdiff_t>(size)};
}

std::string ChunkFrom(std::size_t offset, std::int64_t size) {
  return "LIST" + Number(static_cast<std::uint64_t>(size), 4) + NoiseFrom(offset + 8, size);
}

struct Layout {
  std::string name;
  std::int64_t samples = 0;            // bytes of sample data that are there
  std::optional<std::int64_t> before;  // bytes of a chunk in front of the sample data
  std::optional<std::int64_t> behind;  // bytes of a chunk behind it
  std::optional<std::uint32_t> declared;
  std::uint16_t bits = 16;
  std::uint16_t channels = 2;
  bool isUpperCase = false;
};

FileBytes FileOf(const Layout& layout) {
  WavParts parts{.channels = layout.channels, .bits = layout.bits, .declared = layout.declared};
  if (layout.isUpperCase) {
    parts.formatTag = "FMT ";
    parts.dataTag = "DATA";
  }
  if (layout.before) {
    parts.before = ChunkFrom(parts.Start() - 9, *layout.before);
  }
  parts.samples = NoiseFrom(parts.Start() - 1, layout.samples);
  if (layout.behind) {
    parts.behind = ChunkFrom(parts.Start() - 1 + parts.samples.size(), *layout.behind);
  }
  const auto bytes = parts.Bytes();
  return {bytes.begin(), bytes.end()};
}

void PutFile(const QString& path, const FileBytes& bytes) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered));
  ASSERT_EQ(
      file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size())),
      static_cast<qint64>(bytes.size()));
}

::testing::AssertionResult Holds(const QString& path, const FileBytes& expected) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
    return ::testing::AssertionFailure() << "cannot be opened";
  }
  if (file.size() != static_cast<qint64>(expected.size())) {
    return ::testing::AssertionFailure()
           << "is " << file.size() << " bytes long and not " << expected.size();
  }
  static FileBytes found;
  found.resize(std::max<std::size_t>(expected.size(), 1));
  if (file.read(reinterpret_cast<char*>(found.data()), file.size()) != file.size()) {
    return ::testing::AssertionFailure() << "cannot be read";
  }
  if (expected.empty() || std::memcmp(found.data(), expected.data(), expected.size()) == 0) {
    return ::testing::AssertionSuccess();
  }
  const auto differs = std::mismatch(expected.begin(), expected.end(), found.begin());
  return ::testing::AssertionFailure()
         << "differs first at position " << (differs.first - expected.begin() + 1) << " of "
         << expected.size() << ": " << int{*differs.second} << " and not " << int{*differs.first};
}

FileBytes NormalizeLiterally(const FileBytes& file, const Gain& gain, Buffering buffering) {
  return buffering == Buffering::Multi ? NormalizeMultiLiterally(file, gain.literal)
                                       : NormalizeSingleLiterally(file, gain.literal);
}

class Truth : public ::testing::TestWithParam<Layout> {
 protected:
  Truth()
      : source_(QDir::toNativeSeparators(folder_.PathOf("source.wav"))),
        target_(folder_.PathOf("target.wav")) {}

  void ScanIsLiteral(const FileBytes& file) const {
    const BriefClock clock;
    NoUpdates observer;
    const auto scan = ScanPeaks(source_, clock, observer);
    ASSERT_FALSE(scan.error) << MessageOf(*scan.error).toStdString();
    const auto expected = ScanLiterally(file);
    EXPECT_FALSE(scan.isAborted);
    EXPECT_EQ(scan.lowest, expected.lowest);
    EXPECT_EQ(scan.highest, expected.highest);
    EXPECT_FLOAT_EQ(scan.throughput,
                    static_cast<float>(static_cast<double>(expected.measuredBytes) / PassSeconds /
                                       1024 / 1024));
  }

  // Scans once more for each pair of the positions, with the lowest level there is at one of them
  // and the highest at the other, in a file that is otherwise moderate.
  void ScanIsLiteralAt(FileBytes& file, const std::vector<std::int64_t>& positions) const {
    QFile onDisk(source_);
    ASSERT_TRUE(onDisk.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    const auto put = [&file, &onDisk](std::int64_t position, std::array<std::uint8_t, 2> word) {
      const auto index = static_cast<std::size_t>(position - 1);
      file[index] = word[0];
      file[index + 1] = word[1];
      ASSERT_TRUE(onDisk.seek(position - 1));
      ASSERT_EQ(onDisk.write(reinterpret_cast<const char*>(word.data()), 2), 2);
    };
    const auto wordAt = [&file](std::int64_t position) {
      const auto index = static_cast<std::size_t>(position - 1);
      return std::array<std::uint8_t, 2>{file[index], file[index + 1]};
    };
    for (std::size_t i = 0; i < positions.size(); i += 2) {
      const auto low = positions[i];
      const auto high = positions[std::min(i + 1, positions.size() - 1)];
      SCOPED_TRACE("levels at " + std::to_string(low) + " and " + std::to_string(high));
      const auto oldLow = wordAt(low);
      put(low, {0x00, 0x80});
      const auto oldHigh = wordAt(high);
      put(high, {0xFF, 0x7F});
      ScanIsLiteral(file);
      put(high, oldHigh);
      put(low, oldLow);
    }
  }

  void Normalize(const PassFiles& files, const Gain& gain, Buffering buffering,
                 qint64 length) const {
    YesToAll questions;
    WatchedPass pass;
    const int standing = !files.isInPlace && QFile(files.target).size() > 0 ? 1 : 0;
    const auto opened = pass.Open(files, questions);
    ASSERT_EQ(opened, WatchedPass::Opened::Yes)
        << (pass.Error() ? MessageOf(*pass.Error()).toStdString() : "");
    EXPECT_EQ(questions.overwrites, standing);
    const BriefClock clock;
    NoUpdates observer;
    const auto ended = pass.Run(gain.table, buffering, clock, observer);
    ASSERT_EQ(ended, WatchedPass::Ended::Completed)
        << (pass.Error() ? MessageOf(*pass.Error()).toStdString() : "");
    EXPECT_DOUBLE_EQ(pass.Throughput(), static_cast<double>(length) / PassSeconds / 1024 / 1024);
  }

  // The source stands on the disk, and does so again at the end.
  void PassIsLiteral(const FileBytes& file, const Gain& gain) const {
    const auto length = static_cast<qint64>(file.size());
    for (const auto buffering : {Buffering::Multi, Buffering::Single}) {
      SCOPED_TRACE(buffering == Buffering::Multi ? "multi" : "single");
      const auto expected = NormalizeLiterally(file, gain, buffering);
      // The second time what the first one left stands there.
      Normalize({source_, target_, false}, gain, buffering, length);
      EXPECT_TRUE(Holds(target_, expected)) << "the target";
      EXPECT_TRUE(Holds(source_, file)) << "the source beside a target";
      Normalize({source_, QString(), true}, gain, buffering, length);
      EXPECT_TRUE(Holds(source_, expected)) << "the source in place";
      PutFile(source_, file);
    }
  }

  const TemporaryFolder folder_;
  const QString source_;
  const QString target_;
};

// What stands at the edges of the blocks, of the samples and of the file.
std::vector<std::int64_t> EdgesOf(const FileBytes& file) {
  const auto data = *LocateLiterally(file);
  const auto whole = data.length - data.length % SmallBlock;
  const auto end = data.start + data.length;
  const auto blockEnd = data.fileLength - data.length % SmallBlock - SmallBlock - 1;
  const auto lastBlock = data.start + (blockEnd - data.start) / SmallBlock * SmallBlock;
  std::vector<std::int64_t> positions = {
      blockEnd + SmallBlock - 2,
      blockEnd + SmallBlock,
      lastBlock + SmallBlock - 2,
      lastBlock + SmallBlock,
  };
  if (data.fileLength < LargeFile) {
    const std::initializer_list<std::int64_t> more = {
        data.start - 2,
        data.start,
        data.start + SmallBlock - 2,
        data.start + SmallBlock,
        data.start + whole - SmallBlock - 2,
        data.start + whole - SmallBlock,
        data.start + whole - SmallBlock / 2,
        data.start + whole - 4,
        data.start + whole - 2,
        data.start + whole,
        end - 4,
        end - 3,
        end - 2,
        end - 1,
        end,
        end + 2,
        blockEnd + SmallBlock + 2,
        data.fileLength - SmallBlock - 1,
        data.fileLength - 3,
        data.fileLength - 1,
    };
    positions.insert(positions.end(), more);
  }
  std::erase_if(positions, [&data](std::int64_t position) {
    return position < data.start - 2 || position >= data.fileLength;
  });
  return positions;
}

TEST_P(Truth, ScanSeesTheLevelsOfTheModel) {
  auto file = FileOf(GetParam());
  PutFile(source_, file);
  if (file.size() < LargeFile) {
    ScanIsLiteral(file);
  }
  ScanIsLiteralAt(file, EdgesOf(file));
  EXPECT_TRUE(Holds(source_, file)) << "a scan only reads";
}

TEST_P(Truth, PassGivesTheBytesOfTheModel) {
  const auto file = FileOf(GetParam());
  PutFile(source_, file);
  PassIsLiteral(file, file.size() % 2 == 0 ? Inverting() : Halving());
  EXPECT_EQ(folder_.Names(), (std::vector<std::string>{"source.wav", "target.wav"}));
}

std::vector<Layout> LayoutsAroundEveryBoundary() {
  struct Chunks {
    const char* name;
    std::optional<std::int64_t> before;
    std::optional<std::int64_t> behind;
    bool isForLargeFiles;
  };
  const std::vector<Chunks> arrangements = {
      {"Alone", {}, {}, true},
      {"ChunkBefore", 100, {}, false},
      {"OddChunkBefore", 101, {}, false},
      {"ChunkBehind", {}, 100, false},
      {"OddChunkBehind", {}, 4001, true},
      {"ChunksAround", 34, 26, false},
      {"OddChunksAround", 65533, 65531, false},
      {"EmptyChunkBehind", {}, 0, false},
      {"BlockBehind", {}, SmallBlock - 8, false},
      {"MoreThanABlockBehind", {}, 70'000, false},
      {"OddChunkBeforeAndMoreThanABlockBehind", 101, 70'000, true},
      {"ThreeBlocksBehind", 7, 3 * SmallBlock + 1, false},
  };
  std::vector<std::int64_t> sizes = {0, 1, 2, 3};
  for (const auto middle : {SmallBlock, 2 * SmallBlock, LargeBlock, LargeBlock + SmallBlock}) {
    for (std::int64_t offset = -2; offset <= 2; ++offset) {
      sizes.push_back(middle + offset);
    }
  }
  sizes.push_back(NineMegabytes);

  std::vector<Layout> layouts;
  for (const auto size : sizes) {
    for (const auto& chunks : arrangements) {
      if (chunks.isForLargeFiles || size < LargeFile) {
        layouts.push_back({.name = std::to_string(size) + chunks.name,
                           .samples = size,
                           .before = chunks.before,
                           .behind = chunks.behind,
                           .declared = {}});
      }
    }
  }
  return layouts;
}

INSTANTIATE_TEST_SUITE_P(Boundaries, Truth, ::testing::ValuesIn(LayoutsAroundEveryBoundary()),
                         NameOf);

INSTANTIATE_TEST_SUITE_P(
    MuchBehindTheSamples, Truth,
    ::testing::Values(
        Layout{"FewSamplesBeforeALargeBlock", 1000, {}, LargeBlock, {}},
        Layout{"LargeBlockLacksOneByte", 1000, {}, LargeBlock - 1000 - 8, {}},
        Layout{"LargeBlockEndsTheFile", 1000, {}, LargeBlock - 8, {}},
        Layout{"LargeBlockEndsOneByteEarlier", 1000, {}, LargeBlock - 8 + 1, {}},
        Layout{"LargeBlockBehindAlmostABlock", SmallBlock - 1, {}, LargeBlock + SmallBlock, {}},
        Layout{"LargeBlockBehindALargeBlock", LargeBlock, 3, LargeBlock + 5, {}},
        Layout{"OddSamplesBeforeMany", LargeBlock - 1, {}, LargeBlock + 70'000, {}}),
    NameOf);

std::vector<Layout> LayoutsOfOtherFormats() {
  std::vector<Layout> layouts;
  for (const std::int64_t size : {std::int64_t{1001}, SmallBlock + 6, 3 * SmallBlock}) {
    const auto bytes = std::to_string(size);
    for (const std::uint16_t bits : {std::uint16_t{8}, std::uint16_t{24}}) {
      for (const std::uint16_t channels : {std::uint16_t{1}, std::uint16_t{2}, std::uint16_t{6}}) {
        layouts.push_back({.name = "Bits" + std::to_string(bits) + "Channels" +
                                   std::to_string(channels) + "Bytes" + bytes,
                           .samples = size,
                           .before = {},
                           .behind = 77,
                           .declared = {},
                           .bits = bits,
                           .channels = channels});
      }
    }
    layouts.push_back({.name = "UpperCaseBytes" + bytes,
                       .samples = size,
                       .before = 12,
                       .behind = 77,
                       .declared = {},
                       .isUpperCase = true});
  }
  return layouts;
}

INSTANTIATE_TEST_SUITE_P(Formats, Truth, ::testing::ValuesIn(LayoutsOfOtherFormats()), NameOf);

// A file of 36 bytes and a chunk of 8 stands in front of the data tag.
std::vector<Layout> LayoutsWithTheTagAt() {
  std::vector<Layout> layouts;
  for (const std::int64_t position : {65529, 65530, 65531, 65532, 65533, 65534, 65535, 65536, 65537,
                                      65538, 131070, 131073, 200'000}) {
    for (const std::int64_t size : {std::int64_t{11}, SmallBlock + 2}) {
      layouts.push_back({.name = "At" + std::to_string(position) + "Bytes" + std::to_string(size),
                         .samples = size,
                         .before = position - 1 - 36 - 8,
                         .behind = {},
                         .declared = {}});
    }
  }
  return layouts;
}

INSTANTIATE_TEST_SUITE_P(DataTag, Truth, ::testing::ValuesIn(LayoutsWithTheTagAt()), NameOf);

std::vector<Layout> LayoutsWithAWrongLength() {
  std::vector<Layout> layouts;
  for (const std::int64_t size : {std::int64_t{0}, std::int64_t{1}, std::int64_t{999}, SmallBlock,
                                  SmallBlock + 1, 3 * SmallBlock + 100}) {
    const auto add = [&layouts, size](const std::string& name, std::int64_t declared) {
      if (declared >= 0) {
        for (const bool isChunkBehind : {false, true}) {
          layouts.push_back(
              {.name = name + "Bytes" + std::to_string(size) + (isChunkBehind ? "ChunkBehind" : ""),
               .samples = size,
               .before = {},
               .behind = isChunkBehind ? std::optional<std::int64_t>(66'000) : std::nullopt,
               .declared = static_cast<std::uint32_t>(declared)});
        }
      }
    };
    add("DeclaresNothing", 0);
    add("OneByteShort", size - 1);
    add("OneWordShort", size - 2);
    add("OneBlockShort", size - SmallBlock);
    add("OneBlockAndAByteShort", size - SmallBlock - 1);
    add("OneByteLong", size + 1);
    add("OneWordLong", size + 2);
    add("OneBlockLong", size + SmallBlock);
    add("OneMillionLong", size + 1'000'000);
    add("LargestSigned", 0x7FFFFFFF);
    add("SmallestNotSigned", 0x80000000);
    add("OneMoreThanThat", 0x80000001);
    add("NoWholeBlocks", 0xFFFF0000);
    add("Largest", 0xFFFFFFFF);
  }
  return layouts;
}

INSTANTIATE_TEST_SUITE_P(WrongLength, Truth, ::testing::ValuesIn(LayoutsWithAWrongLength()),
                         NameOf);

TEST(LiteralModel, TellsTheWaysOfBufferingApartWhereChunksFollow) {
  const auto differ = [](const Layout& layout) {
    const auto file = FileOf(layout);
    return NormalizeMultiLiterally(file, Halving().literal) !=
           NormalizeSingleLiterally(file, Halving().literal);
  };
  EXPECT_TRUE(differ({"", 60'000, {}, 10'000, {}}));
  EXPECT_TRUE(differ({"", SmallBlock - 1, {}, LargeBlock + SmallBlock, {}}));
  EXPECT_TRUE(differ({"", LargeBlock - 1, {}, LargeBlock + 70'000, {}}));
  EXPECT_FALSE(differ({"", 3 * SmallBlock + 100, {}, {}, {}}));
}

TEST(LiteralModel, MapsEveryWordOnceAndNothingElseWhereNothingFollows) {
  const auto silencing = TableLiterally(0);
  for (const std::int64_t size : {std::int64_t{3}, SmallBlock + 1, 3 * SmallBlock}) {
    const auto file = FileOf({"", size, {}, {}, {}});
    const auto silent = NormalizeSingleLiterally(file, silencing);
    EXPECT_TRUE(silent == NormalizeMultiLiterally(file, silencing));
    auto expected = file;
    std::fill_n(expected.begin() + 44, size - size % 2, std::uint8_t{0});
    EXPECT_TRUE(silent == expected) << size;
  }
}

class CutTruth : public Truth {};

// A whole small file: 44 bytes in front of 16 bytes of samples.
FileBytes CutTo(std::size_t size) {
  auto file = FileOf({"", 16, {}, {}, {}});
  file.resize(size);
  return file;
}

TEST_F(CutTruth, ScanOfAFileCutAnywhere) {
  for (std::size_t size = 0; size <= 60; ++size) {
    SCOPED_TRACE(size);
    const auto file = CutTo(size);
    PutFile(source_, file);
    if (size >= 40) {
      ScanIsLiteral(file);
      continue;
    }
    const BriefClock clock;
    NoUpdates observer;
    const auto scan = ScanPeaks(source_, clock, observer);
    ASSERT_TRUE(scan.error);
    EXPECT_EQ(MessageOf(*scan.error),
              QStringLiteral("Cannot read %1: no sample data").arg(source_));
    EXPECT_EQ(scan.lowest, 0);
    EXPECT_EQ(scan.highest, 0);
  }
}

TEST_F(CutTruth, PassOfAFileCutAnywhere) {
  for (std::size_t size = 0; size <= 60; ++size) {
    SCOPED_TRACE(size);
    const auto file = CutTo(size);
    PutFile(source_, file);
    if (size >= 40) {
      PassIsLiteral(file, Inverting());
      continue;
    }
    for (const bool isInPlace : {false, true}) {
      YesToAll questions;
      WatchedPass pass;
      ASSERT_EQ(pass.Open({source_, target_, isInPlace}, questions), WatchedPass::Opened::Failed);
      ASSERT_TRUE(pass.Error());
      EXPECT_EQ(MessageOf(*pass.Error()),
                QStringLiteral("Cannot read %1: no sample data").arg(source_));
      EXPECT_TRUE(Holds(source_, file));
      EXPECT_FALSE(QFile::exists(target_));
    }
  }
}

TEST_F(CutTruth, OldTargetOfAFileWithoutDataStays) {
  const auto old = CutTo(60);
  PutFile(target_, old);
  PutFile(source_, CutTo(39));
  YesToAll questions;
  WatchedPass pass;
  EXPECT_EQ(pass.Open({source_, target_, false}, questions), WatchedPass::Opened::Failed);
  EXPECT_EQ(questions.overwrites, 0);
  EXPECT_TRUE(Holds(target_, old));
}

std::optional<WavRefusal> RefusalOf(const QString& path) {
  const auto header = ReadHeader(path);
  const auto* refusal = header ? nullptr : std::get_if<WavRefusal>(&header.error());
  return refusal != nullptr ? std::optional(*refusal) : std::nullopt;
}

TEST_F(CutTruth, HeaderOfAFileCutAnywhere) {
  for (std::size_t size = 0; size <= 60; ++size) {
    SCOPED_TRACE(size);
    const auto file = CutTo(size);
    PutFile(source_, file);
    if (size < 16) {
      EXPECT_EQ(RefusalOf(source_), WavRefusal::NotAWav) << "no format tag";
    } else if (size < 21) {
      EXPECT_EQ(RefusalOf(source_), WavRefusal::NotPcm) << "no format code";
    } else if (size < 40) {
      EXPECT_EQ(RefusalOf(source_), WavRefusal::NotAWav) << "no data tag";
    } else {
      const auto header = ReadHeader(source_);
      ASSERT_TRUE(header);
      EXPECT_EQ(header->dataLength, size == 40 ? 0U : 16U);
    }
  }
}

class HugeTruth : public Truth {
 protected:
  // A file with holes: 44 bytes of header, the last eight bytes, and zeros between them.
  void PutHuge(qint64 size, std::uint32_t declared) const {
    PutFile(source_, FileOf({"", 0, {}, {}, declared}));
    QFile file(source_);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    ASSERT_TRUE(file.resize(size));
    ASSERT_TRUE(file.seek(size - 8));
    ASSERT_EQ(file.write("12345678", 8), 8);
  }

  [[nodiscard]] SampleData Located() const {
    WavFile file;
    EXPECT_TRUE(file.OpenForReading(source_));
    const auto data = LocateData(file);
    if (data) {
      return *data;
    }
    ADD_FAILURE() << "no sample data";
    return {};
  }
};

constexpr qint64 GiB = qint64{1024} * 1024 * 1024;

TEST_F(HugeTruth, LengthOfMoreThanTwoGigabytesStandsWhereTheFileHoldsIt) {
  PutHuge(5 * GiB, 0xFFFFFFFF);
  const auto data = Located();
  EXPECT_EQ(data.start, 45);
  EXPECT_EQ(data.length, 4294967295);
  EXPECT_EQ(data.fileLength, 5 * GiB);
}

TEST_F(HugeTruth, LengthOfMoreThanTwoGigabytesIsCutToTheFile) {
  PutHuge(3 * GiB, 0xFFFFFFFF);
  const auto data = Located();
  EXPECT_EQ(data.length, 3 * GiB - 44);
  EXPECT_EQ(data.fileLength, 3 * GiB);
}

TEST_F(HugeTruth, LengthOfTheWholeRestStands) {
  PutHuge(0x80000000LL + 44, 0x80000000);
  EXPECT_EQ(Located().length, 0x80000000LL);
  PutHuge(0x80000000LL + 43, 0x80000000);
  EXPECT_EQ(Located().length, 0x7FFFFFFFLL);
}

TEST_F(HugeTruth, ReadsAndWritesBeyondFourGigabytes) {
  constexpr qint64 size = 5 * GiB + 1;
  PutHuge(size, 0xFFFFFFFF);
  WavFile file;
  ASSERT_TRUE(file.OpenForChanging(source_));
  const auto textAt = [&file](qint64 position) {
    std::string text(4, '?');
    const auto read = file.Read(position, std::as_writable_bytes(std::span(text)));
    return read ? text : MessageOf(read.error()).toStdString();
  };
  EXPECT_EQ(textAt(size - 7), "1234");
  EXPECT_EQ(textAt(size - 3), "5678");
  EXPECT_EQ(textAt(size - 2), "Cannot read " + source_.toStdString() + ": the file became shorter");

  const std::string written = "abcd";
  ASSERT_TRUE(file.Write(4 * GiB + 7, std::as_bytes(std::span(written))));
  EXPECT_EQ(textAt(4 * GiB + 7), "abcd");
  EXPECT_EQ(textAt(7), std::string({'\0', '\0', 'W', 'A'})) << "where the low 32 bits would lead";
  const auto length = file.Length(WavError::Failed::Reading);
  ASSERT_TRUE(length);
  EXPECT_EQ(*length, size);
}

}  // namespace
}  // namespace brindle
