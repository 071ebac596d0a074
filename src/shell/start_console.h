// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace brindle {

// What a program with windows has to do with the terminal from which it is started, before it has
// any window.

/// The arguments after the program's name.
[[nodiscard]] QStringList ArgumentsAtStart(int argc, char** argv);

/// Shows a text, or what is wrong, where the user looks: on the terminal; in a box on a system that
/// gives a program with windows no terminal.
void TellAtStart(const QString& text, bool isError);

}  // namespace brindle
