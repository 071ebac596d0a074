// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <QByteArray>
#include <QFileInfo>
#include <QString>
#include <gtest/gtest.h>

#include "base/settings/settings.h"
#include "base/settings/settings_file.h"
#include "base/settings/settings_lines.h"
#include "tests/base/settings/temporary_folder.h"
#include "tests/support/system_messages.h"

namespace brindle {

using Names = std::vector<std::string>;

inline constexpr const char* FileName = "Brindle2.ini";
inline constexpr const char* BackupName = "Brindle2.ini.bak";

inline const std::string OldBytes = "old\r\nfile\r\n";

/// Longer than any buffer between the program and the disk.
inline const std::string& LongBytes() {
  constexpr std::size_t length = 200'000;
  static const std::string bytes = [] {
    std::string text;
    while (text.size() < length) {
      text += "line " + std::to_string(text.size()) + "\r\n";
    }
    return text;
  }();
  return bytes;
}

inline std::string BuiltInBytes() { return WriteLines(BuiltInSettings(), true).toStdString(); }

/// The bytes, or the message that stands for the error.
inline std::string WhatIsRead(const QString& folder) {
  const auto content = SettingsFile(folder).Read();
  return content ? content->toStdString() : CannotRead(content.error()).toStdString();
}

/// Empty where it went well, else the message that stands for the error.
inline std::string MessageOf(const FileResult<void>& written) {
  return written ? std::string() : CannotWrite(written.error()).toStdString();
}

inline std::string Write(const QString& folder, const std::string& bytes) {
  return MessageOf(SettingsFile(folder).Write(QByteArray::fromStdString(bytes)));
}

inline std::string KeepUnusable(const QString& folder) {
  return MessageOf(SettingsFile(folder).KeepUnusable());
}

/// "Cannot write PATH: " with a reason after it.
inline bool SaysWhyItCannotWrite(const std::string& message, const QString& path) {
  const auto start = "Cannot write " + NativePath(path) + ": ";
  return message.starts_with(start) && message.size() > start.size() &&
         message.find("Unknown") == std::string::npos;
}

/// Expects that a program in the folder `own` has its file in the config folder, which is created,
/// and leaves its own folder as it is.
inline void ExpectConfigFolderFor(const QString& own) {
  const TemporaryFolder home;
  const QString config = home.PathOf(".config/brindle2");
  const auto before = TemporaryFolder::NamesIn(own);
  EXPECT_EQ(ChooseAppFolder(own, config).toStdString(), config.toStdString());
  EXPECT_TRUE(QFileInfo(config).isDir());
  EXPECT_EQ(TemporaryFolder::NamesIn(config), Names{});
  EXPECT_EQ(TemporaryFolder::NamesIn(own), before);
}

}  // namespace brindle
