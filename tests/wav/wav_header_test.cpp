// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/wav_header.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <ostream>
#include <string>
#include <variant>
#include <vector>

#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/temporary_folder.h"
#include "tests/support/named_case.h"
#include "tests/wav/pass_support.h"
#include "tests/wav/wav_builder.h"
#include "wav/wav_file.h"

namespace brindle {
namespace {

struct Format {
  const char* tag = "fmt ";
  std::uint16_t code = 1;
  std::uint16_t channels = 2;
  std::uint32_t rate = 44100;
  std::uint16_t bits = 16;
};

std::string FormatBlock(const Format& format) {
  return format.tag + Number(16, 4) + Number(format.code, 2) + Number(format.channels, 2) +
         Number(format.rate, 4) + Number(0xAAAAAAAA, 4) + Number(0xBBBB, 2) +
         Number(format.bits, 2);
}

std::string DataBlock(std::uint32_t length, const std::string& samples = "",
                      const char* tag = "data") {
  return tag + Number(length, 4) + samples;
}

std::string Filler(std::size_t size) { return std::string(size, '.'); }

// Puts the block at this position, counted from 1, behind what is there already.
std::string At(std::size_t position, const std::string& block, const std::string& front = "") {
  EXPECT_GE(position, front.size() + 1);
  return front + Filler(position - 1 - front.size()) + block;
}

using Read = tl::expected<WavHeader, WavNotOpened>;

std::string Told(const Read& read) {
  if (read) {
    return (read->sampleRate ? std::to_string(*read->sampleRate) : "no rate") + "Hz " +
           std::to_string(read->bitsPerSample) + "bit " + std::to_string(read->channels) + "Ch " +
           std::to_string(read->dataLength);
  }
  if (const auto* refusal = std::get_if<WavRefusal>(&read.error())) {
    switch (*refusal) {
      case WavRefusal::AlreadyOpen:
        return "already open";
      case WavRefusal::NotAWav:
        return "not a WAV";
      case WavRefusal::NotPcm:
        return "not PCM";
    }
  }
  return MessageOf(read.error()).toStdString();
}

constexpr const char* Usual = "44100Hz 16bit 2Ch 1000";

struct HeaderCase {
  std::string name;
  std::string bytes;
  std::string told;
};

class ReadsHeader : public ::testing::TestWithParam<HeaderCase> {};

TEST_P(ReadsHeader, OfAFile) {
  const TemporaryFolder folder;
  folder.Put("a.wav", GetParam().bytes);
  EXPECT_EQ(Told(ReadHeader(folder.PathOf("a.wav"))), GetParam().told);
  EXPECT_TRUE(folder.Bytes("a.wav") == GetParam().bytes) << "the file is changed";
}

INSTANTIATE_TEST_SUITE_P(
    Formats, ReadsHeader,
    ::testing::Values(
        HeaderCase{
            "Usual",
            "RIFF" + Number(1036, 4) + "WAVE" + FormatBlock({}) + DataBlock(1000, Filler(1000)),
            Usual},
        HeaderCase{"NoRiffAndNoSamples", FormatBlock({}) + DataBlock(1000), Usual},
        HeaderCase{"DataBeforeTheFormat", DataBlock(1000, Filler(9)) + FormatBlock({}), Usual},
        HeaderCase{"EightBitMono",
                   FormatBlock({.channels = 1, .rate = 11025, .bits = 8}) + DataBlock(7),
                   "11025Hz 8bit 1Ch 7"},
        HeaderCase{"TwentyFourBitSixChannels",
                   FormatBlock({.channels = 6, .rate = 96000, .bits = 24}) + DataBlock(7),
                   "96000Hz 24bit 6Ch 7"},
        HeaderCase{"LengthNotCutToTheFile", FormatBlock({}) + DataBlock(0x7FFFFFFF, "ab"),
                   "44100Hz 16bit 2Ch 2147483647"},
        HeaderCase{"LengthNotSigned", FormatBlock({}) + DataBlock(0x80000000, "ab"),
                   "44100Hz 16bit 2Ch 2147483648"},
        HeaderCase{"LargestLength", FormatBlock({}) + DataBlock(0xFFFFFFFF),
                   "44100Hz 16bit 2Ch 4294967295"},
        HeaderCase{"NoLength", FormatBlock({}) + DataBlock(0), "44100Hz 16bit 2Ch 0"},
        HeaderCase{"ExtensibleFormat", FormatBlock({.code = 0xFFFE}) + DataBlock(0), "not PCM"},
        HeaderCase{"FormatCode0", FormatBlock({.code = 0}) + DataBlock(0), "not PCM"},
        HeaderCase{"FormatCode2", FormatBlock({.code = 2}) + DataBlock(0), "not PCM"},
        HeaderCase{"FormatCode3", FormatBlock({.code = 3}) + DataBlock(0), "not PCM"},
        HeaderCase{"FormatCode257", FormatBlock({.code = 257}) + DataBlock(0), "not PCM"},
        HeaderCase{"FormatCodeMinusOne", FormatBlock({.code = 0xFFFF}) + DataBlock(0), "not PCM"},
        HeaderCase{"NotPcmIsToldBeforeMissingData", FormatBlock({.code = 2}) + Filler(99),
                   "not PCM"},
        HeaderCase{"LargestRate", FormatBlock({.rate = 0x7FFFFFFF}) + DataBlock(1),
                   "2147483647Hz 16bit 2Ch 1"},
        HeaderCase{"RateTooLarge", FormatBlock({.rate = 0x80000000}) + DataBlock(1),
                   "no rateHz 16bit 2Ch 1"},
        HeaderCase{"NegativeBits", FormatBlock({.bits = 0xFFF0}) + DataBlock(1),
                   "44100Hz -16bit 2Ch 1"},
        HeaderCase{"NegativeChannels", FormatBlock({.channels = 0x8000}) + DataBlock(1),
                   "44100Hz 16bit -32768Ch 1"},
        HeaderCase{"Zeros", FormatBlock({.channels = 0, .rate = 0, .bits = 0}) + DataBlock(1),
                   "0Hz 0bit 0Ch 1"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Tags, ReadsHeader,
    ::testing::Values(
        HeaderCase{"UpperCase", FormatBlock({.tag = "FMT "}) + DataBlock(1000, "", "DATA"), Usual},
        HeaderCase{"OnlyTheFormatInUpperCase", FormatBlock({.tag = "FMT "}) + DataBlock(1000),
                   Usual},
        HeaderCase{"OnlyTheDataInUpperCase", FormatBlock({}) + DataBlock(1000, "", "DATA"), Usual},
        HeaderCase{"FormatCapitalized", FormatBlock({.tag = "Fmt "}) + DataBlock(1000),
                   "not a WAV"},
        HeaderCase{"FormatMixed", FormatBlock({.tag = "fMT "}) + DataBlock(1000), "not a WAV"},
        HeaderCase{"FormatLastLetterUpper", FormatBlock({.tag = "fmT "}) + DataBlock(1000),
                   "not a WAV"},
        HeaderCase{"FormatWithoutBlank", FormatBlock({.tag = "fmt."}) + DataBlock(1000),
                   "not a WAV"},
        HeaderCase{"DataCapitalized", FormatBlock({}) + DataBlock(1000, "", "Data"), "not a WAV"},
        HeaderCase{"DataMixed", FormatBlock({}) + DataBlock(1000, "", "dAtA"), "not a WAV"},
        HeaderCase{"DataLastLetterUpper", FormatBlock({}) + DataBlock(1000, "", "datA"),
                   "not a WAV"},
        HeaderCase{"MixedOnesArePassedOver",
                   FormatBlock({.tag = "Fmt ", .rate = 1}) + FormatBlock({}) +
                       DataBlock(1, "", "Data") + DataBlock(1000),
                   Usual},
        HeaderCase{"FirstFormatWins",
                   FormatBlock({}) + FormatBlock({.code = 2, .rate = 1}) + DataBlock(1000), Usual},
        HeaderCase{"FirstFormatWinsInAnyCase",
                   FormatBlock({.tag = "FMT "}) + FormatBlock({.code = 2}) + DataBlock(1000),
                   Usual},
        HeaderCase{"FirstDataWins", FormatBlock({}) + DataBlock(1000) + DataBlock(1), Usual},
        HeaderCase{"FirstDataWinsInAnyCase",
                   FormatBlock({}) + DataBlock(1000, "", "DATA") + DataBlock(1), Usual},
        HeaderCase{"FormatInsideAnotherChunk",
                   "LIST" + Number(29, 4) + "12345" + FormatBlock({.code = 2}) + FormatBlock({}) +
                       DataBlock(1000),
                   "not PCM"},
        HeaderCase{
            "DataInsideAnotherChunk",
            FormatBlock({}) + "LIST" + Number(13, 4) + "12345" + DataBlock(1000) + DataBlock(1),
            Usual},
        HeaderCase{"DataInsideTheFormatBlock",
                   FormatBlock({.channels = 0x6164, .rate = 0x00006174}) + DataBlock(1),
                   "24948Hz 16bit 24932Ch 2863267840"},
        HeaderCase{"TagBegunTwice", "ffmt fmfmt FMFMT ..." + At(1, ""), "not PCM"},
        HeaderCase{"TagBegunTwiceAndWhole",
                   "fmfmffm" + FormatBlock({}) + "dadadatdDATdat" + DataBlock(1000), Usual}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Limits, ReadsHeader,
    ::testing::Values(
        HeaderCase{"FormatAt1", FormatBlock({}) + DataBlock(1000), Usual},
        HeaderCase{"FormatAt32767", At(32767, FormatBlock({}) + DataBlock(1000)), Usual},
        HeaderCase{"FormatAt32768", At(32768, FormatBlock({}) + DataBlock(1000)), Usual},
        HeaderCase{"FormatAt32769", At(32769, FormatBlock({}) + DataBlock(1000)), "not a WAV"},
        HeaderCase{"UpperCaseFormatAt32768",
                   At(32768, FormatBlock({.tag = "FMT "}) + DataBlock(1000)), Usual},
        HeaderCase{"UpperCaseFormatAt32769",
                   At(32769, FormatBlock({.tag = "FMT "}) + DataBlock(1000)), "not a WAV"},
        HeaderCase{"FormatTooLateButDataFirst", At(32769, FormatBlock({}), DataBlock(1000)),
                   "not a WAV"},
        HeaderCase{"LastFormatWithNothingBehind", At(32768, FormatBlock({}), DataBlock(1000)),
                   Usual},
        HeaderCase{"DataAt1", DataBlock(1000) + FormatBlock({}), Usual},
        HeaderCase{"DataAt65535", At(65535, DataBlock(1000), FormatBlock({})), Usual},
        HeaderCase{"DataAt65536", At(65536, DataBlock(1000), FormatBlock({})), Usual},
        HeaderCase{"DataAt65537", At(65537, DataBlock(1000), FormatBlock({})), Usual},
        HeaderCase{"DataAt65538", At(65538, DataBlock(1000), FormatBlock({})), "not a WAV"},
        HeaderCase{"UpperCaseDataAt65537", At(65537, DataBlock(1000, "", "DATA"), FormatBlock({})),
                   Usual},
        HeaderCase{"UpperCaseDataAt65538", At(65538, DataBlock(1000, "", "DATA"), FormatBlock({})),
                   "not a WAV"},
        HeaderCase{"LastDataWithMuchBehind",
                   At(65537, DataBlock(1000, Filler(70000)), FormatBlock({})), Usual},
        HeaderCase{"LastDataWithoutItsLength", At(65537, "data", FormatBlock({})),
                   "44100Hz 16bit 2Ch 0"},
        HeaderCase{"DataTooLateWithMuchBehind",
                   At(65538, DataBlock(1000, Filler(70000)), FormatBlock({})), "not a WAV"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Cut, ReadsHeader,
    ::testing::Values(
        HeaderCase{"Empty", "", "not a WAV"}, HeaderCase{"OneByte", "f", "not a WAV"},
        HeaderCase{"FormatTagCut", DataBlock(1000) + "fmt", "not a WAV"},
        HeaderCase{"FormatTagAlone", DataBlock(1000) + "fmt ", "not PCM"},
        HeaderCase{"FormatCodeMissing", DataBlock(1000) + FormatBlock({}).substr(0, 8), "not PCM"},
        HeaderCase{"FormatCodeHalf", DataBlock(1000) + FormatBlock({}).substr(0, 9),
                   "0Hz 0bit 0Ch 1000"},
        HeaderCase{"FormatCodeHalfOfAnother", DataBlock(1000) + "fmt " + Number(16, 4) + "\2",
                   "not PCM"},
        HeaderCase{"ChannelsMissing", DataBlock(1000) + FormatBlock({}).substr(0, 10),
                   "0Hz 0bit 0Ch 1000"},
        HeaderCase{"ChannelsHalf", DataBlock(1000) + FormatBlock({}).substr(0, 11),
                   "0Hz 0bit 2Ch 1000"},
        HeaderCase{"RateHalf", DataBlock(1000) + FormatBlock({}).substr(0, 13),
                   "68Hz 0bit 2Ch 1000"},
        HeaderCase{"RateWhole", DataBlock(1000) + FormatBlock({}).substr(0, 16),
                   "44100Hz 0bit 2Ch 1000"},
        HeaderCase{"BitsMissing", DataBlock(1000) + FormatBlock({}).substr(0, 22),
                   "44100Hz 0bit 2Ch 1000"},
        HeaderCase{"BitsHalf", DataBlock(1000) + FormatBlock({}).substr(0, 23), Usual},
        HeaderCase{"DataTagCut", FormatBlock({}) + "dat", "not a WAV"},
        HeaderCase{"DataTagAlone", FormatBlock({}) + "data", "44100Hz 16bit 2Ch 0"},
        HeaderCase{"LengthCut", FormatBlock({}) + "data\x01\x02\x03", "44100Hz 16bit 2Ch 197121"}),
    NameOf);

TEST(ReadHeader, TellsWhyAFileCannotBeRead) {
  const TemporaryFolder folder;
  const auto missing = ReadHeader(folder.PathOf("missing.wav"));
  ASSERT_FALSE(missing);
  ASSERT_TRUE(std::holds_alternative<WavError>(missing.error()));
  EXPECT_EQ(std::get<WavError>(missing.error()).failed, WavError::Failed::Reading);
  EXPECT_EQ(Told(missing).rfind("Cannot read " + NativePath(folder.PathOf("missing.wav")), 0), 0U);
  EXPECT_EQ(Told(ReadHeader(folder.Path())),
            "Cannot read " + NativePath(folder.Path()) + ": not a file");
  EXPECT_TRUE(folder.Names().empty()) << "reading creates nothing";
}

struct DurationCase {
  std::string name;
  WavHeader header;
  std::optional<double> seconds;
};

class ReckonsDuration : public ::testing::TestWithParam<DurationCase> {};

TEST_P(ReckonsDuration, OfTheDeclaredLength) {
  const auto seconds = GetParam().header.Duration();
  ASSERT_EQ(seconds.has_value(), GetParam().seconds.has_value());
  if (seconds) {
    EXPECT_DOUBLE_EQ(*seconds, *GetParam().seconds);
  }
}

constexpr std::uint32_t LargestLength = std::numeric_limits<std::uint32_t>::max();
constexpr std::int32_t LargestRate = std::numeric_limits<std::int32_t>::max();

INSTANTIATE_TEST_SUITE_P(
    Cases, ReckonsDuration,
    ::testing::Values(
        DurationCase{"ThousandBytes", {44100, 16, 2, 1000}, 1000.0 / 176400},
        DurationCase{"OneSecond", {44100, 16, 2, 176400}, 1},
        DurationCase{"EightBitMono", {11025, 8, 1, 11025}, 1},
        DurationCase{"TwentyFourBitSixChannels", {48000, 24, 6, 864000 * 3}, 3},
        DurationCase{"BitsThatAreNoBytes", {1000, 12, 1, 3000}, 2},
        DurationCase{"NoWholeBytesASecond", {1, 1, 1, 10}, 80},
        DurationCase{"NoLength", {44100, 16, 2, 0}, 0},
        DurationCase{"LengthNotSigned", {44100, 16, 2, 2147483648}, 2147483648.0 / 176400},
        DurationCase{"Largest", {1, 1, 1, LargestLength}, 34359738360},
        DurationCase{
            "Shortest", {LargestRate, 32767, 32767, 1}, 8 / (2147483647.0 * 32767 * 32767)},
        DurationCase{"NegativeChannels", {44100, 16, -2, 176400}, -1},
        DurationCase{"NegativeBits", {44100, -16, 2, 176400}, -1},
        DurationCase{"BothNegative", {44100, -16, -2, 176400}, 1},
        DurationCase{"RateMissing", {std::nullopt, 16, 2, 1000}, std::nullopt},
        DurationCase{"NoRate", {0, 16, 2, 1000}, std::nullopt},
        DurationCase{"NoBits", {44100, 0, 2, 1000}, std::nullopt},
        DurationCase{"NoChannels", {44100, 16, 0, 1000}, std::nullopt},
        DurationCase{"NoRateAndNoLength", {0, 16, 2, 0}, std::nullopt}),
    NameOf);

struct LocateCase {
  std::string name;
  std::string bytes;
  std::string told;
};

std::string Located(const QString& path) {
  WavFile file;
  if (const auto opened = file.OpenForReading(path); !opened) {
    return MessageOf(opened.error()).toStdString();
  }
  const auto data = LocateData(file);
  if (!data) {
    EXPECT_EQ(data.error().failed, WavError::Failed::Reading);
    EXPECT_EQ(data.error().error.path.toStdString(), NativePath(path));
    return data.error().error.reason.toStdString();
  }
  return std::to_string(data->length) + " from " + std::to_string(data->start) + " in " +
         std::to_string(data->fileLength);
}

class LocatesData : public ::testing::TestWithParam<LocateCase> {};

TEST_P(LocatesData, InAFile) {
  const TemporaryFolder folder;
  folder.Put("a.wav", GetParam().bytes);
  EXPECT_EQ(Located(folder.PathOf("a.wav")), GetParam().told);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, LocatesData,
    ::testing::Values(
        LocateCase{"AtTheBeginning", DataBlock(5, Filler(5)), "5 from 9 in 13"},
        LocateCase{"BehindAFormat", FormatBlock({}) + DataBlock(5, Filler(5)), "5 from 33 in 37"},
        LocateCase{"UpperCase", DataBlock(5, Filler(5), "DATA"), "5 from 9 in 13"},
        LocateCase{"MixedCaseIsPassedOver", DataBlock(1, "", "Data") + DataBlock(5, Filler(5)),
                   "5 from 17 in 21"},
        LocateCase{"FirstWins", DataBlock(2, "ab") + DataBlock(1, "a", "DATA"), "2 from 9 in 19"},
        LocateCase{"InsideAnotherChunk",
                   "LIST" + Number(10, 4) + DataBlock(3, "ab") + DataBlock(1, "a"),
                   "3 from 17 in 27"},
        LocateCase{"BegunTwice", "ddadat" + DataBlock(1, "a"), "1 from 15 in 15"},
        LocateCase{"DeclaresLess", DataBlock(4, Filler(5)), "4 from 9 in 13"},
        LocateCase{"DeclaresOneMore", DataBlock(6, Filler(5)), "5 from 9 in 13"},
        LocateCase{"DeclaresLargestSigned", DataBlock(0x7FFFFFFF, Filler(5)), "5 from 9 in 13"},
        LocateCase{"DeclaresJustNotSigned", DataBlock(0x80000000, Filler(5)), "5 from 9 in 13"},
        LocateCase{"DeclaresLargest", DataBlock(0xFFFFFFFF, Filler(5)), "5 from 9 in 13"},
        LocateCase{"DeclaresNothing", DataBlock(0, Filler(5)), "0 from 9 in 13"},
        LocateCase{"NothingBehindTheHeader", DataBlock(5), "0 from 9 in 8"},
        LocateCase{"NothingDeclaredAndNothingThere", DataBlock(0), "0 from 9 in 8"},
        LocateCase{"HeaderOneByteShort", "data\1\2\3", "-1 from 9 in 7"},
        LocateCase{"HeaderOneByteShortOfZeros", "data" + Number(0, 3), "-1 from 9 in 7"},
        LocateCase{"HeaderTwoBytesShort", "data\1\2", "-2 from 9 in 6"},
        LocateCase{"HeaderThreeBytesShort", "data\1", "-3 from 9 in 5"},
        LocateCase{"TagAlone", "data", "-4 from 9 in 4"},
        LocateCase{"TagCut", "dat", "no sample data"}, LocateCase{"Empty", "", "no sample data"},
        LocateCase{"NoTag", FormatBlock({}) + Filler(70000), "no sample data"},
        LocateCase{"OnlyMixedCase", DataBlock(5, Filler(70000), "dAta"), "no sample data"},
        LocateCase{"TagCutAtABlock", Filler(65533) + "dat", "no sample data"},
        LocateCase{"TagCutBehindABlock", Filler(65536) + "dat", "no sample data"},
        LocateCase{"BeyondTheLimitOfTheFirstSearch", At(65538, DataBlock(5, Filler(5))),
                   "5 from 65546 in 65550"},
        LocateCase{"FarBehind", At(1'000'001, DataBlock(5, Filler(5))),
                   "5 from 1000009 in 1000013"}),
    NameOf);

// The search reads pieces; the tag and its length are found across every edge of them.
TEST(LocateData, FindsTheTagAtEveryOffsetAroundTheBlocks) {
  const TemporaryFolder folder;
  for (const std::size_t edge : {4096U, 32768U, 65536U, 131072U}) {
    for (std::size_t position = edge - 30; position <= edge + 30; ++position) {
      for (const std::size_t samples : {0U, 3U}) {
        folder.Put("a.wav", At(position, DataBlock(0x01020304, Filler(samples))));
        EXPECT_EQ(Located(folder.PathOf("a.wav")), std::to_string(samples) + " from " +
                                                       std::to_string(position + 8) + " in " +
                                                       std::to_string(position + 7 + samples))
            << "tag at " << position;
      }
      folder.Put("a.wav", At(position, "data"));
      EXPECT_EQ(Located(folder.PathOf("a.wav")),
                "-4 from " + std::to_string(position + 8) + " in " + std::to_string(position + 3))
          << "tag at the very end, at " << position;
    }
  }
}

TEST(LocateData, ReadsTheLengthAtEveryOffsetAroundTheBlocks) {
  const TemporaryFolder folder;
  for (const std::size_t edge : {65536U, 131072U}) {
    for (std::size_t position = edge - 15; position <= edge + 5; ++position) {
      folder.Put("a.wav", At(position, DataBlock(0x10203, Filler(70000))));
      EXPECT_EQ(Located(folder.PathOf("a.wav")), "66051 from " + std::to_string(position + 8) +
                                                     " in " + std::to_string(position + 7 + 70000))
          << "tag at " << position;
    }
  }
}

TEST(ReadHeader, FindsTheTagsAtEveryPositionTheyMayHave) {
  const TemporaryFolder folder;
  for (std::size_t position = 32740; position <= 32790; ++position) {
    folder.Put("a.wav", At(position, FormatBlock({}), DataBlock(1000)));
    EXPECT_EQ(Told(ReadHeader(folder.PathOf("a.wav"))), position <= 32768 ? Usual : "not a WAV")
        << "format tag at " << position;
  }
  for (std::size_t position = 65500; position <= 65560; ++position) {
    folder.Put("a.wav", At(position, DataBlock(1000), FormatBlock({})));
    EXPECT_EQ(Told(ReadHeader(folder.PathOf("a.wav"))), position <= 65537 ? Usual : "not a WAV")
        << "data tag at " << position;
  }
}

}  // namespace
}  // namespace brindle
