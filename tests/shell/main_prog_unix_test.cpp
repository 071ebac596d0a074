// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <grp.h>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QString>
#include <gtest/gtest.h>

#include "tests/base/settings/child_process.h"
#include "tests/shell/main_window.h"

namespace brindle {
namespace {

// Runs a check on a main window in a child process, so that it may change its limits and its user.
class MainWindowInChild : public MainWindow {
 protected:
  static constexpr uid_t Nobody = 65534;

  // The superuser passes every check of access, so the check runs without privileges.
  void ExpectNoFindingsOfOrdinaryUser(const std::function<void(Findings&)>& check) {
    const std::string cannotProve = "cannot prove: ";
    if (geteuid() == 0) {
      for (const auto& path : {folder.path(), config.path()}) {
        ASSERT_EQ(chown(path.toUtf8().constData(), Nobody, Nobody), 0) << std::strerror(errno);
      }
    }
    const auto report = InChild([&] {
      if (geteuid() == 0 &&
          (setgroups(0, nullptr) != 0 || setgid(Nobody) != 0 || setuid(Nobody) != 0)) {
        return cannotProve + std::strerror(errno);
      }
      Put("probe", "");
      SetMode(PathOf("probe"), 0);
      if (QFile probe(PathOf("probe")); probe.open(QIODevice::ReadOnly)) {
        return cannotProve + "this user may read every file";
      }
      QFile::remove(PathOf("probe"));
      Findings found;
      check(found);
      return found.Text();
    });
    SetMode(folder.path(), S_IRWXU);
    if (report.starts_with(cannotProve)) {
      GTEST_SKIP() << "NOT RUN, " << report;
    }
    EXPECT_EQ(report, "");
  }

  static void SetMode(const QString& path, mode_t mode) {
    if (chmod(path.toUtf8().constData(), mode) != 0) {
      std::abort();
    }
  }

  // ExpectOneBox() for a child, which cannot fail the test itself.
  void FindOneBox(Findings& found, const std::string& text) const {
    found.ExpectEqual(std::to_string(boxes.asked.size()), "1", "boxes");
    if (!boxes.asked.empty()) {
      found.ExpectEqual(boxes.asked.front().text, text, "box");
      found.Expect(boxes.asked.front().buttons == BoxButtons::Ok, "not an OK box");
    }
  }
};

TEST_F(MainWindowInChild, AFileWithoutPermissionIsToldAndNothingWritten) {
  const auto bytes = FileWith(10, "125.5");
  ExpectNoFindingsOfOrdinaryUser([&](Findings& found) {
    Put("Brindle2.ini", bytes);
    SetMode(PathOf("Brindle2.ini"), 0);
    boxes.Answer(BoxAnswer::Ok);
    Load();
    FindOneBox(found, Cannot("read") + qt_error_string(EACCES).toStdString());
    found.ExpectEqual(std::to_string(record.MovieLength), std::to_string(100.0), "MovieLength");
    found.Expect(!SaveOnExit()->isChecked(), "ticked");
    main->close();
    SetMode(PathOf("Brindle2.ini"), S_IRUSR | S_IWUSR);
    found.ExpectEqual(File(), bytes, "the file");
    found.ExpectEqual(std::to_string(Names().size()), "1", "files in the folder");
  });
}

TEST_F(MainWindowInChild, AFolderThatBecomesReadOnlyKeepsItsFile) {
  ExpectNoFindingsOfOrdinaryUser([&](Findings& found) {
    Load();
    SetMode(folder.path(), S_IRUSR | S_IXUSR);
    record.MovieLength = 125.5;
    boxes.Answer(BoxAnswer::Ok);
    main->close();
    FindOneBox(found, Cannot("write") + qt_error_string(EACCES).toStdString());
    found.ExpectEqual(File(), FirstFile(), "the file");
  });
}

TEST_F(MainWindowInChild, AFirstStartOnAFullDiskIsToldOnceAndGoesOn) {
  const auto report = InChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit none{};
    getrlimit(RLIMIT_FSIZE, &none);
    none.rlim_cur = 0;
    setrlimit(RLIMIT_FSIZE, &none);
    Findings found;
    boxes.Answer(BoxAnswer::Ok);
    Load();
    FindOneBox(found, Cannot("write") + qt_error_string(EFBIG).toStdString());
    found.ExpectEqual(std::to_string(record.MovieLength), std::to_string(100.0), "MovieLength");
    found.Expect(Names().empty(), "something stays in the folder");
    return found.Text();
  });
  EXPECT_EQ(report, "");
}

}  // namespace
}  // namespace brindle
