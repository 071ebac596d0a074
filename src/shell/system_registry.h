// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "base/windows/registry.h"

namespace brindle {

/// The registry of the system that the program runs on.
class SystemRegistry : public Registry {
 public:
  [[nodiscard]] Result OpenKey(RegistryRoot root, const QString& subKey, Key& key) override;
  [[nodiscard]] Result DeleteValue(Key key, const QString& valueName) override;
  void CloseKey(Key key) override;
};

}  // namespace brindle
