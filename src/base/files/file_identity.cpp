// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "base/files/file_identity.h"

#include <limits>

#include <QString>

namespace brindle {

bool FileIdentity::IsNumbered() const {
  constexpr auto ones = std::numeric_limits<quint64>::max();
  const bool isZero = high == 0 && low == 0;
  const bool isOnes = low == ones && (high == 0 || high == ones);
  return !isZero && !isOnes;
}

quint64 FileIdentity::Number() const { return IsNumbered() ? high ^ low : 0; }

bool FileIdentity::IsSameFile(const FileIdentity& other) const {
  if (volume != other.volume || high != other.high || low != other.low) {
    return false;
  }
  return IsNumbered() || (!path.isEmpty() && path.compare(other.path, Qt::CaseInsensitive) == 0);
}

}  // namespace brindle
