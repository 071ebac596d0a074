// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/target_room.h"

#include <QFileInfo>
#include <QString>

#include "base/files/at_path.h"
#include "base/files/disk.h"
#include "base/files/file_error.h"
#include "wav/wav_error.h"

namespace brindle {

using namespace Qt::StringLiterals;

WavResult<void> CheckRoomForTarget(const Disk& disk, const QString& target, qint64 bytes) {
  constexpr qint64 megabyte = 1'048'576;
  const QFileInfo old(target);
  const auto free = disk.FreeBytes(old.path());
  if (!free || old.isSymLink() || !IsFileAt(target)) {
    return {};  // opening it finds out
  }
  const qint64 room = *free + old.size();
  if (bytes <= room) {
    return {};
  }
  return tl::unexpected(
      WavError{WavError::Failed::Writing,
               ErrorOf(target, u"not enough room: %1 MB are needed, %2 MB are free"_s
                                   .arg((bytes + megabyte - 1) / megabyte)
                                   .arg(room / megabyte))});
}

}  // namespace brindle
