// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

namespace brindle {

/// Stands between the test program and the system for as long as it lives; one at a time. Each
/// function is asked before its call with the path of the file, and makes the call fail with the
/// error number it gives; 0 lets the call through. `sync` and `length` may be asked by any thread.
class InterposedCalls {
 public:
  using Answer = std::function<int(const std::string& path)>;

  InterposedCalls();
  InterposedCalls(const InterposedCalls&) = delete;
  InterposedCalls& operator=(const InterposedCalls&) = delete;
  InterposedCalls(InterposedCalls&&) = delete;
  InterposedCalls& operator=(InterposedCalls&&) = delete;
  ~InterposedCalls();

  Answer sync;               ///< fdatasync()
  Answer closeOfSyncedFile;  ///< the first close() of any descriptor after its sync
  Answer length;             ///< fstat()
  Answer rename;             ///< rename(), with the path that it has before
  /// Told when a read() has been done; it fails no call.
  std::function<void(const std::string& path)> afterRead;
};

}  // namespace brindle
