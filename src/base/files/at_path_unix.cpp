// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <filesystem>
#include <system_error>

#include <QString>

#include "base/files/at_path.h"
#include "base/files/file_error.h"

namespace brindle {

using namespace Qt::StringLiterals;

FileResult<bool> IsFileAt(const QString& path) {
  std::error_code code;
  const auto status = std::filesystem::status(path.toStdU16String(), code);
  if (status.type() == std::filesystem::file_type::not_found) {
    return false;
  }
  if (code) {
    return tl::unexpected(ErrorOf(path, qt_error_string(code.value())));
  }
  if (!std::filesystem::is_regular_file(status)) {
    return tl::unexpected(ErrorOf(path, u"not a file"_s));
  }
  return true;
}

bool IsAbsolute(const QString& path) { return path.startsWith(u'/'); }

}  // namespace brindle
