// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <windows.h>

#include <QString>

#include "shell/system_registry.h"

namespace brindle {

namespace {

// The handles are pointers only to the system.
// NOLINTBEGIN(performance-no-int-to-ptr,cppcoreguidelines-pro-type-reinterpret-cast)
HKEY HandleOf(Registry::Key key) { return reinterpret_cast<HKEY>(key); }
Registry::Key KeyOf(HKEY handle) { return reinterpret_cast<Registry::Key>(handle); }

HKEY HandleOf(RegistryRoot root) {
  switch (root) {
    case RegistryRoot::LocalMachine:
      return HKEY_LOCAL_MACHINE;
  }
  return nullptr;
}
// NOLINTEND(performance-no-int-to-ptr,cppcoreguidelines-pro-type-reinterpret-cast)

}  // namespace

Registry::Result SystemRegistry::OpenKey(RegistryRoot root, const QString& subKey, Key& key) {
  HKEY opened = nullptr;
  const auto result = RegOpenKeyA(HandleOf(root), subKey.toLocal8Bit().constData(), &opened);
  key = result == ERROR_SUCCESS ? KeyOf(opened) : 0;
  return result;
}

Registry::Result SystemRegistry::DeleteValue(Key key, const QString& valueName) {
  return RegDeleteValueA(HandleOf(key), valueName.toLocal8Bit().constData());
}

void SystemRegistry::CloseKey(Key key) { RegCloseKey(HandleOf(key)); }

}  // namespace brindle
