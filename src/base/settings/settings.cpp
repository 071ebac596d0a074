// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/settings/settings.h"

#include <variant>

#include <QString>

#include "base/settings/settings_lines.h"

namespace brindle {

using namespace Qt::StringLiterals;

Settings BuiltInSettings() {
  return {
      .VideoFrameOverhead = 0.5859375,  // 24 bytes a frame at 25 fps: 24 x 25 / 1024
      .AudioInterleaveOverhead = 0.5859375,
      .InterleaveOption = 2,
      .VideoOverheadOn = 1,
      .AudioOverheadOn = 1,
      .InterleaveTime = 400,
      .InterleaveFrames1 = 1,
      .InterleaveFrames2 = 1,
      .InterleaveFrames3 = 1,
      .MovieLength = 100,
      .FrameRateSystem = 0,
      .AudioBitrate = 128,
      .CDCount = 1,
      .CDCapacity = 700,
      .HDVideoBitrate = 910,
      .HDAudioType = 0,
      .HDAudioBitrate = 224,
      .VideoOnlySize = 550,
      .TargetAVISize = 700,
      .SplitSegmentsMode = 0,
      .SplitAVISize = 1300,
      .SplitSize1 = 700,
      .SplitSize2 = 700,
      .KeyframeInterval = 10,
      .QuickSizeMB = 1024,
      .DivXOption = 1,
      .WavAutoNormalize = false,
      .WavRememberFolders = true,
      .WavOverwriteSource = true,
      .WavNormalizePercent = 100,
      .WavTolerance = 6,
      .ResHorizontal = 592,
      .ResVertical = 336,
      .AspectMode = 1,
      .StandardAspect = 3,
      .CustomAspect = 1.778F,
      .WavMultiBuffer = true,
      .WavSourceFile = {},
      .WavTargetFile = u"C:\\Out.wav"_s,
  };
}

void ResetToBuiltIn(Settings& record) {
  const Settings builtIn = BuiltInSettings();
  for (const auto& line : SettingsLines()) {
    if (line.keptByDefaults) {
      continue;
    }
    std::visit(
        [&](auto field) {
          if constexpr (std::is_member_pointer_v<decltype(field)>) {
            record.*field = builtIn.*field;
          }
        },
        line.field);
  }
}

}  // namespace brindle
