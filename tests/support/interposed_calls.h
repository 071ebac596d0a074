// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>

namespace brindle {

/// Intercepts calls from the test program to the system for as long as it lives; only one may live
/// at a time. Each function is asked before its call, with the path of the file, and makes the call
/// fail with the error number that it returns; 0 lets the call through. Any thread may ask `sync`
/// and `length`.
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
  Answer rename;             ///< rename(), with the old path
  /// Called after each read(); it makes no call fail.
  std::function<void(const std::string& path)> afterRead;
};

}  // namespace brindle
