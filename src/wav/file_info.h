// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QGroupBox>
#include <QString>
#include <QWidget>

#include "base/input/elided_label.h"
#include "base/input/labels.h"
#include "wav/wav_header.h"

namespace brindle {

/// The frame of the normalizer that shows which file is open and what it contains.
class FileInfo {
 public:
  FileInfo();
  /// The frame, with a picture of the sound below the facts.
  [[nodiscard]] QGroupBox* InFrame(QWidget* picture);

  /// Shows the name of the file and the facts from its header. A damaged field of the header leaves
  /// its label as it was.
  void Write(const QString& path, const WavHeader& header);

  /// Shows or hides everything except the name.
  void SetVisible(bool visible);

 private:
  ElidedLabel WavInfo1;
  ValueLabel WavInfo2;
  ValueLabel WavInfo3;
  ValueLabel WavInfo4;
  ElidedLabel WavInfo5;
};

}  // namespace brindle
