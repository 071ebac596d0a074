// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

namespace brindle {

/// The system's requests to end the program: termination signals, where the system has them, and
/// the end of the desktop session. A process has one such object.
class Termination : public QObject {
  Q_OBJECT

 public:
  Termination();

 Q_SIGNALS:
  /// The program is to end now, without asking anybody.
  void Asked();
  /// The same at the end of the desktop's session, when nobody can answer, not even to a message.
  void SessionEnds();
};

}  // namespace brindle
