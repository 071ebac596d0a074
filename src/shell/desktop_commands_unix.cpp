// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <csignal>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QUrl>

#include "shell/desktop_commands.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

struct Calculator {
  QString program;
  QString desktop;  // a name in XDG_CURRENT_DESKTOP; empty if it belongs to none
};

const std::array<Calculator, 9>& Calculators() {
  static const std::array<Calculator, 9> calculators{{
      {u"gnome-calculator"_s, u"GNOME"_s},
      {u"kcalc"_s, u"KDE"_s},
      {u"mate-calc"_s, u"MATE"_s},
      {u"galculator"_s, u"XFCE"_s},
      {u"qalculate-qt"_s, u"LXQt"_s},
      {u"qalculate-gtk"_s, {}},
      {u"speedcrunch"_s, {}},
      {u"deepin-calculator"_s, u"Deepin"_s},
      {u"xcalc"_s, {}},
  }};
  return calculators;
}

// Asks the desktop to open an address; the first one that is installed is used.
struct Opener {
  QString program;
  QStringList arguments;  // before the address
};

const std::array<Opener, 3>& Openers() {
  static const std::array<Opener, 3> openers{{
      {u"xdg-open"_s, {}},
      {u"gio"_s, {u"open"_s}},
      {u"x-www-browser"_s, {}},
  }};
  return openers;
}

QString Installed(const QString& program) { return QStandardPaths::findExecutable(program); }

template <class Programs>
QString NoneOf(const Programs& programs) {
  QStringList names;
  for (const auto& each : programs) {
    names.append(each.program);
  }
  return u"none of these is installed: "_s + names.join(u", "_s);
}

Command Opening(const QString& name, const QString& address) {
  for (const auto& [program, arguments] : Openers()) {
    const QString path = Installed(program);
    if (!path.isEmpty()) {
      return {.name = name, .program = path, .arguments = arguments + QStringList{address}};
    }
  }
  return {.name = name, .reason = NoneOf(Openers())};
}

}  // namespace

Command CalculatorCommand() {
  const QStringList desktops =
      qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
  auto calculators = Calculators();
  std::stable_partition(calculators.begin(), calculators.end(), [&](const Calculator& calculator) {
    return desktops.contains(calculator.desktop, Qt::CaseInsensitive);
  });
  for (const auto& [program, desktop] : calculators) {
    const QString path = Installed(program);
    if (!path.isEmpty()) {
      return {.name = program, .program = path};
    }
  }
  return {.name = u"a calculator"_s, .reason = NoneOf(Calculators())};
}

Command HelpCommand(const QString& programFolder, const QString& page) {
  // Beside the program, or where a system package puts it.
  const QString file = u"/help/"_s + page + u".html"_s;
  const QString beside = programFolder + file;
  const QString shared = QDir::cleanPath(programFolder + u"/../share/brindle2"_s + file);
  const QString path = !QFile::exists(beside) && QFile::exists(shared) ? shared : beside;
  const QString name = QDir::toNativeSeparators(path);
  QFile source(path);
  if (!source.open(QIODevice::ReadOnly)) {
    return {.name = name, .reason = source.errorString()};
  }
  return Opening(name, QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded));
}

Command OpenAddress(const QString& address) {
  return Opening(address, QUrl(address).toString(QUrl::FullyEncoded));
}

QString ReasonOfExit(const Command& command, int code) {
  constexpr int missingTool = 3;  // of xdg-open: nothing is installed that could open the address
  if (code == missingTool && command.program.endsWith(u"/xdg-open"_s)) {
    return u"no program for it is installed"_s;
  }
  return command.program + u" ended with code "_s + QString::number(code);
}

void Prepare(const Command&, QProcess& process) {
  process.setChildProcessModifier([] {
    ::setsid();
    // This program ignores the signal, and a child would inherit that.
    std::signal(SIGXFSZ, SIG_DFL);
  });
}

}  // namespace brindle
