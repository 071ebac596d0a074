// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

#include "base/files/disk.h"
#include "wav/wav_error.h"

namespace brindle {

/// An error of writing, with what is needed and what is free, if the disk has no room for a target
/// of this many bytes. What an old target takes counts as free: it goes before the new one comes.
[[nodiscard]] WavResult<void> CheckRoomForTarget(const Disk& disk, const QString& target,
                                                 qint64 bytes);

}  // namespace brindle
