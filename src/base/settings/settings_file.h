// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include "base/files/file_error.h"

namespace brindle {

/// The folder that holds the settings file, without a trailing separator: `programFolder`, unless
/// that is where the system's packages put programs or no file can be created in it; then
/// `configFolder`, which is created if it is missing.
[[nodiscard]] QString ChooseAppFolder(const QString& programFolder, const QString& configFolder);

/// The configuration folder of this program by the desktop's convention.
[[nodiscard]] QString DesktopConfigFolder();

/// The folder for what is kept between runs so that passes can be undone: beside the settings, if
/// the program keeps them in a folder of its own; else where the desktop's convention has such
/// state. It may be missing.
[[nodiscard]] QString UndoFolder(const QString& settingsFolder);

/// The file "Brindle2.ini" in a folder, as bytes.
class SettingsFile {
 public:
  explicit SettingsFile(const QString& folder);

  /// The whole file; no bytes if there is none. A file of more than one mebibyte, which no
  /// program of this name writes, is cut there: it has too much on a line or too many lines.
  [[nodiscard]] FileResult<QByteArray> Read() const;

  /// Replaces the file as a whole: writes the new one beside it, synchronises it and renames it
  /// over the old one, so that after a crash or on a full disk the file is either the old one or
  /// the new one. Replaces nothing but a file, and only when the system says that the new one is on
  /// the disk.
  [[nodiscard]] FileResult<void> Write(const QByteArray& bytes) const;

  /// Keeps a copy of the file, which could not be used, as "Brindle2.ini.bak", in place of an older
  /// one. Keeps as much of it as is read.
  [[nodiscard]] FileResult<void> KeepUnusable() const;

  /// Removes the temporary files that were left when this program was killed while it saved or
  /// looked for its folder, but none that another Brindle is writing. A file that cannot be removed
  /// stays.
  void SweepLeftovers() const;

 private:
  QString path_;
  QString keptPath_;
};

}  // namespace brindle
