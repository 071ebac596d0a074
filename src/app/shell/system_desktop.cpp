// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "app/shell/system_desktop.h"

#include <utility>

#include <QApplication>
#include <QProcess>
#include <QString>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

// Who fails later than this was started well, and failed at something else.
constexpr double Trial = 10;  // seconds

}  // namespace

SystemDesktop::SystemDesktop(MessageBoxes& boxes, Clock& clock, QString programFolder)
    : boxes_(boxes), clock_(clock), programFolder_(std::move(programFolder)) {}

void SystemDesktop::Beep() { QApplication::beep(); }

void SystemDesktop::StartCalculator() { Start(CalculatorCommand()); }

void SystemDesktop::OpenHelp(const QString& page) { Start(HelpCommand(programFolder_, page)); }

void SystemDesktop::OpenAddress(const QString& address) { Start(AddressCommand(address)); }

void SystemDesktop::Start(const Command& command) {
  if (!command.reason.isEmpty()) {
    TellLater(command.name, command.reason);
    return;
  }
  // Owned by nobody but its own end: destroying it earlier would kill what it has started.
  auto* process = new QProcess;
  process->setProgram(command.program);
  process->setArguments(command.arguments);
  process->setWorkingDirectory(programFolder_);
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardOutputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  LetOutlive(*process);
  QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
  QObject::connect(process, &QProcess::errorOccurred, process,
                   [process](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) {
                       process->deleteLater();
                     }
                   });
  QObject::connect(process, &QProcess::errorOccurred, &lifetime_,
                   [this, process, command](QProcess::ProcessError error) {
                     if (error == QProcess::FailedToStart) {
                       // The toolkit puts the system's call in front: "execvp: ...".
                       TellLater(command.name, process->errorString().section(u": "_s, -1));
                     }
                   });
  QObject::connect(process, &QProcess::finished, &lifetime_,
                   [this, command, began = clock_.Now()](int code, QProcess::ExitStatus status) {
                     if (clock_.Now() - began > Trial) {
                       return;
                     }
                     if (status == QProcess::CrashExit) {
                       TellLater(command.name, command.program + u" crashed"_s);
                     } else if (code != 0) {
                       TellLater(command.name, ReasonOfExit(command, code));
                     }
                   });
  process->start(QIODevice::NotOpen);
}

// From the event loop: who asked may be in the middle of making its window.
void SystemDesktop::TellLater(const QString& name, const QString& reason) {
  clock_.After(0, &lifetime_, [this, text = u"Cannot start "_s + name + u": "_s + reason] {
    boxes_.Ask(QApplication::activeWindow(), text, BoxButtons::Ok);
  });
}

}  // namespace brindle
