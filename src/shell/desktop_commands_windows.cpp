// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
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

// Whether the system marks the file as one from the internet or from a site that nobody trusts. The
// mark is a stream of the file, with a line "ZoneId=3".
bool IsFromInternet(const QString& path) {
  constexpr std::string_view key = "ZoneId=";
  constexpr char internet = '3';
  std::ifstream mark(std::filesystem::path((path + u":Zone.Identifier"_s).toStdWString()));
  for (std::string line; std::getline(mark, line);) {
    if (line.starts_with(key)) {
      return line[key.size()] >= internet;
    }
  }
  return false;
}

bool IsOnNetwork(const QString& path) {
  const QString native = QDir::toNativeSeparators(path);
  return native.startsWith(uR"(\\)"_s) ||
         GetDriveTypeW(native.left(3).toStdWString().c_str()) == DRIVE_REMOTE;
}

// The viewer opens the file in all these cases, but shows an empty page or an error in place of it.
bool ViewerRefuses(const QString& path) {
  return path.contains(u'#') || IsOnNetwork(path) || IsFromInternet(path);
}

// Opens a page or an address with the program that the user has chosen for it.
Command OpenWithChosen(const QString& name, const QString& target) {
  const auto file = target.toStdWString();
  SHELLEXECUTEINFOW call = {};
  call.cbSize = sizeof(call);
  call.fMask = SEE_MASK_FLAG_NO_UI;  // this program reports failures
  call.lpFile = file.c_str();
  call.nShow = SW_SHOWNORMAL;
  if (ShellExecuteExW(&call) == FALSE) {
    return {.name = name, .reason = qt_error_string(static_cast<int>(GetLastError()))};
  }
  return {.name = name};
}

}  // namespace

Command CalculatorCommand() { return OfSystem(u"calc"_s, {}, WindowStyle::Minimized); }

Command HelpCommand(const QString& programFolder, const QString& page) {
  const QString file = u"Brindle2.chm"_s;
  const QString path = programFolder + u'/' + file;
  QFile source(path);
  const bool isThere = source.open(QIODevice::ReadOnly);
  if (!isThere || ViewerRefuses(path)) {
    // The pages one by one, which the browser shows everywhere.
    const QString alone = QDir::toNativeSeparators(programFolder + u"/help/"_s + page + u".html"_s);
    if (QFile::exists(alone)) {
      return OpenWithChosen(alone, alone);
    }
  }
  if (!isThere) {
    return {.name = QDir::toNativeSeparators(path), .reason = source.errorString()};
  }
  // Found through the current directory, which is the program's folder.
  const QString place = page == FirstHelpPage ? file : file + u"::/"_s + page + u".html"_s;
  return OfSystem(u"hh"_s, {place}, WindowStyle::Normal);
}

Command OpenAddress(const QString& address) {
  return OpenWithChosen(address, QUrl(address).toString(QUrl::FullyEncoded));
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
