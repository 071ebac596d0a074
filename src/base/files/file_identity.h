// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace brindle {

/// What a system says of a file to tell it from others.
struct FileIdentity {
  quint64 volume = 0;
  quint64 high = 0;  ///< the upper half of its number on the volume; 0 where numbers have 64 bits
  quint64 low = 0;   ///< the lower half
  QString path;      ///< where it lies once all links are followed; empty if that is not known

  /// Some servers and file systems give every file a number of all zeros, or of all ones.
  [[nodiscard]] bool IsNumbered() const;

  /// The number in 64 bits; 0 if there is none.
  [[nodiscard]] quint64 Number() const;

  /// Whether both are one file. Their paths decide where numbers do not; one that is not known is
  /// nobody's.
  [[nodiscard]] bool IsSameFile(const FileIdentity& other) const;
};

}  // namespace brindle
