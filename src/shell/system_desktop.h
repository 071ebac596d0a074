// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "base/input/message_boxes.h"
#include "base/time/clock.h"
#include "base/windows/desktop.h"
#include "shell/desktop_commands.h"

namespace brindle {

/// The desktop on which the program really runs. A program that it starts has Brindle's folder as
/// its current directory, if that exists, and keeps running when Brindle ends.
class SystemDesktop : public Desktop {
 public:
  SystemDesktop(MessageBoxes& boxes, Clock& clock, QString programFolder);

  void Beep() override;
  void StartCalculator(QWidget* asker) override;
  void OpenHelp(QWidget* asker, const QString& page) override;
  void OpenAddress(QWidget* asker, const QString& address) override;

 private:
  using Asker = QPointer<QWidget>;
  void Start(const Asker& asker, const Command& command);
  void TellLater(const Asker& asker, const Command& command, const QString& reason);

  MessageBoxes& boxes_;
  Clock& clock_;
  QString programFolder_;
  QObject lifetime_;
};

}  // namespace brindle
