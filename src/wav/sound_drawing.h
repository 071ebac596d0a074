// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QImage>
#include <QPalette>
#include <QSize>

#include "wav/sound_outlook.h"

namespace brindle {

/// The colours of a drawn sound. On a background of white or nearly black, sound, ghost and what is
/// cut off have a contrast of at least 3 to 1 with it, and so have sound and ghost with each other.
struct SoundColors {
  QColor empty;  ///< the background where there is no picture
  QColor border;
  QColor background;
  QColor text;    ///< the dashes of the level that is aimed at
  QColor line;    ///< the full scale
  QColor sound;   ///< what the file has
  QColor ghost;   ///< what the pass would make of it
  QColor cutOff;  ///< what it would cut off

  /// Background and text are those of a field, the background of an empty picture is that of a
  /// window, lines are between background and text, and the others go with its lightness.
  [[nodiscard]] static SoundColors Of(const QPalette& palette);
};

/// Where the rows of a drawn sound are, in pixels from its top.
struct SoundRows {
  int middle = 0;     ///< of level 0
  int fullScale = 0;  ///< from level 0 to the full scale, up and down; the rest is for what is
                      ///< beyond it

  SoundRows(int height, int lineWidth);
  /// The row of a level in parts of the full scale, 1 at the top and -1 at the bottom.
  [[nodiscard]] int Of(double level) const;
};

/// Draws a sound: for each column of pixels what the file has of it, and the ghost of what the pass
/// would make of it; in front whichever is smaller, so that both can be seen. Lines for the full
/// scale, and dashes for the level that is aimed at. What
/// would be cut off stands out beyond the full scale. Where nothing was read, nothing is drawn; a
/// picture without columns is an empty frame.
/// `pixels` are those of the screen, of which `ratio` make a device-independent one: lines get as
/// many pixels, rounded down, and at least one.
[[nodiscard]] QImage DrawnSound(const SoundOutlook& outlook, QSize pixels, double ratio,
                                const SoundColors& colors);

}  // namespace brindle
