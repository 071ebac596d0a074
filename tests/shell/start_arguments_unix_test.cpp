// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

// The program with windows, as a shell starts it on a machine without a display.

#include <string>

#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

namespace brindle {
namespace {

using namespace Qt::StringLiterals;

struct Ended {
  int code = -1;
  std::string answer;
  std::string errors;
};

Ended RunProgram(const QStringList& arguments) {
  QProcess process;
  auto environment = QProcessEnvironment::systemEnvironment();
  for (const auto& variable : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s, u"QT_QPA_PLATFORM"_s}) {
    environment.remove(variable);
  }
  process.setProcessEnvironment(environment);
  process.start(QStringLiteral(BRINDLE2_PROGRAM), arguments);
  EXPECT_TRUE(process.waitForFinished()) << process.errorString().toStdString();
  return {.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
          .answer = process.readAllStandardOutput().toStdString(),
          .errors = process.readAllStandardError().toStdString()};
}

TEST(StartedOnATerminal, AnswersWithoutADisplay) {
  const auto version = RunProgram({u"--version"_s});
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.answer, "brindle2 2.91\n");
  EXPECT_EQ(version.errors, "");
  const auto help = RunProgram({u"--help"_s});
  EXPECT_EQ(help.code, 0);
  EXPECT_TRUE(help.answer.starts_with("Usage: brindle2 [FILE]\n")) << help.answer;
}

TEST(StartedOnATerminal, RefusesWhatItDoesNotKnow) {
  const auto ended = RunProgram({u"--frob"_s});
  EXPECT_EQ(ended.code, 2);
  EXPECT_EQ(ended.answer, "");
  EXPECT_EQ(
      ended.errors,
      "brindle2: there is no option \"--frob\"; brindle2 --help shows those that there are\n");
  EXPECT_EQ(RunProgram({u"/nowhere/a.wav"_s}).code, 2);
}

}  // namespace
}  // namespace brindle
