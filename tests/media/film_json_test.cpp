// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "media/film_json.h"

#include <string>
#include <string_view>

#include <QByteArray>
#include <QString>
#include <gtest/gtest.h>

#include "media/film.h"
#include "tests/support/named_case.h"

namespace brindle {
namespace {

Film Holiday() {
  Film film;
  film.container = "avi";
  film.bytes = 734'003'200;
  film.seconds = 6150.5;
  film.video = FilmVideo{.codec = "mpeg4",
                         .width = 640,
                         .height = 272,
                         .pixelShape = {64, 45},
                         .frameRate = {24000, 1001},
                         .frames = 147464,
                         .bytes = 600'000'000};
  film.audio = {{.codec = "mp3",
                 .kilobitsPerSecond = 128.25,
                 .channels = 2,
                 .sampleRate = 48000,
                 .bytes = 98'400'000},
                {.codec = "ac3",
                 .kilobitsPerSecond = 44,
                 .channels = 6,
                 .sampleRate = 48000,
                 .bytes = 33'000'000}};
  film.containerBytes = 2'603'200;
  film.framesBetweenAudio = 1.5;
  film.parts = {.container = "avi",
                .fixedBytes = 4096,
                .end = {.frame = 147464,
                        .position = 0,
                        .videoBytes = 600'000'000,
                        .audioBytes = 131'400'000,
                        .containerBytes = 2'600'000,
                        .packets = 100'000}};
  film.keyFrames = {{.frame = 0, .position = 2048},
                    {.frame = 250,
                     .position = 1'000'000,
                     .videoBytes = 900'000,
                     .audioBytes = 90'000,
                     .containerBytes = 7000,
                     .packets = 290,
                     .extraBytes = 24}};
  return film;
}

bool AreEqual(const FilmKeyFrame& one, const FilmKeyFrame& other) {
  return one.frame == other.frame && one.position == other.position &&
         one.videoBytes == other.videoBytes && one.audioBytes == other.audioBytes &&
         one.containerBytes == other.containerBytes && one.packets == other.packets &&
         one.extraBytes == other.extraBytes;
}

TEST(FilmJson, IsReadAsItWasWritten) {
  const auto film = Holiday();
  const auto read = FilmOfJson(QByteArray::fromStdString(JsonOf(film, "holiday \"1\".avi")));
  ASSERT_TRUE(read) << read.error().toStdString();
  EXPECT_EQ(read->container, "avi");
  EXPECT_EQ(read->bytes, film.bytes);
  EXPECT_EQ(read->seconds, film.seconds);
  ASSERT_TRUE(read->video);
  EXPECT_EQ(read->video->codec, "mpeg4");
  EXPECT_EQ(read->video->width, 640);
  EXPECT_EQ(read->video->height, 272);
  EXPECT_EQ(read->video->pixelShape.numerator, 64);
  EXPECT_EQ(read->video->pixelShape.denominator, 45);
  EXPECT_EQ(read->video->frameRate.numerator, 24000);
  EXPECT_EQ(read->video->frameRate.denominator, 1001);
  EXPECT_EQ(read->video->frames, 147464);
  EXPECT_EQ(read->video->bytes, 600'000'000);
  ASSERT_EQ(read->audio.size(), 2U);
  EXPECT_EQ(read->audio[0].codec, "mp3");
  EXPECT_EQ(read->audio[0].kilobitsPerSecond, 128.25);
  EXPECT_EQ(read->audio[1].channels, 6);
  EXPECT_EQ(read->audio[1].sampleRate, 48000);
  EXPECT_EQ(read->audio[1].bytes, 33'000'000);
  EXPECT_EQ(read->containerBytes, film.containerBytes);
  EXPECT_EQ(read->framesBetweenAudio, 1.5);
  EXPECT_EQ(read->parts.container, "avi");
  EXPECT_EQ(read->parts.fixedBytes, 4096);
  EXPECT_TRUE(AreEqual(read->parts.end, film.parts.end));
  ASSERT_EQ(read->keyFrames.size(), 2U);
  EXPECT_TRUE(AreEqual(read->keyFrames[0], film.keyFrames[0]));
  EXPECT_TRUE(AreEqual(read->keyFrames[1], film.keyFrames[1]));
}

TEST(FilmJson, OfSoundAloneHasNoVideo) {
  Film film;
  film.container = "mp3";
  film.audio = {{.codec = "mp3"}};
  const auto read = FilmOfJson(QByteArray::fromStdString(JsonOf(film, "song.mp3")));
  ASSERT_TRUE(read) << read.error().toStdString();
  EXPECT_FALSE(read->video);
  EXPECT_FALSE(read->framesBetweenAudio);
  EXPECT_TRUE(read->keyFrames.empty());
}

TEST(FilmJson, IsOneLineWhateverTheNameIs) {
  const auto json = JsonOf(Holiday(), "a\nb\\\"\x7f.avi");
  EXPECT_EQ(json.find('\n'), std::string::npos);
  EXPECT_NE(json.find(R"("file":"a\u000ab\\\"\u007f.avi")"), std::string::npos) << json;
}

// One text in the answer about Holiday() becomes another.
struct Lie {
  const char* name;
  std::string_view from;
  std::string_view to;
  std::string_view reason;
};

class AnswerAboutAFilm : public testing::TestWithParam<Lie> {};

TEST_P(AnswerAboutAFilm, IsNotBelieved) {
  auto json = JsonOf(Holiday(), "holiday.avi");
  const auto place = json.find(GetParam().from);
  ASSERT_NE(place, std::string::npos) << json;
  json.replace(place, GetParam().from.size(), GetParam().to);
  const auto read = FilmOfJson(QByteArray::fromStdString(json));
  ASSERT_FALSE(read);
  EXPECT_EQ(read.error().toStdString(), GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(
    Each, AnswerAboutAFilm,
    testing::Values(
        Lie{"NoObject", "{\"version\"", "[\"version\"", "it is not a JSON object"},
        Lie{"CutShort", "}]}}", "}]", "it is not a JSON object"},
        Lie{"AnotherVersion", "\"version\":1", "\"version\":2", "it is not an answer about a film"},
        Lie{"AnotherCommand", "\"info\"", "\"peaks\"", "it is not an answer about a film"},
        Lie{"NoFilm", "\"film\":", "\"movie\":", "film is missing"},
        Lie{"SizeBelowNothing", "\"size_b\":734003200", "\"size_b\":-1",
            "film: size_b is out of range"},
        Lie{"SizeTooLarge", "\"size_b\":734003200", "\"size_b\":9007199254740994",
            "film: size_b is out of range"},
        Lie{"SizeInHalves", "\"size_b\":734003200", "\"size_b\":1.5",
            "film: size_b is out of range"},
        Lie{"SizeAsText", "\"size_b\":734003200", "\"size_b\":\"734003200\"",
            "film: size_b is out of range"},
        Lie{"SizeNull", "\"size_b\":734003200", "\"size_b\":null", "film: size_b is out of range"},
        Lie{"TimeBelowNothing", "\"duration_seconds\":6150.5", "\"duration_seconds\":-0.5",
            "film: duration_seconds is out of range"},
        Lie{"TimeNotFinite", "\"duration_seconds\":6150.5", "\"duration_seconds\":1e300",
            "film: duration_seconds is out of range"},
        Lie{"NameWithALineFeed", "\"mpeg4\"", "\"mpeg\\n4\"", "video: codec is out of range"},
        Lie{"NoWidth", "\"width_pixels\":640", "\"width_pixels\":0",
            "video: width_pixels is out of range"},
        Lie{"VideoIsAText", "\"video\":{", "\"video\":\"\",\"other\":{", "video is missing"},
        Lie{"RateOfNothing", "[24000,1001]", "[0,1001]", "video: rate_fps is out of range"},
        Lie{"RateByNothing", "[24000,1001]", "[24000,0]", "video: rate_fps is out of range"},
        Lie{"RateBelowNothing", "[24000,1001]", "[-24000,-1001]",
            "video: rate_fps is out of range"},
        Lie{"RateOfOneNumber", "[24000,1001]", "[24000]", "video: rate_fps is out of range"},
        Lie{"ShapeOfTexts", "[64,45]", "[\"64\",45]", "video: pixel_shape is out of range"},
        Lie{"BitrateBelowNothing", "\"bitrate_kbps\":128.25", "\"bitrate_kbps\":-1",
            "audio: bitrate_kbps is out of range"},
        Lie{"NoTracks", "\"audio\":[", "\"sound\":[", "the audio tracks are missing"},
        Lie{"NoKeyFrames", "\"key_frames\":[", "\"keys\":[", "the key frames are missing"},
        Lie{"KeyFrameIsANumber", "\"key_frames\":[", "\"key_frames\":[5,", "key frame is missing"},
        Lie{"KeyFramesOutOfOrder", "{\"frame\":250", "{\"frame\":0",
            "the key frames are not in their order"},
        Lie{"BytesShrink", "\"key_frames\":[{\"frame\":0,\"position_b\":2048,\"video_b\":0",
            "\"key_frames\":[{\"frame\":0,\"position_b\":2048,\"video_b\":900001",
            "the bytes before a key frame are fewer than before another"},
        Lie{"KeyFramePastTheEnd", "{\"frame\":250", "{\"frame\":147464",
            "a key frame is past the end"},
        Lie{"MoreBytesThanAtTheEnd", "\"video_b\":900000", "\"video_b\":600000001",
            "a key frame is past the end"}),
    NameOf);

}  // namespace
}  // namespace brindle
