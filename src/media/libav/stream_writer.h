// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include <QString>
#include <QStringList>

#include "base/files/disk.h"
#include "media/film.h"
#include "media/film_work.h"
#include "media/libav/packets.h"

namespace brindle {

/// Copies the packets of a film into its parts, Matroska or MP4 files: each packet once. What is
/// given must outlive the pass.
[[nodiscard]] std::unique_ptr<PartsPass> WriteStreamParts(
    DiskFile& source, const QString& path, const PacketTable& table, const Film& film,
    const std::vector<std::size_t>& cuts, const QStringList& targets, bool isReplacing);

/// What the container of a part has before and after its packets, in bytes, and a little more.
[[nodiscard]] std::int64_t FixedBytesOf(const AVFormatContext& source, const PacketTable& table);

}  // namespace brindle
