// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/command_line.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <tl/expected.hpp>
#include <utility>
#include <vector>

#include <QDir>
#include <QFile>
#include <QString>

#include "base/files/file_error.h"
#include "base/settings/settings.h"
#include "base/settings/settings_file.h"
#include "base/settings/settings_lines.h"
#include "cli/commands.h"
#include "cli/manual.h"
#include "cli/options.h"
#include "cli/reading.h"
#include "cli/recordings.h"

namespace brindle {
namespace {

// What every command has, besides its own options.
struct CommonOptions {
  bool isJson = false;
  std::optional<std::string> settings;  // empty for those of the user

  void AddTo(Options& options) {
    options.AddFlag({.names = "--json", .value = {}, .help = "Answer with a JSON object"}, isJson);
    options.AddFlag({.names = "--settings",
                     .value = {},
                     .help = "Take what is not given from the settings that the windows saved, or "
                             "from a settings file: --settings=FILE"},
                    settings);
  }
};

std::unique_ptr<Command> CommandNamed(const std::string& name) {
  for (const auto make : AllCommands()) {
    auto command = make();
    if (command->Text().name == name) {
      return command;
    }
  }
  return nullptr;
}

QString AppFolder(const CommandLineFolders& folders) {
  return ChooseAppFolder(folders.program, folders.config);
}

FileResult<Settings> ReadSettings(const QString& path, const QByteArray& bytes) {
  const auto read = ReadLines(bytes, BuiltInSettings());
  if (!read) {
    return tl::unexpected(ErrorOf(path, QStringLiteral("it is not a settings file of Brindle")));
  }
  return read->record;
}

FileResult<Settings> SettingsAt(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return tl::unexpected(ErrorOf(path, file));
  }
  constexpr qint64 most = 1'048'576;  // bytes
  return ReadSettings(path, file.read(most));
}

// The settings that a command starts from.
FileResult<Settings> SettingsFor(const CommonOptions& common, const CommandLineFolders& folders) {
  if (!common.settings) {
    return BuiltInSettings();
  }
  return SettingsAt(common.settings->empty() ? AppFolder(folders) + QStringLiteral("/Brindle2.ini")
                                             : QString::fromStdString(*common.settings));
}

ExitCode RunCommand(const std::string& name, const std::vector<std::string>& arguments,
                    const CommandLineFolders& folders, const Clock& clock, Console& console,
                    const FilmReaderMaker& films) {
  Reporter report(console, name, false);
  const auto command = CommandNamed(name);
  if (command == nullptr) {
    return report.RefuseUsage("there is no command " + Quoted(name) +
                              "; brindle --help lists them");
  }
  Options options;
  CommonOptions common;
  command->AddOptions(options);
  common.AddTo(options);
  const auto isHelp = options.Parse(arguments);
  if (!isHelp) {
    return report.RefuseUsage(isHelp.error());
  }
  if (*isHelp) {
    console.WriteAnswer(HelpOf(command->Text(), options.All()));
    return ExitCode::Answered;
  }
  const auto record = SettingsFor(common, folders);
  if (!record) {
    report.Tell(AsPart(CannotRead(record.error())));
    return ExitCode::Failed;
  }
  Reporter answers(console, name, common.isJson);
  return command->Run({*record, [&] { return UndoFolder(AppFolder(folders)); }, clock, films},
                      answers);
}

}  // namespace

std::span<std::unique_ptr<Command> (*const)()> AllCommands() {
  static constexpr std::array all{MakeBitrate, MakeAudio, MakeSpace,      MakeSplit,
                                  MakeTime,    MakeSize,  MakeResolution, MakeInfo,
                                  MakeParts,   MakePeaks, MakeNormalize,  MakeUndo};
  return all;
}

std::vector<OptionText> OptionsOf(Command& command) {
  Options options;
  CommonOptions common;
  command.AddOptions(options);
  common.AddTo(options);
  return options.All();
}

ExitCode RunCommandLine(const std::vector<std::string>& arguments,
                        const CommandLineFolders& folders, const Clock& clock, Console& console,
                        const FilmReaderMaker& films) {
  Reporter report(console, {}, false);
  if (arguments.empty()) {
    return report.RefuseUsage("a command is missing; brindle --help lists them");
  }
  const auto& first = arguments.front();
  if (first == "--help" || first == "-h" || first == "--version") {
    if (arguments.size() > 1) {
      return report.RefuseUsage("not expected here: " + Quoted(arguments[1]));
    }
    console.WriteAnswer(first == "--version" ? VersionText() : HelpText());
    return ExitCode::Answered;
  }
  // For the build, which makes the manual page and the completions from what the program has.
  if (first == "--write" && arguments.size() == 2) {
    if (const auto text = Written(arguments[1])) {
      console.WriteAnswer(*text);
      return ExitCode::Answered;
    }
  }
  if (first.starts_with('-')) {
    return report.RefuseUsage("there is no option " + Quoted(first) +
                              "; brindle --help lists the commands");
  }
  return RunCommand(first, {arguments.begin() + 1, arguments.end()}, folders, clock, console,
                    films);
}

}  // namespace brindle
