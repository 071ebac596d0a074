// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// What each calculator answers. The figures are those of the windows' own tests and of the examples
// in the help.

#include <string>

#include <gtest/gtest.h>

#include "base/settings/settings.h"
#include "base/settings/settings_lines.h"
#include "tests/cli/run_command.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

struct AnswerCase {
  std::string name;
  std::string line;
  std::string answer;
};

class Answers : public ::testing::TestWithParam<AnswerCase> {};

TEST_P(Answers, AsExpected) {
  const CommandRunner runner;
  const auto result = runner.Run(GetParam().line);
  EXPECT_EQ(result.errors, "");
  EXPECT_EQ(result.answer, GetParam().answer + "\n");
  EXPECT_EQ(result.code, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Bitrate, Answers,
    ::testing::Values(
        AnswerCase{"OfTheBuiltInSettings", "bitrate",
                   "841 kbps (Average)\nvideo 601.6 MB, audio 91.6 MB, overhead 6.9 MB"},
        AnswerCase{"OfTwoDiscs", "bitrate --length 1:42:30 --size 700MB --discs 2 --audio 192",
                   "1708 kbps (Excellent)\nvideo 1252.2 MB, audio 140.8 MB, overhead 7.0 MB"},
        AnswerCase{"ByTheOtherNames",
                   "bitrate --length 1:42:30 --capacity 700MB --cds 2 --audio 192",
                   "1708 kbps (Excellent)\nvideo 1252.2 MB, audio 140.8 MB, overhead 7.0 MB"},
        AnswerCase{"OfTwoTracks",
                   "bitrate --length 1:42:30 --size 700MB --discs 2 --audio 128 --audio 64",
                   "1708 kbps (Excellent)\nvideo 1252.2 MB, audio 140.8 MB, overhead 7.0 MB"},
        AnswerCase{"WithoutAudio", "bitrate --audio 0",
                   "969 kbps (Good)\nvideo 693.1 MB, overhead 6.9 MB"},
        AnswerCase{"WithExtraMaterial", "bitrate --extra 100MB",
                   "701 kbps (Medium-Poor)\nvideo 501.6 MB, audio 91.6 MB, overhead 6.9 MB"},
        AnswerCase{"OfTheOlderCodec", "bitrate --divx 3",
                   "821 kbps (Medium-Poor)\nvideo 601.6 MB, audio 91.6 MB, overhead 6.9 MB"},
        AnswerCase{"WithoutOverheads", "bitrate --frame-overhead off --interleave-overhead off",
                   "851 kbps (Average)\nvideo 608.4 MB, audio 91.6 MB"},
        AnswerCase{"WithInterleavingByTime", "bitrate --interleave 400ms",
                   "845 kbps (Average)\nvideo 604.7 MB, audio 91.6 MB, overhead 3.8 MB"},
        AnswerCase{"OfAFilmInFrames", "bitrate --length 150000f",
                   "841 kbps (Average)\nvideo 601.6 MB, audio 91.6 MB, overhead 6.9 MB"},
        AnswerCase{"OfAFilmInFramesOfAnotherRate", "bitrate --length 143856f --rate film",
                   "841 kbps (Average)\nvideo 601.9 MB, audio 91.6 MB, overhead 6.6 MB"},
        AnswerCase{"AboveTheScale", "bitrate --size 10GB",
                   "14179 kbps (Max. setting is 10000)\n"
                   "video 10141.6 MB, audio 91.6 MB, overhead 6.9 MB"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Audio, Answers,
    ::testing::Values(AnswerCase{"OfTheBuiltInSettings", "audio",
                                 "205 kbps\nsuggested 192kbps (Excellent)"},
                      AnswerCase{"OfASmallerTarget", "audio --target 650 --interleave 400ms",
                                 "139 kbps\nsuggested 128kbps (Good)"},
                      AnswerCase{"WithoutOverhead", "audio --target 650 --interleave-overhead off",
                                 "140 kbps\nsuggested 128kbps (Good)"},
                      AnswerCase{"WithHardlyAnyRoom", "audio --video 690MB",
                                 "9 kbps\nsuggested Inadequate Space"},
                      AnswerCase{"WithMuchRoom", "audio --target 4.7GB",
                                 "5955 kbps\nsuggested 320kbps (Maximum)"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Space, Answers,
    ::testing::Values(
        AnswerCase{"OfWav", "space --length 102.5 --video-bitrate 1647 --audio wav48",
                   "2334 MB\nvideo 1207.5 MB, audio 1126.1 MB"},
        AnswerCase{"OfCompressedAudio", "space --length 102.5 --video-bitrate 1647 --audio 224",
                   "1376 MB\nvideo 1207.5 MB, audio 168.2 MB"},
        AnswerCase{"OfTwoTracks",
                   "space --length 102.5 --video-bitrate 1647 --audio 112 --audio 112",
                   "1376 MB\nvideo 1207.5 MB, audio 168.2 MB"},
        AnswerCase{"OfAVideoBySize", "space --video-size 700MB --audio 0",
                   "700 MB\nvideo 700.0 MB"},
        AnswerCase{"OfSoundAlone", "space --video-size 0 --audio wav44",
                   "1009 MB\naudio 1009.4 MB"},
        AnswerCase{"OfTheOlderCodec", "space --video-bitrate 1000 --divx 3 --audio 0",
                   "732 MB\nvideo 732.4 MB"},
        AnswerCase{"OfTheBuiltInSettings", "space", "1660 MB\nvideo 650.9 MB, audio 1009.4 MB"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Split, Answers,
    ::testing::Values(AnswerCase{"InTwo", "split --size 1300MB --length 150000f --segment 650MB",
                                 "cut at frame 75000\n"
                                 "segment 1, 650 MB: delete 75000 to 150000\n"
                                 "segment 2, 650 MB: delete 0 to 74999\n"
                                 "600 key frames, one every 250 frames; duration 1:40:00.00"},
                      AnswerCase{"InThree",
                                 "split --size 1950 --segment 650 --segment 650 --length 150000f",
                                 "cut at frame 50000 and 100000\n"
                                 "segment 1, 650 MB: delete 50000 to 150000\n"
                                 "segment 2, 650 MB: delete 0 to 49999 and 100000 to 150000\n"
                                 "segment 3, 650 MB: delete 0 to 99999\n"
                                 "600 key frames, one every 250 frames; duration 1:40:00.00"},
                      AnswerCase{"OfTheBuiltInSettings", "split",
                                 "cut at frame 80750\n"
                                 "segment 1, 700 MB: delete 80750 to 150000\n"
                                 "segment 2, 600 MB: delete 0 to 80749\n"
                                 "600 key frames, one every 250 frames; duration 1:40:00.00"},
                      AnswerCase{"AtKeyFramesOfNtsc",
                                 "split --rate ntsc --key-frame-every 10 --length 60",
                                 "cut at frame 57900\n"
                                 "segment 1, 700 MB: delete 57900 to 107892\n"
                                 "segment 2, 600 MB: delete 0 to 57899\n"
                                 "359 key frames, one every 300 frames; duration 1:00:00.00"},
                      AnswerCase{"WithAnEmptyFirstSegment", "split --segment 0",
                                 "cut at frame 0\n"
                                 "segment 1, 0 MB: delete 0 to 150000\n"
                                 "segment 2, 1300 MB: delete nothing\n"
                                 "600 key frames, one every 250 frames; duration 1:40:00.00"},
                      AnswerCase{"AtAnIntervalOfZero", "split --key-frame-every 0 --segment 650",
                                 "cut at frame 75000\n"
                                 "segment 1, 650 MB: delete 75000 to 150000\n"
                                 "segment 2, 650 MB: delete 0 to 74999\n"
                                 "6000 key frames, one every 25 frames; duration 1:40:00.00"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Time, Answers,
    ::testing::Values(
        AnswerCase{"OfFrames", "time 153750f", "1:42:30.00 = 102.5 minutes = 153750 frames"},
        AnswerCase{"OfMinutes", "time 102.5", "1:42:30.00 = 102.5 minutes = 153750 frames"},
        AnswerCase{"OfAClock", "time 1:42:30", "1:42:30.00 = 102.5 minutes = 153750 frames"},
        AnswerCase{"OfFilm", "time 1:42:30 --rate film",
                   "1:42:30.00 = 102.5 minutes = 147452 frames"},
        AnswerCase{"OfTwentySeconds", "time 0:00:20", "0:00:20.00 = 0.333 minutes = 500 frames"},
        AnswerCase{"OfFiveMinutes", "time 1:05:03.5", "1:05:03.50 = 65.058 minutes = 97587 frames"},
        AnswerCase{"OfNothing", "time 0", "0:00:00.00 = 0 minutes = 0 frames"},
        AnswerCase{"OfTheBuiltInSettings", "time", "1:40:00.00 = 100 minutes = 150000 frames"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Size, Answers,
    ::testing::Values(
        AnswerCase{"OfADvd", "size 4.7GB", "5046586572.8 B = 4928307.2 KB = 4812.8 MB = 4.7 GB"},
        AnswerCase{"OfACd", "size 734003200B", "734003200 B = 716800 KB = 700 MB = 0.68359375 GB"},
        AnswerCase{"WithoutAUnit", "size 700", "734003200 B = 716800 KB = 700 MB = 0.68359375 GB"},
        AnswerCase{"InKilobytes", "size 716800KB",
                   "734003200 B = 716800 KB = 700 MB = 0.68359375 GB"},
        AnswerCase{"OfNothing", "size 0B", "0 B = 0 KB = 0 MB = 0 GB"},
        AnswerCase{"OfTheBuiltInSettings", "size", "1073741824 B = 1048576 KB = 1024 MB = 1 GB"}),
    NameOf);

INSTANTIATE_TEST_SUITE_P(
    Resolution, Answers,
    ::testing::Values(
        AnswerCase{"OfAWideFilm", "resolution --ratio 2.35:1 --width 640",
                   "640x272\n174080 pixels, 680 macroblocks, ratio 2.353, error 0.13%"},
        AnswerCase{"ByTheHeight", "resolution --ratio 2.35:1 --height 272",
                   "640x272\n174080 pixels, 680 macroblocks, ratio 2.353, error 0.13%"},
        AnswerCase{"OfTelevision", "resolution --ratio 4:3 --width 512",
                   "512x384\n196608 pixels, 768 macroblocks, ratio 1.333, error 0.23%"},
        AnswerCase{"OfAnotherRatio", "resolution --ratio 16:10 --width 640",
                   "640x400\n256000 pixels, 1000 macroblocks, ratio 1.6, error 0%"},
        AnswerCase{"InSmallSteps", "resolution --ratio 2.35:1 --width 642 --increment 2",
                   "642x274\n175908 pixels, 738 macroblocks, ratio 2.343, error -0.3%"},
        AnswerCase{"OfNoRatio", "resolution --ratio free --width 720 --height 576",
                   "720x576\n414720 pixels, 1620 macroblocks, ratio 1.25, error N/A"},
        AnswerCase{"LargerThanInTheWindow", "resolution --width 1920",
                   "1920x1072\n2058240 pixels, 8040 macroblocks, ratio 1.791, error 0.73%"},
        AnswerCase{"OfTheBuiltInSettings", "resolution",
                   "592x336\n198912 pixels, 777 macroblocks, ratio 1.762, error -0.9%"}),
    NameOf);

struct NoAnswerCase {
  std::string name;
  std::string line;
  std::string message;
};

class HasNoAnswer : public ::testing::TestWithParam<NoAnswerCase> {};

TEST_P(HasNoAnswer, AndSaysWhatWouldGiveOne) {
  const CommandRunner runner;
  for (const auto* const form : {"", " --json"}) {
    const auto result = runner.Run(GetParam().line + form);
    EXPECT_EQ(result.errors, "brindle: " + GetParam().message + "\n");
    EXPECT_EQ(result.answer, "");
    EXPECT_EQ(result.code, 3);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Cases, HasNoAnswer,
    ::testing::Values(
        NoAnswerCase{"BitrateWithoutRoom", "bitrate --size 50",
                     "no room is left for the video: of 50.0 MB, everything else needs 98.4 MB; a "
                     "larger --size, more --discs, less --audio or less --extra makes room"},
        NoAnswerCase{"BitrateOfNoFilm", "bitrate --length 0",
                     "there is no bitrate without a running time; --length gives one"},
        NoAnswerCase{"BitrateOfNoDisc", "bitrate --size 0",
                     "there is no bitrate without room; --size and --discs give some"},
        NoAnswerCase{"AudioWithoutRoom", "audio --video 700 --target 700",
                     "no room is left for the audio: of 700 MB, the video needs 700 MB, and the "
                     "interleaving its part; a larger --target or a smaller --video makes room"},
        NoAnswerCase{"AudioOfNoFilm", "audio --length 0",
                     "there is no bitrate without a running time; --length gives one"},
        NoAnswerCase{"SpaceOfNoFilm", "space --length 0",
                     "there is no answer without a running time; --length gives one"},
        NoAnswerCase{"SpaceForNothing", "space --video-size 0 --audio 0",
                     "there is nothing to store; --video-bitrate, --video-size or --audio gives "
                     "something"},
        NoAnswerCase{"SplitOfNothing", "split --size 0",
                     "there is nothing to cut; --size gives the size of the file"},
        NoAnswerCase{"SplitIntoTooMuch", "split --size 600",
                     "the segments need 700 MB, but the file has only 600 MB; a larger --size or a "
                     "smaller --segment fits"},
        NoAnswerCase{"SplitAtNoKeyFrame", "split --rate 0.4 --key-frame-every 1",
                     "there is no key frame to cut at; --rate and --key-frame-every give the "
                     "interval"},
        NoAnswerCase{"SplitOfTooManyFrames", "split --length 2147483648f --segment 600",
                     "the film has too many frames; a smaller --length can be cut"},
        NoAnswerCase{"ResolutionOfNothing", "resolution --width 7",
                     "no multiple of 16 is near enough; a larger --width or --height, or a smaller "
                     "--increment, gives one"},
        NoAnswerCase{"ResolutionThatIsTooLarge", "resolution --height 32767 --ratio 99",
                     "the picture is larger than 32767 pixels; a smaller --width or --height "
                     "fits"}),
    NameOf);

// --- The user's settings ---

Settings UsersSettings() {
  auto record = BuiltInSettings();
  record.MovieLength = 90;
  record.AudioBitrate = 160;
  record.CDCount = 2;
  record.CDCapacity = 650;
  record.ExtraMaterial = 20;
  record.DivXOption = 0;
  record.VideoFrameOverhead = 0;
  record.AudioInterleaveOverhead = 0;
  record.HDVideoMode = 1;
  record.HDAudioType = 2;
  record.VideoOnlySize = 500;
  record.TargetAVISize = 600;
  record.SplitSegmentsMode = 1;
  record.SplitAVISize = 1800;
  record.SplitSize1 = 600;
  record.SplitSize2 = 600;
  record.KeyframeInterval = 4;
  record.FrameRateSystem = 1;
  record.QuickSizeMB = 1;
  record.AspectMode = 2;
  record.CustomAspect = 2;
  record.ResHorizontal = 640;
  return record;
}

class TakesTheSettings : public ::testing::TestWithParam<AnswerCase> {};

TEST_P(TakesTheSettings, OfTheUser) {
  const CommandRunner runner;
  const auto bytes = WriteLines(UsersSettings(), true).toStdString();
  runner.folder.Put("Brindle2.ini", bytes);
  runner.folder.Put("other.ini", bytes);
  EXPECT_EQ(runner.Run(GetParam().line + " --settings").answer, GetParam().answer + "\n");
  const auto path = runner.folder.PathOf("other.ini").toStdString();
  EXPECT_EQ(runner.Run(GetParam().line + " --settings=" + path).answer, GetParam().answer + "\n");
  EXPECT_NE(runner.Run(GetParam().line).answer, GetParam().answer + "\n");
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TakesTheSettings,
    ::testing::Values(
        AnswerCase{"Bitrate", "bitrate", "1786 kbps (Excellent)\nvideo 1177.0 MB, audio 103.0 MB"},
        AnswerCase{"BitrateOfALongerFilm", "bitrate --length 100",
                   "1591 kbps (Excellent)\nvideo 1165.6 MB, audio 114.4 MB"},
        AnswerCase{"BitrateWithOverheads", "bitrate --frame-overhead on --interleave-overhead on",
                   "1777 kbps (Excellent)\nvideo 1171.1 MB, audio 103.0 MB, overhead 5.9 MB"},
        AnswerCase{"Audio", "audio", "155 kbps\nsuggested 128kbps (Good)"},
        AnswerCase{"Space", "space", "648 MB\nvideo 500.0 MB, audio 147.7 MB"},
        AnswerCase{"SpaceByBitrate", "space --video-bitrate 1000",
                   "807 MB\nvideo 659.2 MB, audio 147.7 MB"},
        AnswerCase{"Split", "split",
                   "cut at frame 43104 and 86208\n"
                   "segment 1, 600 MB: delete 43104 to 129470\n"
                   "segment 2, 600 MB: delete 0 to 43103 and 86208 to 129470\n"
                   "segment 3, 600 MB: delete 0 to 86207\n"
                   "1348 key frames, one every 96 frames; duration 1:30:00.00"},
        AnswerCase{"Time", "time", "1:30:00.00 = 90 minutes = 129470 frames"},
        AnswerCase{"Size", "size", "1048576 B = 1024 KB = 1 MB = 0.0009765625 GB"},
        AnswerCase{"Resolution", "resolution",
                   "640x320\n204800 pixels, 800 macroblocks, ratio 2, error 0%"}),
    NameOf);

}  // namespace
}  // namespace brindle
