// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/recordings.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <QDir>
#include <QFileInfo>
#include <QString>

#include "base/files/file_error.h"
#include "cli/printable.h"
#include "wav/wav_text.h"

namespace brindle {
namespace {

constexpr int RightBitsPerSample = 16;

// The more it tells, the later it stands.
ExitCode Worse(ExitCode one, ExitCode other) {
  const auto rank = [](ExitCode code) {
    return code == ExitCode::Answered ? 0 : code == ExitCode::NoAnswer ? 1 : 2;
  };
  return rank(other) > rank(one) ? other : one;
}

// "[#####---------------]  25 %  0:12 left  concert.wav".
std::string ProgressLine(const PassProgress& progress, const std::string& name) {
  constexpr std::size_t width = 20;
  constexpr qsizetype mostOfName = 40;
  constexpr int whole = 100;
  const int percent = std::clamp(progress.wholePercent, 0, whole);
  const auto done = static_cast<std::size_t>(percent) * width / whole;
  const auto number = std::to_string(percent);
  std::string line = "[" + std::string(done, '#') + std::string(width - done, '-') + "] " +
                     std::string(3 - number.size(), ' ') + number + " %";
  if (const auto remaining = RemainingTime(progress.elapsed, percent)) {
    line += "  " + *remaining + " left";
  }
  const auto shown = QString::fromStdString(Printable(name)).right(mostOfName).toStdString();
  return line + "  " + shown;
}

}  // namespace

std::string AsPart(const QString& message) {
  auto text = message.toStdString();
  if (!text.empty()) {
    text.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(text.front())));
  }
  if (text.ends_with('.')) {
    text.pop_back();
  }
  return text;
}

std::optional<QString> PathOf(const std::string& name) {
  auto path = QString::fromStdString(name);
  if (path.toStdString() != name) {
    return std::nullopt;
  }
  return path;
}

Reading<std::string> ReadPath(std::string_view text) {
  if (text.empty()) {
    return tl::unexpected(std::string("needs a path"));
  }
  if (!PathOf(std::string(text))) {
    return tl::unexpected(Quoted(text) + " is not UTF-8");
  }
  return std::string(text);
}

ExitCode ForEach(const std::vector<std::string>& names, Reporter& report,
                 const std::function<Outcome(const Recording&)>& work) {
  auto code = ExitCode::Answered;
  std::vector<JsonObject> files;
  for (const auto& name : names) {
    if (report.Terminal().IsInterrupted()) {
      code = ExitCode::Interrupted;
      break;
    }
    const auto path = PathOf(name);
    const auto done = path && !path->isEmpty()
                          ? work({name, QFileInfo(*path).absoluteFilePath()})
                          : tl::unexpected(Refusal{ExitCode::Failed,
                                                   "cannot read " + Quoted(name) +
                                                       (name.empty() ? ": it has no name"
                                                                     : ": its name is not UTF-8")});
    JsonObject file;
    file.Add("file", path.value_or(QString::fromStdString(name)).toStdString());
    if (done) {
      report.GivePart(done->lines);
      file.Append(done->json);
    } else {
      report.Tell(done.error().message);
      file.Add("error", done.error().message);
      code = Worse(code, done.error().code);
    }
    files.push_back(file);
    if (!done && done.error().code == ExitCode::Interrupted) {
      code = ExitCode::Interrupted;
      break;
    }
  }
  if (report.IsJson()) {
    Answer answer;
    answer.json.Add("files", files);
    static_cast<void>(report.Give(answer));
  }
  return code;
}

PassState RunShown(Pass& pass, const std::string& name, Console& console) {
  auto end = RunToEnd(pass, [&](const PassProgress& progress) {
    console.ShowProgress(ProgressLine(progress, name));
    return !console.IsInterrupted();
  });
  console.ShowProgress({});
  return end;
}

std::string MessageFor(const Recording& recording, const WavError& error) {
  auto named = error;
  if (named.error.path == QDir::toNativeSeparators(recording.path)) {
    named.error.path = QString::fromStdString(recording.name);
  }
  return AsPart(MessageOf(named));
}

tl::expected<WavHeader, Refusal> HeaderOf(const Recording& recording) {
  const auto header = ReadHeader(recording.path);
  if (!header) {
    const auto* error = std::get_if<WavError>(&header.error());
    return tl::unexpected(Refusal{ExitCode::Failed, error != nullptr
                                                        ? MessageFor(recording, *error)
                                                        : "cannot read " + recording.name + ": " +
                                                              AsPart(MessageOf(header.error()))});
  }
  return *header;
}

void WarnOfWidth(const Recording& recording, const WavHeader& header, Reporter& report) {
  if (header.bitsPerSample != RightBitsPerSample) {
    report.Tell(recording.name + " has samples of " + std::to_string(header.bitsPerSample) +
                " bits; they are processed as if they had 16");
  }
}

}  // namespace brindle
