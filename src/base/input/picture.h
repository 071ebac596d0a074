// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QPixmap>
#include <QString>

namespace brindle {

/// The picture of this name, rendered for a screen of this device pixel ratio (1 to 4; others take
/// the next larger one, at most 4). Its size in device-independent pixels is the same for all.
[[nodiscard]] QPixmap LoadPicture(const QString& name, qreal devicePixelRatio);

}  // namespace brindle
