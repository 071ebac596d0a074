// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "base/input/labels.h"
#include "base/settings/settings.h"

namespace brindle {

/// The label `Interl` of both bitrate calculators: "ON" if any overhead is counted, otherwise
/// "OFF".
class InterleavingLabel : public ValueLabel {
  Q_OBJECT

 public:
  explicit InterleavingLabel(const Settings& record);

  /// Shows what the record holds now.
  void Refresh();

 private:
  const Settings& record_;
};

}  // namespace brindle
