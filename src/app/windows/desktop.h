// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

namespace brindle {

/// What the desktop around the program does for it.
class Desktop {
 public:
  Desktop() = default;
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;
  Desktop(Desktop&&) = delete;
  Desktop& operator=(Desktop&&) = delete;
  virtual ~Desktop() = default;

  /// The system's beep.
  virtual void Beep() = 0;
};

}  // namespace brindle
