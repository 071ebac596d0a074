// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringView>
#include <QWidget>

#include "base/interface.h"

namespace brindle {

/// The page that the help opens with; every window also has a page of its own name.
inline constexpr QStringView FirstHelpPage(u"index");

/// What the desktop around the program does for it. Nothing here waits. If something cannot be
/// started, one message box over the window that asked says "Cannot start NAME: REASON", once that
/// window has returned to the event loop.
class Desktop : public Interface {
 public:
  /// The system's beep.
  virtual void Beep() = 0;

  /// The system's calculator.
  virtual void StartCalculator(QWidget* asker) = 0;

  /// A page of the help: FirstHelpPage or the name of a window.
  virtual void OpenHelp(QWidget* asker, const QString& page) = 0;

  /// A web page ("https://...") in the desktop's browser, or a new e-mail ("mailto:...") in its
  /// mail program. Every call asks the desktop once more.
  virtual void OpenAddress(QWidget* asker, const QString& address) = 0;
};

}  // namespace brindle
