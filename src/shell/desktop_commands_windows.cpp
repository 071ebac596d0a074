// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <windows.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>
#include <QUrl>

#include "base/windows/desktop.h"
#include "shell/desktop_commands.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

using FolderGetter = UINT(WINAPI*)(wchar_t*, UINT);

QString SystemFolder(FolderGetter get) {
  std::array<wchar_t, MAX_PATH> folder{};
  get(folder.data(), MAX_PATH);
  return QString::fromWCharArray(folder.data());
}

// The system's own program, by its whole path: one of the same name beside this program or the help
// is not what the user asked for.
Command OfSystem(const QString& name, const QStringList& arguments, WindowStyle style) {
  const QString path = QStandardPaths::findExecutable(
      name, {SystemFolder(GetSystemDirectoryW), SystemFolder(GetWindowsDirectoryW)});
  if (path.isEmpty()) {
    return {.name = name, .reason = qt_error_string(ERROR_FILE_NOT_FOUND)};
  }
  return {.name = name, .program = path, .arguments = arguments, .windowStyle = style};
}

}  // namespace

Command CalculatorCommand() { return OfSystem(u"calc"_s, {}, WindowStyle::Minimized); }

Command HelpCommand(const QString& programFolder, const QString& page) {
  const QString file = u"Brindle2.chm"_s;
  QFile source(programFolder + u'/' + file);
  if (!source.open(QIODevice::ReadOnly)) {
    return {.name = QDir::toNativeSeparators(source.fileName()), .reason = source.errorString()};
  }
  // Found through the current directory, which is the program's folder.
  const QString place = page == FirstHelpPage ? file : file + u"::/"_s + page + u".html"_s;
  return OfSystem(u"hh"_s, {place}, WindowStyle::Normal);
}

Command OpenAddress(const QString& address) {
  const auto encoded = QUrl(address).toString(QUrl::FullyEncoded).toStdWString();
  SHELLEXECUTEINFOW call = {};
  call.cbSize = sizeof(call);
  call.fMask = SEE_MASK_FLAG_NO_UI;  // this program reports failures
  call.lpFile = encoded.c_str();
  call.nShow = SW_SHOWNORMAL;
  if (ShellExecuteExW(&call) == FALSE) {
    return {.name = address, .reason = qt_error_string(static_cast<int>(GetLastError()))};
  }
  return {.name = address};
}

// The exit codes of the programs above do not say whether they succeeded.
QString ReasonOfExit(const Command&, int) { return {}; }

void Prepare(const Command& command, QProcess& process) {
  process.setCreateProcessArgumentsModifier(
      [style = command.windowStyle](QProcess::CreateProcessArguments* call) {
        call->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        call->startupInfo->wShowWindow =
            style == WindowStyle::Minimized ? SW_SHOWMINIMIZED : SW_SHOWNORMAL;
      });
}

}  // namespace brindle
