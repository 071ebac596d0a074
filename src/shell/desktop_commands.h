// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace brindle {

// How this platform starts what belongs to the desktop. No shell reads these commands: the program
// is one of a fixed list, and the arguments are none but ours.

/// How a program's first window shall be shown, where the desktop lets another program say so.
enum class WindowStyle { Normal = 1, Minimized = 2 };

/// A program to be started, or why there is none.
struct Command {
  QString name;     ///< what the user asked for
  QString program;  ///< empty where there is nothing (more) to be started
  QStringList arguments;
  WindowStyle windowStyle = WindowStyle::Normal;
  QString reason;  ///< why it cannot be had; empty where it can
};

/// The calculator of the running desktop, else the first other one that is installed.
[[nodiscard]] Command CalculatorCommand();

/// Shows a page of the help that lies beside the program or is installed with it, by its name.
[[nodiscard]] Command HelpCommand(const QString& programFolder, const QString& page);

/// Opens an address with the program that the user has chosen for addresses of its kind: at once
/// where the system does that itself, else by the command that is given.
[[nodiscard]] Command OpenAddress(const QString& address);

/// Why a command was of no use that ended with this code, which is not 0; empty where it was, or
/// where the code does not tell.
[[nodiscard]] QString ReasonOfExit(const Command& command, int code);

/// Makes the process of a command, before it starts, show its window in the command's style and
/// live on when this program ends.
void Prepare(const Command& command, QProcess& process);

}  // namespace brindle
