// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include "wav/disk_wait.h"

#include <chrono>
#include <memory>

#include "base/files/disk.h"
#include "wav/pass.h"
#include "wav/wav_error.h"

namespace brindle {

WavResult<bool> DiskWait::For(const std::shared_ptr<DiskFile>& file, const PassTimer& timer) {
  constexpr std::chrono::milliseconds betweenLooks(50);
  if (!thread_.IsAtWork()) {
    thread_.Begin(file);
  }
  auto synced = thread_.Await(betweenLooks);
  for (; !synced; synced = thread_.Await(betweenLooks)) {
    if (timer.IsDue(UpdateInterval::Half)) {
      return false;
    }
  }
  return synced->map([] { return true; }).map_error(FailedAt(WavError::Failed::Writing));
}

}  // namespace brindle
