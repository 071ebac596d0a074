// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include <QColor>
#include <QWidget>

namespace brindle {

/// How far apart two colours are for the eye, 1 to 21: the contrast ratio of the Web Content
/// Accessibility Guidelines 2.1. What must be recognised needs 3.
[[nodiscard]] double Contrast(const QColor& one, const QColor& other);

/// The colour for edges and ticks that the toolkit's own style draws too dark to be seen in a dark
/// palette. Nothing where it draws them well, or where the desktop has a style of its own.
[[nodiscard]] std::optional<QColor> EdgeColor(const QWidget& control);

/// Draws the edge of a box (square) or an option (round) that can be seen, over what the style has
/// drawn.
void DrawVisibleEdge(QWidget& control);

}  // namespace brindle
