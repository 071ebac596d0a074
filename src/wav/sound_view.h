// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QPaintEvent>
#include <QSize>
#include <QWidget>

#include "wav/level_range.h"
#include "wav/pass.h"
#include "wav/sound_outlook.h"
#include "wav/sound_picture.h"

namespace brindle {

/// The picture of the normalizer that shows the sound of the open file, and what a pass would make
/// of it. It keeps its room while it is empty, takes no focus, and says the same in words to a
/// screen reader.
class SoundView : public QWidget {
  Q_OBJECT

 public:
  SoundView();

  /// Another file is open.
  void Clear();

  /// A scan goes on, and has read this so far.
  void ShowScan(const SoundPicture& picture);
  /// A scan has ended. A pass would go by these peaks, which need not be those of the picture.
  void ShowScanned(const SoundPicture& picture, Peaks peaks);
  /// The level that the peaks are to reach, in percent of the range: 100 at first.
  void AimAt(double percent);

  /// A pass begins, which aims at this percentage by this gain. `changesFile`: it changes the open
  /// file itself.
  void BeginPass(double percent, double gain, bool changesFile);
  void ShowPass(const PassProgress& progress);
  /// The normalized sound stays, unless the pass did not come to its end and left the open file as
  /// it was.
  void EndPass(const PassState& end);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void LookAhead();
  void ShowOutlook();

  SoundOutlook outlook_;
  std::optional<Peaks> peaks_;  // that a pass would go by
  double percent_ = 100;        // that a pass would aim at
  bool isPassing_ = false;
  bool changesFile_ = false;
};

}  // namespace brindle
