// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace brindle {

/// While it lives, marks a temporary file as being written, so that another Brindle that starts in
/// the meantime does not take it for the leftover of a killed one.
class BeingWritten {
 public:
  /// `handle` is the descriptor of the temporary file.
  explicit BeingWritten(int handle);
  BeingWritten(const BeingWritten&) = delete;
  BeingWritten& operator=(const BeingWritten&) = delete;
  BeingWritten(BeingWritten&&) = delete;
  BeingWritten& operator=(BeingWritten&&) = delete;
  ~BeingWritten();

 private:
  int mark_ = -1;
};

/// Removes the temporary file, unless somebody is writing it. Does not report whether it is gone.
void RemoveLeftover(const QString& path);

}  // namespace brindle
