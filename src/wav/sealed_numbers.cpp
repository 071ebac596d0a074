// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/sealed_numbers.h"

#include <optional>

#include <QByteArray>

#include "wav/record_hash.h"

namespace brindle {

QByteArray Sealed(const QByteArray& bytes) {
  return NumberWriter().Of(HashOf(AsBytes(bytes))) + bytes;
}

std::optional<QByteArray> Unsealed(const QByteArray& sealed) {
  quint64 hash = 0;
  const auto bytes = sealed.mid(sizeof(hash));
  if (!NumberReader(sealed).To(hash) || hash != HashOf(AsBytes(bytes))) {
    return std::nullopt;
  }
  return bytes;
}

}  // namespace brindle
