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

 private:
  // What was opened last: its values may stand in the other of the system's two views.
  [[maybe_unused]] RegistryRoot root_ = RegistryRoot::LocalMachine;
  [[maybe_unused]] QString subKey_;
};

}  // namespace brindle
