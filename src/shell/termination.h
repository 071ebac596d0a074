// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace brindle {

/// The system's requests to end the program: termination signals where there are such, the end of
/// the desktop session. There is one in a process.
class Termination : public QObject {
  Q_OBJECT

 public:
  Termination();

 Q_SIGNALS:
  /// The program is to end now, without asking anybody.
  void Asked();
};

}  // namespace brindle
