// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <QStringList>

#include "base/files/disk.h"
#include "media/film.h"
#include "media/film_work.h"
#include "media/libav/avi_layout.h"
#include "media/libav/avi_parts.h"

namespace brindle {

/// Copies the pieces of an AVI file into its parts, as they are. A part has the headers of the film
/// and as many bytes as PartBytes() says. Everything that is given must outlive the pass.
[[nodiscard]] std::unique_ptr<PartsPass> WriteAviParts(DiskFile& source, const AviLayout& layout,
                                                       const AviTracks& tracks, const Film& film,
                                                       const std::vector<std::size_t>& cuts,
                                                       const QStringList& targets,
                                                       bool isReplacing);

}  // namespace brindle
