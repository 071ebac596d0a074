// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/input/frames_field.h"

#include "app/input/field_text.h"
#include "app/input/text_field.h"
#include "app/numbers/frame_rate.h"

namespace brindle {

void StoreMinutesOfFrames(const TextField* frames, double framesPerSecond, double& minutes) {
  if (const auto stored = MinutesOfFrames(NumberIn(frames), framesPerSecond)) {
    minutes = *stored;
  }
}

void WriteFramesOfMinutes(TextField* frames, double framesPerSecond, double& minutes) {
  WriteNumber(frames, WholeFrames(minutes, framesPerSecond));
  if (!IsEmpty(frames)) {
    StoreMinutesOfFrames(frames, framesPerSecond, minutes);
  }
}

}  // namespace brindle
