// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "shell/start_arguments.h"

#include <variant>

#include <QFileInfo>
#include <QString>
#include <QStringList>

#include "wav/wav_error.h"
#include "wav/wav_header.h"

namespace brindle {

using namespace Qt::StringLiterals;

namespace {

using Wish = StartArguments::Wish;

QString HelpText() {
  return u"Usage: brindle2 [FILE]\n"
         "       brindle2 --help | --version\n"
         "\n"
         "Calculators for video that must fit a disc or a size. Shows the main window and, if FILE "
         "is\n"
         "a WAV file, opens it in the normalizer. The program brindle has the same on the command "
         "line.\n"_s;
}

// Options of the toolkit, without their dashes: one may do, and a value may follow an equals sign.
bool IsOfToolkit(const QString& name) {
  static const QStringList alone{u"reverse"_s, u"nograb"_s, u"dograb"_s, u"sync"_s,
                                 u"widgetcount"_s};
  return alone.contains(name);
}
bool IsOfToolkitWithValue(const QString& name) {
  static const QStringList withValue{
      u"platform"_s,        u"platformpluginpath"_s, u"platformtheme"_s, u"plugin"_s,
      u"qwindowgeometry"_s, u"qwindowicon"_s,        u"qwindowtitle"_s,  u"session"_s,
      u"display"_s,         u"geometry"_s,           u"name"_s,          u"style"_s,
      u"stylesheet"_s};
  return withValue.contains(name);
}

StartArguments Refused(const QString& why) {
  return {.wish = Wish::Refuse, .text = u"brindle2: "_s + why + u"\n"_s};
}

// A message of the program as the end of a line.
QString AsPart(const QString& message) {
  QString text = message;
  text[0] = text[0].toLower();
  return text.endsWith(u'.') ? text.chopped(1) : text;
}

StartArguments Opening(const QString& path) {
  if (path.isEmpty()) {
    return Refused(u"the file has no name"_s);
  }
  const auto header = ReadHeader(path);
  if (header) {
    return {.file = QFileInfo(path).absoluteFilePath()};
  }
  const auto message = AsPart(MessageOf(header.error()));
  return Refused(std::holds_alternative<WavError>(header.error())
                     ? message
                     : u"cannot open "_s + path + u": "_s + message);
}

}  // namespace

StartArguments ReadStartArguments(const QStringList& arguments) {
  QStringList files;
  bool areOptions = true;
  for (qsizetype i = 0; i < arguments.size(); ++i) {
    const auto& argument = arguments[i];
    const auto name = argument.mid(argument.startsWith(u"--"_s) ? 2 : 1).section(u'=', 0, 0);
    if (!areOptions || !argument.startsWith(u'-') || argument == u"-"_s) {
      files.append(argument);
    } else if (argument == u"--"_s) {
      areOptions = false;
    } else if (argument == u"--help"_s || argument == u"-h"_s) {
      return {.wish = Wish::Tell, .text = HelpText()};
    } else if (argument == u"--version"_s) {
      return {.wish = Wish::Tell, .text = u"brindle2 2.91\n"_s};
    } else if (IsOfToolkitWithValue(name)) {
      i += argument.contains(u'=') ? 0 : 1;
    } else if (!IsOfToolkit(name)) {
      return Refused(
          u"there is no option \"%1\"; brindle2 --help shows those that there are"_s.arg(argument));
    }
  }
  if (files.size() > 1) {
    return Refused(u"only one file can be opened"_s);
  }
  return files.isEmpty() ? StartArguments() : Opening(files.front());
}

}  // namespace brindle
