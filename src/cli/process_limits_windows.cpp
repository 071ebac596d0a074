// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <windows.h>

#include "cli/process_limits.h"

namespace brindle {

void LimitThisProcess() {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  constexpr SIZE_T bytes = 1'073'741'824;
  constexpr LONGLONG ticks = 6'000'000'000;  // of 100 ns: ten minutes
  limits.BasicLimitInformation.LimitFlags =
      JOB_OBJECT_LIMIT_PROCESS_MEMORY | JOB_OBJECT_LIMIT_PROCESS_TIME;
  limits.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart = ticks;
  limits.ProcessMemoryLimit = bytes;
  // The job lasts as long as this process does. A system that refuses it keeps the limits it has.
  const HANDLE job = CreateJobObjectW(nullptr, nullptr);
  if (job != nullptr && SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits,
                                                sizeof limits) != FALSE) {
    static_cast<void>(AssignProcessToJobObject(job, GetCurrentProcess()));
  }
}

}  // namespace brindle
