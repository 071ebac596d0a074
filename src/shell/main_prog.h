// SPDX-FileCopyrightText: 2026 Velbrin and the Brindle contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>

#include <QByteArray>
#include <QCheckBox>
#include <QPushButton>
#include <QString>

#include "base/input/form.h"
#include "base/settings/settings_file.h"
#include "base/windows/services.h"

namespace brindle {

/// Where the program stands and where it may keep its settings.
struct ProgramFolders {
  QString program;  ///< the folder of the executable
  QString config;   ///< the user's configuration folder for this program
};

/// The main window: a button for every other window, and the keeper of the settings file.
class MainProg : public Form {
  Q_OBJECT

 public:
  MainProg(Services& services, ProgramFolders folders);

  /// Sets every stored field to its built-in value (but for the two that keep theirs), ticks
  /// SaveOnExit and writes the file.
  void InitDat();

  /// Writes the record and the box to the file; a failure is told in one box. `then` runs when all
  /// that is over.
  void WriteSettings(const std::function<void()>& then);

  /// Closes the window, and the program with it, because the system wants it: no window is asked.
  void CloseUnasked();

 protected:
  void AskToClose(const std::function<void()>& agreed) override;

 private:
  void MakeLayout();
  void WireEvents();
  void Form_Load();
  void Unload(const std::function<void()>& then);
  bool ReadSettings(const QByteArray& bytes);
  void UseDefaultsUnsaved(const QString& reason);

  void VideoBC_Click();
  void AudioBC_Click();
  void HDC_Click();
  void AVISplitC_Click();
  void RAR_Click();
  void QuickCon_Click();
  void WinCalc_Click();
  void Normalize_Click();
  void Adremove_Click();
  void HelpWin_Click();
  void Update_Click();
  void Defaults_Click();
  void SaveSettings_Click();
  void About_Click();
  void Webs_Click();

  void GuardedShow(WindowId id);

  Services& services_;
  ProgramFolders folders_;
  bool unloaded_ = false;
  bool isUnasked_ = false;

  QPushButton* VideoBC;
  QPushButton* AudioBC;
  QPushButton* HDC;
  QPushButton* AVISplitC;
  QPushButton* RAR;
  QPushButton* QuickCon;
  QPushButton* WinCalc;
  QPushButton* Normalize;
  QPushButton* Adremove;
  QPushButton* HelpWin;
  QPushButton* Update;
  QCheckBox* SaveOnExit;
  QPushButton* Defaults;
  QPushButton* SaveSettings;
  QPushButton* About;
  QPushButton* Webs;
};

}  // namespace brindle
