// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QString>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

#include "shell/main_prog.h"
#include "shell/window_catalogue.h"
#include "tests/base/settings/known_lines.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/window_test.h"

namespace brindle {

/// The settings file of a first run, byte for byte.
inline const std::string& FirstFile() {
  static const std::string bytes =
      "0.5859375\r\n0.5859375\r\n2\r\n1\r\n1\r\n400\r\n1\r\n1\r\n1\r\n100\r\n0\r\n1\r\n128\r\n1\r\n"
      "700\r\n0\r\n0\r\n910\r\n0\r\n224\r\n550\r\n700\r\n0\r\n1300\r\n700\r\n700\r\n10\r\n1024\r\n"
      "1\r\n#FALSE#\r\n#TRUE#\r\n#TRUE#\r\n100\r\n6\r\n592\r\n336\r\n1\r\n3\r\n1.778\r\n#TRUE#\r\n"
      "\r\nC:\\Out.wav\r\n";
  return bytes;
}

/// The same file with another text on line `number`, counted from 1.
inline std::string FileWith(std::size_t number, std::string_view text) {
  return Joined(TextsWith(number, text), "\r\n");
}

/// The visible top-level windows of this name.
inline std::vector<QWidget*> Standing(const QString& name) {
  std::vector<QWidget*> found;
  for (auto* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && window->objectName() == name) {
      found.push_back(window);
    }
  }
  return found;
}

/// The main window with a program folder of its own, which a test may fill before Start(). The
/// record is that of a program that has just been started.
class MainWindow : public WindowTest {
 protected:
  MainWindow() {
    record = Settings();
    AddAllWindows(windows, services, [this](const auto& then) { main->InitDat(then); });
  }

  /// Loads the main window without showing it.
  void Load() {
    main =
        MakeMainProg(services, ProgramFolders{.program = folder.path(), .config = config.path()});
  }

  void Start() {
    Load();
    main->show();
    main->activateWindow();
    WaitForActive(main.get());
  }

  [[nodiscard]] QString PathOf(const char* name) const {
    return folder.filePath(QString::fromUtf8(name));
  }
  [[nodiscard]] std::string File() const { return Bytes("Brindle2.ini"); }
  [[nodiscard]] std::string Bytes(const char* name) const {
    return TemporaryFolder::BytesOf(PathOf(name));
  }
  [[nodiscard]] std::vector<std::string> Names() const {
    return TemporaryFolder::NamesIn(folder.path());
  }
  void Put(const char* name, const std::string& bytes) const {
    QFile file(PathOf(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << file.errorString().toStdString();
    ASSERT_EQ(file.write(QByteArray::fromStdString(bytes)), static_cast<qint64>(bytes.size()));
  }

  /// Puts a folder where the file is or would be; not even the superuser can replace that by a
  /// file.
  void PutFolderInTheWay() const {
    QFile::remove(PathOf("Brindle2.ini"));
    ASSERT_TRUE(QDir(folder.path()).mkpath(QStringLiteral("Brindle2.ini/inner")));
  }

  /// "Cannot read PATH: " or "Cannot write PATH: "; the reason comes after it.
  [[nodiscard]] std::string Cannot(const char* verb, const char* name = "Brindle2.ini") const {
    return std::string("Cannot ") + verb + " " +
           QDir::toNativeSeparators(PathOf(name)).toStdString() + ": ";
  }
  /// Expects that exactly one box has been opened, with an OK button, a text that begins with
  /// `beginning`, and a reason.
  void ExpectOneBox(const std::string& beginning) const {
    ASSERT_EQ(boxes.asked.size(), 1U);
    const auto text = boxes.asked.front().text;
    EXPECT_TRUE(text.starts_with(beginning)) << text;
    EXPECT_GT(text.size(), beginning.size());
    EXPECT_EQ(boxes.asked.front().buttons, BoxButtons::Ok);
  }

  [[nodiscard]] QCheckBox* SaveOnExit() const {
    return Find<QCheckBox>(main.get(), QStringLiteral("SaveOnExit"));
  }
  void ClickOn(const QString& name) const { Click(Find(main.get(), name)); }
  void ToggleSaveOnExit() const {
    SaveOnExit()->setFocus();
    main->activateWindow();
    WaitForActive(main.get());
    Key(Qt::Key_Space);
  }

  QTemporaryDir config;
  std::unique_ptr<MainProg> main;
};

}  // namespace brindle
