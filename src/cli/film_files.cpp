// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "cli/film_files.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include <QDir>
#include <QFileInfo>
#include <QString>

#include "base/files/file_error.h"
#include "base/numbers/numeric_text.h"
#include "cli/printable.h"
#include "cli/process_limits.h"

namespace brindle {

void FilmArgument::AddTo(Options& options) {
  options.Add({.names = "FILE", .value = {}, .help = "A film", .takesFile = true, .isSingle = true},
              name_, ReadPath);
  options.AddFlag({.names = "--progress",
                   .value = {},
                   .help = "Write lines about the progress to the standard error",
                   .isHidden = true},
                  showsLines_);
  options.AddFlag({.names = "--limited",
                   .value = {},
                   .help = "Take no more memory and time than a film should need",
                   .isHidden = true},
                  isLimited_);
}

QString FilmArgument::Path() const {
  return QFileInfo(QString::fromStdString(*name_)).absoluteFilePath();
}

bool FilmArgument::Show(double percent, Console& console) {
  constexpr double whole = 100;
  const int now = static_cast<int>(std::clamp(percent, 0.0, whole));
  if (now != shown_) {
    shown_ = now;
    if (showsLines_) {
      console.WriteError("progress " + std::to_string(now));
    } else {
      console.ShowProgress(std::to_string(now) + " %  " + Printable(*name_));
    }
  }
  return !console.IsInterrupted();
}

tl::expected<std::unique_ptr<FilmFile>, Refusal> FilmArgument::Read(const Surroundings& given,
                                                                    Reporter& report) {
  if (isLimited_) {
    LimitThisProcess();
  }
  auto reader = given.films();
  if (!reader) {
    return tl::unexpected(Refusal{ExitCode::Failed, reader.error()});
  }
  reader_ = std::move(*reader);
  auto film =
      reader_->Read(Path(), [&](double percent) { return Show(percent, report.Terminal()); });
  report.Terminal().ShowProgress({});
  if (film) {
    return std::move(*film);
  }
  if (!film.error().isAborted) {
    return tl::unexpected(Refusal{ExitCode::Failed, FilmMessage(*this, film.error().error, false)});
  }
  return tl::unexpected(Refusal{ExitCode::Interrupted, "interrupted while reading " + *name_});
}

std::string FilmMessage(const FilmArgument& film, FileError error, bool isWriting) {
  if (QDir::fromNativeSeparators(error.path) == film.Path()) {
    error.path = QString::fromStdString(film.Name());
  }
  return AsPart(isWriting ? CannotWrite(error) : CannotRead(error));
}

std::string MegaBytesOf(double bytes) {
  constexpr double megaByte = 1'048'576;
  return Formatted(bytes / megaByte, "0.0") + " MB";
}

}  // namespace brindle
