// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <tl/expected.hpp>

#include <QString>

#include "cli/command.h"
#include "cli/options.h"
#include "cli/recordings.h"
#include "media/film_work.h"

namespace brindle {

/// The film that a command works on, and how its progress is shown.
class FilmArgument {
 public:
  void AddTo(Options& options);

  /// Reads the film that was given.
  [[nodiscard]] tl::expected<std::unique_ptr<FilmFile>, Refusal> Read(const Surroundings& given,
                                                                      Reporter& report);
  /// As it was given.
  [[nodiscard]] const std::string& Name() const { return *name_; }
  [[nodiscard]] bool IsGiven() const { return name_.has_value(); }
  [[nodiscard]] QString Path() const;

  /// Shows the progress, and answers whether to go on.
  [[nodiscard]] bool Show(double percent, Console& console);

 private:
  std::optional<std::string> name_;
  bool showsLines_ = false;
  bool isLimited_ = false;
  int shown_ = -1;
  std::shared_ptr<FilmReader> reader_;
};

/// A system's message about the film, with the name as it was given.
[[nodiscard]] std::string FilmMessage(const FilmArgument& film, FileError error, bool isWriting);

/// "700.0 MB".
[[nodiscard]] std::string MegaBytesOf(double bytes);

}  // namespace brindle
