// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "video/size_label.h"

#include <cmath>

#include <QString>

#include "base/input/number_fields.h"
#include "base/numbers/numeric_text.h"

namespace brindle {

using namespace Qt::StringLiterals;

SizeLabel::SizeLabel(const QString& name, const QString& tooltip)
    : ValueLabel(name, tooltip, {u"8888888.8MB"_s}) {}

void SizeLabel::WriteSize(double megaBytes) {
  const bool isShown = std::isfinite(megaBytes) && megaBytes > 0;
  Write(isShown ? ToQString(Formatted(megaBytes, "#.0")) + u"MB"_s : QString());
}

}  // namespace brindle
