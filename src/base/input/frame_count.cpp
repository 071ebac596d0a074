// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/input/frame_count.h"

#include <cmath>
#include <optional>

#include "base/input/number_fields.h"
#include "base/input/text_field.h"
#include "base/numbers/frame_rate.h"

namespace brindle {

void FrameCount::Write(double minutes, double framesPerSecond) {
  const double frames = WholeFrames(minutes, framesPerSecond);
  WriteNumber(field_, frames);
  counted_ = {minutes, framesPerSecond, frames, field_.Changes()};
}

std::optional<double> FrameCount::Minutes(double framesPerSecond) const {
  if (StandsAsWritten() && !std::isfinite(counted_.frames)) {
    return std::nullopt;
  }
  if (StandsAsWritten() && framesPerSecond == counted_.framesPerSecond && framesPerSecond > 0) {
    return counted_.minutes;
  }
  return MinutesOfFrames(NumberIn(field_), framesPerSecond);
}

// The program may have rewritten the frames since: with the same number they stand as written, with
// another one they do not.
bool FrameCount::StandsAsWritten() const {
  const bool isSame =
      std::isfinite(counted_.frames) ? NumberIn(field_) == counted_.frames : IsEmpty(field_);
  return isSame && field_.Changes() == counted_.changes;
}

}  // namespace brindle
