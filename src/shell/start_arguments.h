// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace brindle {

/// What the program is started for.
struct StartArguments {
  enum class Wish {
    Start,   ///< the windows, with the file in the normalizer if there is one
    Tell,    ///< only the text
    Refuse,  ///< the arguments are wrong; the text says how
  };
  Wish wish = Wish::Start;
  QString text;
  QString file;  ///< in full; empty for none
};

/// Reads the arguments after the program's name. Options of the toolkit are left to it.
[[nodiscard]] StartArguments ReadStartArguments(const QStringList& arguments);

}  // namespace brindle
