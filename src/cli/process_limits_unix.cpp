// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <sys/resource.h>

#include "cli/process_limits.h"

namespace brindle {
namespace {

// A limit that is lower already stays.
void Limit(__rlimit_resource resource, rlim_t most) {
  rlimit limit{};
  if (getrlimit(resource, &limit) == 0) {
    limit.rlim_cur = std::min(limit.rlim_cur, most);
    // A system that refuses it keeps the limits that it has.
    static_cast<void>(setrlimit(resource, &limit));
  }
}

}  // namespace

void LimitThisProcess() {
#if !defined(__SANITIZE_ADDRESS__)  // which sets terabytes of addresses aside
  constexpr rlim_t bytes = 1'073'741'824;
  Limit(RLIMIT_AS, bytes);
#endif
  constexpr rlim_t seconds = 600;
  Limit(RLIMIT_CPU, seconds);
}

}  // namespace brindle
