// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace brindle {

// How this platform starts what belongs to the desktop. No shell reads these commands: the program
// is one of a fixed list, and the arguments are none but ours.

/// A program to be started, or why there is none.
struct Command {
  QString name;  ///< what the user asked for
  QString program;
  QStringList arguments;
  QString reason;  ///< empty where the program can be started
};

/// The calculator of the running desktop, else the first other one that is installed.
[[nodiscard]] Command CalculatorCommand();

/// Shows a page of the help that lies beside the program or is installed with it, by its name.
[[nodiscard]] Command HelpCommand(const QString& programFolder, const QString& page);

/// Opens an address with the program that the user has chosen for addresses of its kind.
[[nodiscard]] Command AddressCommand(const QString& address);

/// Why a command was of no use that ended with this code, which is not 0.
[[nodiscard]] QString ReasonOfExit(const Command& command, int code);

/// Makes a process, before it starts, live on when this program ends, with none of its signals
/// ignored.
void LetOutlive(QProcess& process);

}  // namespace brindle
