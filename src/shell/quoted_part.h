// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace brindle {

/// The part of `text` between its first two single quotes; empty if there are not two.
[[nodiscard]] QString QuotedPart(const QString& text);

}  // namespace brindle
