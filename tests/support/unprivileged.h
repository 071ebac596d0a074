// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cerrno>
#include <cstring>
#include <functional>
#include <grp.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/child_process.h"
#include "tests/base/settings/temporary_folder.h"

namespace brindle {

/// A check that the superuser always passes proves nothing. This gives the folder and the files
/// directly in it to an unprivileged user, who can deny access to himself, and runs the check as
/// that user; its findings fail the test. If privileges cannot be dropped, the test is skipped.
inline void ExpectNoFindingsAsNobody(const TemporaryFolder& folder,
                                     const std::function<void(Findings&)>& check) {
  constexpr uid_t nobody = 65534;
  constexpr std::string_view cannotProve = "cannot prove: ";
  const auto path = folder.Path().toUtf8();
  if (geteuid() == 0) {
    ASSERT_EQ(chown(path.constData(), nobody, nobody), 0) << std::strerror(errno);
    for (const auto& name : folder.Names()) {
      const auto file = folder.PathOf(name.c_str()).toUtf8();
      ASSERT_EQ(lchown(file.constData(), nobody, nobody), 0) << std::strerror(errno);
    }
  }
  const auto report = InChild([&] {
    if (geteuid() == 0 &&
        (setgroups(0, nullptr) != 0 || setgid(nobody) != 0 || setuid(nobody) != 0)) {
      return std::string(cannotProve) + "privileges cannot be dropped: " + std::strerror(errno);
    }
    Findings found;
    check(found);
    chmod(path.constData(), S_IRWXU);
    return found.Text();
  });
  if (report.starts_with(cannotProve)) {
    GTEST_SKIP() << "NOT RUN, " << report;
  }
  EXPECT_EQ(report, "");
}

}  // namespace brindle
