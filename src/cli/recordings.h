// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <tl/expected.hpp>
#include <vector>

#include <QString>

#include "cli/command.h"
#include "cli/reading.h"
#include "wav/pass.h"
#include "wav/wav_error.h"
#include "wav/wav_header.h"

namespace brindle {

/// A recording that a command works on.
struct Recording {
  std::string name;  ///< as it was given
  QString path;      ///< the same in full
};

/// Why nothing, or only a part, was done with a recording.
struct Refusal {
  ExitCode code = ExitCode::Failed;
  std::string message;
};

/// What came of a recording.
using Outcome = tl::expected<Answer, Refusal>;

/// Does the work with each recording in turn. One that fails is reported, and the next one follows;
/// an interruption ends the row. The exit code is that of the worst one.
[[nodiscard]] ExitCode ForEach(const std::vector<std::string>& names, Reporter& report,
                               const std::function<Outcome(const Recording&)>& work);

/// Runs a pass to its end, or to an interruption, and shows its progress.
[[nodiscard]] PassState RunShown(Pass& pass, const std::string& name, Console& console);

/// A message of the windows as the middle of a line: without the large letter and the period.
[[nodiscard]] std::string AsPart(const QString& message);

/// "cannot read NAME: REASON", with the name as it was given.
[[nodiscard]] std::string MessageFor(const Recording& recording, const WavError& error);

/// The header of a file that can be used as a recording.
[[nodiscard]] tl::expected<WavHeader, Refusal> HeaderOf(const Recording& recording);

/// Says so if the samples have not the width for which they are taken.
void WarnOfWidth(const Recording& recording, const WavHeader& header, Reporter& report);

/// The name of a file as the engine takes it; nothing if its bytes are not UTF-8, which the engine
/// could not find again.
[[nodiscard]] std::optional<QString> PathOf(const std::string& name);

/// A path on the command line.
[[nodiscard]] Reading<std::string> ReadPath(std::string_view text);

}  // namespace brindle
