// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// A program without a display and without a widget, linked with the arithmetic of all calculators
// and the engine of the normalizer: it links only as long as these need neither. It asks each of
// them one question, and ends with the number of wrong answers.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include <QString>

#include "aspect/resolution.h"
#include "audiodisk/audio_bitrate.h"
#include "audiodisk/disk_space.h"
#include "base/time/clock.h"
#include "convert/size_units.h"
#include "media/film.h"
#include "media/part_sizes.h"
#include "split/split_plan.h"
#include "video/overhead.h"
#include "video/video_bitrate.h"
#include "wav/gain.h"
#include "wav/pass.h"
#include "wav/peak_scan.h"

namespace brindle {
namespace {

int wrongAnswers = 0;

void Expect(std::string_view question, double answer, double expected) {
  if (!(std::abs(answer - expected) <= std::abs(expected) * 1e-6)) {
    std::printf("%.*s: %.15g instead of %.15g\n", static_cast<int>(question.size()),
                question.data(), answer, expected);
    ++wrongAnswers;
  }
}

void AskAll() {
  const auto video = ComputeVideoBitrate({.discMegaBytes = 700,
                                          .discs = 1,
                                          .minutes = 100,
                                          .audioKiloBits = 128,
                                          .overheadKiloBytesPerSecond = 1.171875,
                                          .divXFactor = DivXFactorOf(1)});
  Expect("the video bitrate in kbit/s", std::floor(video.kiloBits), 841);
  Expect("the overhead of video frames in KB/s", VideoFrameOverheadOf(25), 0.5859375);
  Expect("the audio bitrate in kbit/s",
         ComputeAudioBitrate({.targetMegaBytes = 650, .videoMegaBytes = 550, .minutes = 100}),
         139.810133333);
  Expect("the disk space in MB",
         TotalMegaBytes(100, CompressedKiloBytesPerSecond(224),
                        VideoMegaBytes(1000, 100, VideoFactorOf(1))),
         879.318237305);
  const auto plan = PlanOfTwo({.frames = 150000,
                               .megaBytes = 1300,
                               .firstMegaBytes = 650,
                               .keyFrameInterval = KeyFrameInterval(10, 25)});
  Expect("the frame to cut at", plan[0].start.value_or(-1), 75000);
  Expect("a megabyte in bytes", SizesFrom(SizeUnit::MB, 1)[IndexOf(SizeUnit::B)], 1048576);
  Expect("the height of a frame", HeightFor(640, StandardRatio(3), 16), 352);
  Expect("a gain", GainFor(-16384, 8191, 100).value_or(0), 2);
  Film film;
  film.keyFrames = {{.frame = 0}, {.frame = 250, .videoBytes = 9000}};
  film.parts = {.container = "avi", .fixedBytes = 500, .end = {.frame = 500, .videoBytes = 20000}};
  Expect("bytes of a part of a film", static_cast<double>(PartBytes(film, 0, 1)), 9500);
  const SystemClock clock;
  PeakScan scan(QStringLiteral("/nowhere/nothing.wav"), clock);
  const auto end = RunToEnd(scan, [](const PassProgress&) { return true; });
  Expect("errors of a file that is not there", std::holds_alternative<WavError>(end) ? 1 : 0, 1);
}

}  // namespace
}  // namespace brindle

int main() {
  brindle::AskAll();
  return brindle::wrongAnswers;
}
