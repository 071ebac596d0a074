// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace brindle {

// How this platform starts what belongs to the desktop. No shell reads these commands: the program
// is one of a fixed list, and all arguments are ours.

/// How to show a program's first window, if the desktop lets another program decide that.
enum class WindowStyle { Normal = 1, Minimized = 2 };

/// A program to start, or why there is none.
struct Command {
  QString name;     ///< what the user asked for
  QString program;  ///< empty if there is nothing (more) to start
  QStringList arguments;
  WindowStyle windowStyle = WindowStyle::Normal;
  QString reason;  ///< why it is not available; empty if it is
};

/// The calculator of the running desktop, otherwise the first other one that is installed.
[[nodiscard]] Command CalculatorCommand();

/// Shows a page of the help, by its name; the help is beside the program or installed with it.
[[nodiscard]] Command HelpCommand(const QString& programFolder, const QString& page);

/// Opens an address with the program that the user has chosen for addresses of its kind: at once if
/// the system does that itself, otherwise with the command that it returns.
[[nodiscard]] Command OpenAddress(const QString& address);

/// Why a command that ended with this code, which is not 0, failed; empty if it did not, or if the
/// code does not say.
[[nodiscard]] QString ReasonOfExit(const Command& command, int code);

/// Before the process of a command starts, makes it show its window in the command's style and live
/// on when this program ends.
void Prepare(const Command& command, QProcess& process);

}  // namespace brindle
