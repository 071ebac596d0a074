// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/system_desktop.h"

#include <utility>

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QString>
#include <QWidget>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

// An exit later than this is not a start-up failure.
constexpr double Trial = 10;  // seconds

}  // namespace

SystemDesktop::SystemDesktop(MessageBoxes& boxes, Clock& clock, QString programFolder)
    : boxes_(boxes), clock_(clock), programFolder_(std::move(programFolder)) {}

void SystemDesktop::Beep() { QApplication::beep(); }

void SystemDesktop::StartCalculator(QWidget* asker) { Start(asker, CalculatorCommand()); }

void SystemDesktop::OpenHelp(QWidget* asker, const QString& page) {
  Start(asker, HelpCommand(programFolder_, page));
}

void SystemDesktop::OpenAddress(QWidget* asker, const QString& address) {
  Start(asker, brindle::OpenAddress(address));
}

void SystemDesktop::Start(const Asker& asker, const Command& command) {
  if (!command.reason.isEmpty()) {
    TellLater(asker, command, command.reason);
    return;
  }
  if (command.program.isEmpty()) {
    return;
  }
  // It deletes itself when the program that it started ends: destroying it earlier would kill that
  // program.
  auto* process = new QProcess;
  process->setProgram(command.program);
  process->setArguments(command.arguments);
  if (QDir(programFolder_).exists()) {
    process->setWorkingDirectory(programFolder_);
  }
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardOutputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  Prepare(command, *process);
  QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
  QObject::connect(process, &QProcess::errorOccurred, process,
                   [process](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) {
                       process->deleteLater();
                     }
                   });
  QObject::connect(process, &QProcess::errorOccurred, &lifetime_,
                   [this, asker, command, process](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) {
                       // The toolkit names the system call first, as in "execvp: ...".
                       TellLater(asker, command, process->errorString().section(u": "_s, -1));
                     }
                   });
  QObject::connect(
      process, &QProcess::finished, &lifetime_,
      [this, asker, command, began = clock_.Now()](int code, QProcess::ExitStatus status) {
        if (clock_.Now() - began > Trial) {
          return;
        }
        if (status == QProcess::CrashExit) {
          TellLater(asker, command, command.program + u" crashed"_s);
        } else if (const auto reason = code == 0 ? QString() : ReasonOfExit(command, code);
                   !reason.isEmpty()) {
          TellLater(asker, command, reason);
        }
      });
  process->start(QIODevice::NotOpen);
}

// Reports from the event loop, because the asking window may still be under construction.
void SystemDesktop::TellLater(const Asker& asker, const Command& command, const QString& reason) {
  const QString text = u"Cannot start "_s + command.name + u": "_s + reason;
  clock_.After(0, &lifetime_, [this, asker, text] {
    const bool stands = asker != nullptr && asker->isVisible();
    boxes_.Tell(stands ? asker.data() : QApplication::activeWindow(), text);
  });
}

}  // namespace brindle
