// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "base/input/text_field.h"

namespace brindle {

/// A field of whole frames and the running time that they stand for. Until somebody changes the
/// text, frames that the program wrote stand for exactly the running time they were counted from,
/// which need not be a whole number of frames.
class FrameCount {
 public:
  explicit FrameCount(TextField& field) : field_(field) {}

  /// Writes the whole frames of a running time of `minutes`, or nothing if they are out of range.
  void Write(double minutes, double framesPerSecond);

  /// The running time in minutes; 0 if somebody has emptied the field. Nothing without a frame
  /// rate, or if there was nothing to write.
  [[nodiscard]] std::optional<double> Minutes(double framesPerSecond) const;

 private:
  struct Counted {
    double minutes = 0;
    double framesPerSecond = 0;
    double frames = 0;
    int changes = 0;  // of the field, when the frames were written
  };
  [[nodiscard]] bool StandsAsWritten() const;

  TextField& field_;
  Counted counted_;
};

}  // namespace brindle
