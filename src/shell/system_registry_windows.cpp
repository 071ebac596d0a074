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
  root_ = root;
  subKey_ = subKey;
  return result;
}

// What a 32-bit program has written is not where a 64-bit program looks.
Registry::Result SystemRegistry::DeleteValue(Key key, const QString& valueName) {
  const auto name = valueName.toLocal8Bit();
  const auto result = RegDeleteValueA(HandleOf(key), name.constData());
  if (result != ERROR_FILE_NOT_FOUND) {
    return result;
  }
  HKEY other = nullptr;
  if (RegOpenKeyExA(HandleOf(root_), subKey_.toLocal8Bit().constData(), 0,
                    KEY_SET_VALUE | KEY_WOW64_32KEY, &other) != ERROR_SUCCESS) {
    return result;
  }
  const auto otherResult = RegDeleteValueA(other, name.constData());
  RegCloseKey(other);
  return otherResult;
}

void SystemRegistry::CloseKey(Key key) { RegCloseKey(HandleOf(key)); }

}  // namespace brindle
