// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "base/files/disk.h"
#include "wav/pass.h"
#include "wav/sync_thread.h"
#include "wav/wav_error.h"

namespace brindle {

/// How a pass waits for the disk without missing its updates.
class DiskWait {
 public:
  /// Has the file synchronised, and returns true once that is done; false, to be called again, when
  /// progress is due before.
  [[nodiscard]] WavResult<bool> For(const std::shared_ptr<DiskFile>& file, const PassTimer& timer);

 private:
  SyncThread thread_;
};

}  // namespace brindle
