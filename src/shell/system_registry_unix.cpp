// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <QString>

#include "shell/system_registry.h"

namespace brindle {

// There is no registry here. The codes are those of one in which nothing is found.

namespace {

constexpr Registry::Result FileNotFound = 2;
constexpr Registry::Result InvalidHandle = 6;

}  // namespace

Registry::Result SystemRegistry::OpenKey(RegistryRoot, const QString&, Key& key) {
  key = 0;
  return FileNotFound;
}

Registry::Result SystemRegistry::DeleteValue(Key, const QString&) { return InvalidHandle; }

void SystemRegistry::CloseKey(Key) {}

}  // namespace brindle
