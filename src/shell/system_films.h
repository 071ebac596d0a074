// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <tl/expected.hpp>
#include <utility>
#include <vector>

#include <QByteArray>
#include <QString>

#include "base/time/clock.h"
#include "base/windows/film_source.h"
#include "base/windows/part_writer.h"
#include "shell/command_run.h"

namespace brindle {

/// Has the command line read films (`brindle info`), each in a process of its own.
class SystemFilmSource : public FilmSource {
 public:
  SystemFilmSource(Clock& clock, QString programFolder, RunLimits limits = {})
      : clock_(clock), programFolder_(std::move(programFolder)), limits_(limits) {}

  [[nodiscard]] std::unique_ptr<FilmJob> Begin(const QString& path, const Calls& calls) override;

 private:
  Clock& clock_;
  QString programFolder_;
  RunLimits limits_;
};

/// Has the command line write parts (`brindle parts`), each film's in a process of its own.
class SystemPartWriter : public PartWriter {
 public:
  SystemPartWriter(Clock& clock, QString programFolder, RunLimits limits = {})
      : clock_(clock), programFolder_(std::move(programFolder)), limits_(limits) {}

  [[nodiscard]] std::unique_ptr<FilmJob> Begin(const PartOrder& order, const Calls& calls) override;

 private:
  Clock& clock_;
  QString programFolder_;
  RunLimits limits_;
};

/// The parts that an answer of `brindle parts --json` tells of, which may come from anywhere; else
/// the reason, as the middle of a line.
[[nodiscard]] tl::expected<std::vector<WrittenPart>, QString> PartsOfJson(const QByteArray& json);

}  // namespace brindle
