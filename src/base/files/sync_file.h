// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <tl/expected.hpp>

#include <QString>

namespace brindle {

/// Has the system write the open file out and asks what closing it would report, because a system
/// may accept bytes first and refuse them later. `handle` is the file's descriptor, which stays
/// open. The error is the system's reason why a byte may be lost; a file system that cannot
/// synchronise is not a failure. May take long, and may run on any thread.
[[nodiscard]] tl::expected<void, QString> SyncFile(int handle);

}  // namespace brindle
