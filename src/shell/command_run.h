// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>
#include <tl/expected.hpp>

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

#include "base/time/clock.h"
#include "base/windows/film_source.h"

namespace brindle {

/// What a run of the command line may take.
struct RunLimits {
  double secondsWithoutNews = 120;  ///< nothing written, not even progress
  qsizetype answerBytes = 67'108'864;
  double secondsToStop = 10;  ///< from the wish to stop to the end by force
};

/// Why a run gave no answer.
struct RunFailure {
  /// A message of its own ("Cannot start brindle: REASON"), or only a reason.
  bool isMessage = false;
  QString text;
};

/// One run of the command line in a process of its own. It deletes itself after its end. However
/// the program behaves, it ends: with its answer, or with a reason.
class CommandRun : public QObject {
  Q_OBJECT

 public:
  struct Calls {
    std::function<void(int percent)> progress;
    std::function<void(const tl::expected<QByteArray, RunFailure>& answer)> ended;
  };

  /// Starts `program` from the event loop; empty means that there is none. The job stops the run
  /// when it is destroyed.
  static std::unique_ptr<FilmJob> Start(Clock& clock, const RunLimits& limits,
                                        const QString& program, const QStringList& arguments,
                                        const Calls& calls);

  /// Ends the program, and calls nothing any more.
  void Stop();

 private:
  CommandRun(Clock& clock, const RunLimits& limits, Calls calls);

  void Begin(const QString& program, const QStringList& arguments);
  void ReadAnswer();
  void ReadNews();
  void HearLine(const QByteArray& line);
  void WatchSilence();
  void Finished(int code, QProcess::ExitStatus status);
  void Fail(const QString& reason);
  void End(const tl::expected<QByteArray, RunFailure>& answer);

  Clock& clock_;
  RunLimits limits_;
  Calls calls_;
  QProcess process_;
  QByteArray answer_;
  QByteArray news_;      // the line of the standard error that is not complete yet
  QString lastMessage_;  // of the program
  double lastNews_ = 0;
  bool isOver_ = false;
};

/// What the program file of the command line is called on this platform.
[[nodiscard]] QString CommandLineName();

/// Asks the program to end, so that it can take away what it has written; where it cannot be asked,
/// ends it at once.
void AskToEnd(QProcess& process);

/// The command-line program: the one in this folder, else one that is installed; empty if there is
/// none.
[[nodiscard]] QString CommandLineProgram(const QString& programFolder);

}  // namespace brindle
