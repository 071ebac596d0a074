// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include "base/interface.h"

namespace brindle {

/// A window that works on a file, as who has one for it sees it.
class FileOpener : public Interface {
 public:
  /// Opens the file as if the user had chosen it.
  virtual void OpenFile(const QString& path) = 0;
};

}  // namespace brindle
