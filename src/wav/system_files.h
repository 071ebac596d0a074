// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <tl/expected.hpp>

#include <QFile>
#include <QString>

namespace brindle {

// What the toolkit does not report about a file.

/// Whether another program keeps others from reading the file. `file` is either open or could not
/// be opened. False if the system does not say.
[[nodiscard]] bool IsLocked(const QFile& file);

/// Bytes of an open file, as the system reports them now; the error is its reason for refusing. The
/// toolkit treats a file of unknown length as empty.
[[nodiscard]] tl::expected<qint64, QString> LengthOf(const QFile& file);

/// Whether an open file is still the one at its path. The error is "the file is gone", "the file
/// was replaced", or the system's reason for not answering.
[[nodiscard]] tl::expected<void, QString> CheckAtItsPath(const QFile& file);

/// Whether both paths lead to one existing file: links, relative forms, and letter case where the
/// file system ignores it, make no difference.
[[nodiscard]] bool LeadToSameFile(const QString& path, const QString& other);

}  // namespace brindle
