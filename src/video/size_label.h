// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "base/input/labels.h"

namespace brindle {

/// A label for a size in megabytes.
class SizeLabel : public ValueLabel {
  Q_OBJECT

 public:
  SizeLabel(const QString& name, const QString& tooltip);

  /// Blank for a size that is 0, negative or out of range.
  void WriteSize(double megaBytes);
};

}  // namespace brindle
