// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/inputs.h"

#include <cmath>
#include <string>

#include "base/numbers/frame_rate.h"
#include "base/numbers/numeric_text.h"
#include "base/numbers/running_time.h"
#include "base/settings/settings.h"
#include "cli/options.h"
#include "cli/reading.h"
#include "video/overhead.h"

namespace brindle {
namespace {

enum InterleaveOption { ByTime = 1, ByPal, ByFilm, ByNtsc };

// Every how many frames audio is interleaved at this frame rate, according to the settings.
double StoredFrames(const Settings& record, double framesPerSecond) {
  if (framesPerSecond == FramesPerSecond(ByFilm - ByPal)) {
    return record.InterleaveFrames2;
  }
  if (framesPerSecond == FramesPerSecond(ByNtsc - ByPal)) {
    return record.InterleaveFrames3;
  }
  return record.InterleaveFrames1;
}

}  // namespace

void FilmInput::AddLength(Options& options) {
  options.Add({.names = "--length",
               .value = "DURATION",
               .help = "Running time of the film",
               .byDefault = TextOf(BuiltInSettings().MovieLength)},
              length, ReadTime);
}

void FilmInput::AddRate(Options& options) {
  options.Add({.names = "--rate",
               .value = "RATE",
               .help = "Frame rate of the film",
               .byDefault = "pal",
               .words = {"pal", "film", "ntsc"}},
              rate, ReadRate);
}

double FilmInput::Rate(const Settings& record) const {
  return rate.value_or(FramesPerSecond(record.FrameRateSystem));
}

double FilmInput::Minutes(const Settings& record) const {
  if (!length) {
    // Every window counts a running time of 0 in the settings as 1.
    return record.MovieLength == 0 ? 1 : record.MovieLength;
  }
  return length->frames ? MinutesOfFrames(*length->frames, Rate(record)).value_or(0)
                        : length->minutes;
}

void OverheadInput::AddFrames(Options& options) {
  options.Add({.names = "--frame-overhead",
               .value = "SWITCH",
               .help = "Count what each video frame adds to an AVI: on or off",
               .byDefault = "on",
               .words = {"on", "off"}},
              frameOverhead, ReadSwitch);
}

void OverheadInput::AddInterleaving(Options& options) {
  options.Add({.names = "--interleave-overhead",
               .value = "SWITCH",
               .help = "Count what interleaving audio adds to an AVI: on or off",
               .byDefault = "on",
               .words = {"on", "off"}},
              interleaveOverhead, ReadSwitch);
  options.Add({.names = "--interleave",
               .value = "INTERVAL",
               .help = "How often audio is interleaved: 400ms, or a number of frames",
               .byDefault = "1"},
              interleave, ReadInterval);
}

// The settings hold the overheads already computed; they count as long as nothing says otherwise.
double OverheadInput::Video(const Settings& record, const FilmInput& film) const {
  if (!frameOverhead && !film.rate) {
    return record.VideoFrameOverhead;
  }
  return frameOverhead.value_or(record.VideoOverheadOn == 1)
             ? VideoFrameOverheadOf(film.Rate(record))
             : 0;
}

double OverheadInput::Audio(const Settings& record, const FilmInput& film) const {
  if (!interleaveOverhead && !interleave && !film.rate) {
    return record.AudioInterleaveOverhead;
  }
  // Who says how audio is interleaved wants that counted.
  if (!interleaveOverhead.value_or(interleave || record.AudioOverheadOn == 1)) {
    return 0;
  }
  const double rate = film.Rate(record);
  if (interleave) {
    return interleave->isInMilliSeconds ? InterleaveOverheadByTime(interleave->number)
                                        : InterleaveOverheadByFrames(interleave->number, rate);
  }
  return record.InterleaveOption == ByTime
             ? InterleaveOverheadByTime(record.InterleaveTime)
             : InterleaveOverheadByFrames(StoredFrames(record, rate), rate);
}

void DivXInput::Add(Options& options) {
  options.Add({.names = "--divx",
               .value = "VERSION",
               .help = "DivX version: 3 counts a kilobit as 1024 bits, 4/5 as 1000",
               .byDefault = "4/5",
               .words = {"3", "4/5"}},
              version, ReadDivX);
}

std::string MegaBytesText(double megaBytes) { return TextOf(megaBytes) + "MB"; }

std::string ClockText(double minutes) {
  const auto time = TakeApart(SecondsToHundredths(minutes));
  return TextOf(time.hours) + ":" + Formatted(time.minutes, "00") + ":" +
         Formatted(time.seconds, "00.00");
}

std::string ShownMegaBytes(double megaBytes) {
  return std::isfinite(megaBytes) && megaBytes > 0 ? Formatted(megaBytes, "#.0") : std::string();
}

}  // namespace brindle
