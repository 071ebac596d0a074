// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <tl/expected.hpp>
#include <variant>
#include <vector>

#include <QString>
#include <QStringList>

#include "base/files/file_error.h"
#include "base/interface.h"
#include "media/film.h"

namespace brindle {

// What is done with films. The commands know it by these interfaces only; the library that does it
// is loaded when it is asked for.

/// Percent done, 0 to 100. Its answer says whether to go on.
using FilmProgress = std::function<bool(double percent)>;

/// Why nothing came of it.
struct FilmStop {
  FileError error;
  bool isAborted = false;  ///< it was asked to stop, and there is no error
};

/// How far the parts of a film are.
struct PartsGoOn {
  double percent = 0;  ///< of the film
};
struct PartsCompleted {
  std::vector<std::int64_t> bytes;  ///< of each part
};
struct PartsAborted {};
/// A part, or the film, could not be written or read.
struct PartsFailed {
  FileError error;
  bool isWriting = true;
};
using PartsState = std::variant<PartsGoOn, PartsCompleted, PartsAborted, PartsFailed>;

/// Writes the parts of a film piece by piece, under names of their own until all are complete.
/// Destroying it before it has completed removes what was written.
class PartsPass : public Interface {
 public:
  /// Works for a moment. Must not be called again once it has returned another state than
  /// PartsGoOn.
  [[nodiscard]] virtual PartsState Advance() = 0;
};

/// A film that has been read.
class FilmFile : public Interface {
 public:
  [[nodiscard]] virtual const Film& Facts() const = 0;

  /// Begins to write a part up to each of `cuts`, indexes of the key frames in rising order, and
  /// one from the last cut to the end: one more of `targets` than of `cuts`. The pass must not
  /// outlive the film. Existing targets are replaced if `isReplacing`; else the parts fail as soon
  /// as one is there.
  [[nodiscard]] virtual std::unique_ptr<PartsPass> WriteParts(const std::vector<std::size_t>& cuts,
                                                              const QStringList& targets,
                                                              bool isReplacing) = 0;
};

class FilmReader : public Interface {
 public:
  /// Reads what there is to know about a film, from its index or, without one, from all of it.
  [[nodiscard]] virtual tl::expected<std::unique_ptr<FilmFile>, FilmStop> Read(
      const QString& path, const FilmProgress& progress) = 0;
};

}  // namespace brindle
