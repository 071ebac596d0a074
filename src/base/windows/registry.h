// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include <QString>

#include "base/interface.h"

namespace brindle {

/// The root keys of the registry's tree.
enum class RegistryRoot { LocalMachine };

/// The system's registry. A system without one answers like a registry in which nothing is found.
class Registry : public Interface {
 public:
  /// An opened key; 0 is none.
  using Key = std::uintptr_t;
  /// The system's error code; 0 is success.
  using Result = std::int32_t;

  /// Opens the key `subKey` (names between backslashes) under the root; `key` is 0 if it cannot.
  [[nodiscard]] virtual Result OpenKey(RegistryRoot root, const QString& subKey, Key& key) = 0;

  /// Deletes one named value of an opened key.
  [[nodiscard]] virtual Result DeleteValue(Key key, const QString& valueName) = 0;

  virtual void CloseKey(Key key) = 0;
};

}  // namespace brindle
