// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <optional>

#include "base/files/disk.h"
#include "wav/background_sync.h"
#include "wav/pass.h"
#include "wav/wav_error.h"

namespace brindle {

/// How a pass waits for the disk without missing its updates.
class DiskWait {
 public:
  /// Has the file synchronised, and returns true once that is done; false, to be called again, when
  /// progress is due before.
  [[nodiscard]] WavResult<bool> For(const std::shared_ptr<DiskFile>& file, const PassTimer& timer);

 private:
  std::optional<BackgroundSync> sync_;
};

}  // namespace brindle
