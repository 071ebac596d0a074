// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <memory>
#include <windows.h>
// After the system's own header, on which it stands.
#include <shellapi.h>

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include "shell/start_console.h"

namespace brindle {

using namespace Qt::StringLiterals;

QStringList ArgumentsAtStart(int, char**) {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> words(
      CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
  QStringList arguments;
  for (int i = 1; i < count; ++i) {
    arguments.append(QString::fromWCharArray(words.get()[i]));
  }
  return arguments;
}

// A box breaks lines by itself; those of a terminal would leave it ragged.
void TellAtStart(const QString& text, bool isError) {
  static const QRegularExpression withinParagraph(u"(?<=[^\\n])\\n(?=[^\\n ])"_s);
  QString flowing = text;
  flowing.replace(withinParagraph, u" "_s);
  const UINT picture = isError ? MB_ICONERROR : MB_ICONINFORMATION;
  MessageBoxW(nullptr, flowing.toStdWString().c_str(), L"Brindle", MB_OK | picture);
}

}  // namespace brindle
