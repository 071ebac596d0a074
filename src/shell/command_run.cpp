// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/command_run.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QProcess>
#include <QStandardPaths>
#include <QString>

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

constexpr int Whole = 100;  // percent

class RunJob : public FilmJob {
 public:
  explicit RunJob(CommandRun* run) : run_(run) {}
  RunJob(const RunJob&) = delete;
  RunJob& operator=(const RunJob&) = delete;
  RunJob(RunJob&&) = delete;
  RunJob& operator=(RunJob&&) = delete;
  ~RunJob() override {
    if (run_ != nullptr) {
      run_->Stop();
    }
  }

 private:
  QPointer<CommandRun> run_;
};

RunFailure NotStarted(const QString& reason) {
  return {true, u"Cannot start brindle: "_s + reason};
}

}  // namespace

CommandRun::CommandRun(Clock& clock, const RunLimits& limits, Calls calls)
    : clock_(clock), limits_(limits), calls_(std::move(calls)) {
  connect(&process_, &QProcess::readyReadStandardOutput, this, &CommandRun::ReadAnswer);
  connect(&process_, &QProcess::readyReadStandardError, this, &CommandRun::ReadNews);
  connect(&process_, &QProcess::finished, this, &CommandRun::Finished);
  connect(&process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) {
      // The toolkit names the system call first, as in "execvp: ...".
      End(tl::unexpected(NotStarted(process_.errorString().section(u": "_s, -1))));
      deleteLater();
    }
  });
}

std::unique_ptr<FilmJob> CommandRun::Start(Clock& clock, const RunLimits& limits,
                                           const QString& program, const QStringList& arguments,
                                           const Calls& calls) {
  auto* run = new CommandRun(clock, limits, calls);
  clock.After(0, run, [run, program, arguments] { run->Begin(program, arguments); });
  return std::make_unique<RunJob>(run);
}

void CommandRun::Begin(const QString& program, const QStringList& arguments) {
  if (isOver_) {
    deleteLater();
    return;
  }
  if (program.isEmpty()) {
    End(tl::unexpected(NotStarted(u"it is not installed"_s)));
    deleteLater();
    return;
  }
  process_.setStandardInputFile(QProcess::nullDevice());
  lastNews_ = clock_.Now();
  WatchSilence();
  process_.start(program, arguments, QIODevice::ReadOnly);
}

void CommandRun::Stop() {
  if (std::exchange(isOver_, true)) {
    return;
  }
  calls_ = {};
  if (process_.state() == QProcess::NotRunning) {
    deleteLater();
    return;
  }
  AskToEnd(process_);
  clock_.After(limits_.secondsToStop, this, [this] { process_.kill(); });
}

// Once it is over, nobody hears what the program still says; the clock may be gone by then.
void CommandRun::ReadAnswer() {
  const auto read = process_.readAllStandardOutput();
  if (isOver_) {
    return;
  }
  lastNews_ = clock_.Now();
  answer_ += read;
  if (answer_.size() > limits_.answerBytes) {
    answer_.clear();
    Fail(u"the answer is too large"_s);
  }
}

void CommandRun::ReadNews() {
  constexpr qsizetype longestLine = 65536;
  const auto read = process_.readAllStandardError();
  if (isOver_) {
    return;
  }
  lastNews_ = clock_.Now();
  news_ += read;
  auto end = news_.indexOf('\n');
  while (end >= 0) {
    HearLine(news_.left(end).trimmed());
    news_.remove(0, end + 1);
    end = news_.indexOf('\n');
  }
  if (news_.size() > longestLine) {
    news_.clear();
  }
}

void CommandRun::HearLine(const QByteArray& line) {
  static const QByteArray progress("progress ");
  static const QByteArray name("brindle: ");
  if (!line.startsWith(progress)) {
    lastMessage_ = QString::fromUtf8(line.startsWith(name) ? line.mid(name.size()) : line);
    return;
  }
  bool isNumber = false;
  const int percent = line.mid(progress.size()).toInt(&isNumber);
  if (isNumber && !isOver_) {
    const auto tell = calls_.progress;  // it may end the run
    tell(std::clamp(percent, 0, Whole));
  }
}

void CommandRun::WatchSilence() {
  const double left = lastNews_ + limits_.secondsWithoutNews - clock_.Now();
  if (left > 0) {
    clock_.After(left, this, [this] { WatchSilence(); });
  } else {
    Fail(u"brindle does not answer"_s);
  }
}

void CommandRun::Finished(int code, QProcess::ExitStatus status) {
  ReadAnswer();
  ReadNews();
  if (status == QProcess::CrashExit) {
    End(tl::unexpected(RunFailure{false, u"brindle crashed"_s}));
  } else if (code == 0) {
    End(answer_);
  } else if (lastMessage_.isEmpty()) {
    End(tl::unexpected(RunFailure{false, u"brindle ended with code %1"_s.arg(code)}));
  } else {
    const bool isMessage = lastMessage_.startsWith(u"cannot "_s);
    End(tl::unexpected(
        RunFailure{isMessage, isMessage ? u"C"_s + lastMessage_.mid(1) : lastMessage_}));
  }
  deleteLater();
}

// The process may take a while to end; nobody waits for it.
void CommandRun::Fail(const QString& reason) {
  End(tl::unexpected(RunFailure{false, reason}));
  process_.kill();
}

void CommandRun::End(const tl::expected<QByteArray, RunFailure>& answer) {
  if (!std::exchange(isOver_, true)) {
    std::exchange(calls_, {}).ended(answer);
  }
}

QString CommandLineProgram(const QString& programFolder) {
  const auto name = CommandLineName();
  const QFileInfo beside(QDir(programFolder).filePath(name));
  return beside.isFile() && beside.isExecutable() ? beside.absoluteFilePath()
                                                  : QStandardPaths::findExecutable(name);
}

}  // namespace brindle
