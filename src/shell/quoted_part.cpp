// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/quoted_part.h"

#include <QString>

namespace brindle {

QString QuotedPart(const QString& text) {
  const auto first = text.indexOf(u'\'');
  const auto second = first < 0 ? -1 : text.indexOf(u'\'', first + 1);
  return second < 0 ? QString() : text.mid(first + 1, second - first - 1);
}

}  // namespace brindle
