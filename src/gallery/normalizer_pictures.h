// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QString>
#include <QWidget>

namespace brindle {

/// Uses the normalizer as a person does, and calls `take` in each of its states, with what to add
/// to the window's name: a file is open, it is scanned, it has been scanned, it is normalized.
[[nodiscard]] bool ShowNormalizerAtWork(QWidget& window,
                                        const std::function<void(const QString& state)>& take);

}  // namespace brindle
