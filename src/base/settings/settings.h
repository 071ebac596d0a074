// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include <QString>

namespace brindle {

/// What all windows share: the inputs and options that persist, then the fields that live only
/// while the program runs. Every calculator window reads its fields when it loads and writes an
/// accepted edit back at once. It starts with zeros and empty texts until the file is read.
struct Settings {
  double VideoFrameOverhead = 0;       ///< KB per second of running time; 0 when switched off
  double AudioInterleaveOverhead = 0;  ///< KB per second of running time; 0 when switched off
  std::int16_t InterleaveOption = 0;  ///< 1 time in ms, 2 frames at 25, 3 at 23.976, 4 at 29.97 fps
  std::int16_t VideoOverheadOn = 0;   ///< 1 when the frame overhead is counted
  std::int16_t AudioOverheadOn = 0;   ///< 1 when the interleave overhead is counted
  double InterleaveTime = 0;          ///< interleave period in milliseconds
  double InterleaveFrames1 = 0;       ///< interleave every N frames, PAL 25 fps
  double InterleaveFrames2 = 0;       ///< interleave every N frames, NTSC 23.976 fps
  double InterleaveFrames3 = 0;       ///< interleave every N frames, NTSC 29.97 fps
  double MovieLength = 0;             ///< running time in minutes
  std::int16_t FrameRateSystem = 0;   ///< 0 PAL 25, 1 NTSC 23.976, 2 NTSC 29.97 fps
  double AudioBitrate = 0;            ///< kbit/s of 1000 bits
  std::int16_t CDCount = 0;           ///< discs
  double CDCapacity = 0;              ///< MB of one disc, or of the target file
  double ExtraMaterial = 0;           ///< MB reserved for extra material
  double HDVideoMode = 0;             ///< disk space by 0 bitrate, 1 size
  double HDVideoBitrate = 0;          ///< kbit/s
  std::int16_t HDAudioType = 0;       ///< 0 WAV 44.1 kHz, 1 WAV 48 kHz, 2 another bitrate
  double HDAudioBitrate = 0;          ///< kbit/s
  double VideoOnlySize = 0;           ///< MB of the file that holds only video
  double TargetAVISize = 0;           ///< MB
  double SplitSegmentsMode = 0;       ///< 0 two segments, otherwise three
  double SplitAVISize = 0;            ///< MB of the file to split
  double SplitSize1 = 0;              ///< MB of the first segment
  double SplitSize2 = 0;              ///< MB of the second segment
  std::int16_t KeyframeInterval = 0;  ///< seconds between key frames
  double QuickSizeMB = 0;             ///< MB shown by the unit converter
  std::int16_t DivXOption = 0;        ///< codec generation: 0 version 3, 1 versions 4 and 5
  bool WavAutoNormalize = false;      ///< normalize right after the peak scan
  bool WavRememberFolders = false;    ///< remember the last file loaded
  bool WavOverwriteSource = false;    ///< write over the source instead of WavTargetFile
  std::int16_t WavNormalizePercent = 0;  ///< percent of the 16-bit range
  float WavTolerance = 0;                ///< percent
  std::int16_t ResHorizontal = 0;        ///< pixels
  std::int16_t ResVertical = 0;          ///< pixels
  std::int16_t AspectMode = 0;           ///< index of the aspect-ratio option
  std::int16_t StandardAspect = 0;       ///< index in the list of standard film ratios
  float CustomAspect = 0;                ///< width divided by height
  bool WavMultiBuffer = false;           ///< several buffers in a normalization pass
  QString WavSourceFile;                 ///< path of the last file loaded
  QString WavTargetFile;                 ///< path of the normalized output

  // Only while the program runs.
  QString AppFolder;                     ///< folder of the settings file, no trailing separator
  float SpinRepeatInterval = 0;          ///< seconds between the steps of a held spin button
  float SpinFirstDelay = 0;              ///< seconds a spin button is held before it repeats
  std::int16_t AdvancedCaller = 0;       ///< who opened the overhead window: 1 video, 2 audio
  std::int16_t SplashDone = 0;           ///< 1 once a click or a key has dismissed the splash
  std::int16_t ResolutionIncrement = 0;  ///< step of the resolution calculator in pixels
};

/// The built-in value of every stored field. ExtraMaterial and HDVideoMode deliberately have none:
/// they keep their value when the defaults are loaded, as the help says and SettingsTest checks.
[[nodiscard]] Settings BuiltInSettings();

/// Sets every stored field to its built-in value, except the two that keep theirs.
void ResetToBuiltIn(Settings& record);

}  // namespace brindle
