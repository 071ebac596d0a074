// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace brindle {

/// A folder of the test's own, removed at the end with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder() { EXPECT_TRUE(folder_.isValid()) << folder_.errorString().toStdString(); }

  [[nodiscard]] QString Path() const { return folder_.path(); }
  [[nodiscard]] QString PathOf(const char* name) const {
    return folder_.filePath(QString::fromUtf8(name));
  }

  /// Everything in the folder, hidden or not, sorted by name.
  [[nodiscard]] std::vector<std::string> Names() const { return NamesIn(Path()); }

  static std::vector<std::string> NamesIn(const QString& path) {
    std::vector<std::string> names;
    const auto entries = QDir(path).entryList(
        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const auto& name : entries) {
      names.push_back(name.toStdString());
    }
    return names;
  }

  [[nodiscard]] std::string Bytes(const char* name) const { return BytesOf(PathOf(name)); }

  static std::string BytesOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
      return "cannot be opened: " + file.errorString().toStdString();
    }
    return file.readAll().toStdString();
  }

  void Put(const char* name, const std::string& bytes) const {
    QFile file(PathOf(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << file.errorString().toStdString();
    ASSERT_EQ(file.write(QByteArray::fromStdString(bytes)), static_cast<qint64>(bytes.size()));
  }

 private:
  QTemporaryDir folder_;
};

}  // namespace brindle
