// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace brindle {

/// What the toolkit's licence (GNU LGPL 3, section 4c) asks a program to show wherever it shows a
/// copyright of its own: whose the toolkit is, and under which licence, whose text comes with it.
inline QString ToolkitNotice() {
  return QStringLiteral("Qt \u00A9 The Qt Company Ltd., GNU LGPL 3");
}

}  // namespace brindle
